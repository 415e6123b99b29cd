#include "settings/OptionControls.h"

void ApplySearchTypeRule(const OptionControls& options, bool quotedTerms) {
  options.lblOpenQuote.SetEnabled(quotedTerms);
  options.cmbOpenQuote.SetEnabled(quotedTerms);
  options.lblCloseQuote.SetEnabled(quotedTerms);
  options.cmbCloseQuote.SetEnabled(quotedTerms);
  for (forms::OptionButton& element : options.optIndexWhat) element.SetEnabled(quotedTerms);
}

void ApplyCaseRule(const OptionControls& options) {
  options.chkIndexCaps.SetEnabled(options.chkCaseSensitive.Value() == 1);
}
