#include "hosts/docx/xml/XmlDocument.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "hosts/docx/package/XmlScanner.h"
#include "hosts/docx/xml/XmlText.h"

namespace docx {

namespace {

constexpr std::size_t kFirstMemory = 4096;
constexpr std::string_view kDeclarationTarget = "xml";

std::size_t RecentSlot(std::string_view name) {
  const auto at = [&](std::size_t i) { return static_cast<std::size_t>(static_cast<unsigned char>(name[i])); };
  return (name.size() * 31 + at(name.size() - 1) * 5 + at(name.size() / 2) * 17) % 256;
}

std::string_view ContentOf(const XmlNodeData& node) { return {node.content, node.contentSize}; }

void SetContent(XmlNodeData& node, const char* begin, const char* end) {
  node.content = begin;
  node.contentSize = static_cast<std::uint32_t>(end - begin);
}

void SetAttributes(XmlNodeData& node, std::string_view text) {
  node.attributes = text.data();
  node.attributesSize = static_cast<std::uint32_t>(text.size());
}

}  // namespace

/// Makes the nodes that a scanner tells of.
class XmlDocument::Reader {
 public:
  /// @param top gets what the text holds
  Reader(XmlDocument& document, XmlNodeData& top) : document_(document), open_(&top) {}

  void Attribute(std::string_view name) {
    if (open_->type == XmlType::kElement && name.starts_with("xmlns")) document_.declaresBelowRoot_ = true;
  }
  void Start(std::string_view name, std::string_view attributes, bool isEmpty) {
    XmlNodeData& element = Add(XmlType::kElement, name);
    SetAttributes(element, attributes);
    element.flags = XmlNodeData::kExpanded | XmlNodeData::kWhole;
    if (isEmpty) return;
    SetContent(element, attributes.data() + attributes.size() + 1, attributes.data() + attributes.size() + 1);
    open_ = &element;
  }
  void End(const char* contentEnd) {
    XmlNodeData& element = *open_;
    SetContent(element, element.content, contentEnd);
    open_ = element.parent;
    if (element.first == nullptr) return;
    open_->flags |= XmlNodeData::kDeep;
    if ((element.flags & XmlNodeData::kDeep) != 0) return;
    const bool isText = element.first->type == XmlType::kText && element.first->next == nullptr;
    element.flags = isText ? XmlNodeData::kWhole | XmlNodeData::kTextOnly : XmlNodeData::kWhole;
    GiveBack(element);
  }
  void Text(const char* begin, const char* end) { SetContent(Add(XmlType::kText, {}), begin, end); }
  void CData(const char* begin, const char* end) { SetContent(Add(XmlType::kCData, {}), begin, end); }
  void Comment(const char* begin, const char* end) { SetContent(Add(XmlType::kComment, {}), begin, end); }
  void Instruction(std::string_view target, std::string_view data) {
    SetAttributes(Add(target == kDeclarationTarget ? XmlType::kDeclaration : XmlType::kInstruction, target), data);
  }

 private:
  XmlNodeData& Add(XmlType type, std::string_view name) {
    XmlNodeData& node = *document_.New(type, name.empty() ? *document_.noName_ : document_.Name(name));
    open_->Insert(node, nullptr);
    return node;
  }

  void GiveBack(XmlNodeData& element) {
    element.first->previous->next = document_.spare_;
    document_.spare_ = std::exchange(element.first, nullptr);
  }

