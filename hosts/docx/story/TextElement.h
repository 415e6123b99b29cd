#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <string>
#include <string_view>

namespace docx {

class XmlPart;

/// The text of w:t and w:instrText elements, with XML's rule for blanks: without xml:space="preserve" those at
/// the edges do not count.

/// One unit a position. Control characters, which a text element can only hold as white space, read as blanks.
std::u16string TextOf(XmlNode element);
/// The same behind what `text` holds.
void AppendTextOf(XmlNode element, std::u16string& text);
/// Replaces the text and says xml:space="preserve" where the text needs it.
void SetText(XmlNode element, std::string_view utf8);
/// Divides the text after some units: the element keeps the first part, a new sibling behind it gets the rest.
/// @return the new element
XmlNode DivideText(XmlNode element, std::size_t units);
/// The text, or the instruction in front of it that goes wherever the text goes.
XmlNode WithItsMark(XmlNode element);
/// Whether a text that was joined to another and divided from it again is as it was.
bool ComesBackFromJoining(XmlNode element);
/// Undoes DivideText: the first takes the text of the second, which is removed.
void JoinText(XmlNode first, XmlNode second);

}  // namespace docx
