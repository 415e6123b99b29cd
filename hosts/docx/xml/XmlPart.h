#pragma once

#include <pugixml.hpp>

#include <string>
#include <string_view>
#include <unordered_map>

#include "hosts/docx/package/Deflated.h"
#include "hosts/docx/xml/Names.h"

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
  pugi::xml_node Root() const { return document_.document_element(); }
  bool Strict() const { return strict_; }

  /// Whether there was a text box in it when it was read. May say yes for nothing.
  bool HasTextBoxes() const { return hasTextBoxes_; }

  Tag TagOf(pugi::xml_node node) const;
  bool Is(pugi::xml_node node, Tag tag) const { return TagOf(node) == tag; }
  /// The first child with that tag; an empty node when there is none.
  pugi::xml_node Child(pugi::xml_node parent, Tag tag) const;
  /// A WordprocessingML child by local name, such as "vanish".
  template <typename Local>
  pugi::xml_node Child(pugi::xml_node parent, const Local& local) const {
    return parent.child(Name(local));
  }
  /// A WordprocessingML attribute by local name, such as "val"; an empty attribute when there is none.
  pugi::xml_attribute Attribute(pugi::xml_node node, const char* local) const;
  /// A WordprocessingML name as this part writes it. @return valid until the part goes
  const char* Name(std::string_view local) const;
  /// The same for a literal, which is looked up by its address: names are asked for at every edit.
  template <std::size_t size>
  const char* Name(const char (&literal)[size]) const {
    const char*& name = literals_[literal];
    if (name == nullptr) name = Name(std::string_view(literal));
    return name;
  }
  /// Sets or adds a WordprocessingML attribute.
  void SetAttribute(pugi::xml_node node, const char* local, const char* value);

  /// The part was changed and has to be written.
  bool Changed() const { return changed_; }
  void Touch() { changed_ = true; }
  /// Hands out the part in UTF-8, piece by piece.
  void Write(const TextSink& sink) const;
  std::string Serialize() const;

 private:
  Tag Lookup(std::string_view qualified, pugi::xml_node node) const;
  void ReadNamespaces(bool declaresBelowRoot);

  std::string name_;
  std::string bytes_;             // pugixml parses in place: names and values point into it
  std::string afterDeclaration_;  // the blanks there, which pugixml does not keep
  pugi::xml_document document_;
  std::string prefix_;  // of WordprocessingML, with its colon; empty for the default namespace
  bool strict_{false};
  bool hasTextBoxes_{false};
  bool scoped_{false};  // a prefix means different things in different places
  bool changed_{false};
  /// Element names are short and few: length and two characters tell most of them apart.
  struct NameHash {
    std::size_t operator()(std::string_view name) const {
      const auto at = [&](std::size_t i) { return static_cast<std::size_t>(static_cast<unsigned char>(name[i])); };
      return name.empty() ? 0 : name.size() * 31 + at(name.size() - 1) * 257 + at(name.size() / 2) * 8191;
    }
  };
  std::unordered_map<std::string_view, Tag, NameHash> tags_;
  mutable std::unordered_map<std::string, std::string> names_;
  mutable std::unordered_map<const char*, const char*> literals_;
};

}  // namespace docx
