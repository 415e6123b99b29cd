#include "engine/TermLists.h"
#include "engine/modKVX.h"
#include "platform/BookmarkNames.h"

#include "addin/clsProgForm.h"
#include "addin/modCommonErrorMsgs.h"
#include "platform/word/Application.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Range.h"
#include "platform/word/Selection.h"
#include "platform/word/Window.h"

#include <utility>

namespace {

/// Comments, text frames, headers and footers, which are never marked, begin here.
constexpr int kFirstStoryNotIndexed = word::wdCommentsStory;

std::u16string_view StoryLabel(int storyType) {
  switch (storyType) {
    case word::wdFootnotesStory:
      return u"footnotes";
    case word::wdEndnotesStory:
      return u"endnotes";
    default:
      return u"document";
  }
}

}  // namespace

bool modKVX::RunIndexing(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                         const std::vector<std::u16string>& chosen, IndexingDialog& dialog,
                         const IndexingOptions& options) {
  const bool done =
      TrapErrors(messages_, u"Error indexing document", [&] { Index(application, document, chosen, dialog, options); });
  if (!done) progress_.CloseProgress();
  return done;
}

void modKVX::Index(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                   const std::vector<std::u16string>& chosen, IndexingDialog& dialog, const IndexingOptions& options) {
  // From here on only "IndexBKStart" knows where the index goes.
  application->Selection()->HomeKey(word::wdStory);
  application->SetScreenUpdating(false);
  dialog.HideWhileIndexing();
  marker_.BeginIndexing(document);
  TermTable table = marker_.BuildTermTable(application, document, chosen, options.matchCase);

  const word::StoryRangesPtr stories = document->StoryRanges();
  for (int i = 1; i <= stories->Count(); ++i) {
    const word::RangePtr story = stories->Item(i);
    const int storyType = story->StoryType();
    if (storyType < kFirstStoryNotIndexed && story->StoryLength() >= 2) {
      table = IndexStory(document, story, std::move(table), storyType, options);
    }
  }

  const std::vector<std::u16string> unusedAndMissing = marker_.GetUnusedAndMissing(table);
  dialog.IndexInsertOrUpdate(application, document, false);
  if (dialog.IncludesNotUsedList()) dialog.NotUsedList(document, SortTermList(unusedAndMissing.at(0)));
  if (dialog.IncludesNotFoundList()) dialog.NotFoundList(application, document, SortTermList(unusedAndMissing.at(1)));

  if (document->Bookmarks()->Exists(kIndexBookmark)) {
    const word::SelectionPtr selection = application->Selection();
    selection->GoTo({.What = word::wdGoToBookmark, .Name = std::u16string(kIndexBookmark)});
    selection->Collapse(word::wdCollapseStart);
  }
  marker_.EndIndexing(document);
  document->UndoClear();
  application->ScreenRefresh();
  application->SetScreenUpdating(true);
}

TermTable modKVX::IndexStory(const word::DocumentPtr& document, const word::RangePtr& story, TermTable table,
                             int storyType, const IndexingOptions& options) {
  document->ActiveWindow()->View()->SetShowHiddenText(false);
  const std::u16string message = std::u16string(u"Indexing ") + std::u16string(StoryLabel(storyType));
  progress_.ShowProgress(0);
  progress_.UpdateProgress(message, u"", u"", 0, 0, u"Please wait");

  const int upperBound = static_cast<int>(table.size()) - 1;
  for (int i = 0; i <= upperBound; ++i) {
    TermRow& row = table[static_cast<std::size_t>(i)];
    progress_.UpdateProgress(message + u":  " + row.term, u"", u"", i, upperBound, u"");
    row.count = marker_.MarkTermInStory(document, story, row.term, row.count, story->StoryType(), options.matchCase,
                                        options.indexCaps, options.indexWhat, u"");
    if (!options.indexCaps) continue;
    const std::u16string capitals = characters_.ToUpper(row.term);
    if (capitals == row.term) continue;
    row.count = marker_.MarkTermInStory(document, story, capitals, row.count, story->StoryType(), true,
                                        options.indexCaps, options.indexWhat, row.term);
  }
  progress_.CloseProgress();
  return table;
}
