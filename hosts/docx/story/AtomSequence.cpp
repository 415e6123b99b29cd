#include "hosts/docx/story/AtomSequence.h"

#include <algorithm>
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

/// What a chunk holds, to be told of by Grew.
struct Content {
  Position units{0};
  int begins{0};
  int depth{0};
};

Content ContentOf(const std::vector<Atom>& atoms) {
  Content content;
  for (const Atom& atom : atoms) {
    content.units += static_cast<Position>(atom.length);
    if (BeginsField(atom)) ++content.begins;
    content.depth += DepthOf(atom);
  }
  return content;
}

}  // namespace

AtomSequence::AtomSequence() = default;

AtomSequence::Chunk& AtomSequence::InsertChunk(std::size_t number) {
  Forget();
  numbered_ = std::min(numbered_, number);
  lengths_.Insert(number, 0);
  begins_.Insert(number, 0);
  depths_.Insert(number, 0);
  return **chunks_.insert(chunks_.begin() + static_cast<std::ptrdiff_t>(number), std::make_unique<Chunk>());
}

AtomSequence::Place AtomSequence::Append(const Atom& atom, std::u16string_view text) {
  ++version_;
  if (chunks_.empty() || chunks_.back()->atoms.size() >= kFill) {
    Chunk& chunk = InsertChunk(chunks_.size());
    if (chunks_.size() > 1) {
      // Most are like the one before.
      chunk.atoms.reserve(kFill);
      chunk.text.reserve(chunks_[chunks_.size() - 2]->text.size());
    }
  }
  Chunk& chunk = *chunks_.back();
  chunk.atoms.push_back(atom);
  chunk.text += text;
  if (IsBookmark(atom)) bookmarks_[atom.element] = &chunk;
  Forget();
  const Place place{chunks_.size() - 1, chunk.atoms.size() - 1, length_};
  Grew(place.chunk, static_cast<Position>(text.size()), BeginsField(atom) ? 1 : 0, DepthOf(atom));
  return place;
}

Position AtomSequence::StartOf(std::size_t chunk) const {
  return IsRemembered(chunk) ? hint_.chunkStart : lengths_.Before(chunk);
}

std::size_t AtomSequence::ChunkAt(Position position, Position& start) const {
  const std::size_t number = lengths_.Passing(position);
  start = lengths_.Before(number);
  return number;
}

std::size_t AtomSequence::NumberOf(const Chunk& chunk) const {
  for (; numbered_ < chunks_.size(); ++numbered_) chunks_[numbered_]->number = numbered_;
  return chunk.number;
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
  if (IsEnd(place)) return Forget();
  const Position start = StartOf(place.chunk);
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
  const std::size_t number = NumberOf(chunk);
  Place place{number, 0, StartOf(number)};
  while (chunk.atoms[place.atom].element != element.Data() || !IsBookmark(chunk.atoms[place.atom])) {
    place.start += static_cast<Position>(chunk.atoms[place.atom++].length);
  }
  return place;
}

AtomSequence::Place AtomSequence::OfFieldBegin(int n) const {
  Place place;
  place.chunk = begins_.Passing(n);
  place.start = StartOf(place.chunk);
  int before = begins_.Before(place.chunk);
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
  int count = begins_.Before(number);
  for (const Atom& atom : chunks_[number]->atoms) {
    if (start >= position) break;
    if (BeginsField(atom)) ++count;
    start += static_cast<Position>(atom.length);
  }
  return count;
}

int AtomSequence::FieldDepthBefore(Position position) const {
  if (position >= length_) return depths_.Before(chunks_.size());
  Position start = 0;
  const std::size_t number = ChunkAt(position, start);
  int depth = depths_.Before(number);
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
  lengths_.Add(chunk, units);
  if (begins != 0) begins_.Add(chunk, begins);
  if (depth != 0) depths_.Add(chunk, depth);
}

void AtomSequence::SplitWhenLarge(std::size_t number) {
  while (chunks_[number]->atoms.size() > kLargest) {
    Chunk& second = InsertChunk(number + 1);
    Chunk& first = *chunks_[number];
    const std::size_t keep = first.atoms.size() - kFill;
    second.atoms.assign(first.atoms.begin() + static_cast<std::ptrdiff_t>(keep), first.atoms.end());
    first.atoms.resize(keep);
    const Content moved = ContentOf(second.atoms);
    const std::size_t kept = first.text.size() - static_cast<std::size_t>(moved.units);
    second.text = first.text.substr(kept);
    first.text.resize(kept);
    Grew(number, -moved.units, -moved.begins, -moved.depth);
    Grew(number + 1, moved.units, moved.begins, moved.depth);
    for (const Atom& atom : second.atoms) {
      if (IsBookmark(atom)) bookmarks_[atom.element] = &second;
    }
  }
}

void AtomSequence::DropWhenEmpty(std::size_t number) {
  if (!chunks_[number]->atoms.empty()) return;
  Forget();
  numbered_ = std::min(numbered_, number);
  chunks_.erase(chunks_.begin() + static_cast<std::ptrdiff_t>(number));
  lengths_.Remove(number);
  begins_.Remove(number);
  depths_.Remove(number);
}

AtomSequence::Place AtomSequence::Insert(const Place& before, const std::vector<Atom>& atoms,
                                         std::u16string_view text) {
  ++version_;
  Place place = before;
  if (IsEnd(place)) {
    if (chunks_.empty()) InsertChunk(0);
    place.chunk = chunks_.size() - 1;
    place.atom = chunks_.back()->atoms.size();
  }
  Chunk& chunk = *chunks_[place.chunk];
  const auto offset = static_cast<std::size_t>(place.start - StartOf(place.chunk));
  chunk.atoms.insert(chunk.atoms.begin() + static_cast<std::ptrdiff_t>(place.atom), atoms.begin(), atoms.end());
  chunk.text.insert(offset, text);
  for (const Atom& atom : atoms) {
    if (IsBookmark(atom)) bookmarks_[atom.element] = &chunk;
  }
  const Content content = ContentOf(atoms);
  Grew(place.chunk, content.units, content.begins, content.depth);
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
  Grew(place.chunk, -static_cast<Position>(atom.length), BeginsField(atom) ? -1 : 0, -DepthOf(atom));
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
