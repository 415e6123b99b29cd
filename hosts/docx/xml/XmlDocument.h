#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <initializer_list>
#include <memory_resource>
#include <string>
#include <string_view>
#include <unordered_map>

#include "hosts/docx/xml/XmlNode.h"

namespace docx {

/// A well-formed XML text as a tree that can be changed. What is not changed is written as it was read, to the byte.
///
/// The tree costs what is looked at: names, attributes and text are parts of the text that was read, and elements whose
/// children have none themselves (properties and texts, which are most of a document) get nodes for them when they are
/// asked for. All memory goes with the document, none before.
class XmlDocument {
 public:
  /// @param bytes UTF-8
  /// @param partName for messages
  /// @throws PackageError when it is not well formed or breaks a limit
  XmlDocument(std::string bytes, const std::string& partName);
  XmlDocument(const XmlDocument&) = delete;
  XmlDocument& operator=(const XmlDocument&) = delete;

  /// What holds the root element, and comments and instructions beside it.
  XmlNode Node() { return XmlNode(&top_); }
  XmlNode Root() const { return root_; }
  /// Whether an element below the root declares a namespace.
  bool DeclaresBelowRoot() const { return declaresBelowRoot_; }

  /// @return valid as long as the document
  const XmlName& Name(std::string_view text);
  /// All names that nodes have, had or were to have.
  const std::deque<XmlName>& Names() const { return names_; }

  /// Begins a period: what is changed from now on is changed since the number that this returns.
  std::uint32_t BeginPeriod() { return ++period_; }

  /// The text as it is now.
  std::string Serialize() const;

  /// The text as it was read.
  const std::string& Source() const { return source_; }
  /// Where the tag of an element that was read begins in it.
  std::size_t OffsetOf(XmlNode element) const;

 private:
  friend class XmlNode;
  friend class XmlAttribute;
  class Reader;

  XmlNodeData* New(XmlType type, const XmlName& name);
  /// Makes nodes of a content that was read or written here, its children's children left alone.
  void Expand(XmlNodeData& element);
  /// What a node with children that are nodes holds, kept.
  std::string_view WriteContent(const XmlNodeData& element);
  /// Keeps a copy of the pieces, one behind the other.
  std::string_view Keep(std::initializer_list<std::string_view> pieces);
  /// Resolves entities and line ends. @param attribute whether every blank counts as a space
  std::string_view Decoded(std::string_view raw, bool attribute);

  std::string source_;
  std::pmr::monotonic_buffer_resource memory_;
  std::deque<XmlName> names_;
  std::unordered_map<std::string_view, const XmlName*> byText_;
  std::array<const XmlName*, 256> recent_{};  // by a hash too weak for names that somebody has thought up
  const XmlName* noName_;
  XmlNodeData* spare_{nullptr};
  XmlNodeData top_;
  XmlNode root_;
  bool declaresBelowRoot_{false};
  std::uint32_t period_{1};
};

}  // namespace docx
