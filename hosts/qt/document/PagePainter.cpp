#include "hosts/qt/document/PagePainter.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <utility>

#include "hosts/qt/Text.h"

namespace qt {

namespace {

constexpr double kThinnest = 0.8;        // pixels
constexpr double kMarkWidth = 4;         // points: a selected paragraph mark
constexpr double kUnderlineDepth = 0.1;  // of the font's size
constexpr double kStrikeHeight = 0.27;
constexpr double kLineThickness = 1.0 / 18;
constexpr double kWaveLength = 4;  // times the thickness
constexpr QRgb kMissingPicture = 0xfff2f2f2;
constexpr QRgb kMissingEdge = 0xffa0a0a0;
constexpr QRgb kInsteadColor = 0xff404040;
constexpr double kInsteadSize = 9;  // points

QColor ColorOf(page::Color color) { return QColor::fromRgb(static_cast<QRgb>(color) | 0xff000000U); }

/// The units of a run that lie in a selection.
std::pair<std::size_t, std::size_t> Selected(const page::Run& run, int story,
                                             const DocumentSource::Selection& selection) {
  if (!run.places || story != selection.start.story || selection.start.position >= selection.end) return {0, 0};
  const std::size_t units = run.text.size();
  if (run.solid) {
    const bool in = selection.start.position <= run.position && run.position < selection.end;
    return {0, in ? units : 0};
  }
  const auto unit = [&](word::Position position) {
    return static_cast<std::size_t>(
        std::clamp<std::int64_t>(position - run.position, 0, static_cast<std::int64_t>(units)));
  };
  return {unit(selection.start.position), unit(selection.end)};
}

bool Shows(char16_t c) { return c > u' ' && c != u'\u00A0' && c != u'\u00AD' && c != u'\u200B' && c != u'\uFFFC'; }

Qt::PenStyle PenOf(page::Stroke stroke) {
  if (stroke == page::Stroke::kDotted) return Qt::DotLine;
  return stroke == page::Stroke::kDashed ? Qt::DashLine : Qt::SolidLine;
}

}  // namespace

QRectF PagePainter::Scaled(const page::Rect& area) const {
  return {area.x * scale_, area.y * scale_, area.width * scale_, area.height * scale_};
}

void PagePainter::Draw(QPainter& painter, double scale, const page::Display& page, const QPalette& palette,
                       const DocumentSource::Selection& selection) {
  painter_ = &painter;
  page_ = &page;
  scale_ = scale;
  for (const page::Fill& fill : page.fills) FillWhole(fill.area, ColorOf(fill.color));
  for (const page::Picture& picture : page.pictures) DrawPicture(picture);
  for (const page::Rule& rule : page.rules) DrawRule(rule);
  for (const page::Line& line : page.lines) {
    painter.save();
    if (line.turn != page::Turn::kNone) {
      painter.translate(line.originX * scale_, line.originY * scale_);
      painter.rotate(line.turn == page::Turn::kUp ? -90 : 90);
    }
    DrawGrounds(line, palette, selection);
    for (const page::Run& run : line.runs) DrawRun(run, palette, line.story, selection);
    painter.restore();
  }
}

void PagePainter::FillWhole(const page::Rect& area, const QColor& color) {
  const bool smooth = painter_->testRenderHint(QPainter::Antialiasing);
  painter_->setRenderHint(QPainter::Antialiasing, false);
  painter_->fillRect(Scaled(area), color);
  painter_->setRenderHint(QPainter::Antialiasing, smooth);
}

void PagePainter::DrawRule(const page::Rule& rule) {
  const double width = std::max(rule.width * scale_, kThinnest);
  QPen pen(ColorOf(rule.color), width, PenOf(rule.stroke), Qt::FlatCap);
  const auto draw = [&](double across) {
    const bool level = rule.y == rule.toY;
    // Thin lines stand on whole pixels, so that all look alike.
    const auto snapped = [&](double value) { return std::floor(value) + 0.5; };
    QPointF from(rule.x * scale_, rule.y * scale_);
    QPointF to(rule.toX * scale_, rule.toY * scale_);
    if (level) {
      from.ry() = to.ry() = snapped(from.y() + across);
      from.rx() -= width / 2;
      to.rx() += width / 2;
    } else {
      from.rx() = to.rx() = snapped(from.x() + across);
    }
    painter_->setPen(pen);
    painter_->drawLine(from, to);
  };
  if (rule.stroke == page::Stroke::kDouble) {
    draw(-std::max(width, 1.0));
    draw(std::max(width, 1.0));
  } else {
    draw(0);
  }
}

void PagePainter::DrawPicture(const page::Picture& picture) {
  const QRectF area = Scaled(picture.area);
  const QImage image = picture.name.empty() ? QImage() : picture_(picture.name);
  if (!image.isNull()) {
    painter_->save();
    painter_->setRenderHint(QPainter::SmoothPixmapTransform);
    painter_->drawImage(area, image);
    painter_->restore();
    return;
  }
  painter_->fillRect(area, QColor::fromRgb(kMissingPicture));
  painter_->setPen(QPen(QColor::fromRgb(kMissingEdge), 0));
  painter_->setBrush(Qt::NoBrush);
  painter_->drawRect(area);
  if (picture.instead.empty()) return;
  QFont font = painter_->font();
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(kInsteadSize * scale_))));
  const QRectF room = area.adjusted(2, 2, -2, -2);
  const QString text = ToQt(picture.instead);
  const QRectF needed = QFontMetricsF(font).boundingRect(room, Qt::AlignCenter | Qt::TextWordWrap, text);
  painter_->save();
  painter_->setFont(font);
  painter_->setPen(QColor::fromRgb(kInsteadColor));
  painter_->setClipRect(room, Qt::IntersectClip);
  const bool fits = needed.width() <= room.width() && needed.height() <= room.height();
  if (fits) {
    painter_->drawText(room, Qt::AlignCenter | Qt::TextWordWrap, text);
  } else if (room.height() >= QFontMetricsF(font).height()) {
    painter_->drawText(room, Qt::AlignCenter,
                       QFontMetricsF(font).elidedText(text.simplified(), Qt::ElideRight, room.width()));
  }
  painter_->restore();
}

