#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "hosts/docx/xml/Names.h"
#include "hosts/docx/xml/XmlDocument.h"

namespace docx {

/// One XML part in memory: every byte that matters is kept, known elements are recognised by namespace.
/// Nodes stay valid until they are removed.
class XmlPart {
 public:
  /// @param name for messages @param bytes the part, any encoding that XML declares
  /// @throws PackageError when it is not well formed or breaks a limit
  XmlPart(std::string name, std::string bytes);
  XmlPart(const XmlPart&) = delete;
  XmlPart& operator=(const XmlPart&) = delete;

  const std::string& PartName() const { return name_; }
  XmlNode Root() const { return document_.Root(); }
  bool Strict() const { return strict_; }
  /// Whether a prefix means different things in different places.
  bool Scoped() const { return scoped_; }
  /// The prefix of WordprocessingML with its colon; empty where it is the default namespace.
  const std::string& Prefix() const { return prefix_; }

  /// Whether any element has or had that tag, or one of WordprocessingML that local name.
  bool Has(Tag tag) const;
  template <typename Local>
  bool Has(const Local& local) const {
    return Name(local).used;
  }

  Tag TagOf(XmlNode node) const {
    const XmlName& name = node.Entry();
    return static_cast<Tag>(name.label != XmlName::kUnlabelled ? name.label : Label(node));
  }
  bool Is(XmlNode node, Tag tag) const { return TagOf(node) == tag; }
  /// The first child with that tag; an empty node when there is none.
  XmlNode Child(XmlNode parent, Tag tag) const {
    for (const XmlNode child : parent.Children()) {
      if (TagOf(child) == tag) return child;
    }
    return {};
  }
  /// A WordprocessingML child by local name, such as "vanish".
  template <typename Local>
  XmlNode Child(XmlNode parent, const Local& local) const {
    return parent.Child(Name(local));
  }
  /// A WordprocessingML attribute by local name, such as "val"; an empty attribute when there is none.
  XmlAttribute Attribute(XmlNode node, std::string_view local) const;
  /// A WordprocessingML name as this part writes it. @return valid until the part goes
  const XmlName& Name(std::string_view local) const;
  /// The same for a literal, which is looked up by its address: names are asked for at every edit.
  template <std::size_t size>
  const XmlName& Name(const char (&literal)[size]) const {
    Literal& known = literals_[reinterpret_cast<std::uintptr_t>(literal) % literals_.size()];
    if (known.literal != literal) known = {literal, &Name(std::string_view(literal))};
    return *known.name;
  }
  /// Sets or adds a WordprocessingML attribute.
  template <typename Local>
  void SetAttribute(XmlNode node, const Local& local, std::string_view value) {
    node.SetAttribute(Name(local).text, value);
  }
  void RemoveAttribute(XmlNode node, std::string_view local);

  /// The part was changed and has to be written.
  bool Changed() const { return changed_; }
  void Touch() { changed_ = true; }
  /// Begins a period of XmlNode::ChangedSince.
  std::uint32_t BeginPeriod() const { return document_.BeginPeriod(); }
  /// The part in UTF-8.
  std::string Serialize() const { return document_.Serialize(); }

 private:
  std::uint8_t Label(XmlNode node) const;
  Tag Lookup(XmlNode node) const;
  void ReadNamespaces();

  std::string name_;
  mutable XmlDocument document_;  // remembers the names that it was asked for
  std::string prefix_;
  bool strict_{false};
  bool scoped_{false};
  bool changed_{false};
  std::unordered_map<std::string, Tag> tags_;  // unless scoped_
  struct Literal {
    const char* literal{nullptr};
    const XmlName* name{nullptr};
  };
  mutable std::array<Literal, 1021> literals_;  // of those that would share a place the last one
};

}  // namespace docx
