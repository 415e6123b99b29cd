#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "discovery/LineCapitals.h"
#include "drafting/Candidates.h"
#include "drafting/DefinitionPlace.h"
#include "drafting/QuoteMarks.h"
#include "drafting/Texts.h"
#include "marker/Letters.h"

namespace drafting {

/// A text and an index in it.
using Spot = std::pair<std::size_t, std::size_t>;

/// A stretch of one of the texts.
struct Stand {
  std::size_t text{0};
  std::size_t begin{0};
  std::size_t end{0};
};

/// A place where a term stands in quotation marks.
struct Defining {
  Stand stand;
  std::size_t close;  ///< the quotation mark behind it
  Role role;
  bool beginsLine;
  QuoteStyle quotes;
  bool article;  ///< one stands inside of the quotation marks
};

/// How a place reads in comparison with the term.
enum class Spelling { kExact, kCapitals, kOtherNumber, kOtherCase };

struct Use {
  Stand stand;
  Spelling spelling;
  CapitalUse capitals;
};

struct Term {
  std::u16string name;
  std::vector<Defining> definings;
  std::vector<Use> uses;
  bool hidden{false};  ///< not used by itself, it stands inside of longer terms
  /// Where definitions in passing stand: text and beginning of the line, and the last of them there.
  std::map<Spot, std::size_t> inPassing{};

  /// What defines it first; nullptr: nothing does.
  const Defining* Home() const {
    for (const Role role : {Role::kListed, Role::kInline, Role::kPointer}) {
      for (const Defining& defining : definings) {
        if (defining.role == role || (role == Role::kListed && defining.role == Role::kInline)) return &defining;
      }
    }
    return nullptr;
  }
};

/// The terms that a document has in quotation marks, and the places where it defines and uses each of them, by the
/// rules of docs/check.md. Uses in a term's own definition are none.
class DefinedTerms {
 public:
  /// @param candidates among which the terms are
  /// @param texts, characters  outlive the object
  DefinedTerms(const Candidates& candidates, const std::vector<Text>& texts, os::Characters& characters);

  /// In the order of the candidates. One that is only mentioned has no home.
  const std::vector<Term>& All() const { return terms_; }

  std::u16string_view Plain(std::size_t text) const { return texts_[text].content.Plain(); }
  Line LineOf(const Stand& stand) const { return texts_[stand.text].content.LineAt(stand.begin); }

  /// Whether a place lies in a use of a term, or in its quotation marks.
  bool IsTerm(const Stand& stand) const;
  /// Whether a place lies in a list of definitions, which may speak of terms that follow.
  bool LiesInDefinition(const Stand& stand) const;
  /// Whether another name of the same thing is used: the other number that is defined too, or the other of "Group" or
  /// "the Group Companies" means.
  /// @param term one of these, with a definition
  bool IsUsedAsOther(const Term& term) const;

 private:
  void Collect(const Candidates& candidates);
  void ReadDefinitions();
  void Note(Term& term, const Stand& stand, std::size_t close);
  void ReadUses();
  /// A term that stands inside of longer ones only is used by them.
  void FindHidden();
  void NoteDefinitionLines();
  /// Leaves the uses outside of each term's own definition, and notes where definitions in passing stand.
  void LeaveUsesElsewhere();

  /// Index of the quotation mark behind a term that stands in quotation marks; 0: it does not.
  std::size_t ClosingMarkOf(const Stand& stand) const;
  /// Whether a place lies in the quotation marks of a longer term.
  bool IsQuoted(const Stand& stand) const;
  /// The lines of a definition in a list: its own, and the next where the term fills a line, or a cell, by itself.
  Line BodyOf(const Defining& defining) const;

  const std::vector<Text>& texts_;
  os::Characters& characters_;
  marker::Letters letters_;
  std::vector<Term> terms_;
  std::unordered_map<std::u16string, std::size_t> byName_;
  /// Where terms stand in quotation marks, and the ends.
  std::map<Spot, std::size_t> quoted_;
  /// Where terms stand in the way they are defined, in capitals or in the other number, and the ends.
  std::map<Spot, std::size_t> termsAt_;
  /// The terms that each line defines as in a list.
  std::map<Spot, std::vector<std::size_t>> listed_;
  /// The beginning of each line that belongs to a list of definitions.
  std::set<Spot> definitionLines_;
};

}  // namespace drafting
