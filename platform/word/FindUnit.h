#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

namespace word {

/// Where the next unit of a text stands that is wanted: meant for few in a long text, since compilers look at those
/// between them many at a time.
/// @param from may be the text's size
/// @param wanted a predicate that asks nothing but the unit's value
/// @return the text's size when there is none
template <class Unit, class Wanted>
std::size_t FindUnit(std::basic_string_view<Unit> text, std::size_t from, Wanted wanted) {
  using Flags = std::make_unsigned_t<std::conditional_t<sizeof(Unit) == 1, char, short>>;
  constexpr std::size_t kBlock = 16;
  for (; text.size() - from >= kBlock; from += kBlock) {
    const Unit* const block = text.data() + from;
    Flags any = 0;
    for (std::size_t i = 0; i < kBlock; ++i) any |= static_cast<Flags>(wanted(block[i]));
    if (any != 0) break;
  }
  while (from < text.size() && !wanted(text[from])) ++from;
  return from;
}

/// Puts a unit in the place of each that is wanted, in the same way.
template <class Unit, class Wanted>
void ReplaceUnits(std::basic_string<Unit>& text, std::size_t from, Wanted wanted, Unit by) {
  const auto next = [&](std::size_t at) { return FindUnit(std::basic_string_view<Unit>(text), at, wanted); };
  for (std::size_t at = next(from); at < text.size(); at = next(at + 1)) text[at] = by;
}

}  // namespace word
