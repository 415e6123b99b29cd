#include "hosts/qt/document/PageFonts.h"

#include <cmath>

#include "hosts/qt/Text.h"

namespace qt {

namespace {

/// Sizes are told apart by so much of a pixel.
constexpr double kStep = 1.0 / 16;
/// Zooming makes new sizes all the time.
constexpr std::size_t kMost = 400;

}  // namespace

QFont PageFonts::Large(const page::Face& face) {
  QFont font(ToQt(face.family));
  font.setPixelSize(kLarge);
  font.setBold(face.bold);
  font.setItalic(face.italic);
  // Lines are measured without hinting, so it must not change widths here either.
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

const QRawFont& PageFonts::Raw(const page::Face& face, double pixels) {
  const int steps = static_cast<int>(std::lround(pixels / kStep));
  const Key key{face.family, face.bold, face.italic, steps};
  const auto known = fonts_.find(key);
  if (known != fonts_.end()) return known->second;
  if (fonts_.size() >= kMost) fonts_.clear();
  QRawFont raw = QRawFont::fromFont(Large(face));
  raw.setPixelSize(std::max(1, steps) * kStep);
  return fonts_[key] = raw;
}

}  // namespace qt