  XmlDocument& document_;
  XmlNodeData* open_;
};

XmlDocument::XmlDocument(std::string bytes, const std::string& partName)
    : source_(std::move(bytes)), memory_(std::max(kFirstMemory, source_.size() / 2)), noName_(&Name({})) {
  top_.type = XmlType::kDocument;
  top_.name = noName_;
  top_.flags = XmlNodeData::kExpanded;
  Reader reader(*this, top_);
  XmlScanner<Reader>(source_, partName, reader).Run();
  for (const XmlNode child : Node().Children()) {
    if (child.IsElement()) root_ = child;
  }
}

const XmlName& XmlDocument::Name(std::string_view text) {
  const XmlName** slot = text.empty() ? nullptr : &recent_[RecentSlot(text)];
  if (slot != nullptr && *slot != nullptr && (*slot)->text == text) return **slot;
  const auto found = byText_.find(text);
  const XmlName* name = found == byText_.end() ? nullptr : found->second;
  if (name == nullptr) {
    // Names of nodes that were read could stay where they are, but callers have theirs anywhere.
    name = &names_.emplace_back(XmlName{.document = this, .text = Keep({text})});
    byText_.emplace(name->text, name);
  }
  if (slot != nullptr) *slot = name;
  return *name;
}

XmlNodeData* XmlDocument::New(XmlType type, const XmlName& name) {
  void* place = spare_;
  if (place != nullptr) {
    spare_ = spare_->next;
  } else {
    place = memory_.allocate(sizeof(XmlNodeData), alignof(XmlNodeData));
  }
  auto* const node = new (place) XmlNodeData;
  node->type = type;
  node->name = &name;
  node->flags = XmlNodeData::kExpanded;
  name.used = true;
  return node;
}

std::string_view XmlDocument::Keep(std::initializer_list<std::string_view> pieces) {
  std::size_t size = 0;
  for (const std::string_view piece : pieces) size += piece.size();
  if (size == 0) return {"", 0};
  auto* const kept = static_cast<char*>(memory_.allocate(size, 1));
  char* end = kept;
  for (const std::string_view piece : pieces) end = std::copy(piece.begin(), piece.end(), end);
  return {kept, size};
}

std::string_view XmlDocument::Decoded(std::string_view raw, bool attribute) {
  return Keep({Unescaped(raw, attribute)});
}

void XmlDocument::Expand(XmlNodeData& element) {
  element.flags |= XmlNodeData::kExpanded;
  if (element.contentSize == 0) return;
  Reader reader(*this, element);
  XmlScanner<Reader>(ContentOf(element), {}, reader).RunContent();
}

std::size_t XmlDocument::OffsetOf(XmlNode element) const {
  return static_cast<std::size_t>(element.Data()->attributes - source_.data()) - element.Name().size() - 1;
}

namespace {

class Writer {
 public:
  explicit Writer(std::string& text) : text_(text) {}
  void Write(const XmlNodeData& top) {
    WriteContent(top);
    Flush();
  }

 private:
  void WriteContent(const XmlNodeData& top) {
    const XmlNodeData* node = top.first;
    while (node != nullptr) {
      if (Begin(*node)) {
        node = node->first;
        continue;
      }
      while (node != &top && node->next == nullptr) {
        node = node->parent;
        if (node != &top) End(*node);
      }
      if (node == &top) return;
      node = node->next;
    }
  }

  /// @return whether its children are to be written, and then its end
  bool Begin(const XmlNodeData& node) {
    const std::string_view attributes(node.attributes, node.attributesSize);
    switch (node.type) {
      case XmlType::kElement:
        if (node.content == nullptr && node.first == nullptr) {
          Put("<", node.name->text, attributes, "/>");
        } else if ((node.flags & XmlNodeData::kWhole) != 0) {
          Put("<", node.name->text, attributes, ">", ContentOf(node), "</", node.name->text, ">");
        } else if (node.first != nullptr) {
          Put("<", node.name->text, attributes, ">");
          return true;
        } else {
          Put("<", node.name->text, attributes, "></", node.name->text, ">");
        }
        return false;
      case XmlType::kText:
        Put(ContentOf(node));
        return false;
      case XmlType::kCData:
        Put("<![CDATA[", ContentOf(node), "]]>");
        return false;
      case XmlType::kComment:
        Put("<!--", ContentOf(node), "-->");
        return false;
      case XmlType::kDeclaration:
      case XmlType::kInstruction:
        Put("<?", node.name->text, attributes, "?>");
        return false;
      default:
        return false;
    }
  }

  void End(const XmlNodeData& element) { Put("</", element.name->text, ">"); }

  /// @param pieces texts and literals
  template <class... Pieces>
  void Put(const Pieces&... pieces) {
    const std::size_t size = (SizeOf(pieces) + ...);
    if (size > kHeld - size_) Flush();
    if (size > kHeld) {
      (text_.append(pieces), ...);
      return;
    }
    char* to = held_ + size_;
    ((to = Copy(pieces, to)), ...);
    size_ += size;
  }

  static std::size_t SizeOf(std::string_view piece) { return piece.size(); }
  static char* Copy(std::string_view piece, char* to) { return to + piece.copy(to, piece.size()); }
  // What is known to the compiler is copied without a call.
  template <std::size_t size>
  static constexpr std::size_t SizeOf(const char (&)[size]) {
    return size - 1;
  }
  template <std::size_t size>
  static char* Copy(const char (&literal)[size], char* to) {
    std::memcpy(to, literal, size - 1);
    return to + size - 1;
  }

  void Flush() {
    text_.append(held_, size_);
    size_ = 0;
  }

  static constexpr std::size_t kHeld = 4096;

  std::string& text_;
  // Most pieces have few letters: together they go to the text at less cost.
  char held_[kHeld];
  std::size_t size_{0};
};

}  // namespace

std::string XmlDocument::Serialize() const {
  // What marking makes of a document seldom is longer; room that is not used costs nothing.
  constexpr std::size_t kGrowth = 3;
  std::string text;
  text.reserve(kGrowth * source_.size());
  Writer(text).Write(top_);
  return text;
}

std::string_view XmlDocument::WriteContent(const XmlNodeData& element) {
  std::string text;
  Writer(text).Write(element);
  return Keep({text});
}

}  // namespace docx
