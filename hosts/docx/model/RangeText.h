#pragma once

#include <functional>
#include <string>

#include "hosts/docx/story/Story.h"
#include "hosts/docx/styles/Formatting.h"
#include "platform/word/Types.h"

namespace docx {

/// Every character of a stretch; marks of cells and rows read as 13 and 7.
std::u16string AllText(const Story& story, Position start, Position end);

/// What a reader sees of a stretch: no tracked deletions; fields as their results unless codes are wanted; hidden text
/// only when wanted. Marks of cells and rows read as 13 and 7.
std::u16string ShownText(const Story& story, const Formatting& formats, Position start, Position end, bool fieldCodes,
                         bool hidden);

/// Whether paragraph marks are asked for a value, too.
enum class Marks { kPassOver, kCount };

/// The value that all runs with text in the stretch have, and the paragraph marks if those count, or wdUndefined. An
/// empty stretch has that of the character before it, as text typed there would. Nothing to ask: the value of an empty
/// node.
int CommonValue(const Story& story, Position start, Position end, Marks marks,
                const std::function<int(XmlNode node)>& value);

}  // namespace docx
