#include "drafting/DefinedTerms.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "discovery/LineText.h"
#include "discovery/TextSet.h"
#include "drafting/WordNumber.h"
#include "marker/PlainText.h"
#include "marker/TermMatcher.h"
#include "platform/Quotes.h"

namespace drafting {

namespace {

/// What is looked for on behalf of a term.
struct Sought {
  std::size_t term;
  Spelling spelling;
};

bool HoldsLower(std::u16string_view text) {
  return std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit >= u'a' && unit <= u'z'; });
}

/// @param ends of stretches, by where they begin
bool Cover(const std::map<Spot, std::size_t>& ends, const Stand& stand) {
  const auto behind = ends.upper_bound({stand.text, stand.begin});
  return behind != ends.begin() && std::prev(behind)->first.first == stand.text &&
         std::prev(behind)->second >= stand.end;
}

}  // namespace

DefinedTerms::DefinedTerms(const Candidates& candidates, const std::vector<Text>& texts, os::Characters& characters)
    : texts_(texts), characters_(characters), letters_(characters) {
  Collect(candidates);
  ReadDefinitions();
  ReadUses();
  NoteDefinitionLines();
  LeaveUsesElsewhere();
}

void DefinedTerms::Collect(const Candidates& candidates) {
  TextSet known;
  const auto take = [&](std::u16string_view name) {
    if (known.insert(WithStraightQuotes(name)).second)
      terms_.push_back({.name = std::u16string(name), .definings = {}, .uses = {}, .hidden = false});
  };
  for (const std::u16string& quoted : candidates.quoted) take(WithoutArticle(quoted, characters_));
  // A quotation mark without a partner upsets the search for quoted texts, not that for capitals.
  for (const std::u16string& phrase : candidates.capitalised) take(WithoutArticle(phrase, characters_));
}

void DefinedTerms::ReadDefinitions() {
  std::vector<marker::Form> forms;
  for (const Term& term : terms_) forms.push_back({.text = marker::PlainTerm(term.name), .matchCase = true});
  const marker::TermMatcher matcher(letters_, std::move(forms));
  for (std::size_t text = 0; text < texts_.size(); ++text) {
    for (const marker::Match& match : matcher.Find(Plain(text))) {
      const Stand stand{text, match.begin, match.end};
      if (const std::size_t close = ClosingMarkOf(stand); close != 0) Note(terms_[match.form], stand, close);
    }
  }
  std::erase_if(terms_, [](const Term& term) { return term.definings.empty(); });
  for (std::size_t i = 0; i < terms_.size(); ++i) {
    byName_.emplace(terms_[i].name, i);
    for (const Defining& defining : terms_[i].definings) {
      const Stand& stand = defining.stand;
      quoted_.emplace(Spot(stand.text, stand.begin), stand.end);
      if (defining.role == Role::kListed) listed_[{stand.text, LineOf(stand).begin}].push_back(i);
    }
  }
}

std::size_t DefinedTerms::ClosingMarkOf(const Stand& stand) const {
  const std::size_t close = ClosingMark(Plain(stand.text), stand.end);
  return marker::StandsInQuotes(letters_, Plain(stand.text), stand.begin, close) ? close : 0;
}

void DefinedTerms::Note(Term& term, const Stand& stand, std::size_t close) {
  const std::u16string_view plain = Plain(stand.text);
  // What is further away does not define it; a line can be as long as a document.
  constexpr std::size_t kFarthest = 1000;
  Line line = LineOf(stand);
  line.begin = std::max(line.begin, stand.begin - std::min(stand.begin, kFarthest));
  line.end = std::min(line.end, close + kFarthest);
  const std::u16string_view whole = plain.substr(line.begin, line.end - line.begin);
  const std::size_t begin = stand.begin - line.begin;
  std::size_t open = stand.begin;
  while (open > line.begin && !IsDoubleQuote(plain[open - 1])) --open;
  term.definings.push_back({.stand = stand,
                            .close = close,
                            .role = RoleOf(whole, begin, close - line.begin),
                            .beginsLine = BeginsLine(whole, begin),
                            .quotes = StyleOf(plain[open - 1], plain[close]),
                            .article = open < stand.begin});
}

