#include "hosts/docx/xml/XmlPart.h"

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_map>
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

constexpr std::string_view kDeclaration = "xmlns";

/// The prefix that an attribute declares, empty for xmlns itself; nothing when it declares none.
std::optional<std::string_view> DeclaredPrefix(const XmlAttribute& attribute) {
  std::string_view name = attribute.Name();
  if (!name.starts_with(kDeclaration)) return std::nullopt;
  name.remove_prefix(kDeclaration.size());
  if (name.empty()) return name;
  return name.front() == ':' ? std::optional(name.substr(1)) : std::nullopt;
}

/// What a prefix means at a node.
const NamespaceUri* Resolve(std::string_view prefix, XmlNode node) {
  for (; node; node = node.Parent()) {
    for (const XmlAttribute& attribute : node.Attributes()) {
      if (DeclaredPrefix(attribute) == prefix) return FindUri(attribute.Value());
    }
  }
  return nullptr;
}

/// Visits every element below a node without recursion.
template <typename Visit>
void ForEachDescendant(XmlNode root, Visit visit) {
  XmlNode node = root;
  while (true) {
    if (const XmlNode child = node.FirstChild()) {
      node = child;
    } else {
      while (node != root && !node.NextSibling()) node = node.Parent();
      if (node == root) return;
      node = node.NextSibling();
    }
    if (node.IsElement()) visit(node);
  }
}

bool IsUtf8(std::string_view encoding) {
  constexpr std::string_view kUtf8 = "utf-8";
  return std::equal(encoding.begin(), encoding.end(), kUtf8.begin(), kUtf8.end(), [](char given, char known) {
    return (given >= 'A' && given <= 'Z' ? given - 'A' + 'a' : given) == known;
  });
}

}  // namespace

XmlPart::XmlPart(std::string name, std::string bytes)
    : name_(std::move(name)), document_(ToUtf8(std::move(bytes), name_), name_) {
  for (XmlNode node : document_.Node().Children()) {
    if (node.Type() != XmlType::kDeclaration) continue;
    // The text is UTF-8 now, whatever it was.
    const XmlAttribute encoding = node.Attribute("encoding");
    if (encoding && !IsUtf8(encoding.Value())) node.SetAttribute("encoding", "UTF-8");
  }
  ReadNamespaces();
}

void XmlPart::ReadNamespaces() {
  const XmlNode root = Root();
  std::unordered_map<std::string_view, std::string_view> declared;
  bool found = false;
  for (const XmlAttribute& attribute : root.Attributes()) {
    const std::optional<std::string_view> prefix = DeclaredPrefix(attribute);
    if (!prefix) continue;
    declared[*prefix] = attribute.Value();
    const NamespaceUri* known = FindUri(attribute.Value());
    if (known == nullptr || known->space != Space::kWord) continue;
    // An attribute needs a prefix, so one that has it is preferred to the default namespace.
    if (!found || prefix_.empty()) prefix_ = prefix->empty() ? "" : std::string(*prefix) + ":";
    strict_ = known->strict;
    found = true;
  }
  if (document_.DeclaresBelowRoot()) {
    ForEachDescendant(root, [&](XmlNode node) {
      for (const XmlAttribute& attribute : node.Attributes()) {
        const std::optional<std::string_view> prefix = DeclaredPrefix(attribute);
        if (!prefix) continue;
        const auto [at, added] = declared.try_emplace(*prefix, attribute.Value());
        if (!added && at->second != attribute.Value()) scoped_ = true;
      }
    });
  }
  // A prefix that is declared below the root only means one thing wherever it is used, unless scoped_.
  for (const auto& [prefix, uri] : declared) {
    const NamespaceUri* known = FindUri(uri);
    if (known == nullptr) continue;
    for (const NamedTag& named : kTags) {
      if (named.space != known->space) continue;
      tags_.emplace(prefix.empty() ? std::string(named.local) : std::string(prefix) + ":" + std::string(named.local),
                    named.tag);
    }
  }
  if (!found) prefix_ = "w:";
}

bool XmlPart::Has(Tag tag) const {
  const std::deque<XmlName>& names = document_.Names();
  return scoped_ || std::any_of(names.begin(), names.end(), [&](const XmlName& name) {
           const auto known = tags_.find(std::string(name.text));
           return name.used && known != tags_.end() && known->second == tag;
         });
}

std::uint8_t XmlPart::Label(XmlNode node) const {
  if (scoped_) return static_cast<std::uint8_t>(Lookup(node));
  const XmlName& name = node.Entry();
  const auto found = tags_.find(std::string(name.text));
  name.label = static_cast<std::uint8_t>(found == tags_.end() ? Tag::kOther : found->second);
  return name.label;
}

Tag XmlPart::Lookup(XmlNode node) const {
  const std::string_view qualified = node.Name();
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

const XmlName& XmlPart::Name(std::string_view local) const {
  std::string key = prefix_;
  key += local;
  return document_.Name(key);
}

XmlAttribute XmlPart::Attribute(XmlNode node, std::string_view local) const {
  for (const XmlAttribute& attribute : node.Attributes()) {
    const std::string_view name = attribute.Name();
    if (name.size() == prefix_.size() + local.size() && name.ends_with(local) && name.starts_with(prefix_)) {
      return attribute;
    }
  }
  return {};
}

void XmlPart::RemoveAttribute(XmlNode node, std::string_view local) { node.RemoveAttribute(Name(local).text); }

}  // namespace docx
