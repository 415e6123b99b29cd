#pragma once

#include <string>
#include <string_view>

namespace docx::layout {

/// A text in a font of symbols, whose signs have codes of their own, in characters that other fonts have too.
/// @param font its name, in any case @return the text as it is for other fonts
std::u16string ShownSymbols(std::u16string text, std::string_view font);

}  // namespace docx::layout