void PagePainter::DrawGrounds(const page::Line& line, const QPalette& palette,
                              const DocumentSource::Selection& selection) {
  const QColor marked = palette.color(QPalette::Active, QPalette::Highlight);
  const auto fill = [&](double from, double to, const QColor& color) {
    const double left = std::min(from, to);
    FillWhole({left, line.area.y, std::abs(to - from), line.area.height}, color);
  };
  double end = line.area.x;
  for (const page::Run& run : line.runs) {
    if (run.background != page::kNoColor) fill(run.edges.front(), run.edges.back(), ColorOf(run.background));
    const auto [from, to] = Selected(run, line.story, selection);
    if (from < to) fill(run.edges[from], run.edges[to], marked);
    if (run.places) end = run.edges.back();
  }
  const bool mark = line.endsParagraph && line.story != 0 && line.story == selection.start.story &&
                    selection.start.position <= line.end && line.end < selection.end;
  if (mark) fill(end, end + kMarkWidth, marked);
}

void PagePainter::DrawRun(const page::Run& run, const QPalette& palette, int story,
                          const DocumentSource::Selection& selection) {
  const auto [from, to] = Selected(run, story, selection);
  const QColor color = ColorOf(run.color);
  const QColor marked = palette.color(QPalette::Active, QPalette::HighlightedText);
  for (const Part& part : {Part{0, from, color}, Part{from, to, marked}, Part{to, run.text.size(), color}}) {
    if (part.from >= part.to) continue;
    if (run.leader != 0) DrawLeader(run, part.color);
    DrawPart(run, part);
    DrawLines(run, part);
  }
}

void PagePainter::DrawPart(const page::Run& run, const Part& part) {
  if (run.shaped) return DrawShaped(run, part.from, part.to, part.color);
  const page::Face& face = page_->faces[run.face];
  const QRawFont& font = fonts_.Raw(face, face.size * scale_);
  const std::u16string_view text(run.text);
  const QList<quint32> glyphs =
      font.isValid() ? font.glyphIndexesForString(ToQt(text.substr(part.from, part.to - part.from))) : QList<quint32>();
  // Pairs of units that are one character have one glyph.
  if (glyphs.size() != static_cast<qsizetype>(part.to - part.from)) {
    return DrawShaped(run, part.from, part.to, part.color);
  }
  QList<quint32> drawn;
  QList<QPointF> places;
  for (std::size_t i = part.from; i < part.to; ++i) {
    if (!Shows(text[i])) continue;
    const quint32 glyph = glyphs[static_cast<qsizetype>(i - part.from)];
    if (glyph == 0) {
      DrawShaped(run, i, i + 1, part.color);
      continue;
    }
    drawn << glyph;
    places << QPointF(run.edges[i] * scale_ / face.stretch, 0);
  }
  if (drawn.isEmpty()) return;
  QGlyphRun glyphRun;
  glyphRun.setRawFont(font);
  glyphRun.setGlyphIndexes(drawn);
  glyphRun.setPositions(places);
  painter_->setPen(part.color);
  if (face.stretch == 1) return painter_->drawGlyphRun(QPointF(0, run.baseline * scale_), glyphRun);
  painter_->save();
  painter_->translate(0, run.baseline * scale_);
  painter_->scale(face.stretch, 1);
  painter_->drawGlyphRun(QPointF(0, 0), glyphRun);
  painter_->restore();
}

