#pragma once

#include <unordered_map>
#include <vector>

#include "hosts/docx/layout/Flow.h"
#include "hosts/docx/layout/SectionGeometry.h"
#include "hosts/docx/pages/PageLabels.h"

namespace docx::layout {

/// What a footnote takes at its page's foot. Lengths in twips.
struct NoteRoom {
  double height{0};
  double firstLine{0};  ///< what has to stand on the page of the reference
  std::size_t flow{0};  ///< which of the layout's flows has its lines
};

using NoteRooms = std::unordered_map<const XmlNodeData*, NoteRoom>;

/// Fills pages with the flows of sections, one after the other. Lengths in twips.
class PageFiller {
 public:
  struct Options {
    bool evenAndOdd{false};      ///< even pages have headers of their own
    double noteSeparator{0};     ///< height of what stands above the notes of a page
    double noteContinuation{0};  ///< the same where notes go on from the page before
    bool mirrored{false};        ///< even pages have their margins the other way round
    bool lastBreaks{false};      ///< pages that Word began are begun there too, where that is still true
  };
  /// A line or row and the page that it came to stand on.
  struct Placed {
    Position position{0};
    int page{1};
    bool endnote{false};
    bool repeated{false};  ///< a table's heading, shown again
    double top{0};         ///< from the paper's upper edge
    double height{0};
    double left{0};  ///< of the room of the line's paragraph, from the paper's left edge
    ShownLine shown;
  };
  /// A cell, or the part of one that stands on a page.
  struct PlacedCell {
    int page{1};
    const Table* table{nullptr};
    std::size_t row{0};
    const Cell* cell{nullptr};
    double left{0};
    double top{0};
    double width{0};
    double height{0};
    bool repeated{false};  ///< of a table's heading, shown again
  };
  /// A line between two columns.
  struct ColumnRule {
    int page{1};
    double left{0};
    double top{0};
    double bottom{0};
  };
  struct Content {
    std::vector<Placed> lines;
    std::vector<PlacedCell> cells;
    std::vector<ColumnRule> rules;
  };
  /// What a page is like.
  struct PageRoom {
    const SectionGeometry* section{nullptr};  ///< which decides about header and footer
    PageSide side{PageSide::kDefault};
    bool mirrored{false};
    double bottom{0};  ///< of the text
  };
  /// Room for footnotes at the foot of a column.
  struct PlacedNotes {
    int page{1};
    double left{0};
    double width{0};
    double height{0};
    std::size_t references{0};  ///< how many of NoteOrder() have been placed with it
    bool goesOn{false};         ///< notes of it go on in the next column
  };

  /// @param notes by the footnotes' references; outlives the filler
  /// @param flows divides lines where Word began a page; needed by Fill with Options::lastBreaks only
  PageFiller(const NoteRooms& notes, Options options, FlowBuilder* flows = nullptr)
      : notes_(notes), options_(options), flows_(flows) {}

  /// @param section outlives the filler
  void BeginSection(const SectionGeometry& section);
  /// Places all of a section. @param balanced whether its columns shall end at the same height
  /// @param placed gets what stands where, page by page
  void Fill(Flow& flow, bool balanced, Content& placed);

  /// Whether a page began where Word had begun one, and by no reason of the layout alone.
  bool KeptLastBreaks() const { return keptLastBreaks_; }
  /// The last page so far.
  int Page() const { return page_; }
  /// Of every section begun.
  const std::vector<PageNumbering>& Numberings() const { return numberings_; }
  /// By the references of the notes placed, footnotes and endnotes.
  const std::unordered_map<const XmlNodeData*, int>& NotePages() const { return notePages_; }
  /// The references in the order in which they were placed.
  const std::vector<const XmlNodeData*>& NoteOrder() const { return noteOrder_; }
  const std::vector<PlacedNotes>& Notes() const { return placedNotes_; }
  /// From page 1 on.
  const std::vector<PageRoom>& Pages() const { return pages_; }

