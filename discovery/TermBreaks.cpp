#include "discovery/TermBreaks.h"

#include <algorithm>
#include <string_view>

namespace {

/// Carriage return, manual line break, line feed, tab and, on purpose, backspace.
constexpr std::u16string_view kBreaks = u"\r\v\n\t\b";

bool HoldsBreak(const std::u16string& term) { return term.find_first_of(kBreaks) != std::u16string::npos; }

}  // namespace

void WarnOfBreaks(const FoundTerms& found, os::Messages& messages) {
  if (std::none_of(found.begin(), found.end(), HoldsBreak)) return;
  messages.Show(
      u"Tabs/returns found in terms",
      u"At least one of the terms found in quotes contains a paragraph mark or tab.  This can happen if the term is "
      u"manually split between lines.  "
      u"Kelvarin probably won't be able to find any matches for terms "
      u"containing returns or tabs because they probably don't contain tabs and returns "
      u"in the rest of your document.  "
      u"\r\n\r\n"
      u"If you have a definitions section where your "
      u"terms are in one column and your defintions are in another, you should use "
      u"tables rather than tabs and returns, so that your columns wrap automatically and your terms won't contain "
      u"tabs and returns."
      u"\r\n\r\n"
      u"Please check the list of terms found for indexing for any terms containing empty spaces or square boxes and "
      u"either:"
      u"\r\n\r\n"
      u"Add it to the list of additional terms for indexing without the tab/return"
      u"\r\n\r\n"
      u"or"
      u"\r\n\r\n"
      u"Cancel out and fix the formatting in the document.",
      os::Icon::kExclamation, os::Buttons::kOk);
}
