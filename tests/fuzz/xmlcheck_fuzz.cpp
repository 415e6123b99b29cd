// Any bytes as an XML part. What passes the check, another parser takes too, and the document holds what that one finds
// and is written as it came, blanks in end tags left out.

#include <pugixml.hpp>

#include "hosts/docx/package/Package.h"
#include "hosts/docx/package/XmlCheck.h"
#include "hosts/docx/xml/XmlDocument.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <string>
#include <string_view>

namespace {

void Require(bool good) {
  if (!good) std::abort();
}

/// Blanks behind the name of an end tag, which no writer makes, are the one thing that is not kept.
bool MayHaveBlanksInEndTags(const std::string& xml) {
  for (std::size_t tag = xml.find("</"); tag != std::string::npos; tag = xml.find("</", tag + 2)) {
    const std::size_t end = xml.find('>', tag);
    if (end != std::string::npos && std::string_view(" \t\r\n").find(xml[end - 1]) != std::string_view::npos)
      return true;
  }
  return false;
}

/// Each element with its attributes, in document order. Deep trees are the check's business.
void Compare(docx::XmlNode ours, pugi::xml_node theirs, int depth) {
  if (depth > 200) return;
  Require(ours.Name() == theirs.name());
  auto attribute = theirs.attributes_begin();
  for (const docx::XmlAttribute& own : ours.Attributes()) {
    Require(attribute != theirs.attributes_end() && own.Name() == attribute->name() &&
            own.Value() == attribute->value());
    ++attribute;
  }
  Require(attribute == theirs.attributes_end());
  std::string ownText;
  std::string theirText;
  pugi::xml_node child = theirs.first_child();
  const auto toElement = [&] {
    while (child && child.type() != pugi::node_element) child = child.next_sibling();
  };
  for (const docx::XmlNode own : ours.Children()) {
    ownText += own.Type() == docx::XmlType::kText ? own.Value() : std::string_view();
    if (!own.IsElement()) continue;
    toElement();
    Require(!child.empty());
    Compare(own, child, depth + 1);
    child = child.next_sibling();
  }
  toElement();
  Require(child.empty());
  for (const pugi::xml_node other : theirs.children()) {
    if (other.type() == pugi::node_pcdata) theirText += other.value();
  }
  Require(ownText == theirText);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string xml;
  try {
    xml = docx::ToUtf8(std::string(reinterpret_cast<const char*>(data), size), "part.xml");
    docx::CheckXml(xml, "part.xml");
  } catch (const docx::PackageError&) {
    return 0;
  }
  // A character that no text in memory holds would end the other parser's.
  if (xml.find("&#0") != std::string::npos || xml.find("&#x0") != std::string::npos) return 0;
  pugi::xml_document other;
  Require(static_cast<bool>(
      other.load_buffer(xml.data(), xml.size(), pugi::parse_full | pugi::parse_ws_pcdata, pugi::encoding_utf8)));
  docx::XmlDocument document(xml, "part.xml");
  const bool isKept = !MayHaveBlanksInEndTags(xml);
  Require(!isKept || document.Serialize() == xml);
  Compare(document.Root(), other.document_element(), 0);
  Require(!isKept || document.Serialize() == xml);
  // Not a name of the document's own.
  std::string added = "kelvarin";
  while (xml.find(added) != std::string::npos) added += '_';
  document.Root().SetAttribute(added, "1");
  document.Root().RemoveAttribute(added);
  docx::XmlNode child = document.Root().AppendChild(document.Name(added));
  document.Root().RemoveChild(child);
  docx::XmlDocument again(document.Serialize(), "part.xml");
  Compare(again.Root(), other.document_element(), 0);
  return 0;
}
