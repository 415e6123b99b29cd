#include <algorithm>

#include "hosts/docx/story/InsertionPoint.h"
#include "hosts/docx/story/Story.h"
#include "hosts/docx/story/TextElement.h"
#include "hosts/docx/xml/Utf.h"
#include "platform/word/Constants.h"

namespace docx {

namespace {

/// A mark of a field in a run of its own.
template <typename Point>
Atom AddMark(XmlPart& part, Point& point, AtomKind kind) {
  XmlNode element = point.Add(part, "r").AppendChild(part.Name("fldChar"));
  const char* type = kind == AtomKind::kFieldBegin ? "begin" : kind == AtomKind::kFieldEnd ? "end" : "separate";
  part.SetAttribute(element, "fldCharType", type);
  return MakeAtom(element, kind, 1);
}

void AppendCode(XmlPart& part, XmlNode run, std::u16string_view code, std::vector<Atom>& atoms) {
  for (std::size_t from = 0; from < code.size();) {
    const std::size_t tab = std::min(code.find(word::kTab, from), code.size());
    if (tab > from) {
      XmlNode element = run.AppendChild(part.Name("instrText"));
      SetText(element, ToUtf8(code.substr(from, tab - from)));
      atoms.push_back(MakeAtom(element, AtomKind::kCode, tab - from));
    }
    if (tab < code.size()) atoms.push_back(MakeAtom(run.AppendChild(part.Name("tab")), AtomKind::kCharacter, 1));
    from = tab + 1;
  }
}

/// Takes what a simple field holds out of it. The data that a program keeps with it is no content of a paragraph.
template <typename Point>
void MoveContent(XmlPart& part, XmlNode field, Point& point) {
  for (XmlNode child = field.FirstChild(); child;) {
    const XmlNode next = child.NextSibling();
    if (!child.Is(part.Name("fldData"))) point.after = point.parent.InsertMoveAfter(child, point.after);
    child = next;
  }
}

}  // namespace

Position Story::InsertField(Position at, std::u16string_view code, const RevisionStamp* tracked,
                            Containers containers) {
  InsertionPoint point = PrepareInsertion(at, containers);
  if (tracked != nullptr) point = TrackInsertion(point, *tracked);
  std::vector<Atom> atoms;
  atoms.reserve(3);
  atoms.push_back(AddMark(*part_, point, AtomKind::kFieldBegin));
  AppendCode(*part_, point.Add(*part_, "r"), code, atoms);
  atoms.push_back(AddMark(*part_, point, AtomKind::kFieldEnd));
  std::u16string text;
  text.reserve(code.size() + 2);
  text += word::kFieldBegin;
  text += code;
  text += word::kFieldEnd;
  atoms_.Insert(point.before, atoms, text);
  MoveAnchors(at, 0, static_cast<Position>(text.size()));
  part_->Touch();
  return static_cast<Position>(text.size());
}

void Story::InsertFieldSeparator(Position at, const Tracking* tracked) {
  InsertionPoint point = PrepareInsertion(at);
  if (tracked != nullptr) point = TrackInsertion(point, *tracked);
  atoms_.Insert(point.before, {AddMark(*part_, point, AtomKind::kFieldSeparator)},
                std::u16string_view(&word::kFieldSeparator, 1));
  MoveAnchors(at, 0, 1);
  part_->Touch();
}

void Story::ResolveSimpleField(Position begin) {
  const AtomSequence::Place place = atoms_.At(begin);
  const Atom simple = atoms_.Get(place);
  if (simple.kind != AtomKind::kSimpleBegin) return;
  const std::u16string text(atoms_.Text(place));
  XmlNode field = simple.Node();
  InsertionPoint point{field.Parent(), field, place};
  std::vector<Atom> atoms{AddMark(*part_, point, AtomKind::kFieldBegin)};
  // Locked it stays locked.
  if (const XmlAttribute lock = part_->Attribute(field, "fldLock")) {
    part_->SetAttribute(atoms.front().Node(), "fldLock", std::string(lock.Value()).c_str());
  }
  AppendCode(*part_, point.Add(*part_, "r"), std::u16string_view(text).substr(1, text.size() - 2), atoms);
  atoms.push_back(AddMark(*part_, point, AtomKind::kFieldSeparator));
  for (Atom& atom : atoms) atom.deleted = simple.deleted;
  MoveContent(*part_, field, point);
  Atom end = AddMark(*part_, point, AtomKind::kFieldEnd);
  end.deleted = simple.deleted;
  field.Parent().RemoveChild(field);

  AtomSequence::Place last = place;
  while (atoms_.Get(last).kind != AtomKind::kSimpleEnd || atoms_.Get(last).Node() != field) last = atoms_.Next(last);
  atoms_.Insert(atoms_.Remove(last), {end}, std::u16string_view(&word::kFieldEnd, 1));
  atoms_.Insert(atoms_.Remove(atoms_.At(begin)), atoms, text);
  part_->Touch();
}

bool Story::EraseSimpleField(const AtomSequence::Place& begin, Position& left) {
  // The element goes with its end mark, and only when that is erased too.
  XmlNode field = atoms_.Get(begin).Node();
  AtomSequence::Place place = atoms_.Next(begin);
  const Position limit = place.start + left;
  while (!atoms_.IsEnd(place) && place.start < limit) {
    const Atom& atom = atoms_.Get(place);
    if (atom.kind == AtomKind::kSimpleEnd && atom.Node() == field) {
      InsertionPoint behind{field.Parent(), field, place};
      MoveContent(*part_, field, behind);
      const Position at = place.start;
      atoms_.Remove(place);
      MoveAnchors(at, 1, 0);
      field.Parent().RemoveChild(field);
      --left;
      return true;
    }
    place = atoms_.Next(place);
  }
  return false;
}

}  // namespace docx
