#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <cstdint>

namespace docx {

/// What one element contributes to a story's text.
enum class AtomKind : std::uint8_t {
  kText,            ///< w:t or w:delText; one unit per code unit
  kCode,            ///< w:instrText: text of a field code
  kCharacter,       ///< a one-character element of a run: tab, break, note reference, inline object ...
  kFieldBegin,      ///< w:fldChar
  kFieldSeparator,  ///< w:fldChar
  kFieldEnd,        ///< w:fldChar
  kSimpleBegin,     ///< w:fldSimple: begin mark, code and separator
  kSimpleEnd,       ///< w:fldSimple: end mark
  kParagraphMark,   ///< w:p: 13, 12 where it ends a section, 7 where it ends a cell
  kRowMark,         ///< w:tr: 7
  kCellMark,        ///< w:tc that does not end in a paragraph: 7
  kBookmarkStart,   ///< no length
  kBookmarkEnd,     ///< no length
};

/// One piece of a story in document order. Elements without length that are no bookmarks have no atom.
struct Atom {
  XmlNodeData* element{nullptr};
  std::uint32_t length{0};
  AtomKind kind{AtomKind::kText};
  bool deleted{false};  ///< a tracked deletion or the place a move came from

  XmlNode Node() const { return XmlNode(element); }
  /// Inside a run, so that its parent is the w:r.
  bool InRun() const { return kind <= AtomKind::kFieldEnd; }
};

}  // namespace docx
