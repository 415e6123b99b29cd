#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace qt {

inline QString ToQt(std::u16string_view text) {
  return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::u16string FromQt(const QString& text) { return text.toStdU16String(); }

/// A caption without the sign that marks its accelerator.
QString WithoutMnemonic(std::u16string_view caption);

/// The accelerator of a caption, in upper case; 0: it has none.
char16_t MnemonicOf(std::u16string_view caption);

}  // namespace qt
