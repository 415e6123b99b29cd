#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <optional>
#include <string_view>

namespace docx {

class XmlDocument;
class XmlNode;

enum class XmlType : std::uint8_t { kNull, kDocument, kDeclaration, kElement, kText, kCData, kComment, kInstruction };

/// A name as its document keeps it: once, so that equal names are one object.
struct XmlName {
  static constexpr std::uint8_t kUnlabelled = 255;

  XmlDocument* document{nullptr};
  std::string_view text;
  /// Whether a node has or had it.
  mutable bool used{false};
  /// For whoever gives names a meaning to remember it.
  mutable std::uint8_t label{kUnlabelled};
};

/// A node in its document's memory. An element's children are nodes once somebody has asked for them; its content is
/// what stands between its tags as long as nothing in it was changed.
struct XmlNodeData {
  enum Flag : std::uint8_t {
    kExpanded = 1,  ///< the children are nodes
    kWhole = 2,     ///< `content` is what it holds
    kTextOnly = 4,  ///< and that is one text, without markup
    kDecoded = 8,   ///< of a text: `attributes` is its value
    kDeep = 16,     ///< while it is being read: a child has children
    kPlain = 32,    ///< as kTextOnly, and written as it is
  };

  const XmlName* name{nullptr};
  XmlNodeData* parent{nullptr};
  XmlNodeData* first{nullptr};
  XmlNodeData* previous{nullptr};  ///< of the first child: the last one
  XmlNodeData* next{nullptr};
  const char* content{nullptr};     ///< nullptr for what had no end tag
  const char* attributes{nullptr};  ///< all between an element's or instruction's name and the end of its tag
  std::uint32_t contentSize{0};
  std::uint32_t attributesSize{0};
  XmlType type{XmlType::kNull};
  std::uint8_t flags{0};
  std::uint32_t changedIn{0};  ///< the last period of the document's in which it, or something in it, was changed

  /// Puts a node that is in no tree among the children, at the end without `before`.
  void Insert(XmlNodeData& child, XmlNodeData* before);
  /// Takes it out of its parent.
  void Unlink();
};

/// An attribute as it stands in a tag; spoilt by the next change of its element's attributes.
class XmlAttribute {
 public:
  XmlAttribute() = default;
  XmlAttribute(XmlNodeData* owner, std::string_view name, std::string_view raw)
      : owner_(owner), name_(name), raw_(raw) {}

  explicit operator bool() const { return owner_ != nullptr; }
  std::string_view Name() const { return name_; }
  /// Entities resolved; empty when there is no attribute.
  std::string_view Value() const;
  /// The number that the value begins with, 0 without one. @return `missing` when there is no attribute
  int AsInt(int missing = 0) const;
  /// The same by NumberIn().
  double AsDouble() const;

 private:
  XmlNodeData* owner_{nullptr};
  std::string_view name_;
  std::string_view raw_;
};

/// The attributes in a tag, in order.
class XmlAttributes {
 public:
  class Iterator {
   public:
    Iterator() = default;
    Iterator(XmlNodeData* owner, const char* at, const char* end) : owner_(owner), at_(at), end_(end) { ++*this; }
    const XmlAttribute& operator*() const { return current_; }
    Iterator& operator++();
    bool operator!=(const Iterator&) const { return static_cast<bool>(current_); }

   private:
    XmlNodeData* owner_{nullptr};
    const char* at_{nullptr};
    const char* end_{nullptr};
    XmlAttribute current_;
  };

  explicit XmlAttributes(XmlNodeData* owner) : owner_(owner) {}
  Iterator begin() const {
    return owner_ == nullptr ? Iterator()
                             : Iterator(owner_, owner_->attributes, owner_->attributes + owner_->attributesSize);
  }
  Iterator end() const { return {}; }

 private:
  XmlNodeData* owner_;
};

class XmlChildren;

/// A node, or none: what is asked of none is empty. The node lives in its document as long as that does, and is in no
/// tree once it was removed. Names and values stay valid as long as the document.
class XmlNode {
 public:
  XmlNode() = default;
  explicit XmlNode(XmlNodeData* data) : data_(data) {}

