#pragma once

#include "hosts/docx/story/Story.h"

namespace docx {

/// Where new run-level elements go: behind `after` in `parent`, or, without it, first in the parent (behind its
/// properties).
struct Story::InsertionPoint {
  XmlNode parent;
  XmlNode after;
  AtomSequence::Place before;  ///< of the atom that will follow the new ones

  template <typename Local>
  XmlNode Add(const XmlPart& part, const Local& local) {
    XmlNode added;
    if (after) {
      added = parent.InsertChildAfter(part.Name(local), after);
    } else if (const XmlNode properties = part.Child(parent, Tag::kPPr)) {
      added = parent.InsertChildAfter(part.Name(local), properties);
    } else {
      added = parent.PrependChild(part.Name(local));
    }
    after = added;
    return added;
  }
};

/// The text of an element that was just made, as an atom.
inline Atom MakeAtom(XmlNode element, AtomKind kind, std::size_t length) {
  return {element.Data(), static_cast<std::uint32_t>(length), kind, false};
}

/// Whether an element follows in the same container; white space between elements is nothing.
bool HasElementBehind(XmlNode node);
/// Whether an element is a tracked insertion, deletion or move of what it holds.
bool IsRevision(Tag tag);
/// Whether an element around runs may become two.
bool IsDivisible(Tag tag);

}  // namespace docx
