#include "engine/TermLists.h"

#include "discovery/modQuickSort.h"
#include "engine/modKVX.h"
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
};

constexpr TermList kNotUsedList{
    .bookmark = kNotUsedListBookmark,
    .anchor = kIndexBookmark,
    .heading = u"DEFINED BUT NOT USED / USED ONLY ONCE",
    .note =
        u" (see Index above for page number)"
        u"\r\n",
};

constexpr TermList kNotFoundList{
    .bookmark = kNotFoundListBookmark,
    .anchor = kNotUsedListBookmark,
    .heading = u"NOT FOUND",
    .note = kLineEnd,
};

/// An empty range at the start of the paragraph that the list is to be written in.
word::RangePtr BeginParagraph(const word::DocumentPtr& document, std::u16string_view anchor,
                              const word::SelectionPtr& selection) {
  const word::BookmarksPtr bookmarks = document->Bookmarks();
  word::RangePtr range;
  if (bookmarks->Exists(anchor)) {
    range = bookmarks->Item(anchor)->Range();
    range->SetStart(range->End());
  } else {
    range = selection->Range();
    range->Collapse(word::wdCollapseEnd);
  }
  range->InsertParagraphBefore();
  range->Collapse(word::wdCollapseEnd);
  return range;
}

void Align(const word::RangePtr& range, int alignment) { range->ParagraphFormat()->SetAlignment(alignment); }

/// @return the range of the list
word::RangePtr Write(const word::DocumentPtr& document, const word::SelectionPtr& selection, const TermList& list,
                     std::u16string_view terms) {
  word::RangePtr range = BeginParagraph(document, list.anchor, selection);
  // The list is written in the paragraph that is to stand behind it.
  const int alignmentBehind = range->ParagraphFormat()->Alignment();

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

  const word::RangePtr behind = range->Duplicate();
  behind->Collapse(word::wdCollapseEnd);
  Align(behind, alignmentBehind);

  range->MoveStart(word::wdParagraph, -2);
  const word::ParagraphFormatPtr format = range->ParagraphFormat();
  format->SetAlignment(word::wdAlignParagraphLeft);
  format->SetSpaceBefore(0);
  format->SetSpaceAfter(0);
  range->SetHighlightColorIndex(word::wdNoHighlight);
  range->Font()->SetColor(word::wdColorAutomatic);
  return range;
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
  const word::RangePtr list = Write(document, document->ActiveWindow()->Selection(), kNotUsedList, terms);
  document->Bookmarks()->Add(kNotUsedList.bookmark, list);
}

void WriteNotFoundList(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                       std::u16string_view terms) {
  const word::RangePtr list = Write(document, application->Selection(), kNotFoundList, terms);
  list->Select();
  document->Bookmarks()->Add(kNotFoundList.bookmark, list);
}
