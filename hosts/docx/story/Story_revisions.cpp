#include <string>

#include "hosts/docx/story/ApartMark.h"
#include "hosts/docx/story/InsertionPoint.h"
#include "hosts/docx/story/Story.h"

namespace docx {

namespace {

bool IsInsertion(const XmlPart& part, XmlNode node) { return part.Is(node, Tag::kIns) || part.Is(node, Tag::kMoveTo); }

/// Whether the one could be the rest of the other, down to the number.
bool AreOneInsertion(const XmlPart& part, XmlNode first, XmlNode second) {
  return IsInsertion(part, first) && second && part.TagOf(first) == part.TagOf(second) &&
         first.AttributeText() == second.AttributeText();
}

}  // namespace

void Stamp(XmlPart& part, XmlNode revision, const RevisionStamp& stamp) {
  part.SetAttribute(revision, "id", std::to_string(stamp.id).c_str());
  part.SetAttribute(revision, "author", stamp.author.c_str());
  part.SetAttribute(revision, "date", stamp.date.c_str());
}

// Word divides another author's insertion around one's own, so that each can be taken or refused by itself. Where
// something else stands between, such as a link inside of an insertion, what is put there is tracked with all of it.
Story::InsertionPoint Story::TrackInsertion(InsertionPoint point, const RevisionStamp& stamp) {
  const bool inside = IsInsertion(*part_, point.parent);
  for (XmlNode up = inside ? point.parent.Parent() : point.parent; up && !part_->Is(up, Tag::kP); up = up.Parent()) {
    if (IsInsertion(*part_, up)) return point;
  }
  if (inside) {
    DivideContainer(point.parent, point.after);
    point.after = point.parent;
    point.parent = point.parent.Parent();
  }
  XmlNode insertion = point.Add(*part_, "ins");
  Stamp(*part_, insertion, stamp);
  hasRevisions_ = true;
  return {insertion, {}, point.before};
}

void Story::KeepInsertionsApart(XmlNode first) {
  if (first && AreOneInsertion(*part_, first, first.NextSibling())) apart_.push_back(PutApartMark(first));
}

void Story::JoinInsertions(XmlNode first, XmlNode second) {
  if (!AreOneInsertion(*part_, first, second)) return;
  for (XmlNode child = second.FirstChild(); child;) {
    const XmlNode next = child.NextSibling();
    first.AppendMove(child);
    child = next;
  }
  second.Parent().RemoveChild(second);
}

bool Story::AreKeptApart(XmlNode before, XmlNode after) const { return AreOneInsertion(*part_, before, after); }

}  // namespace docx
