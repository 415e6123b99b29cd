#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace docx {

/// The type of entries without \f, and of an index without it.
inline constexpr char16_t kDefaultIndexType = u'i';

/// One level of an entry: what is printed and what it is sorted by.
struct IndexLevel {
  std::u16string text;
  std::u16string key;  ///< the same as the text unless the entry states one
};

/// What an XE field says. Without levels it says nothing and no index lists it.
struct IndexMark {
  std::vector<IndexLevel> levels{};  ///< at most 9; the entry first, then its subentries
  char16_t type{kDefaultIndexType};  ///< \f: its first character, in small letters; Word takes no notice of the rest
  bool bold{false};                  ///< \b: of the page number
  bool italic{false};                ///< \i: likewise
  std::u16string rangeBookmark{};    ///< \r: the entry stands for all pages of that bookmark
  std::vector<std::u16string> crossReferences{};  ///< \t: printed in the place of a page number
};

/// Reads the code of an XE field. Levels are parted by colons; within a level what follows the last semicolon is
/// the sort key, unless it is empty; a backslash takes the meaning from the character behind it. Blanks around each
/// part do not count, nor do levels without text; levels beyond the ninth are left out.
IndexMark ParseIndexEntry(std::u16string_view code);

/// What the code of an INDEX field asks for, Word's defaults where it is silent. Separators are cut at 5 characters, as
/// Word cuts them.
struct IndexOptions {
  std::u16string bookmark{};               ///< \b: only entries inside it; the caller sees to that
  int columns{0};                          ///< \c: 1 to 4; 0 without it, and then no section of its own
  std::u16string sequenceSeparator{u"-"};  ///< \d
  std::u16string entrySeparator{u", "};    ///< \e: a tab in it puts page numbers at the right tab
  bool hasEntrySeparator{false};
  char16_t type{kDefaultIndexType};                    ///< \f, as in IndexMark
  std::u16string rangeSeparator{u"\u2013"};            ///< \g
  std::optional<std::u16string> heading{};             ///< \h
  std::optional<std::u16string> referenceSeparator{};  ///< \k
  std::u16string pageSeparator{u", "};                 ///< \l
  std::u16string letters{};                            ///< \p: "a--m" or one letter; "!" is what is no letter
  bool runIn{false};                                   ///< \r: subentries stand in the entry's paragraph
  std::u16string sequence{};                           ///< \s: pages are prefixed by this sequence's number
  std::optional<int> language{};                       ///< \z: the locale (LCID) that sorts
};

IndexOptions ParseIndexOptions(std::u16string_view code);

}  // namespace docx
