#include "hosts/docx/story/InsertionPoint.h"
#include "hosts/docx/story/Story.h"
#include "hosts/docx/styles/Marks.h"
#include "platform/word/HostError.h"

namespace docx {

namespace {

constexpr const char* kDivided = "divided";

/// The mark of a second part, or none.
XmlNode DividedMark(const XmlPart& part, XmlNode second) {
  const Tag tag = part.TagOf(second);
  if (!IsDivisible(tag) || IsRevision(tag)) return {};
  const XmlNode first = second.FirstChild();
  return first.Type() == XmlType::kInstruction && first == FindMark(second, kDivided) ? first : XmlNode();
}

}  // namespace

// Revisions say the same in both parts, number included, and are known by that.
bool IsRevision(Tag tag) {
  return tag == Tag::kIns || tag == Tag::kDel || tag == Tag::kMoveFrom || tag == Tag::kMoveTo;
}

// Of what else holds runs, a simple field is one as a whole, and a branch for some readers stands by another.
bool IsDivisible(Tag tag) {
  switch (tag) {
    case Tag::kHyperlink:
    case Tag::kSmartTag:
    case Tag::kCustomXml:
    case Tag::kSdt:
    case Tag::kSdtContent:
    case Tag::kDir:
    case Tag::kBdo:
      return true;
    default:
      return IsRevision(tag);
  }
}

bool HasElementBehind(XmlNode node) {
  do {
    node = node.NextSibling();
  } while (node && node.Type() != XmlType::kElement);
  return !node.Empty();
}

XmlNode Story::DivideContainer(XmlNode container, XmlNode lastOfFirst) {
  const Tag tag = part_->TagOf(container);
  if (!IsDivisible(tag)) {
    throw word::HostError(word::kCommandFailed, u"A paragraph cannot be divided here.", "Range");
  }
  XmlNode second = container.Parent().InsertChildAfter(container.Entry(), container);
  second.CopyAttributes(container);
  if (!IsRevision(tag)) MakeMark(second.AppendChild(XmlType::kInstruction), kDivided);
  for (XmlNode child = lastOfFirst.NextSibling(); child;) {
    const XmlNode next = child.NextSibling();
    second.AppendMove(child);
    child = next;
  }
  return second;
}

void Story::JoinDivided(XmlNode first, XmlNode second) {
  while (first && second) {
    const XmlNode mark = DividedMark(*part_, second);
    const bool isDivided = mark && first.Name() == second.Name();
    if (!isDivided && !AreOneRevision(first, second)) return;
    if (isDivided) second.RemoveChild(mark);
    const XmlNode last = first.LastChild();
    const XmlNode next = second.FirstChild();
    for (XmlNode child = next; child;) {
      const XmlNode behind = child.NextSibling();
      first.AppendMove(child);
      child = behind;
    }
    second.Parent().RemoveChild(second);
    first = last;
    second = next;
  }
}

}  // namespace docx
