#pragma once

#include <span>
#include <string>
#include <string_view>

namespace docx::layout {

/// How far a font reaches above and below the base line, and the leading its maker wants, in ems.
struct LineMetrics {
  double ascent{0};
  double descent{0};
  double gap{0};

  double Height() const { return ascent + descent + gap; }
};

/// What stands in for a font that is not installed.
struct StandIn {
  const char* family;     ///< to take instead
  double widthFactor{1};  ///< its advances times this are near those of the font
  LineMetrics line;       ///< the font's own; height 0 for those of the family that stands in
};

/// The stand-ins to try in turn for a family known by name. Empty for one that is not known.
/// @param name in lower case
std::span<const StandIn> StandInsFor(std::string_view name);

/// The kind of letters that a family which nobody knows has.
enum class FontClass { kRoman, kSwiss, kModern };

/// The last resort: @return families in the order of preference
std::span<const StandIn> StandInsFor(FontClass kind);

/// ASCII letters in lower case.
std::string FoldFontName(std::string_view name);

}  // namespace docx::layout
