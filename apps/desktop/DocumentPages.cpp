#include "apps/desktop/DocumentPages.h"

#include <algorithm>

#include "hosts/docx/layout/DocumentLayout.h"
#include "hosts/docx/pages/Paginator.h"
#include "marker/Entries.h"
#include "marker/StoryText.h"
#include "platform/BookmarkNames.h"
#include "platform/word/Application.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Find.h"
#include "platform/word/Range.h"

namespace {

using docx::layout::Paragraph;
using docx::layout::Piece;

word::Position PositionAt(const Paragraph& paragraph, std::size_t unit) {
  for (const Piece& piece : paragraph.pieces) {
    if (unit >= piece.start + piece.length) continue;
    const bool further = !piece.solid && unit > piece.start;
    return piece.position + (further ? static_cast<word::Position>(unit - piece.start) : 0);
  }
  return paragraph.end;
}

/// A range's text as another program takes it: paragraphs in lines, a tab behind a cell, without the characters that
/// stand for something else.
std::u16string Plain(std::u16string_view text) {
  constexpr std::u16string_view kCellEnd = u"\r\a";
  std::u16string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.substr(i).starts_with(kCellEnd)) {
      plain += u'\t';
      ++i;
      continue;
    }
    switch (const char16_t c = text[i]) {
      case u'\r':
      case u'\v':
      case u'\f':
      case u'\x0E':
        plain += u'\n';
        break;
      case u'\x1E':
        plain += u'\u2011';
        break;
      case u'\x1F':
        plain += u'\u00AD';
        break;
      default:
        if (c >= u' ' || c == u'\t') plain += c;
    }
  }
  return plain;
}

/// Where table rows end between two positions.
std::vector<word::Position> RowEnds(const docx::Story& story, word::Position start, word::Position end) {
  std::vector<word::Position> ends;
  const docx::AtomSequence& atoms = story.Atoms();
  for (auto place = atoms.At(start); !atoms.IsEnd(place) && place.start < end; place = atoms.Next(place)) {
    if (atoms.Get(place).kind == docx::AtomKind::kRowMark && place.start >= start) ends.push_back(place.start);
  }
  return ends;
}

}  // namespace

DocumentPages::DocumentPages(docx::WordProcessor& processor) : processor_(processor) {
  docx::OpenDocument& document = *processor_.Document();
  layout_ = document.Pages().Layout();
  if (layout_ == nullptr) layout_ = std::make_shared<docx::layout::DocumentLayout>(document.Parts());
  ReadIndex();
}

DocumentPages::~DocumentPages() = default;

void DocumentPages::ReadIndex() {
  const word::DocumentPtr document = processor_.Application()->ActiveDocument();
  if (!document->Bookmarks()->Exists(kIndexBookmark)) return;
  const word::RangePtr index = document->Bookmarks()->Item(kIndexBookmark)->Range();
  indexStart_ = index->Start();
  indexEnd_ = index->End();
  const word::StoryRangesPtr stories = document->StoryRanges();
  for (int i = 1; i <= stories->Count(); ++i) {
    const word::RangePtr story = stories->Item(i);
    if (story->StoryType() > word::wdEndnotesStory) continue;
    const marker::StoryText text(document, story, marker::StoryText::Hidden::kKept);
    for (const marker::OurEntry& entry : text.Entries()) {
      // An entry stands right behind its occurrence, which is as long as it reads.
      const int type = story->StoryType();
      const auto length = static_cast<word::Position>(entry.text.size());
      const word::Position start = std::max<word::Position>(0, entry.begin - length);
      marked_.push_back({entry.text, {{type, start}, entry.begin}, processor_.PageOf(type, entry.begin)});
    }
  }
}

int DocumentPages::PageCount() const { return layout_->PageCount(); }

std::u16string DocumentPages::LabelOf(int page) const { return processor_.PageLabel(page); }

std::string DocumentPages::PagesFrom() const {
  const std::string from = processor_.PagesFrom();
  return from.starts_with("layout") ? "the program's own " + from : from;
}

int DocumentPages::PageOf(const qt::Place& place) const { return layout_->PageShowing(place.story, place.position); }

qt::Paper DocumentPages::PaperOf(int page) const { return {layout_->PaperWidth(page), layout_->PaperHeight(page)}; }

page::Display DocumentPages::DrawingOf(int page) const { return layout_->Draw(page); }

