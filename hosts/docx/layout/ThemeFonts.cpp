#include "hosts/docx/layout/ThemeFonts.h"

#include <array>
#include <utility>

#include "hosts/docx/layout/Values.h"

namespace docx::layout {

namespace {

XmlNode LocalChild(XmlNode parent, std::string_view local) {
  for (const XmlNode child : parent.Children()) {
    if (LocalName(child) == local) return child;
  }
  return {};
}

/// The key under which a theme keeps the font for a language of eastern Asia.
const char* ScriptOf(std::string_view language) {
  if (language.starts_with("ja")) return "Jpan";
  if (language.starts_with("ko")) return "Hang";
  if (language == "zh-TW" || language == "zh-HK" || language == "zh-MO") return "Hant";
  if (language.starts_with("zh")) return "Hans";
  return "";
}

}  // namespace

ThemeFonts::ThemeFonts(const XmlPart* theme, const XmlPart* settings) {
  if (theme == nullptr) return;
  const XmlNode scheme = LocalChild(LocalChild(theme->Root(), "themeElements"), "fontScheme");
  std::string eastern;
  if (settings != nullptr) {
    eastern = ScriptOf(settings->Attribute(settings->Child(settings->Root(), "themeFontLang"), "eastAsia").Value());
  }
  for (const auto& [group, prefix] : {std::pair("majorFont", "major"), std::pair("minorFont", "minor")}) {
    const XmlNode fonts = LocalChild(scheme, group);
    const std::string latin(LocalChild(fonts, "latin").Attribute("typeface").Value());
    std::string asian(LocalChild(fonts, "ea").Attribute("typeface").Value());
    if (asian.empty() && !eastern.empty()) {
      for (const XmlNode font : fonts.Children()) {
        if (eastern == font.Attribute("script").Value()) asian = font.Attribute("typeface").Value();
      }
    }
    names_[std::string(prefix) + "Ascii"] = latin;
    names_[std::string(prefix) + "HAnsi"] = latin;
    names_[std::string(prefix) + "EastAsia"] = asian;
    names_[std::string(prefix) + "Bidi"] = LocalChild(fonts, "cs").Attribute("typeface").Value();
  }
}

const std::string& ThemeFonts::Name(std::string_view reference) const {
  static const std::string none;
  const auto found = names_.find(reference);
  return found == names_.end() ? none : found->second;
}

}  // namespace docx::layout
