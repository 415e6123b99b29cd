#include <utility>
#include <vector>

#include "hosts/docx/model/DocumentProxies.h"
#include "hosts/docx/model/RangeProxy.h"

namespace docx {

namespace {

class ViewProxy : public word::View {
 public:
  explicit ViewProxy(std::weak_ptr<OpenDocument> document) : document_(std::move(document)) {}
  int Type() const override { return Values("View.Type").viewType; }
  void SetType(int value) override { Values("View.Type").viewType = value; }
  int SplitSpecial() const override { return Values("View.SplitSpecial").splitSpecial; }
  bool ShowAll() const override { return Values("View.ShowAll").showAll; }
  void SetShowAll(bool value) override { Values("View.ShowAll").showAll = value; }
  bool ShowHiddenText() const override { return Values("View.ShowHiddenText").showHiddenText; }
  void SetShowHiddenText(bool value) override { Values("View.ShowHiddenText").showHiddenText = value; }

 private:
  WindowState& Values(std::string_view member) const { return Lock(document_, member)->window; }
  std::weak_ptr<OpenDocument> document_;
};

class PaneProxy : public word::Pane {
 public:
  explicit PaneProxy(std::weak_ptr<OpenDocument> document) : document_(std::move(document)) {}
  word::ViewPtr View() const override { return std::make_shared<ViewProxy>(document_); }

 private:
  std::weak_ptr<OpenDocument> document_;
};

class WindowProxy : public word::Window {
 public:
  explicit WindowProxy(std::weak_ptr<OpenDocument> document) : document_(std::move(document)) {}
  word::ViewPtr View() const override { return std::make_shared<ViewProxy>(document_); }
  word::PanePtr ActivePane() const override { return std::make_shared<PaneProxy>(document_); }
  word::SelectionPtr Selection() const override { return MakeSelection(Lock(document_, "Window.Selection")); }
  void SetSplitVertical(int percent) override {
    Lock(document_, "Window.SplitVertical")->window.splitVertical = percent;
  }

 private:
  std::weak_ptr<OpenDocument> document_;
};

/// The first story of each type that exists, in ascending order of the type.
class StoryRangesProxy : public word::StoryRanges {
 public:
  explicit StoryRangesProxy(std::weak_ptr<OpenDocument> document) : document_(std::move(document)) {}

  int Count() const override { return static_cast<int>(Stories("StoryRanges.Count").size()); }

  word::RangePtr Item(int index) const override {
    const std::vector<Story*> stories = Stories("StoryRanges.Item");
    if (index < 1 || index > static_cast<int>(stories.size())) ThrowNoMember("StoryRanges.Item");
    Story& story = *stories[static_cast<std::size_t>(index) - 1];
    return RangeProxy::Make(document_.lock(), story, 0, story.Length());
  }

 private:
  std::vector<Story*> Stories(std::string_view member) const {
    const std::shared_ptr<OpenDocument> document = Lock(document_, member);
    std::vector<Story*> stories;
    for (int type = 1; type <= DocumentParts::kLastStoryType; ++type) {
      const auto& ofType = document->Parts().Stories(type);
      if (!ofType.empty()) stories.push_back(ofType.front().get());
    }
    return stories;
  }

  std::weak_ptr<OpenDocument> document_;
};

class DocumentProxy : public word::Document {
 public:
  explicit DocumentProxy(std::weak_ptr<OpenDocument> document) : document_(std::move(document)) {}

  std::u16string Name() const override { return Lock(document_, "Document.Name")->Name(); }
  std::u16string Path() const override { return Lock(document_, "Document.Path")->Path(); }
  word::StoryRangesPtr StoryRanges() const override { return std::make_shared<StoryRangesProxy>(document_); }
  word::BookmarksPtr Bookmarks() const override { return MakeBookmarks(Lock(document_, "Document.Bookmarks")); }
  word::FieldsPtr Fields() const override {
    const std::shared_ptr<OpenDocument> document = Lock(document_, "Document.Fields");
    Story& main = document->Parts().Main();
    return MakeFields(std::make_shared<RangeProxy>(document, main, 0, main.Length()));
  }
  word::WindowPtr ActiveWindow() const override { return MakeWindow(Lock(document_, "Document.ActiveWindow")); }
  word::RangePtr Range(word::Position start, word::Position end) const override {
    const std::shared_ptr<OpenDocument> document = Lock(document_, "Document.Range");
    Story& main = document->Parts().Main();
    if (start < 0 || start > end || end > main.Length()) {
      throw word::HostError(word::kCommandFailed, u"Value out of range.", "Document.Range");
    }
    return RangeProxy::Make(document, main, start, end);
  }

  bool ShowGrammaticalErrors() const override {
    return Lock(document_, "Document.ShowGrammaticalErrors")->showGrammaticalErrors;
  }
  void SetShowGrammaticalErrors(bool value) override {
    Lock(document_, "Document.ShowGrammaticalErrors")->showGrammaticalErrors = value;
  }
  bool ShowSpellingErrors() const override {
    return Lock(document_, "Document.ShowSpellingErrors")->showSpellingErrors;
  }
  void SetShowSpellingErrors(bool value) override {
    Lock(document_, "Document.ShowSpellingErrors")->showSpellingErrors = value;
  }

  // No undo list is kept, so it is always empty.
  void UndoClear() override { Lock(document_, "Document.UndoClear"); }
  void Save() override { Lock(document_, "Document.Save")->Save(); }
  void SaveAs(std::u16string_view fileName) override { Lock(document_, "Document.SaveAs")->SaveAs(fileName); }

 private:
  std::weak_ptr<OpenDocument> document_;
};

}  // namespace

word::DocumentPtr MakeDocument(const std::shared_ptr<OpenDocument>& document) {
  return std::make_shared<DocumentProxy>(document);
}

word::WindowPtr MakeWindow(const std::shared_ptr<OpenDocument>& document) {
  return std::make_shared<WindowProxy>(document);
}

}  // namespace docx
