#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/docx/find/FindCharacters.h"
#include "hosts/docx/find/TextSource.h"

namespace docx {

/// The searched characters between two positions as one contiguous text, read as far as somebody looks.
/// Indices count its units; a cell mark and a barrier read as kBarrier.
class VisibleText {
 public:
  /// A Unicode noncharacter, which XML cannot hold. Also what stands behind the end.
  static constexpr char16_t kBarrier = 0xFFFF;

  /// @pre 0 <= start <= limit <= source.Length()
  VisibleText(TextSource& source, Position start, Position limit);

  /// kBarrier at and behind the end.
  char16_t At(std::size_t index) {
    if (index >= text_.size() && !Read(index)) return kBarrier;
    return text_[index];
  }
  /// The whole character that begins at an index; kBarrier at the end.
  CodePoint CharacterAt(std::size_t index);
  /// There is a character at the index.
  bool Has(std::size_t index) { return index < text_.size() || Read(index); }
  /// What has been read from an index on; empty only at the end.
  std::u16string_view Rest(std::size_t index) {
    return Has(index) ? std::u16string_view(text_).substr(index) : std::u16string_view();
  }
  /// The character before an index and the one at it, seen past the two positions: what word bounds depend on.
  char32_t Before(std::size_t index);
  char32_t After(std::size_t index);
  /// The index stands in the middle of a character.
  bool SplitsCharacter(std::size_t index);

  /// How many units there are. Reads everything.
  std::size_t Size();

  /// The first index whose character stands at a position or behind it; Size() when there is none.
  /// @pre position is not before the text's start
  std::size_t IndexAt(Position position);
  /// Where the character at an index stands. @pre Has(index)
  Position PositionOf(std::size_t index) const;
  MarkKind MarkAt(std::size_t index) { return source_.MarkAt(PositionOf(index)); }

 private:
  struct Segment {
    std::size_t index;
    Position position;
  };

  bool Read(std::size_t index);
  char32_t Neighbour(Position position, int direction);

  TextSource& source_;
  Position start_;
  Position next_;  // to be read
  Position limit_;
  std::size_t step_;
  std::u16string text_;
  std::vector<Segment> segments_;
};

}  // namespace docx
