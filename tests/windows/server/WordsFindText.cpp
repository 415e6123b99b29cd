#include "tests/windows/server/WordsFindText.h"

namespace server {

std::u16string HostsFindText(std::u16string_view text, bool wildcards) {
  std::u16string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (unit == u'^' || (wildcards && unit == u'\\')) {
      result += unit;
      if (i + 1 < text.size()) result += text[++i];
    } else if (wildcards && unit == u'"') {
      result += u"^034";
    } else if (!wildcards && (unit == u'\u201C' || unit == u'\u201D')) {
      result += u'"';
    } else if (!wildcards && (unit == u'\u2018' || unit == u'\u2019')) {
      result += u'\'';
    } else {
      result += unit;
    }
  }
  return result;
}

}  // namespace server
