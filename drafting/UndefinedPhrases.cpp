#include "drafting/UndefinedPhrases.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "discovery/LineCapitals.h"
#include "discovery/SmallWords.h"
#include "drafting/WordNumber.h"
#include "marker/PlainText.h"
#include "marker/TermMatcher.h"

namespace drafting {

namespace {

/// Fewer places can be a name, or a slip that has nothing to do with terms.
constexpr int kFewestUses = 2;

/// Words that name parts of a document, people, places, times and institutions, which nobody defines.
constexpr auto kNoTerms = std::to_array<std::u16string_view>(
    {u"Section",     u"Sections",    u"Article",    u"Articles",   u"Clause",       u"Clauses",      u"Paragraph",
     u"Paragraphs",  u"Part",        u"Parts",      u"Schedule",   u"Schedules",    u"Exhibit",      u"Exhibits",
     u"Annex",       u"Annexes",     u"Appendix",   u"Appendices", u"Attachment",   u"Attachments",  u"Recital",
     u"Recitals",    u"Chapter",     u"Title",      u"Page",       u"Table",        u"Item",         u"Items",
     u"Subsection",  u"Subsections", u"Note",       u"Footnote",   u"Preamble",     u"Introduction", u"Definitions",
     u"Whereas",     u"Witness",     u"Mr",         u"Mrs",        u"Ms",           u"Dr",           u"January",
     u"February",    u"March",       u"April",      u"May",        u"June",         u"July",         u"August",
     u"September",   u"October",     u"November",   u"December",   u"Monday",       u"Tuesday",      u"Wednesday",
     u"Thursday",    u"Friday",      u"Saturday",   u"Sunday",     u"Christmas",    u"Easter",       u"Internet",
     u"Web",         u"World",       u"English",    u"American",   u"British",      u"European",     u"French",
     u"German",      u"United",      u"States",     u"Kingdom",    u"State",        u"Republic",     u"Union",
     u"Europe",      u"America",     u"England",    u"Wales",      u"Scotland",     u"Ireland",      u"Britain",
     u"Federal",     u"Government",  u"Congress",   u"Parliament", u"President",    u"Secretary",    u"Court",
     u"Courts",      u"Crown",       u"County",     u"City",       u"Commonwealth", u"Constitution", u"House",
     u"Senate",      u"Ministry",    u"Department", u"Roman",      u"Latin",        u"Bible",        u"God",
     u"Netherlands", u"Philippines", u"Bahamas",    u"Nordic",     u"Scandinavian", u"Finnish",      u"Swedish",
     u"Danish",      u"Norwegian",   u"Dutch",      u"Belgian",    u"Swiss",        u"Austrian",     u"Italian",
     u"Spanish",     u"Portuguese",  u"Polish",     u"Irish",      u"Scottish",     u"Welsh",        u"Greek",
     u"Turkish",     u"Russian",     u"Chinese",    u"Japanese",   u"Korean",       u"Indian",       u"Canadian",
     u"Australian",  u"African",     u"Asian"});

/// What stands between a bracket, or a single quotation mark, and a term that has no double ones.
constexpr auto kNaming = std::to_array<std::u16string_view>(
    {u"", u"the ", u"a ", u"an ", u"each a ", u"each, a ", u"together the ", u"together, the ", u"collectively, the "});

/// What stands behind a term that a line defines without them, and what the line behind it begins with.
constexpr auto kDefining = std::to_array<std::u16string_view>(
    {u": ", u" means ", u" means:", u" mean ", u" shall mean ", u" has the meaning ", u" \u2013 ", u" \u2014 "});
constexpr auto kMeaning =
    std::to_array<std::u16string_view>({u"means ", u"means:", u"mean ", u"has the meaning ", u"the meaning "});

/// What has a name of its own with "of": the Chamber of Commerce, the Department of Justice, a Unit of the Division of.
constexpr auto kInstitutions = std::to_array<std::u16string_view>(
    {u"Agency", u"Bank", u"Bureau", u"Chamber", u"Commission", u"Court", u"Department", u"Division", u"Institute",
     u"Ministry", u"Office", u"Secretary", u"Treasury"});

/// What names of statutes and of firms end with.
constexpr auto kNameEnds = std::to_array<std::u16string_view>(
    {u"Act",        u"Acts",       u"Code",   u"Codes",        u"Regulation",  u"Regulations", u"Directive",
     u"Directives", u"Rule",       u"Rules",  u"Statute",      u"Statutes",    u"Law",         u"Laws",
     u"Ordinance",  u"Convention", u"Treaty", u"Constitution", u"Limited",     u"Ltd",         u"Inc",
     u"LLC",        u"LLP",        u"PLC",    u"Corp",         u"Corporation", u"University",  u"Association"});

constexpr auto kDeterminers = std::to_array<std::u16string_view>(
    {u"the",   u"a",       u"an",         u"any",      u"each",   u"such",    u"this", u"that",
     u"all",   u"every",   u"its",        u"their",    u"these",  u"those",   u"no",   u"said",
     u"other", u"another", u"applicable", u"relevant", u"either", u"neither", u"both"});

constexpr std::u16string_view kLetters = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

template <class Words>
bool IsOneOf(std::u16string_view word, const Words& words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

template <class Beginnings>
bool BeginsWithOneOf(std::u16string_view text, const Beginnings& beginnings) {
  return std::any_of(beginnings.begin(), beginnings.end(),
                     [text](std::u16string_view beginning) { return text.starts_with(beginning); });
}

std::vector<std::u16string_view> WordsOf(std::u16string_view phrase) {
  std::vector<std::u16string_view> words;
  for (std::size_t begin = 0; begin < phrase.size();) {
    const std::size_t end = std::min(phrase.find(u' ', begin), phrase.size());
    if (end > begin) words.push_back(phrase.substr(begin, end - begin));
    begin = end + 1;
  }
  return words;
}

bool HoldsLower(std::u16string_view text) {
  return std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit >= u'a' && unit <= u'z'; });
}

bool HoldsDigit(std::u16string_view text) { return text.find_first_of(u"0123456789") != std::u16string_view::npos; }

/// Whether a word is an abbreviation or a brand: "IoT", "OpenSky". Firms that a contract is about end otherwise:
/// "BidCo".
bool HoldsInnerCapital(std::u16string_view word) {
  if (word.ends_with(u"Co")) return false;
  for (std::size_t i = 1; i < word.size(); ++i) {
    const bool before = word[i - 1] >= u'a' && word[i - 1] <= u'z';
    if (before && word[i] >= u'A' && word[i] <= u'Z') return true;
  }
  return false;
}

bool IsInstitution(const std::vector<std::u16string_view>& words) {
  for (std::size_t i = 0; i + 1 < words.size(); ++i) {
    if (IsOneOf(words[i], kInstitutions) && words[i + 1] == u"of") return true;
  }
  return false;
}

/// Whether the words of a phrase alone say that it is a name, a heading or a part of the document.
bool IsNoTerm(std::u16string_view phrase) {
  const std::vector<std::u16string_view> words = WordsOf(phrase);
  if (words.empty() || !HoldsLower(phrase) || HoldsDigit(phrase)) return true;
  if (IsOneOf(words.back(), kNameEnds) || IsOneOf(words.front(), kNoTerms) || IsInstitution(words)) return true;
  if (std::any_of(words.begin(), words.end(), HoldsInnerCapital)) return true;
  return std::all_of(words.begin(), words.end(),
                     [](std::u16string_view word) { return IsOneOf(word, kNoTerms) || IsSmallWord(word); });
}

class Search {
 public:
  Search(const std::vector<std::u16string>& phrases, const std::vector<std::u16string>& defined,
         os::Characters& characters)
      : characters_(characters), letters_(characters), definedMatcher_(letters_, FormsOf(defined)) {
    std::unordered_set<std::u16string> known(defined.begin(), defined.end());
    for (const std::u16string& phrase : phrases) {
      if (IsNoTerm(phrase) || IsDefined(phrase) || !known.insert(phrase).second) continue;
      phrases_.push_back(phrase);
    }
    uses_.resize(phrases_.size());
    std::vector<marker::Form> forms = FormsOf(phrases_);
    // What a defined term covers is none of its words' use.
    const std::vector<marker::Form> covering = FormsOf(defined);
    forms.insert(forms.end(), covering.begin(), covering.end());
    matcher_.emplace(letters_, std::move(forms));
  }

