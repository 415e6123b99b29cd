#include "hosts/docx/layout/Colors.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "hosts/docx/layout/Values.h"
#include "hosts/docx/styles/PropertyValues.h"

namespace docx::layout {

namespace {

constexpr std::size_t kHexDigits = 6;
constexpr int kWholePattern = 100;

/// By WdColorIndex.
constexpr std::array<page::Color, 17> kHighlights = {page::kNoColor, 0x000000, 0x0000ff, 0x00ffff, 0x00ff00, 0xff00ff,
                                                     0xff0000,       0xffff00, 0xffffff, 0x000080, 0x008080, 0x008000,
                                                     0x800080,       0x800000, 0x808000, 0x808080, 0xc0c0c0};

/// How much of a pattern is its foreground, in per cent.
int ShareOf(std::string_view pattern) {
  if (pattern == "solid") return kWholePattern;
  if (pattern.starts_with("pct")) {
    int share = 0;
    std::from_chars(pattern.data() + 3, pattern.data() + pattern.size(), share);
    return std::clamp(share, 0, kWholePattern);
  }
  if (pattern.empty() || pattern == "clear" || pattern == "nil") return 0;
  return pattern.starts_with("thin") ? 25 : kWholePattern / 2;
}

int Channel(page::Color color, int shift) { return color >> shift & 0xff; }

page::Color Mix(page::Color front, page::Color back, int share) {
  page::Color mixed = 0;
  for (const int shift : {16, 8, 0}) {
    mixed |= (Channel(front, shift) * share + Channel(back, shift) * (kWholePattern - share)) / kWholePattern << shift;
  }
  return mixed;
}

}  // namespace

std::optional<page::Color> ParseColor(std::string_view text) {
  if (text == "auto") return page::kNoColor;
  page::Color color = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), color, 16);
  if (text.size() != kHexDigits || error != std::errc() || end != text.data() + text.size()) return {};
  return color;
}

page::Color HighlightColor(const XmlPart& part, XmlNode highlight) {
  const int index = ReadHighlight(part, highlight).value_or(0);
  return index >= 0 && index < static_cast<int>(kHighlights.size()) ? kHighlights[static_cast<std::size_t>(index)]
                                                                    : page::kNoColor;
}

std::optional<page::Color> ShadingColor(const XmlPart& part, XmlNode shd) {
  if (!shd) return {};
  const int share = ShareOf(ValueOf(part, shd));
  const page::Color back = ParseColor(part.Attribute(shd, "fill").Value()).value_or(page::kNoColor);
  if (share == 0) return back;
  const page::Color front = ParseColor(part.Attribute(shd, "color").Value()).value_or(page::kNoColor);
  constexpr page::Color kWhite = 0xffffff;
  return Mix(front == page::kNoColor ? page::kBlack : front, back == page::kNoColor ? kWhite : back, share);
}

bool IsDark(page::Color color) {
  if (color == page::kNoColor) return false;
  // The weights of the colours in brightness, in per mille.
  const int brightness = Channel(color, 16) * 299 + Channel(color, 8) * 587 + Channel(color, 0) * 114;
  return brightness < 90 * 1000;
}

}  // namespace docx::layout
