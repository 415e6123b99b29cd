#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace docx::layout {

/// Whether a line may end behind each unit of a text: where blanks end, behind hyphens and dashes, and between the
/// characters of scripts that write no blanks. Blanks stay at the end of their line.
/// @param breaks gets one entry a unit
void FindBreaks(std::u16string_view text, std::vector<std::uint8_t>& breaks);

/// Blanks that hang over the end of a line.
bool IsHangingBlank(char16_t c);
/// Whether it may stand beyond the end of a line.
bool IsHangingPunctuation(char16_t c);

}  // namespace docx::layout
