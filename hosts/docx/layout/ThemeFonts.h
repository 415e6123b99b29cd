#pragma once

#include <map>
#include <string>
#include <string_view>

#include "hosts/docx/xml/XmlPart.h"

namespace docx::layout {

/// The font names that a theme stands for.
class ThemeFonts {
 public:
  /// @param theme, settings may be nullptr
  ThemeFonts(const XmlPart* theme, const XmlPart* settings);

  /// @param reference such as "minorHAnsi" @return empty when the theme does not say
  const std::string& Name(std::string_view reference) const;

 private:
  std::map<std::string, std::string, std::less<>> names_;
};

}  // namespace docx::layout
