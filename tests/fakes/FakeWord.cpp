#include "tests/fakes/FakeWord.h"

#include "platform/word/Fields.h"
#include "platform/word/Find.h"
#include "platform/word/Format.h"
#include "platform/word/HostError.h"
#include "platform/word/Options.h"
#include "platform/word/Range.h"
#include "platform/word/Selection.h"
#include "platform/word/Window.h"
#include "tests/fakes/WatchedMenus.h"

#include <algorithm>
#include <stdexcept>

namespace fakes {

namespace {

[[noreturn]] void NotHere() { throw std::logic_error("not in this fake"); }

std::string Show(const FakeWord& word, const Place& place) {
  return std::to_string(word.stories[place.story].type) + ":" + std::to_string(place.start) + "-" +
         std::to_string(place.end);
}

bool IsDoubleQuote(char16_t unit) { return unit == u'"' || unit == 0x201C || unit == 0x201D; }

bool Matches(char16_t pattern, char16_t unit) { return pattern == u'"' ? IsDoubleQuote(unit) : pattern == unit; }

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

/// Replaces text as the hosts do: a quotation mark that is found comes back in its own style.
class FakeReplacement : public word::Replacement {
 public:
  FakeReplacement(FakeWord& word, std::shared_ptr<std::u16string> text, std::shared_ptr<bool> highlights)
      : word_(word), text_(std::move(text)), highlights_(std::move(highlights)) {}
  void ClearFormatting() override { NotHere(); }
  std::u16string Text() const override { return *text_; }
  void SetText(std::u16string_view value) override {
    *text_ = value;
    word_.log.Add("Replacement.Text = " + Plain(value));
  }
  int Highlight() const override { return *highlights_ ? -1 : 0; }
  void SetHighlight(int value) override {
    *highlights_ = value != 0;
    word_.log.Add("Replacement.Highlight = " + std::to_string(value));
  }

 private:
  FakeWord& word_;
  std::shared_ptr<std::u16string> text_;
  std::shared_ptr<bool> highlights_;
};

/// Knows wildcard patterns of one character, "*" and one character, the pattern "<[A-Z]*>", and plain texts in ASCII
/// without codes.
class FakeFind : public word::Find {
 public:
  FakeFind(FakeWord& word, std::shared_ptr<Place> place) : word_(word), place_(std::move(place)) {}
  void ClearFormatting() override {}
  std::u16string Text() const override { return text_; }
  void SetText(std::u16string_view value) override {
    text_ = value;
    word_.log.Add("Find.Text = " + Plain(value));
  }
  bool Forward() const override { return true; }
  void SetForward(bool value) override { word_.log.Add("Find.Forward = " + Plain(value)); }
  int Wrap() const override { return word::wdFindStop; }
  void SetWrap(int value) override { word_.log.Add("Find.Wrap = " + std::to_string(value)); }
  bool Format() const override { return false; }
  void SetFormat(bool value) override { word_.log.Add("Find.Format = " + Plain(value)); }
  bool MatchCase() const override { return false; }
  void SetMatchCase(bool value) override { Keep(value); }
  bool MatchWholeWord() const override { return false; }
  void SetMatchWholeWord(bool value) override { Keep(value); }
  bool MatchWildcards() const override { return wildcards_; }
  void SetMatchWildcards(bool value) override { wildcards_ = value; }
  bool MatchSoundsLike() const override { return false; }
  void SetMatchSoundsLike(bool value) override { Keep(value); }
  bool MatchAllWordForms() const override { return false; }
  void SetMatchAllWordForms(bool value) override { Keep(value); }
  word::ReplacementPtr Replacement() const override {
    return std::make_shared<FakeReplacement>(word_, replacement_, highlights_);
  }
  bool Execute(const word::FindArguments& arguments) override {
    if (word_.findFails) throw word::HostError(word::kCommandFailed, u"Command failed", "Find.Execute");
    if (arguments.Replace == word::wdReplaceAll) {
      word_.log.Add("Find.Execute replace all");
      return found_ = ReplaceAll();
    }
    if (arguments.Replace != word::wdReplaceNone) NotHere();
    found_ = wildcards_ ? FindWildcards() : FindPlain();
    return found_;
  }
  bool Found() const override { return found_; }

