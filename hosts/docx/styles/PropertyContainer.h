#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include "hosts/docx/xml/XmlPart.h"

namespace docx {

/// The w:rPr or w:pPr of one run or paragraph, for changes that can be taken back to the letter: elements go in at
/// their place in the schema's order, a container that is made for the first one goes with the last one, and one
/// that was there and empty survives, because it carries a mark (<?kelvarin keep?>) meanwhile.
class PropertyContainer {
 public:
  /// The w:rPr of a w:r, or of a w:p's mark.
  static PropertyContainer OfRun(XmlPart& part, XmlNode node);
  /// The w:pPr of a w:p.
  static PropertyContainer OfParagraph(XmlPart& part, XmlNode p);

  /// The container itself; empty when there is none.
  XmlNode Node() const { return node_; }
  /// A property by local name; empty when there is none.
  XmlNode Find(const char* local) const { return part_.Child(node_, local); }
  /// The property, made and put in its place when it is missing.
  XmlNode Ensure(const char* local);
  /// Takes a property out, and the container when nothing else is in it and it was made here.
  void Remove(XmlNode property);

 private:
  PropertyContainer(XmlPart& part, XmlNode owner, Tag tag);
  XmlNode Add(XmlNode container, const char* local);

  XmlPart& part_;
  XmlNode owner_;  // run or paragraph
  Tag tag_;
  XmlNode node_;
};

}  // namespace docx
