#include "drafting/DraftCheck.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "discovery/LineCapitals.h"
#include "discovery/LineText.h"
#include "discovery/SmallWords.h"
#include "discovery/TextSet.h"
#include "drafting/DefinitionPlace.h"
#include "drafting/QuoteMarks.h"
#include "drafting/Texts.h"
#include "drafting/UndefinedPhrases.h"
#include "drafting/WordNumber.h"
#include "marker/PlainText.h"
#include "marker/TermMatcher.h"
#include "platform/Quotes.h"

namespace drafting {

namespace {

/// A stretch of one of the texts.
struct Stand {
  std::size_t text{0};
  std::size_t begin{0};
  std::size_t end{0};
};

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
  std::map<std::pair<std::size_t, std::size_t>, std::size_t> inPassing{};

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

/// "The singular includes the plural", in many ways of saying it.
bool SaysNumberDoesNotCount(const LinedText& text) {
  const std::u16string& plain = text.Plain();
  for (std::size_t at = plain.find(u"singular"); at != std::u16string::npos;) {
    const Line line = text.LineAt(at);
    if (text.TextOf(line).find(u"plural") != std::u16string_view::npos) return true;
    at = plain.find(u"singular", line.end);
  }
  return false;
}

bool HoldsLower(std::u16string_view text) {
  return std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit >= u'a' && unit <= u'z'; });
}

class Check {
 public:
  explicit Check(const CandidateSources& sources)
      : characters_(sources.characters), letters_(characters_), texts_(ReadTexts(sources.document)) {
    const Candidates candidates = FindCandidates(sources);
    phrases_ = candidates.capitalised;
    CollectTerms(candidates);
    ReadDefinitions();
    ReadUses();
    NoteDefinitionLines();
    LeaveUsesElsewhere();
    const auto isInterpreted = [](const Text& text) { return SaysNumberDoesNotCount(text.content); };
    numberCounts_ = std::none_of(texts_.begin(), texts_.end(), isInterpreted);
  }

  Result Run() {
    for (const Term& term : terms_) {
      if (term.Home() == nullptr) continue;
      AddDefinition(term);
      CheckDefinedTwice(term);
      CheckUses(term);
      CheckVariants(term);
      CheckArticle(term);
    }
    CheckQuotes();
    std::vector<Finding> undefined = FindUndefined(texts_, phrases_, AllForms(), characters_);
    std::move(undefined.begin(), undefined.end(), std::back_inserter(result_.findings));
    const auto inOrder = [](const Place& one, const Place& other) {
      return std::tie(one.story, one.position) < std::tie(other.story, other.position);
    };
    std::stable_sort(result_.definitions.begin(), result_.definitions.end(),
                     [&](const Definition& one, const Definition& other) { return inOrder(one.place, other.place); });
    std::stable_sort(result_.findings.begin(), result_.findings.end(), [&](const Finding& one, const Finding& other) {
      return one.kind != other.kind ? one.kind < other.kind : inOrder(one.place, other.place);
    });
    return std::move(result_);
  }

 private:
  void CollectTerms(const Candidates& candidates) {
    TextSet known;
    const auto take = [&](std::u16string_view name) {
      if (known.insert(WithStraightQuotes(name)).second)
        terms_.push_back({.name = std::u16string(name), .definings = {}, .uses = {}, .hidden = false});
    };
    for (const std::u16string& quoted : candidates.quoted) take(WithoutArticle(quoted, characters_));
    // A quotation mark without a partner upsets the search for quoted texts, not that for capitals.
    for (const std::u16string& phrase : candidates.capitalised) take(WithoutArticle(phrase, characters_));
  }

  std::u16string_view Plain(std::size_t text) const { return texts_[text].content.Plain(); }

