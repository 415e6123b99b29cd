#include "discovery/TermList.h"

#include "addin/clsProgForm.h"
#include "addin/modCommonErrorMsgs.h"
#include "discovery/modQuickSort.h"
#include "platform/word/Document.h"
#include "platform/word/Range.h"

#include <utility>

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

constexpr std::u16string_view kTermsFound =
    u"The following defined terms were found in your document.  "
    u"Select which terms you want to index.  You can specify "
    u"additional terms for indexing in the 'Add terms for indexing' "
    u"section below.";

FoundTerms FindInDocument(const TermSearch& search, QuoteCodes codes, bool bold) {
  FoundTerms terms(1);
  const word::StoryRangesPtr stories = search.document->StoryRanges();
  for (int i = 1; i <= stories->Count(); ++i) {
    const word::RangePtr story = stories->Item(i);
    if (story->StoryType() >= word::wdCommentsStory) continue;
    terms = FindQuotedTerms(search, story, codes, bold, std::move(terms));
  }
  QuickSort(terms, 0, static_cast<int>(terms.size()) - 1);
  return terms;
}

}  // namespace

bool AnyFound(const FoundTerms& terms) { return terms.size() > 1 || !terms.front().empty(); }

bool BuildQuotedTermList(const TermSearch& search, os::Messages& messages, QuoteCodes codes, bool bold,
                         FoundTerms& terms) {
  const bool done = TrapErrors(messages, u"Get list of terms failed", [&] {
    terms = FindInDocument(search, codes, bold);
    search.controls.lblTermsInDoc.SetCaption(AnyFound(terms) ? kTermsFound : kNoTerms);
  });
  if (!done) search.progress.CloseProgress();
  return done;
}

void FillFoundTerms(forms::ListBox& list, const FoundTerms& terms) {
  if (!AnyFound(terms)) return;
  for (const std::u16string& term : terms) list.AddItem(term);
  for (int i = 0; i < list.ListCount(); ++i) list.SetSelected(i, true);
}
