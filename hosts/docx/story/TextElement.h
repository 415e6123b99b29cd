#pragma once

#include <pugixml.hpp>

#include <string>
#include <string_view>

namespace docx {

class XmlPart;

/// The text of w:t and w:instrText elements, with XML's rule for blanks: without xml:space="preserve" those at
/// the edges do not count.

/// One unit a position. Control characters, which a text element can only hold as white space, read as blanks.
std::u16string TextOf(pugi::xml_node element);
/// Replaces the text and says xml:space="preserve" where the text needs it.
void SetText(pugi::xml_node element, std::string_view utf8);
/// Divides the text after some units: the element keeps the first part, a new sibling behind it gets the rest.
/// @return the new element
pugi::xml_node DivideText(pugi::xml_node element, std::size_t units);
/// Undoes DivideText: the first takes the text of the second, which is removed.
void JoinText(pugi::xml_node first, pugi::xml_node second);

}  // namespace docx