void DefinedTerms::ReadUses() {
  std::vector<marker::Form> forms;
  std::vector<Sought> sought;
  const auto seek = [&](std::size_t term, Spelling spelling, const std::u16string& text, bool matchCase) {
    if (text.empty()) return;
    forms.push_back({.text = marker::PlainTerm(text), .matchCase = matchCase});
    sought.push_back({term, spelling});
  };
  for (const bool exact : {true, false}) {
    for (std::size_t i = 0; i < terms_.size(); ++i) {
      const std::u16string& name = terms_[i].name;
      if (exact) {
        seek(i, Spelling::kExact, name, true);
        continue;
      }
      const std::u16string other = InOtherNumber(name);
      seek(i, Spelling::kCapitals, characters_.ToUpper(name), true);
      seek(i, Spelling::kOtherNumber, other, true);
      seek(i, Spelling::kCapitals, characters_.ToUpper(other), true);
      // One word without its capital is mostly just that word.
      // Of a term that is defined in capitals nothing tells how it is written.
      const Spelling otherwise = HoldsLower(name) ? Spelling::kOtherCase : Spelling::kExact;
      if (name.find(u' ') == std::u16string::npos) continue;
      seek(i, otherwise, name, false);
      seek(i, Spelling::kOtherCase, other, false);
    }
  }
  const marker::TermMatcher matcher(letters_, std::move(forms));
  for (std::size_t text = 0; text < texts_.size(); ++text) {
    Line line;
    std::optional<LineCapitals> capitals;
    const std::u16string_view plain = Plain(text);
    for (const marker::Match& match : matcher.Find(plain)) {
      if (sought[match.form].spelling != Spelling::kOtherCase) termsAt_[{text, match.begin}] = match.end;
      if (ClosingMarkOf({text, match.begin, match.end}) != 0) continue;
      if (!capitals || match.begin > line.end) {
        line = texts_[text].content.LineAt(match.begin);
        capitals.emplace(plain.substr(line.begin, line.end - line.begin), characters_);
      }
      const auto [term, spelling] = sought[match.form];
      const CapitalUse use = capitals->UseAt(match.begin - line.begin, match.end - line.begin);
      terms_[term].uses.push_back({{text, match.begin, match.end}, spelling, use});
    }
  }
  FindHidden();
}

void DefinedTerms::FindHidden() {
  std::vector<marker::Form> forms;
  std::vector<std::size_t> unused;
  for (std::size_t i = 0; i < terms_.size(); ++i) {
    if (!terms_[i].uses.empty()) continue;
    forms.push_back({.text = marker::PlainTerm(terms_[i].name), .matchCase = true});
    unused.push_back(i);
  }
  if (unused.empty()) return;
  const marker::TermMatcher matcher(letters_, std::move(forms));
  for (std::size_t text = 0; text < texts_.size(); ++text) {
    for (const marker::Match& match : matcher.Find(Plain(text))) {
      const Stand stand{text, match.begin, match.end};
      if (ClosingMarkOf(stand) == 0 && !IsQuoted(stand)) terms_[unused[match.form]].hidden = true;
    }
  }
}

bool DefinedTerms::IsQuoted(const Stand& stand) const { return Cover(quoted_, stand); }

Line DefinedTerms::BodyOf(const Defining& defining) const {
  const std::u16string_view plain = Plain(defining.stand.text);
  Line line = LineOf(defining.stand);
  std::size_t behind = defining.close + 1;
  while (behind < line.end && plain[behind] == u' ') ++behind;
  if (behind < line.end) return line;
  std::size_t next = line.end;
  while (next < plain.size() && LineEnd(plain.substr(next, 1), 0) == 0) ++next;
  line.end = LineEnd(plain, next);
  return line;
}

void DefinedTerms::NoteDefinitionLines() {
  for (const Term& term : terms_) {
    for (const Defining& defining : term.definings) {
      if (!defining.beginsLine || (defining.role != Role::kListed && defining.role != Role::kPointer)) continue;
      const Line body = BodyOf(defining);
      definitionLines_.insert({defining.stand.text, body.begin});
      definitionLines_.insert({defining.stand.text, LineOf({defining.stand.text, body.end, body.end}).begin});
    }
  }
}

void DefinedTerms::LeaveUsesElsewhere() {
  for (Term& term : terms_) {
    // Ends by beginnings. A body reaches into the next line at most, and so into the next body.
    std::map<Spot, std::size_t> bodies;
    for (const Defining& defining : term.definings) {
      if (defining.role == Role::kInline) {
        std::size_t& last = term.inPassing[{defining.stand.text, LineOf(defining.stand).begin}];
        last = std::max(last, defining.stand.begin);
      } else if (defining.beginsLine && defining.role != Role::kMention) {
        const Line body = BodyOf(defining);
        std::size_t& end = bodies[{defining.stand.text, body.begin}];
        end = std::max(end, body.end);
      }
    }
    std::erase_if(term.uses, [&bodies](const Use& use) {
      auto body = bodies.upper_bound({use.stand.text, use.stand.begin});
      for (int back = 0; back < 2 && body != bodies.begin(); ++back) {
        --body;
        if (body->first.first == use.stand.text && use.stand.begin < body->second) return true;
      }
      return false;
    });
  }
}

bool DefinedTerms::IsTerm(const Stand& stand) const { return Cover(termsAt_, stand); }

bool DefinedTerms::LiesInDefinition(const Stand& stand) const {
  return definitionLines_.contains({stand.text, LineOf(stand).begin});
}

bool DefinedTerms::IsUsedAsOther(const Term& term) const {
  const auto number = byName_.find(InOtherNumber(term.name));
  if (number != byName_.end() && !terms_[number->second].uses.empty()) return true;
  const Defining& home = *term.Home();
  const auto line = listed_.find({home.stand.text, LineOf(home.stand).begin});
  return line != listed_.end() && std::any_of(line->second.begin(), line->second.end(), [&](std::size_t other) {
           return &terms_[other] != &term && !terms_[other].uses.empty();
         });
}

}  // namespace drafting
