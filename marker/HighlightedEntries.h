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
  /// The spellings an entry may stand behind, folded.
  struct Spellings {
    std::u16string plain;
    std::u16string upper;
  };

  /// Where the word in front of an entry ends: before its possessive ending.
  std::size_t WordEnd(std::size_t end) const;
  const Spellings& SpellingsOf(std::u16string_view entryText);
  std::u16string Shown(std::size_t begin, std::size_t end) const;
  std::size_t LengthBefore(std::size_t end, const Spellings& spellings) const;
  std::size_t LengthOfCutBefore(const word::RangePtr& range, std::size_t first, std::size_t end,
                                const Spellings& spellings) const;
  std::vector<Stretch> Yellow(const word::RangePtr& range, std::size_t begin, std::size_t end) const;
  /// Where the text begins that no entry of ours before this one stands in or behind.
  std::size_t BehindEntryBefore(word::Position entry) const;

  const Letters& letters_;
  const StoryText& text_;
  std::unordered_map<std::u16string, Spellings> spellings_;
};

}  // namespace marker
