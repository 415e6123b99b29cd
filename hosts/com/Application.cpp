#include "platform/word/Application.h"

#include "hosts/com/Objects.h"
#include "hosts/com/WordProcessor.h"
#include "platform/word/Document.h"
#include "platform/word/Options.h"
#include "platform/word/Range.h"

namespace com {

namespace {

class Documents : public Proxied<word::Documents> {
 public:
  using Proxied::Proxied;
  int Count() const override { return word_.Int("Documents.Count"); }
  word::DocumentPtr Item(std::u16string_view name) const override {
    return MakeDocument(word_.Object("Documents.Item", {name}));
  }
};

class Options : public Proxied<word::Options> {
 public:
  using Proxied::Proxied;
  bool AutoFormatAsYouTypeReplaceQuotes() const override {
    return word_.Bool("Options.AutoFormatAsYouTypeReplaceQuotes");
  }
  void SetAutoFormatAsYouTypeReplaceQuotes(bool value) override {
    word_.Put("Options.AutoFormatAsYouTypeReplaceQuotes", value);
  }
  bool AllowFastSave() const override { return word_.Bool("Options.AllowFastSave"); }
  void SetAllowFastSave(bool value) override { word_.Put("Options.AllowFastSave", value); }
  bool CheckSpellingAsYouType() const override { return word_.Bool("Options.CheckSpellingAsYouType"); }
  void SetCheckSpellingAsYouType(bool value) override { word_.Put("Options.CheckSpellingAsYouType", value); }
  bool CheckGrammarAsYouType() const override { return word_.Bool("Options.CheckGrammarAsYouType"); }
  void SetCheckGrammarAsYouType(bool value) override { word_.Put("Options.CheckGrammarAsYouType", value); }
  bool Pagination() const override { return word_.Bool("Options.Pagination"); }
  void SetPagination(bool value) override { word_.Put("Options.Pagination", value); }
  std::u16string DefaultFilePath(int path) const override {
    return word_.Get("Options.DefaultFilePath", {path}).ToText();
  }
};

class Customization : public Proxied<word::Customization> {
 public:
  using Proxied::Proxied;
  bool Saved() const override { return word_.Bool("CustomizationContext.Saved"); }
  void SetSaved(bool value) override { word_.Put("CustomizationContext.Saved", value); }
  void Save() override { word_.Call("CustomizationContext.Save"); }
};

class Application : public Proxied<word::Application> {
 public:
  using Proxied::Proxied;
  word::DocumentsPtr Documents() const override {
    return std::make_shared<com::Documents>(word_.Object("Application.Documents"));
  }
  word::DocumentPtr ActiveDocument() const override { return MakeDocument(word_.Object("Application.ActiveDocument")); }
  word::SelectionPtr Selection() const override { return MakeSelection(word_.Object("Application.Selection")); }
  word::OptionsPtr Options() const override {
    return std::make_shared<com::Options>(word_.Object("Application.Options"));
  }
  bool ScreenUpdating() const override { return word_.Bool("Application.ScreenUpdating"); }
  void SetScreenUpdating(bool value) override { word_.Put("Application.ScreenUpdating", value); }
  void ScreenRefresh() override { word_.Call("Application.ScreenRefresh"); }
  office::CommandBarsPtr CommandBars() const override {
    return MakeCommandBars(word_.Object("Application.CommandBars"));
  }
  word::CustomizationPtr CustomizationContext() const override {
    return std::make_shared<Customization>(word_.Object("Application.CustomizationContext"));
  }
};

}  // namespace

word::ApplicationPtr WrapApplication(IDispatch* application, SessionPtr session) {
  return std::make_shared<Application>(Dispatch(ComPtr<IDispatch>(application), std::move(session)));
}

word::DocumentPtr WrapDocument(IDispatch* document, SessionPtr session) {
  return MakeDocument({ComPtr<IDispatch>(document), std::move(session)});
}

word::RangePtr WrapRange(IDispatch* range, SessionPtr session) {
  return MakeRange({ComPtr<IDispatch>(range), std::move(session)});
}

IDispatch* Unwrap(const word::ApplicationPtr& application) { return ObjectOf(application); }

IDispatch* Unwrap(const word::DocumentPtr& document) { return ObjectOf(document); }

IDispatch* Unwrap(const word::RangePtr& range) { return ObjectOf(range); }

}  // namespace com
