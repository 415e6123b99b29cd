#include "hosts/qt/document/PageLayout.h"

#include <QFont>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <array>
#include <cmath>

#include "hosts/qt/Text.h"

namespace qt {

namespace {

/// Layouts are made so much larger than points, so that fonts of whole pixels have halves of points.
constexpr double kUnits = 4;
constexpr double kDefaultTab = 36;
constexpr double kCellGap = 6;
constexpr double kNoteGap = 8;

/// The red, green and blue of Word's highlight colours, by WdColorIndex.
constexpr std::array<QRgb, 17> kHighlights = {0,          0xff000000, 0xff0000ff, 0xff00ffff, 0xff00ff00, 0xffff00ff,
                                              0xffff0000, 0xffffff00, 0xffffffff, 0xff000080, 0xff008080, 0xff008000,
                                              0xff800080, 0xff800000, 0xff808000, 0xff808080, 0xffc0c0c0};

QFont FontOf(const TextLook& look) {
  QFont font(
      QStringList{QStringLiteral("Times New Roman"), QStringLiteral("Liberation Serif"), QStringLiteral("serif")});
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(look.size * kUnits * (look.raised ? 0.65 : 1)))));
  font.setBold(look.bold);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

QTextLayout::FormatRange FormatOf(const TextLook& look, int start, int length) {
  QTextLayout::FormatRange range;
  range.start = start;
  range.length = length;
  range.format.setFont(FontOf(look));
  if (look.raised) range.format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
  QColor color = Qt::black;
  if (look.color >= 0) color = QColor(look.color & 0xff, look.color >> 8 & 0xff, look.color >> 16 & 0xff);
  range.format.setForeground(color);
  if (look.highlight > 0 && look.highlight < static_cast<int>(kHighlights.size())) {
    range.format.setBackground(QColor::fromRgb(kHighlights[static_cast<std::size_t>(look.highlight)]));
  }
  return range;
}

Qt::Alignment AlignmentOf(Align align) {
  switch (align) {
    case Align::kCenter:
      return Qt::AlignHCenter;
    case Align::kRight:
      return Qt::AlignRight;
    case Align::kBoth:
      return Qt::AlignJustify;
    case Align::kLeft:
      break;
  }
  return Qt::AlignLeft;
}

}  // namespace

PageLayout::PageLayout(PageText text, const Paper& paper, std::u16string label)
    : text_(std::move(text)), paper_(paper), label_(std::move(label)) {
  double bottom = LayOut(text_.body, paper_.top);
  if (!text_.notes.empty()) {
    const std::size_t first = blocks_.size();
    separator_ = bottom + kNoteGap;
    double end = LayOut(text_.notes, separator_ + kNoteGap);
    // Notes stand at the foot of the page when there is room.
    const double room = paper_.height - paper_.bottom - end;
    if (room > 0) {
      separator_ += room;
      for (std::size_t i = first; i < blocks_.size(); ++i) blocks_[i].origin.ry() += room;
      end += room;
    }
    bottom = end;
  }
  height_ = std::max(paper_.height, bottom + paper_.bottom);
}

double PageLayout::LayOut(const std::vector<PageParagraph>& paragraphs, double top) {
  const double whole = paper_.width - paper_.left - paper_.right;
  double y = top;
  double rowBottom = top;
  double cellBottom = top;
  int row = -1;
  int cell = -1;
  for (const PageParagraph& paragraph : paragraphs) {
    if (paragraph.row < 0) {
      y = LayOutBlock(paragraph, paper_.left, whole, std::max(y, rowBottom));
      row = -1;
      rowBottom = y;
      continue;
    }
    if (paragraph.row != row) {
      row = paragraph.row;
      y = rowBottom;
      cell = -1;
    }
    if (paragraph.cell != cell) {
      cell = paragraph.cell;
      cellBottom = y;
    }
    const double width = whole / paragraph.cells;
    cellBottom = LayOutBlock(paragraph, paper_.left + width * paragraph.cell, width - kCellGap, cellBottom);
    rowBottom = std::max(rowBottom, cellBottom);
  }
  return std::max(y, rowBottom);
}