 private:
  /// Switches that stay off in every search of this fake.
  static void Keep(bool value) {
    if (value) NotHere();
  }
  std::u16string& StoryText() const { return word_.stories[place_->story].text; }

  bool FindCappedWord() {
    const auto isLetter = [](char16_t unit) {
      return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
    };
    const std::u16string& text = StoryText();
    const std::size_t stop = place_->start == place_->end ? text.size() : static_cast<std::size_t>(place_->end);
    for (auto i = static_cast<std::size_t>(place_->start); i < stop; ++i) {
      if (text[i] < u'A' || text[i] > u'Z' || (i > 0 && isLetter(text[i - 1]))) continue;
      std::size_t end = i;
      while (end < text.size() && isLetter(text[end])) ++end;
      if (end > stop) continue;
      place_->start = static_cast<word::Position>(i);
      place_->end = static_cast<word::Position>(end);
      return true;
    }
    return false;
  }

  bool FindWildcards() {
    if (text_ == u"<[A-Z]*>") return FindCappedWord();
    if (text_.size() != 3 || text_[1] != u'*') NotHere();
    const std::u16string& text = StoryText();
    const std::size_t stop = place_->start == place_->end ? text.size() : static_cast<std::size_t>(place_->end);
    for (std::size_t i = static_cast<std::size_t>(place_->start); i < stop; ++i) {
      if (!Matches(text_[0], text[i])) continue;
      for (std::size_t j = i + 1; j < stop; ++j) {
        if (!Matches(text_[2], text[j])) continue;
        place_->start = static_cast<word::Position>(i);
        place_->end = static_cast<word::Position>(j + 1);
        return true;
      }
    }
    return false;
  }

  bool MatchesAt(std::size_t at) const {
    const auto lower = [](char16_t unit) { return unit >= u'A' && unit <= u'Z' ? unit + 32 : +unit; };
    const std::u16string& text = StoryText();
    if (at + text_.size() > text.size()) return false;
    for (std::size_t i = 0; i < text_.size(); ++i) {
      if (!Matches(text_[i], text[at + i]) && lower(text_[i]) != lower(text[at + i])) return false;
    }
    return true;
  }

  bool FindPlain() {
    // From a match it goes on, to the story's end.
    const std::size_t from = static_cast<std::size_t>(found_ ? place_->end : place_->start);
    for (std::size_t i = from; i < StoryText().size(); ++i) {
      if (!MatchesAt(i)) continue;
      place_->start = static_cast<word::Position>(i);
      place_->end = static_cast<word::Position>(i + text_.size());
      return true;
    }
    return false;
  }

  bool ReplaceAll() {
    bool any = false;
    for (std::size_t i = 0; i < StoryText().size(); ++i) {
      if (!MatchesAt(i)) continue;
      any = true;
      if (*highlights_) {
        const auto start = static_cast<word::Position>(i);
        word_.highlights.push_back({place_->story, start, start + static_cast<word::Position>(text_.size())});
        i += text_.size() - 1;
        continue;
      }
      std::u16string text = *replacement_;
      if (IsDoubleQuote(StoryText()[i])) std::replace(text.begin(), text.end(), u'"', StoryText()[i]);
      StoryText().replace(i, text_.size(), text);
      i += text.size() - 1;
    }
    return any;
  }

  FakeWord& word_;
  std::shared_ptr<Place> place_;
  std::u16string text_;
  std::shared_ptr<std::u16string> replacement_{std::make_shared<std::u16string>()};
  std::shared_ptr<bool> highlights_{std::make_shared<bool>(false)};
  bool wildcards_{false};
  bool found_{false};
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
  word::FindPtr Find() const override { return std::make_shared<FakeFind>(word_, place_); }
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
    const Place place = dynamic_cast<FakeRange&>(*range).Where();
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
word::RangePtr FakeWord::MakeRange(Place place) { return std::make_shared<FakeRange>(*this, place); }
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
