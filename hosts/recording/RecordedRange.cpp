#include "hosts/recording/Recorded.h"
#include "platform/word/Range.h"

namespace recording {

namespace {

class RecordedCharacters : public Recorded<word::Characters> {
 public:
  using Recorded::Recorded;
  word::RangePtr First() const override { return Wrap(On("Characters.First").First(), Observer()); }
  word::RangePtr Last() const override { return Wrap(On("Characters.Last").Last(), Observer()); }
};

class RecordedTextRetrievalMode : public Recorded<word::TextRetrievalMode> {
 public:
  using Recorded::Recorded;
  bool IncludeFieldCodes() const override { return On("TextRetrievalMode.IncludeFieldCodes").IncludeFieldCodes(); }
  void SetIncludeFieldCodes(bool value) override {
    Put("TextRetrievalMode.IncludeFieldCodes", value).SetIncludeFieldCodes(value);
  }
  bool IncludeHiddenText() const override { return On("TextRetrievalMode.IncludeHiddenText").IncludeHiddenText(); }
  void SetIncludeHiddenText(bool value) override {
    Put("TextRetrievalMode.IncludeHiddenText", value).SetIncludeHiddenText(value);
  }
};

class RecordedRevision : public Recorded<word::Revision> {
 public:
  using Recorded::Recorded;
  int Type() const override { return On("Revision.Type").Type(); }
  word::RangePtr Range() const override { return Wrap(On("Revision.Range").Range(), Observer()); }
};

class RecordedRevisions : public Recorded<word::Revisions> {
 public:
  using Recorded::Recorded;
  int Count() const override { return On("Revisions.Count").Count(); }
  word::RevisionPtr Item(int index) const override { return Wrap(On("Revisions.Item").Item(index), Observer()); }
};

class RecordedRange : public Recorded<word::Range> {
 public:
  using Recorded::Recorded;
  word::Position Start() const override { return On("Range.Start").Start(); }
  word::Position End() const override { return On("Range.End").End(); }
  void SetStart(word::Position value) override { Put("Range.Start", value).SetStart(value); }
  void SetEnd(word::Position value) override { Put("Range.End", value).SetEnd(value); }
  void SetRange(word::Position start, word::Position end) override { On("Range.SetRange").SetRange(start, end); }
  std::u16string Text() const override { return On("Range.Text").Text(); }
  void SetText(std::u16string_view value) override { Put("Range.Text", value).SetText(value); }
  word::TextRetrievalModePtr TextRetrievalMode() const override {
    return Wrap(On("Range.TextRetrievalMode").TextRetrievalMode(), Observer());
  }
  word::WdStoryType StoryType() const override { return On("Range.StoryType").StoryType(); }
  int Information(word::WdInformation type) const override { return On("Range.Information").Information(type); }
  word::Position StoryLength() const override { return On("Range.StoryLength").StoryLength(); }
  word::RangePtr NextStoryRange() const override {
    return Wrap(On("Range.NextStoryRange").NextStoryRange(), Observer());
  }
  word::RangePtr Duplicate() const override { return Wrap(On("Range.Duplicate").Duplicate(), Observer()); }
  void Collapse(word::WdCollapseDirection direction) override { On("Range.Collapse").Collapse(direction); }
  int MoveStart(word::WdUnits unit, int count) override { return On("Range.MoveStart").MoveStart(unit, count); }
  void Select() override { Call("Range.Select", ToValue(Inner())).Select(); }
  void InsertParagraphBefore() override {
    Call("Range.InsertParagraphBefore", ToValue(Inner())).InsertParagraphBefore();
  }
  void Delete() override { Call("Range.Delete", ToValue(Inner())).Delete(); }
  word::FindPtr Find() const override { return Wrap(On("Range.Find").Find(), Observer()); }
  word::CharactersPtr Characters() const override { return Wrap(On("Range.Characters").Characters(), Observer()); }
  word::FieldsPtr Fields() const override { return Wrap(On("Range.Fields").Fields(), Observer()); }
  word::RevisionsPtr Revisions() const override { return Wrap(On("Range.Revisions").Revisions(), Observer()); }
  word::FontPtr Font() const override { return Wrap(On("Range.Font").Font(), Observer()); }
  word::ParagraphFormatPtr ParagraphFormat() const override {
    return Wrap(On("Range.ParagraphFormat").ParagraphFormat(), Observer());
  }
  int HighlightColorIndex() const override { return On("Range.HighlightColorIndex").HighlightColorIndex(); }
  void SetHighlightColorIndex(int value) override {
    Put("Range.HighlightColorIndex", value).SetHighlightColorIndex(value);
  }
};

}  // namespace

word::CharactersPtr Wrap(word::CharactersPtr inner, CallObserver& observer) {
  return WrapAs<RecordedCharacters>(std::move(inner), observer);
}
word::TextRetrievalModePtr Wrap(word::TextRetrievalModePtr inner, CallObserver& observer) {
  return WrapAs<RecordedTextRetrievalMode>(std::move(inner), observer);
}
word::RevisionPtr Wrap(word::RevisionPtr inner, CallObserver& observer) {
  return WrapAs<RecordedRevision>(std::move(inner), observer);
}
word::RevisionsPtr Wrap(word::RevisionsPtr inner, CallObserver& observer) {
  return WrapAs<RecordedRevisions>(std::move(inner), observer);
}
word::RangePtr Wrap(word::RangePtr inner, CallObserver& observer) {
  return WrapAs<RecordedRange>(std::move(inner), observer);
}

}  // namespace recording
