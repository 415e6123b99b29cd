#include "engine/TermLists.h"

#include "addin/modCommonErrorMsgs.h"
#include "discovery/modQuickSort.h"
#include "engine/modKVX.h"
#include "platform/BookmarkNames.h"
#include "platform/word/Application.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Constants.h"
#include "platform/word/Document.h"
#include "platform/word/Format.h"
#include "platform/word/Range.h"
#include "platform/word/Selection.h"
#include "platform/word/Window.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

namespace {

constexpr std::u16string_view kLineEnd = u"\r\n";

/// What a list is called, and where it goes.
struct TermList {
  std::u16string_view bookmark;
  std::u16string_view anchor;
  std::u16string_view heading;
  /// Stands on the heading's line and ends it.
  std::u16string_view note;
  /// The selection is to stand on it.
  bool selected;
};

constexpr TermList kNotUsedList{
    .bookmark = kNotUsedListBookmark,
    .anchor = kIndexBookmark,
    .heading = u"DEFINED BUT NOT USED / USED ONLY ONCE",
    .note =
        u" (see Index above for page number)"
        u"\r\n",
    .selected = false,
};

constexpr TermList kNotFoundList{
    .bookmark = kNotFoundListBookmark,
    .anchor = kNotUsedListBookmark,
    .heading = u"NOT FOUND",
    .note = kLineEnd,
    .selected = true,
};

/// A list as far as it is written.
struct WrittenList {
  /// What was written last; nothing was when there is none.
  word::RangePtr range;
  /// Where the paragraph mark before the list stands.
  word::Position start{0};
  /// Of the paragraph that is to stand behind the list, and in which it is written.
  std::optional<int> alignmentBehind;
};

void BeginParagraph(const word::DocumentPtr& document, std::u16string_view anchor, const word::SelectionPtr& selection,
                    WrittenList& written) {
  const word::BookmarksPtr bookmarks = document->Bookmarks();
  word::RangePtr range;
  if (bookmarks->Exists(anchor)) {
    range = bookmarks->Item(anchor)->Range();
    written.start = range->End();
    range->SetStart(written.start);
  } else {
    range = selection->Range();
    range->Collapse(word::wdCollapseEnd);
    written.start = range->Start();
  }
  range->InsertParagraphBefore();
  written.range = range;
  range->Collapse(word::wdCollapseEnd);
}

void Align(const word::RangePtr& range, int alignment) { range->ParagraphFormat()->SetAlignment(alignment); }

void AlignBehind(const WrittenList& written) {
  const word::RangePtr behind = written.range->Duplicate();
  behind->Collapse(word::wdCollapseEnd);
  Align(behind, *written.alignmentBehind);
}

void Write(const word::DocumentPtr& document, const word::SelectionPtr& selection, const TermList& list,
           std::u16string_view terms, WrittenList& written) {
  BeginParagraph(document, list.anchor, selection, written);
  const word::RangePtr& range = written.range;
  written.alignmentBehind = range->ParagraphFormat()->Alignment();

  range->SetText(list.heading);
  Align(range, word::wdAlignParagraphLeft);
  range->Font()->SetBold(-1);
  range->Collapse(word::wdCollapseEnd);

  range->SetText(list.note);
  Align(range, word::wdAlignParagraphLeft);
  range->Font()->SetBold(0);
  range->Collapse(word::wdCollapseEnd);

  range->SetText(std::u16string(terms).append(kLineEnd).append(kLineEnd));
  Align(range, word::wdAlignParagraphLeft);
  AlignBehind(written);

  range->MoveStart(word::wdParagraph, -2);
  const word::ParagraphFormatPtr format = range->ParagraphFormat();
  format->SetAlignment(word::wdAlignParagraphLeft);
  format->SetSpaceBefore(0);
  format->SetSpaceAfter(0);
  range->SetHighlightColorIndex(word::wdNoHighlight);
  range->Font()->SetColor(word::wdColorAutomatic);
  if (list.selected) range->Select();
  document->Bookmarks()->Add(list.bookmark, range);
}

/// A list that could not be finished has its bookmark, too, so that it goes when the index does.
void CoverUnfinished(const word::DocumentPtr& document, const TermList& list, const WrittenList& written) {
  if (!written.range) return;
  IgnoreErrors([&] {
    document->Bookmarks()->Add(list.bookmark, document->Range(written.start, written.range->End()));
    if (written.alignmentBehind) AlignBehind(written);
  });
}

void WriteList(const word::DocumentPtr& document, const word::SelectionPtr& selection, const TermList& list,
               std::u16string_view terms) {
  WrittenList written;
  try {
    Write(document, selection, list, terms, written);
  } catch (...) {
    CoverUnfinished(document, list, written);
    throw;
  }
}

}  // namespace

std::u16string SortTermList(std::u16string_view terms) {
  std::vector<std::u16string> lines;
  for (std::size_t start = 0; start <= terms.size();) {
    const std::size_t end = std::min(terms.find(kLineEnd, start), terms.size());
    lines.emplace_back(terms.substr(start, end - start));
    start = end + kLineEnd.size();
  }
  QuickSort(lines, 0, static_cast<int>(lines.size()) - 1);
  std::u16string sorted;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i > 0) sorted.append(kLineEnd);
    sorted.append(lines[i]);
  }
  return sorted;
}

void WriteNotUsedList(const word::DocumentPtr& document, std::u16string_view terms) {
  WriteList(document, document->ActiveWindow()->Selection(), kNotUsedList, terms);
}

void WriteNotFoundList(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                       std::u16string_view terms) {
  WriteList(document, application->Selection(), kNotFoundList, terms);
}
