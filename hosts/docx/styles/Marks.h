#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <string>
#include <string_view>

namespace docx {

/// Processing instructions of the system's own, <?kelvarin text?>, by which a change to the XML says what was there
/// before. Word reads past them.

/// The first such child whose text is the word, or the word, a blank and more; empty when there is none.
XmlNode FindMark(XmlNode parent, std::string_view word);
/// What stands behind the word and its blank.
std::string MarkText(XmlNode mark, std::string_view word);
/// Makes a node, just inserted as a node_pi, such a mark.
void MakeMark(XmlNode instruction, const std::string& text);

}  // namespace docx
