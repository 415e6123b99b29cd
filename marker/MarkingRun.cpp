#include "marker/MarkingRun.h"

#include "marker/Entries.h"
#include "marker/PlainText.h"
#include "platform/word/Constants.h"
#include "platform/word/Fields.h"
#include "platform/word/Range.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace marker {

MarkingRun::MarkingRun(const Letters& letters, const word::DocumentPtr& document, EntryWriting writing)
    : letters_(letters), document_(document), writing_(writing), record_(document) {}

void MarkingRun::Choose(const std::vector<std::u16string>& chosen, bool matchCase) {
  WriteEntries();
  chosen_ = chosen;
  matchCase_ = matchCase;
  forms_.clear();
}

void MarkingRun::AddForm(std::u16string_view text, std::u16string_view entryText, bool matchCase) {
  FormKey key{text, entryText};
  if (formNumbers_.contains(key)) return;
  WriteEntries();
  formsOf_[PlainTerm(entryText.empty() ? text : entryText)].push_back(forms_.size());
  formNumbers_.emplace(std::move(key), forms_.size());
  forms_.push_back({PlainTerm(text), matchCase});
  matcher_.reset();
  stories_.clear();
}

// The terms themselves come before the upper-case forms: where two match, the term wins.
void MarkingRun::SettleForms(const Request& request) {
  const bool isTerm = request.entryText.empty();
  const bool settled = !forms_.empty() && allCaps_ == request.allCaps && (!isTerm || matchCase_ == request.matchCase);
  if (settled) return;
  WriteEntries();
  forms_.clear();
  formNumbers_.clear();
  formsOf_.clear();
  allCaps_ = request.allCaps;
  if (isTerm) matchCase_ = request.matchCase;
  for (const std::u16string& term : chosen_) AddForm(term, {}, matchCase_);
  if (!allCaps_) return;
  for (const std::u16string& term : chosen_) {
    const std::u16string upper = letters_.ToUpper(term);
    if (upper != term) AddForm(upper, term, true);
  }
}

std::size_t MarkingRun::FormOf(const Request& request) {
  SettleForms(request);
  AddForm(request.text, request.entryText, request.matchCase);
  return formNumbers_.at({std::u16string(request.text), std::u16string(request.entryText)});
}

StoryMarks& MarkingRun::MarksOf(const word::RangePtr& story, int storyType) {
  if (!matcher_) matcher_.emplace(letters_, forms_);
  const auto found = stories_.find(storyType);
  if (found != stories_.end()) return found->second;
  return stories_.try_emplace(storyType, document_, story, *matcher_, forms_.size()).first->second;
}

StoryMarks& MarkingRun::PresentMarksOf(const word::RangePtr& story, int storyType) {
  const auto found = stories_.find(storyType);
  if (found != stories_.end() && !found->second.Settle(story->End())) stories_.erase(found);
  return MarksOf(story, storyType);
}

void MarkingRun::LayHighlight(const word::RangePtr& range, const StoryMarks::Occurrence& occurrence) {
  record_.NoteLaidOn();
  // Once the occurrence is edited, nothing else tells our yellow from the author's that it touches.
  for (const Stretch& stretch : occurrence.before) {
    range->SetRange(stretch.begin, stretch.end);
    record_.Keep(range, word::wdYellow);
  }
  for (const Stretch& stretch : occurrence.stretches) {
    if (occurrence.highlighted) {
      ForEachColour(range, stretch, [&](Stretch /*part*/, int colour) {
        if (colour != word::wdNoHighlight) record_.Keep(range, colour);
      });
    }
    range->SetRange(stretch.begin, stretch.end);
    range->SetHighlightColorIndex(word::wdYellow);
  }
}

std::int32_t MarkingRun::Mark(const word::RangePtr& story, int storyType, const Request& request) {
  if (storyType != storyType_) WriteEntries();
  const std::size_t form = FormOf(request);
  if (MarksOf(story, storyType).Of(form).empty()) return 0;
  StoryMarks& marks = PresentMarksOf(story, storyType);
  const std::vector<std::size_t>& numbers = marks.Of(form);
  const auto marked = request.definitionsOnly
                          ? std::count_if(numbers.begin(), numbers.end(),
                                          [&](std::size_t number) { return marks.IsDefinition(number); })
                          : std::ssize(numbers);
  if (marked == 0) return 0;

  const std::u16string entryText = EntryText(request.entryText.empty() ? request.text : request.entryText);
  const std::u16string code = EntryCode(entryText, false);
  wanted_.push_back({.form = form,
                     .code = code,
                     .definitionCode = request.definitionsOnly ? code : EntryCode(entryText, true),
                     .definitionsOnly = request.definitionsOnly});
  if (storyType != storyType_) {
    story_ = story;
    place_ = story->Duplicate();
    fields_ = story->Fields();
    storyType_ = storyType;
  }
  if (writing_ == EntryWriting::kByTerm) Write(marks);
  return static_cast<std::int32_t>(marked);
}

void MarkingRun::WriteEntries() {
  if (!wanted_.empty()) Write(PresentMarksOf(story_, storyType_));
}

void MarkingRun::Write(StoryMarks& marks) {
  // What fails is not tried again.
  const std::vector<Wanted> wanted = std::exchange(wanted_, {});
  std::vector<std::pair<std::size_t, const Wanted*>> fromTheLast;
  for (const Wanted& one : wanted) {
    for (const std::size_t number : marks.Of(one.form)) {
      if (!one.definitionsOnly || marks.IsDefinition(number)) fromTheLast.emplace_back(number, &one);
    }
  }
  std::sort(fromTheLast.begin(), fromTheLast.end(), std::greater<>());
  for (const auto& [number, one] : fromTheLast) {
    const StoryMarks::Occurrence occurrence = marks.At(number);
    const std::u16string& code = occurrence.definition ? one->definitionCode : one->code;
    // The entry takes the formatting of the text before it: written first, it stays without our highlight.
    place_->SetRange(occurrence.entry, occurrence.entry);
    fields_->Add(place_, {.Type = word::wdFieldEmpty, .Text = code, .PreserveFormatting = false});
    marks.EntryWritten(number, code.size());
    LayHighlight(place_, occurrence);
  }
}

std::optional<std::int32_t> MarkingRun::Found(std::u16string_view term) const {
  const auto forms = formsOf_.find(PlainTerm(term));
  if (forms == formsOf_.end()) return std::nullopt;
  std::int32_t found = 0;
  for (const std::size_t form : forms->second) {
    for (const auto& [storyType, marks] : stories_) found += static_cast<std::int32_t>(marks.Of(form).size());
  }
  return found;
}

}  // namespace marker