  explicit operator bool() const { return data_ != nullptr; }
  bool Empty() const { return data_ == nullptr; }
  bool operator==(const XmlNode& other) const = default;
  XmlNodeData* Data() const { return data_; }

  XmlType Type() const { return data_ == nullptr ? XmlType::kNull : data_->type; }
  bool IsElement() const { return Type() == XmlType::kElement; }
  /// Of an element its qualified name, of an instruction its target.
  std::string_view Name() const { return Entry().text; }
  bool Is(const XmlName& name) const { return &Entry() == &name; }
  const XmlName& Entry() const { return data_ == nullptr ? kNoName : *data_->name; }
  /// Of text, CDATA and comments what they say, of an instruction what stands behind its target.
  std::string_view Value() const;
  /// What an element holds when that is one text or nothing.
  std::optional<std::string_view> OnlyText() const;
  /// Whether that is a text with nothing to escape, which then is remembered. False also where it would take a while to
  /// tell.
  bool HoldsPlainText() const;

  XmlNode Parent() const { return XmlNode(data_ == nullptr ? nullptr : data_->parent); }
  XmlNode FirstChild() const {
    if (data_ == nullptr) return {};
    if ((data_->flags & XmlNodeData::kExpanded) == 0) Expand();
    return XmlNode(data_->first);
  }
  XmlNode LastChild() const {
    const XmlNode first = FirstChild();
    return first ? XmlNode(first.data_->previous) : first;
  }
  XmlNode NextSibling() const { return XmlNode(data_ == nullptr ? nullptr : data_->next); }
  XmlNode PreviousSibling() const {
    return data_ == nullptr || data_->previous == nullptr || data_->previous->next == nullptr
               ? XmlNode()
               : XmlNode(data_->previous);
  }
  XmlChildren Children() const;
  /// The child elements of that name.
  XmlChildren Children(const XmlName& name) const;
  /// The first child element of that name.
  XmlNode Child(const XmlName& name) const;
  XmlNode Child(std::string_view name) const;

  XmlAttributes Attributes() const { return XmlAttributes(data_); }
  XmlAttribute Attribute(std::string_view name) const;
  /// The attributes as they are written, for comparing.
  std::string_view AttributeText() const {
    return data_ == nullptr ? std::string_view() : std::string_view(data_->attributes, data_->attributesSize);
  }
  /// The content as it is written; nothing once something in it was changed.
  std::optional<std::string_view> ContentText() const;
  /// Whether it, or anything in it, was changed since a period of the document's began. Moving it does not count.
  bool ChangedSince(std::uint32_t period) const { return data_ != nullptr && data_->changedIn >= period; }
  /// Whether an element of that name, of any prefix, may be within, told without making nodes of what is there.
  bool MayHold(std::string_view name) const {
    const std::optional<std::string_view> content = ContentText();
    return !content || content->find(name) != std::string_view::npos;
  }

  // Changes. What is asked to take part is there: changing no node is a programming error.

  /// Changes the attribute in its place, or adds it behind the others.
  void SetAttribute(std::string_view name, std::string_view value);
  void SetAttribute(std::string_view name, long value);
  /// None of that name is no error.
  void RemoveAttribute(std::string_view name);
  /// Gives it the attributes of another element of the document in the place of its own.
  void CopyAttributes(XmlNode other);
  /// Of an instruction or text. CDATA stays that where it can hold the value.
  void SetValue(std::string_view value);
  void SetTarget(std::string_view target);
  /// Of an element. @param name of the same document
  void SetName(const XmlName& name);
  /// Makes one text of all that an element holds.
  void SetOnlyText(std::string_view text);
  /// The same for a text that is part of a value of the document: it is not copied where it can be written as it is.
  void ShareOnlyText(std::string_view text);
  /// The same for a part of what one that HoldsPlainText holds: nobody looks at it again.
  void SharePlainText(std::string_view text);
  /// Forgets the nodes of an element's children, which it gets anew when they are asked for.
  /// @return what it holds, as it is written, for SetContentText
  std::string_view SettleContent();
  /// Gives an element what another one of the document, where prefixes mean the same, held.
  /// @param content as SettleContent gave it
  void SetContentText(std::string_view content);