  void ReadDefinitions() {
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
        quoted_.emplace(std::pair(stand.text, stand.begin), stand.end);
        if (defining.role == Role::kListed) listed_[{stand.text, LineOf(stand).begin}].push_back(i);
      }
    }
  }

  /// Index of the quotation mark behind a term that stands in quotation marks; 0: it does not.
  std::size_t ClosingMarkOf(const Stand& stand) const {
    const std::size_t close = ClosingMark(Plain(stand.text), stand.end);
    return marker::StandsInQuotes(letters_, Plain(stand.text), stand.begin, close) ? close : 0;
  }

  void Note(Term& term, const Stand& stand, std::size_t close) {
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

  /// What is looked for on behalf of a term.
  struct Sought {
    std::size_t term;
    Spelling spelling;
  };

  void ReadUses() {
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

  /// A term that stands inside of longer ones only is used by them.
  void FindHidden() {
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

  /// Whether a place lies in the quotation marks of a longer term.
  bool IsQuoted(const Stand& stand) const {
    const auto behind = quoted_.upper_bound({stand.text, stand.begin});
    return behind != quoted_.begin() && std::prev(behind)->first.first == stand.text &&
           std::prev(behind)->second >= stand.end;
  }

  Place At(const Stand& stand) const { return PlaceOf(texts_[stand.text], stand.begin, stand.end, characters_); }
  std::u16string Read(const Stand& stand) const {
    return std::u16string(Plain(stand.text).substr(stand.begin, stand.end - stand.begin));
  }
  Line LineOf(const Stand& stand) const { return texts_[stand.text].content.LineAt(stand.begin); }

  /// The lines of a definition in a list: its own, and the next where the term fills a line, or a cell, by itself.
  Line BodyOf(const Defining& defining) const {
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

  void NoteDefinitionLines() {
    for (const Term& term : terms_) {
      for (const Defining& defining : term.definings) {
        if (!defining.beginsLine || (defining.role != Role::kListed && defining.role != Role::kPointer)) continue;
        const Line body = BodyOf(defining);
        definitionLines_.insert({defining.stand.text, body.begin});
        definitionLines_.insert({defining.stand.text, LineOf({defining.stand.text, body.end, body.end}).begin});
      }
    }
  }

  /// Leaves the uses outside of each term's own definition, and notes where definitions in passing stand.
  void LeaveUsesElsewhere() {
    for (Term& term : terms_) {
      // Ends by beginnings. A body reaches into the next line at most, and so into the next body.
      std::map<std::pair<std::size_t, std::size_t>, std::size_t> bodies;
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

  static bool CountsAsTerm(const Use& use) { return use.spelling != Spelling::kOtherCase; }

  void Add(Kind kind, const Term& term, const Stand& stand, int count = 1, const Stand* other = nullptr) {
    Finding finding{.kind = kind, .term = term.name, .text = Read(stand), .count = count, .place = At(stand)};
    if (other != nullptr) finding.other = At(*other);
    result_.findings.push_back(std::move(finding));
  }

  void AddDefinition(const Term& term) {
    const auto count = std::count_if(term.uses.begin(), term.uses.end(), CountsAsTerm);
    result_.definitions.push_back({term.name, At(term.Home()->stand), static_cast<int>(count)});
  }

  void CheckDefinedTwice(const Term& term) {
    const Defining* first = nullptr;
    for (const Defining& defining : term.definings) {
      if (defining.role != Role::kListed && defining.role != Role::kInline) continue;
      if (first == nullptr) {
        first = &defining;
      } else if (LineOf(defining.stand).begin != LineOf(first->stand).begin ||
                 defining.stand.text != first->stand.text) {
        Add(Kind::kDefinedTwice, term, defining.stand, 1, &first->stand);
      }
    }
  }

  void CheckUses(const Term& term) {
    std::vector<Use> uses = term.uses;
    std::erase_if(uses, [](const Use& use) { return !CountsAsTerm(use); });
    const Defining& home = *term.Home();
    if (uses.empty()) {
      if (!term.hidden && !IsUsedAsOther(term)) Add(Kind::kNotUsed, term, home.stand);
      return;
    }
    if (uses.size() == 1) Add(Kind::kUsedOnce, term, uses.front().stand, 1, &home.stand);
    CheckUsedBefore(term, home, uses);
  }

  /// Whether another name of the same thing is used: the other number that is defined too, or the other of "Group" or
  /// "the Group Companies" means.
  bool IsUsedAsOther(const Term& term) const {
    const auto number = byName_.find(InOtherNumber(term.name));
    if (number != byName_.end() && !terms_[number->second].uses.empty()) return true;
    const Defining& home = *term.Home();
    const auto line = listed_.find({home.stand.text, LineOf(home.stand).begin});
    return line != listed_.end() && std::any_of(line->second.begin(), line->second.end(), [&](std::size_t other) {
             return &terms_[other] != &term && !terms_[other].uses.empty();
           });
  }

  /// Whether a place lies in a list of definitions, which may speak of terms that follow.
  bool LiesInDefinition(const Stand& stand) const {
    return definitionLines_.contains({stand.text, LineOf(stand).begin});
  }

  /// Whether it is part of somebody else's name: "the Florida Securities Act", "the Securities Act of 1933", "the
  /// Companies House Register". Capitals of other defined terms beside it make no name.
  bool IsInName(const Stand& stand) const {
    // A line can be as long as a document; a longer word is none.
    constexpr std::size_t kLongestWord = 64;
    const std::u16string_view plain = Plain(stand.text);
    const std::size_t from = stand.begin - std::min(stand.begin, kLongestWord);
    const auto isCapital = [plain](std::size_t at) {
      return at < plain.size() && plain[at] >= u'A' && plain[at] <= u'Z';
    };
    if (stand.end < plain.size() && plain[stand.end] == u' ') {
      if (isCapital(stand.end + 1) && !IsTerm({stand.text, stand.end + 1, stand.end + 2})) return true;
      if (IsYearOf(plain.substr(stand.end))) return true;
    }
    const std::u16string_view before = plain.substr(from, stand.begin - from);
    if (!before.ends_with(u' ') || before.size() < 2) return false;
    std::size_t begin = before.size() - 1;
    while (begin > 0 && before[begin - 1] != u' ' && LineEnd(before.substr(begin - 1, 1), 0) != 0) --begin;
    const std::u16string_view word = before.substr(begin, before.size() - 1 - begin);
    return !word.empty() && isCapital(from + begin) && !IsSmallWord(word) &&
           !IsTerm({stand.text, from + begin, from + begin + 1});
  }

  /// " of 1933"
  static bool IsYearOf(std::u16string_view behind) {
    constexpr std::u16string_view kOf = u" of ";
    constexpr std::size_t kDigits = 4;
    if (!behind.starts_with(kOf) || behind.size() < kOf.size() + kDigits) return false;
    const std::u16string_view year = behind.substr(kOf.size(), kDigits);
    return std::all_of(year.begin(), year.end(), [](char16_t unit) { return unit >= u'0' && unit <= u'9'; });
  }

  /// Whether a place lies in a use of a term, or in its quotation marks.
  bool IsTerm(const Stand& stand) const {
    const auto behind = termsAt_.upper_bound({stand.text, stand.begin});
    return behind != termsAt_.begin() && std::prev(behind)->first.first == stand.text &&
           std::prev(behind)->second >= stand.end;
  }

  /// A list of definitions speaks for the whole contract, wherever it stands; a definition in passing does not.
  void CheckUsedBefore(const Term& term, const Defining& home, const std::vector<Use>& uses) {
    const bool inPassing = std::all_of(term.definings.begin(), term.definings.end(), [](const Defining& defining) {
      return defining.role == Role::kInline || defining.role == Role::kMention;
    });
    if (!inPassing) return;
    const std::size_t line = LineOf(home.stand).begin;
    const Use* first = nullptr;
    int count = 0;
    for (const Use& use : uses) {
      const bool before = use.stand.text == home.stand.text && use.stand.begin < line;
      if (!before || use.capitals != CapitalUse::kOfItsOwn || use.spelling != Spelling::kExact) continue;
      if (LiesInDefinition(use.stand) || IsInName(use.stand)) continue;
      if (first == nullptr) first = &use;
      ++count;
    }
    if (first != nullptr) Add(Kind::kUsedBefore, term, first->stand, count, &home.stand);
  }

  void CheckVariants(const Term& term) {
    AddVariants(term, Spelling::kOtherCase, Kind::kOtherCase);
    if (numberCounts_) AddVariants(term, Spelling::kOtherNumber, Kind::kOtherNumber);
  }

  /// Each way of writing is a finding of its own.
  void AddVariants(const Term& term, Spelling spelling, Kind kind) {
    std::map<std::u16string, std::pair<Stand, int>> ways;
    for (const Use& use : term.uses) {
      const bool counts =
          use.spelling == spelling && use.capitals != CapitalUse::kHeading &&
          (spelling == Spelling::kOtherCase || (use.capitals == CapitalUse::kOfItsOwn && !IsInName(use.stand)));
      if (!counts || IsPlainHeading(use) || IsBesideItsDefinition(term, use)) continue;
      const auto [way, isNew] = ways.try_emplace(WithStraightQuotes(Read(use.stand)), use.stand, 0);
      ++way->second.second;
    }
    for (const auto& [text, way] : ways) Add(kind, term, way.first, way.second, &term.Home()->stand);
  }

  /// Whether it begins a heading of which the first word alone has a capital: "Tag along rights".
  bool IsPlainHeading(const Use& use) const {
    constexpr std::ptrdiff_t kMostWords = 8;
    constexpr std::size_t kLongest = 100;
    const std::u16string_view whole = texts_[use.stand.text].content.TextOf(LineOf(use.stand));
    return use.capitals == CapitalUse::kSentenceStart && whole.size() < kLongest &&
           std::count(whole.begin(), whole.end(), u' ') < kMostWords &&
           std::u16string_view(u".;,:").find(whole.back()) == std::u16string_view::npos;
  }

  /// As in: a subscription agreement (the "Subscription Agreement").
  bool IsBesideItsDefinition(const Term& term, const Use& use) const {
    const auto last = term.inPassing.find({use.stand.text, LineOf(use.stand).begin});
    return last != term.inPassing.end() && use.stand.begin < last->second;
  }

  void CheckArticle(const Term& term) {
    for (const Defining& defining : term.definings) {
      if (defining.article) Add(Kind::kArticle, term, WithArticle(defining.stand));
    }
  }

  Stand WithArticle(Stand stand) const {
    const std::u16string_view plain = Plain(stand.text);
    while (stand.begin > 0 && !IsDoubleQuote(plain[stand.begin - 1])) --stand.begin;
    return stand;
  }

  void CheckQuotes() {
    std::map<QuoteStyle, int> styles;
    for (const Term& term : terms_) {
      for (const Defining& defining : term.definings) ++styles[defining.quotes];
    }
    QuoteStyle usual = QuoteStyle::kCurly;
    int most = 0;
    for (const auto& [style, count] : styles) {
      if (style == QuoteStyle::kMixed || count <= most) continue;
      usual = style;
      most = count;
    }
    for (const Term& term : terms_) {
      for (const Defining& defining : term.definings) {
        if (defining.quotes != usual) Add(Kind::kMixedQuotes, term, WithQuotes(defining));
      }
    }
    std::vector<Finding> unpaired = FindUnpairedQuotes(texts_, characters_);
    std::move(unpaired.begin(), unpaired.end(), std::back_inserter(result_.findings));
  }

  Stand WithQuotes(const Defining& defining) const {
    Stand with = WithArticle(defining.stand);
    --with.begin;
    with.end = defining.close + 1;
    return with;
  }

  /// Everything that counts as a defined term where undefined ones are looked for.
  std::vector<std::u16string> AllForms() {
    std::vector<std::u16string> all;
    for (const Term& term : terms_) {
      all.push_back(term.name);
      std::u16string other = InOtherNumber(term.name);
      if (!other.empty()) all.push_back(std::move(other));
    }
    return all;
  }

  os::Characters& characters_;
  marker::Letters letters_;
  std::vector<Text> texts_;
  std::vector<std::u16string> phrases_;
  std::vector<Term> terms_;
  std::unordered_map<std::u16string, std::size_t> byName_;
  /// Where terms stand in quotation marks: text and beginning, and the end.
  std::map<std::pair<std::size_t, std::size_t>, std::size_t> quoted_;
  /// Where terms stand in the way they are defined, in capitals or in the other number: text and beginning, and the
  /// end.
  std::map<std::pair<std::size_t, std::size_t>, std::size_t> termsAt_;
  /// The terms that each line defines as in a list.
  std::map<std::pair<std::size_t, std::size_t>, std::vector<std::size_t>> listed_;
  /// Text and beginning of each line that belongs to a list of definitions.
  std::set<std::pair<std::size_t, std::size_t>> definitionLines_;
  bool numberCounts_{true};
  Result result_;
};

}  // namespace

Result CheckDraft(const CandidateSources& sources) { return Check(sources).Run(); }

}  // namespace drafting
