#pragma once

#include <string_view>

#include "platform/word/Types.h"

namespace docx {

using word::Position;

/// What a search does at a character.
enum class Treatment {
  kSearched,
  kPassedOver,  ///< as if it were not there: a match may go on behind it
  kBarrier,     ///< no match holds or crosses it
};

/// What a character is, where its code does not tell.
enum class MarkKind { kOther, kFootnote, kEndnote, kSectionBreak };

/// A text to be searched, one UTF-16 unit a position.
class TextSource {
 public:
  /// Neighbouring characters that are treated alike.
  struct Stretch {
    Position start{0};
    std::u16string_view text{};  ///< never empty; valid until the next call
    Treatment treatment{Treatment::kSearched};
  };

  TextSource() = default;
  virtual ~TextSource() = default;
  TextSource(const TextSource&) = delete;
  TextSource& operator=(const TextSource&) = delete;

  virtual Position Length() const = 0;
  /// A stretch that holds the position; it need not be the longest. Quick when the position follows that of the
  /// call before. @pre 0 <= position < Length()
  virtual Stretch StretchAt(Position position) = 0;
  /// @pre 0 <= position < Length()
  virtual MarkKind MarkAt(Position position) = 0;
};

}  // namespace docx
