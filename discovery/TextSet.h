#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

/// Looks texts up by what they say, without making a string of what is looked for.
struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::u16string_view text) const { return std::hash<std::u16string_view>()(text); }
};

using TextSet = std::unordered_set<std::u16string, TextHash, std::equal_to<>>;

template <class Value>
using TextMap = std::unordered_map<std::u16string, Value, TextHash, std::equal_to<>>;
