#include "drafting/DraftCheck.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <tuple>
#include <utility>

#include "discovery/LineText.h"
#include "discovery/SmallWords.h"
#include "drafting/DefinedTerms.h"
#include "drafting/QuoteMarks.h"
#include "drafting/Texts.h"
#include "drafting/UndefinedPhrases.h"
#include "drafting/WordNumber.h"
#include "platform/Quotes.h"

namespace drafting {

namespace {

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

class Check {
 public:
  /// @param texts, terms, characters  outlive the object
  Check(const std::vector<Text>& texts, const DefinedTerms& terms, os::Characters& characters)
      : texts_(texts), terms_(terms), characters_(characters) {
    const auto isInterpreted = [](const Text& text) { return SaysNumberDoesNotCount(text.content); };
    numberCounts_ = std::none_of(texts_.begin(), texts_.end(), isInterpreted);
  }

  /// @param phrases the capitalised words and phrases among which undefined terms are
  Result Run(const std::vector<std::u16string>& phrases) {
    for (const Term& term : terms_.All()) {
      if (term.Home() == nullptr) continue;
      AddDefinition(term);
      CheckDefinedTwice(term);
      CheckUses(term);
      CheckVariants(term);
      CheckArticle(term);
    }
    CheckQuotes();
    std::vector<Finding> undefined = FindUndefined(texts_, phrases, AllForms(), characters_);
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
  Place At(const Stand& stand) const { return PlaceOf(texts_[stand.text], stand.begin, stand.end, characters_); }
  std::u16string Read(const Stand& stand) const {
    return std::u16string(terms_.Plain(stand.text).substr(stand.begin, stand.end - stand.begin));
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
      } else if (terms_.LineOf(defining.stand).begin != terms_.LineOf(first->stand).begin ||
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
      if (!term.hidden && !terms_.IsUsedAsOther(term)) Add(Kind::kNotUsed, term, home.stand);
      return;
    }
    if (uses.size() == 1) Add(Kind::kUsedOnce, term, uses.front().stand, 1, &home.stand);
    CheckUsedBefore(term, home, uses);
  }

  /// Whether it is part of somebody else's name: "the Florida Securities Act", "the Securities Act of 1933", "the
  /// Companies House Register". Capitals of other defined terms beside it make no name.
  bool IsInName(const Stand& stand) const {
    // A line can be as long as a document; a longer word is none.
    constexpr std::size_t kLongestWord = 64;
    const std::u16string_view plain = terms_.Plain(stand.text);
    const std::size_t from = stand.begin - std::min(stand.begin, kLongestWord);
    const auto isCapital = [plain](std::size_t at) {
      return at < plain.size() && plain[at] >= u'A' && plain[at] <= u'Z';
    };
    if (stand.end < plain.size() && plain[stand.end] == u' ') {
      if (isCapital(stand.end + 1) && !terms_.IsTerm({stand.text, stand.end + 1, stand.end + 2})) return true;
      if (IsYearOf(plain.substr(stand.end))) return true;
    }
    const std::u16string_view before = plain.substr(from, stand.begin - from);
    if (!before.ends_with(u' ') || before.size() < 2) return false;
    std::size_t begin = before.size() - 1;
    while (begin > 0 && before[begin - 1] != u' ' && LineEnd(before.substr(begin - 1, 1), 0) != 0) --begin;
    const std::u16string_view word = before.substr(begin, before.size() - 1 - begin);
    return !word.empty() && isCapital(from + begin) && !IsSmallWord(word) &&
           !terms_.IsTerm({stand.text, from + begin, from + begin + 1});
  }

  /// " of 1933"
  static bool IsYearOf(std::u16string_view behind) {
    constexpr std::u16string_view kOf = u" of ";
    constexpr std::size_t kDigits = 4;
    if (!behind.starts_with(kOf) || behind.size() < kOf.size() + kDigits) return false;
    const std::u16string_view year = behind.substr(kOf.size(), kDigits);
    return std::all_of(year.begin(), year.end(), [](char16_t unit) { return unit >= u'0' && unit <= u'9'; });
  }

  /// A list of definitions speaks for the whole contract, wherever it stands; a definition in passing does not.
  void CheckUsedBefore(const Term& term, const Defining& home, const std::vector<Use>& uses) {
    const bool inPassing = std::all_of(term.definings.begin(), term.definings.end(), [](const Defining& defining) {
      return defining.role == Role::kInline || defining.role == Role::kMention;
    });
    if (!inPassing) return;
    const std::size_t line = terms_.LineOf(home.stand).begin;
    const Use* first = nullptr;
    int count = 0;
    for (const Use& use : uses) {
      const bool before = use.stand.text == home.stand.text && use.stand.begin < line;
      if (!before || use.capitals != CapitalUse::kOfItsOwn || use.spelling != Spelling::kExact) continue;
      if (terms_.LiesInDefinition(use.stand) || IsInName(use.stand)) continue;
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
    const std::u16string_view whole = texts_[use.stand.text].content.TextOf(terms_.LineOf(use.stand));
    return use.capitals == CapitalUse::kSentenceStart && whole.size() < kLongest &&
           std::count(whole.begin(), whole.end(), u' ') < kMostWords &&
           std::u16string_view(u".;,:").find(whole.back()) == std::u16string_view::npos;
  }

  /// As in: a subscription agreement (the "Subscription Agreement").
  bool IsBesideItsDefinition(const Term& term, const Use& use) const {
    const auto last = term.inPassing.find({use.stand.text, terms_.LineOf(use.stand).begin});
    return last != term.inPassing.end() && use.stand.begin < last->second;
  }

  void CheckArticle(const Term& term) {
    for (const Defining& defining : term.definings) {
      if (defining.article) Add(Kind::kArticle, term, WithArticle(defining.stand));
    }
  }

  Stand WithArticle(Stand stand) const {
    const std::u16string_view plain = terms_.Plain(stand.text);
    while (stand.begin > 0 && !IsDoubleQuote(plain[stand.begin - 1])) --stand.begin;
    return stand;
  }

  void CheckQuotes() {
    std::map<QuoteStyle, int> styles;
    for (const Term& term : terms_.All()) {
      for (const Defining& defining : term.definings) ++styles[defining.quotes];
    }
    QuoteStyle usual = QuoteStyle::kCurly;
    int most = 0;
    for (const auto& [style, count] : styles) {
      if (style == QuoteStyle::kMixed || count <= most) continue;
      usual = style;
      most = count;
    }
    for (const Term& term : terms_.All()) {
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
    for (const Term& term : terms_.All()) {
      all.push_back(term.name);
      std::u16string other = InOtherNumber(term.name);
      if (!other.empty()) all.push_back(std::move(other));
    }
    return all;
  }

  const std::vector<Text>& texts_;
  const DefinedTerms& terms_;
  os::Characters& characters_;
  bool numberCounts_{true};
  Result result_;
};

}  // namespace

Result CheckDraft(const CandidateSources& sources) {
  const std::vector<Text> texts = ReadTexts(sources.document);
  const Candidates candidates = FindCandidates(sources);
  const DefinedTerms terms(candidates, texts, sources.characters);
  return Check(texts, terms, sources.characters).Run(candidates.capitalised);
}

}  // namespace drafting