double PageLayout::LayOutBlock(const PageParagraph& paragraph, double left, double width, double top) {
  Block block{.paragraph = &paragraph};
  QString text;
  QList<QTextLayout::FormatRange> formats;
  TextLook last;
  for (const PageRun& run : paragraph.runs) {
    const int start = static_cast<int>(text.size());
    text += ToQt(run.text);
    formats << FormatOf(run.look, start, static_cast<int>(text.size()) - start);
    last = run.look;
  }
  const double indent = std::min(paragraph.left, width / 2);
  const double line = std::max(width - indent - paragraph.right, width / 4);
  block.layout = std::make_unique<QTextLayout>(text, FontOf(last));
  block.layout->setFormats(formats);
  QTextOption option;
  option.setAlignment(AlignmentOf(paragraph.align));
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  option.setTabStopDistance(kDefaultTab * kUnits);
  if (paragraph.rightTab) option.setTabs({QTextOption::Tab(line * kUnits - 1, QTextOption::RightTab)});
  block.layout->setTextOption(option);

  double first = paragraph.firstLine;
  if (!paragraph.label.empty()) {
    const QString label = ToQt(paragraph.label);
    block.label = std::make_unique<QTextLayout>(label, FontOf(last));
    block.label->beginLayout();
    QTextLine only = block.label->createLine();
    only.setNumColumns(static_cast<int>(label.size()));
    block.label->endLayout();
    block.label->setPosition({first * kUnits, 0});
    // The text goes on at the indent, or at the next stop when the number is too wide for that.
    const double end = first + only.naturalTextWidth() / kUnits + 2;
    first = end <= 0 ? 0 : std::ceil((indent + end) / kDefaultTab) * kDefaultTab - indent;
  }
  double y = 0;
  block.layout->beginLayout();
  for (bool isFirst = true;; isFirst = false) {
    QTextLine textLine = block.layout->createLine();
    if (!textLine.isValid()) break;
    const double offset = isFirst ? std::clamp(first, -indent, line / 2) : 0;
    textLine.setLineWidth((line - offset) * kUnits);
    textLine.setPosition({offset * kUnits, y});
    y += textLine.height() * std::max(paragraph.lineHeight, 0.8);
  }
  block.layout->endLayout();
  block.origin = {left + indent, top + paragraph.before};
  block.height = y / kUnits;
  block.width = line;
  const double bottom = block.origin.y() + block.height + paragraph.after;
  blocks_.push_back(std::move(block));
  return bottom;
}

word::Position PageLayout::StartOf(const PageParagraph& paragraph) {
  return paragraph.runs.empty() ? paragraph.end : paragraph.runs.front().position;
}

word::Position PageLayout::PositionOf(const PageParagraph& paragraph, int offset) {
  for (const PageRun& run : paragraph.runs) {
    const int length = static_cast<int>(run.text.size());
    if (offset < length) return run.position + offset;
    offset -= length;
  }
  return paragraph.end;
}

int PageLayout::OffsetOf(const PageParagraph& paragraph, word::Position position) {
  int offset = 0;
  for (const PageRun& run : paragraph.runs) {
    const int length = static_cast<int>(run.text.size());
    if (position < run.position + length) return offset + std::max(0, position - run.position);
    offset += length;
  }
  return offset;
}

void PageLayout::Draw(QPainter& painter, const QPalette& palette, const DocumentSource::Selection& selection) const {
  const QColor back = palette.color(QPalette::Active, QPalette::Highlight);
  const QColor front = palette.color(QPalette::Active, QPalette::HighlightedText);
  for (const Block& block : blocks_) {
    painter.save();
    painter.translate(block.origin);
    painter.scale(1 / kUnits, 1 / kUnits);
    painter.setPen(Qt::black);
    QList<QTextLayout::FormatRange> marked;
    if (block.paragraph->story == selection.start.story && selection.start.position < selection.end) {
      QTextLayout::FormatRange range;
      range.start = OffsetOf(*block.paragraph, selection.start.position);
      range.length = OffsetOf(*block.paragraph, selection.end) - range.start;
      range.format.setBackground(back);
      range.format.setForeground(front);
      const bool reaches = selection.end > StartOf(*block.paragraph) && selection.start.position < block.paragraph->end;
      if (range.length > 0 && reaches) marked << range;
    }
    if (block.label) block.label->draw(&painter, {0, 0});
    block.layout->draw(&painter, {0, 0}, marked);
    painter.restore();
  }
  painter.setPen(QPen(Qt::black, 0.5));
  if (separator_ > 0) {
    painter.drawLine(QPointF(paper_.left, separator_), QPointF(paper_.left + paper_.width / 4, separator_));
  }
  QFont font = FontOf({.size = 9});
  painter.save();
  painter.translate(0, height_ - paper_.bottom / 2);
  painter.scale(1 / kUnits, 1 / kUnits);
  painter.setFont(font);
  painter.drawText(QRectF(0, -20 * kUnits, paper_.width * kUnits, 40 * kUnits), Qt::AlignCenter, ToQt(label_));
  painter.restore();
}

