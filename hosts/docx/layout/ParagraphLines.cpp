#include "hosts/docx/layout/ParagraphLines.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <cmath>
#include <iterator>

#include "hosts/docx/layout/LineBreaks.h"

namespace docx::layout {

namespace {

constexpr double kSlack = 0.5;  // twips that a line may be too long for reasons of arithmetic
// Of the width of a line's blanks: what Word takes from them at most, measured on files that it has laid out.
constexpr double kShrunk = 0.24;
constexpr double kSmallCapsSize = 0.8;
constexpr double kExactBaseline = 0.8;  // of a line of stated height
constexpr double kNarrowest = 20;       // twips: a column that is less still takes its text
/// The version of Word, as it numbers itself.
constexpr int kStopsAtMargin = 15;

bool IsComplexScript(char16_t c) {
  return (c >= 0x0590 && c < 0x0900) || (c >= 0x0900 && c < 0x1100) || (c >= 0x1780 && c < 0x1800) ||
         (c >= 0xFB1D && c < 0xFE00) || (c >= 0xFE70 && c < 0xFEFF);
}

bool IsEastAsian(char16_t c) {
  return (c >= 0x1100 && c < 0x1200) || (c >= 0x2E80 && c < 0xA4D0) || (c >= 0xAC00 && c < 0xD7B0) ||
         (c >= 0xF900 && c < 0xFB00) || (c >= 0xFE30 && c < 0xFE50) || (c >= 0xFF00 && c < 0xFFF0);
}

/// Gives two lines that stand side by side one height and base line. @param first all before it are level already
void LevelWithNext(std::vector<Line>& lines, std::size_t first) {
  Line& one = lines[first];
  Line& next = lines[first + 1];
  next.above = one.above;
  const double baseline = std::max(one.baseline, next.baseline);
  const double below = std::max(one.height - one.baseline, next.height - next.baseline);
  one.baseline = next.baseline = baseline;
  one.height = next.height = baseline + below;
}

}  // namespace

Script ScriptOf(char16_t c, const TextStyle& style) {
  if (c < 0x80) return style.complex ? Script::kComplex : Script::kAscii;
  if (IsComplexScript(c)) return Script::kComplex;
  if (IsEastAsian(c)) return Script::kEastAsia;
  // Signs that Latin and eastern fonts share follow the run's hint.
  if (style.eastAsiaHint && (c >= 0x2010 || c == 0xA7 || c == 0xB0 || c == 0xB1 || c == 0xD7 || c == 0xF7)) {
    return Script::kEastAsia;
  }
  return Script::kHighAnsi;
}

void LineMaker::Measure(const Paragraph& paragraph) {
  units_.assign(paragraph.text.size(), Unit{});
  scripts_.assign(paragraph.text.size(), Script::kAscii);
  for (std::uint32_t i = 0; i < paragraph.pieces.size(); ++i) {
    const Piece& piece = paragraph.pieces[i];
    for (std::size_t at = piece.start; at < piece.start + piece.length; ++at) units_[at].piece = i;
    switch (piece.kind) {
      case PieceKind::kText:
      case PieceKind::kNote:
        MeasureText(paragraph, piece);
        break;
      case PieceKind::kObject:
        units_[piece.start].width = piece.width;
        break;
      default:
        break;
    }
  }
  FindBreaks(paragraph.text, breaks_);
}

void LineMaker::MeasureText(const Paragraph& paragraph, const Piece& piece) {
  const std::u16string_view text(paragraph.text);
  const TextStyle& style = *piece.style;
  const std::size_t end = piece.start + piece.length;
  for (std::size_t i = piece.start; i < end;) {
    const char16_t c = text[i];
    const Script script = ScriptOf(c, style);
    // What is joined, reordered or kerned has to be shaped as a word.
    if (script == Script::kComplex || (style.kerned && script != Script::kEastAsia && c != u' ')) {
      std::size_t to = i;
      while (to < end && text[to] != u' ' && ScriptOf(text[to], style) == script) ++to;
      if (to > i) {
        MeasureShaped(text.substr(i, to - i), piece, script, i);
        i = to;
        continue;
      }
    }
    scripts_[i] = script;
    char32_t character = c;
    std::size_t length = 1;
    if (U16_IS_LEAD(c) && i + 1 < end && U16_IS_TRAIL(text[i + 1])) {
      character = static_cast<char32_t>(U16_GET_SUPPLEMENTARY(c, text[i + 1]));
      length = 2;
    }
    double size = style.SizeFor(script);
    if (style.caps || style.smallCaps) {
      const auto upper = static_cast<char32_t>(u_toupper(static_cast<UChar32>(character)));
      if (upper != character && style.smallCaps && !style.caps) size *= kSmallCapsSize;
      character = upper;
    }
    units_[i].width = static_cast<float>(style.FontFor(script).Advance(character) * size * style.scale + style.spacing);
    i += length;
  }
}

void LineMaker::MeasureShaped(std::u16string_view text, const Piece& piece, Script script, std::size_t from) {
  const TextStyle& style = *piece.style;
  std::u16string shown(text);
  if (style.caps) {
    for (char16_t& c : shown) c = static_cast<char16_t>(u_toupper(c));
  }
  const bool rightToLeft = script == Script::kComplex && text.front() >= 0x0590 && text.front() < 0x0900;
  const double width = style.FontFor(script).ShapedAdvance(shown, rightToLeft) * style.SizeFor(script) * style.scale +
                       style.spacing * static_cast<double>(text.size());
  // Where a word is divided does not matter as long as it stays whole; each character gets an equal share.
  for (std::size_t i = from; i < from + text.size(); ++i) {
    units_[i].width = static_cast<float>(width / static_cast<double>(text.size()));
    scripts_[i] = script;
  }
}

double LineMaker::WidthOf(std::u16string_view text, const TextStyle& style) const {
  double width = 0;
  for (const char16_t c : text) {
    const Script script = ScriptOf(c, style);
    const auto shown = style.caps ? static_cast<char32_t>(u_toupper(c)) : static_cast<char32_t>(c);
    width += style.FontFor(script).Advance(shown) * style.SizeFor(script) * style.scale + style.spacing;
  }
  return width;
}

double LineMaker::NextTab(const Paragraph& paragraph, double x, const LineReach& reach, bool first,
                          TabStop& stop) const {
  const ParagraphFormat& format = paragraph.look.format;
  constexpr double kPast = 0.5;
  const auto tab = std::find_if(format.tabs.begin(), format.tabs.end(), [&](const TabStop& one) {
    return one.kind != TabKind::kBar && one.position > x + kPast;
  });
  const bool stated = tab != format.tabs.end();
  stop = stated ? *tab : TabStop{};
  // A hanging indent is a stop of its own.
  const double hanging = *format.left;
  if (first && settings_.hangingStop && *format.firstLine < 0 && hanging > x + kPast &&
      (!stated || hanging < stop.position)) {
    stop = {};
    return hanging;
  }
  if (!stated) {
    const double step = std::max(1.0, settings_.defaultTab);
    return (std::floor((x + kPast) / step) + 1) * step;
  }
  // Beyond the right indent, as the page numbers of tables of contents stand, and from Word 2013 on not beyond the
  // column.
  const double most = settings_.compatibility < kStopsAtMargin ? stop.position : std::max(reach.right, reach.margin);
  return stop.kind == TabKind::kLeft ? stop.position : std::max(std::min<double>(stop.position, most), x);
}

double LineMaker::LabelEnd(const Paragraph& paragraph, const LineReach& reach) const {
  const ParagraphFormat& format = paragraph.look.format;
  double x = *format.left + *format.firstLine;
  if (paragraph.labelStyle == nullptr) return x;
  const double width = WidthOf(paragraph.label, *paragraph.labelStyle);
  switch (paragraph.labelAlignment) {
    case Alignment::kRight:
      break;
    case Alignment::kCenter:
      x += width / 2;
      break;
    default:
      x += width;
      break;
  }
  switch (paragraph.suffix) {
    case NumberSuffix::kTab: {
      TabStop stop;
      return NextTab(paragraph, x, reach, true, stop);
    }
    case NumberSuffix::kSpace:
      return x + WidthOf(u" ", *paragraph.labelStyle);
    case NumberSuffix::kNothing:
      break;
  }
  return x;
}

std::size_t LineMaker::FindEnd(const Paragraph& paragraph, std::size_t from, double start, LineReach reach,
                               bool first) {
  const std::u16string_view text(paragraph.text);
  double x = start;
  // What stands at a centred, right or decimal tab moves to the left as it grows, as long as there is room.
  double slack = 0;
  // Word from 2013 on makes the blanks of justified lines narrower when another word fits in for it.
  const bool shrinks = *paragraph.look.format.alignment == Alignment::kBoth && settings_.compatibility >= 15;

  double blanks = 0;
  TabKind pending = TabKind::kLeft;
  std::size_t lastBreak = 0;
  for (std::size_t i = from; i < text.size(); ++i) {
    const Piece& piece = paragraph.pieces[units_[i].piece];
    switch (piece.kind) {
      case PieceKind::kLineBreak:
      case PieceKind::kPageBreak:
      case PieceKind::kColumnBreak:
        return i + 1;
      case PieceKind::kTab: {
        TabStop tab;
        const double stop = NextTab(paragraph, x, reach, first, tab);
        const TabKind kind = tab.kind;
        if (stop > reach.right + kSlack && i > from && kind == TabKind::kLeft && lastBreak > from) return lastBreak;
        if (kind == TabKind::kLeft) {
          x = stop;
          slack = 0;
        } else {
          slack = stop - x;
          x = stop;
          reach.right = std::max(reach.right, stop);
        }
        pending = kind;
        blanks = 0;
        lastBreak = i + 1;
        continue;
      }
      default:
        break;
    }
    // Its hyphen shows where its line ends with it.
    if (piece.kind == PieceKind::kSoftHyphen && x + WidthOf(u"-", *piece.style) <= reach.right + kSlack) {
      lastBreak = i + 1;
    }
    double width = units_[i].width;
    if (slack > 0 && pending != TabKind::kLeft) {
      if (pending == TabKind::kDecimal && text[i] == settings_.decimalPoint) pending = TabKind::kLeft;
      const double taken = std::min(slack, pending == TabKind::kCenter ? width / 2 : width);
      if (pending != TabKind::kLeft) {
        slack -= taken;
        width -= taken;
      }
    }
    const bool hangs =
        *paragraph.look.format.hangsPunctuation && IsHangingPunctuation(text[i]) && x <= reach.right + kSlack;
    if (!hangs && !IsHangingBlank(text[i]) && x + width > reach.right + kSlack + (shrinks ? blanks * kShrunk : 0)) {
      if (lastBreak > from) return lastBreak;
      return std::max(i, from + 1);
    }
    x += width;
    if (text[i] == u' ') blanks += width;
    if (breaks_[i] != 0) lastBreak = i + 1;
  }
  return text.size();
}

void LineMaker::Include(Extent& extent, const TextStyle& style, Script script) {
  const LineMetrics& line = style.FontFor(script).Line();
  const double size = style.SizeFor(script);
  extent.ascent = std::max(extent.ascent, line.ascent * size + style.raise);
  extent.descent = std::max(extent.descent, (line.descent + line.gap) * size - style.raise);
}

void LineMaker::SetHeight(const Paragraph& paragraph, bool first, Line& line) const {
  const ParagraphFormat& format = paragraph.look.format;
  if (*format.lineRule == LineRule::kExact && *format.line > 0) {
    line.height = *format.line;
    line.baseline = line.height * kExactBaseline;
    return;
  }
  Extent extent;
  double picture = 0;
  const Piece* seen = nullptr;
  Script script = Script::kAscii;
  for (std::size_t i = line.from; i < line.to; ++i) {
    const Piece& piece = paragraph.pieces[units_[i].piece];
    if (&piece == seen && scripts_[i] == script) continue;
    seen = &piece;
    script = scripts_[i];
    if (piece.kind == PieceKind::kObject) picture = std::max(picture, static_cast<double>(piece.height));
    Include(extent, *piece.style, script);
  }
  // Behind text the mark of the paragraph does not count.
  if (line.from == line.to) Include(extent, *paragraph.mark, Script::kAscii);
  if (first && paragraph.labelStyle != nullptr) {
    Include(extent, *paragraph.labelStyle,
            paragraph.label.empty() ? Script::kAscii : ScriptOf(paragraph.label.front(), *paragraph.labelStyle));
  }
  // Word counts heights in whole twips, and multiplies before it does.
  const double exact = extent.ascent + extent.descent;
  const double text = std::round(exact);
  const double height = std::round(std::max(extent.ascent, picture) + extent.descent);
  line.height = height;
  line.baseline = std::max(extent.ascent, picture);
  const bool grid = settings_.gridPitch > 0 && (!settings_.inCell || settings_.gridInCells);
  const bool snaps = grid && *format.snapToGrid;
  if (snaps) {
    line.height = std::ceil(height / settings_.gridPitch - 0.01) * settings_.gridPitch;
    line.baseline += (line.height - height) / 2;
  }
  if (*format.lineRule == LineRule::kAuto) {
    // Of a line with a picture only the text's share is multiplied.
    const bool own = picture <= 0 && !snaps;
    const double multiplied = picture > 0 ? text : line.height;
    const double share = *format.line > 0 ? *format.line / 240.0 : 1;
    const double more = share == 1 ? 0 : own ? exact * share - line.height : multiplied * (share - 1);
    // Room that a line is given stands below it; what is taken from it, above.
    line.baseline += std::min(0.0, more);
    line.height = std::floor(line.height + more);
  } else if (*format.line > line.height) {
    line.baseline += *format.line - line.height;
    line.height = *format.line;
  }
}

double LineMaker::Width(const Paragraph& paragraph, std::size_t from, std::size_t to) const {
  double width = *paragraph.look.format.left + *paragraph.look.format.right;
  for (std::size_t i = from; i < to; ++i) width += units_[i].width;
  return width;
}

LineWidths LineMaker::WidthsOf(const Paragraph& paragraph) {
  MadeLines* made = paragraph.made.get();
  if (made != nullptr && made->measured && made->measured->settings == settings_) return made->measured->widths;
  Measure(paragraph);
  const ParagraphFormat& format = paragraph.look.format;
  const double sides = *format.left + *format.right;
  LineWidths widths;
  double line = LabelEnd(paragraph, {0, 0}) - *format.left;
  double part = std::max(0.0, line);
  double hanging = 0;
  for (std::size_t i = 0; i < units_.size(); ++i) {
    const PieceKind kind = paragraph.pieces[units_[i].piece].kind;
    const bool ends = kind == PieceKind::kLineBreak || kind == PieceKind::kPageBreak || kind == PieceKind::kColumnBreak;
    const bool blank = IsHangingBlank(paragraph.text[i]);
    if (ends) line = part = 0;
    line += kind == PieceKind::kTab ? settings_.defaultTab : units_[i].width;
    part += blank ? 0 : units_[i].width;
    hanging = blank ? hanging + units_[i].width : 0;
    widths.least = std::max(widths.least, part + sides);
    widths.most = std::max(widths.most, line - hanging + sides);
    if (breaks_[i] != 0) part = 0;
  }
  if (made != nullptr) made->measured = {settings_, widths};
  return widths;
}

double LineMaker::LikelyHeight(const Paragraph& paragraph) const {
  Line line;
  line.to = paragraph.text.empty() ? 0 : 1;
  SetHeight(paragraph, true, line);
  return line.height;
}

void LineMaker::Make(const Paragraph& paragraph, double width, std::vector<Line>& lines, const Obstacles* around,
                     double top) {
  // Whoever lays out a frame asks what its text measures.
  if (paragraph.made == nullptr || around != nullptr || paragraph.frame) {
    return MakeFrom(paragraph, 0, width, lines, around, top);
  }
  MadeLines& made = *paragraph.made;
  if (made.width == width && made.settings == settings_) {
    lines.clear();
    for (const MadeLines::One& one : made.lines) {
      Line& line = lines.emplace_back();
      line.height = one.height;
      line.baseline = one.baseline;
      line.from = one.from;
      line.to = one.to;
      line.behind = one.behind;
      line.width = width;
    }
  } else {
    Divide(paragraph, 0, width, lines, nullptr, top);
    made.width = width;
    made.settings = settings_;
    made.lines.clear();
    made.lines.reserve(lines.size());
    for (const Line& line : lines) made.lines.push_back({line.height, line.baseline, line.from, line.to, line.behind});
  }
  Anchor(paragraph, 0, lines);
}

void LineMaker::MakeFrom(const Paragraph& paragraph, std::size_t from, double width, std::vector<Line>& lines,
                         const Obstacles* around, double top) {
  Divide(paragraph, from, width, lines, around, top);
  Anchor(paragraph, from, lines);
}

void LineMaker::Divide(const Paragraph& paragraph, std::size_t from, double width, std::vector<Line>& lines,
                       const Obstacles* around, double top) {
  Measure(paragraph);
  const ParagraphFormat& format = paragraph.look.format;
  const double left = *format.left;
  std::size_t part = 0;
  double likely = 0;
  lines.clear();
  const std::size_t size = paragraph.text.size();
  do {
    const bool first = from == 0 && lines.empty();
    LineRoom room{0, width};
    if (around != nullptr) {
      if (part == 0) likely = lines.empty() ? LikelyHeight(paragraph) : lines.back().height;
      room = around->Find(top, likely, width, part);
    }
    const double right = std::max(room.width - *format.right, left + kNarrowest);
    const double start = first ? LabelEnd(paragraph, {right, room.width}) : left;
    const LineReach reach{std::max(right, start + kNarrowest), room.width};
    const std::size_t to = FindEnd(paragraph, from, start, reach, first);
    Line line;
    line.from = static_cast<std::uint32_t>(from);
    line.to = static_cast<std::uint32_t>(to);
    line.left = room.left;
    line.width = room.width;
    line.above = room.skip;
    const bool more = to < size;
    if (to > from) {
      const PieceKind last = paragraph.pieces[units_[to - 1].piece].kind;
      if (last == PieceKind::kPageBreak) line.behind = BreakBehind::kPage;
      if (last == PieceKind::kColumnBreak) line.behind = BreakBehind::kColumn;
      // The mark goes on the next line behind a line break, and stays with the others.
      const bool takesMark =
          last == PieceKind::kLineBreak || (last == PieceKind::kPageBreak && settings_.markBehindBreak);
      if (takesMark && to == size) {
        SetHeight(paragraph, first, line);
        lines.push_back(line);
        Line empty;
        empty.left = room.left;
        empty.width = room.width;
        empty.from = empty.to = line.to;
        SetHeight(paragraph, false, empty);
        lines.push_back(empty);
        break;
      }
    }
    SetHeight(paragraph, first, line);
    line.beside = room.more && more && line.behind == BreakBehind::kNone;
    lines.push_back(std::move(line));
    if (part > 0) LevelWithNext(lines, lines.size() - 2);
    part = lines.back().beside ? part + 1 : 0;
    if (part == 0) top += room.skip + lines.back().height;
    from = to;
    if (!more) break;
  } while (true);
}

void LineMaker::Anchor(const Paragraph& paragraph, std::size_t begin, std::vector<Line>& lines) {
  const auto positionOf = [&](std::size_t unit) {
    // Pieces without text stand before the one that has the unit.
    const auto behind = std::ranges::upper_bound(paragraph.pieces, unit, {}, &Piece::start);
    const Piece& piece = *std::prev(behind);
    return piece.position + static_cast<Position>(unit - piece.start);
  };
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const bool first = i == 0 && begin == 0;
    const std::size_t from = lines[i].from;
    lines[i].start = first ? paragraph.start : from < paragraph.text.size() ? positionOf(from) : paragraph.end;
  }
  // Word's lines need not be ours: a page that it began in a line's second half began with the next line.
  std::size_t broken = 0;
  for (const Position lastBreak : paragraph.lastBreaks) {
    if (begin > 0 && lastBreak <= lines.front().start) continue;
    while (broken + 1 < lines.size() && lines[broken + 1].start <= lastBreak) ++broken;
    // The page that begins behind a break is not this line's.
    if (lines[broken].behind == BreakBehind::kPage && lastBreak > positionOf(lines[broken].to - 1)) continue;
    const Position end = broken + 1 < lines.size() ? lines[broken + 1].start : paragraph.end;
    const bool second = broken + 1 < lines.size() && lastBreak - lines[broken].start > end - lastBreak;
    lines[second ? broken + 1 : broken].lastBreak = lastBreak;
  }
  // Notes go with the line that their reference stands on.
  std::size_t at = 0;
  for (const Piece& piece : paragraph.pieces) {
    if (piece.kind != PieceKind::kNote || piece.start < begin) continue;
    while (at + 1 < lines.size() && lines[at + 1].start <= piece.position) ++at;
    lines[at].notes.push_back(piece.element);
  }
}

}  // namespace docx::layout