  void Read(const Text& text) {
    const std::u16string_view plain = text.content.Plain();
    Line line;
    std::optional<LineCapitals> capitals;
    for (const marker::Match& match : matcher_->Find(plain)) {
      if (match.form >= phrases_.size()) continue;
      if (!capitals || match.begin > line.end) {
        line = text.content.LineAt(match.begin);
        capitals.emplace(plain.substr(line.begin, line.end - line.begin), characters_);
      }
      if (IsDefinedWithoutQuotes(plain, line, match)) uses_[match.form].defined = true;
      if (capitals->UseAt(match.begin - line.begin, match.end - line.begin) != CapitalUse::kOfItsOwn) continue;
      const std::u16string_view whole = plain.substr(line.begin, line.end - line.begin);
      if (IsPartOfName(whole, match.begin - line.begin, match.end - line.begin)) continue;
      const std::u16string before = WordBefore(whole.substr(0, match.begin - line.begin));
      // A document that speaks of itself.
      if (before == u"this") continue;
      Uses& uses = uses_[match.form];
      ++uses.count;
      if (IsOneOf(before, kDeterminers)) ++uses.determined;
      if (!uses.first) uses.first = {&text, match.begin, match.end};
    }
  }

  std::vector<Finding> Findings() {
    MergeNumbers();
    std::vector<Finding> findings;
    for (std::size_t i = 0; i < phrases_.size(); ++i) {
      const Uses& uses = uses_[i];
      // Names of people, firms and places stand without an article, terms mostly with one.
      if (uses.defined) continue;
      if (uses.count < kFewestUses || uses.determined < kFewestUses || 2 * uses.determined < uses.count) continue;
      const auto& [text, begin, end] = *uses.first;
      findings.push_back({.kind = Kind::kNotDefined,
                          .term = phrases_[i],
                          .text = phrases_[i],
                          .count = uses.count,
                          .place = PlaceOf(*text, begin, end, characters_)});
    }
    return findings;
  }

