#include "discovery/QuotedTerms.h"

#include "addin/clsProgForm.h"
#include "discovery/TermRange.h"
#include "platform/AnsiText.h"
#include "platform/word/Application.h"
#include "platform/word/Find.h"
#include "platform/word/Format.h"
#include "platform/word/Options.h"
#include "platform/word/Range.h"

#include <cstddef>
#include <unordered_set>
#include <utility>

namespace {

bool IsBold(const word::RangePtr& character) { return character->Font()->Bold() == -1; }

bool IsBoldAtBothEnds(const word::RangePtr& quoted) {
  const word::CharactersPtr characters = TermRange(quoted)->Characters();
  return IsBold(characters->First()) && IsBold(characters->Last());
}

void ShowStep(const TermSearch& search, std::u16string_view inWindow, std::u16string_view inStatusBar) {
  if (search.progressMode == ProgressMode::kWindow) {
    search.progress.UpdateProgress(inWindow, u"", u"", 0, 0, u"Please wait");
  } else {
    search.controls.StatusBar1.SetSimpleText(inStatusBar);
  }
}

FoundTerms ScanStory(const TermSearch& search, const word::RangePtr& story, std::u16string_view pattern, bool bold) {
  FoundTerms terms(1);
  const word::FindPtr find = story->Find();
  do {
    find->ClearFormatting();
    find->SetText(pattern);
    find->SetMatchWildcards(true);
    find->SetMatchAllWordForms(false);
    find->Execute();
    if (!find->Found()) break;
    story->SetStart(story->Start() + 1);
    const word::Position end = story->End();
    story->SetEnd(end - 1);
    if (!bold || IsBoldAtBothEnds(story)) search.termMarker.AddTerm(story, terms);
    story->SetEnd(end);
    story->Collapse(word::wdCollapseEnd);
  } while (find->Found());
  if (terms.size() > 1) terms.pop_back();
  return terms;
}

FoundTerms Merge(FoundTerms found, const FoundTerms& story) {
  std::size_t next = found.size() > 1 ? found.size() : (found.front().empty() ? 0 : 1);
  found.resize(next + story.size());
  std::unordered_set<std::u16string_view> seen(found.begin(), found.begin() + static_cast<std::ptrdiff_t>(next));
  for (const std::u16string& term : story) {
    if (term.empty()) continue;
    // One term that an earlier story gave ends this story's contribution, on purpose.
    if (!seen.insert(term).second) break;
    found[next++] = term;
  }
  while (found.size() > 1 && found.back().empty()) found.pop_back();
  return found;
}

}  // namespace

void EndProgress(const TermSearch& search) {
  if (search.progressMode == ProgressMode::kWindow) {
    search.progress.CloseProgress();
  } else {
    search.controls.StatusBar1.SetSimpleText(u"");
  }
}

FoundTerms FindQuotedTerms(const TermSearch& search, const word::RangePtr& story, QuoteCodes codes, bool bold,
                           FoundTerms found) {
  search.controls.lstTermsInDoc.Clear();
  if (search.progressMode == ProgressMode::kWindow) search.progress.ShowProgress(0);
  ShowStep(search, u"Finding defined terms in document", u"Please wait: Finding defined terms in document");

  if (codes.open == kOpenCurlyQuote || codes.close == kCloseCurlyQuote) {
    search.application->Options()->SetAutoFormatAsYouTypeReplaceQuotes(false);
    search.termMarker.OptionChanged(search.document, nullptr);
  }
  if (codes.open == kOpenCurlyQuote) codes.open = kStraightQuote;
  if (codes.close == kCloseCurlyQuote) codes.close = kStraightQuote;
  const std::u16string pattern = {CharFromAnsiCode(codes.open), u'*', CharFromAnsiCode(codes.close)};

  const FoundTerms terms = ScanStory(search, story, pattern, bold);
  ShowStep(search, u"Restoring user options", u"Please wait:  restoring user options");
  found = Merge(std::move(found), terms);
  ShowStep(search, u"Sorting", u"Please wait:  sorting");
  EndProgress(search);
  return found;
}
