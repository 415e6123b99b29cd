#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <cstdint>
#include <vector>

#include "hosts/docx/story/Story.h"

namespace docx {

enum class FlowKind : std::uint8_t {
  kParagraphStart,
  kParagraphEnd,  ///< behind the mark
  kSectionEnd,    ///< behind the mark that ends a section; its paragraph's end comes before it
  kLastBreak,     ///< w:lastRenderedPageBreak
  kPageBreak,     ///< behind a w:br for a page
  kColumnBreak,   ///< behind a w:br for a column
  kLineBreak,     ///< behind the break
  kNote,          ///< behind a note's reference
  kRowStart,
  kCellStart,
  kCellEnd,
  kRowEnd,
};

/// One thing in a story that matters for its pages.
struct FlowEvent {
  Position position{0};
  std::uint32_t text{0};  ///< characters that show between the event before and this one; a tab counts as several
  FlowKind kind{FlowKind::kParagraphStart};
  XmlNodeData* element{nullptr};  ///< a w:p, a w:sectPr, a reference, a w:tr, a w:tc
  XmlNodeData* run{nullptr};      ///< of a paragraph's start: its first run with text

  XmlNode Node() const { return XmlNode(element); }
};

/// A stretch of a story.
struct FlowStretch {
  Position start{0};
  Position end{0};
};

/// The text of a story as pages see it. Codes of fields do not show, nor do tracked deletions; breaks and section ends
/// that are deleted are left out.
struct PageFlow {
  std::vector<FlowEvent> events;
  /// Whether Word has left breaks of its last layout, w:lastRenderedPageBreak.
  bool hasLastBreaks{false};
  /// Results of INDEX fields without such a break, in order: what a system put in that does not lay out pages.
  std::vector<FlowStretch> indexes;
};

/// One pass over the story's elements. @param containers those that the story was made of
PageFlow ReadPageFlow(const Story& story, const std::vector<XmlNode>& containers);

/// Where the n-th character that shows stands, counted from 0 at a position outside of a field's code.
/// @return Length() when there are fewer
Position PositionOfShown(const AtomSequence& atoms, Position from, std::uint32_t n);

}  // namespace docx
