#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include "hosts/docx/styles/Formatting.h"
#include "hosts/docx/xml/XmlPart.h"

#include <cstddef>
#include <string_view>
#include <unordered_map>

namespace docx {

// Setters of direct character formatting. The node is a w:r, or a w:p for its paragraph mark. A value that already
// shows changes nothing; one that shows without direct formatting takes the direct formatting away. Each returns
// whether it changed the XML, and then touches the part. Neither styles nor the text are changed.

/// Laying a highlight and setting the one that showed before gives back the very same XML: what a bare removal could
/// not know stays in the w:rPr as a mark, <?kelvarin keep?> in one that was empty, and <?kelvarin highlight none?>
/// where that value stood and would have shown anyway.
/// @param colorIndex a WdColorIndex @throws std::out_of_range unless 0 <= colorIndex <= 16
bool SetHighlight(const Formatting& formatting, XmlNode node, int colorIndex);
bool SetBold(const Formatting& formatting, XmlNode node, bool bold);
/// @param color red lowest, or wdColorAutomatic. A theme colour is dropped.
bool SetColor(const Formatting& formatting, XmlNode node, int color);

/// Whether two nodes are equal with all that they hold.
bool SameTree(XmlNode first, XmlNode second);

/// Sets the highlights of a part's runs. A document's runs have few properties that differ, so what became of some is
/// remembered as text and given to the next run that has them.
class Highlighter {
 public:
  /// @param formatting outlives it
  explicit Highlighter(const Formatting& formatting) : formatting_(formatting) {}

  /// What SetHighlight does.
  bool Set(XmlNode run, int colorIndex);

 private:
  struct Edit {
    std::string_view properties;
    int inherited;
    int colorIndex;

    bool operator==(const Edit&) const = default;
  };
  struct Hash {
    std::size_t operator()(const Edit& edit) const;
  };

  const Formatting& formatting_;
  std::unordered_map<Edit, std::string_view, Hash> edited_;
};

/// Whether two runs differ in nothing but their content, so that they can be joined: the same attributes, in any order,
/// and the same w:rPr down to its marks.
bool SameRunFormatting(const XmlPart& part, XmlNode first, XmlNode second);

}  // namespace docx
