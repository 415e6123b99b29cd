#include "discovery/QuoteHighlighting.h"

#include "addin/modCommonErrorMsgs.h"
#include "platform/AnsiText.h"
#include "platform/word/Application.h"
#include "platform/word/Document.h"
#include "platform/word/Find.h"
#include "platform/word/Options.h"
#include "platform/word/Range.h"
#include "platform/word/Selection.h"

namespace {

/// Selecting in a story is what brings it into view.
void BringIntoView(const word::ApplicationPtr& application, const word::RangePtr& story) {
  const word::RangePtr start = story->Duplicate();
  start->Collapse(word::wdCollapseStart);
  start->Select();
  application->Selection()->HomeKey(word::wdStory);
}

void HighlightCharacter(const word::RangePtr& story, char16_t quote) {
  const word::FindPtr find = story->Duplicate()->Find();
  find->ClearFormatting();
  find->SetMatchWildcards(false);
  find->SetText({&quote, 1});
  find->Replacement()->SetHighlight(-1);
  find->Execute({.Replace = word::wdReplaceAll});
}

void HighlightCode(const QuoteCheck& check, int code, const word::RangePtr& story) {
  const TermSearch& search = check.search;
  const word::OptionsPtr options = search.application->Options();
  const bool curly = code == kOpenCurlyQuote || code == kCloseCurlyQuote;
  const QuoteHighlighting next{story, CharFromAnsiCode(curly ? kStraightQuote : code)};
  if (curly) options->SetAutoFormatAsYouTypeReplaceQuotes(false);
  search.termMarker.OptionChanged(search.document, &next);
  BringIntoView(search.application, story);
  HighlightCharacter(story, next.quote);
  if (!curly) return;
  options->SetAutoFormatAsYouTypeReplaceQuotes(check.savedReplaceQuotes);
  search.termMarker.OptionChanged(search.document, nullptr);
}

}  // namespace

bool HighlightQuotes(const QuoteCheck& check, QuoteCodes codes, const word::RangePtr& story) {
  return TrapErrors(check.host.messages, u"Error highlighting quotes", [&] {
    HighlightCode(check, codes.open, story);
    HighlightCode(check, codes.close, story);
    check.search.document->UndoClear();
  });
}
