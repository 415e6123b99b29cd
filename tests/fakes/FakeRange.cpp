#include "tests/fakes/FakeRange.h"

#include "platform/word/Format.h"
#include "platform/word/Range.h"
#include "tests/fakes/FakeFind.h"

#include <algorithm>

namespace fakes {

namespace {

class FakeFont : public word::Font {
 public:
  FakeFont(FakeWord& word, Place place) : word_(word), place_(place) {}
  int Bold() const override {
    int bold = 0;
    for (word::Position i = place_.start; i < place_.end; ++i) {
      for (const auto& [from, to] : word_.stories[place_.story].bold) {
        if (i >= from && i < to) ++bold;
      }
    }
    if (bold == 0) return 0;
    return bold == place_.end - place_.start ? -1 : word::wdUndefined;
  }
  void SetBold(int value) override { word_.log.Add("Font.Bold = " + std::to_string(value)); }
  int Hidden() const override { return 0; }
  int Color() const override { return word::wdColorAutomatic; }
  void SetColor(int value) override { word_.log.Add("Font.Color = " + std::to_string(value)); }

 private:
  FakeWord& word_;
  Place place_;
};

/// One paragraph format for the whole document.
class FakeParagraphFormat : public word::ParagraphFormat {
 public:
  explicit FakeParagraphFormat(FakeWord& word) : word_(word) {}
  int Alignment() const override { return word_.alignment; }
  void SetAlignment(int value) override {
    word_.log.Add("ParagraphFormat.Alignment = " + std::to_string(value));
    word_.alignment = value;
  }
  double SpaceBefore() const override { return 0; }
  void SetSpaceBefore(double points) override { Space("SpaceBefore", points); }
  double SpaceAfter() const override { return 0; }
  void SetSpaceAfter(double points) override { Space("SpaceAfter", points); }

 private:
  void Space(const std::string& member, double points) {
    word_.log.Add("ParagraphFormat." + member + " = " + std::to_string(static_cast<int>(points)));
  }
  FakeWord& word_;
};

class FakeCharactersOfRange : public word::Characters {
 public:
  FakeCharactersOfRange(FakeWord& word, Place place) : word_(word), place_(place) {}
  word::RangePtr First() const override { return word_.MakeRange({place_.story, place_.start, place_.start + 1}); }
  word::RangePtr Last() const override {
    const word::Position start = std::max(place_.start, place_.end - 1);
    return word_.MakeRange({place_.story, start, start + 1});
  }

 private:
  FakeWord& word_;
  Place place_;
};

class FakeRange : public word::Range {
 public:
  FakeRange(FakeWord& word, Place place) : word_(word), place_(std::make_shared<Place>(place)) {}
  const Place& Where() const { return *place_; }

  word::Position Start() const override { return place_->start; }
  word::Position End() const override { return place_->end; }
  void SetStart(word::Position value) override {
    place_->start = value;
    place_->end = std::max(place_->end, value);
  }
  void SetEnd(word::Position value) override {
    place_->end = value;
    place_->start = std::min(place_->start, value);
  }
  void SetRange(word::Position start, word::Position end) override {
    place_->start = start;
    place_->end = end;
  }
  std::u16string Text() const override {
    return word_.stories[place_->story].text.substr(static_cast<std::size_t>(place_->start),
                                                    static_cast<std::size_t>(place_->end - place_->start));
  }
  void SetText(std::u16string_view value) override {
    word_.log.Add("Range.Text = " + Plain(value));
    if (place_->start != place_->end) NotHere();
    std::u16string text;
    for (const char16_t unit : value) {
      if (unit != u'\n') text += unit;
    }
    place_->end = word_.Insert(*place_, text);
  }
  word::TextRetrievalModePtr TextRetrievalMode() const override { NotHere(); }
  word::WdStoryType StoryType() const override {
    return static_cast<word::WdStoryType>(word_.stories[place_->story].type);
  }
  int Information(word::WdInformation type) const override {
    const std::vector<word::Position>& starts = word_.stories[place_->story].pages;
    if (type == word::wdNumberOfPagesInDocument) return static_cast<int>(word_.stories[0].pages.size()) + 1;
    return static_cast<int>(std::upper_bound(starts.begin(), starts.end(), place_->end) - starts.begin()) + 1;
  }
  word::Position StoryLength() const override {
    return static_cast<word::Position>(word_.stories[place_->story].text.size());
  }
  word::RangePtr NextStoryRange() const override { return nullptr; }
  word::RangePtr Duplicate() const override { return word_.MakeRange(*place_); }
  void Collapse(word::WdCollapseDirection direction) override {
    (direction == word::wdCollapseStart ? place_->end : place_->start) =
        direction == word::wdCollapseStart ? place_->start : place_->end;
  }
  int MoveStart(word::WdUnits unit, int count) override {
    if (unit != word::wdParagraph || count >= 0) NotHere();
    const std::u16string& text = word_.stories[place_->story].text;
    int moved = 0;
    for (; moved > count && place_->start > 0; --moved) {
      --place_->start;
      while (place_->start > 0 && text[static_cast<std::size_t>(place_->start) - 1] != u'\r') --place_->start;
    }
    return moved;
  }
  void Select() override {
    word_.log.Add("Range.Select " + Show(word_, *place_));
    word_.selection = *place_;
  }
  void InsertParagraphBefore() override {
    word_.log.Add("Range.InsertParagraphBefore " + Show(word_, *place_));
    word_.Insert({place_->story, place_->start, place_->start}, u"\r");
    ++place_->end;
  }
  void Delete() override { NotHere(); }
  word::FindPtr Find() const override { return MakeFakeFind(word_, place_); }
  word::CharactersPtr Characters() const override { return std::make_shared<FakeCharactersOfRange>(word_, *place_); }
  word::FieldsPtr Fields() const override { NotHere(); }
  word::RevisionsPtr Revisions() const override { NotHere(); }
  word::FontPtr Font() const override { return std::make_shared<FakeFont>(word_, *place_); }
  word::ParagraphFormatPtr ParagraphFormat() const override { return std::make_shared<FakeParagraphFormat>(word_); }
  int HighlightColorIndex() const override { NotHere(); }
  void SetHighlightColorIndex(int value) override {
    word_.log.Add("Range.HighlightColorIndex = " + std::to_string(value));
  }

 private:
  FakeWord& word_;
  std::shared_ptr<Place> place_;
};

}  // namespace

word::RangePtr MakeFakeRange(FakeWord& word, Place place) { return std::make_shared<FakeRange>(word, place); }

Place PlaceOf(const word::Range& range) { return dynamic_cast<const FakeRange&>(range).Where(); }

std::string Show(const FakeWord& word, const Place& place) {
  return std::to_string(word.stories[place.story].type) + ":" + std::to_string(place.start) + "-" +
         std::to_string(place.end);
}

}  // namespace fakes
