#pragma once

#include <memory>
#include <string>
#include <vector>

#include "hosts/docx/fields/IndexSyntax.h"

namespace docx {

/// An entry in the document.
struct IndexEntry {
  std::shared_ptr<const IndexMark> mark;  ///< shared by the entries that say the same; never nullptr
  int page{1};                            ///< counted through the whole document
  std::u16string label;                   ///< what is printed for that page
  // Of an entry for a range (\r), its last page; otherwise 0 and nothing.
  int lastPage{0};
  std::u16string lastLabel{};
  std::u16string sequence{};  ///< the number before the page when the index asks for one (\s)
};

/// A stretch of an index paragraph; a tab is 9.
struct IndexRun {
  std::u16string text;
  bool bold{false};
  bool italic{false};

  bool operator==(const IndexRun&) const = default;
};

struct IndexParagraph {
  int level{1};         ///< 1 to 9: the style "Index 1" to "Index 9"
  bool heading{false};  ///< a letter's heading, in style "Index Heading"
  std::vector<IndexRun> runs{};

  bool operator==(const IndexParagraph&) const = default;
};

/// Lays out the result of an INDEX field as Word does. Never empty: without entries it is Word's sentence that says so.
/// @param entries those of the document, in its order; those of other types are left out here
std::vector<IndexParagraph> BuildIndexContent(const std::vector<IndexEntry>& entries, const IndexOptions& options);

}  // namespace docx
