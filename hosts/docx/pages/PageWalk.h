#pragma once

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

#include "hosts/docx/pages/PageFlow.h"
#include "hosts/docx/pages/PageLabels.h"
#include "hosts/docx/pages/PageSetup.h"
#include "hosts/docx/pages/PageTable.h"
#include "hosts/docx/pages/TextEstimate.h"

namespace docx {

/// Carries a flow from page to page. The breaks in the file decide; estimated breaks come between them where Word has
/// left none.
class PageWalk {
 public:
  struct Options {
    bool estimate{false};  ///< everywhere; else in the flow's unbroken indexes only
    /// The height that a footnote takes, given its reference; 0 for other notes.
    std::function<double(XmlNode)> noteHeight;
  };

  /// @param setups of the sections in order, the document's last included
  PageWalk(const Formatting& formatting, std::vector<PageSetup> setups, Options options);

  /// The main text.
  void WalkMain(const Story& story, const PageFlow& flow);
  /// The endnotes behind it.
  void WalkEndnotes(const Formatting& formatting, const Story& story, const PageFlow& flow);

  int PageCount() const { return count_; }
  std::vector<PageStart> TakeMainStarts() { return std::move(mainStarts_); }
  std::vector<PageStart> TakeEndnoteStarts() { return std::move(endnoteStarts_); }
  std::vector<PageNumbering> TakeNumberings() { return std::move(numberings_); }
  /// Whether a break that the file states or Word has left was met; whether one was estimated.
  bool Stated() const { return stated_; }
  bool Estimated() const { return estimated_; }
  /// A note's reference in the main text.
  struct NoteReference {
    XmlNode element;
    int page{1};
    std::size_t section{0};
  };
  const std::vector<NoteReference>& NoteReferences() const { return notes_; }
  /// The last page of every section, in order.
  const std::vector<int>& SectionEnds() const { return sectionEnds_; }

 private:
  /// Where the walk stands.
  struct Spot {
    int page{1};
    double y{0};       ///< from the top of the text, in points
    double after{0};   ///< space that the paragraph before wants behind it
    bool empty{true};  ///< nothing stands on the page yet
    bool begun{true};  ///< a mark of Word's last layout would only repeat that the page begins here
  };
  struct Row {
    Spot start;
    Spot furthest;
    bool text{false};
    bool moved{false};     ///< its start went to another page with all that was in it, which was no text
    double cellWidth{0};   ///< of a cell that does not say
    double outerWidth{0};  ///< around the table
  };

  void Walk(const Story& story, const PageFlow& flow);
  void Step(const FlowEvent& event);
  void BeginParagraph(const FlowEvent& event);
  void EndParagraph(const FlowEvent& event);
  void BeginRow(const FlowEvent& event);
  void BeginCell(const FlowEvent& event);
  void EndRow(const FlowEvent& event);
  void EndSection(Position position);
  void NoteText(const FlowEvent& event);
  /// The rows begun have got text: a page that begins now divides them.
  void HoldRows();
  static void MoveOuter(const Row& inner, Row& outer);
  /// Lays the paragraph's text so far. @param least lines that it takes at least
  void LayLines(Position end, int least);
  void NewPage(Position position);
  void GoTo(const Spot& spot, Position position);
  const PageSetup& Setup() const { return setups_[section_]; }
  double Room() const { return Setup().textHeight * Setup().columns; }
  bool EstimatedAt(Position position);

  const Formatting* formatting_;
  ParagraphShapes shapes_;
  std::vector<PageSetup> setups_;
  Options options_;
  const AtomSequence* atoms_{nullptr};
  const PageFlow* flow_{nullptr};
  bool inEndnotes_{false};
  bool measured_{false};
  std::size_t index_{0};  // of the flow's indexes: the first that does not end before here

  Spot at_;
  std::vector<Row> rows_;
  double width_{0};
  std::size_t section_{0};
  int count_{1};
  ParagraphShape shape_;
  std::uint32_t characters_{0};  // of the paragraph that are not laid yet
  Position laid_{0};             // where they begin
  double filled_{0};             // characters on the line laid last, when it has room left
  bool lines_{false};            // the paragraph has got a line
  bool breakEnds_{false};        // a page break is the last of the paragraph so far

  std::vector<PageStart> starts_;
  std::vector<PageStart> mainStarts_;
  std::vector<PageStart> endnoteStarts_;
  std::vector<PageNumbering> numberings_;
  std::vector<int> sectionEnds_;
  std::vector<NoteReference> notes_;
  bool stated_{false};
  bool estimated_{false};
};

}  // namespace docx
