#include "hosts/docx/xml/XmlNode.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <utility>

#include "hosts/docx/xml/XmlDocument.h"
#include "hosts/docx/xml/XmlText.h"

namespace docx {

namespace {

std::string_view TextOf(const XmlNodeData& node) { return {node.content, node.contentSize}; }

void SetContent(XmlNodeData& node, std::string_view text) {
  node.content = text.data();
  node.contentSize = static_cast<std::uint32_t>(text.size());
}

/// Lets an element hold what is written, in place of its nodes.
void SetWhole(XmlNodeData& element, std::string_view written, bool isText) {
  element.first = nullptr;
  element.flags = isText ? XmlNodeData::kWhole | XmlNodeData::kTextOnly : XmlNodeData::kWhole;
  SetContent(element, written);
}

}  // namespace

void XmlNodeData::Insert(XmlNodeData& child, XmlNodeData* before) {
  child.parent = this;
  child.next = before;
  if (first == nullptr) {
    first = child.previous = &child;
    return;
  }
  XmlNodeData& behind = before != nullptr ? *before : *first;
  child.previous = std::exchange(behind.previous, &child);
  if (before == first) {
    first = &child;
  } else {
    child.previous->next = &child;
  }
}

void XmlNodeData::Unlink() {
  XmlNodeData*& pointsHere = parent->first == this ? parent->first : previous->next;
  pointsHere = next;
  if (next != nullptr) {
    next->previous = previous;
  } else if (parent->first != nullptr) {
    parent->first->previous = previous;
  }
  parent = previous = next = nullptr;
}

std::string_view XmlAttribute::Value() const {
  return owner_ == nullptr || !IsEscapedValue(raw_) ? raw_ : owner_->name->document->Decoded(raw_, true);
}

int XmlAttribute::AsInt(int missing) const {
  if (owner_ == nullptr) return missing;
  std::string_view text = Value();
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n"), text.size()));
  if (text.starts_with('+')) text.remove_prefix(1);
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

double XmlAttribute::AsDouble() const { return NumberIn(Value()); }

XmlAttributes::Iterator& XmlAttributes::Iterator::operator++() {
  RawAttribute raw;
  // What another node keeps there is no tag's text.
  const bool isElement = owner_ != nullptr && owner_->type == XmlType::kElement;
  current_ = isElement && NextAttribute(at_, end_, raw) ? XmlAttribute(owner_, raw.name, raw.value) : XmlAttribute();
  return *this;
}

std::string_view XmlNode::Value() const {
  if (data_ == nullptr) return {};
  switch (data_->type) {
    case XmlType::kText:
      if ((data_->flags & XmlNodeData::kDecoded) == 0) {
        const std::string_view raw = TextOf(*data_);
        const std::string_view value = IsEscapedText(raw) ? Document().Decoded(raw, false) : raw;
        data_->attributes = value.data();
        data_->attributesSize = static_cast<std::uint32_t>(value.size());
        data_->flags |= XmlNodeData::kDecoded;
      }
      return {data_->attributes, data_->attributesSize};
    case XmlType::kInstruction: {
      const std::string_view text = AttributeText();
      return text.substr(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    }
    case XmlType::kCData:
    case XmlType::kComment:
      return TextOf(*data_);
    default:
      return {};
  }
}

std::optional<std::string_view> XmlNode::OnlyText() const {
  if (!IsElement()) return std::nullopt;
  if ((data_->flags & XmlNodeData::kExpanded) != 0) {
    const XmlNode first(data_->first);
    if (!first) return std::string_view();
    return first.Type() == XmlType::kText && !first.NextSibling() ? std::optional(first.Value()) : std::nullopt;
  }
  const std::string_view raw = TextOf(*data_);
  if ((data_->flags & XmlNodeData::kPlain) != 0) return raw;
  if (!raw.empty() && (data_->flags & XmlNodeData::kTextOnly) == 0) return std::nullopt;
  return IsEscapedText(raw) ? Document().Decoded(raw, false) : raw;
}

bool XmlNode::HoldsPlainText() const {
  if (!IsElement() || (data_->flags & XmlNodeData::kExpanded) != 0) return false;
  if ((data_->flags & XmlNodeData::kPlain) != 0) return true;
  if ((data_->flags & XmlNodeData::kTextOnly) == 0 || !IsWrittenAsIs(TextOf(*data_))) return false;
  data_->flags |= XmlNodeData::kPlain;
  return true;
}

XmlNode XmlNode::Child(const XmlName& name) const {
  for (const XmlNode child : Children()) {
    if (child.data_->name == &name) return child;
  }
  return {};
}

XmlNode XmlNode::Child(std::string_view name) const {
  for (const XmlNode child : Children()) {
    if (child.IsElement() && child.Name() == name) return child;
  }
  return {};
}

XmlAttribute XmlNode::Attribute(std::string_view name) const {
  for (const XmlAttribute& attribute : Attributes()) {
    if (attribute.Name() == name) return attribute;
  }
  return {};
}

std::optional<std::string_view> XmlNode::ContentText() const {
  if (data_ == nullptr || (data_->flags & XmlNodeData::kWhole) == 0) return std::nullopt;
  return TextOf(*data_);
}

void XmlNode::SetAttribute(std::string_view name, std::string_view value) {
  std::string_view old = AttributeText();
  old = old.substr(0, old.find_last_not_of(" \t\r\n") + 1);
  const char* at = old.data();
  RawAttribute attribute{.text = {}, .name = {}, .value = {}};
  while (attribute.name != name && NextAttribute(at, old.data() + old.size(), attribute)) {
  }
  const bool isThere = attribute.name == name;
  const std::string_view before =
      isThere ? old.substr(0, static_cast<std::size_t>(attribute.text.data() - old.data())) : old;
  std::string escaped;
  if (!IsWrittenAsIsInValue(value)) value = escaped = EscapedValue(value);
  const auto isWritten = [&](std::string_view text) {
    return text.size() == name.size() + value.size() + 4 && text.front() == ' ' && text.ends_with('"') &&
           text.substr(1).starts_with(name) && text.substr(name.size() + 1, 2) == "=\"" &&
           text.substr(name.size() + 3).starts_with(value);
  };
  if (isThere && isWritten(attribute.text)) return;
  const std::string_view behind =
      isThere ? std::string_view(at, static_cast<std::size_t>(old.data() + old.size() - at)) : std::string_view();
  AttributesChanged({before, " ", name, "=\"", value, "\"", behind});
}

void XmlNode::SetAttribute(std::string_view name, long value) { SetAttribute(name, std::to_string(value)); }

void XmlNode::RemoveAttribute(std::string_view name) {
  const std::string_view old = AttributeText();
  const char* at = old.data();
  RawAttribute attribute;
  while (NextAttribute(at, old.data() + old.size(), attribute)) {
    if (attribute.name != name) continue;
    const auto before = static_cast<std::size_t>(attribute.text.data() - old.data());
    AttributesChanged({old.substr(0, before), old.substr(static_cast<std::size_t>(at - old.data()))});
    return;
  }
}

void XmlNode::CopyAttributes(XmlNode other) {
  data_->attributes = other.data_->attributes;
  data_->attributesSize = other.data_->attributesSize;
  Changed();
}

void XmlNode::AttributesChanged(std::initializer_list<std::string_view> pieces) const {
  const std::string_view kept = Document().Keep(pieces);
  data_->attributes = kept.data();
  data_->attributesSize = static_cast<std::uint32_t>(kept.size());
  Changed();
}

void XmlNode::SetValue(std::string_view value) {
  if (data_->type == XmlType::kInstruction) {
    AttributesChanged({" ", value});
    return;
  }
  const bool staysCData = data_->type == XmlType::kCData && value.find("]]>") == std::string_view::npos;
  if (!staysCData) data_->type = XmlType::kText;
  data_->flags &= static_cast<std::uint8_t>(~XmlNodeData::kDecoded);
  SetContent(*data_, Document().Keep({staysCData ? std::string(value) : EscapedText(value)}));
  Changed();
}

void XmlNode::SetTarget(std::string_view target) {
  data_->name = &Document().Name(target);
  Changed();
}

void XmlNode::SetName(const XmlName& name) {
  name.used = true;
  data_->name = &name;
  Changed();
}

void XmlNode::SetOnlyText(std::string_view text) {
  SetWhole(*data_, Document().Keep({IsWrittenAsIs(text) ? text : std::string_view(EscapedText(text))}), true);
  Changed();
}

void XmlNode::ShareOnlyText(std::string_view text) {
  if (!IsWrittenAsIs(text)) return SetOnlyText(text);
  SetWhole(*data_, text, true);
  Changed();
}

void XmlNode::SharePlainText(std::string_view text) {
  SetWhole(*data_, text, true);
  data_->flags |= XmlNodeData::kPlain;
  Changed();
}

std::string_view XmlNode::SettleContent() {
  if ((data_->flags & XmlNodeData::kWhole) == 0) SetContentText(Document().WriteContent(*data_));
  return TextOf(*data_);
}

void XmlNode::SetContentText(std::string_view content) {
  SetWhole(*data_, content, content.find('<') == std::string_view::npos);
  Changed();
}

bool XmlNode::RemoveChild(XmlNode child) {
  if (!child || child.data_->parent != data_) return false;
  ContentChanged();
  child.data_->Unlink();
  return true;
}

void XmlNode::Expand() const { Document().Expand(*data_); }

XmlNodeData* XmlNode::Make(const XmlName& name) const {
  XmlNodeData* const made = Document().New(XmlType::kElement, name);
  made->flags = XmlNodeData::kExpanded | XmlNodeData::kWhole;
  return made;
}

XmlNodeData* XmlNode::Make(XmlType type) const { return Document().New(type, *Document().noName_); }

XmlNode XmlNode::Insert(XmlNodeData* node, XmlNode before) {
  if ((data_->flags & XmlNodeData::kExpanded) == 0) Expand();
  ContentChanged();
  data_->Insert(*node, before.data_);
  return XmlNode(node);
}

XmlNode XmlNode::InsertMoveBefore(XmlNode node, XmlNode before) {
  return node == before ? node : Insert(node.Unlinked(), before);
}

XmlNode XmlNode::InsertMoveAfter(XmlNode node, XmlNode after) {
  if (node == after) return node;
  XmlNodeData* const moved = node.Unlinked();
  return Insert(moved, after.NextSibling());
}

XmlNodeData* XmlNode::Unlinked() const {
  if (data_->parent != nullptr) {
    Parent().ContentChanged();
    data_->Unlink();
  }
  return data_;
}

XmlNodeData* XmlNode::Copied() const {
  const auto copy = [this](const XmlNodeData& node) {
    XmlNodeData* const made = Document().New(node.type, *node.name);
    made->content = node.content;
    made->contentSize = node.contentSize;
    made->attributes = node.attributes;
    made->attributesSize = node.attributesSize;
    made->flags = node.flags;
    // What is whole can be expanded again.
    if (node.type == XmlType::kElement && (node.flags & XmlNodeData::kWhole) != 0) {
      made->flags &= static_cast<std::uint8_t>(~XmlNodeData::kExpanded);
    }
    return made;
  };
  XmlNodeData* const top = copy(*data_);
  XmlNodeData* to = top;
  for (const XmlNodeData* from = data_;;) {
    const bool isTold = (from->flags & XmlNodeData::kWhole) != 0;
    if (!isTold && from->first != nullptr) {
      from = from->first;
    } else {
      while (from != data_ && from->next == nullptr) {
        from = from->parent;
        to = to->parent;
      }
      if (from == data_) return top;
      from = from->next;
      to = to->parent;
    }
    XmlNodeData* const made = copy(*from);
    to->Insert(*made, nullptr);
    to = made;
  }
}

void XmlNode::ContentChanged() const {
  if (data_ == nullptr) return;
  // Around a node that has been told of in this period all have.
  const std::uint32_t period = Document().period_;
  const auto isTold = [&](const XmlNodeData& node) {
    return (node.flags & XmlNodeData::kWhole) == 0 && node.changedIn == period;
  };
  for (XmlNodeData* node = data_; node != nullptr && !isTold(*node); node = node->parent) {
    node->flags &= static_cast<std::uint8_t>(~XmlNodeData::kWhole);
    node->changedIn = period;
  }
}

void XmlNode::Changed() const {
  data_->changedIn = Document().period_;
  Parent().ContentChanged();
}

}  // namespace docx
