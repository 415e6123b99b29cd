#include "tests/fakes/FakeWord.h"

#include "platform/word/Fields.h"
#include "platform/word/HostError.h"
#include "platform/word/Options.h"
#include "platform/word/Range.h"
#include "platform/word/Selection.h"
#include "platform/word/Window.h"
#include "tests/fakes/FakeRange.h"
#include "tests/fakes/WatchedMenus.h"

#include <stdexcept>

namespace fakes {

void NotHere() { throw std::logic_error("not in this fake"); }

namespace {

class FakeStoryRanges : public word::StoryRanges {
 public:
  explicit FakeStoryRanges(FakeWord& word) : word_(word) {}
  int Count() const override { return static_cast<int>(word_.stories.size()); }
  word::RangePtr Item(int index) const override {
    if (index < 1 || index > Count()) throw word::HostError(word::kMemberDoesNotExist, u"No such story", "Item");
    return word_.MakeStory(static_cast<std::size_t>(index - 1));
  }

 private:
  FakeWord& word_;
};

class FakeBookmark : public word::Bookmark {
 public:
  FakeBookmark(FakeWord& word, std::u16string name) : word_(word), name_(std::move(name)) {}
  std::u16string Name() const override { return name_; }
  word::RangePtr Range() const override { return word_.MakeRange(word_.bookmarks.at(name_)); }
  void Select() override {
    word_.log.Add("Bookmark.Select " + Plain(name_));
    word_.selection = word_.bookmarks.at(name_);
  }
  void Delete() override {
    word_.log.Add("Bookmark.Delete " + Plain(name_));
    word_.bookmarks.erase(name_);
  }

 private:
  FakeWord& word_;
  std::u16string name_;
};

class FakeBookmarks : public word::Bookmarks {
 public:
  explicit FakeBookmarks(FakeWord& word) : word_(word) {}
  int Count() const override { return static_cast<int>(word_.bookmarks.size()); }
  bool Exists(std::u16string_view name) const override { return word_.bookmarks.count(std::u16string(name)) != 0; }
  word::BookmarkPtr Item(std::u16string_view name) const override {
    if (!Exists(name)) throw word::HostError(word::kMemberDoesNotExist, u"No such bookmark", "Bookmarks.Item");
    return std::make_shared<FakeBookmark>(word_, std::u16string(name));
  }
  word::BookmarkPtr Item(int) const override { NotHere(); }
  word::BookmarkPtr Add(std::u16string_view name, const word::RangePtr& range) override {
    const Place place = PlaceOf(*range);
    word_.bookmarks[std::u16string(name)] = place;
    word_.log.Add("Bookmarks.Add " + Plain(name) + " " + Show(word_, place));
    return Item(name);
  }
  bool ShowHidden() const override { return false; }
  void SetShowHidden(bool) override { NotHere(); }

 private:
  FakeWord& word_;
};

class FakeTables : public word::Tables {
 public:
  explicit FakeTables(int count) : count_(count) {}
  int Count() const override { return count_; }

 private:
  int count_;
};

class FakeSelection : public word::Selection {
 public:
  explicit FakeSelection(FakeWord& word) : word_(word) {}
  word::RangePtr Range() const override { return word_.MakeRange(word_.selection); }
  word::TablesPtr Tables() const override { return std::make_shared<FakeTables>(word_.tables); }
  void Collapse(word::WdCollapseDirection direction) override {
    word_.log.Add(std::string("Selection.Collapse ") + (direction == word::wdCollapseStart ? "start" : "end"));
    if (direction == word::wdCollapseStart) {
      word_.selection.end = word_.selection.start;
    } else {
      word_.selection.start = word_.selection.end;
    }
  }
  void HomeKey(word::WdUnits unit) override {
    word_.log.Add("Selection.HomeKey " + std::to_string(unit));
    word_.selection = {word_.selection.story, 0, 0};
  }
  void GoTo(const word::GoToArguments& arguments) override {
    word_.log.Add("Selection.GoTo " + std::to_string(arguments.What) + " " + std::to_string(arguments.Which) + " " +
                  Plain(arguments.Name));
    word_.selection = arguments.What == word::wdGoToBookmark ? word_.bookmarks.at(arguments.Name) : Place{};
  }

