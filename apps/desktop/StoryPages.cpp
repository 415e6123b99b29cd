#include "apps/desktop/StoryPages.h"

#include <algorithm>
#include <cmath>

#include "hosts/docx/layout/BlockReader.h"
#include "hosts/docx/layout/DocumentLayout.h"
#include "hosts/docx/pages/PageTable.h"
#include "marker/Entries.h"
#include "marker/StoryText.h"
#include "platform/word/Application.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Find.h"
#include "platform/word/Range.h"

namespace {

using docx::layout::Paragraph;
using docx::layout::Piece;
using docx::layout::PieceKind;

constexpr double kTwips = 20;  ///< to a point
/// What styles are read as; other versions differ in spaces only.
constexpr int kTodaysWord = 15;
constexpr std::u16string_view kIndexName = u"DefinedTermsIndex";
constexpr char16_t kLineSeparator = 0x2028;
constexpr char16_t kPicture = 0x25a1;

qt::Align AlignOf(docx::layout::Alignment alignment) {
  switch (alignment) {
    case docx::layout::Alignment::kCenter:
      return qt::Align::kCenter;
    case docx::layout::Alignment::kRight:
      return qt::Align::kRight;
    case docx::layout::Alignment::kBoth:
      return qt::Align::kBoth;
    case docx::layout::Alignment::kLeft:
      break;
  }
  return qt::Align::kLeft;
}

/// A piece's text, one unit for each position where it has several.
std::u16string PieceText(const Paragraph& paragraph, const Piece& piece, std::size_t begin, std::size_t end) {
  switch (piece.kind) {
    case PieceKind::kTab:
      return u"\t";
    case PieceKind::kLineBreak:
      return std::u16string(1, kLineSeparator);
    case PieceKind::kPageBreak:
    case PieceKind::kColumnBreak:
    case PieceKind::kSoftHyphen:
      return {};
    case PieceKind::kObject:
      return std::u16string(1, kPicture);
    case PieceKind::kText:
    case PieceKind::kNote:
      break;
  }
  const std::size_t from = std::max<std::size_t>(begin, piece.start);
  const std::size_t to = std::min<std::size_t>(end, piece.start + piece.length);
  return from < to ? paragraph.text.substr(from, to - from) : std::u16string();
}

}  // namespace

struct StoryPages::Content {
  explicit Content(docx::DocumentParts& parts)
      : theme(parts.Related("/theme"), parts.Settings()),
        numbering(parts.Related("/numbering"), parts.Related("/styles"), fonts, theme),
        styles(parts.Related("/styles"), numbering, fonts, theme, kTodaysWord),
        formats(styles, numbering, fonts, theme) {}

  docx::layout::FontLibrary fonts;
  docx::layout::ThemeFonts theme;
  docx::layout::Numbering numbering;
  docx::layout::StyleSheet styles;
  docx::layout::Formats formats;
  docx::layout::NumberCounters counters;
  docx::layout::NoteNumbers numbers;
  std::vector<docx::layout::Block> body;
  std::vector<std::vector<docx::layout::Block>> notes;
};

StoryPages::StoryPages(docx::WordProcessor& processor)
    : processor_(processor), content_(std::make_unique<Content>(processor.Document()->Parts())) {
  pages_.resize(static_cast<std::size_t>(processor_.PageCount()));
  ReadMain();
  ReadFootnotes();
  ReadIndex();
}

StoryPages::~StoryPages() = default;

void StoryPages::ReadMain() {
  docx::DocumentParts& parts = processor_.Document()->Parts();
  const docx::XmlPart& part = parts.MainPart();
  const auto body = part.Child(part.Root(), docx::Tag::kBody);
  docx::layout::BlockReader reader(content_->formats, part, &parts.Main(), content_->counters, content_->numbers);
  content_->body = reader.Read(body);
  for (const docx::layout::Block& block : content_->body) {
    const Paragraph* paragraph = block.AsParagraph();
    if (paragraph != nullptr && paragraph->section)
      sections_.push_back(docx::layout::ReadSectionGeometry(part, paragraph->section));
  }
  sections_.push_back(docx::layout::ReadSectionGeometry(part, part.Child(body, docx::Tag::kSectPr)));
  Flatten(content_->body, -1, 0, 1, word::wdMainTextStory);
}

void StoryPages::ReadFootnotes() {
  docx::DocumentParts& parts = processor_.Document()->Parts();
  const auto& stories = parts.Stories(word::wdFootnotesStory);
  if (stories.empty()) return;
  const docx::Story& story = *stories.front();
  docx::layout::NoteNumbers none;
  docx::layout::BlockReader reader(content_->formats, story.Part(), &story, content_->counters, none);
  int number = 0;
  for (const docx::Note& note : docx::NotesOf(story)) {
    reader.SetNoteMark(docx::layout::FormatListNumber("decimal", ++number));
    content_->notes.push_back(reader.Read(note.element));
    Flatten(content_->notes.back(), -1, 0, 1, word::wdFootnotesStory);
  }
}

