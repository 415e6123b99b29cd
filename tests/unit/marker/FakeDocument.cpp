#include "FakeDocument.h"

#include "platform/word/HostError.h"

#include <algorithm>
#include <stdexcept>

namespace fake {
namespace {

using StatePtr = std::shared_ptr<State>;

[[noreturn]] void Unused(const char* member) { throw std::logic_error(std::string("not faked: ") + member); }

struct FieldPlace {
  word::Position begin;
  word::Position separator;  ///< the end mark's when there is none
  word::Position end;
};

std::vector<FieldPlace> FieldsIn(const Story& story) {
  std::vector<FieldPlace> fields;
  std::vector<FieldPlace> open;
  for (word::Position at = 0; at < story.End(); ++at) {
    const char16_t unit = story.characters[static_cast<std::size_t>(at)].unit;
    if (unit == word::kFieldBegin) open.push_back({at, -1, -1});
    if (unit == word::kFieldSeparator) open.back().separator = at;
    if (unit == word::kFieldEnd) {
      open.back().end = at;
      if (open.back().separator < 0) open.back().separator = at;
      fields.push_back(open.back());
      open.pop_back();
    }
  }
  std::sort(fields.begin(), fields.end(),
            [](const FieldPlace& left, const FieldPlace& right) { return left.begin < right.begin; });
  return fields;
}

int Uniform(const Story& story, Span span, int (*value)(const Character&)) {
  if (span.begin >= span.end) return 0;
  const auto first = story.characters.begin() + span.begin;
  const auto last = story.characters.begin() + span.end;
  const int expected = value(*first);
  const bool same = std::all_of(first, last, [&](const Character& one) { return value(one) == expected; });
  return same ? expected : word::wdUndefined;
}

class Mode : public word::TextRetrievalMode {
 public:
  bool IncludeFieldCodes() const override { return codes_; }
  void SetIncludeFieldCodes(bool value) override { codes_ = value; }
  bool IncludeHiddenText() const override { return hidden_; }
  void SetIncludeHiddenText(bool value) override { hidden_ = value; }

 private:
  bool codes_{false};
  bool hidden_{false};
};

}  // namespace

/// A live range.
class StoryRange : public word::Range {
 public:
  StoryRange(StatePtr state, Story& story, Span covered, bool whole)
      : span(covered), isWhole(whole), state_(std::move(state)), story_(story) {
    story_.ranges.insert(this);
  }
  ~StoryRange() override { story_.ranges.erase(this); }

  Story& In() const { return story_; }

  word::Position Start() const override { return Counted("Start", span.begin); }
  word::Position End() const override { return Counted("End", span.end); }
  void SetStart(word::Position value) override { span = {value, std::max(value, span.end)}; }
  void SetEnd(word::Position value) override { span = {std::min(value, span.begin), value}; }
  void SetRange(word::Position start, word::Position end) override {
    Count("SetRange");
    span = {start, end};
    isWhole = false;
  }
  std::u16string Text() const override {
    Count("Text");
    std::u16string text;
    int depth = 0;
    bool inCode = false;
    for (word::Position at = span.begin; at < span.end; ++at) {
      const Character& one = story_.characters[static_cast<std::size_t>(at)];
      if (one.unit == kMute) continue;
      if (one.hidden && !mode_->IncludeHiddenText()) continue;
      if (!mode_->IncludeFieldCodes()) {
        if (one.unit == word::kFieldBegin) inCode = ++depth > 0;
        if (one.unit == word::kFieldSeparator) inCode = false;
        if (one.unit == word::kFieldEnd) inCode = --depth > 0;
        if (inCode || (one.unit >= word::kFieldBegin && one.unit <= word::kFieldEnd)) continue;
      }
      if (one.unit == word::kCellMark) text.push_back(word::kParagraphMark);
      text.push_back(one.unit);
    }
    return text;
  }
  void SetText(std::u16string_view value) override {
    const word::Position at = span.begin;
    state_->Delete(story_, span.begin, span.end);
    state_->Insert(story_, at, value);
    span = {at, at + static_cast<word::Position>(value.size())};
  }
  word::TextRetrievalModePtr TextRetrievalMode() const override { return mode_; }
  word::WdStoryType StoryType() const override { return story_.type; }
  int Information(word::WdInformation) const override { Unused("Information"); }
  word::Position StoryLength() const override { return story_.End(); }
  word::RangePtr NextStoryRange() const override { return {}; }
  word::RangePtr Duplicate() const override {
    Count("Duplicate");
    return std::make_shared<StoryRange>(state_, story_, span, false);
  }
  void Collapse(word::WdCollapseDirection direction) override {
    if (direction == word::wdCollapseStart) {
      span.end = span.begin;
    } else {
      span.begin = span.end;
    }
  }
  int MoveStart(word::WdUnits, int) override { Unused("MoveStart"); }
  void Select() override { state_->selection = span; }
  void InsertParagraphBefore() override { Unused("InsertParagraphBefore"); }
  void Delete() override {
    state_->Delete(story_, span.begin, span.end);
    span.end = span.begin;
  }
  word::FindPtr Find() const override { Unused("Find"); }
  word::CharactersPtr Characters() const override { Unused("Characters"); }
  word::FieldsPtr Fields() const override;
  word::RevisionsPtr Revisions() const override;
  word::FontPtr Font() const override;
  word::ParagraphFormatPtr ParagraphFormat() const override { Unused("ParagraphFormat"); }
  int HighlightColorIndex() const override {
    Count("HighlightColorIndex");
    return Uniform(story_, span, [](const Character& one) { return one.highlight; });
  }
  void SetHighlightColorIndex(int value) override {
    Count("SetHighlightColorIndex");
    for (word::Position at = span.begin; at < span.end; ++at) {
      story_.characters[static_cast<std::size_t>(at)].highlight = value;
    }
  }

