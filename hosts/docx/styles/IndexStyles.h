#pragma once

#include <string>

#include "hosts/docx/xml/XmlPart.h"

namespace docx {

// The built-in paragraph styles "index 1" to "index 9" and "index heading", which a document has only after their first
// use. What is added is marked (<?kelvarin added?>), so that it can be taken away again and nothing else.

/// A styles part for a document that has none, with Word's plain "Normal": its XML. The caller adds the part with its
/// relationship and content type.
std::string NewStylesPart(bool strict);

/// Stands for "index heading" among the levels.
inline constexpr int kIndexHeadingLevel = 0;
/// The name of a level's style.
std::string IndexStyleName(int level);

/// Sees to it that the style exists, as Word makes it: based on "Normal", single spaced, with a hanging indent of its
/// font size; a heading instead bold. A style of that name that is there stays as it is.
/// @param level 1 to 9, or kIndexHeadingLevel
/// @return the style's id
std::string EnsureIndexStyle(XmlPart& styles, int level);

struct RemovedIndexStyles {
  bool changed{false};
  /// The part came from NewStylesPart and nobody has added anything: the caller removes it, with its relationship.
  bool wholePart{false};
};

/// Takes away what EnsureIndexStyle and NewStylesPart added, whether or not a paragraph still uses it. Of a new part
/// that has other styles by now the part and "Normal" stay, without marks.
RemovedIndexStyles RemoveAddedIndexStyles(XmlPart& styles);

}  // namespace docx
