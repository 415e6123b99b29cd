#include "hosts/docx/xml/XmlPart.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

#include "hosts/docx/package/Package.h"
#include "hosts/docx/package/XmlCheck.h"

namespace docx {

namespace {

enum class Space : std::uint8_t { kOther, kWord, kCompatibility, kWordDrawing, kMath };

struct NamespaceUri {
  std::string_view uri;
  Space space;
  bool strict;
};

constexpr std::array kNamespaces{
    NamespaceUri{"http://schemas.openxmlformats.org/wordprocessingml/2006/main", Space::kWord, false},
    NamespaceUri{"http://purl.oclc.org/ooxml/wordprocessingml/main", Space::kWord, true},
    NamespaceUri{"http://schemas.openxmlformats.org/markup-compatibility/2006", Space::kCompatibility, false},
    NamespaceUri{"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing", Space::kWordDrawing, false},
    NamespaceUri{"http://purl.oclc.org/ooxml/drawingml/wordprocessingDrawing", Space::kWordDrawing, true},
    NamespaceUri{"http://schemas.openxmlformats.org/officeDocument/2006/math", Space::kMath, false},
    NamespaceUri{"http://purl.oclc.org/ooxml/officeDocument/math", Space::kMath, true},
};

const NamespaceUri* FindUri(std::string_view uri) {
  for (const NamespaceUri& known : kNamespaces) {
    if (known.uri == uri) return &known;
  }
  return nullptr;
}

struct NamedTag {
  Space space;
  std::string_view local;
  Tag tag;
};

constexpr std::array kTags{
    NamedTag{Space::kWord, "body", Tag::kBody},
    NamedTag{Space::kWord, "p", Tag::kP},
    NamedTag{Space::kWord, "pPr", Tag::kPPr},
    NamedTag{Space::kWord, "tbl", Tag::kTbl},
    NamedTag{Space::kWord, "tr", Tag::kTr},
    NamedTag{Space::kWord, "tc", Tag::kTc},
    NamedTag{Space::kWord, "trPr", Tag::kTrPr},
    NamedTag{Space::kWord, "sdt", Tag::kSdt},
    NamedTag{Space::kWord, "sdtContent", Tag::kSdtContent},
    NamedTag{Space::kWord, "customXml", Tag::kCustomXml},
    NamedTag{Space::kWord, "sectPr", Tag::kSectPr},
    NamedTag{Space::kWord, "footnotes", Tag::kFootnotes},
    NamedTag{Space::kWord, "footnote", Tag::kFootnote},
    NamedTag{Space::kWord, "endnotes", Tag::kEndnotes},
    NamedTag{Space::kWord, "endnote", Tag::kEndnote},
    NamedTag{Space::kWord, "comments", Tag::kComments},
    NamedTag{Space::kWord, "comment", Tag::kComment},
    NamedTag{Space::kWord, "hdr", Tag::kHdr},
    NamedTag{Space::kWord, "ftr", Tag::kFtr},
    NamedTag{Space::kWord, "txbxContent", Tag::kTxbxContent},
    NamedTag{Space::kWord, "r", Tag::kR},
    NamedTag{Space::kWord, "rPr", Tag::kRPr},
    NamedTag{Space::kWord, "hyperlink", Tag::kHyperlink},
    NamedTag{Space::kWord, "smartTag", Tag::kSmartTag},
    NamedTag{Space::kWord, "ins", Tag::kIns},
    NamedTag{Space::kWord, "del", Tag::kDel},
    NamedTag{Space::kWord, "moveFrom", Tag::kMoveFrom},
    NamedTag{Space::kWord, "moveTo", Tag::kMoveTo},
    NamedTag{Space::kWord, "dir", Tag::kDir},
    NamedTag{Space::kWord, "bdo", Tag::kBdo},
    NamedTag{Space::kWord, "fldSimple", Tag::kFldSimple},
    NamedTag{Space::kWord, "t", Tag::kT},
    NamedTag{Space::kWord, "delText", Tag::kDelText},
    NamedTag{Space::kWord, "instrText", Tag::kInstrText},
    NamedTag{Space::kWord, "delInstrText", Tag::kDelInstrText},
    NamedTag{Space::kWord, "tab", Tag::kTab},
    NamedTag{Space::kWord, "ptab", Tag::kPTab},
    NamedTag{Space::kWord, "br", Tag::kBr},
    NamedTag{Space::kWord, "cr", Tag::kCr},
    NamedTag{Space::kWord, "noBreakHyphen", Tag::kNoBreakHyphen},
    NamedTag{Space::kWord, "softHyphen", Tag::kSoftHyphen},
    NamedTag{Space::kWord, "sym", Tag::kSym},
    NamedTag{Space::kWord, "fldChar", Tag::kFldChar},
    NamedTag{Space::kWord, "footnoteReference", Tag::kFootnoteReference},
    NamedTag{Space::kWord, "endnoteReference", Tag::kEndnoteReference},
    NamedTag{Space::kWord, "footnoteRef", Tag::kFootnoteRef},
    NamedTag{Space::kWord, "endnoteRef", Tag::kEndnoteRef},
    NamedTag{Space::kWord, "commentReference", Tag::kCommentReference},
    NamedTag{Space::kWord, "separator", Tag::kSeparator},
    NamedTag{Space::kWord, "continuationSeparator", Tag::kContinuationSeparator},
    NamedTag{Space::kWord, "drawing", Tag::kDrawing},
    NamedTag{Space::kWord, "object", Tag::kObject},
    NamedTag{Space::kWord, "pict", Tag::kPict},
    NamedTag{Space::kWord, "ruby", Tag::kRuby},
    NamedTag{Space::kWord, "lastRenderedPageBreak", Tag::kLastRenderedPageBreak},
    NamedTag{Space::kWord, "bookmarkStart", Tag::kBookmarkStart},
    NamedTag{Space::kWord, "bookmarkEnd", Tag::kBookmarkEnd},
    NamedTag{Space::kWord, "proofErr", Tag::kProofErr},
    NamedTag{Space::kCompatibility, "AlternateContent", Tag::kAlternateContent},
    NamedTag{Space::kCompatibility, "Choice", Tag::kChoice},
    NamedTag{Space::kCompatibility, "Fallback", Tag::kFallback},
    NamedTag{Space::kWordDrawing, "inline", Tag::kInline},
    NamedTag{Space::kWordDrawing, "anchor", Tag::kAnchor},
    NamedTag{Space::kMath, "oMath", Tag::kOMath},
    NamedTag{Space::kMath, "oMathPara", Tag::kOMathPara},
};

/// The prefix that an attribute declares ("" for xmlns itself), or nothing.
const char* DeclaredPrefix(const pugi::xml_attribute& attribute) {
  const std::string_view name = attribute.name();
  if (name == "xmlns") return attribute.name() + 5;
  if (name.starts_with("xmlns:")) return attribute.name() + 6;
  return nullptr;
}

/// What a prefix means at a node.
const NamespaceUri* Resolve(std::string_view prefix, pugi::xml_node node) {
  for (; node; node = node.parent()) {
    for (const pugi::xml_attribute attribute : node.attributes()) {
      const char* declared = DeclaredPrefix(attribute);
      if (declared != nullptr && prefix == declared) return FindUri(attribute.value());
    }
  }
  return nullptr;
}

/// Much faster than find() in XML, where the first letter of any word is everywhere.
bool Holds(std::string_view text, std::string_view word) {
  return std::search(text.begin(), text.end(), std::boyer_moore_horspool_searcher(word.begin(), word.end())) !=
         text.end();
}

/// Whether namespaces are declared below the root too, which is seldom and costs a walk through everything. May say
/// yes for nothing.
bool DeclaresBelowRoot(std::string_view xml) {
  std::size_t root = xml.find('<');
  while (root + 1 < xml.size() && (xml[root + 1] == '?' || xml[root + 1] == '!')) root = xml.find('<', root + 1);
  const std::size_t end = xml.find('>', root);
  return end != std::string_view::npos && Holds(xml.substr(end), "xmlns");
}

/// Visits every element below a node without recursion.
template <typename Visit>
void ForEachDescendant(pugi::xml_node root, Visit visit) {
  pugi::xml_node node = root;
  while (true) {
    if (const pugi::xml_node child = node.first_child()) {
      node = child;
    } else {
      while (node != root && !node.next_sibling()) node = node.parent();
      if (node == root) return;
      node = node.next_sibling();
    }
    if (node.type() == pugi::node_element) visit(node);
  }
}

}  // namespace

namespace {

/// A line end as Word writes it where there is no declaration.
std::string BlanksAfterDeclaration(std::string_view xml) {
  const std::size_t end = xml.starts_with("<?xml") ? xml.find("?>") : std::string_view::npos;
  if (end == std::string_view::npos) return "\r\n";
  const std::string_view rest = xml.substr(end + 2);
  return std::string(rest.substr(0, rest.find_first_not_of(" \t\r\n")));
}

}  // namespace

XmlPart::XmlPart(std::string name, std::string bytes)
    : name_(std::move(name)), bytes_(ToUtf8(std::move(bytes), name_)) {
  CheckXml(bytes_, name_);
  afterDeclaration_ = BlanksAfterDeclaration(bytes_);
  // Parsing in place spoils the bytes, and a look at them is far cheaper than a walk through the elements.
  const bool declaresBelowRoot = DeclaresBelowRoot(bytes_);
  hasTextBoxes_ = Holds(bytes_, "txbxContent");
  constexpr unsigned kFlags = (pugi::parse_full | pugi::parse_ws_pcdata) & ~pugi::parse_doctype;
  const pugi::xml_parse_result result =
      document_.load_buffer_inplace(bytes_.data(), bytes_.size(), kFlags, pugi::encoding_utf8);
  if (!result || !document_.document_element()) {
    throw PackageError("is damaged: its part " + name_ + " is not well-formed XML");
  }
  ReadNamespaces(declaresBelowRoot);
}

void XmlPart::ReadNamespaces(bool declaresBelowRoot) {
  const pugi::xml_node root = Root();
  std::unordered_map<std::string_view, std::string_view> declared;
  bool found = false;
  for (const pugi::xml_attribute attribute : root.attributes()) {
    const char* prefix = DeclaredPrefix(attribute);
    if (prefix == nullptr) continue;
    declared[prefix] = attribute.value();
    const NamespaceUri* known = FindUri(attribute.value());
    if (known == nullptr || known->space != Space::kWord) continue;
    // An attribute needs a prefix, so one that has it is preferred to the default namespace.
    if (!found || prefix_.empty()) prefix_ = *prefix == '\0' ? "" : std::string(prefix) + ":";
    strict_ = known->strict;
    found = true;
  }
  if (declaresBelowRoot) {
    ForEachDescendant(root, [&](pugi::xml_node node) {
      for (const pugi::xml_attribute attribute : node.attributes()) {
        const char* prefix = DeclaredPrefix(attribute);
        if (prefix == nullptr) continue;
        const auto [at, added] = declared.try_emplace(prefix, attribute.value());
        if (!added && at->second != attribute.value()) scoped_ = true;
      }
    });
  }
  // A prefix that is declared below the root only means one thing wherever it is used, unless scoped_.
  for (const auto& [prefix, uri] : declared) {
    const NamespaceUri* known = FindUri(uri);
    if (known == nullptr) continue;
    for (const NamedTag& named : kTags) {
      if (named.space != known->space) continue;
      std::string qualified =
          prefix.empty() ? std::string(named.local) : std::string(prefix) + ":" + std::string(named.local);
      const auto [kept, added] = names_.try_emplace(qualified, qualified);
      tags_.emplace(kept->first, named.tag);
    }
  }
  if (!found) prefix_ = "w:";
}

Tag XmlPart::TagOf(pugi::xml_node node) const {
  const std::string_view qualified = node.name();
  if (scoped_) return Lookup(qualified, node);
  const auto found = tags_.find(qualified);
  return found == tags_.end() ? Tag::kOther : found->second;
}

Tag XmlPart::Lookup(std::string_view qualified, pugi::xml_node node) const {
  const std::size_t colon = qualified.find(':');
  const std::string_view prefix = colon == std::string_view::npos ? std::string_view() : qualified.substr(0, colon);
  const std::string_view local = colon == std::string_view::npos ? qualified : qualified.substr(colon + 1);
  const NamespaceUri* known = Resolve(prefix, node);
  if (known == nullptr) return Tag::kOther;
  for (const NamedTag& named : kTags) {
    if (named.space == known->space && named.local == local) return named.tag;
  }
  return Tag::kOther;
}

pugi::xml_node XmlPart::Child(pugi::xml_node parent, Tag tag) const {
  for (const pugi::xml_node child : parent.children()) {
    if (child.type() == pugi::node_element && TagOf(child) == tag) return child;
  }
  return {};
}

const char* XmlPart::Name(std::string_view local) const {
  std::string key = prefix_;
  key += local;
  const auto found = names_.find(key);
  if (found != names_.end()) return found->second.c_str();
  return names_.emplace(key, key).first->second.c_str();
}

pugi::xml_attribute XmlPart::Attribute(pugi::xml_node node, const char* local) const {
  for (const pugi::xml_attribute attribute : node.attributes()) {
    const std::string_view name = attribute.name();
    if (name.size() > prefix_.size() && name.starts_with(prefix_) && name.substr(prefix_.size()) == local) {
      return attribute;
    }
  }
  return {};
}

void XmlPart::SetAttribute(pugi::xml_node node, const char* local, const char* value) {
  pugi::xml_attribute attribute = Attribute(node, local);
  if (!attribute) attribute = node.append_attribute(Name(local));
  attribute.set_value(value);
}

namespace {

bool IsUtf8(std::string_view encoding) {
  constexpr std::string_view kUtf8 = "utf-8";
  return std::equal(encoding.begin(), encoding.end(), kUtf8.begin(), kUtf8.end(), [](char given, char known) {
    return (given >= 'A' && given <= 'Z' ? given - 'A' + 'a' : given) == known;
  });
}

struct SinkWriter : pugi::xml_writer {
  explicit SinkWriter(const TextSink& to) : sink(to) {}
  void write(const void* data, std::size_t size) override { sink({static_cast<const char*>(data), size}); }
  const TextSink& sink;
};

}  // namespace

void XmlPart::Write(const TextSink& sink) const {
  SinkWriter writer(sink);
  for (const pugi::xml_node node : document_.children()) {
    if (node.type() != pugi::node_declaration) {
      node.print(writer, "", pugi::format_raw, pugi::encoding_utf8);
      continue;
    }
    // The text is UTF-8 now, whatever it was.
    sink("<?xml");
    for (const pugi::xml_attribute attribute : node.attributes()) {
      const bool encoding = std::string_view(attribute.name()) == "encoding";
      const std::string value = encoding && !IsUtf8(attribute.value()) ? "UTF-8" : attribute.value();
      sink(std::string(" ") + attribute.name() + "=\"" + value + "\"");
    }
    sink("?>" + afterDeclaration_);
  }
}

std::string XmlPart::Serialize() const {
  std::string text;
  Write([&](std::string_view piece) { text += piece; });
  return text;
}

}  // namespace docx
