// [Content_Types].xml and the relationship parts. They are edited as text, so that what is not touched stays as it was
// and an edit can be undone to the byte.

#include "hosts/docx/package/Package.h"
#include "hosts/docx/package/PartName.h"
#include "hosts/docx/xml/XmlDocument.h"
#include "hosts/docx/xml/XmlText.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace docx {

namespace {

constexpr std::string_view kContentTypesPart = "[Content_Types].xml";
constexpr std::string_view kRelationshipsType = "application/vnd.openxmlformats-package.relationships+xml";
constexpr std::string_view kEmptyRelationships =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n"
    "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\"/>";

std::string_view LocalName(XmlNode node) {
  const std::string_view name = node.Name();
  const std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

/// One of the two parts: a root element and a flat list in it.
class List {
 public:
  /// @param text well-formed
  explicit List(std::string text) : text_(std::move(text)), document_(text_, {}) {}

  /// The elements, and what stands between them.
  XmlChildren Items() const { return document_.Root().Children(); }
  bool Empty() const {
    return std::none_of(Items().begin(), Items().end(), [](XmlNode item) { return item.IsElement(); });
  }
  const std::string& Text() const { return text_; }

  /// @return the whole text without the item
  std::string Without(XmlNode item) const {
    const std::size_t begin = document_.OffsetOf(item);
    std::string text = text_;
    text.erase(begin, ElementEnd(begin) - begin);
    // The root gets back the form that the first item took from it.
    const std::size_t endTag = text.rfind("</");
    if (endTag != std::string::npos && endTag > 0 && text[endTag - 1] == '>' && IsRootStart(text, endTag)) {
      text.replace(endTag - 1, text.find('>', endTag) + 1 - (endTag - 1), "/>");
    }
    return text;
  }

  /// @param item a start tag without "<" and the root's prefix, and without its end
  std::string With(std::string_view item) const {
    const std::string root(document_.Root().Name());
    const std::string prefix = root.substr(0, root.find(':') == std::string::npos ? 0 : root.find(':') + 1);
    const std::string element = "<" + prefix + std::string(item) + "/>";
    std::string text = text_;
    if (Empty() && SelfClosed()) {
      const std::size_t slash = ElementEnd(RootBegin()) - 2;
      text.replace(slash, 2, ">" + element + "</" + root + ">");
    } else {
      text.insert(text.rfind("</"), element);
    }
    return text;
  }

 private:
  std::size_t RootBegin() const { return document_.OffsetOf(document_.Root()); }

  bool SelfClosed() const { return text_[TagEnd(text_, RootBegin()) - 2] == '/'; }

  bool IsRootStart(const std::string& text, std::size_t end) const { return TagEnd(text, RootBegin()) == end; }

  static std::size_t TagEnd(const std::string& text, std::size_t begin) {
    char quote = 0;
    for (std::size_t i = begin; i < text.size(); ++i) {
      const char c = text[i];
      if (quote != 0) {
        if (c == quote) quote = 0;
      } else if (c == '"' || c == '\'') {
        quote = c;
      } else if (c == '>') {
        return i + 1;
      }
    }
    return text.size();
  }

  std::size_t ElementEnd(std::size_t begin) const {
    const std::size_t end = TagEnd(text_, begin);
    if (text_[end - 2] == '/') return end;
    return text_.find('>', text_.find("</", end)) + 1;
  }

  std::string text_;
  XmlDocument document_;
};

std::string_view Extension(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos || name.find('/', dot) != std::string_view::npos ? std::string_view()
                                                                                        : name.substr(dot + 1);
}

/// An Override's part name, in the form that compares.
std::string PartNameOf(XmlNode item) { return FoldPartName(ResolveTarget("", item.Attribute("PartName").Value())); }

}  // namespace

std::string Package::ContentType(std::string_view name) const {
  const List types(ReadXml(kContentTypesPart));
  const std::string folded = FoldPartName(name);
  const std::string extension = FoldPartName(Extension(name));
  std::string byExtension;
  for (const XmlNode item : types.Items()) {
    const std::string_view kind = LocalName(item);
    if (kind == "Override" && PartNameOf(item) == folded) return std::string(item.Attribute("ContentType").Value());
    if (kind == "Default" && FoldPartName(item.Attribute("Extension").Value()) == extension) {
      byExtension = item.Attribute("ContentType").Value();
    }
  }
  return byExtension;
}

void Package::AddContentType(std::string_view name, std::string_view contentType) {
  if (FoldPartName(ContentType(name)) == FoldPartName(contentType)) return;
  const List types(ReadXml(kContentTypesPart));
  Put(At(kContentTypesPart), types.With("Override PartName=\"" + EscapedValue(MakeTarget("/", name)) +
                                        "\" ContentType=\"" + EscapedValue(contentType) + "\""));
}

void Package::RemoveContentType(std::string_view name) {
  const List types(ReadXml(kContentTypesPart));
  const std::string folded = FoldPartName(name);
  for (const XmlNode item : types.Items()) {
    if (LocalName(item) == "Override" && PartNameOf(item) == folded) {
      Put(At(kContentTypesPart), types.Without(item));
      return;
    }
  }
}

const std::vector<Relationship>& Package::Relationships(std::string_view part) const {
  const std::string listPart = RelationshipsPartName(part);
  const Entry* const entry = Find(listPart);
  const auto known = relationships_.find(entry);
  if (known != relationships_.end()) return known->second;
  // What parts without a list have in common: no relationship.
  if (entry == nullptr) return relationships_[nullptr];
  std::vector<Relationship> relationships;
  const List list(ReadXml(listPart));
  for (const XmlNode item : list.Items()) {
    if (LocalName(item) != "Relationship") continue;
    Relationship relationship;
    relationship.id = item.Attribute("Id").Value();
    relationship.type = item.Attribute("Type").Value();
    relationship.external = item.Attribute("TargetMode").Value() == "External";
    const std::string_view target = item.Attribute("Target").Value();
    relationship.target = relationship.external ? std::string(target) : ResolveTarget(part, target);
    relationships.push_back(std::move(relationship));
  }
  return relationships_[entry] = std::move(relationships);
}

std::string Package::AddRelationship(std::string_view part, std::string_view type, std::string_view target,
                                     bool external) {
  const std::string listPart = RelationshipsPartName(part);
  const bool fresh = !Has(listPart);
  const List list(fresh ? std::string(kEmptyRelationships) : ReadXml(listPart));
  unsigned long long last = 0;
  for (const XmlNode item : list.Items()) {
    const std::string_view id = item.Attribute("Id").Value();
    unsigned long long number = 0;
    if (id.starts_with("rId")) std::from_chars(id.data() + 3, id.data() + id.size(), number);
    // Beyond 32 bits ids are random, not counted; they are no start for counting on.
    if (number < (1ULL << 32)) last = std::max(last, number);
  }
  const std::string id = "rId" + std::to_string(last + 1);
  std::string text = list.With("Relationship Id=\"" + id + "\" Type=\"" + EscapedValue(type) + "\" Target=\"" +
                               EscapedValue(external ? std::string(target) : MakeTarget(part, target)) + "\"" +
                               (external ? " TargetMode=\"External\"" : ""));
  if (fresh) {
    Append(listPart, text);
    AddContentType(listPart, kRelationshipsType);
  } else {
    Put(At(listPart), text);
  }
  return id;
}

void Package::RemoveRelationship(std::string_view part, std::string_view id) {
  const std::string listPart = RelationshipsPartName(part);
  const List list(ReadXml(listPart));
  for (const XmlNode item : list.Items()) {
    if (id != item.Attribute("Id").Value()) continue;
    std::string text = list.Without(item);
    if (List(text).Empty() && text == kEmptyRelationships) {
      RemoveContentType(listPart);
      Drop(At(listPart));
    } else {
      Put(At(listPart), text);
    }
    return;
  }
  throw std::out_of_range("no relationship " + std::string(id));
}

}  // namespace docx