 private:
  /// What begins a column keeps the space above it, or part of it, for different reasons.
  enum class TopSpace : std::uint8_t { kNone, kOwn, kBehindSection };

  /// What fits into a column.
  struct Fit {
    std::size_t end{0};   ///< behind the last item that fits
    double used{0};       ///< from the column's top
    double notes{0};      ///< at its foot
    double carried{0};    ///< of the notes, to the next column
    bool divides{false};  ///< the row at the end fits in part
    double room{0};       ///< for that part
  };

  Fit FitColumn(const std::vector<FlowItem>& items, std::size_t begin, double height, TopSpace top, double carried);
  /// How far items reach down in their column: those that were fitted in, and what was kept beyond them.
  std::vector<double> EndsOf(const std::vector<FlowItem>& items, std::size_t begin, std::size_t end) const;
  /// Has a line begin where Word began a page. @param at the item with Word's break @return that of the new line
  std::size_t DivideLine(std::vector<FlowItem>& items, std::size_t at);
  /// Moves a column's end to where Word began a page, if that is near.
  Fit KeepLastBreak(std::vector<FlowItem>& items, std::size_t begin, double height, const Fit& fit);
  Fit Shorten(const std::vector<FlowItem>& items, std::size_t begin, std::size_t overflow) const;
  double BalancedHeight(const std::vector<FlowItem>& items, std::size_t begin, double height, TopSpace top);
  /// Where something is placed on the page.
  struct Spot {
    double left{0};
    double top{0};
    bool repeated{false};
    bool endnote{false};
  };
  void Place(const FlowItem& item, Spot spot, Content& placed);
  void PlaceRow(const RowFlow& row, double height, Spot spot, Content& placed);
  void PlaceBoxes(const RowFlow& row, double height, Spot spot, Content& placed) const;
  /// @param deepest what lies below it does not show
  void PlaceCell(const CellFlow& cell, std::size_t end, Spot spot, double deepest, Content& placed);
  void PlaceHeaders(const std::vector<FlowItem>& items, std::size_t begin, double left, Content& placed);
  /// @param placed nullptr for only finding out whether it can be divided @param notes gets what the notes of its first
  /// part take; nullptr for not asking
  bool DivideRow(RowFlow& row, double room, bool whatever, Spot spot, Content* placed, double* notes);
  NoteRoom RoomOfNotes(const FlowItem& item) const;
  double SpaceAtTop(const FlowItem& item, TopSpace top) const;
  void NextPage();
  void MeasurePage();

  static constexpr double kSlack = 1;  // twips that sums of rounded heights may be too much

  const NoteRooms& notes_;
  Options options_;
  FlowBuilder* flows_;
  const SectionGeometry* section_{nullptr};
  int page_{1};
  bool pageEmpty_{true};
  bool onlyMark_{false};  // the page has nothing but the mark that ends a section, behind a page break
  int sectionPage_{1};    // that the section began on
  double top_{0};         // of the section on this page, from the paper's upper edge
  double bottom_{0};      // of the text on this page
  double deepest_{0};     // how far the section's columns reach on this page, from top_
  double after_{0};       // space that the section before wants behind it
  double above_{0};       // as much of it as stands above all columns
  double carried_{0};     // of footnotes, to the next column
  double pageNotes_{0};   // at the page's foot, of the sections before
  bool keptLastBreaks_{false};
  std::vector<PageNumbering> numberings_;
  std::unordered_map<const XmlNodeData*, int> notePages_;
  std::vector<const XmlNodeData*> noteOrder_;
  std::vector<PlacedNotes> placedNotes_;
  std::vector<PageRoom> pages_;
  double left_{0};  // of the text on this page

  /// How a column stood behind each of its items, while it is being filled.
  struct Mark {
    double used{0};
    double notes{0};
  };
  std::vector<Mark> marks_;
};

/// Places a flow in a column that stands alone. Lengths in twips, from the paper's upper left corner.
PageFiller::Content PlaceApart(Flow& flow, double left, double top, double width);

}  // namespace docx::layout
