#include <string>

#include "hosts/docx/story/ApartMark.h"
#include "hosts/docx/story/InsertionPoint.h"
#include "hosts/docx/story/Story.h"

namespace docx {

namespace {

bool IsInsertion(const XmlPart& part, XmlNode node) { return part.Is(node, Tag::kIns) || part.Is(node, Tag::kMoveTo); }

}  // namespace

void Stamp(XmlPart& part, XmlNode revision, const RevisionStamp& stamp) {
  part.SetAttribute(revision, "id", std::to_string(stamp.id).c_str());
  part.SetAttribute(revision, "author", stamp.author.c_str());
  part.SetAttribute(revision, "date", stamp.date.c_str());
}

bool IsInsertionBy(const XmlPart& part, XmlNode node, const Tracking& tracking) {
  return part.Is(node, Tag::kIns) && part.Attribute(node, "author").Value() == tracking.author &&
         part.Attribute(node, "date").Value() == tracking.date;
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

Story::InsertionPoint Story::TrackInsertion(InsertionPoint point, const Tracking& tracking) {
  if (IsInsertionBy(*part_, point.parent, tracking)) return point;
  if (IsInsertionBy(*part_, point.after, tracking)) return {point.after, point.after.LastChild(), point.before};
  return TrackInsertion(point, tracking.Next());
}

void Story::KeepRevisionsApart(XmlNode first) {
  if (first && AreOneRevision(first, first.NextSibling())) apart_.push_back(PutApartMark(first));
}

bool Story::AreOneRevision(XmlNode first, XmlNode second) const {
  return IsRevision(part_->TagOf(first)) && second && part_->TagOf(first) == part_->TagOf(second) &&
         first.AttributeText() == second.AttributeText();
}

}  // namespace docx