void StoryPages::Flatten(const std::vector<docx::layout::Block>& blocks, int row, int cell, int cells, int story) {
  std::vector<Entry>& entries = story == word::wdMainTextStory ? main_ : notes_;
  for (const docx::layout::Block& block : blocks) {
    if (const Paragraph* paragraph = block.AsParagraph()) {
      entries.push_back({paragraph, std::min(section_, sections_.size() - 1), row, cell, cells});
      Divide(entries.size() - 1, story);
      if (paragraph->section) ++section_;
    } else if (const docx::layout::Table* table = block.AsTable()) {
      for (const docx::layout::Row& inner : table->rows) {
        // A table within a cell goes on in the cell's own width.
        const bool nested = row >= 0;
        const int id = nested ? row : rows_++;
        const int count = nested ? cells : static_cast<int>(inner.cells.size());
        int number = 0;
        for (const docx::layout::Cell& one : inner.cells) {
          Flatten(one.blocks, id, nested ? cell : number, count, story);
          ++number;
        }
      }
    }
  }
}

word::Position StoryPages::PositionAt(const Paragraph& paragraph, std::size_t unit) {
  for (const Piece& piece : paragraph.pieces) {
    if (unit >= piece.start + piece.length) continue;
    const bool text = piece.kind == PieceKind::kText;
    return piece.position + (text && unit > piece.start ? static_cast<word::Position>(unit - piece.start) : 0);
  }
  return paragraph.end;
}

/// Gives each page its part of a paragraph.
void StoryPages::Divide(std::size_t entry, int story) {
  const Entry& what = story == word::wdMainTextStory ? main_[entry] : notes_[entry];
  const Paragraph& paragraph = *what.paragraph;
  const std::size_t length = paragraph.text.size();
  const auto pageAt = [&](std::size_t unit) {
    const int page = processor_.PageOf(story, PositionAt(paragraph, unit));
    return std::clamp(page, 1, static_cast<int>(pages_.size()));
  };
  std::size_t begin = 0;
  do {
    const int page = pageAt(begin);
    std::size_t end = length;
    if (length > 0 && pageAt(length - 1) != page) {
      std::size_t low = begin;
      std::size_t high = length - 1;
      while (high - low > 1) {
        const std::size_t middle = low + (high - low) / 2;
        (pageAt(middle) == page ? low : high) = middle;
      }
      end = high;
    }
    Page& holder = pages_[static_cast<std::size_t>(page - 1)];
    (story == word::wdMainTextStory ? holder.body : holder.notes).push_back({entry, begin, end});
    if (story == word::wdMainTextStory) holder.section = what.section;
    begin = end;
  } while (begin < length);
}