  XmlNode AppendChild(const XmlName& name) { return Insert(Make(name), {}); }
  XmlNode AppendChild(XmlType type) { return Insert(Make(type), {}); }
  XmlNode PrependChild(const XmlName& name) { return Insert(Make(name), FirstChild()); }
  XmlNode InsertChildBefore(const XmlName& name, XmlNode before) { return Insert(Make(name), before); }
  XmlNode InsertChildBefore(XmlType type, XmlNode before) { return Insert(Make(type), before); }
  XmlNode InsertChildAfter(const XmlName& name, XmlNode after) { return Insert(Make(name), after.NextSibling()); }
  XmlNode InsertChildAfter(XmlType type, XmlNode after) { return Insert(Make(type), after.NextSibling()); }

  // Of a node of the same document, with all that is in it.
  XmlNode AppendCopy(XmlNode node) { return Insert(node.Copied(), {}); }
  XmlNode InsertCopyBefore(XmlNode node, XmlNode before) { return Insert(node.Copied(), before); }
  XmlNode InsertCopyAfter(XmlNode node, XmlNode after) { return Insert(node.Copied(), after.NextSibling()); }
  XmlNode AppendMove(XmlNode node) { return Insert(node.Unlinked(), {}); }
  XmlNode PrependMove(XmlNode node) { return InsertMoveBefore(node, FirstChild()); }
  XmlNode InsertMoveBefore(XmlNode node, XmlNode before);
  XmlNode InsertMoveAfter(XmlNode node, XmlNode after);

  /// @return false when the node is none or no child
  bool RemoveChild(XmlNode child);
  bool RemoveChild(const XmlName& name) { return RemoveChild(Child(name)); }

 private:
  /// Labelled once and for all: it is not any document's.
  static constexpr XmlName kNoName{.document = nullptr, .text = {}, .used = false, .label = 0};

  XmlDocument& Document() const { return *data_->name->document; }
  void Expand() const;
  XmlNodeData* Make(const XmlName& name) const;
  XmlNodeData* Make(XmlType type) const;
  XmlNode Insert(XmlNodeData* node, XmlNode before);
  XmlNodeData* Unlinked() const;
  XmlNodeData* Copied() const;
  /// What it and those around it hold is not what they were read from any more.
  void ContentChanged() const;
  /// The same for the node as a whole.
  void Changed() const;
  /// @param pieces the new text's, one behind the other
  void AttributesChanged(std::initializer_list<std::string_view> pieces) const;

  XmlNodeData* data_{nullptr};
};

/// A node's children in order. The one that is being looked at must not be removed or moved.
class XmlChildren {
 public:
  class Iterator {
   public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = XmlNode;
    using difference_type = std::ptrdiff_t;
    using pointer = const XmlNode*;
    using reference = XmlNode;

    Iterator() = default;
    Iterator(XmlNode node, const XmlName* only) : node_(node), only_(only) { Skip(); }
    XmlNode operator*() const { return node_; }
    Iterator& operator++() {
      node_ = node_.NextSibling();
      Skip();
      return *this;
    }
    Iterator operator++(int) {
      const Iterator before = *this;
      ++*this;
      return before;
    }
    bool operator==(const Iterator& other) const { return node_ == other.node_; }

   private:
    void Skip() {
      while (only_ != nullptr && node_ && !node_.Is(*only_)) node_ = node_.NextSibling();
    }

    XmlNode node_;
    const XmlName* only_{nullptr};
  };

  /// @param only the name of those that count; nullptr for all nodes
  XmlChildren(XmlNode first, const XmlName* only) : first_(first), only_(only) {}
  Iterator begin() const { return {first_, only_}; }
  Iterator end() const { return {}; }

 private:
  XmlNode first_;
  const XmlName* only_;
};

inline XmlChildren XmlNode::Children() const { return {FirstChild(), nullptr}; }
inline XmlChildren XmlNode::Children(const XmlName& name) const { return {FirstChild(), &name}; }

}  // namespace docx