  Span span;
  bool isWhole;

 private:
  void Count(const char* member) const { ++state_->calls[member]; }
  template <typename Value>
  Value Counted(const char* member, Value value) const {
    Count(member);
    return value;
  }

  StatePtr state_;
  Story& story_;
  std::shared_ptr<Mode> mode_ = std::make_shared<Mode>();
};

namespace {

class HiddenFont : public word::Font {
 public:
  HiddenFont(StatePtr state, Story& story, Span span) : state_(std::move(state)), story_(story), span_(span) {}
  int Bold() const override { Unused("Bold"); }
  void SetBold(int) override { Unused("SetBold"); }
  int Hidden() const override {
    ++state_->calls["Hidden"];
    return Uniform(story_, span_, [](const Character& one) { return one.hidden ? -1 : 0; });
  }
  int Color() const override { Unused("Color"); }
  void SetColor(int) override { Unused("SetColor"); }

 private:
  StatePtr state_;
  Story& story_;
  Span span_;
};

class Deletion : public word::Revision {
 public:
  Deletion(StatePtr state, Story& story, Span span) : state_(std::move(state)), story_(story), span_(span) {}
  int Type() const override { return word::wdRevisionDelete; }
  word::RangePtr Range() const override { return std::make_shared<StoryRange>(state_, story_, span_, false); }

 private:
  StatePtr state_;
  Story& story_;
  Span span_;
};

class Deletions : public word::Revisions {
 public:
  Deletions(StatePtr state, Story& story) : state_(std::move(state)), story_(story) {
    for (word::Position at = 0; at < story.End(); ++at) {
      if (!story.characters[static_cast<std::size_t>(at)].deleted) continue;
      if (!spans_.empty() && spans_.back().end == at) {
        ++spans_.back().end;
      } else {
        spans_.push_back({at, at + 1});
      }
    }
  }
  int Count() const override { return static_cast<int>(spans_.size()); }
  word::RevisionPtr Item(int index) const override {
    return std::make_shared<Deletion>(state_, story_, spans_.at(static_cast<std::size_t>(index - 1)));
  }

 private:
  StatePtr state_;
  Story& story_;
  std::vector<Span> spans_;
};

class PlacedField : public word::Field {
 public:
  PlacedField(StatePtr state, Story& story, FieldPlace place)
      : state_(std::move(state)), story_(story), place_(place) {}
  int Type() const override {
    const std::u16string code = Code()->Text();
    if (code.find(u" INDEX ") == 0) return word::wdFieldIndex;
    return code.find(u" XE ") == 0 ? word::wdFieldIndexEntry : word::wdFieldEmpty;
  }
  word::RangePtr Code() const override { return Between(place_.begin + 1, place_.separator); }
  word::RangePtr Result() const override {
    if (place_.separator == place_.end) return {};
    return Between(place_.separator + 1, place_.end);
  }
  bool Update() override {
    ++state_->calls["Update"];
    return true;
  }
  void Delete() override { state_->Delete(story_, place_.begin, place_.end + 1); }

 private:
  word::RangePtr Between(word::Position begin, word::Position end) const {
    return std::make_shared<StoryRange>(state_, story_, Span{begin, end}, false);
  }

