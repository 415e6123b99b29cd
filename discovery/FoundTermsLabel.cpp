#include "discovery/FoundTermsLabel.h"

namespace {

constexpr std::u16string_view kNoTerms =
    u"No defined terms were found in this document.  "
    u"Defined terms must be enclosed "
    u"in double quotes where they are defined to be recognized - "
    u"they will be indexed no matter how they are formatted.  "
    u"Choose the style of open and close quotes in your document "
    u"in the Options section below."
    u"\r\n"
    u"If the defined terms in your document are in double quotes, "
    u"check the search options panel below to see whether "
    u"'Defined terms in bold' is ticked - untick it, click "
    u"'Find terms and refresh list' and they should be listed. "
    u"If the defined terms in your document aren't bold and that "
    u"option is ticked, they won't be listed."
    u"\r\n"
    u"You can type a list of terms to index in the "
    u"'Add terms for indexing' section below, or "
    u"click Cancel, and make sure that your defined terms are "
    u"enclosed in double quotation marks where they are defined "
    u"so that they can be recognized.";

constexpr std::u16string_view kQuotedFound =
    u"The following defined terms were found in your document.  "
    u"Select which terms you want to index.  You can specify "
    u"additional terms for indexing in the 'Add terms for indexing' "
    u"section below.";

constexpr std::u16string_view kBoldQuotedFound =
    u"The following "
    u"boldfaced "
    u"defined terms were found in your document.  "
    u"Select which terms you want to index.  You can specify "
    u"additional terms for indexing in the 'Add terms for indexing' "
    u"section below.";

constexpr std::u16string_view kCapitalsFound =
    u"The following "
    u"capitalized words and phrases were found in your document.  Sentences "
    u"Select which terms you want to index.  You can specify "
    u"additional terms for indexing in the 'Add terms for indexing' "
    u"section below.";

}  // namespace

std::u16string_view FoundTermsLabel(TermKind kind, bool any) {
  if (!any) return kNoTerms;
  switch (kind) {
    case TermKind::kBoldQuoted:
      return kBoldQuotedFound;
    case TermKind::kCapitals:
      return kCapitalsFound;
    default:
      return kQuotedFound;
  }
}
