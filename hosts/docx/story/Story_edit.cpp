#include <algorithm>
#include <cstring>
#include <utility>

#include "hosts/docx/story/ApartMark.h"
#include "hosts/docx/story/Story.h"
#include "hosts/docx/story/StoryBuilder.h"
#include "hosts/docx/story/TextElement.h"
#include "hosts/docx/styles/RunProperties.h"
#include "hosts/docx/xml/Utf.h"
#include "platform/word/Constants.h"
#include "platform/word/HostError.h"

namespace docx {

/// Where new run-level elements go: behind `after` in `parent`, or, without it, first in the parent (behind its
/// properties).
struct Story::InsertionPoint {
  pugi::xml_node parent;
  pugi::xml_node after;
  AtomSequence::Place before;  ///< of the atom that will follow the new ones

  pugi::xml_node Add(const XmlPart& part, const char* local) {
    pugi::xml_node added;
    if (after) {
      added = parent.insert_child_after(part.Name(local), after);
    } else if (const pugi::xml_node properties = part.Child(parent, Tag::kPPr)) {
      added = parent.insert_child_after(part.Name(local), properties);
    } else {
      added = parent.prepend_child(part.Name(local));
    }
    after = added;
    return added;
  }
};

namespace {

bool IsJoinable(const Atom& atom) { return atom.kind == AtomKind::kText || atom.kind == AtomKind::kCharacter; }

/// Whether an element follows in the same container; white space between elements is nothing.
bool HasElementBehind(pugi::xml_node node) {
  do {
    node = node.next_sibling();
  } while (node && node.type() != pugi::node_element);
  return !node.empty();
}

/// The text of an element of run content that was just made, as an atom.
Atom MakeAtom(pugi::xml_node element, AtomKind kind, std::size_t length) {
  return {element.internal_object(), static_cast<std::uint32_t>(length), kind, false};
}

}  // namespace

void Story::DivideAt(Position position) {
  const AtomSequence::Place place = atoms_.At(position);
  if (place.start == position) return;
  const Atom& atom = atoms_.Get(place);
  if (atom.kind != AtomKind::kText && atom.kind != AtomKind::kCode) {
    throw word::HostError(word::kCommandFailed, u"This place in a field cannot be edited.", "Range");
  }
  const auto units = static_cast<std::uint32_t>(position - place.start);
  atoms_.Divide(place, units, DivideText(atom.Node(), units));
  part_->Touch();
}

pugi::xml_node Story::DivideRun(const AtomSequence::Place& firstOfSecond) {
  pugi::xml_node element = atoms_.Get(firstOfSecond).Node();
  const pugi::xml_node run = element.parent();
  pugi::xml_node second = run.parent().insert_child_after(run.name(), run);
  for (const pugi::xml_attribute attribute : run.attributes()) second.append_copy(attribute);
  if (const pugi::xml_node properties = part_->Child(run, Tag::kRPr)) second.append_copy(properties);
  while (element) {
    const pugi::xml_node next = element.next_sibling();
    second.append_move(element);
    element = next;
  }
  part_->Touch();
  return second;
}

void Story::DivideRunsAt(Position position) {
  DivideAt(position);
  const AtomSequence::Place place = atoms_.At(position);
  if (atoms_.IsEnd(place) || atoms_.IsBegin(place)) return;
  const Atom& next = atoms_.Get(place);
  const Atom& previous = atoms_.Get(atoms_.Previous(place));
  if (!next.InRun() || !previous.InRun()) return;
  const pugi::xml_node before = previous.Node().parent();
  const pugi::xml_node after = next.Node().parent();
  if (before == after) {
    DivideRun(place);
  } else if (before.next_sibling() == after && IsJoinable(previous) && IsJoinable(next) &&
             !inserted_.contains(before.internal_object()) && !inserted_.contains(after.internal_object()) &&
             SameRunFormatting(*part_, before, after)) {
    apart_.push_back(PutApartMark(before));
  }
}

Story::InsertionPoint Story::PrepareInsertion(Position at) {
  DivideRunsAt(at);
  const AtomSequence::Place place = atoms_.At(at);
  const pugi::xml_node paragraph = atoms_.IsEnd(place) ? pugi::xml_node() : ParagraphOf(place);
  if (!paragraph) {
    throw word::HostError(word::kCommandFailed, u"Text cannot be inserted behind the end of a table row.", "Range");
  }
  InsertionPoint point{paragraph, {}, place};
  if (atoms_.IsBegin(place)) return point;
  const AtomSequence::Place before = atoms_.Previous(place);
  if (ParagraphOf(before) != paragraph || atoms_.Get(before).kind == AtomKind::kParagraphMark) return point;
  const Atom& previous = atoms_.Get(before);
  if (previous.kind == AtomKind::kSimpleBegin) {
    point.parent = previous.Node();
    return point;
  }
  point.after = previous.InRun() ? previous.Node().parent() : previous.Node();
  // What is inserted behind deleted text is no part of the deletion, and behind the last of a container not in it.
  for (pugi::xml_node up = point.after.parent(); up != paragraph; up = up.parent()) {
    const Tag tag = part_->TagOf(up);
    // The end mark of a simple field stands behind its content; what stands beside a branch is only another branch.
    if (tag == Tag::kFldSimple) break;
    if (tag != Tag::kAlternateContent && HasElementBehind(point.after)) {
      if (tag != Tag::kDel && tag != Tag::kMoveFrom) break;
      DivideContainer(up, point.after);
    }
    point.after = up;
  }
  point.parent = point.after.parent();
  return point;
}

void Story::DivideContainer(pugi::xml_node container, pugi::xml_node lastOfFirst) {
  pugi::xml_node second = container.parent().insert_child_after(container.name(), container);
  for (const pugi::xml_attribute attribute : container.attributes()) second.append_copy(attribute);
  for (pugi::xml_node child = lastOfFirst.next_sibling(); child;) {
    const pugi::xml_node next = child.next_sibling();
    second.append_move(child);
    child = next;
  }
}

void Story::InsertText(Position at, std::u16string_view text) {
  while (!text.empty()) {
    const std::size_t mark = text.find(word::kParagraphMark);
    const std::u16string_view line = text.substr(0, mark);
    if (!line.empty()) InsertRunText(at, line);
    at += static_cast<Position>(line.size());
    if (mark == std::u16string_view::npos) return;
    InsertParagraphMark(at++);
    text.remove_prefix(mark + 1);
  }
}

pugi::xml_node Story::FormattingRun(const AtomSequence::Place& at) const {
  if (!atoms_.IsBegin(at)) {
    AtomSequence::Place before = atoms_.Previous(at);
    while (atoms_.Get(before).length == 0 && !atoms_.IsBegin(before)) before = atoms_.Previous(before);
    if (atoms_.Get(before).InRun()) return atoms_.Get(before).Node().parent();
  }
  return !atoms_.IsEnd(at) && atoms_.Get(at).InRun() ? atoms_.Get(at).Node().parent() : pugi::xml_node();
}

void Story::InsertRunText(Position at, std::u16string_view text) {
  InsertionPoint point = PrepareInsertion(at);
  const pugi::xml_node model = FormattingRun(point.before);
  pugi::xml_node run = point.Add(*part_, "r");
  inserted_.insert(run.internal_object());
  if (const pugi::xml_node properties = part_->Child(model, Tag::kRPr)) {
    run.append_copy(properties).remove_child(part_->Name("rPrChange"));
  }
  std::vector<Atom> atoms;
  for (std::size_t from = 0; from < text.size();) {
    const std::size_t special = std::min(text.find_first_of(u"\t\v\f\x1e\x1f", from), text.size());
    if (special > from) {
      pugi::xml_node element = run.append_child(part_->Name("t"));
      SetText(element, ToUtf8(text.substr(from, special - from)));
      atoms.push_back(MakeAtom(element, AtomKind::kText, special - from));
    }
    if (special < text.size()) {
      const char16_t unit = text[special];
      const char* local = unit == word::kTab                 ? "tab"
                          : unit == word::kNonBreakingHyphen ? "noBreakHyphen"
                          : unit == word::kOptionalHyphen    ? "softHyphen"
                                                             : "br";
      pugi::xml_node element = run.append_child(part_->Name(local));
      if (unit == word::kPageBreak) part_->SetAttribute(element, "type", "page");
      atoms.push_back(MakeAtom(element, AtomKind::kCharacter, 1));
    }
    from = special + 1;
  }
  atoms_.Insert(point.before, atoms, text);
  MoveAnchors(at, 0, static_cast<Position>(text.size()));
  part_->Touch();
}

Position Story::InsertField(Position at, std::u16string_view code) {
  InsertionPoint point = PrepareInsertion(at);
  std::vector<Atom> atoms;
  const auto mark = [&](const char* type, AtomKind kind) {
    pugi::xml_node element = point.Add(*part_, "r").append_child(part_->Name("fldChar"));
    part_->SetAttribute(element, "fldCharType", type);
    atoms.push_back(MakeAtom(element, kind, 1));
  };
  mark("begin", AtomKind::kFieldBegin);
  pugi::xml_node run = point.Add(*part_, "r");
  for (std::size_t from = 0; from < code.size();) {
    const std::size_t tab = std::min(code.find(word::kTab, from), code.size());
    if (tab > from) {
      pugi::xml_node element = run.append_child(part_->Name("instrText"));
      SetText(element, ToUtf8(code.substr(from, tab - from)));
      atoms.push_back(MakeAtom(element, AtomKind::kCode, tab - from));
    }
    if (tab < code.size()) {
      atoms.push_back(MakeAtom(run.append_child(part_->Name("tab")), AtomKind::kCharacter, 1));
    }
    from = tab + 1;
  }
  mark("end", AtomKind::kFieldEnd);
  std::u16string text(1, word::kFieldBegin);
  text += code;
  text += word::kFieldEnd;
  atoms_.Insert(point.before, atoms, text);
  MoveAnchors(at, 0, static_cast<Position>(text.size()));
  part_->Touch();
  return static_cast<Position>(text.size());
}

void Story::InsertFieldSeparator(Position at) {
  InsertionPoint point = PrepareInsertion(at);
  pugi::xml_node element = point.Add(*part_, "r").append_child(part_->Name("fldChar"));
  part_->SetAttribute(element, "fldCharType", "separate");
  atoms_.Insert(point.before, {MakeAtom(element, AtomKind::kFieldSeparator, 1)},
                std::u16string_view(&word::kFieldSeparator, 1));
  MoveAnchors(at, 0, 1);
  part_->Touch();
}

void Story::InsertParagraphMark(Position at) {
  InsertionPoint point = PrepareInsertion(at);
  const pugi::xml_node paragraph = ParagraphOf(point.before);
  // Containers around the place, such as a hyperlink, are divided with the paragraph.
  for (pugi::xml_node up = point.parent; up != paragraph; up = up.parent()) {
    if (point.after && HasElementBehind(point.after)) DivideContainer(up, point.after);
    point.after = up;
  }
  pugi::xml_node first = paragraph.parent().insert_child_before(paragraph.name(), paragraph);
  const pugi::xml_node properties = part_->Child(paragraph, Tag::kPPr);
  if (properties) {
    pugi::xml_node copy = first.append_copy(properties);
    copy.remove_child(part_->Name("sectPr"));
    copy.remove_child(part_->Name("pPrChange"));
  }
  if (point.after && point.after != properties) {
    for (pugi::xml_node child = properties ? properties.next_sibling() : paragraph.first_child(); child;) {
      const bool last = child == point.after;
      const pugi::xml_node next = child.next_sibling();
      first.append_move(child);
      if (last) break;
      child = next;
    }
  }
  atoms_.Insert(point.before, {MakeAtom(first, AtomKind::kParagraphMark, 1)},
                std::u16string_view(&word::kParagraphMark, 1));
  MoveAnchors(at, 0, 1);
  part_->Touch();
}

void Story::SetMarkCharacter(Position mark, char16_t character) {
  atoms_.SetCharacter(atoms_.At(mark), character);
  part_->Touch();
}

bool Story::MergeWithNext(const AtomSequence::Place& mark) {
  pugi::xml_node first = atoms_.Get(mark).Node();
  pugi::xml_node second = first.next_sibling();
  while (second && !part_->Is(second, Tag::kP)) {
    const Tag tag = part_->TagOf(second);
    const bool mere = tag == Tag::kBookmarkStart || tag == Tag::kBookmarkEnd || tag == Tag::kProofErr ||
                      second.type() != pugi::node_element;
    if (!mere) return false;
    second = second.next_sibling();
  }
  if (!second) return false;
  pugi::xml_node after = part_->Child(second, Tag::kPPr);
  const auto move = [&](pugi::xml_node node) {
    after = after ? second.insert_move_after(node, after) : second.prepend_move(node);
  };
  const pugi::xml_node properties = part_->Child(first, Tag::kPPr);
  for (pugi::xml_node child = first.first_child(); child;) {
    const pugi::xml_node next = child.next_sibling();
    if (child != properties) move(child);
    child = next;
  }
  // Bookmarks between the two follow the text that stood before them.
  for (pugi::xml_node between = first.next_sibling(); between != second;) {
    const pugi::xml_node next = between.next_sibling();
    move(between);
    between = next;
  }
  first.parent().remove_child(first);
  return true;
}

void Story::RemoveEmptied(pugi::xml_node run) {
  for (const pugi::xml_node child : run.children()) {
    if (child.type() == pugi::node_element && !part_->Is(child, Tag::kRPr)) return;
  }
  pugi::xml_node node = run;
  while (true) {
    pugi::xml_node parent = node.parent();
    inserted_.erase(node.internal_object());
    parent.remove_child(node);
    const Tag tag = part_->TagOf(parent);
    const bool container = tag == Tag::kIns || tag == Tag::kHyperlink || tag == Tag::kSmartTag || tag == Tag::kMoveTo;
    if (!container || parent.first_child()) return;
    node = parent;
  }
}

void Story::EraseBookmarksWithin(Position start, Position end) {
  struct Seen {
    pugi::xml_node element;
    Position at;
  };
  std::vector<Seen> starts;
  AtomSequence::Place place = atoms_.At(start);
  while (!atoms_.IsBegin(place) && atoms_.Get(atoms_.Previous(place)).length == 0) place = atoms_.Previous(place);
  std::vector<std::pair<pugi::xml_node, pugi::xml_node>> gone;
  for (; !atoms_.IsEnd(place) && place.start <= end; place = atoms_.Next(place)) {
    const Atom& atom = atoms_.Get(place);
    if (atom.kind == AtomKind::kBookmarkStart) {
      starts.push_back({atom.Node(), place.start});
    } else if (atom.kind == AtomKind::kBookmarkEnd) {
      const std::string_view id = part_->Attribute(atom.Node(), "id").value();
      const auto first = std::find_if(starts.begin(), starts.end(), [&](const Seen& seen) {
        return part_->Attribute(seen.element, "id").value() == id;
      });
      if (first == starts.end()) continue;
      const bool empty = first->at == place.start;
      if (empty && (place.start == start || place.start == end)) continue;
      gone.emplace_back(first->element, atom.Node());
    } else if (atom.length != 0 && place.start >= end) {
      break;
    }
  }
  for (const auto& [first, last] : gone) RemoveBookmark(first, last);
}

void Story::Erase(Position start, Position end) {
  if (start == end) return;
  DivideRunsAt(start);
  DivideRunsAt(end);
  EraseBookmarksWithin(start, end);
  Position at = start;
  for (Position left = end - start; left > 0;) {
    const AtomSequence::Place place = atoms_.At(at);
    const Atom atom = atoms_.Get(place);
    const auto length = static_cast<Position>(atom.length);
    left -= length;
    bool removed = true;
    if (atom.deleted) {
      removed = false;
    } else if (atom.InRun()) {
      pugi::xml_node run = atom.Node().parent();
      run.remove_child(atom.Node());
      RemoveEmptied(run);
    } else if (atom.kind == AtomKind::kSimpleBegin) {
      removed = EraseSimpleField(place, left);
    } else if (atom.kind == AtomKind::kParagraphMark) {
      removed = MergeWithNext(place);
    } else {
      removed = false;
    }
    if (removed) {
      atoms_.Remove(atoms_.At(at));
      MoveAnchors(at, length, 0);
    } else {
      at += length;
    }
  }
  part_->Touch();
  RejoinAt(start);
}

bool Story::EraseSimpleField(const AtomSequence::Place& begin, Position& left) {
  // The element goes with its end mark, and only when that is erased too.
  pugi::xml_node field = atoms_.Get(begin).Node();
  AtomSequence::Place place = atoms_.Next(begin);
  const Position limit = place.start + left;
  while (!atoms_.IsEnd(place) && place.start < limit) {
    const Atom& atom = atoms_.Get(place);
    if (atom.kind == AtomKind::kSimpleEnd && atom.Node() == field) {
      pugi::xml_node after = field;
      for (pugi::xml_node child = field.first_child(); child;) {
        const pugi::xml_node next = child.next_sibling();
        after = field.parent().insert_move_after(child, after);
        child = next;
      }
      const Position at = place.start;
      atoms_.Remove(place);
      MoveAnchors(at, 1, 0);
      field.parent().remove_child(field);
      --left;
      return true;
    }
    place = atoms_.Next(place);
  }
  return false;
}

std::vector<pugi::xml_node> Story::IsolateRuns(Position start, Position end) {
  std::vector<pugi::xml_node> runs;
  if (start >= end) return runs;
  DivideRunsAt(start);
  DivideRunsAt(end);
  for (AtomSequence::Place place = atoms_.At(start); !atoms_.IsEnd(place) && place.start < end;
       place = atoms_.Next(place)) {
    const Atom& atom = atoms_.Get(place);
    if (!atom.InRun() || atom.deleted) continue;
    const pugi::xml_node run = atom.Node().parent();
    if (runs.empty() || runs.back() != run) runs.push_back(run);
  }
  return runs;
}

void Story::RejoinRuns(Position start, Position end) {
  RejoinAt(end);
  RejoinAt(start);
}

void Story::RejoinAt(Position position) {
  const AtomSequence::Place place = atoms_.At(position);
  if (atoms_.IsEnd(place) || atoms_.IsBegin(place) || place.start != position) return;
  const AtomSequence::Place before = atoms_.Previous(place);
  const Atom& first = atoms_.Get(before);
  const Atom& second = atoms_.Get(place);
  if (!IsJoinable(first) || !IsJoinable(second)) return;
  pugi::xml_node run = first.Node().parent();
  pugi::xml_node other = second.Node().parent();
  if (run == other) return;
  if (run.next_sibling() != other || !SameRunFormatting(*part_, run, other)) return;
  part_->Touch();
  for (pugi::xml_node child = other.first_child(); child;) {
    const pugi::xml_node next = child.next_sibling();
    if (!part_->Is(child, Tag::kRPr)) run.append_move(child);
    child = next;
  }
  inserted_.erase(other.internal_object());
  run.parent().remove_child(other);
  const pugi::xml_node text = first.Node();
  const pugi::xml_node next = text.next_sibling();
  if (first.kind == AtomKind::kText && second.kind == AtomKind::kText && next == second.Node() &&
      std::strcmp(text.name(), next.name()) == 0) {
    JoinText(text, next);
    atoms_.Join(before);
  }
}

void Story::DropApartMarks() {
  const auto holdsField = [this](pugi::xml_node run) {
    return part_->Child(run, Tag::kFldChar) || part_->Child(run, Tag::kInstrText);
  };
  std::erase_if(apart_, [&](pugi::xml_node mark) {
    const pugi::xml_node before = mark.previous_sibling();
    const pugi::xml_node after = mark.next_sibling();
    const bool neighbours = part_->Is(before, Tag::kR) && part_->Is(after, Tag::kR) && !holdsField(before) &&
                            !holdsField(after) && SameRunFormatting(*part_, before, after);
    if (!neighbours) return false;
    mark.parent().remove_child(mark);
    part_->Touch();
    return true;
  });
}

Story::BookmarkElements Story::InsertBookmark(Position start, Position end, std::string_view name, int id) {
  const std::string number = std::to_string(id);
  const auto add = [&](Position at, const char* local, AtomKind kind) {
    InsertionPoint point = PrepareInsertion(at);
    pugi::xml_node element = point.Add(*part_, local);
    part_->SetAttribute(element, "id", number.c_str());
    if (kind == AtomKind::kBookmarkStart) part_->SetAttribute(element, "name", std::string(name).c_str());
    atoms_.Insert(point.before, {MakeAtom(element, kind, 0)}, {});
    return element;
  };
  part_->Touch();
  const pugi::xml_node first = add(start, "bookmarkStart", AtomKind::kBookmarkStart);
  return {first, add(end, "bookmarkEnd", AtomKind::kBookmarkEnd)};
}

void Story::RemoveBookmark(pugi::xml_node startElement, pugi::xml_node endElement) {
  for (const pugi::xml_node element : {startElement, endElement}) {
    if (!element) continue;
    if (element == startElement && bookmarkRemoved) bookmarkRemoved(startElement);
    const AtomSequence::Place next = atoms_.Remove(atoms_.OfBookmark(element));
    const Position at = next.start;
    element.parent().remove_child(element);
    RejoinAt(at);
  }
  part_->Touch();
}

}  // namespace docx
