#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/docx/styles/PropertyValues.h"
#include "hosts/docx/xml/XmlPart.h"

namespace docx {

enum class StyleType { kParagraph, kCharacter, kTable, kOther };

/// A style with what it has from the styles that it is based on, the document's defaults left out.
struct Style {
  std::string id;
  std::string name;
  StyleType type{StyleType::kParagraph};
  RunValues run;
  ParagraphValues paragraph;
  /// What a table style says besides of characters in some places, "firstRow" and so on.
  std::map<std::string, RunValues, std::less<>> places;
  int rowBand{1};
  int columnBand{1};
};

/// A document's styles, as far as the system asks for formatting. A copy of what the part says: read again after the
/// part has changed. A basedOn that leads nowhere, to a style of another type or back to the style itself counts as
/// none. Of styles with the same id the first one counts.
class Styles {
 public:
  /// @param part nullptr for a document without styles
  explicit Styles(const XmlPart* part) { Read(part); }

  /// Reads anew. Pointers to styles are spoilt.
  void Read(const XmlPart* part);

  /// nullptr when there is none.
  const Style* ById(std::string_view id) const;
  /// By the name that the file has ("index 1"), case ignored in ASCII. nullptr when there is none.
  const Style* ByName(std::string_view name) const;
  /// The style that a paragraph or run has which names this one: the default of the type for a name that is empty,
  /// unknown or of another type; nullptr when there is no default either.
  const Style* Paragraph(std::string_view id) const { return OfType(id, StyleType::kParagraph, defaultParagraph_); }
  const Style* Character(std::string_view id) const { return OfType(id, StyleType::kCharacter, defaultCharacter_); }
  const Style* Table(std::string_view id) const { return OfType(id, StyleType::kTable, defaultTable_); }

  const RunValues& RunDefaults() const { return runDefaults_; }
  const ParagraphValues& ParagraphDefaults() const { return paragraphDefaults_; }
  /// Something that table styles say; what none of them says anything of is open.
  const RunValues& InTables() const { return inTables_; }
  /// Whether any style or the defaults hide text.
  bool AnyHidden() const { return anyHidden_; }
  /// Likewise for highlighting.
  bool AnyHighlight() const { return anyHighlight_; }

 private:
  const Style* OfType(std::string_view id, StyleType type, std::optional<std::size_t> fallback) const;
  void ReadPlaces(const XmlPart& part, XmlNode node, Style& style);
  void Resolve(const std::vector<std::string>& basedOn);

  std::vector<Style> styles_;
  std::map<std::string, std::size_t, std::less<>> byId_;
  std::map<std::string, std::size_t, std::less<>> byName_;
  std::optional<std::size_t> defaultParagraph_;
  std::optional<std::size_t> defaultCharacter_;
  std::optional<std::size_t> defaultTable_;
  RunValues runDefaults_;
  RunValues inTables_;
  ParagraphValues paragraphDefaults_;
  bool anyHidden_{false};
  bool anyHighlight_{false};
};

}  // namespace docx
