#include "hosts/recording/Recorded.h"
#include "platform/word/Find.h"

namespace recording {

namespace {

class RecordedReplacement : public Recorded<word::Replacement> {
 public:
  using Recorded::Recorded;
  void ClearFormatting() override { On("Replacement.ClearFormatting").ClearFormatting(); }
  std::u16string Text() const override { return On("Replacement.Text").Text(); }
  void SetText(std::u16string_view value) override { Put("Replacement.Text", value).SetText(value); }
  int Highlight() const override { return On("Replacement.Highlight").Highlight(); }
  void SetHighlight(int value) override { Put("Replacement.Highlight", value).SetHighlight(value); }
};

class RecordedFind : public Recorded<word::Find> {
 public:
  using Recorded::Recorded;
  void ClearFormatting() override { On("Find.ClearFormatting").ClearFormatting(); }
  std::u16string Text() const override { return On("Find.Text").Text(); }
  void SetText(std::u16string_view value) override { Put("Find.Text", value).SetText(value); }
  bool Forward() const override { return On("Find.Forward").Forward(); }
  void SetForward(bool value) override { Put("Find.Forward", value).SetForward(value); }
  int Wrap() const override { return On("Find.Wrap").Wrap(); }
  void SetWrap(int value) override { Put("Find.Wrap", value).SetWrap(value); }
  bool Format() const override { return On("Find.Format").Format(); }
  void SetFormat(bool value) override { Put("Find.Format", value).SetFormat(value); }
  bool MatchCase() const override { return On("Find.MatchCase").MatchCase(); }
  void SetMatchCase(bool value) override { Put("Find.MatchCase", value).SetMatchCase(value); }
  bool MatchWholeWord() const override { return On("Find.MatchWholeWord").MatchWholeWord(); }
  void SetMatchWholeWord(bool value) override { Put("Find.MatchWholeWord", value).SetMatchWholeWord(value); }
  bool MatchWildcards() const override { return On("Find.MatchWildcards").MatchWildcards(); }
  void SetMatchWildcards(bool value) override { Put("Find.MatchWildcards", value).SetMatchWildcards(value); }
  bool MatchSoundsLike() const override { return On("Find.MatchSoundsLike").MatchSoundsLike(); }
  void SetMatchSoundsLike(bool value) override { Put("Find.MatchSoundsLike", value).SetMatchSoundsLike(value); }
  bool MatchAllWordForms() const override { return On("Find.MatchAllWordForms").MatchAllWordForms(); }
  void SetMatchAllWordForms(bool value) override { Put("Find.MatchAllWordForms", value).SetMatchAllWordForms(value); }
  word::ReplacementPtr Replacement() const override {
    return recording::Wrap(On("Find.Replacement").Replacement(), Observer());
  }
  bool Execute(const word::FindArguments& arguments) override {
    if (arguments.Replace == word::wdReplaceNone) return On("Find.Execute").Execute(arguments);
    return Call("Find.Execute", Value{{"Replace", arguments.Replace}}).Execute(arguments);
  }
  bool Found() const override { return On("Find.Found").Found(); }
};

}  // namespace

word::ReplacementPtr Wrap(word::ReplacementPtr inner, CallObserver& observer) {
  return WrapAs<RecordedReplacement>(std::move(inner), observer);
}
word::FindPtr Wrap(word::FindPtr inner, CallObserver& observer) {
  return WrapAs<RecordedFind>(std::move(inner), observer);
}

}  // namespace recording
