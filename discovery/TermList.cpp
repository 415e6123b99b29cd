#include "discovery/TermList.h"

#include "addin/clsProgForm.h"
#include "addin/modCommonErrorMsgs.h"
#include "discovery/Articles.h"
#include "discovery/FoundTermsLabel.h"
#include "discovery/modQuickSort.h"
#include "platform/word/Document.h"
#include "platform/word/Range.h"

#include <utility>

namespace {

FoundTerms FindInDocument(const TermSearch& search, QuoteCodes codes, bool bold) {
  FoundTerms terms(1);
  const word::StoryRangesPtr stories = search.document->StoryRanges();
  for (int i = 1; i <= stories->Count(); ++i) {
    const word::RangePtr story = stories->Item(i);
    if (story->StoryType() >= word::wdCommentsStory) continue;
    terms = FindQuotedTerms(search, story, codes, bold, std::move(terms));
  }
  return terms;
}

}  // namespace

bool AnyFound(const FoundTerms& terms) { return terms.size() > 1 || !terms.front().empty(); }

bool BuildQuotedTermList(const TermSearch& search, const Host& host, QuoteCodes codes, bool bold, FoundTerms& terms) {
  const bool done = TrapErrors(host.messages, u"Get list of terms failed", [&] {
    FoundTerms found = FindInDocument(search, codes, bold);
    // What was moved shows in the list as it now stands in the document.
    if (OfferToMoveQuotes(search.document, host, found)) found = FindInDocument(search, codes, bold);
    QuickSort(found, 0, static_cast<int>(found.size()) - 1);
    terms = std::move(found);
    const TermKind kind = bold ? TermKind::kBoldQuoted : TermKind::kQuoted;
    search.controls.lblTermsInDoc.SetCaption(FoundTermsLabel(kind, AnyFound(terms)));
  });
  if (!done) EndProgress(search);
  return done;
}

void FillFoundTerms(forms::ListBox& list, const FoundTerms& terms) {
  if (!AnyFound(terms)) return;
  for (const std::u16string& term : terms) list.AddItem(term);
  for (int i = 0; i < list.ListCount(); ++i) list.SetSelected(i, true);
}