 private:
  struct First {
    const Text* text;
    std::size_t begin;
    std::size_t end;
  };
  struct Uses {
    int count{0};
    int determined{0};
    bool defined{false};
    std::optional<First> first{};
  };

  /// Singular and plural are one term, named by what is used more often.
  void MergeNumbers() {
    std::unordered_map<std::u16string_view, std::size_t> byPhrase;
    for (std::size_t i = 0; i < phrases_.size(); ++i) byPhrase.emplace(phrases_[i], i);
    for (std::size_t i = 0; i < phrases_.size(); ++i) {
      const std::u16string number = InOtherNumber(phrases_[i]);
      const auto other = byPhrase.find(number);
      if (other == byPhrase.end()) continue;
      Uses& uses = uses_[other->second];
      uses.defined = uses_[i].defined = uses.defined || uses_[i].defined;
      if (uses.count > uses_[i].count || uses.count == 0) continue;
      uses_[i].count += uses.count;
      uses_[i].determined += uses.determined;
      uses = {};
    }
  }

  static std::vector<marker::Form> FormsOf(const std::vector<std::u16string>& terms) {
    std::vector<marker::Form> forms;
    forms.reserve(terms.size());
    for (const std::u16string& term : terms) forms.push_back({.text = marker::PlainTerm(term), .matchCase = true});
    return forms;
  }

  /// Whether nothing capitalised is left of a phrase but defined terms and names of parts: "Buyer Indemnified Parties"
  /// of "Buyer" and "Indemnified Party".
  bool IsDefined(const std::u16string& phrase) const {
    std::u16string rest = phrase;
    for (const marker::Match& match : definedMatcher_.Find(phrase)) {
      std::fill(rest.begin() + static_cast<std::ptrdiff_t>(match.begin),
                rest.begin() + static_cast<std::ptrdiff_t>(match.entry), u' ');
    }
    const std::vector<std::u16string_view> words = WordsOf(rest);
    return std::all_of(words.begin(), words.end(), [](std::u16string_view word) {
      return word.front() < u'A' || word.front() > u'Z' || IsSmallWord(word) || IsOneOf(word, kNoTerms);
    });
  }

