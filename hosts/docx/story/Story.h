#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "hosts/docx/story/AtomSequence.h"
#include "hosts/docx/story/RevisionStamp.h"
#include "hosts/docx/xml/XmlPart.h"

namespace docx {

class Story;

/// A stretch of a story that follows edits: what every range and the selection hold. It registers with its
/// story; when the story goes first, it is detached.
class Anchor {
 public:
  Anchor(Story& story, Position start, Position end);
  ~Anchor();
  Anchor(const Anchor&) = delete;
  Anchor& operator=(const Anchor&) = delete;

  /// nullptr after the story has gone.
  Story* Of() const { return story_; }
  Position start;
  Position end;

 private:
  friend class Story;
  Story* story_;
  std::size_t slot_;
};

/// One story of a document: its text as Word counts it, over the XML that holds it. Positions are
/// code units from 0; every edit changes XML and text together and moves the anchors.
class Story {
 public:
  /// @param containers the elements whose blocks are the story, in order: the body, the notes, ...
  Story(std::shared_ptr<XmlPart> part, int type, const std::vector<XmlNode>& containers);
  ~Story();
  Story(const Story&) = delete;
  Story& operator=(const Story&) = delete;

  /// A WdStoryType.
  int Type() const { return type_; }
  XmlPart& Part() const { return *part_; }
  const AtomSequence& Atoms() const { return atoms_; }
  Position Length() const { return atoms_.Length(); }
  /// Whether anything in it was a tracked insertion, deletion or move when it was read.
  bool HasRevisions() const { return hasRevisions_; }
  /// One unit a position. @pre 0 <= start <= end <= Length()
  std::u16string Text(Position start, Position end) const;

  // Edits. Positions outside the story are a programming error.

  /// Inserts text: CR a paragraph mark, 9 a tab, 11 a line break, 12 a page break, all else as it is. The text gets the
  /// formatting of the character before it in its paragraph, or else of the one after it.
  /// @param tracked whose insertion it is; nullptr: untracked
  void InsertText(Position at, std::u16string_view text, const Tracking* tracked = nullptr);
  /// What holds runs in a paragraph, such as a link or an insertion, may hold what is inserted in its middle, or is
  /// divided by it, and joined again when that goes.
  enum class Containers { kHold, kDivided };
  /// Inserts a field of begin mark, code and end mark, in runs without formatting of their own.
  /// @param tracked as one insertion; nullptr: untracked @return its length
  Position InsertField(Position at, std::u16string_view code, const RevisionStamp* tracked = nullptr,
                       Containers containers = Containers::kHold);
  /// Puts the separator mark into a field that has none. @param tracked as above
  void InsertFieldSeparator(Position at, const Tracking* tracked = nullptr);
  /// Gives a simple field, one element, the marks of a complex one, which may hold paragraphs. Positions stay. Any
  /// other field stays as it is. @pre a field begins at the position
  void ResolveSimpleField(Position begin);
  /// Exchanges the character of a paragraph mark: 12 once its paragraph has got section properties, 13 when it lost
  /// them.
  void SetMarkCharacter(Position mark, char16_t character);
  /// Removes text. Bookmarks whose whole text goes are removed with it. A paragraph mark that has no other paragraph
  /// of the same container behind it stays.
  void Erase(Position start, Position end);
  struct TrackedMove {
    RevisionStamp deletion;
    RevisionStamp insertion;
  };
  /// Puts a character of a text elsewhere in its story, with the formatting that it has; outside of a bookmark that
  /// begins there. A bookmark around nothing else goes along unless the move is tracked. @param tracked as a deletion
  /// and an insertion; nullptr: untracked @pre the character is behind no mark of a field, from < to
  void MoveCharacter(Position from, Position to, const TrackedMove* tracked);
  /// Divides runs so that none spans the stretch's ends. @return the runs between, in order, each once; only runs
  /// with text that is not deleted
  std::vector<XmlNode> IsolateRuns(Position start, Position end);
  /// After runs between changed their formatting: joins neighbours that were divided and have become equal again.
  void RejoinRuns(Position start, Position end);
  /// Takes away the marks that keep equal runs apart, where those are neighbours again. Until then they hold, so that
  /// the order in which changes are taken back does not matter.
  void DropApartMarks();
  struct BookmarkElements {
    XmlNode first;
    XmlNode last;
  };
  /// A place behind the last paragraph mark, or before a row's, counts as the one before the mark in front of it, one
  /// in a simple field's code as the one behind the code.
  BookmarkElements InsertBookmark(Position start, Position end, std::string_view name, int id);
  /// Moves a bookmark's start to a position not behind its end, or its end to one not before its start.
  void MoveBookmarkMark(XmlNode element, Position to);
  /// Removes the marks, not the text.
  void RemoveBookmark(XmlNode startElement, XmlNode endElement);