void StoryPages::ReadIndex() {
  const word::DocumentPtr document = processor_.Application()->ActiveDocument();
  if (!document->Bookmarks()->Exists(kIndexName)) return;
  const word::RangePtr index = document->Bookmarks()->Item(kIndexName)->Range();
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

int StoryPages::PageCount() const { return static_cast<int>(pages_.size()); }

std::u16string StoryPages::LabelOf(int page) const { return processor_.PageLabel(page); }

std::string StoryPages::PagesFrom() const { return processor_.PagesFrom(); }

int StoryPages::PageOf(const qt::Place& place) const { return processor_.PageOf(place.story, place.position); }

qt::PageText StoryPages::TextOf(int page) const {
  const Page& holder = pages_.at(static_cast<std::size_t>(page - 1));
  qt::PageText text;
  for (const Part& part : holder.body) text.body.push_back(Show(part, word::wdMainTextStory));
  for (const Part& part : holder.notes) text.notes.push_back(Show(part, word::wdFootnotesStory));
  return text;
}

qt::Paper StoryPages::PaperOf(int page) const {
  const docx::layout::SectionGeometry& section = sections_[pages_.at(static_cast<std::size_t>(page - 1)).section];
  return {.width = section.width / kTwips,
          .height = section.height / kTwips,
          .left = (section.left + section.gutter) / kTwips,
          .top = std::abs(section.top) / kTwips,
          .right = section.right / kTwips,
          .bottom = std::abs(section.bottom) / kTwips};
}

bool StoryPages::InIndex(const qt::Place& place) const {
  return place.story == word::wdMainTextStory && place.position >= indexStart_ && place.position < indexEnd_;
}

qt::TextLook StoryPages::LookOf(int story, word::Position position, const Piece& piece) const {
  docx::DocumentParts& parts = processor_.Document()->Parts();
  const docx::Story& text = story == word::wdMainTextStory ? parts.Main() : *parts.Stories(story).front();
  const docx::Formatting& formats = parts.Formats(text.Part());
  const auto run = text.RunAt(position);
  qt::TextLook look{.size = piece.style == nullptr ? formats.FontSize(run) : piece.style->size / kTwips,
                    .bold = formats.Bold(run) != 0,
                    .raised = piece.kind == PieceKind::kNote,
                    .color = formats.Color(run),
                    .highlight = formats.Highlight(run)};
  return look;
}

qt::PageParagraph StoryPages::Show(const Part& part, int story) const {
  const Entry& entry = story == word::wdMainTextStory ? main_[part.entry] : notes_[part.entry];
  const Paragraph& paragraph = *entry.paragraph;
  const docx::layout::ParagraphFormat& format = paragraph.look.format;
  const bool first = part.begin == 0;
  const bool last = part.end == paragraph.text.size();
  qt::PageParagraph shown{.story = story,
                          .start = first ? paragraph.start : PositionAt(paragraph, part.begin),
                          .end = last ? paragraph.end : PositionAt(paragraph, part.end),
                          .runs = {},
                          .label = first ? paragraph.label : std::u16string(),
                          .align = AlignOf(format.alignment.value_or(docx::layout::Alignment::kLeft)),
                          .left = format.left.value_or(0) / kTwips,
                          .right = format.right.value_or(0) / kTwips,
                          .firstLine = first ? format.firstLine.value_or(0) / kTwips : 0,
                          .before = first ? format.before.value_or(0) / kTwips : 0,
                          .after = last ? format.after.value_or(0) / kTwips : 0,
                          .lineHeight = 1,
                          .rightTab = InIndex({story, paragraph.start}),
                          .row = entry.row,
                          .cell = entry.cell,
                          .cells = entry.cells};
  if (format.line && format.lineRule.value_or(docx::layout::LineRule::kAuto) == docx::layout::LineRule::kAuto) {
    shown.lineHeight = *format.line / 240.0;
  }
  for (const Piece& piece : paragraph.pieces) {
    if (piece.start + std::max<std::uint32_t>(piece.length, 1) <= part.begin ||
        piece.start >= std::max<std::size_t>(part.end, 1)) {
      continue;
    }
    std::u16string text = PieceText(paragraph, piece, part.begin, part.end);
    if (text.empty()) continue;
    const word::Position position = PositionAt(paragraph, std::max<std::size_t>(piece.start, part.begin));
    shown.runs.push_back({position, std::move(text), LookOf(story, position, piece)});
  }
  return shown;
}

StoryPages::Selection StoryPages::Selected() const {
  const docx::SelectionState selection = processor_.Selection();
  return {{selection.story, selection.start}, selection.end};
}

void StoryPages::Select(const Selection& selection) {
  processor_.Select({.story = selection.start.story, .start = selection.start.position, .end = selection.end});
}

std::optional<StoryPages::Selection> StoryPages::Find(std::u16string_view text, const qt::Place& from, bool forward,
                                                      bool matchCase) {
  const word::StoryRangesPtr stories = processor_.Application()->ActiveDocument()->StoryRanges();
  for (int i = 1; i <= stories->Count(); ++i) {
    const word::RangePtr story = stories->Item(i);
    if (story->StoryType() != from.story) continue;
    const word::Position end = story->End();
    // From the place on, then, where that finds nothing, from the other end.
    for (const bool again : {false, true}) {
      const word::RangePtr range = story->Duplicate();
      if (!again) forward ? range->SetStart(from.position) : range->SetEnd(from.position);
      if (range->Start() == range->End() && !again) continue;
      const word::FindPtr find = range->Find();
      find->SetText(text);
      find->SetForward(forward);
      find->SetMatchCase(matchCase);
      if (find->Execute() && range->End() <= end) {
        return Selection{{from.story, range->Start()}, range->End()};
      }
    }
  }
  return {};
}

std::optional<StoryPages::Selection> StoryPages::LinkAt(const qt::Place& place) const {
  if (!InIndex(place)) return {};
  const auto entry = std::find_if(main_.begin(), main_.end(), [&](const Entry& one) {
    return place.position >= one.paragraph->start && place.position <= one.paragraph->end;
  });
  if (entry == main_.end()) return {};
  const Paragraph& paragraph = *entry->paragraph;
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

std::u16string StoryPages::CopyText(const Selection& selection) const {
  const word::StoryRangesPtr stories = processor_.Application()->ActiveDocument()->StoryRanges();
  for (int i = 1; i <= stories->Count(); ++i) {
    const word::RangePtr story = stories->Item(i);
    if (story->StoryType() != selection.start.story) continue;
    story->SetRange(selection.start.position, selection.end);
    std::u16string text = story->Text();
    std::replace(text.begin(), text.end(), word::kParagraphMark, u'\n');
    return text;
  }
  return {};
}
