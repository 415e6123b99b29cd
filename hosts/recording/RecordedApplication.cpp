#include "hosts/recording/Recorded.h"
#include "platform/word/Application.h"
#include "platform/word/Options.h"

namespace recording {

namespace {

class RecordedDocuments : public Recorded<word::Documents> {
 public:
  using Recorded::Recorded;
  int Count() const override { return On("Documents.Count").Count(); }
  word::DocumentPtr Item(std::u16string_view name) const override {
    return Wrap(On("Documents.Item").Item(name), Observer());
  }
};

class RecordedOptions : public Recorded<word::Options> {
 public:
  using Recorded::Recorded;
  bool AutoFormatAsYouTypeReplaceQuotes() const override {
    return On("Options.AutoFormatAsYouTypeReplaceQuotes").AutoFormatAsYouTypeReplaceQuotes();
  }
  void SetAutoFormatAsYouTypeReplaceQuotes(bool value) override {
    Put("Options.AutoFormatAsYouTypeReplaceQuotes", value).SetAutoFormatAsYouTypeReplaceQuotes(value);
  }
  bool AllowFastSave() const override { return On("Options.AllowFastSave").AllowFastSave(); }
  void SetAllowFastSave(bool value) override { Put("Options.AllowFastSave", value).SetAllowFastSave(value); }
  bool CheckSpellingAsYouType() const override { return On("Options.CheckSpellingAsYouType").CheckSpellingAsYouType(); }
  void SetCheckSpellingAsYouType(bool value) override {
    Put("Options.CheckSpellingAsYouType", value).SetCheckSpellingAsYouType(value);
  }
  bool CheckGrammarAsYouType() const override { return On("Options.CheckGrammarAsYouType").CheckGrammarAsYouType(); }
  void SetCheckGrammarAsYouType(bool value) override {
    Put("Options.CheckGrammarAsYouType", value).SetCheckGrammarAsYouType(value);
  }
  bool Pagination() const override { return On("Options.Pagination").Pagination(); }
  void SetPagination(bool value) override { Put("Options.Pagination", value).SetPagination(value); }
  std::u16string DefaultFilePath(int path) const override {
    return On("Options.DefaultFilePath").DefaultFilePath(path);
  }
};

class RecordedCustomization : public Recorded<word::Customization> {
 public:
  using Recorded::Recorded;
  bool Saved() const override { return On("CustomizationContext.Saved").Saved(); }
  void SetSaved(bool value) override { Put("CustomizationContext.Saved", value).SetSaved(value); }
  void Save() override { Call("CustomizationContext.Save").Save(); }
};

class RecordedApplication : public Recorded<word::Application> {
 public:
  using Recorded::Recorded;
  word::DocumentsPtr Documents() const override { return Wrap(On("Application.Documents").Documents(), Observer()); }
  word::DocumentPtr ActiveDocument() const override {
    return Wrap(On("Application.ActiveDocument").ActiveDocument(), Observer());
  }
  word::SelectionPtr Selection() const override { return Wrap(On("Application.Selection").Selection(), Observer()); }
  word::OptionsPtr Options() const override { return Wrap(On("Application.Options").Options(), Observer()); }
  bool ScreenUpdating() const override { return On("Application.ScreenUpdating").ScreenUpdating(); }
  void SetScreenUpdating(bool value) override { Put("Application.ScreenUpdating", value).SetScreenUpdating(value); }
  void ScreenRefresh() override { CallAs("Application.ScreenRefresh", "ScreenRefresh").ScreenRefresh(); }
  // Menus tell of their changes themselves.
  office::CommandBarsPtr CommandBars() const override { return On("Application.CommandBars").CommandBars(); }
  word::CustomizationPtr CustomizationContext() const override {
    return Wrap(On("Application.CustomizationContext").CustomizationContext(), Observer());
  }
};

}  // namespace

word::DocumentsPtr Wrap(word::DocumentsPtr inner, CallObserver& observer) {
  return WrapAs<RecordedDocuments>(std::move(inner), observer);
}
word::OptionsPtr Wrap(word::OptionsPtr inner, CallObserver& observer) {
  return WrapAs<RecordedOptions>(std::move(inner), observer);
}
word::CustomizationPtr Wrap(word::CustomizationPtr inner, CallObserver& observer) {
  return WrapAs<RecordedCustomization>(std::move(inner), observer);
}
word::ApplicationPtr Wrap(word::ApplicationPtr inner, CallObserver& observer) {
  return WrapAs<RecordedApplication>(std::move(inner), observer);
}

}  // namespace recording
