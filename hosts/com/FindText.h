#pragma once

#include <string>
#include <string_view>

namespace com {

/// A search text as Word has to be given it so that it finds what our rules say: a straight double quote finds straight
/// and curly ones, a curly quote of either kind only itself.
///
/// In a plain search Word takes all styles of a quote for one; exact are only the codes of characters. In a wildcard
/// search it takes each quote for itself.
std::u16string ForWord(std::u16string_view text, bool wildcards);

}  // namespace com
