#include "hosts/docx/story/Story.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>

#include "hosts/docx/story/StoryBuilder.h"
#include "platform/word/Constants.h"

namespace docx {

Anchor::Anchor(Story& story, Position from, Position to)
    : start(from), end(to), story_(&story), slot_(story.anchors_.size()) {
  story.anchors_.push_back(this);
}

Anchor::~Anchor() {
  if (story_ == nullptr) return;
  std::vector<Anchor*>& anchors = story_->anchors_;
  anchors[slot_] = anchors.back();
  anchors[slot_]->slot_ = slot_;
  anchors.pop_back();
}

Story::Story(std::shared_ptr<XmlPart> part, int type, const std::vector<XmlNode>& containers)
    : part_(std::move(part)), type_(type) {
  StoryBuilder builder(*part_, atoms_, apart_);
  for (const XmlNode container : containers) builder.AddBlocks(container);
  hasRevisions_ = builder.HasRevisions();
}

Story::~Story() {
  for (Anchor* anchor : anchors_) anchor->story_ = nullptr;
}

std::u16string Story::Text(Position start, Position end) const {
  std::u16string text;
  text.reserve(static_cast<std::size_t>(end - start));
  while (start < end) {
    const AtomSequence::TextBlock block = atoms_.BlockAt(start);
    const auto from = static_cast<std::size_t>(start - block.start);
    const std::size_t count = std::min(block.text.size() - from, static_cast<std::size_t>(end - start));
    text += block.text.substr(from, count);
    start += static_cast<Position>(count);
  }
  return text;
}

XmlNode Story::ParagraphOf(const AtomSequence::Place& place) const {
  XmlNode node = atoms_.Get(place).Node();
  while (node && !part_->Is(node, Tag::kP)) {
    if (part_->Is(node, Tag::kTc)) return {};
    node = node.Parent();
  }
  return node;
}

XmlNode Story::ParagraphAt(Position position) const {
  const AtomSequence::Place place = atoms_.At(position);
  return atoms_.IsEnd(place) ? XmlNode() : ParagraphOf(place);
}

namespace {

bool EndsParagraph(const Atom& atom) {
  return atom.kind == AtomKind::kParagraphMark || atom.kind == AtomKind::kRowMark || atom.kind == AtomKind::kCellMark;
}

}  // namespace

Position Story::ParagraphStart(Position position) const {
  AtomSequence::Place place = atoms_.At(position);
  while (!atoms_.IsBegin(place)) {
    const AtomSequence::Place previous = atoms_.Previous(place);
    if (EndsParagraph(atoms_.Get(previous))) break;
    place = previous;
  }
  return place.start;
}

Position Story::ParagraphEnd(Position position) const {
  AtomSequence::Place place = atoms_.At(position);
  while (!atoms_.IsEnd(place)) {
    const bool last = EndsParagraph(atoms_.Get(place));
    place = atoms_.Next(place);
    if (last) break;
  }
  return place.start;
}

Position Story::BetweenCharacters(Position position) const {
  const auto [text, start] = atoms_.BlockAt(position);
  const auto at = static_cast<std::size_t>(position - start);
  // A pair stands in one text, and that in one block.
  if (at == 0 || at >= text.size()) return position;
  const auto isIn = [](char16_t unit, char16_t first, char16_t last) { return unit >= first && unit <= last; };
  const bool isInside = isIn(text[at - 1], 0xD800, 0xDBFF) && isIn(text[at], 0xDC00, 0xDFFF);
  return isInside ? position + 1 : position;
}

XmlNode Story::RunAt(Position position) const {
  const AtomSequence::Place place = atoms_.At(position);
  if (atoms_.IsEnd(place) || !atoms_.Get(place).InRun()) return {};
  return atoms_.Get(place).Node().Parent();
}

void Story::MoveAnchors(Position at, Position removed, Position inserted) {
  for (Anchor* anchor : anchors_) {
    for (Position* edge : {&anchor->start, &anchor->end}) {
      if (*edge > at) *edge = std::max(at, *edge - removed);
    }
    const bool empty = anchor->start == anchor->end;
    if (anchor->start > at || (anchor->start == at && !empty)) anchor->start += inserted;
    if (anchor->end > at) anchor->end += inserted;
  }
}

}  // namespace docx
