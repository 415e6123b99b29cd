#pragma once

#include "marker/FieldScan.h"
#include "platform/word/Types.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace marker {

/// A run of positions of a story.
struct Stretch {
  word::Position begin{0};
  word::Position end{0};
};

/// An entry of ours in a story.
struct OurEntry {
  word::Position begin{0};  ///< of its begin mark
  std::u16string text{};    ///< escapes resolved
};

/// The characters of a range, hidden text and field codes included, one for each position: the two that a cell
/// mark reads as are one.
/// @throws HostError kCommandFailed when the host's text and positions disagree, since whatever is done by
///     offsets into it would hit the wrong place
std::u16string TextByPosition(const word::RangePtr& range);

/// A story's text as its reader has it, read at once, and the way back to positions. It is a snapshot: a later
/// change of the story does not reach it.
///
/// What is left out as if it were not there, so that a term may run across it: fields without a result (the
/// author's index entries among them), tracked deletions and what was moved away, and hidden text. What is
/// left out as a barrier: code and result of every other field, and our own index and lists. Another barrier
/// stands where the index will go.
class StoryText {
 public:
  enum class Hidden { kLeftOut, kKept };
  enum class Results { kLeftOut, kKept };

  /// @param hidden telling hidden text costs a call for each stretch of it; with kKept it is text
  /// @param results of fields; with kKept they are text, and only the codes are left out
  StoryText(const word::DocumentPtr& document, const word::RangePtr& story, Hidden hidden,
            Results results = Results::kLeftOut);

  const std::u16string& Plain() const { return plain_; }

  /// The position of a character of Plain().
  word::Position PositionOf(std::size_t plain) const;
  /// The first character of Plain() at or behind a position; Plain().size() when there is none.
  std::size_t PlainAt(word::Position position) const;
  /// The positions that make up a part of Plain(), without what was left out between them.
  std::vector<Stretch> Stretches(std::size_t begin, std::size_t end) const;

  /// Whether hidden text was left out.
  bool HasHidden() const { return hasHidden_; }

  /// In order of their position.
  const std::vector<OurEntry>& Entries() const { return entries_; }

 private:
  /// Characters from here to the next piece lie at consecutive positions.
  struct Piece {
    std::size_t plain;
    word::Position position;
  };

  void Build(std::u16string_view text, word::Position start, const std::vector<Stretch>& barriers,
             const std::vector<Stretch>& gaps, word::Position indexPlace);
  /// What follows in Plain() stands at the position.
  void Continue(word::Position position);
  void Append(char16_t character, word::Position position);
  /// Appends a text as it reads.
  void AppendReading(std::u16string_view text, word::Position position);

  std::u16string plain_;
  std::vector<Piece> pieces_;
  std::vector<OurEntry> entries_;
  bool hasHidden_{false};
};

}  // namespace marker
