#include <algorithm>
#include <utility>

#include "hosts/docx/story/ApartMark.h"
#include "hosts/docx/story/InsertionPoint.h"
#include "hosts/docx/story/Story.h"
#include "hosts/docx/story/StoryBuilder.h"
#include "hosts/docx/story/TextElement.h"
#include "hosts/docx/styles/ParagraphProperties.h"
#include "hosts/docx/styles/PropertyContainer.h"
#include "hosts/docx/styles/RunProperties.h"
#include "hosts/docx/xml/Utf.h"
#include "platform/word/Constants.h"
#include "platform/word/HostError.h"

namespace docx {

namespace {

/// Whether a text element may hold it.
bool IsText(const Atom& atom) { return atom.kind == AtomKind::kText || atom.kind == AtomKind::kCode; }

bool IsJoinable(const Atom& atom) { return IsText(atom) || atom.kind == AtomKind::kCharacter; }

}  // namespace

void Story::RequireDivisible(Position position) const {
  const AtomSequence::Place place = atoms_.At(position);
  if (place.start == position) return;
  if (!IsText(atoms_.Get(place))) {
    throw word::HostError(word::kCommandFailed, u"This place in a field cannot be edited.", "Range");
  }
  if (BetweenCharacters(position) != position) {
    throw word::HostError(word::kCommandFailed, u"A character cannot be divided.", "Range");
  }
}

void Story::DivideAt(Position position) {
  RequireDivisible(position);
  const AtomSequence::Place place = atoms_.At(position);
  if (place.start == position) return;
  const Atom& atom = atoms_.Get(place);
  const auto units = static_cast<std::uint32_t>(position - place.start);
  atoms_.Divide(place, units, DivideText(atom.Node(), units));
  part_->Touch();
}

XmlNode Story::DivideRun(const AtomSequence::Place& firstOfSecond) {
  XmlNode element = WithItsMark(atoms_.Get(firstOfSecond).Node());
  const XmlNode run = element.Parent();
  XmlNode second = run.Parent().InsertChildAfter(run.Entry(), run);
  second.CopyAttributes(run);
  if (const XmlNode properties = part_->Child(run, Tag::kRPr)) second.AppendCopy(properties);
  while (element) {
    const XmlNode next = element.NextSibling();
    second.AppendMove(element);
    element = next;
  }
  part_->Touch();
  return second;
}

void Story::DivideRunsAt(Position position) {
  const bool isBoundary = atoms_.At(position).start == position;
  if (!isBoundary) DivideAt(position);
  const AtomSequence::Place place = atoms_.At(position);
  if (atoms_.IsEnd(place) || atoms_.IsBegin(place)) return;
  const Atom& next = atoms_.Get(place);
  const Atom& previous = atoms_.Get(atoms_.Previous(place));
  if (!next.InRun() || !previous.InRun()) return;
  const XmlNode before = previous.Node().Parent();
  const XmlNode after = next.Node().Parent();
  if (before == after) {
    const XmlNode first = WithItsMark(next.Node());
    const bool areNeighbours = isBoundary && IsText(previous) && IsText(next) && previous.Node().NextSibling() == first;
    DivideRun(place);
    if (areNeighbours) PutApartMarkBefore(first);
  } else if (before.NextSibling() == after && IsJoinable(previous) && IsJoinable(next) &&
             !inserted_.contains(before.Data()) && !inserted_.contains(after.Data()) &&
             SameRunFormatting(*part_, before, after)) {
    apart_.push_back(PutApartMark(before));
  }
}

Story::InsertionPoint Story::PrepareInsertion(Position at, Containers containers) {
  DivideRunsAt(at);
  const AtomSequence::Place place = atoms_.At(at);
  const XmlNode paragraph = atoms_.IsEnd(place) ? XmlNode() : ParagraphOf(place);
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
  point.after = previous.InRun() ? previous.Node().Parent() : previous.Node();
  // What is inserted behind deleted text is no part of the deletion, and behind the last of a container not in it.
  XmlNode second;
  // What was one until now shall be one again.
  const auto keepApart = [&] {
    if (!second || second != point.after.NextSibling()) KeepRevisionsApart(point.after);
  };
  for (XmlNode up = point.after.Parent(); up != paragraph; up = up.Parent()) {
    const Tag tag = part_->TagOf(up);
    // The end mark of a simple field stands behind its content; what stands beside a branch is only another branch.
    if (tag == Tag::kFldSimple) break;
    const bool divides = tag != Tag::kAlternateContent && HasElementBehind(point.after);
    if (divides) {
      const bool wanted = containers == Containers::kDivided && IsDivisible(tag);
      if (!wanted && tag != Tag::kDel && tag != Tag::kMoveFrom) break;
      keepApart();
      second = DivideContainer(up, point.after);
    }
    point.after = up;
  }
  point.parent = point.after.Parent();
  keepApart();
  return point;
}

void Story::InsertText(Position at, std::u16string_view text, const Tracking* tracked) {
  while (!text.empty()) {
    const std::size_t mark = text.find(word::kParagraphMark);
    const std::u16string_view line = text.substr(0, mark);
    if (!line.empty()) InsertRunText(at, line, tracked);
    at += static_cast<Position>(line.size());
    if (mark == std::u16string_view::npos) return;
    InsertParagraphMark(at++, tracked);
    text.remove_prefix(mark + 1);
  }
}

XmlNode Story::FormattingRun(const AtomSequence::Place& at) const {
  if (!atoms_.IsBegin(at)) {
    AtomSequence::Place before = atoms_.Previous(at);
    while (atoms_.Get(before).length == 0 && !atoms_.IsBegin(before)) before = atoms_.Previous(before);
    if (atoms_.Get(before).InRun()) return atoms_.Get(before).Node().Parent();
  }
  return !atoms_.IsEnd(at) && atoms_.Get(at).InRun() ? atoms_.Get(at).Node().Parent() : XmlNode();
}

void Story::InsertRunText(Position at, std::u16string_view text, const Tracking* tracked) {
  InsertionPoint point = PrepareInsertion(at);
  if (tracked != nullptr) point = TrackInsertion(point, *tracked);
  const XmlNode model = FormattingRun(point.before);
  XmlNode run = point.Add(*part_, "r");
  inserted_.insert(run.Data());
  if (const XmlNode properties = part_->Child(model, Tag::kRPr)) {
    run.AppendCopy(properties).RemoveChild(part_->Name("rPrChange"));
  }
  std::vector<Atom> atoms;
  for (std::size_t from = 0; from < text.size();) {
    const std::size_t special = std::min(text.find_first_of(u"\t\v\f\x1e\x1f", from), text.size());
    if (special > from) {
      XmlNode element = run.AppendChild(part_->Name("t"));
      SetText(element, ToUtf8(text.substr(from, special - from)));
      atoms.push_back(MakeAtom(element, AtomKind::kText, special - from));
    }
    if (special < text.size()) {
      const char16_t unit = text[special];
      const char* local = unit == word::kTab                 ? "tab"
                          : unit == word::kNonBreakingHyphen ? "noBreakHyphen"
                          : unit == word::kOptionalHyphen    ? "softHyphen"
                                                             : "br";
      XmlNode element = run.AppendChild(part_->Name(local));
      if (unit == word::kPageBreak) part_->SetAttribute(element, "type", "page");
      atoms.push_back(MakeAtom(element, AtomKind::kCharacter, 1));
    }
    from = special + 1;
  }
  atoms_.Insert(point.before, atoms, text);
  MoveAnchors(at, 0, static_cast<Position>(text.size()));
  part_->Touch();
}

void Story::InsertParagraphMark(Position at, const Tracking* tracked) {
  InsertionPoint point = PrepareInsertion(at);
  const XmlNode paragraph = ParagraphOf(point.before);
  // Containers around the place, such as a hyperlink, are divided with the paragraph.
  for (XmlNode up = point.parent; up != paragraph; up = up.Parent()) {
    if (point.after && HasElementBehind(point.after)) {
      XmlNode rest = DivideContainer(up, point.after);
      if (tracked != nullptr && IsInsertionBy(*part_, rest, *tracked)) Stamp(*part_, rest, tracked->Next());
    }
    point.after = up;
  }
  XmlNode first = paragraph.Parent().InsertChildBefore(paragraph.Entry(), paragraph);
  const XmlNode properties = part_->Child(paragraph, Tag::kPPr);
  if (properties) {
    XmlNode copy = first.AppendCopy(properties);
    copy.RemoveChild(part_->Name("sectPr"));
    copy.RemoveChild(part_->Name("pPrChange"));
    // The mark is new, whatever a tracked change says of the one behind it.
    XmlNode ofMark = part_->Child(copy, Tag::kRPr);
    for (const char* change : {"ins", "del", "moveFrom", "moveTo"}) ofMark.RemoveChild(part_->Name(change));
    DropAlignmentMark(copy);
  }
  if (tracked != nullptr) {
    Stamp(*part_, PropertyContainer::OfRun(*part_, first).Ensure("ins"), tracked->Next());
    hasRevisions_ = true;
  }
  if (point.after && point.after != properties) {
    for (XmlNode child = properties ? properties.NextSibling() : paragraph.FirstChild(); child;) {
      const bool last = child == point.after;
      const XmlNode next = child.NextSibling();
      first.AppendMove(child);
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
  XmlNode first = atoms_.Get(mark).Node();
  XmlNode second = first.NextSibling();
  while (second && !part_->Is(second, Tag::kP)) {
    const Tag tag = part_->TagOf(second);
    const bool mere = tag == Tag::kBookmarkStart || tag == Tag::kBookmarkEnd || tag == Tag::kProofErr ||
                      second.Type() != XmlType::kElement;
    if (!mere) return false;
    second = second.NextSibling();
  }
  if (!second) return false;
  XmlNode after = part_->Child(second, Tag::kPPr);
  const auto move = [&](XmlNode node) {
    after = after ? second.InsertMoveAfter(node, after) : second.PrependMove(node);
  };
  const XmlNode properties = part_->Child(first, Tag::kPPr);
  for (XmlNode child = first.FirstChild(); child;) {
    const XmlNode next = child.NextSibling();
    if (child != properties) move(child);
    child = next;
  }
  // Bookmarks between the two follow the text that stood before them.
  for (XmlNode between = first.NextSibling(); between != second;) {
    const XmlNode next = between.NextSibling();
    move(between);
    between = next;
  }
  first.Parent().RemoveChild(first);
  if (after) JoinDivided(after, after.NextSibling());
  return true;
}

void Story::RemoveEmptied(XmlNode run) {
  for (const XmlNode child : run.Children()) {
    if (child.Type() == XmlType::kElement && !part_->Is(child, Tag::kRPr)) return;
  }
  XmlNode node = run;
  while (true) {
    XmlNode parent = node.Parent();
    const XmlNode before = node.PreviousSibling();
    const XmlNode after = node.NextSibling();
    inserted_.erase(node.Data());
    parent.RemoveChild(node);
    JoinDivided(before, after);
    const Tag tag = part_->TagOf(parent);
    const bool container = tag == Tag::kIns || tag == Tag::kHyperlink || tag == Tag::kSmartTag || tag == Tag::kMoveTo;
    if (!container || parent.FirstChild()) return;
    node = parent;
  }
}

std::vector<Story::BookmarkElements> Story::BookmarksWithin(Position start, Position end) const {
  struct Seen {
    XmlNode element;
    Position at;
  };
  std::vector<Seen> starts;
  AtomSequence::Place place = atoms_.At(start);
  // Before a text that begins earlier, marks are beside the stretch.
  if (place.start < start) place = atoms_.Next(place);
  while (!atoms_.IsBegin(place) && atoms_.Get(atoms_.Previous(place)).length == 0) place = atoms_.Previous(place);
  std::vector<BookmarkElements> within;
  for (; !atoms_.IsEnd(place) && place.start <= end; place = atoms_.Next(place)) {
    const Atom& atom = atoms_.Get(place);
    if (atom.kind == AtomKind::kBookmarkStart) {
      starts.push_back({atom.Node(), place.start});
    } else if (atom.kind == AtomKind::kBookmarkEnd) {
      const std::string_view id = part_->Attribute(atom.Node(), "id").Value();
      const auto first = std::find_if(starts.begin(), starts.end(), [&](const Seen& seen) {
        return part_->Attribute(seen.element, "id").Value() == id;
      });
      if (first == starts.end()) continue;
      const bool empty = first->at == place.start;
      if (empty && (place.start == start || place.start == end)) continue;
      within.push_back({first->element, atom.Node()});
    } else if (atom.length != 0 && place.start >= end) {
      break;
    }
  }
  return within;
}

void Story::Erase(Position start, Position end) {
  if (start == end) return;
  DivideRunsAt(start);
  DivideRunsAt(end);
  for (const auto& [first, last] : BookmarksWithin(start, end)) RemoveBookmark(first, last);
  Position at = start;
  for (Position left = end - start; left > 0;) {
    const AtomSequence::Place place = atoms_.At(at);
    const Atom atom = atoms_.Get(place);
    const auto length = static_cast<Position>(atom.length);
    left -= length;
    bool removed = !atom.deleted;
    if (removed && atom.InRun()) {
      XmlNode run = atom.Node().Parent();
      run.RemoveChild(atom.Node());
      RemoveEmptied(run);
    } else if (removed && atom.kind == AtomKind::kSimpleBegin) {
      removed = EraseSimpleField(place, left);
    } else {
      removed = removed && atom.kind == AtomKind::kParagraphMark && MergeWithNext(place);
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

std::vector<XmlNode> Story::IsolateRuns(Position start, Position end) {
  std::vector<XmlNode> runs;
  if (start >= end) return runs;
  DivideRunsAt(start);
  DivideRunsAt(end);
  for (AtomSequence::Place place = atoms_.At(start); !atoms_.IsEnd(place) && place.start < end;
       place = atoms_.Next(place)) {
    const Atom& atom = atoms_.Get(place);
    if (!atom.InRun() || atom.deleted) continue;
    const XmlNode run = atom.Node().Parent();
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
  XmlNode run = first.Node().Parent();
  XmlNode other = second.Node().Parent();
  if (run == other) return;
  // What was inserted goes again as a whole, and leaves what it stood beside as it is.
  if (inserted_.contains(run.Data()) != inserted_.contains(other.Data())) return;
  if (run.NextSibling() != other || !SameRunFormatting(*part_, run, other)) return;
  const bool areOneText = IsText(first) && IsText(second) && !IsApartMark(WithItsMark(second.Node()).PreviousSibling());
  // Neighbours that never were one text may have become equal.
  if (areOneText && !(ComesBackFromJoining(first.Node()) && ComesBackFromJoining(second.Node()))) return;
  part_->Touch();
  for (XmlNode child = other.FirstChild(); child;) {
    const XmlNode next = child.NextSibling();
    if (!part_->Is(child, Tag::kRPr)) run.AppendMove(child);
    child = next;
  }
  inserted_.erase(other.Data());
  run.Parent().RemoveChild(other);
  const XmlNode text = first.Node();
  const XmlNode next = text.NextSibling();
  if (IsApartMark(next) && next.NextSibling() == WithItsMark(second.Node())) run.RemoveChild(next);
  if (IsText(first) && IsText(second) && next == second.Node() && text.Name() == next.Name()) {
    JoinText(text, next);
    atoms_.Join(before);
  }
}

void Story::DropApartMarks() {
  const auto holdsMark = [this](XmlNode run) { return !part_->Child(run, Tag::kFldChar).Empty(); };
  // Which keeps its run apart by itself.
  const auto isOwnText = [this](XmlNode element) {
    return (part_->Is(element, Tag::kT) || part_->Is(element, Tag::kInstrText)) && !ComesBackFromJoining(element);
  };
  const auto firstOf = [this](XmlNode run) {
    XmlNode first = run.FirstChild();
    while (first && (!first.IsElement() || part_->Is(first, Tag::kRPr))) first = first.NextSibling();
    return first;
  };
  std::erase_if(apart_, [&](XmlNode mark) {
    const XmlNode before = mark.PreviousSibling();
    const XmlNode after = mark.NextSibling();
    const bool neighbours =
        part_->Is(before, Tag::kR) && part_->Is(after, Tag::kR) && !holdsMark(before) && !holdsMark(after) &&
        (SameRunFormatting(*part_, before, after) || isOwnText(before.LastChild()) || isOwnText(firstOf(after)));
    if (!neighbours && !AreOneRevision(before, after)) return false;
    mark.Parent().RemoveChild(mark);
    part_->Touch();
    return true;
  });
}

Story::BookmarkElements Story::InsertBookmark(Position start, Position end, std::string_view name, int id) {
  // The last mark of a story and that of a row belong to no text that a bookmark could begin or end in.
  for (Position* at : {&start, &end}) {
    while (*at > 0 && !ParagraphAt(*at)) --*at;
    // The code of a simple field is an attribute, which holds no marks.
    const AtomSequence::Place place = atoms_.At(*at);
    if (place.start < *at && !IsText(atoms_.Get(place))) *at = atoms_.Next(place).start;
    RequireDivisible(*at);
  }
  const std::string number = std::to_string(id);
  const auto add = [&](Position at, const char* local, AtomKind kind) {
    InsertionPoint point = PrepareInsertion(at);
    XmlNode element = point.Add(*part_, local);
    part_->SetAttribute(element, "id", number.c_str());
    if (kind == AtomKind::kBookmarkStart) part_->SetAttribute(element, "name", std::string(name).c_str());
    atoms_.Insert(point.before, {MakeAtom(element, kind, 0)}, {});
    return element;
  };
  part_->Touch();
  const XmlNode first = add(start, "bookmarkStart", AtomKind::kBookmarkStart);
  return {first, add(end, "bookmarkEnd", AtomKind::kBookmarkEnd)};
}

void Story::MoveBookmarkMark(XmlNode element, Position to) {
  const AtomSequence::Place mark = atoms_.OfBookmark(element);
  const AtomKind kind = atoms_.Get(mark).kind;
  const Position from = atoms_.Remove(mark).start;
  InsertionPoint point = PrepareInsertion(to);
  XmlNode place = point.Add(*part_, "bookmarkStart");
  place.Parent().InsertMoveBefore(element, place);
  place.Parent().RemoveChild(place);
  atoms_.Insert(point.before, {MakeAtom(element, kind, 0)}, {});
  RejoinAt(from);
  part_->Touch();
}

void Story::RemoveBookmark(XmlNode startElement, XmlNode endElement) {
  for (const XmlNode element : {startElement, endElement}) {
    if (!element) continue;
    if (element == startElement && bookmarkRemoved) bookmarkRemoved(startElement);
    const AtomSequence::Place next = atoms_.Remove(atoms_.OfBookmark(element));
    const Position at = next.start;
    const XmlNode before = element.PreviousSibling();
    const XmlNode after = element.NextSibling();
    element.Parent().RemoveChild(element);
    JoinDivided(before, after);
    RejoinAt(at);
  }
  part_->Touch();
}

}  // namespace docx
