#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/docx/layout/Numbering.h"
#include "hosts/docx/layout/Values.h"

namespace docx::layout {

/// Distances of a cell's edges from its text, in twips.
struct CellMargins {
  std::optional<int> top;
  std::optional<int> left;
  std::optional<int> bottom;
  std::optional<int> right;

  void Inherit(const CellMargins& base);
  bool operator==(const CellMargins&) const = default;
};

/// What a table style says of its cells, of all or of those in one place.
struct TableValues {
  CharacterValues run;
  ParagraphFormat paragraph;
  CellMargins margins;
  std::optional<int> borderInside;  ///< what horizontal borders take, in twips
  std::optional<int> borderOutside;
  BoxBorders tableBorders;
  BoxBorders cellBorders;
  std::optional<page::Color> shading;

  void Inherit(const TableValues& base);
  bool operator==(const TableValues&) const = default;
};

/// A style with what it has from the styles that it is based on.
struct SheetStyle {
  enum class Kind : std::uint8_t { kParagraph, kCharacter, kTable, kOther };
  std::string id;
  std::string name;
  Kind kind{Kind::kParagraph};
  CharacterValues run;
  ParagraphFormat paragraph;
  TableValues table;
  std::map<std::string, TableValues, std::less<>> places;  ///< "firstRow" and so on
  int rowBand{1};
  int columnBand{1};

  bool operator==(const SheetStyle&) const = default;
};

/// All of a document's styles, as far as they decide about room.
class StyleSheet {
 public:
  /// @param part may be nullptr. Nothing of it is kept.
  /// @param compatibility the version of Word that the document is for, as it numbers itself
  StyleSheet(const XmlPart* part, const Numbering& numbering, FontLibrary& fonts, const ThemeFonts& theme,
             int compatibility);

  /// The default of the kind for an id that is empty, unknown or of another kind; nullptr without one.
  const SheetStyle* Paragraph(std::string_view id) const;
  const SheetStyle* Character(std::string_view id) const;
  const SheetStyle* Table(std::string_view id) const;

  /// Takes over the styles that a later reading of the part has in addition. What was handed out stays valid.
  /// @return false, and nothing is taken over, when that says something else of anything that was or could have been
  /// handed out
  bool Extend(const StyleSheet& later);

  const CharacterValues& RunDefaults() const { return runDefaults_; }
  const ParagraphFormat& ParagraphDefaults() const { return paragraphDefaults_; }

 private:
  const SheetStyle* Find(std::string_view id, SheetStyle::Kind kind, const std::optional<std::size_t>& fallback) const;
  const SheetStyle* Default(const std::optional<std::size_t>& index) const;
  void Resolve(const std::vector<std::string>& basedOn, const Numbering& numbering, int compatibility);

  std::deque<SheetStyle> styles_;
  std::map<std::string, std::size_t, std::less<>> byId_;
  mutable std::set<std::string, std::less<>> missing_;  // that somebody has asked for
  std::optional<std::size_t> defaultParagraph_;
  std::optional<std::size_t> defaultCharacter_;
  std::optional<std::size_t> defaultTable_;
  CharacterValues runDefaults_;
  ParagraphFormat paragraphDefaults_;
};

/// The margins that a w:tblCellMar or w:tcMar states. @param margins may be empty
CellMargins ReadCellMargins(const XmlPart& part, XmlNode margins);
/// What one border takes, in twips; empty when it is not stated.
std::optional<int> BorderWidth(const XmlPart& part, XmlNode border);

}  // namespace docx::layout