  StatePtr state_;
  Story& story_;
  FieldPlace place_;
};

class StoryFields : public word::Fields {
 public:
  StoryFields(StatePtr state, Story& story, Span span) : state_(std::move(state)), story_(story), span_(span) {}
  int Count() const override { return static_cast<int>(Inside().size()); }
  word::FieldPtr Item(int index) const override {
    ++state_->calls["Fields.Item"];
    return std::make_shared<PlacedField>(state_, story_, Inside().at(static_cast<std::size_t>(index - 1)));
  }
  word::FieldPtr Add(const word::RangePtr& range, const word::FieldArguments& arguments) override {
    ++state_->calls["Fields.Add"];
    const Span given = dynamic_cast<const StoryRange&>(*range).span;
    const word::Position at = given.begin;
    const int highlight = at > 0 ? story_.characters[static_cast<std::size_t>(at - 1)].highlight : 0;
    const bool isIndex = arguments.Text.starts_with(u"INDEX");
    const std::u16string text = u"\u0013 " + arguments.Text + u" " + (isIndex ? u"\u0014No entries" : u"") + u"\u0015";
    state_->Delete(story_, at, given.end);
    state_->Insert(story_, at, text);
    for (std::size_t index = 0; index < text.size(); ++index) {
      story_.characters[static_cast<std::size_t>(at) + index].highlight = highlight;
    }
    for (const FieldPlace& place : FieldsIn(story_)) {
      if (place.begin == at) return std::make_shared<PlacedField>(state_, story_, place);
    }
    Unused("a field that is none");
  }

 private:
  std::vector<FieldPlace> Inside() const {
    std::vector<FieldPlace> fields = FieldsIn(story_);
    std::erase_if(fields,
                  [&](const FieldPlace& field) { return field.begin < span_.begin || field.begin >= span_.end; });
    return fields;
  }

  StatePtr state_;
  Story& story_;
  Span span_;
};

class PlacedBookmark : public word::Bookmark {
 public:
  PlacedBookmark(StatePtr state, std::u16string name) : state_(std::move(state)), name_(std::move(name)) {}
  std::u16string Name() const override { return name_; }
  word::RangePtr Range() const override {
    const BookmarkPlace& place = state_->bookmarks.at(name_);
    return std::make_shared<StoryRange>(state_, *place.story, place.span, false);
  }
  void Select() override { state_->selection = state_->bookmarks.at(name_).span; }
  void Delete() override { state_->bookmarks.erase(name_); }

 private:
  StatePtr state_;
  std::u16string name_;
};

class AllBookmarks : public word::Bookmarks {
 public:
  explicit AllBookmarks(StatePtr state) : state_(std::move(state)) {}
  int Count() const override { return static_cast<int>(Shown().size()); }
  bool Exists(std::u16string_view name) const override { return state_->bookmarks.contains(std::u16string(name)); }
  word::BookmarkPtr Item(std::u16string_view name) const override {
    ++state_->calls["Bookmarks.Item"];
    if (!Exists(name)) throw word::HostError(word::kMemberDoesNotExist, u"No such bookmark.", "Bookmarks.Item");
    return std::make_shared<PlacedBookmark>(state_, std::u16string(name));
  }
  word::BookmarkPtr Item(int index) const override { return Item(Shown().at(static_cast<std::size_t>(index - 1))); }
  word::BookmarkPtr Add(std::u16string_view name, const word::RangePtr& range) override {
    ++state_->calls["Bookmarks.Add"];
    const auto& place = dynamic_cast<const StoryRange&>(*range);
    state_->bookmarks[std::u16string(name)] = {&place.In(), place.span};
    return std::make_shared<PlacedBookmark>(state_, std::u16string(name));
  }
  bool ShowHidden() const override { return state_->showHidden; }
  void SetShowHidden(bool value) override { state_->showHidden = value; }

 private:
  std::vector<std::u16string> Shown() const {
    std::vector<std::u16string> names;
    for (const auto& [name, place] : state_->bookmarks) {
      if (state_->showHidden || name.front() != u'_') names.push_back(name);
    }
    return names;
  }

  StatePtr state_;
};

class AllStories : public word::StoryRanges {
 public:
  explicit AllStories(StatePtr state) : state_(std::move(state)) {}
  int Count() const override { return static_cast<int>(state_->stories.size()); }
  word::RangePtr Item(int index) const override {
    Story& story = std::next(state_->stories.begin(), index - 1)->second;
    return std::make_shared<StoryRange>(state_, story, Span{0, story.End()}, true);
  }

