#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/page/Display.h"
#include "tests/unit/layout/LaidOut.h"

namespace laid {

inline std::u16string TextOf(const page::Line& line) {
  std::u16string text;
  for (const page::Run& run : line.runs) text += run.text;
  return text;
}

/// A page as it is drawn.
class Drawn {
 public:
  explicit Drawn(Document& document, int number = 1) : Drawn(document.Parts(), number) {}
  /// @param lastBreaks as for docx::layout::DocumentLayout
  explicit Drawn(docx::DocumentParts& parts, int number, bool lastBreaks = false)
      : layout_(parts, lastBreaks), display_(layout_.Draw(number)), count_(layout_.PageCount()) {}

  const page::Display& Display() const { return display_; }
  int PageCount() const { return count_; }
  /// The first line with a text; one without runs, and a failure, when there is none.
  const page::Line& Line(std::u16string_view text) const {
    for (const page::Line& line : display_.lines) {
      if (TextOf(line).find(text) != std::u16string::npos) return line;
    }
    ADD_FAILURE() << "no such line on the page";
    static const page::Line none;
    return none;
  }
  bool Has(std::u16string_view text) const {
    for (const page::Line& line : display_.lines) {
      if (TextOf(line).find(text) != std::u16string::npos) return true;
    }
    return false;
  }
  /// The run that begins with a text.
  const page::Run& Run(std::u16string_view text) const {
    for (const page::Line& line : display_.lines) {
      for (const page::Run& run : line.runs) {
        if (run.text.starts_with(text)) return run;
      }
    }
    ADD_FAILURE() << "no such run on the page";
    static const page::Run none{.text = {}, .edges = {0, 0}};
    return none;
  }
  const page::Face& Face(const page::Run& run) const { return display_.faces.at(run.face); }
  double LeftOf(std::u16string_view text) const { return Run(text).edges.front(); }
  double RightOf(std::u16string_view text) const { return Run(text).edges.back(); }

 private:
  docx::layout::DocumentLayout layout_;
  page::Display display_;
  int count_;
};

/// Ten points of Courier New: a character is six points wide.
inline std::string Typed(const std::string& text, const std::string& runProperties = {}) {
  return "<w:r><w:rPr><w:rFonts w:ascii=\"Courier New\" w:hAnsi=\"Courier New\"/>" + runProperties +
         "<w:sz w:val=\"20\"/></w:rPr>" + Text(text) + "</w:r>";
}
inline std::string InParagraph(const std::string& runs, const std::string& properties = {}) {
  return "<w:p><w:pPr>" + properties + "</w:pPr>" + runs + "</w:p>";
}
inline const std::string kTypedTab = "<w:r><w:tab/></w:r>";
inline constexpr double kCharacter = 6;
/// The plain page.
inline constexpr double kLeft = 72;
inline constexpr double kRight = 540;
inline constexpr double kTop = 72;
inline constexpr double kBottom = 720;
/// Widths of fonts are rounded.
inline constexpr double kNear = 0.1;

}  // namespace laid