  /// Called before a bookmark's elements go, with its w:bookmarkStart.
  std::function<void(XmlNode)> bookmarkRemoved;

  /// The w:p that the position is in: the one whose mark is at or behind it.
  XmlNode ParagraphAt(Position position) const;
  /// Where the paragraph that the position is in begins and where it ends, its mark included.
  Position ParagraphStart(Position position) const;
  Position ParagraphEnd(Position position) const;
  /// The position, or the one behind the character that it is inside of: a surrogate pair has two.
  Position BetweenCharacters(Position position) const;
  /// The run that holds the character at the position; empty for marks of paragraphs, cells and rows.
  XmlNode RunAt(Position position) const;

 private:
  friend class Anchor;
  struct InsertionPoint;

  XmlNode ParagraphOf(const AtomSequence::Place& place) const;
  InsertionPoint PrepareInsertion(Position at, Containers containers = Containers::kHold);
  XmlNode FormattingRun(const AtomSequence::Place& at) const;
  /// @throws word::HostError where no text can be divided
  void RequireDivisible(Position position) const;
  void DivideAt(Position position);
  void DivideRunsAt(Position position);
  XmlNode DivideRun(const AtomSequence::Place& firstOfSecond);
  /// @return the second part
  XmlNode DivideContainer(XmlNode container, XmlNode lastOfFirst);
  void InsertParagraphMark(Position at, const Tracking* tracked);
  void InsertRunText(Position at, std::u16string_view text, const Tracking* tracked);
  bool MergeWithNext(const AtomSequence::Place& mark);
  void RemoveEmptied(XmlNode run);
  /// Those that are around nothing but text of the stretch.
  std::vector<BookmarkElements> BookmarksWithin(Position start, Position end) const;
  bool EraseSimpleField(const AtomSequence::Place& begin, Position& left);
  /// Of the marks of separate runs in front of a run one at most is wanted, and none at a paragraph's start.
  void RejoinAt(Position position);
  void MoveAnchors(Position at, Position removed, Position inserted);
  XmlNode InsertCopyOf(Position from, Position to, const std::u16string& character, const RevisionStamp* tracked);
  /// The place inside of a new tracked insertion at the point.
  InsertionPoint TrackInsertion(InsertionPoint point, const RevisionStamp& stamp);
  /// The same, but an insertion of the same author and date goes on.
  InsertionPoint TrackInsertion(InsertionPoint point, const Tracking& tracking);
  /// Before something comes between neighbours that say the same, which must not be taken for one then that was
  /// divided.
  void KeepRevisionsApart(XmlNode first);
  /// Joins neighbours that were one, and what was divided with them, once what divided them has gone.
  void JoinDivided(XmlNode first, XmlNode second);
  /// Whether of two tracked changes side by side the one could be the rest of the other, down to the number.
  bool AreOneRevision(XmlNode first, XmlNode second) const;
  void PutBeforeBookmarkStarts(Position character, XmlNode inserted);
  void MarkDeleted(Position at, const RevisionStamp& stamp);

  std::shared_ptr<XmlPart> part_;
  int type_;
  AtomSequence atoms_;
  bool hasRevisions_{false};
  std::vector<Anchor*> anchors_;
  std::vector<XmlNode> apart_;
  /// Runs that were made for inserted text: they are joined with each other only, and nothing is lost by that.
  std::unordered_set<const XmlNodeData*> inserted_;
};

}  // namespace docx
