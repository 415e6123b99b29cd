#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPalette>

#include <functional>

#include "hosts/qt/document/DocumentSource.h"
#include "hosts/qt/document/PageFonts.h"
#include "platform/page/Display.h"

namespace qt {

/// Draws pages.
class PagePainter {
 public:
  /// @param picture gives one by its name; a null image for one that cannot be drawn
  explicit PagePainter(std::function<QImage(const std::string&)> picture) : picture_(std::move(picture)) {}

  /// @param painter its origin is the page's upper left corner @param scale pixels for each point
  /// @param selection what is marked as selected; nothing where its end is not behind its start
  void Draw(QPainter& painter, double scale, const page::Display& page, const QPalette& palette,
            const DocumentSource::Selection& selection);

 private:
  /// A stretch of a run that shows in one way.
  struct Part {
    std::size_t from{0};
    std::size_t to{0};
    QColor color;
  };

  /// Up to whole pixels, or a seam would show where two areas meet.
  void FillWhole(const page::Rect& area, const QColor& color);
  void DrawRule(const page::Rule& rule);
  void DrawPicture(const page::Picture& picture);
  void DrawGrounds(const page::Line& line, const QPalette& palette, const DocumentSource::Selection& selection);
  void DrawRun(const page::Run& run, const QPalette& palette, int story, const DocumentSource::Selection& selection);
  void DrawPart(const page::Run& run, const Part& part);
  void DrawShaped(const page::Run& run, std::size_t from, std::size_t to, const QColor& color);
  void DrawLeader(const page::Run& run, const QColor& color);
  void DrawLines(const page::Run& run, const Part& part);
  QRectF Scaled(const page::Rect& area) const;

  std::function<QImage(const std::string&)> picture_;
  PageFonts fonts_;
  QPainter* painter_{nullptr};
  const page::Display* page_{nullptr};
  double scale_{1};
};

}  // namespace qt