 private:
  FakeWord& word_;
};

/// The view of the window, or that of its active pane.
class FakeView : public word::View {
 public:
  FakeView(FakeWord& word, bool pane) : word_(word), pane_(pane) {}
  int Type() const override { return pane_ ? word_.paneViewType : word_.windowViewType; }
  void SetType(int value) override {
    Put("Type", std::to_string(value));
    (pane_ ? word_.paneViewType : word_.windowViewType) = value;
  }
  int SplitSpecial() const override { return word_.splitSpecial; }
  bool ShowAll() const override { return word_.showAll; }
  void SetShowAll(bool value) override {
    Put("ShowAll", Plain(value));
    word_.showAll = value;
  }
  bool ShowHiddenText() const override { return word_.showHiddenText; }
  void SetShowHiddenText(bool value) override {
    Put("ShowHiddenText", Plain(value));
    word_.showHiddenText = value;
  }

 private:
  void Put(const std::string& member, const std::string& value) {
    word_.log.Add((pane_ ? "Pane.View." : "Window.View.") + member + " = " + value);
  }
  FakeWord& word_;
  bool pane_;
};

class FakePane : public word::Pane {
 public:
  explicit FakePane(FakeWord& word) : word_(word) {}
  word::ViewPtr View() const override { return std::make_shared<FakeView>(word_, true); }

 private:
  FakeWord& word_;
};

class FakeWindow : public word::Window {
 public:
  explicit FakeWindow(FakeWord& word) : word_(word) {}
  word::ViewPtr View() const override { return std::make_shared<FakeView>(word_, false); }
  word::PanePtr ActivePane() const override { return std::make_shared<FakePane>(word_); }
  word::SelectionPtr Selection() const override { return std::make_shared<FakeSelection>(word_); }
  void SetSplitVertical(int percent) override { word_.log.Add("Window.SplitVertical = " + std::to_string(percent)); }

 private:
  FakeWord& word_;
};

class FakeField : public word::Field {
 public:
  FakeField(FakeWord& word, std::size_t number) : word_(word), number_(number) {}
  int Type() const override { return word_.fields[number_].type; }
  word::RangePtr Code() const override { return word_.MakeRange(word_.fields[number_].code); }
  word::RangePtr Result() const override { return nullptr; }
  bool Update() override {
    word_.log.Add("Field.Update " + std::to_string(number_ + 1));
    return true;
  }
  void Delete() override { NotHere(); }

 private:
  FakeWord& word_;
  std::size_t number_;
};

class FakeFields : public word::Fields {
 public:
  explicit FakeFields(FakeWord& word) : word_(word) {}
  int Count() const override { return static_cast<int>(word_.fields.size()); }
  word::FieldPtr Item(int index) const override {
    return std::make_shared<FakeField>(word_, static_cast<std::size_t>(index - 1));
  }
  word::FieldPtr Add(const word::RangePtr&, const word::FieldArguments&) override { NotHere(); }

 private:
  FakeWord& word_;
};

class FakeDocument : public word::Document {
 public:
  explicit FakeDocument(FakeWord& word) : word_(word) {}
  std::u16string Name() const override { return word_.name; }
  std::u16string Path() const override {
    if (word_.readsAsNew == 0) return word_.path;
    --word_.readsAsNew;
    return {};
  }
  word::StoryRangesPtr StoryRanges() const override {
    if (word_.storiesFail) throw word::HostError(word::kCommandFailed, u"Command failed", "Document.StoryRanges");
    return std::make_shared<FakeStoryRanges>(word_);
  }
  word::BookmarksPtr Bookmarks() const override { return std::make_shared<FakeBookmarks>(word_); }
  word::FieldsPtr Fields() const override { return std::make_shared<FakeFields>(word_); }
  word::WindowPtr ActiveWindow() const override { return std::make_shared<FakeWindow>(word_); }
  word::RangePtr Range(word::Position start, word::Position end) const override {
    return word_.MakeRange({0, start, end});
  }
  bool ShowGrammaticalErrors() const override { return word_.showGrammaticalErrors; }
  void SetShowGrammaticalErrors(bool value) override {
    word_.log.Add("Document.ShowGrammaticalErrors = " + Plain(value));
    word_.showGrammaticalErrors = value;
  }
  bool ShowSpellingErrors() const override { return word_.showSpellingErrors; }
  void SetShowSpellingErrors(bool value) override {
    word_.log.Add("Document.ShowSpellingErrors = " + Plain(value));
    word_.showSpellingErrors = value;
  }
  void UndoClear() override { word_.log.Add("Document.UndoClear"); }
  void Save() override { word_.log.Add("Document.Save"); }
  void SaveAs(std::u16string_view fileName) override {
    word_.log.Add("Document.SaveAs " + Plain(fileName));
    const std::size_t separator = fileName.rfind(u'\\');
    word_.path = fileName.substr(0, separator);
    word_.name = fileName.substr(separator + 1);
  }

