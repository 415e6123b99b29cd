#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <string>
#include <utility>

#include "hosts/docx/styles/Formatting.h"
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
inline docx::XmlNode Nth(const docx::XmlPart& part, const char* local, int n = 1) {
  docx::XmlNode node = part.Root();
  while (true) {
    if (node.Is(part.Name(local)) && --n == 0) return node;
    if (node.FirstChild()) {
      node = node.FirstChild();
      continue;
    }
    while (node && !node.NextSibling()) node = node.Parent();
    if (!node) return node;
    node = node.NextSibling();
  }
}

/// A part of its own for the styles, and what is read of it.
struct StylesOf {
  explicit StylesOf(const std::string& xml) : part("word/styles.xml", StylesXml(xml)), styles(&part) {}
  docx::XmlPart part;
  docx::Styles styles;
};

/// An element in a main document, with styles.
class Sample {
 public:
  /// @param local the element's name; the first of that name counts
  /// @param blocks the document's @param behind what follows the element's start
  Sample(const char* local, const std::string& blocks, std::string behind, const std::string& styles,
         const std::string& uri = kTransitional)
      : local_(local),
        behind_(std::move(behind)),
        part_("word/document.xml", Document(blocks, uri)),
        styles_(styles),
        formatting_(part_, styles_.styles) {}

  const docx::Formatting& Format() const { return formatting_; }
  docx::XmlNode Node() const { return Nth(part_, local_); }
  const docx::XmlPart& Part() const { return part_; }
  /// What the element starts with now.
  std::string Start() const {
    const std::string xml = part_.Serialize();
    const std::string begin = std::string("<w:") + local_ + ">";
    const std::size_t from = xml.find(begin) + begin.size();
    return xml.substr(from, xml.find(behind_) - from);
  }

 private:
  const char* local_;
  std::string behind_;
  docx::XmlPart part_;
  StylesOf styles_;
  docx::Formatting formatting_;
};

}  // namespace parts