 private:
  StatePtr state_;
};

}  // namespace

word::FieldsPtr StoryRange::Fields() const { return std::make_shared<StoryFields>(state_, story_, span); }
word::RevisionsPtr StoryRange::Revisions() const { return std::make_shared<Deletions>(state_, story_); }
word::FontPtr StoryRange::Font() const { return std::make_shared<HiddenFont>(state_, story_, span); }

std::u16string Story::Text() const {
  std::u16string text;
  for (const Character& one : characters) text.push_back(one.unit);
  return text;
}

void State::Insert(Story& story, word::Position at, std::u16string_view text) {
  const auto length = static_cast<word::Position>(text.size());
  std::vector<Character> added;
  for (const char16_t unit : text) added.push_back({.unit = unit});
  story.characters.insert(story.characters.begin() + at, added.begin(), added.end());
  for (StoryRange* range : story.ranges) {
    Span& span = range->span;
    if (range->isWhole) {
      span.end += length;
    } else if (span.begin != span.end || span.begin > at) {
      if (span.begin >= at) span.begin += length;
      if (span.end > at) span.end += length;
    }
  }
  for (auto& [name, place] : bookmarks) {
    if (place.story != &story) continue;
    const bool inside = place.span.end > at || (place.span.begin == at && place.span.end == at);
    if (inside) place.span.end += length;
    if (place.span.begin > at) place.span.begin += length;
  }
}

void State::Delete(Story& story, word::Position begin, word::Position end) {
  story.characters.erase(story.characters.begin() + begin, story.characters.begin() + end);
  const auto moved = [&](word::Position at) { return at >= end ? at - (end - begin) : std::min(at, begin); };
  for (StoryRange* range : story.ranges) range->span = {moved(range->span.begin), moved(range->span.end)};
  for (auto at = bookmarks.begin(); at != bookmarks.end();) {
    BookmarkPlace& place = at->second;
    if (place.story != &story || begin == end) {
      ++at;
      continue;
    }
    const bool gone = place.span.begin >= begin && place.span.end <= end && place.span.begin < place.span.end;
    place.span = {moved(place.span.begin), moved(place.span.end)};
    at = gone ? bookmarks.erase(at) : std::next(at);
  }
}

Document::Document(std::u16string_view main) : state_(std::make_shared<State>()) {
  AddStory(word::wdMainTextStory, main);
}

void Document::AddStory(word::WdStoryType type, std::u16string_view text) {
  fake::Story& story = state_->stories[type];
  story.type = type;
  for (const char16_t unit : text) story.characters.push_back({.unit = unit});
  story.characters.push_back({.unit = word::kParagraphMark});
}

std::u16string Document::Text(word::WdStoryType type) const { return state_->stories.at(type).Text(); }

std::string Document::Highlights(word::WdStoryType type) const {
  std::string figures;
  for (const Character& one : state_->stories.at(type).characters) figures += std::to_string(one.highlight);
  return figures;
}

std::vector<std::u16string> Document::BookmarkNames() const {
  std::vector<std::u16string> names;
  for (const auto& [name, place] : state_->bookmarks) names.push_back(name);
  return names;
}

int Document::Calls(const std::string& member) const {
  const auto found = state_->calls.find(member);
  return found == state_->calls.end() ? 0 : found->second;
}

int Document::AllCalls() const {
  int sum = 0;
  for (const auto& [member, count] : state_->calls) sum += count;
  return sum;
}

void Document::SetBookmark(std::u16string_view name, word::Position begin, word::Position end) {
  state_->bookmarks[std::u16string(name)] = {&state_->stories.at(word::wdMainTextStory), {begin, end}};
}

void Document::Format(std::u16string_view where, void (*change)(Character&)) {
  for (auto& [type, story] : state_->stories) {
    const std::size_t at = story.Text().find(where);
    if (at == std::u16string::npos) continue;
    for (std::size_t index = at; index < at + where.size(); ++index) change(story.characters[index]);
    return;
  }
  throw std::logic_error("no such text to format");
}

void Document::InsertAt(word::Position at, std::u16string_view text) {
  state_->Insert(state_->stories.at(word::wdMainTextStory), at, text);
}

word::RangePtr Document::Story(word::WdStoryType type) const {
  fake::Story& story = state_->stories.at(type);
  return std::make_shared<StoryRange>(state_, story, Span{0, story.End()}, true);
}

word::StoryRangesPtr Document::StoryRanges() const { return std::make_shared<AllStories>(state_); }
word::BookmarksPtr Document::Bookmarks() const { return std::make_shared<AllBookmarks>(state_); }
word::FieldsPtr Document::Fields() const { return Story()->Fields(); }
word::WindowPtr Document::ActiveWindow() const { Unused("ActiveWindow"); }

word::RangePtr Document::Range(word::Position start, word::Position end) const {
  fake::Story& story = state_->stories.at(word::wdMainTextStory);
  return std::make_shared<StoryRange>(state_, story, Span{start, end}, false);
}

}  // namespace fake