void PagePainter::DrawShaped(const page::Run& run, std::size_t from, std::size_t to, const QColor& color) {
  const page::Face& face = page_->faces[run.face];
  const QFont font = PageFonts::Large(face);
  const QString text = ToQt(std::u16string_view(run.text).substr(from, to - from));
  const double natural = QFontMetricsF(font).horizontalAdvance(text);
  const double left = std::min(run.edges[from], run.edges[to]) * scale_;
  const double width = std::abs(run.edges[to] - run.edges[from]) * scale_;
  if (natural <= 0 || width <= 0) return;
  const double size = face.size * scale_ / PageFonts::kLarge;
  painter_->save();
  painter_->translate(left, run.baseline * scale_);
  painter_->scale(width / natural, size);
  painter_->setFont(font);
  painter_->setPen(color);
  painter_->setLayoutDirection(run.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
  painter_->drawText(QPointF(0, 0), text);
  painter_->restore();
}

void PagePainter::DrawLeader(const page::Run& run, const QColor& color) {
  const page::Face& face = page_->faces[run.face];
  const QRawFont& font = fonts_.Raw(face, face.size * scale_);
  const QList<quint32> glyph = font.isValid() ? font.glyphIndexesForString(QChar(run.leader)) : QList<quint32>();
  if (glyph.isEmpty() || glyph.first() == 0) return;
  const double step = font.advancesForGlyphIndexes(glyph).first().x();
  if (step < 1) return;
  const double left = std::min(run.edges.front(), run.edges.back()) * scale_;
  const double right = std::max(run.edges.front(), run.edges.back()) * scale_;
  QList<quint32> glyphs;
  QList<QPointF> places;
  // They stand below each other in neighbouring lines.
  for (double x = std::ceil(left / step) * step; x + step <= right; x += step) {
    glyphs << glyph.first();
    places << QPointF(x, 0);
  }
  QGlyphRun glyphRun;
  glyphRun.setRawFont(font);
  glyphRun.setGlyphIndexes(glyphs);
  glyphRun.setPositions(places);
  painter_->setPen(color);
  painter_->drawGlyphRun(QPointF(0, run.baseline * scale_), glyphRun);
}

void PagePainter::DrawLines(const page::Run& run, const Part& part) {
  if (run.underline == page::Stroke::kNone && !run.strike) return;
  const double size = page_->faces[run.face].size * scale_;
  const double thickness = std::max(kThinnest, size * kLineThickness);
  const double left = std::min(run.edges[part.from], run.edges[part.to]) * scale_;
  const double right = std::max(run.edges[part.from], run.edges[part.to]) * scale_;
  const double base = run.baseline * scale_;
  const auto draw = [&](double y, page::Stroke stroke) {
    painter_->setPen(QPen(part.color, thickness, PenOf(stroke), Qt::FlatCap));
    painter_->drawLine(QPointF(left, y), QPointF(right, y));
  };
  if (run.strike) draw(base - size * kStrikeHeight, page::Stroke::kSolid);
  const double y = base + size * kUnderlineDepth;
  if (run.underline == page::Stroke::kWave) {
    QPainterPath wave(QPointF(left, y));
    const double length = thickness * kWaveLength;
    bool up = true;
    for (double x = left; x < right; x += length / 2, up = !up) {
      wave.quadTo(QPointF(x + length / 4, y + (up ? -thickness : thickness)),
                  QPointF(std::min(x + length / 2, right), y));
    }
    painter_->setPen(QPen(part.color, thickness / 2));
    painter_->setBrush(Qt::NoBrush);
    painter_->drawPath(wave);
  } else if (run.underline != page::Stroke::kNone) {
    draw(y, run.underline);
    if (run.underline == page::Stroke::kDouble) draw(y + 2 * thickness, run.underline);
  }
}

}  // namespace qt
