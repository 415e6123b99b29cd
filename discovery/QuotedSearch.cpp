#include "discovery/QuotedSearch.h"

#include "discovery/QuotePairs.h"
#include "discovery/TermBreaks.h"
#include "discovery/TermList.h"
#include "settings/OptionSettings.h"

SearchResult SearchQuotedTerms(const QuotedSearch& quoted, QuoteCodes codes, bool bold, FoundTerms& terms) {
  const QuoteCheck check{quoted.search, quoted.host, quoted.ini, quoted.savedReplaceQuotes};
  if (CheckQuotePairs(check, codes)) return SearchResult::kStopQuietly;
  SelectQuotes(quoted.options.cmbOpenQuote, quoted.options.cmbCloseQuote, codes.open, codes.close);
  if (!BuildQuotedTermList(quoted.search, quoted.host, codes, bold, terms)) return SearchResult::kFailed;
  WarnOfBreaks(terms, quoted.host.messages);
  return SearchResult::kGoOn;
}
