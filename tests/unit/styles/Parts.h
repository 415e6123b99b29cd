#pragma once

#include <pugixml.hpp>

#include <string>

#include "hosts/docx/styles/Styles.h"
#include "hosts/docx/xml/XmlPart.h"

namespace parts {

inline const std::string kTransitional = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";
inline const std::string kStrict = "http://purl.oclc.org/ooxml/wordprocessingml/main";

/// A main document with these blocks.
inline std::string Document(const std::string& blocks, const std::string& uri = kTransitional) {
  return "<w:document xmlns:w=\"" + uri + "\"><w:body>" + blocks + "</w:body></w:document>";
}

inline std::string StylesXml(const std::string& styles, const std::string& uri = kTransitional) {
  return "<w:styles xmlns:w=\"" + uri + "\">" + styles + "</w:styles>";
}

/// The n-th element of that name in document order, from 1; empty when there are fewer.
inline pugi::xml_node Nth(const docx::XmlPart& part, const char* local, int n = 1) {
  const std::string name = part.Name(local);
  return part.Root().find_node([&](pugi::xml_node node) { return name == node.name() && --n == 0; });
}

/// A part of its own for the styles, and what is read of it.
struct StylesOf {
  explicit StylesOf(const std::string& xml) : part("word/styles.xml", StylesXml(xml)), styles(&part) {}
  docx::XmlPart part;
  docx::Styles styles;
};

}  // namespace parts
