#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/docx/layout/Values.h"

namespace docx::layout {

enum class NumberSuffix : std::uint8_t { kTab, kSpace, kNothing };

/// One level of a list.
struct NumberLevel {
  int start{1};
  std::string format{"decimal"};
  std::u16string text;  ///< with %1 to %9 for the numbers of the levels
  NumberSuffix suffix{NumberSuffix::kTab};
  Alignment alignment{Alignment::kLeft};
  bool legal{false};                ///< all numbers in digits
  std::optional<int> restartAfter;  ///< the level, from 1, whose numbers restart this one; 0 for never
  std::string style;                ///< the paragraph style that it belongs to
  CharacterValues run;
  ParagraphFormat paragraph;
  std::optional<int> startOverride;

  bool operator==(const NumberLevel&) const = default;
};

/// The lists that a document defines.
class Numbering {
 public:
  static constexpr std::size_t kLevels = 9;
  struct List {
    std::string abstractId;
    std::array<NumberLevel, kLevels> levels;

    bool operator==(const List&) const = default;
  };

  /// @param part may be nullptr @param styles the styles part, may be nullptr: styles can stand for lists
  Numbering(const XmlPart* part, const XmlPart* styles, FontLibrary& fonts, const ThemeFonts& theme);

  /// nullptr for a number that no list has, "0" among them.
  const List* Find(std::string_view id) const;
  /// The level that belongs to a paragraph style.
  static std::optional<int> LevelOf(const List& list, std::string_view style);
  bool operator==(const Numbering&) const = default;

 private:
  std::map<std::string, List, std::less<>> lists_;
};

/// Counts through a document's numbered paragraphs.
class NumberCounters {
 public:
  /// The text of the next paragraph's label. @param level 0 to 8
  std::u16string Next(const std::string& id, const Numbering::List& list, int level);

 private:
  struct Counter {
    std::array<int, Numbering::kLevels> numbers{};
    std::array<bool, Numbering::kLevels> begun{};
  };
  std::map<std::string, Counter> counters_;                 // by the abstract list
  std::map<std::pair<std::string, int>, bool> overridden_;  // by list and level
};

/// A number in the format that a w:numFmt names.
std::u16string FormatListNumber(std::string_view format, int number);

}  // namespace docx::layout
