#include "hosts/docx/layout/DocumentFormats.h"

#include <string_view>
#include <utility>

namespace docx::layout {

namespace {

/// What a document without settings of its own is: one of Word 2007.
constexpr int kOldestCompatibility = 12;

FontClass ClassOf(std::string_view family, std::string_view pitch) {
  if (family == "modern" || (pitch == "fixed" && family != "roman")) return FontClass::kModern;
  return family == "roman" ? FontClass::kRoman : FontClass::kSwiss;
}

}  // namespace

int CompatibilityOf(const XmlPart* settings) {
  if (settings == nullptr) return kOldestCompatibility;
  const XmlNode compat = settings->Child(settings->Root(), "compat");
  for (const XmlNode setting : compat.Children(settings->Name("compatSetting"))) {
    const std::string_view name = settings->Attribute(setting, "name").Value();
    if (name == "compatibilityMode") return NumberOf(*settings, setting).value_or(kOldestCompatibility);
  }
  return kOldestCompatibility;
}

DocumentFormats::DocumentFormats(DocumentParts& parts)
    : theme_(parts.Related(kThemePart), parts.Settings()),
      numbering_(parts.Related(kNumberingPart), parts.Related(kStylesPart), fonts_, theme_),
      styles_(parts.Related(kStylesPart), numbering_, fonts_, theme_, CompatibilityOf(parts.Settings())),
      formats_(styles_, numbering_, fonts_, theme_) {
  DescribeFonts(parts.Related(kFontTablePart));
}

bool DocumentFormats::Extend(DocumentParts& parts) {
  const XmlPart* styles = parts.Related(kStylesPart);
  const Numbering numbering(parts.Related(kNumberingPart), styles, fonts_, theme_);
  if (numbering != numbering_) return false;
  return styles_.Extend({styles, numbering_, fonts_, theme_, CompatibilityOf(parts.Settings())});
}

void DocumentFormats::DescribeFonts(const XmlPart* table) {
  if (table == nullptr) return;
  for (const XmlNode font : table->Root().Children(table->Name("font"))) {
    FontLibrary::Description description;
    description.kind =
        ClassOf(ValueOf(*table, table->Child(font, "family")), ValueOf(*table, table->Child(font, "pitch")));
    description.otherName = ValueOf(*table, table->Child(font, "altName"));
    // Word knows the classification of the fonts that it has; for one that it lacked it notes what it took instead.
    description.replaced = !description.otherName.empty() && !table->Child(font, "panose1");
    fonts_.Describe(table->Attribute(font, "name").Value(), std::move(description));
  }
}

}  // namespace docx::layout
