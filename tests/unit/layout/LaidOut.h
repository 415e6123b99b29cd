#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "hosts/docx/layout/DocumentLayout.h"
#include "tests/unit/pages/PagedDocument.h"

namespace laid {

using paged::InRun;
using paged::P;
using paged::Text;

/// Lines of 36 points, without regard to fonts: 18 of them fill the plain page.
inline const std::string kTall = "<w:spacing w:line=\"720\" w:lineRule=\"exact\"/>";
inline constexpr int kPerPage = 18;

/// Paragraphs of one line each, with the texts "<name>1", "<name>2" and so on.
inline std::string Lines(const std::string& name, int count, const std::string& properties = {}) {
  std::string blocks;
  for (int i = 1; i <= count; ++i) blocks += P(Text(name + std::to_string(i)), properties + kTall);
  return blocks;
}

/// One paragraph of so many lines, divided by line breaks; each has the text "<name>1" and so on.
inline std::string Paragraph(const std::string& name, int lines, const std::string& properties = {}) {
  std::string content;
  for (int i = 1; i <= lines; ++i) content += (i > 1 ? "<w:br/>" : "") + Text(name + std::to_string(i) + ".");
  return P(content, properties + kTall);
}

/// A document whose pages come from the layout.
class Document : public paged::Document {
 public:
  explicit Document(const std::string& blocks) : paged::Document(blocks) { source = docx::PageSource::kLayout; }

  Document& WithSettings(const std::string& content) {
    With("settings", content);
    return *this;
  }
  Document& WithStyles(const std::string& content) {
    With("styles", content);
    return *this;
  }
  /// All lines in the order of the story. @pre Parts() may be called
  std::vector<docx::layout::PageFiller::Placed> Lines() {
    const docx::layout::DocumentLayout layout(Parts());
    auto lines = layout.Placed();
    std::stable_sort(lines.begin(), lines.end(), [](const auto& a, const auto& b) { return a.position < b.position; });
    return lines;
  }
};

/// For the version of Word that a document says it is for.
inline std::string Compatibility(int version) {
  return "<w:compat><w:compatSetting w:name=\"compatibilityMode\" w:uri=\"http://schemas.microsoft.com/office/word\" "
         "w:val=\"" +
         std::to_string(version) + "\"/></w:compat>";
}

inline std::string Cell(const std::string& blocks, const std::string& properties = {}) {
  return "<w:tc><w:tcPr>" + properties + "</w:tcPr>" + blocks + "</w:tc>";
}
inline std::string Row(const std::string& cells, const std::string& properties = {}) {
  return "<w:tr><w:trPr>" + properties + "</w:trPr>" + cells + "</w:tr>";
}
inline std::string Table(const std::string& rows, const std::string& grid = "<w:gridCol w:w=\"4000\"/>") {
  return "<w:tbl><w:tblPr/><w:tblGrid>" + grid + "</w:tblGrid>" + rows + "</w:tbl>";
}

}  // namespace laid
