#pragma once

#include <array>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include "hosts/docx/layout/Fonts.h"
#include "hosts/docx/layout/StyleSheet.h"
#include "hosts/docx/layout/Values.h"

namespace docx::layout {

/// How characters show, all settled. Lengths in twips.
struct TextStyle {
  std::array<const Font*, 4> fonts{};  ///< by Script
  double size{200};                    ///< of an em
  double sizeComplex{200};
  double spacing{0};
  double scale{1};
  double raise{0};
  bool complex{false};
  bool eastAsiaHint{false};
  bool caps{false};
  bool smallCaps{false};
  bool hidden{false};
  bool kerned{false};
  double lift{0};  ///< of raised and lowered characters, upwards; the line's height leaves it out
  bool strike{false};
  page::Stroke underline{page::Stroke::kNone};
  page::Color color{page::kNoColor};       ///< page::kNoColor for the one that fits the background
  page::Color background{page::kNoColor};  ///< of the highlight, or the shading

  double SizeFor(Script script) const { return script == Script::kComplex ? sizeComplex : size; }
  const Font& FontFor(Script script) const { return *fonts[static_cast<std::size_t>(script)]; }
};

/// A paragraph's format with nothing left open, and where it came from.
struct ParagraphLook {
  ParagraphFormat format;
  const SheetStyle* style{nullptr};
  const TableValues* table{nullptr};  ///< of the cell around it
  const Numbering::List* list{nullptr};
  int level{0};
};

/// Finds out how text shows: the document's defaults, table style, paragraph style, numbering, character style and
/// direct formatting, each over the ones before.
class Formats {
 public:
  Formats(const StyleSheet& styles, const Numbering& numbering, FontLibrary& fonts, const ThemeFonts& theme)
      : styles_(styles), numbering_(numbering), fonts_(fonts), theme_(theme) {}
  Formats(const Formats&) = delete;
  Formats& operator=(const Formats&) = delete;

  const StyleSheet& Styles() const { return styles_; }
  FontLibrary& Fonts() { return fonts_; }

  /// What a table style says of a cell. @param places such as "firstRow", the strongest first @return valid as long
  /// as this
  const TableValues* CellValues(const SheetStyle& style, const std::vector<const char*>& places);
  /// @param pPr may be empty @param table nullptr outside of tables; outlives what is returned
  ParagraphLook Paragraph(const XmlPart& part, XmlNode pPr, const TableValues* table) const;
  /// @param rPr may be empty @return valid as long as this
  const TextStyle& Text(const XmlPart& part, XmlNode rPr, const ParagraphLook& look);
  /// Of a number or bullet, whose own format is that of the paragraph mark with the level's over it.
  const TextStyle& Label(const XmlPart& part, XmlNode markProperties, const ParagraphLook& look);

 private:
  const TextStyle& Find(const XmlPart& part, XmlNode rPr, const ParagraphLook& look);
  TextStyle Settle(const CharacterValues& direct, const CharacterValues& character, const ParagraphLook& look);
  const TextStyle& Keep(const TextStyle& style);

  const StyleSheet& styles_;
  const Numbering& numbering_;
  FontLibrary& fonts_;
  const ThemeFonts& theme_;
  std::deque<TextStyle> kept_;
  std::unordered_map<std::string, const TextStyle*> known_;
  /// The same by what is written, which tells without looking into it that it has been seen.
  std::unordered_map<std::string, const TextStyle*> written_;
  std::string key_;
  std::unordered_map<std::string, TableValues> cellValues_;
};

}  // namespace docx::layout
