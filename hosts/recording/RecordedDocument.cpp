#include "hosts/recording/Recorded.h"
#include "platform/word/Document.h"
#include "platform/word/Range.h"

namespace recording {

namespace {

class RecordedStoryRanges : public Recorded<word::StoryRanges> {
 public:
  using Recorded::Recorded;
  int Count() const override { return On("StoryRanges.Count").Count(); }
  word::RangePtr Item(int index) const override { return Wrap(On("StoryRanges.Item").Item(index), Observer()); }
};

class RecordedDocument : public Recorded<word::Document> {
 public:
  using Recorded::Recorded;
  std::u16string Name() const override { return On("Document.Name").Name(); }
  std::u16string Path() const override { return On("Document.Path").Path(); }
  word::StoryRangesPtr StoryRanges() const override {
    return Wrap(On("Document.StoryRanges").StoryRanges(), Observer());
  }
  word::BookmarksPtr Bookmarks() const override { return Wrap(On("Document.Bookmarks").Bookmarks(), Observer()); }
  word::FieldsPtr Fields() const override { return Wrap(On("Document.Fields").Fields(), Observer()); }
  word::WindowPtr ActiveWindow() const override { return Wrap(On("Document.ActiveWindow").ActiveWindow(), Observer()); }
  word::RangePtr Range(word::Position start, word::Position end) const override {
    return Wrap(On("Document.Range").Range(start, end), Observer());
  }
  bool ShowGrammaticalErrors() const override { return On("Document.ShowGrammaticalErrors").ShowGrammaticalErrors(); }
  void SetShowGrammaticalErrors(bool value) override {
    Put("Document.ShowGrammaticalErrors", value).SetShowGrammaticalErrors(value);
  }
  bool ShowSpellingErrors() const override { return On("Document.ShowSpellingErrors").ShowSpellingErrors(); }
  void SetShowSpellingErrors(bool value) override {
    Put("Document.ShowSpellingErrors", value).SetShowSpellingErrors(value);
  }
  void UndoClear() override { CallAs("Document.UndoClear", "UndoClear").UndoClear(); }
  void Save() override { CallAs("Document.Save", "Save").Save(); }
  void SaveAs(std::u16string_view fileName) override {
    CallAs("Document.SaveAs", "SaveAs", ToValue(fileName)).SaveAs(fileName);
  }
};

}  // namespace

word::StoryRangesPtr Wrap(word::StoryRangesPtr inner, CallObserver& observer) {
  return WrapAs<RecordedStoryRanges>(std::move(inner), observer);
}
word::DocumentPtr Wrap(word::DocumentPtr inner, CallObserver& observer) {
  return WrapAs<RecordedDocument>(std::move(inner), observer);
}

}  // namespace recording