 private:
  FakeWord& word_;
};

class FakeDocuments : public word::Documents {
 public:
  explicit FakeDocuments(FakeWord& word) : word_(word) {}
  int Count() const override { return word_.hasDocument ? 1 : 0; }
  word::DocumentPtr Item(std::u16string_view name) const override {
    if (!word_.hasDocument || name != word_.name) {
      throw word::HostError(word::kMemberDoesNotExist, u"No such document", "Documents.Item");
    }
    return word_.MakeDocument();
  }

 private:
  FakeWord& word_;
};

class FakeOptions : public word::Options {
 public:
  explicit FakeOptions(FakeWord& word) : word_(word) {}
  bool AutoFormatAsYouTypeReplaceQuotes() const override { return word_.replaceQuotes; }
  void SetAutoFormatAsYouTypeReplaceQuotes(bool value) override {
    Put("AutoFormatAsYouTypeReplaceQuotes", word_.replaceQuotes, value);
  }
  bool AllowFastSave() const override { return word_.allowFastSave; }
  void SetAllowFastSave(bool value) override { Put("AllowFastSave", word_.allowFastSave, value); }
  bool CheckSpellingAsYouType() const override { return word_.checkSpelling; }
  void SetCheckSpellingAsYouType(bool value) override { Put("CheckSpellingAsYouType", word_.checkSpelling, value); }
  bool CheckGrammarAsYouType() const override { return word_.checkGrammar; }
  void SetCheckGrammarAsYouType(bool value) override { Put("CheckGrammarAsYouType", word_.checkGrammar, value); }
  bool Pagination() const override { return word_.pagination; }
  void SetPagination(bool value) override { Put("Pagination", word_.pagination, value); }
  std::u16string DefaultFilePath(int path) const override {
    return path == 8 ? u"C:\\Word\\Startup" : u"C:\\Elsewhere";
  }

 private:
  void Put(const std::string& member, bool& target, bool value) {
    word_.log.Add("Options." + member + " = " + Plain(value));
    target = value;
  }
  FakeWord& word_;
};

class FakeCustomization : public word::Customization {
 public:
  explicit FakeCustomization(FakeWord& word) : word_(word) {}
  bool Saved() const override { return word_.customizationSaved; }
  void SetSaved(bool value) override {
    word_.log.Add("CustomizationContext.Saved = " + Plain(value));
    word_.customizationSaved = value;
  }
  void Save() override { word_.log.Add("CustomizationContext.Save"); }

 private:
  FakeWord& word_;
};

class FakeApplication : public word::Application {
 public:
  explicit FakeApplication(FakeWord& word) : word_(word) {}
  word::DocumentsPtr Documents() const override { return std::make_shared<FakeDocuments>(word_); }
  word::DocumentPtr ActiveDocument() const override {
    if (!word_.hasDocument) throw word::HostError(word::kNoDocumentOpen, u"No document is open", "ActiveDocument");
    return word_.MakeDocument();
  }
  word::SelectionPtr Selection() const override { return std::make_shared<FakeSelection>(word_); }
  word::OptionsPtr Options() const override { return std::make_shared<FakeOptions>(word_); }
  bool ScreenUpdating() const override { return word_.screenUpdating; }
  void SetScreenUpdating(bool value) override {
    word_.log.Add("Application.ScreenUpdating = " + Plain(value));
    word_.screenUpdating = value;
  }
  void ScreenRefresh() override { word_.log.Add("Application.ScreenRefresh"); }
  office::CommandBarsPtr CommandBars() const override {
    if (word_.hasMenus) return WatchMenus(word_.menus.CommandBars(), word_.onMenuCall);
    throw word::HostError(word::kMethodNotAvailable, u"This method or property is not available.", "CommandBars");
  }
  word::CustomizationPtr CustomizationContext() const override { return std::make_shared<FakeCustomization>(word_); }

 private:
  FakeWord& word_;
};

}  // namespace

word::ApplicationPtr FakeWord::MakeApplication() { return std::make_shared<FakeApplication>(*this); }
word::DocumentPtr FakeWord::MakeDocument() { return std::make_shared<FakeDocument>(*this); }
word::RangePtr FakeWord::MakeRange(Place place) { return MakeFakeRange(*this, place); }
word::Position FakeWord::Insert(Place at, std::u16string_view text) {
  const auto length = static_cast<word::Position>(text.size());
  stories[at.story].text.insert(static_cast<std::size_t>(at.start), text);
  for (auto& [bookmark, place] : bookmarks) {
    if (place.story != at.story) continue;
    if (place.start > at.start) place.start += length;
    if (place.end > at.start) place.end += length;
  }
  return at.start + length;
}
word::RangePtr FakeWord::MakeStory(std::size_t story) {
  return MakeRange({story, 0, static_cast<word::Position>(stories[story].text.size())});
}

}  // namespace fakes
