#include "hosts/docx/layout/LineDrawer.h"

#include <unicode/ubidi.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <memory>

#include "hosts/docx/layout/Colors.h"
#include "hosts/docx/layout/LineBreaks.h"
#include "hosts/docx/layout/Symbols.h"

namespace docx::layout {

namespace {

constexpr double kPerPoint = 20;
constexpr double kNarrowest = 20;  // as lines are made
constexpr double kSmallCapsSize = 0.8;
constexpr double kRuleHeight = 0.25;  // of the font's size, over the base line
constexpr double kRuleWidth = 0.5;    // points

bool IsSmallCapital(char16_t c, const TextStyle& style) {
  return style.smallCaps && !style.caps && u_toupper(c) != static_cast<UChar32>(c);
}

bool RunsBackwards(char16_t c) {
  const UCharDirection direction = u_charDirection(c);
  return direction == U_RIGHT_TO_LEFT || direction == U_RIGHT_TO_LEFT_ARABIC;
}

bool IsBreak(PieceKind kind) {
  return kind == PieceKind::kLineBreak || kind == PieceKind::kPageBreak || kind == PieceKind::kColumnBreak;
}

}  // namespace

void LineDrawer::Measure(const Paragraph& paragraph) {
  if (paragraph_ == &paragraph) return;
  paragraph_ = &paragraph;
  lines_.Measure(paragraph);
  const std::size_t size = paragraph.text.size();
  widths_.resize(size);
  lefts_.assign(size, 0);
  backwards_.assign(size, 0);
  for (std::size_t i = 0; i < size; ++i) widths_[i] = lines_.UnitWidth(i);
  // The letters of a kerned word have shared its width out equally: here each gets what is its own.
  for (const Piece& piece : paragraph.pieces) {
    if (piece.kind != PieceKind::kText || piece.style == nullptr || !piece.style->kerned) continue;
    const std::size_t end = piece.start + piece.length;
    for (std::size_t i = piece.start; i < end;) {
      std::size_t to = i;
      double whole = 0;
      double own = 0;
      const Script script = lines_.ScriptAt(i);
      for (; to < end && paragraph.text[to] != u' ' && lines_.ScriptAt(to) == script; ++to) {
        whole += widths_[to];
        own += lines_.WidthOf(std::u16string_view(paragraph.text).substr(to, 1), *piece.style);
      }
      if (script != Script::kComplex && own > 0) {
        for (std::size_t u = i; u < to; ++u) {
          widths_[u] = lines_.WidthOf(std::u16string_view(paragraph.text).substr(u, 1), *piece.style) * whole / own;
        }
      }
      i = std::max(to, i + 1);
    }
  }
}

Position LineDrawer::PositionAt(std::size_t unit) const {
  if (unit >= paragraph_->text.size()) return paragraph_->end;
  const Piece& piece = paragraph_->pieces[lines_.PieceAt(unit)];
  return piece.position + (piece.solid ? 0 : static_cast<Position>(unit - piece.start));
}

std::size_t LineDrawer::VisibleEnd(std::size_t from, std::size_t to) const {
  while (to > from &&
         (IsHangingBlank(paragraph_->text[to - 1]) || IsBreak(paragraph_->pieces[lines_.PieceAt(to - 1)].kind))) {
    --to;
  }
  return to;
}

void LineDrawer::FindSegments(const ShownLine& shown, double start, const LineReach& reach) {
  const Paragraph& paragraph = *paragraph_;
  segments_.clear();
  double x = start;
  TabStop stop;
  double tabEnd = start;
  for (std::size_t i = shown.from; i <= shown.to;) {
    Segment segment;
    segment.from = i;
    const auto isTab = [&](std::size_t at) { return paragraph.pieces[lines_.PieceAt(at)].kind == PieceKind::kTab; };
    while (i < shown.to && !isTab(i)) ++i;
    segment.to = i;
    segment.tab = i < shown.to;
    const std::size_t end = segment.tab ? segment.to : VisibleEnd(segment.from, segment.to);
    double before = 0;  // what stands before a decimal point
    bool point = false;
    for (std::size_t u = segment.from; u < segment.to; ++u) {
      if (u < end) segment.width += widths_[u];
      point = point || paragraph.text[u] == settings_.decimalPoint;
      if (!point && u < end) before += widths_[u];
    }
    const double moves = stop.kind == TabKind::kRight     ? segment.width
                         : stop.kind == TabKind::kCenter  ? segment.width / 2
                         : stop.kind == TabKind::kDecimal ? before
                                                          : 0;
    segment.x = std::max(x, tabEnd - moves);
    if (!segments_.empty()) segments_.back().stop = segment.x;
    x = segment.x + segment.width;
    if (segment.tab) {
      tabEnd = lines_.NextTab(paragraph, x, reach, shown.from == 0, stop);
      segment.leader = stop.leader;
      ++i;
    }
    segments_.push_back(segment);
    if (!segment.tab) break;
  }
}

double LineDrawer::SpreadOf(const ShownLine& shown, double room) const {
  const Paragraph& paragraph = *paragraph_;
  const bool ended = shown.to > shown.from && IsBreak(paragraph.pieces[lines_.PieceAt(shown.to - 1)].kind);
  const bool byLine =
      ended && settings_.breaksJustify && paragraph.pieces[lines_.PieceAt(shown.to - 1)].kind == PieceKind::kLineBreak;
  // Whatever the line is, it was made with blanks that give way.
  if (room >= 0 && (ended ? !byLine : shown.to >= paragraph.text.size())) return 0;
  const Segment& last = segments_.back();
  const std::size_t end = VisibleEnd(last.from, last.to);
  const auto text = std::u16string_view(paragraph.text).substr(last.from, end - last.from);
  const auto blanks = std::count(text.begin(), text.end(), u' ');
  return blanks > 0 ? room / static_cast<double>(blanks) : 0;
}

void LineDrawer::PlaceInOrder(std::size_t from, std::size_t to, double x, bool backwards) {
  for (std::size_t i = 0; i < to - from; ++i) {
    const std::size_t unit = backwards ? to - 1 - i : from + i;
    lefts_[unit] = x;
    backwards_[unit] = backwards ? 1 : 0;
    x += widths_[unit];
  }
}

void LineDrawer::Place(const Paragraph& paragraph, double spread) {
  const bool base = *paragraph.look.format.rightToLeft;
  for (Segment& segment : segments_) {
    if (spread != 0 && !segment.tab) {
      const std::size_t end = VisibleEnd(segment.from, segment.to);
      for (std::size_t i = segment.from; i < end; ++i) {
        if (paragraph.text[i] != u' ') continue;
        widths_[i] += spread;
        segment.width += spread;
      }
    }
    const auto first = paragraph.text.begin() + static_cast<std::ptrdiff_t>(segment.from);
    const auto last = paragraph.text.begin() + static_cast<std::ptrdiff_t>(segment.to);
    if (!base && std::none_of(first, last, RunsBackwards)) {
      PlaceInOrder(segment.from, segment.to, segment.x, false);
      continue;
    }
    const std::unique_ptr<UBiDi, decltype(&ubidi_close)> order(ubidi_open(), &ubidi_close);
    UErrorCode error = U_ZERO_ERROR;
    const auto length = static_cast<std::int32_t>(segment.to - segment.from);
    ubidi_setPara(order.get(), paragraph.text.data() + segment.from, length, base ? 1 : 0, nullptr, &error);
    const std::int32_t runs = ubidi_countRuns(order.get(), &error);
    double x = segment.x;
    for (std::int32_t run = 0; run < runs && U_SUCCESS(error); ++run) {
      std::int32_t start = 0;
      std::int32_t count = 0;
      const bool backwards = ubidi_getVisualRun(order.get(), run, &start, &count) == UBIDI_RTL;
      const std::size_t from = segment.from + static_cast<std::size_t>(start);
      PlaceInOrder(from, from + static_cast<std::size_t>(count), x, backwards);
      for (std::size_t i = from; i < from + static_cast<std::size_t>(count); ++i) x += widths_[i];
    }
  }
}

/// Brings what was laid from the left on to where it stands when lines begin on the right.
void LineDrawer::Mirror(double left, double right) {
  for (Segment& segment : segments_) {
    double all = 0;
    for (std::size_t i = segment.from; i < segment.to; ++i) all += widths_[i];
    const double x = left + right - segment.x - all;
    for (std::size_t i = segment.from; i < segment.to; ++i) lefts_[i] += x - segment.x;
    segment.stop = left + right - segment.stop;
    segment.x = x;
    segment.width = all;
  }
}

void LineDrawer::Draw(const ShownLine& shown, const Spot& spot) {
  if (shown.paragraph == nullptr) return;
  const Paragraph& paragraph = *shown.paragraph;
  Measure(paragraph);
  const ParagraphFormat& format = paragraph.look.format;
  const double left = *format.left;
  const double right = std::max<double>(shown.width - *format.right, left + kNarrowest);
  const bool first = shown.from == 0;
  const LineReach reach{right, shown.width};
  const double start = first ? lines_.LabelEnd(paragraph, reach) : left;
  const bool hyphenated = shown.to > shown.from && shown.to < paragraph.text.size() &&
                          paragraph.pieces[lines_.PieceAt(shown.to - 1)].kind == PieceKind::kSoftHyphen;
  if (hyphenated) widths_[shown.to - 1] = lines_.WidthOf(u"-", *paragraph.pieces[lines_.PieceAt(shown.to - 1)].style);
  FindSegments(shown, start, reach);
  const Segment& last = segments_.back();
  const double room = right - last.x - last.width;
  double shift = 0;
  double spread = 0;
  switch (*format.alignment) {
    case Alignment::kLeft:
      break;
    case Alignment::kRight:
      shift = std::max(0.0, room);
      break;
    case Alignment::kCenter:
      shift = std::max(0.0, room / 2);
      break;
    case Alignment::kBoth:
      spread = SpreadOf(shown, room);
      break;
  }
  for (Segment& segment : segments_) {
    segment.x += shift;
    segment.stop += shift;
  }
  Place(paragraph, spread);
  if (*format.rightToLeft) Mirror(left, right);

  page::Line line;
  line.story = spot.story;
  const bool broken = shown.to > shown.from && IsBreak(paragraph.pieces[lines_.PieceAt(shown.to - 1)].kind);
  line.endsParagraph = shown.to >= paragraph.text.size() && !broken;
  line.start = first ? paragraph.start : PositionAt(shown.from);
  line.end = line.endsParagraph ? paragraph.end : PositionAt(shown.to);
  const double indent = first ? std::min(start, left) : left;
  line.area = {(spot.left + indent) / kPerPoint, spot.top / kPerPoint, (right - indent) / kPerPoint,
               shown.height / kPerPoint};
  line.baseline = (spot.top + shown.baseline) / kPerPoint;
  if (first && paragraph.labelStyle != nullptr && !paragraph.label.empty()) {
    Spot labelSpot = spot;
    labelSpot.left += shift;
    AddLabel(paragraph, line.baseline, labelSpot, line);
  }
  AddRuns(shown, spot, line);
  for (const TabStop& stop : format.tabs) {
    if (stop.kind != TabKind::kBar) continue;
    const double x = (spot.left + stop.position) / kPerPoint;
    into_.rules.push_back({x, line.area.y, x, line.area.Bottom(), kRuleWidth});
  }
  if (line.runs.empty()) {
    // Where a cursor stands in a line without characters.
    line.area.x = (spot.left + segments_.front().x) / kPerPoint;
  }
  into_.lines.push_back(std::move(line));
  if (spread != 0 || hyphenated) paragraph_ = nullptr;  // its widths are this line's now
}

std::uint32_t LineDrawer::FaceOf(const TextStyle& style, Script script, double size) {
  const Font& font = style.FontFor(script);
  const Font::Names& names = font.Name();
  page::Face face{names.family, size / kPerPoint, font.WidthFactor() * style.scale, names.bold, names.italic};
  const auto known = std::find(into_.faces.begin(), into_.faces.end(), face);
  const auto index = static_cast<std::uint32_t>(known - into_.faces.begin());
  if (known == into_.faces.end()) into_.faces.push_back(std::move(face));
  return index;
}

page::Run LineDrawer::Dress(const TextStyle& style, Script script, double size, const page::Line& line,
                            const Spot& spot) {
  page::Run run;
  run.face = FaceOf(style, script, size);
  run.baseline = line.baseline - (style.raise + style.lift) / kPerPoint;
  run.background = style.background;
  const page::Color ground = style.background == page::kNoColor ? spot.ground : style.background;
  constexpr page::Color kWhite = 0xffffff;
  run.color = style.color != page::kNoColor ? style.color : IsDark(ground) ? kWhite : page::kBlack;
  run.underline = style.underline;
  run.strike = style.strike;
  run.shaped = script == Script::kComplex;
  return run;
}

void LineDrawer::AddLabel(const Paragraph& paragraph, double baseline, const Spot& spot, page::Line& line) {
  const TextStyle& style = *paragraph.labelStyle;
  const ParagraphFormat& format = paragraph.look.format;
  const Script script = ScriptOf(paragraph.label.front(), style);
  page::Run run = Dress(style, script, style.SizeFor(script), line, spot);
  run.places = false;
  run.baseline = baseline - style.raise / kPerPoint;
  run.text = ShownSymbols(paragraph.label, style.FontFor(script).Name().wanted);
  if (style.caps) {
    for (char16_t& c : run.text) c = static_cast<char16_t>(u_toupper(c));
  }
  const double width = lines_.WidthOf(paragraph.label, style);
  double x = spot.left + *format.left + *format.firstLine;
  if (paragraph.labelAlignment == Alignment::kRight) x -= width;
  if (paragraph.labelAlignment == Alignment::kCenter) x -= width / 2;
  if (*format.rightToLeft) x = 2 * spot.left + *format.left + line.area.Right() * kPerPoint - spot.left - x - width;
  for (std::size_t i = 0; i < run.text.size(); ++i) {
    run.edges.push_back(static_cast<float>(x / kPerPoint));
    x += lines_.WidthOf(std::u16string_view(paragraph.label).substr(i, 1), style);
  }
  run.edges.push_back(static_cast<float>(x / kPerPoint));
  line.runs.push_back(std::move(run));
}

void LineDrawer::AddRuns(const ShownLine& shown, const Spot& spot, page::Line& line) {
  const Paragraph& paragraph = *paragraph_;
  for (const Segment& segment : segments_) {
    for (std::size_t from = segment.from; from < segment.to;) {
      const std::uint32_t index = lines_.PieceAt(from);
      const Piece& piece = paragraph.pieces[index];
      const Script script = lines_.ScriptAt(from);
      const bool small = IsSmallCapital(paragraph.text[from], *piece.style);
      std::size_t to = from + 1;
      while (to < segment.to && lines_.PieceAt(to) == index && lines_.ScriptAt(to) == script &&
             backwards_[to] == backwards_[from] && IsSmallCapital(paragraph.text[to], *piece.style) == small) {
        ++to;
      }
      switch (piece.kind) {
        case PieceKind::kText:
        case PieceKind::kNote:
        case PieceKind::kObject:
        case PieceKind::kSoftHyphen:
          AddRun(piece, from, to, spot, line);
          break;
        case PieceKind::kRule:
          AddRule(piece, from, spot, line);
          break;
        default:
          break;
      }
      from = to;
    }
    if (segment.tab && segment.to < shown.to) AddTab(segment, paragraph.pieces[lines_.PieceAt(segment.to)], spot, line);
  }
}

void LineDrawer::AddTab(const Segment& segment, const Piece& piece, const Spot& spot, page::Line& line) {
  page::Run run = Dress(*piece.style, Script::kAscii, piece.style->size, line, spot);
  run.position = piece.position;
  run.text = u"\t";
  run.leader = segment.leader;
  const bool backwards = *paragraph_->look.format.rightToLeft;
  const double begin = backwards ? segment.x : segment.x + segment.width;
  run.rightToLeft = backwards;
  run.edges = {static_cast<float>((spot.left + begin) / kPerPoint),
               static_cast<float>((spot.left + segment.stop) / kPerPoint)};
  line.runs.push_back(std::move(run));
}

void LineDrawer::AddRule(const Piece& piece, std::size_t unit, const Spot& spot, const page::Line& line) {
  page::Rule rule;
  rule.x = (spot.left + lefts_[unit]) / kPerPoint;
  rule.toX = std::min(rule.x + piece.width / kPerPoint, line.area.Right());
  rule.y = rule.toY = line.baseline - piece.style->size * kRuleHeight / kPerPoint;
  rule.width = kRuleWidth;
  into_.rules.push_back(rule);
}

void LineDrawer::AddRun(const Piece& piece, std::size_t from, std::size_t to, const Spot& spot, page::Line& line) {
  const Paragraph& paragraph = *paragraph_;
  const TextStyle& style = *piece.style;
  const Script script = lines_.ScriptAt(from);
  const double size = style.SizeFor(script) * (IsSmallCapital(paragraph.text[from], style) ? kSmallCapsSize : 1);
  page::Run run = Dress(style, script, size, line, spot);
  run.position = PositionAt(from);
  run.solid = piece.solid;
  run.text = ShownSymbols(paragraph.text.substr(from, to - from), style.FontFor(script).Name().wanted);
  for (char16_t& c : run.text) {
    if (style.caps || style.smallCaps) c = static_cast<char16_t>(u_toupper(c));
  }
  run.rightToLeft = backwards_[from] != 0;
  const auto edge = [&](double x) { run.edges.push_back(static_cast<float>((spot.left + x) / kPerPoint)); };
  for (std::size_t i = from; i < to; ++i) edge(run.rightToLeft ? lefts_[i] + widths_[i] : lefts_[i]);
  edge(run.rightToLeft ? lefts_[to - 1] : lefts_[to - 1] + widths_[to - 1]);
  if (piece.kind == PieceKind::kSoftHyphen) {
    // It shows where its line ends.
    const bool shows = segments_.back().to == to;
    run.text = shows ? u"-" : u"\u00AD";
  }
  if (piece.kind == PieceKind::kObject) {
    page::Picture picture;
    picture.area = {run.edges.front(), line.baseline - piece.height / kPerPoint, piece.width / kPerPoint,
                    piece.height / kPerPoint};
    if (piece.picture >= 0) {
      const Paragraph::Picture& shown = paragraph.pictures[static_cast<std::size_t>(piece.picture)];
      picture.name = shown.name;
      picture.instead = shown.instead;
    }
    into_.pictures.push_back(std::move(picture));
  }
  line.runs.push_back(std::move(run));
}

}  // namespace docx::layout
