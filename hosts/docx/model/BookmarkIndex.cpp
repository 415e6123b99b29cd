#include "hosts/docx/model/BookmarkIndex.h"

#include <algorithm>

#include "hosts/docx/find/FindCharacters.h"
#include "hosts/docx/xml/Utf.h"
#include "hosts/docx/xml/XmlWalk.h"

namespace docx {

namespace {

/// Every name begins with "_" or a letter, and "_" sorts before all folded letters.
bool IsHidden(std::u16string_view key) { return key < u"`"; }

}  // namespace

std::u16string BookmarkIndex::Key(std::u16string_view name) {
  std::u16string key(name);
  for (char16_t& unit : key) unit = static_cast<char16_t>(FoldCase(unit));
  return key;
}

bool BookmarkIndex::IsName(std::u16string_view name) {
  constexpr std::size_t kLongest = 40;
  if (name.empty() || name.size() > kLongest || (name.front() != u'_' && !IsLetter(name.front()))) return false;
  return std::all_of(name.begin(), name.end(),
                     [](char16_t unit) { return unit == u'_' || IsLetter(unit) || IsDigit(unit); });
}

void BookmarkIndex::Read(Story& story) {
  std::vector<const XmlNodeData*> begun;
  std::unordered_map<std::string, const XmlNodeData*> open;  // the last of them with an id that has not ended
  const AtomSequence& atoms = story.Atoms();
  const XmlPart& part = story.Part();
  parts_.insert(&part);
  // Most stories have none, and are not walked through.
  const AtomSequence::Place begin = atoms.HasBookmarks() ? atoms.Begin() : atoms.End();
  for (AtomSequence::Place place = begin; !atoms.IsEnd(place); place = atoms.Next(place)) {
    const Atom& atom = atoms.Get(place);
    if (atom.kind != AtomKind::kBookmarkStart && atom.kind != AtomKind::kBookmarkEnd) continue;
    const std::string id(part.Attribute(atom.Node(), "id").Value());
    if (atom.kind == AtomKind::kBookmarkStart) {
      // A part is the header of all sections that have none of their own, and a story of each.
      if (keys_.contains(atom.element)) continue;
      Mark mark{&story, ToUtf16(part.Attribute(atom.Node(), "name").Value()), atom.Node(), {}};
      const std::u16string key = Key(mark.name);
      const auto earlier = marks_.find(key);
      if (earlier != marks_.end()) keys_.erase(earlier->second.first.Data());
      keys_[atom.element] = key;
      begun.push_back(atom.element);
      open[id] = atom.element;
      Put(key, std::move(mark));
    } else if (const auto start = open.find(id); start != open.end()) {
      const auto key = keys_.find(start->second);
      if (key != keys_.end()) marks_[key->second].last = atom.Node();
      open.erase(start);
    }
  }
  // A bookmark without an end is none.
  for (const XmlNodeData* start : begun) {
    const auto key = keys_.find(start);
    if (key == keys_.end()) continue;
    const auto mark = marks_.find(key->second);
    if (mark->second.last) continue;
    Erase(mark);
    keys_.erase(key);
  }
  story.bookmarkRemoved = [this, &part](XmlNode start) {
    const int id = part.Attribute(start, "id").AsInt();
    if (const auto known = ids_.find(id); known != ids_.end()) ids_.erase(known);
    lowestFree_ = std::min(lowestFree_, id);
    const auto found = keys_.find(start.Data());
    if (found == keys_.end()) return;
    Forget(found->second);
    keys_.erase(found);
  };
  order_.clear();
}

void BookmarkIndex::Put(const std::u16string& key, Mark mark) {
  const auto [place, isNew] = marks_.insert_or_assign(key, std::move(mark));
  if (isNew && IsHidden(key)) ++hidden_;
}

void BookmarkIndex::Erase(const Marks::iterator& mark) {
  if (IsHidden(mark->first)) --hidden_;
  marks_.erase(mark);
}

void BookmarkIndex::Forget(const std::u16string& key) {
  if (!order_.empty() && order_.back()->first == key) {
    order_.pop_back();
  } else {
    order_.clear();
  }
  if (const auto mark = marks_.find(key); mark != marks_.end()) Erase(mark);
}

const BookmarkIndex::Mark& BookmarkIndex::Item(int number) const {
  if (order_.empty()) {
    order_.reserve(marks_.size());
    for (const auto& mark : marks_) order_.push_back(&mark);
    std::sort(order_.begin(), order_.end(),
              [](const auto* left, const auto* right) { return left->first < right->first; });
  }
  return order_[static_cast<std::size_t>(number)]->second;
}

const BookmarkIndex::Mark* BookmarkIndex::Find(std::u16string_view name) const {
  const auto found = marks_.find(Key(name));
  return found == marks_.end() ? nullptr : &found->second;
}

void BookmarkIndex::Remove(std::u16string_view name) {
  // Which takes it from here.
  if (const Mark* mark = Find(name)) mark->story->RemoveBookmark(mark->first, mark->last);
}

int BookmarkIndex::NewId() {
  if (!knowsIds_) ReadIds();
  while (ids_.contains(lowestFree_)) ++lowestFree_;
  ids_.insert(lowestFree_);
  return lowestFree_;
}

void BookmarkIndex::ReadIds() {
  knowsIds_ = true;
  for (const XmlPart* part : parts_) {
    if (!part->Has(Tag::kBookmarkStart) && !part->Has(Tag::kBookmarkEnd)) continue;
    ForEachElement(part->Root(), [&](XmlNode node) {
      const Tag tag = part->TagOf(node);
      if (tag != Tag::kBookmarkStart && tag != Tag::kBookmarkEnd) return true;
      const int id = part->Attribute(node, "id").AsInt();
      if (tag == Tag::kBookmarkStart || !ids_.contains(id)) ids_.insert(id);
      return true;
    });
  }
}

void BookmarkIndex::Add(Story& story, Position start, Position end, std::u16string_view name) {
  Remove(name);
  const Story::BookmarkElements elements = story.InsertBookmark(start, end, ToUtf8(name), NewId());
  const std::u16string key = Key(name);
  keys_[elements.first.Data()] = key;
  Put(key, {&story, std::u16string(name), elements.first, elements.last});
  order_.clear();
}

}  // namespace docx
