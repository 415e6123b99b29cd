#pragma once

#include "hosts/docx/layout/Fonts.h"
#include "hosts/docx/layout/Numbering.h"
#include "hosts/docx/layout/StyleSheet.h"
#include "hosts/docx/layout/TextStyle.h"
#include "hosts/docx/layout/ThemeFonts.h"
#include "hosts/docx/model/DocumentParts.h"

namespace docx::layout {

/// The formats of a document, read from its styles, lists, theme and fonts. Keeps nothing of the parts.
class DocumentFormats {
 public:
  explicit DocumentFormats(DocumentParts& parts);
  DocumentFormats(const DocumentFormats&) = delete;
  DocumentFormats& operator=(const DocumentFormats&) = delete;

  Formats& Of() { return formats_; }
  /// Takes over what was added to the styles since. All that was handed out stays valid.
  /// @return false when styles or lists say something else than they did; these formats are then out of date
  bool Extend(DocumentParts& parts);

 private:
  void DescribeFonts(const XmlPart* table);

  FontLibrary fonts_;
  ThemeFonts theme_;
  Numbering numbering_;
  StyleSheet styles_;
  Formats formats_;
};

/// The version of Word that a document is for, as it numbers itself. @param settings may be nullptr
int CompatibilityOf(const XmlPart* settings);

/// The parts that formats are read from, by the endings of their relationships' types.
inline constexpr const char* kThemePart = "/theme";
inline constexpr const char* kNumberingPart = "/numbering";
inline constexpr const char* kStylesPart = "/styles";
inline constexpr const char* kFontTablePart = "/fontTable";

}  // namespace docx::layout
