#pragma once

#include <QPainter>
#include <QPalette>
#include <QTextLayout>

#include <memory>
#include <optional>
#include <vector>

#include "hosts/qt/document/DocumentSource.h"

namespace qt {

/// The text of one page in lines. Points are those of the paper, from its upper left corner.
class PageLayout {
 public:
  PageLayout(PageText text, const Paper& paper, std::u16string label);

  double Width() const { return paper_.width; }
  /// That of the paper, or more where the text needs it.
  double Height() const { return height_; }

  /// @param selection what is marked as selected; its end lies before its start for none
  void Draw(QPainter& painter, const QPalette& palette, const DocumentSource::Selection& selection) const;
  /// The place next to a point. Empty on a page without text.
  std::optional<Place> PlaceAt(QPointF point) const;
  /// Where a cursor at a place stands; empty when the place is not on the page.
  std::optional<QRectF> CursorAt(const Place& place) const;
  /// The next place in a direction, by characters or words; empty past the ends of the page.
  std::optional<Place> Step(const Place& place, bool forward, bool words) const;
  /// The first or last place of the line that a place is in.
  Place LineEdge(const Place& place, bool end) const;
  std::optional<Place> First() const;
  std::optional<Place> Last() const;

 private:
  struct Block {
    const PageParagraph* paragraph{nullptr};
    std::unique_ptr<QTextLayout> layout{};
    std::unique_ptr<QTextLayout> label{};
    QPointF origin{};
    double height{0};
    double width{0};
  };

  double LayOut(const std::vector<PageParagraph>& paragraphs, double top);
  double LayOutBlock(const PageParagraph& paragraph, double left, double width, double top);
  const Block* BlockOf(const Place& place) const;
  const Block* BlockAt(QPointF point) const;
  static word::Position PositionOf(const PageParagraph& paragraph, int offset);
  static int OffsetOf(const PageParagraph& paragraph, word::Position position);
  static word::Position StartOf(const PageParagraph& paragraph);

  PageText text_;
  Paper paper_;
  std::u16string label_;
  std::vector<Block> blocks_;
  double height_{0};
  double separator_{0};  ///< where the line over the notes stands; 0: no notes
};

}  // namespace qt
