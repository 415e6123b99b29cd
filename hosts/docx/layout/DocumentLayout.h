#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hosts/docx/layout/BlockReader.h"
#include "hosts/docx/layout/DocumentFormats.h"
#include "hosts/docx/layout/Flow.h"
#include "hosts/docx/layout/PageFiller.h"
#include "hosts/docx/layout/SectionGeometry.h"
#include "hosts/docx/model/DocumentParts.h"
#include "hosts/docx/pages/PageTable.h"
#include "platform/page/Display.h"

namespace docx::layout {

class LayoutMemory;
class PageDrawer;

/// A whole document laid out: what stands on which page.
class DocumentLayout {
 public:
  /// Lays out at once. @param parts outlives it
  /// @param lastBreaks pages that Word began when it last laid the document out begin there, where that is still true
  /// @param memory what earlier layouts of the document know; gets what this one does. nullptr for none
  explicit DocumentLayout(DocumentParts& parts, bool lastBreaks = false, LayoutMemory* memory = nullptr);
  DocumentLayout(const DocumentLayout&) = delete;
  DocumentLayout& operator=(const DocumentLayout&) = delete;

  bool KeptLastBreaks() const { return filler_->KeptLastBreaks(); }
  int PageCount() const { return filler_->Page(); }
  /// The lines and rows of main text and endnotes in the order of placing.
  const std::vector<PageFiller::Placed>& Placed() const { return body_.lines; }
  /// The cells of tables in them.
  const std::vector<PageFiller::PlacedCell>& Cells() const { return body_.cells; }
  const std::vector<PageNumbering>& Numberings() const { return filler_->Numberings(); }
  /// By the elements that refer to them.
  const std::unordered_map<const XmlNodeData*, int>& NotePages() const { return filler_->NotePages(); }

  // What does not look at the document's parts any more, so that it may be asked for when they have changed.

  /// What a page shows. Costs what stands on it. @param page from 1 to PageCount()
  page::Display Draw(int page) const;
  /// In points.
  double PaperWidth(int page) const;
  double PaperHeight(int page) const;
  /// Where main text, footnotes or endnotes stand, in the order of positions; empty for other stories.
  const std::vector<PageStart>& Starts(int story) const;
  /// The page that shows a position of them; 1 for other stories.
  int PageShowing(int story, Position position) const;
  /// The paragraph of the main text that a position is in; nullptr when none shows.
  const Paragraph* ParagraphAt(Position position) const;

 private:
  BlockReader::PictureNames PictureNames();
  /// Has a reader of a story remember.
  void SetMemory(BlockReader& reader, const XmlPart& part);
  void ReadSettings();
  void ReadSections(const std::vector<Block>& blocks);
  void MeasureHeaders(SectionGeometry& section, XmlNode sectPr, std::vector<XmlNode>& inherited);
  std::vector<Block> ReadApart(XmlPart& part, XmlNode container);
  double HeightOf(const std::vector<Block>& blocks, double width);
  /// @param sectionEnds positions behind the sections, but for the last one
  void MeasureFootnotes(const std::vector<Position>& sectionEnds);
  /// A note that only holds a line between text and notes. @param type its w:type
  std::vector<Block> ReadSeparator(XmlPart& part, Tag note, std::string_view type);
  /// @param sectionEnds as for footnotes
  void ReadEndnotes(const std::vector<Position>& sectionEnds);
  /// The sections that endnotes stand behind, by their ids.
  std::unordered_map<std::string, std::size_t> EndnoteSections(const std::vector<Position>& sectionEnds) const;
  /// Puts the notes that stand at the end of a section behind its text.
  void AppendEndnotes(std::size_t section, Flow& flow, double width);
  void LayOut(std::vector<Block> blocks);
  /// @param sections their blocks
  void FillPages(const std::vector<const std::vector<Block>*>& sections);
  /// Finds out how pictures that are placed by the page stand to their paragraphs. @return whether that has changed
  bool DropFloats();
  /// Gives the lines of footnotes their places at the feet of the pages.
  void PlaceFootnotes();
  void DrawHeaders(int page, FlowBuilder& flows, PageDrawer& drawer) const;

  DocumentParts& parts_;
  LayoutMemory* memory_;  // while laying out
  std::shared_ptr<const std::uint64_t> reading_;
  std::shared_ptr<DocumentFormats> formats_;
  NumberCounters counters_;
  NoteNumbers noteNumbers_;
  LineSettings lineSettings_;
  LineMaker lines_;
  FlowSettings flowSettings_;
  PageFiller::Options options_;
  std::vector<std::unique_ptr<SectionGeometry>> sections_;
  NoteRooms noteRooms_;
  std::unique_ptr<PageFiller> filler_;

  // What is drawn.
  std::deque<std::vector<Block>> kept_;
  std::unordered_map<const XmlPart*, std::vector<Block>*> headers_;
  std::deque<Flow> noteFlows_;
  /// In the order of the endnotes.
  struct Endnote {
    std::size_t section{0};  ///< that it stands behind
    const std::vector<Block>* blocks{nullptr};
  };
  std::vector<Endnote> endnotes_;
  const std::vector<Block>* endnoteSeparator_{nullptr};
  const std::vector<Block>* separator_{nullptr};
  const std::vector<Block>* continuation_{nullptr};
  FloatDrops drops_;
  PageFiller::Content body_;
  PageFiller::Content notes_;
  /// By story, from the main text on.
  mutable std::array<std::vector<PageStart>, 3> starts_;
};

}  // namespace docx::layout
