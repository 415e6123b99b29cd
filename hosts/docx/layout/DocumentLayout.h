#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hosts/docx/layout/BlockReader.h"
#include "hosts/docx/layout/Flow.h"
#include "hosts/docx/layout/PageFiller.h"
#include "hosts/docx/layout/SectionGeometry.h"
#include "hosts/docx/layout/TextStyle.h"
#include "hosts/docx/layout/ThemeFonts.h"
#include "hosts/docx/model/DocumentParts.h"

namespace docx::layout {

/// A whole document laid out: what stands on which page.
class DocumentLayout {
 public:
  /// Lays out at once. @param parts outlives it
  /// @param lastBreaks pages that Word began when it last laid the document out begin there, where that is still true
  explicit DocumentLayout(DocumentParts& parts, bool lastBreaks = false);
  DocumentLayout(const DocumentLayout&) = delete;
  DocumentLayout& operator=(const DocumentLayout&) = delete;

  bool KeptLastBreaks() const { return filler_->KeptLastBreaks(); }
  int PageCount() const { return filler_->Page(); }
  /// In the order of placing.
  const std::vector<PageFiller::Placed>& Placed() const { return placed_; }
  const std::vector<PageNumbering>& Numberings() const { return filler_->Numberings(); }
  /// By the elements that refer to them.
  const std::unordered_map<const XmlNodeData*, int>& NotePages() const { return filler_->NotePages(); }

 private:
  void ReadSettings();
  void DescribeFonts();
  void ReadSections(const std::vector<Block>& blocks);
  void MeasureHeaders(SectionGeometry& section, XmlNode sectPr, std::vector<XmlNode>& inherited);
  double HeightOf(XmlPart& part, XmlNode container, double width);
  void MeasureFootnotes(double width);
  /// The height of a note that only holds a line between text and notes. @param type its w:type
  double SeparatorHeight(XmlPart& part, Tag note, std::string_view type, double width);
  void AppendEndnotes(Flow& flow, double width);
  void LayOut(std::vector<Block> blocks);

  DocumentParts& parts_;
  FontLibrary fonts_;
  ThemeFonts theme_;
  Numbering numbering_;
  StyleSheet styles_;
  Formats formats_;
  NumberCounters counters_;
  NoteNumbers noteNumbers_;
  LineSettings lineSettings_;
  LineMaker lines_;
  FlowSettings flowSettings_;
  PageFiller::Options options_;
  std::vector<std::unique_ptr<SectionGeometry>> sections_;
  NoteRooms noteRooms_;
  std::unique_ptr<PageFiller> filler_;
  std::vector<PageFiller::Placed> placed_;
};

}  // namespace docx::layout