const PageLayout::Block* PageLayout::BlockAt(QPointF point) const {
  const Block* best = nullptr;
  double least = 0;
  for (const Block& block : blocks_) {
    const double above = block.origin.y() - point.y();
    const double below = point.y() - block.origin.y() - block.height;
    const double beside = std::max(block.origin.x() - point.x(), point.x() - block.origin.x() - block.width);
    const double distance = std::max({above, below, 0.0}) * 4 + std::max(beside, 0.0);
    if (best != nullptr && distance >= least) continue;
    best = &block;
    least = distance;
  }
  return best;
}

std::optional<Place> PageLayout::PlaceAt(QPointF point) const {
  const Block* block = BlockAt(point);
  if (block == nullptr) return {};
  const QPointF inside = (point - block->origin) * kUnits;
  int index = 0;
  for (int i = 0; i < block->layout->lineCount(); ++i) {
    const QTextLine line = block->layout->lineAt(i);
    index = i;
    if (inside.y() < line.y() + line.height()) break;
  }
  if (block->layout->lineCount() == 0) return Place{block->paragraph->story, block->paragraph->end};
  const QTextLine line = block->layout->lineAt(index);
  return Place{block->paragraph->story, PositionOf(*block->paragraph, line.xToCursor(inside.x()))};
}

const PageLayout::Block* PageLayout::BlockOf(const Place& place) const {
  const Block* before = nullptr;
  for (const Block& block : blocks_) {
    if (block.paragraph->story != place.story) continue;
    if (place.position < block.paragraph->start) break;
    before = &block;
    if (place.position <= block.paragraph->end) break;
  }
  if (before != nullptr) return before;
  const auto first = std::find_if(blocks_.begin(), blocks_.end(),
                                  [&](const Block& block) { return block.paragraph->story == place.story; });
  return first == blocks_.end() ? nullptr : &*first;
}

std::optional<QRectF> PageLayout::CursorAt(const Place& place) const {
  const Block* block = BlockOf(place);
  if (block == nullptr || block->layout->lineCount() == 0) return {};
  const int offset = OffsetOf(*block->paragraph, place.position);
  const QTextLine line = block->layout->lineForTextPosition(offset);
  if (!line.isValid()) return {};
  const QPointF corner(line.cursorToX(offset), line.y());
  return QRectF(block->origin + corner / kUnits, QSizeF(1, line.height() / kUnits));
}

std::optional<Place> PageLayout::Step(const Place& place, bool forward, bool words) const {
  const Block* block = BlockOf(place);
  if (block == nullptr) return {};
  const auto mode = words ? QTextLayout::SkipWords : QTextLayout::SkipCharacters;
  const int offset = OffsetOf(*block->paragraph, place.position);
  const int next =
      forward ? block->layout->nextCursorPosition(offset, mode) : block->layout->previousCursorPosition(offset, mode);
  if (next != offset) return Place{place.story, PositionOf(*block->paragraph, next)};
  const auto index = block - blocks_.data() + (forward ? 1 : -1);
  if (index < 0 || index >= static_cast<std::ptrdiff_t>(blocks_.size())) return {};
  const PageParagraph& other = *blocks_[static_cast<std::size_t>(index)].paragraph;
  if (other.story != place.story) return {};
  return Place{other.story, forward ? StartOf(other) : other.end};
}

Place PageLayout::LineEdge(const Place& place, bool end) const {
  const Block* block = BlockOf(place);
  if (block == nullptr || block->layout->lineCount() == 0) return place;
  const QTextLine line = block->layout->lineForTextPosition(OffsetOf(*block->paragraph, place.position));
  if (!line.isValid()) return place;
  int offset = line.textStart();
  if (end) {
    offset += line.textLength();
    // The place behind the blank at a line's end is the next line's first.
    const bool last = line.lineNumber() + 1 == block->layout->lineCount();
    if (!last) offset = block->layout->previousCursorPosition(offset);
  }
  return {place.story, PositionOf(*block->paragraph, offset)};
}

std::optional<Place> PageLayout::First() const {
  if (blocks_.empty()) return {};
  return Place{blocks_.front().paragraph->story, StartOf(*blocks_.front().paragraph)};
}

std::optional<Place> PageLayout::Last() const {
  std::optional<Place> last;
  for (const Block& block : blocks_) {
    if (block.paragraph->story == blocks_.front().paragraph->story) {
      last = Place{block.paragraph->story, block.paragraph->end};
    }
  }
  return last;
}

}  // namespace qt
