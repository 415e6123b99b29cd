#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <string_view>
#include <vector>

#include "hosts/docx/story/AtomSequence.h"
#include "hosts/docx/xml/XmlPart.h"

namespace docx {

/// What a stretch of XML holds: paragraphs and tables, rows and cells, or runs.
enum class Within { kBlocks, kRows, kText };

/// How many fields may be open at a place; beyond it the document is refused. Word itself comes to a few dozen.
inline constexpr int kMaxFieldDepth = 1000;

/// Reads blocks of XML into the atoms of a story. A story that is beyond the limits is a PackageError.
class StoryBuilder {
 public:
  /// @param apart gets the marks that keep equal runs apart
  StoryBuilder(const XmlPart& part, AtomSequence& atoms, std::vector<XmlNode>& apart)
      : part_(part),
        atoms_(atoms),
        apart_(apart),
        marksMayBeDeleted_(part.Has(Tag::kDel) || part.Has(Tag::kMoveFrom)) {}
  void AddBlocks(XmlNode container) { AddBlocks(container, false); }
  /// Whether a tracked insertion, deletion or move came by.
  bool HasRevisions() const { return hasRevisions_; }

  /// What an element of a run's content contributes; of kind kText with length 0 when nothing.
  struct Piece {
    Atom atom;
    std::u16string text;
  };
  static Piece ReadRunContent(const XmlPart& part, XmlNode element, bool deleted);

 private:
  void AddBlocks(XmlNode container, bool deleted);
  void AddParagraph(XmlNode paragraph, bool deleted);
  void AddTable(XmlNode table, bool deleted);
  void AddCell(XmlNode cell, bool deleted);
  void AddInlines(XmlNode parent, bool deleted);
  /// Adds what an element wraps, if anything.
  void AddWrapped(XmlNode element, Within within, bool deleted, void (StoryBuilder::*add)(XmlNode, bool));
  void AddRun(XmlNode run, bool deleted);
  void Add(XmlNode element, AtomKind kind, std::u16string_view text, bool deleted);
  void CountField(AtomKind kind);

  const XmlPart& part_;
  AtomSequence& atoms_;
  std::vector<XmlNode>& apart_;
  const bool marksMayBeDeleted_;
  /// The text that is being added.
  std::u16string text_;
  /// The last paragraph mark, which becomes the cell's mark when the cell ends behind it.
  AtomSequence::Place lastMark_;
  bool lastIsMark_{false};
  bool hasRevisions_{false};
  int openFields_{0};
};

/// The branch of mc:AlternateContent that a reader of today takes; empty when there is none.
XmlNode ChosenBranch(const XmlPart& part, XmlNode alternate);

/// What stands in the place of an element that only wraps others.
struct Wrapped {
  XmlNode content{};     ///< whose children they are; empty when the element wraps nothing
  bool deleted{false};   ///< by a tracked deletion, or the place that a move came from
  bool inserted{false};  ///< likewise
};
Wrapped WrappedBy(const XmlPart& part, XmlNode element, Within within);

}  // namespace docx
