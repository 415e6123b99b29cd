#pragma once

#include <QPointF>
#include <QRectF>
#include <QString>

#include <optional>
#include <vector>

#include "hosts/qt/document/DocumentSource.h"
#include "platform/page/Display.h"

namespace qt {

/// The places of a page that a cursor can come to. Points are those of the paper, from its upper left corner.
class PagePlaces {
 public:
  explicit PagePlaces(page::Display drawing) : drawing_(std::move(drawing)) {}

  const page::Display& Drawing() const { return drawing_; }

  /// The place next to a point. Empty on a page without text. @param story the one to stay in; 0 for any
  std::optional<Place> PlaceAt(QPointF point, int story = 0) const;
  /// Where a cursor at a place stands; empty when the page has nothing of its story.
  std::optional<QRectF> CursorAt(const Place& place) const;
  /// The next place in a direction, by characters or words; empty past the ends of the page.
  std::optional<Place> Step(const Place& place, bool forward, bool words) const;
  /// The first or last place of the line that a place is in.
  Place LineEdge(const Place& place, bool end) const;
  /// The same of its paragraph, as far as it stands on the page.
  struct Edge {
    Place place;
    bool goesOn{false};  ///< past the page's end, or from the page before
  };
  Edge ParagraphEdge(const Place& place, bool end) const;
  /// What the page shows of a story, with a line feed behind each paragraph.
  struct Shown {
    QString text;
    std::vector<word::Position> positions;  ///< of each unit
  };
  Shown ShownOf(int story) const;
  /// Whether text stands at a point that no cursor comes to.
  bool IsOnlyShown(QPointF point) const;
  /// The first and last place of the main text, or of what else the page begins with.
  std::optional<Place> First() const;
  std::optional<Place> Last() const;

 private:
  /// Where a cursor can stand in a line, and what is behind it.
  struct Stop {
    word::Position position{0};
    double x{0};
  };
  struct Stops {
    std::vector<Stop> stops;
    QString text;  ///< a unit behind each of them but the last of a paragraph
  };

  static Stops StopsOf(const page::Line& line);
  const page::Line* LineOf(const Place& place) const;
  const page::Line* LineAt(QPointF point, int story) const;
  const page::Line* Neighbour(const page::Line* line, bool forward) const;

  page::Display drawing_;
};

}  // namespace qt
