#include "apps/kelvarin/TermPlaces.h"

#include <optional>
#include <unordered_map>

#include "discovery/LineCapitals.h"
#include "discovery/LineText.h"
#include "drafting/Excerpt.h"
#include "hosts/unattended/Text.h"
#include "marker/PlainText.h"
#include "marker/StoryText.h"
#include "marker/TermMatcher.h"
#include "platform/word/Document.h"
#include "platform/word/Range.h"

namespace {

using Json = json::Value;
using unattended::ToUtf8;

struct Place {
  int story{0};
  word::Position position{0};
  std::string sentence;
};

/// What is known of one term.
struct Findings {
  std::optional<Place> first;
  int occurrences{0};
  int ofItsOwn{0};
  int sentenceStarts{0};
};

/// Finds terms in stories, one after another.
class Places {
 public:
  Places(os::Characters& characters, const std::vector<std::u16string>& terms)
      : characters_(characters), letters_(characters), findings_(terms.size()), matcher_(letters_, FormsOf(terms)) {}

  void ReadAll(const word::DocumentPtr& document) {
    const word::StoryRangesPtr stories = document->StoryRanges();
    for (int i = 1; i <= stories->Count(); ++i) {
      const word::RangePtr story = stories->Item(i);
      if (story->StoryType() <= word::wdEndnotesStory) Read(document, story);
    }
  }

  const std::vector<Findings>& All() const { return findings_; }

 private:
  void Read(const word::DocumentPtr& document, const word::RangePtr& story) {
    const marker::StoryText content(document, story, marker::StoryText::Hidden::kLeftOut,
                                    marker::StoryText::Results::kKept);
    const std::u16string_view plain = content.Plain();
    std::size_t line = 0;
    std::size_t end = LineEnd(plain, line);
    std::optional<LineCapitals> capitals;
    for (const marker::Match& match : matcher_.Find(plain)) {
      while (end < match.begin) {
        line = end + 1;
        end = LineEnd(plain, line);
        capitals.reset();
      }
      const std::u16string_view text = plain.substr(line, end - line);
      if (!capitals) capitals.emplace(text, characters_);
      Findings& findings = findings_[match.form];
      ++findings.occurrences;
      const CapitalUse use = capitals->UseAt(match.begin - line, match.end - line);
      if (use == CapitalUse::kOfItsOwn) ++findings.ofItsOwn;
      if (use == CapitalUse::kSentenceStart) ++findings.sentenceStarts;
      if (findings.first) continue;
      findings.first = {story->StoryType(), content.PositionOf(match.begin),
                        ToUtf8(drafting::ExcerptOf(text, *capitals, match.begin - line, match.end - line).sentence)};
    }
  }

  static std::vector<marker::Form> FormsOf(const std::vector<std::u16string>& terms) {
    std::vector<marker::Form> forms;
    forms.reserve(terms.size());
    for (const std::u16string& term : terms) forms.push_back({.text = marker::PlainTerm(term), .matchCase = true});
    return forms;
  }

  os::Characters& characters_;
  marker::Letters letters_;
  std::vector<Findings> findings_;
  marker::TermMatcher matcher_;
};

/// A term that stands inside of longer ones only has no occurrences, and yet a place.
void FindHidden(os::Characters& characters, const word::DocumentPtr& document, const std::vector<std::u16string>& terms,
                std::vector<Findings>& findings) {
  std::vector<std::u16string> hidden;
  std::vector<std::size_t> numbers;
  for (std::size_t i = 0; i < terms.size(); ++i) {
    if (findings[i].occurrences > 0) continue;
    hidden.push_back(terms[i]);
    numbers.push_back(i);
  }
  if (hidden.empty()) return;
  Places places(characters, hidden);
  places.ReadAll(document);
  for (std::size_t i = 0; i < hidden.size(); ++i) {
    findings[numbers[i]] = places.All()[i];
    findings[numbers[i]].occurrences = 0;
  }
}

/// The terms with what is known of each.
class Judgement {
 public:
  Judgement(const std::vector<std::u16string>& terms, const std::vector<Findings>& findings) {
    for (std::size_t i = 0; i < terms.size(); ++i) byTerm_.emplace(terms[i], &findings[i]);
  }

  Json Only(std::u16string_view term, const Findings& findings) const {
    if (!findings.first || findings.ofItsOwn > 0) return nullptr;
    if (findings.sentenceStarts == 0) return "heading";
    // The first word begins sentences; it says nothing only where the others do without it.
    const std::size_t blank = term.find(u' ');
    if (blank == std::u16string_view::npos) return "sentenceStart";
    const std::u16string rest(term.substr(blank + 1));
    if (!HoldsCapitalised(rest)) return "sentenceStart";
    const auto known = byTerm_.find(rest);
    return known != byTerm_.end() && known->second->ofItsOwn > 0 ? Json("sentenceStart") : Json(nullptr);
  }

 private:
  static bool HoldsCapitalised(std::u16string_view words) {
    for (std::size_t i = 0; i < words.size(); ++i) {
      if (words[i] >= u'A' && words[i] <= u'Z' && (i == 0 || words[i - 1] == u' ')) return true;
    }
    return false;
  }

  std::unordered_map<std::u16string, const Findings*> byTerm_;
};

}  // namespace

Json DescribeTerms(docx::WordProcessor& processor, os::Characters& characters,
                   const std::vector<std::u16string>& terms) {
  Places places(characters, terms);
  const word::DocumentPtr document = processor.Application()->ActiveDocument();
  places.ReadAll(document);
  std::vector<Findings> all = places.All();
  FindHidden(characters, document, terms, all);
  const Judgement judgement(terms, all);
  Json list = Json::array();
  for (std::size_t i = 0; i < terms.size(); ++i) {
    const Findings& findings = all[i];
    Json item = {{"term", ToUtf8(terms[i])}};
    const bool stands = findings.first.has_value();
    item["story"] = stands ? Json(findings.first->story) : Json(nullptr);
    item["position"] = stands ? Json(findings.first->position) : Json(nullptr);
    item["page"] = stands ? Json(processor.PageOf(findings.first->story, findings.first->position)) : Json(nullptr);
    item["occurrences"] = findings.occurrences;
    item["sentence"] = stands ? Json(findings.first->sentence) : Json(nullptr);
    item["only"] = judgement.Only(terms[i], findings);
    list.push_back(std::move(item));
  }
  return list;
}
