#include "hosts/docx/story/AtomSequence.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>
#include <vector>

using docx::Atom;
using docx::AtomKind;
using docx::AtomSequence;
using docx::Position;

namespace {

/// The same as texts in a row.
class Model {
 public:
  Position Length() const {
    Position length = 0;
    for (const std::u16string& atom : atoms) length += static_cast<Position>(atom.size());
    return length;
  }
  /// The atom that holds a position, and where it starts.
  std::size_t At(Position position, Position& start) const {
    std::size_t at = 0;
    for (start = 0; position >= start + static_cast<Position>(atoms[at].size()); ++at) {
      start += static_cast<Position>(atoms[at].size());
    }
    return at;
  }

  std::vector<std::u16string> atoms;
};

Atom TextAtom(std::size_t length) {
  return {nullptr, static_cast<std::uint32_t>(length), length == 1 ? AtomKind::kFieldBegin : AtomKind::kText, false};
}

class Sequence : public testing::Test {
 protected:
  int Random(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }
  std::u16string Text() {
    return std::u16string(static_cast<std::size_t>(Random(5)), static_cast<char16_t>(u'a' + Random(26)));
  }

  void Look(Position position) {
    const AtomSequence::Place place = atoms_.At(position);
    Position start = 0;
    const std::size_t at = model_.At(position, start);
    ASSERT_EQ(place.start, start) << position;
    ASSERT_EQ(atoms_.Text(place), model_.atoms[at]) << position;
  }

  void Edit(Position position) {
    const AtomSequence::Place place = atoms_.At(position);
    Position start = 0;
    const std::size_t at = model_.At(position, start);
    const auto there = model_.atoms.begin() + static_cast<std::ptrdiff_t>(at);
    if (Random(3) == 0) {
      atoms_.Remove(place);
      model_.atoms.erase(there);
    } else if (Random(2) == 0 && there->size() > 1) {
      atoms_.Divide(place, 1, {});
      const std::u16string rest = there->substr(1);
      there->resize(1);
      model_.atoms.insert(there + 1, rest);
    } else {
      const std::u16string text = Text();
      atoms_.Insert(place, {TextAtom(text.size())}, text);
      model_.atoms.insert(there, text);
    }
  }

  std::mt19937 random_{4711};
  AtomSequence atoms_;
  Model model_;
};

TEST_F(Sequence, LookUpsNearAndFarAgreeWithThePlainTextWhateverIsEdited) {
  for (int i = 0; i < 2'000; ++i) {
    const std::u16string text = Text();
    atoms_.Append(TextAtom(text.size()), text);
    model_.atoms.push_back(text);
  }
  for (int i = 0; i < 3'000 && !HasFatalFailure(); ++i) {
    const Position length = model_.Length();
    ASSERT_EQ(atoms_.Length(), length);
    const Position position = Random(length);
    Look(position);
    // Before and behind the place that was looked up last.
    for (const int step : {-40, -3, 2, 30, -1}) {
      if (position + step >= 0 && position + step < length) Look(position + step);
    }
    Edit(position);
    if (position < model_.Length()) Look(position);
  }
}

}  // namespace
