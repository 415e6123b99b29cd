#include "hosts/docx/story/InsertionPoint.h"
#include "hosts/docx/story/Story.h"
#include "hosts/docx/story/TextElement.h"
#include "hosts/docx/xml/Utf.h"

namespace docx {

void Story::MoveCharacter(Position from, Position to, const TrackedMove* tracked) {
  const std::u16string character = Text(from, from + 1);
  XmlNode copy = InsertCopyOf(from, to, character, tracked != nullptr ? &tracked->insertion : nullptr);
  PutBeforeBookmarkStarts(to, copy);
  if (tracked != nullptr) {
    MarkDeleted(from, tracked->deletion);
    return;
  }
  for (const auto& [first, last] : BookmarksWithin(from, from + 1)) {
    MoveBookmarkMark(last, to + 1);
    MoveBookmarkMark(first, to);
  }
  Erase(from, from + 1);
  // It is no less a part of the text than it was where it stood.
  inserted_.erase(copy.Data());
  RejoinRuns(to - 1, to);
}

/// @return what was inserted: the run, or the tracked insertion around it
XmlNode Story::InsertCopyOf(Position from, Position to, const std::u16string& character, const RevisionStamp* tracked) {
  InsertionPoint point = PrepareInsertion(to);
  // An insertion of somebody else's is tracked already.
  const bool inInsertion = part_->Is(point.parent, Tag::kIns) || part_->Is(point.parent, Tag::kMoveTo);
  XmlNode added;
  XmlNode run;
  if (tracked != nullptr && !inInsertion) {
    added = point.Add(*part_, "ins");
    Stamp(*part_, added, *tracked);
    run = added.AppendChild(part_->Name("r"));
    hasRevisions_ = true;
  } else {
    added = run = point.Add(*part_, "r");
    inserted_.insert(run.Data());
  }
  if (const XmlNode properties = part_->Child(RunAt(from), Tag::kRPr)) {
    run.AppendCopy(properties).RemoveChild(part_->Name("rPrChange"));
  }
  XmlNode text = run.AppendChild(part_->Name("t"));
  SetText(text, ToUtf8(character));
  atoms_.Insert(point.before, {{text.Data(), 1, AtomKind::kText, false}}, character);
  MoveAnchors(to, 0, 1);
  part_->Touch();
  return added;
}

/// A bookmark that begins where the character was inserted shall not hold it.
void Story::PutBeforeBookmarkStarts(Position character, XmlNode inserted) {
  while (true) {
    const AtomSequence::Place place = atoms_.At(character);
    if (atoms_.IsBegin(place)) return;
    const AtomSequence::Place before = atoms_.Previous(place);
    const Atom mark = atoms_.Get(before);
    if (mark.kind != AtomKind::kBookmarkStart || mark.Node().NextSibling() != inserted) return;
    inserted.Parent().InsertMoveAfter(mark.Node(), inserted);
    atoms_.Remove(before);
    atoms_.Insert(atoms_.Next(atoms_.At(character)), {mark}, {});
  }
}

void Story::MarkDeleted(Position at, const RevisionStamp& stamp) {
  DivideRunsAt(at);
  DivideRunsAt(at + 1);
  const AtomSequence::Place place = atoms_.At(at);
  XmlNode text = atoms_.Get(place).Node();
  const XmlNode run = text.Parent();
  XmlNode deletion = run.Parent().InsertChildBefore(part_->Name("del"), run);
  Stamp(*part_, deletion, stamp);
  deletion.AppendMove(run);
  text.SetName(part_->Name("delText"));
  atoms_.SetDeleted(place, true);
  hasRevisions_ = true;
  part_->Touch();
}

}  // namespace docx