  /// Whether a contract that marks its terms by bold letters alone, by single quotation marks or not at all, defines
  /// one there: Buyer means Acorn; Acorn Limited (the Buyer); ‘Buyer’. Such a term is not looked at any further, since
  /// much else reads so.
  static bool IsDefinedWithoutQuotes(std::u16string_view plain, const Line& line, const marker::Match& match) {
    constexpr std::size_t kLongestLabel = 8;
    // A line can be as long as a document; no word that gives a name is further away.
    constexpr std::size_t kFarthest = 32;
    const std::size_t from = std::max(line.begin, match.begin - std::min(match.begin, kFarthest));
    const std::u16string_view before = plain.substr(from, match.begin - from);
    const std::u16string_view behind = plain.substr(match.end, line.end - match.end);
    const std::size_t single = before.find_last_of(u"\u2018'");
    const bool closes = behind.starts_with(u"\u2019") || behind.starts_with(u"'");
    if (single != std::u16string_view::npos && closes && IsOneOf(before.substr(single + 1), kNaming)) return true;
    const std::size_t bracket = before.rfind(u'(');
    if (bracket != std::u16string_view::npos && behind.starts_with(u")") &&
        IsOneOf(before.substr(bracket + 1), kNaming)) {
      // "Clause 3 (Completion)" names a heading.
      const std::size_t last = before.substr(0, bracket).find_last_not_of(u" \u00A0");
      const char16_t word = last == std::u16string_view::npos ? u'\0' : before[last];
      return word != marker::kBarrier && word != u')' && (word < u'0' || word > u'9');
    }
    if (before.size() > kLongestLabel || before.find_first_of(kLetters) != std::u16string_view::npos) return false;
    if (BeginsWithOneOf(behind, kDefining)) return true;
    // The term fills a cell, or a paragraph, and what it means the next.
    if (behind.find_first_not_of(u" :") != std::u16string_view::npos) return false;
    const std::u16string_view next = plain.substr(std::min(line.end + 1, plain.size()));
    return BeginsWithOneOf(next, kMeaning);
  }

  /// In small letters; empty at the beginning of a line.
  std::u16string WordBefore(std::u16string_view before) const {
    const std::size_t last = before.find_last_not_of(u" \u00A0");
    if (last == std::u16string_view::npos) return {};
    const std::size_t begin = before.find_last_of(u" \u00A0([\u201C\"", last);
    const std::size_t from = begin == std::u16string_view::npos ? 0 : begin + 1;
    return characters_.ToLower(before.substr(from, last + 1 - from));
  }

  /// Whether more of a name stands behind it: "Delaware Corporation", "Economic Growth and Tax Relief Act", "Form 3".
  static bool IsPartOfName(std::u16string_view line, std::size_t begin, std::size_t end) {
    const auto isCapital = [line](std::size_t index) {
      return index < line.size() && line[index] >= u'A' && line[index] <= u'Z';
    };
    if (begin > 1 && line[begin - 1] == u' ' && line[begin - 2] == u'&') return true;
    if (end >= line.size() || line[end] != u' ') return false;
    const bool isNumber = end + 1 < line.size() && line[end + 1] >= u'0' && line[end + 1] <= u'9';
    if (isCapital(end + 1) || isNumber) return true;
    const std::u16string_view behind = line.substr(end + 1);
    constexpr std::u16string_view kOfThe = u"of the ";
    if (behind.starts_with(kOfThe)) {
      const std::u16string_view rest = behind.substr(kOfThe.size());
      if (IsOneOf(rest.substr(0, rest.find_first_not_of(kLetters)), kInstitutions)) return true;
    }
    for (const std::u16string_view joint :
         {std::u16string_view(u"and "), std::u16string_view(u"for "), std::u16string_view(u"of ")}) {
      if (behind.starts_with(joint) && isCapital(end + 1 + joint.size())) return true;
    }
    return false;
  }

  os::Characters& characters_;
  marker::Letters letters_;
  marker::TermMatcher definedMatcher_;
  std::vector<std::u16string> phrases_;
  std::vector<Uses> uses_;
  std::optional<marker::TermMatcher> matcher_;
};

}  // namespace

std::vector<Finding> FindUndefined(const std::vector<Text>& texts, const std::vector<std::u16string>& phrases,
                                   const std::vector<std::u16string>& defined, os::Characters& characters) {
  Search search(phrases, defined, characters);
  for (const Text& text : texts) search.Read(text);
  return search.Findings();
}

}  // namespace drafting
