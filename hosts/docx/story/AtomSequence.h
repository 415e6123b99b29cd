#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hosts/docx/story/Atom.h"
#include "hosts/docx/story/RunningSums.h"
#include "platform/word/Types.h"

namespace docx {

using word::Position;

/// The atoms of a story with their text, in chunks, so that an insertion or removal costs what it touches, and finding
/// a position the chunks between it and the edit before, or else the logarithm of the story.
class AtomSequence {
 public:
  /// A run of neighbouring atoms and their text, one unit a position.
  struct Chunk {
    std::vector<Atom> atoms;
    std::u16string text;
    std::size_t number{0};  ///< its place among them, when NumberOf has said so
  };

  /// An atom's place. It is spoilt by the next insertion or removal.
  struct Place {
    std::size_t chunk{0};
    std::size_t atom{0};  ///< within the chunk
    Position start{0};    ///< where the atom starts in the story
  };

  AtomSequence();
  AtomSequence(const AtomSequence&) = delete;
  AtomSequence& operator=(const AtomSequence&) = delete;

  Position Length() const { return length_; }
  /// Another number after every change: a place and a text that were taken before are spoilt.
  std::uint64_t Version() const { return version_; }
  int FieldBegins() const { return begins_.Before(chunks_.size()); }
  /// While building: adds at the end. @return the atom's place
  Place Append(const Atom& atom, std::u16string_view text);

  /// The atom that holds the character at a position (never one without length); End() for Length().
  Place At(Position position) const;
  Place Begin() const { return {0, 0, 0}; }
  Place End() const;
  bool IsEnd(const Place& place) const { return place.chunk >= chunks_.size(); }
  const Atom& Get(const Place& place) const { return chunks_[place.chunk]->atoms[place.atom]; }
  /// The atoms that are kept together with the one at the place, which is the place.atom-th of them.
  const std::vector<Atom>& AtomsAround(const Place& place) const { return chunks_[place.chunk]->atoms; }
  /// The atom's own text.
  std::u16string_view Text(const Place& place) const;
  Place Next(Place place) const {
    const std::vector<Atom>& atoms = AtomsAround(place);
    place.start += static_cast<Position>(atoms[place.atom].length);
    if (++place.atom == atoms.size()) {
      ++place.chunk;
      place.atom = 0;
    }
    return place;
  }
  /// @pre place is not Begin()
  Place Previous(Place place) const {
    if (place.atom == 0) place.atom = chunks_[--place.chunk]->atoms.size();
    place.start -= static_cast<Position>(chunks_[place.chunk]->atoms[--place.atom].length);
    return place;
  }
  bool IsBegin(const Place& place) const { return place.chunk == 0 && place.atom == 0; }
  bool HasBookmarks() const { return !bookmarks_.empty(); }
  /// The place of a bookmark's atom. @pre the element has such an atom in this sequence
  Place OfBookmark(XmlNode element) const;
  /// The n-th field begin (complex or simple), from 0. @pre 0 <= n < FieldBegins()
  Place OfFieldBegin(int n) const;
  /// Field begins that start before a position.
  int FieldBeginsBefore(Position position) const;
  /// Field begins less field ends that start before a position: how many fields it is inside, when all have both.
  int FieldDepthBefore(Position position) const;

  /// Puts atoms before the one at the place (at the end for End()). @return the place of the first
  Place Insert(const Place& before, const std::vector<Atom>& atoms, std::u16string_view text);
  /// Takes an atom out. @return the place of the one behind it
  Place Remove(const Place& place);
  /// Divides a text atom in two: its own element keeps the first units.
  void Divide(const Place& place, std::uint32_t units, XmlNode second);
  /// Joins a text atom and the next one into the first.
  void Join(const Place& first);
  void SetDeleted(const Place& place, bool deleted);
  /// Exchanges the character of a one-character atom.
  void SetCharacter(const Place& place, char16_t character);

  /// Chunk-wise access to the text for scanners: the chunk that holds a position, and where it starts.
  struct TextBlock {
    std::u16string_view text;
    Position start{0};
  };
  TextBlock BlockAt(Position position) const;

 private:
  std::size_t ChunkAt(Position position, Position& start) const;
  std::size_t NumberOf(const Chunk& chunk) const;
  Position StartOf(std::size_t chunk) const;
  void Grew(std::size_t chunk, Position units, int begins, int depth);
  /// Makes a chunk whose content is told of by Grew.
  Chunk& InsertChunk(std::size_t number);
  void SplitWhenLarge(std::size_t chunk);
  void DropWhenEmpty(std::size_t chunk);

  std::vector<std::unique_ptr<Chunk>> chunks_;
  mutable std::size_t numbered_{0};  ///< so many have their right numbers
  Position length_{0};
  std::uint64_t version_{0};
  // Of each chunk.
  RunningSums<Position> lengths_;
  RunningSums<int> begins_;
  RunningSums<int> depths_;
  std::unordered_map<const XmlNodeData*, Chunk*> bookmarks_;

  /// Where the last look-up or edit was: the next one is mostly near it.
  struct Hint {
    Place place;
    Position chunkStart{0};
    Position chunkEnd{-1};  ///< -1: there is none
  };
  mutable Hint hint_;
  void Remember(const Place& place) const;
  void Forget() const { hint_.chunkEnd = -1; }
  bool IsRemembered(std::size_t chunk) const { return hint_.chunkEnd >= 0 && hint_.place.chunk == chunk; }
};

/// Reads a story's text character by character, remembering where it was.
class TextReader {
 public:
  explicit TextReader(const AtomSequence& atoms) : atoms_(atoms) {}
  /// @pre 0 <= position < Length()
  char16_t At(Position position) {
    if (position < block_.start || position >= block_.start + static_cast<Position>(block_.text.size())) {
      block_ = atoms_.BlockAt(position);
    }
    return block_.text[static_cast<std::size_t>(position - block_.start)];
  }

 private:
  const AtomSequence& atoms_;
  AtomSequence::TextBlock block_;
};

}  // namespace docx