std::string DocumentPages::PictureOf(const std::string& name) const {
  return processor_.Document()->Parts().Media(name);
}

bool DocumentPages::InIndex(const qt::Place& place) const {
  return place.story == word::wdMainTextStory && place.position >= indexStart_ && place.position < indexEnd_;
}

DocumentPages::Selection DocumentPages::Selected() const {
  const docx::SelectionState selection = processor_.Selection();
  return {{selection.story, selection.start}, selection.end};
}

void DocumentPages::Select(const Selection& selection) {
  processor_.Select({.story = selection.start.story, .start = selection.start.position, .end = selection.end});
}

std::optional<DocumentPages::Selection> DocumentPages::Find(std::u16string_view text, const qt::Place& from,
                                                            bool forward, bool matchCase) {
  const word::StoryRangesPtr stories = processor_.Application()->ActiveDocument()->StoryRanges();
  std::vector<word::RangePtr> order;  // those that a cursor comes to
  std::size_t first = 0;
  for (int i = 1; i <= stories->Count(); ++i) {
    const word::RangePtr story = stories->Item(i);
    if (story->StoryType() > word::wdEndnotesStory) continue;
    if (story->StoryType() == from.story) first = order.size();
    order.push_back(story);
  }
  // From the place on, through the other stories, and in the first one again from its other end.
  for (std::size_t step = 0; step <= order.size(); ++step) {
    const std::size_t further = forward ? step : order.size() - step % order.size();
    const word::RangePtr range = order[(first + further) % order.size()]->Duplicate();
    const word::Position end = range->End();
    if (step == 0) forward ? range->SetStart(from.position) : range->SetEnd(from.position);
    if (range->Start() == range->End()) continue;
    const word::FindPtr find = range->Find();
    find->SetText(text);
    find->SetForward(forward);
    find->SetMatchCase(matchCase);
    if (find->Execute() && range->End() <= end) return Selection{{range->StoryType(), range->Start()}, range->End()};
  }
  return {};
}

std::optional<DocumentPages::Selection> DocumentPages::LinkAt(const qt::Place& place) const {
  if (!InIndex(place)) return {};
  const Paragraph* entry = layout_->ParagraphAt(place.position);
  if (entry == nullptr) return {};
  const Paragraph& paragraph = *entry;
  const std::u16string& text = paragraph.text;
  const Marked* first = nullptr;
  for (const Marked& marked : marked_) {
    const bool begins = !marked.term.empty() && text.compare(0, marked.term.size(), marked.term) == 0;
    if (begins && (first == nullptr || marked.term.size() > first->term.size())) first = &marked;
  }
  if (first == nullptr) return {};
  std::size_t unit = 0;
  while (unit < text.size() && PositionAt(paragraph, unit) < place.position) ++unit;
  if (unit <= first->term.size()) return first->place;
  // The page number around the place.
  const auto inNumber = [&](std::size_t at) {
    return at < text.size() && text[at] != u',' && text[at] != u' ' && text[at] != u'\t' && text[at] != u':';
  };
  std::size_t begin = unit;
  while (begin > first->term.size() && inNumber(begin - 1)) --begin;
  std::size_t end = begin;
  while (inNumber(end)) ++end;
  const std::u16string label = text.substr(begin, end - begin);
  for (const Marked& marked : marked_) {
    if (marked.term == first->term && LabelOf(marked.page) == label) return marked.place;
  }
  return {};
}

std::u16string DocumentPages::CopyText(const Selection& selection) const {
  const int type = selection.start.story;
  const auto& kept = processor_.Document()->Parts().Stories(type);
  const word::StoryRangesPtr stories = processor_.Application()->ActiveDocument()->StoryRanges();
  for (int i = 1; i <= stories->Count() && !kept.empty(); ++i) {
    const word::RangePtr range = stories->Item(i);
    if (range->StoryType() != type) continue;
    std::u16string text;
    word::Position start = selection.start.position;
    const auto add = [&](word::Position end) {
      range->SetRange(start, end);
      text += Plain(range->Text());
      start = end + 1;
    };
    for (const word::Position row : RowEnds(*kept.front(), start, selection.end)) {
      add(row);
      if (text.ends_with(u'\t')) text.pop_back();
      text += u'\n';
    }
    add(selection.end);
    return text;
  }
  return {};
}
