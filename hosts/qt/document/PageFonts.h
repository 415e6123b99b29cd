#pragma once

#include <QFont>
#include <QRawFont>

#include <map>
#include <tuple>

#include "platform/page/Display.h"

namespace qt {

/// The fonts of pages in the sizes in which they are drawn.
class PageFonts {
 public:
  /// @param pixels of an em @return valid until the next call; may be invalid where no font is installed
  const QRawFont& Raw(const page::Face& face, double pixels);
  /// For text that has to be shaped, so large that its size in whole pixels does not matter.
  static QFont Large(const page::Face& face);
  static constexpr int kLarge = 128;  ///< pixels of an em

 private:
  using Key = std::tuple<std::string, bool, bool, int>;
  std::map<Key, QRawFont> fonts_;
};

}  // namespace qt
