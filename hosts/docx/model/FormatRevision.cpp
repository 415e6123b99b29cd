#include "hosts/docx/model/FormatRevision.h"

#include <string_view>

#include "hosts/docx/styles/PropertyContainer.h"
#include "hosts/docx/styles/RunProperties.h"

namespace docx {

namespace {

constexpr const char* kChange = "rPrChange";

bool IsBy(const XmlPart& part, XmlNode revision, const Tracking& tracking) {
  return part.Attribute(revision, "author").Value() == tracking.author;
}

bool IsInInsertionBy(const XmlPart& part, XmlNode run, const Tracking& tracking) {
  for (XmlNode up = run.Parent(); up && !part.Is(up, Tag::kP); up = up.Parent()) {
    if (part.Is(up, Tag::kIns) && IsBy(part, up, tracking)) return true;
  }
  return false;
}

/// The next property from there on; marks and the note itself are none.
XmlNode Property(XmlNode node, XmlNode note) {
  while (node && (!node.IsElement() || node == note)) node = node.NextSibling();
  return node;
}

}  // namespace

void NoteFormatting(XmlPart& part, XmlNode run, const Tracking* tracked) {
  if (tracked == nullptr || IsInInsertionBy(part, run, *tracked)) return;
  PropertyContainer properties = PropertyContainer::OfRun(part, run);
  if (properties.Find(kChange)) return;
  XmlNode note = properties.Ensure(kChange);
  Stamp(part, note, tracked->Next());
  XmlNode was = note.AppendChild(part.Name("rPr"));
  for (XmlNode each = Property(properties.Node().FirstChild(), note); each; each = Property(each.NextSibling(), note)) {
    was.AppendCopy(each);
  }
  part.Touch();
}

void DropNoteOfEqualFormatting(XmlPart& part, XmlNode run, const Tracking& own) {
  if (!part.Has(kChange)) return;
  PropertyContainer properties = PropertyContainer::OfRun(part, run);
  const XmlNode note = properties.Find(kChange);
  if (!note || !IsBy(part, note, own)) return;
  XmlNode now = Property(properties.Node().FirstChild(), note);
  XmlNode before = Property(part.Child(note, Tag::kRPr).FirstChild(), {});
  while (now && before && SameTree(now, before)) {
    now = Property(now.NextSibling(), note);
    before = Property(before.NextSibling(), {});
  }
  if (now || before) return;
  properties.Remove(note);
  part.Touch();
}

}  // namespace docx
