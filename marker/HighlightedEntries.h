#pragma once

#include "marker/Letters.h"
#include "marker/StoryText.h"
#include "platform/word/Types.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace marker {

/// Finds what marking highlighted from the entries it left: the yellow text directly before an entry, or before
/// the possessive ending in front of it, that reads as the entry says.
class HighlightedEntries {
 public:
  /// Both must outlive this object. @param text the story as it stands, entries included
  HighlightedEntries(const Letters& letters, const StoryText& text);

  /// @param range a range of the story, which is moved about
  /// @return the yellow stretches of the entry's occurrence; nothing where the text does not agree with the entry
  std::optional<std::vector<Stretch>> Exactly(const word::RangePtr& range, word::Position entry,
                                              std::u16string_view entryText);
  /// For a text that was edited since.
  /// @param range a range of the story, which is moved about
  /// @return the yellow text that ends there, the author's before it included; nothing where the entry is yellow as
  ///     well: we highlight no entry, so that yellow is somebody else's
  std::vector<Stretch> Roughly(const word::RangePtr& range, word::Position entry) const;

 private:
  static constexpr std::size_t kNoQuote = static_cast<std::size_t>(-1);
  /// One that an entry may stand behind.
  struct Spelling {
    std::u16string folded;
    /// Where a quotation mark stands that was moved past an article since, which is no part of the occurrence.
    std::size_t movedQuote{kNoQuote};
  };
  using Spellings = std::vector<Spelling>;

  /// Where the word in front of an entry ends: before its possessive ending.
  std::size_t WordEnd(std::size_t end) const;
  const Spellings& SpellingsOf(std::u16string_view entryText);
  std::u16string Shown(std::size_t begin, std::size_t end) const;
  std::optional<std::vector<Stretch>> YellowBefore(const word::RangePtr& range, std::size_t end,
                                                   const Spellings& spellings) const;
  std::optional<std::vector<Stretch>> YellowOfCutBefore(const word::RangePtr& range, std::size_t first, std::size_t end,
                                                        const Spellings& spellings) const;
  /// Where the text begins that no entry of ours before this one stands in or behind.
  std::size_t BehindEntryBefore(word::Position entry) const;

  const Letters& letters_;
  const StoryText& text_;
  std::unordered_map<std::u16string, Spellings> spellings_;
};

}  // namespace marker
