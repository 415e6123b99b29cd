#include "hosts/qt/Text.h"

namespace qt {

QString WithoutMnemonic(std::u16string_view caption) {
  QString plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && i + 1 < caption.size()) ++i;
    plain += QChar(caption[i]);
  }
  return plain;
}

char16_t MnemonicOf(std::u16string_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != u'&') continue;
    if (caption[i + 1] != u'&') return QChar(caption[i + 1]).toUpper().unicode();
    ++i;
  }
  return 0;
}

}  // namespace qt
