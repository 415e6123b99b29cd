#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "hosts/docx/layout/Content.h"
#include "hosts/docx/layout/NoteNumbers.h"
#include "hosts/docx/layout/Numbering.h"
#include "hosts/docx/xml/XmlPart.h"

namespace docx::layout {

/// A paragraph that has a number, and the number that it got.
struct NumberUse {
  std::string id;
  const Numbering::List* list{nullptr};
  int level{0};
  std::u16string label;
};

/// What a paragraph or table was read into, with all that this depended on besides the element itself.
struct KnownBlock {
  using ByElement = std::unordered_map<const XmlNodeData*, KnownBlock>;

  Block block;
  std::uint64_t oldest{0};  ///< the reading in which it, or the oldest thing in it, was made
  // Its place in the story.
  Position start{0};
  Position length{0};
  std::size_t atoms{0};
  const XmlNodeData* lastAtom{nullptr};
  // What was around it.
  const TableValues* cell{nullptr};
  int depth{0};
  std::optional<std::u16string> noteMark;  ///< empty where it does not show
  std::vector<NumberUse> numbers;
  /// How notes were counted before it and behind it; empty without notes.
  std::optional<std::pair<NoteNumbers, NoteNumbers>> notes;
  /// The paragraphs and tables in a table.
  std::unique_ptr<ByElement> within;
};

/// What the paragraphs and tables of a part were read into, for the next reading. Whoever was given a block may keep
/// it: it does not change as long as Readers say that it is in use.
class BlockMemory {
 public:
  explicit BlockMemory(const XmlPart& part) : part_(part) {}

  /// @param reading a number that grows @param inUse the last reading of which somebody still has blocks; 0 for none
  void Begin(std::uint64_t reading, std::uint64_t inUse);
  /// Forgets what did not come up again.
  void End();

  /// Those of the last reading, which go over into Now as they come up again.
  KnownBlock::ByElement& Before() { return before_; }
  KnownBlock::ByElement& Now() { return now_; }
  std::uint64_t Reading() const { return reading_; }
  /// Whether the element is as it was in the last reading.
  bool IsUnchanged(XmlNode element) const { return !element.ChangedSince(since_); }
  /// Moves a block to another place in the story; where somebody has the block, a copy of it.
  void Move(KnownBlock& known, Position start) const;
  /// The paragraph of a known block, free to be changed.
  Paragraph& Own(KnownBlock& known) const;

 private:
  void Detach(KnownBlock& known) const;

  const XmlPart& part_;
  KnownBlock::ByElement before_;
  KnownBlock::ByElement now_;
  std::uint64_t reading_{0};
  std::uint64_t inUse_{0};
  std::uint32_t since_{0};  // of the last reading
  std::uint32_t next_{0};   // of this one
};

/// Whether two readings of a paragraph have the same lines wherever they are laid out.
bool HaveSameLines(const Paragraph& a, const Paragraph& b);

}  // namespace docx::layout
