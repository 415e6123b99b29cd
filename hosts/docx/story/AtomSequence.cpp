#include "hosts/docx/story/AtomSequence.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <utility>

namespace docx {

namespace {

/// Small enough that moving a chunk's text costs little, large enough that there are few chunks.
constexpr std::size_t kFill = 128;
constexpr std::size_t kLargest = 256;

bool BeginsField(const Atom& atom) { return atom.kind == AtomKind::kFieldBegin || atom.kind == AtomKind::kSimpleBegin; }

/// What an atom adds to the number of fields that what follows is inside.
int DepthOf(const Atom& atom) {
  if (BeginsField(atom)) return 1;
  return atom.kind == AtomKind::kFieldEnd || atom.kind == AtomKind::kSimpleEnd ? -1 : 0;
}

bool IsBookmark(const Atom& atom) {
  return atom.kind == AtomKind::kBookmarkStart || atom.kind == AtomKind::kBookmarkEnd;
}

template <typename Number>
void Add(std::vector<Number>& tree, std::size_t index, Number amount) {
  for (std::size_t i = index + 1; i < tree.size(); i += i & (~i + 1)) tree[i] += amount;
}

/// Sum of the first `count` values.
template <typename Number>
Number Sum(const std::vector<Number>& tree, std::size_t count) {
  Number sum = 0;
  for (std::size_t i = count; i > 0; i -= i & (~i + 1)) sum += tree[i];
  return sum;
}

/// The index of the value within which the running sum passes `target`; `before` becomes the sum up to it.
template <typename Number>
std::size_t Descend(const std::vector<Number>& tree, Number target, Number& before) {
  std::size_t index = 0;
  before = 0;
  for (std::size_t step = std::bit_floor(tree.size()); step > 0; step >>= 1) {
    if (index + step < tree.size() && before + tree[index + step] <= target) {
      index += step;
      before += tree[index];
    }
  }
  return index;
}

}  // namespace

AtomSequence::AtomSequence() = default;

AtomSequence::Place AtomSequence::Append(const Atom& atom, std::u16string_view text) {
  ++version_;
  if (chunks_.empty() || chunks_.back()->atoms.size() >= kFill) {
    auto chunk = std::make_unique<Chunk>();
    if (!chunks_.empty()) {
      // Most are like the one before.
      chunk->atoms.reserve(kFill);
      chunk->text.reserve(chunks_.back()->text.size());
    }
    chunk->number = chunks_.size();
    chunks_.push_back(std::move(chunk));
    stale_ = true;
  }
  Chunk& chunk = *chunks_.back();
  chunk.atoms.push_back(atom);
  chunk.text += text;
  if (BeginsField(atom)) ++chunk.fieldBegins;
  chunk.fieldDepth += DepthOf(atom);
  if (IsBookmark(atom)) bookmarks_[atom.element] = &chunk;
  Forget();
  const Place place{chunks_.size() - 1, chunk.atoms.size() - 1, length_};
  length_ += static_cast<Position>(text.size());
  stale_ = true;
  return place;
}

void AtomSequence::Rebuild() const {
  lengths_.assign(chunks_.size() + 1, 0);
  begins_.assign(chunks_.size() + 1, 0);
  depths_.assign(chunks_.size() + 1, 0);
  for (std::size_t i = 0; i < chunks_.size(); ++i) {
    lengths_[i + 1] += static_cast<Position>(chunks_[i]->text.size());
    begins_[i + 1] += chunks_[i]->fieldBegins;
    depths_[i + 1] += chunks_[i]->fieldDepth;
    const std::size_t up = (i + 1) + ((i + 1) & (~(i + 1) + 1));
    if (up <= chunks_.size()) {
      lengths_[up] += lengths_[i + 1];
      begins_[up] += begins_[i + 1];
      depths_[up] += depths_[i + 1];
    }
  }
  stale_ = false;
}

int AtomSequence::FieldBegins() const {
  if (stale_) Rebuild();
  return Sum(begins_, chunks_.size());
}

Position AtomSequence::StartOf(std::size_t chunk) const {
  if (IsRemembered(chunk)) return hint_.chunkStart;
  if (stale_) Rebuild();
  return Sum(lengths_, chunk);
}

std::size_t AtomSequence::ChunkAt(Position position, Position& start) const {
  if (stale_) Rebuild();
  return Descend(lengths_, position, start);
}

AtomSequence::Place AtomSequence::End() const { return {chunks_.size(), 0, length_}; }

AtomSequence::Place AtomSequence::At(Position position) const {
  if (position >= length_) return End();
  if (position < hint_.chunkStart || position >= hint_.chunkEnd) {
    hint_.place = {};
    hint_.place.chunk = ChunkAt(position, hint_.chunkStart);
    hint_.place.start = hint_.chunkStart;
    hint_.chunkEnd = hint_.chunkStart + static_cast<Position>(chunks_[hint_.place.chunk]->text.size());
  }
  Place& place = hint_.place;
  const std::vector<Atom>& atoms = chunks_[place.chunk]->atoms;
  while (position < place.start) place.start -= static_cast<Position>(atoms[--place.atom].length);
  while (true) {
    const Position length = static_cast<Position>(atoms[place.atom].length);
    if (position < place.start + length) break;
    place.start += length;
    ++place.atom;
  }
  return place;
}

void AtomSequence::Remember(const Place& place) const {
  const Position start = IsEnd(place) || stale_ ? -1 : StartOf(place.chunk);
  Forget();
  if (start < 0) return;
  hint_ = {place, start, start + static_cast<Position>(chunks_[place.chunk]->text.size())};
}

std::u16string_view AtomSequence::Text(const Place& place) const {
  const Chunk& chunk = *chunks_[place.chunk];
  const auto offset = static_cast<std::size_t>(place.start - StartOf(place.chunk));
  return std::u16string_view(chunk.text).substr(offset, chunk.atoms[place.atom].length);
}

AtomSequence::Place AtomSequence::OfBookmark(XmlNode element) const {
  const auto found = bookmarks_.find(element.Data());
  assert(found != bookmarks_.end());
  const Chunk& chunk = *found->second;
  Place place{chunk.number, 0, StartOf(chunk.number)};
  while (chunk.atoms[place.atom].element != element.Data() || !IsBookmark(chunk.atoms[place.atom])) {
    place.start += static_cast<Position>(chunk.atoms[place.atom++].length);
  }
  return place;
}

AtomSequence::Place AtomSequence::OfFieldBegin(int n) const {
  if (stale_) Rebuild();
  int before = 0;
  Place place;
  place.chunk = Descend(begins_, n, before);
  place.start = StartOf(place.chunk);
  const Chunk& chunk = *chunks_[place.chunk];
  while (true) {
    const Atom& atom = chunk.atoms[place.atom];
    if (BeginsField(atom) && before++ == n) return place;
    place.start += static_cast<Position>(atom.length);
    ++place.atom;
  }
}

int AtomSequence::FieldBeginsBefore(Position position) const {
  if (position >= length_) return FieldBegins();
  Position start = 0;
  const std::size_t number = ChunkAt(position, start);
  int count = Sum(begins_, number);
  for (const Atom& atom : chunks_[number]->atoms) {
    if (start >= position) break;
    if (BeginsField(atom)) ++count;
    start += static_cast<Position>(atom.length);
  }
  return count;
}

int AtomSequence::FieldDepthBefore(Position position) const {
  if (stale_) Rebuild();
  if (position >= length_) return Sum(depths_, chunks_.size());
  Position start = 0;
  const std::size_t number = ChunkAt(position, start);
  int depth = Sum(depths_, number);
  for (const Atom& atom : chunks_[number]->atoms) {
    if (start >= position) break;
    depth += DepthOf(atom);
    start += static_cast<Position>(atom.length);
  }
  return depth;
}

void AtomSequence::Grew(std::size_t chunk, Position units, int begins, int depth) {
  length_ += units;
  if (!IsRemembered(chunk)) Forget();
  if (stale_) return;
  Add(lengths_, chunk, units);
  if (begins != 0) Add(begins_, chunk, begins);
  if (depth != 0) Add(depths_, chunk, depth);
}

void AtomSequence::RememberBookmarks(const Chunk& chunk) {
  for (const Atom& atom : chunk.atoms) {
    if (IsBookmark(atom)) bookmarks_[atom.element] = chunks_[chunk.number].get();
  }
}

void AtomSequence::Renumber(std::size_t from) {
  Forget();
  for (std::size_t i = from; i < chunks_.size(); ++i) chunks_[i]->number = i;
  stale_ = true;
}

void AtomSequence::SplitWhenLarge(std::size_t number) {
  while (chunks_[number]->atoms.size() > kLargest) {
    Chunk& chunk = *chunks_[number];
    const std::size_t keep = chunk.atoms.size() - kFill;
    auto second = std::make_unique<Chunk>();
    second->atoms.assign(chunk.atoms.begin() + static_cast<std::ptrdiff_t>(keep), chunk.atoms.end());
    chunk.atoms.resize(keep);
    std::size_t units = 0;
    for (const Atom& atom : second->atoms) {
      units += atom.length;
      if (BeginsField(atom)) ++second->fieldBegins;
      second->fieldDepth += DepthOf(atom);
    }
    chunk.fieldBegins -= second->fieldBegins;
    chunk.fieldDepth -= second->fieldDepth;
    second->text = chunk.text.substr(chunk.text.size() - units);
    chunk.text.resize(chunk.text.size() - units);
    chunks_.insert(chunks_.begin() + static_cast<std::ptrdiff_t>(number) + 1, std::move(second));
    Renumber(number + 1);
    RememberBookmarks(*chunks_[number + 1]);
  }
}

void AtomSequence::DropWhenEmpty(std::size_t number) {
  if (!chunks_[number]->atoms.empty()) return;
  chunks_.erase(chunks_.begin() + static_cast<std::ptrdiff_t>(number));
  Renumber(number);
}

AtomSequence::Place AtomSequence::Insert(const Place& before, const std::vector<Atom>& atoms,
                                         std::u16string_view text) {
  ++version_;
  Place place = before;
  if (IsEnd(place)) {
    if (chunks_.empty()) {
      chunks_.push_back(std::make_unique<Chunk>());
      Renumber(0);
    }
    place.chunk = chunks_.size() - 1;
    place.atom = chunks_.back()->atoms.size();
  }
  Chunk& chunk = *chunks_[place.chunk];
  const auto offset = static_cast<std::size_t>(place.start - StartOf(place.chunk));
  chunk.atoms.insert(chunk.atoms.begin() + static_cast<std::ptrdiff_t>(place.atom), atoms.begin(), atoms.end());
  chunk.text.insert(offset, text);
  int begins = 0;
  int depth = 0;
  for (const Atom& atom : atoms) {
    if (BeginsField(atom)) ++begins;
    depth += DepthOf(atom);
    if (IsBookmark(atom)) bookmarks_[atom.element] = &chunk;
  }
  chunk.fieldBegins += begins;
  chunk.fieldDepth += depth;
  Grew(place.chunk, static_cast<Position>(text.size()), begins, depth);
  SplitWhenLarge(place.chunk);
  while (place.atom >= chunks_[place.chunk]->atoms.size()) {
    place.atom -= chunks_[place.chunk]->atoms.size();
    ++place.chunk;
  }
  Remember(place);
  return place;
}

AtomSequence::Place AtomSequence::Remove(const Place& place) {
  ++version_;
  Chunk& chunk = *chunks_[place.chunk];
  const auto at = chunk.atoms.begin() + static_cast<std::ptrdiff_t>(place.atom);
  const Atom atom = *at;
  chunk.text.erase(static_cast<std::size_t>(place.start - StartOf(place.chunk)), atom.length);
  chunk.atoms.erase(at);
  if (IsBookmark(atom)) bookmarks_.erase(atom.element);
  const int begins = BeginsField(atom) ? 1 : 0;
  chunk.fieldBegins -= begins;
  chunk.fieldDepth -= DepthOf(atom);
  Grew(place.chunk, -static_cast<Position>(atom.length), -begins, -DepthOf(atom));
  Place next = place;
  if (chunk.atoms.empty()) {
    DropWhenEmpty(place.chunk);
    next.atom = 0;
  } else if (next.atom == chunk.atoms.size()) {
    ++next.chunk;
    next.atom = 0;
  }
  Remember(next);
  return next;
}

void AtomSequence::Divide(const Place& place, std::uint32_t units, XmlNode second) {
  ++version_;
  Chunk& chunk = *chunks_[place.chunk];
  Atom& first = chunk.atoms[place.atom];
  Atom rest = first;
  rest.element = second.Data();
  rest.length = first.length - units;
  first.length = units;
  chunk.atoms.insert(chunk.atoms.begin() + static_cast<std::ptrdiff_t>(place.atom) + 1, rest);
  Remember(place);
  SplitWhenLarge(place.chunk);
}

void AtomSequence::Join(const Place& first) {
  ++version_;
  const Place next = Next(first);
  const std::uint32_t length = Get(next).length;
  if (next.chunk == first.chunk) {
    Chunk& chunk = *chunks_[first.chunk];
    chunk.atoms.erase(chunk.atoms.begin() + static_cast<std::ptrdiff_t>(next.atom));
    chunk.atoms[first.atom].length += length;
    Remember(first);
    return;
  }
  // The first is the last of its chunk, so its text ends the chunk's.
  const std::u16string text(Text(next));
  Remove(next);
  Chunk& chunk = *chunks_[first.chunk];
  chunk.text += text;
  chunk.atoms[first.atom].length += length;
  Grew(first.chunk, static_cast<Position>(length), 0, 0);
  Remember(first);
}

void AtomSequence::SetDeleted(const Place& place, bool deleted) {
  ++version_;
  chunks_[place.chunk]->atoms[place.atom].deleted = deleted;
}

void AtomSequence::SetCharacter(const Place& place, char16_t character) {
  ++version_;
  Chunk& chunk = *chunks_[place.chunk];
  std::size_t offset = 0;
  for (std::size_t i = 0; i < place.atom; ++i) offset += chunk.atoms[i].length;
  chunk.text[offset] = character;
}

AtomSequence::TextBlock AtomSequence::BlockAt(Position position) const {
  TextBlock block;
  const std::size_t number = ChunkAt(position, block.start);
  if (number < chunks_.size()) block.text = chunks_[number]->text;
  return block;
}

}  // namespace docx
