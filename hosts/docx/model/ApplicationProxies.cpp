#include <algorithm>
#include <utility>

#include "hosts/docx/WordProcessor.h"
#include "hosts/docx/find/FindCharacters.h"
#include "hosts/docx/model/DocumentProxies.h"
#include "hosts/docx/model/RangeProxy.h"
#include "hosts/docx/model/WordProcessorState.h"
#include "platform/word/Application.h"
#include "platform/word/Options.h"

namespace docx {

namespace {

using StatePtr = std::shared_ptr<WordProcessorState>;

bool SameName(std::u16string_view a, std::u16string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char16_t left, char16_t right) { return FoldCase(left) == FoldCase(right); });
}

class OptionsProxy : public word::Options {
 public:
  explicit OptionsProxy(StatePtr state) : state_(std::move(state)) {}
  bool AutoFormatAsYouTypeReplaceQuotes() const override { return Values().autoFormatAsYouTypeReplaceQuotes; }
  void SetAutoFormatAsYouTypeReplaceQuotes(bool value) override { Values().autoFormatAsYouTypeReplaceQuotes = value; }
  bool AllowFastSave() const override { return Values().allowFastSave; }
  void SetAllowFastSave(bool value) override { Values().allowFastSave = value; }
  bool CheckSpellingAsYouType() const override { return Values().checkSpellingAsYouType; }
  void SetCheckSpellingAsYouType(bool value) override { Values().checkSpellingAsYouType = value; }
  bool CheckGrammarAsYouType() const override { return Values().checkGrammarAsYouType; }
  void SetCheckGrammarAsYouType(bool value) override { Values().checkGrammarAsYouType = value; }
  bool Pagination() const override { return Values().pagination; }
  void SetPagination(bool value) override { Values().pagination = value; }
  std::u16string DefaultFilePath(int path) const override {
    constexpr int kStartupPath = 8;
    return path == kStartupPath ? Values().startupPath : std::u16string();
  }

 private:
  OptionsState& Values() const { return state_->options; }
  StatePtr state_;
};

class DocumentsProxy : public word::Documents {
 public:
  explicit DocumentsProxy(StatePtr state) : state_(std::move(state)) {}
  int Count() const override { return state_->document ? 1 : 0; }
  word::DocumentPtr Item(std::u16string_view name) const override {
    if (!state_->document || !SameName(state_->document->Name(), name)) ThrowNoMember("Documents.Item");
    return MakeDocument(state_->document);
  }

 private:
  StatePtr state_;
};

/// Menus are not kept from one run to the next, so there is nothing to write.
class CustomizationProxy : public word::Customization {
 public:
  explicit CustomizationProxy(StatePtr state) : state_(std::move(state)) {}
  bool Saved() const override { return state_->customizationSaved; }
  void SetSaved(bool value) override { state_->customizationSaved = value; }
  void Save() override { state_->customizationSaved = true; }

 private:
  StatePtr state_;
};

class ApplicationProxy : public word::Application {
 public:
  explicit ApplicationProxy(StatePtr state) : state_(std::move(state)) {}
  word::DocumentsPtr Documents() const override { return std::make_shared<DocumentsProxy>(state_); }
  word::DocumentPtr ActiveDocument() const override { return MakeDocument(Open("Application.ActiveDocument")); }
  word::SelectionPtr Selection() const override { return MakeSelection(Open("Application.Selection")); }
  word::OptionsPtr Options() const override { return std::make_shared<OptionsProxy>(state_); }
  bool ScreenUpdating() const override { return state_->screenUpdating; }
  void SetScreenUpdating(bool value) override { state_->screenUpdating = value; }
  // There is no screen: nothing to draw anew.
  void ScreenRefresh() override {}
  office::CommandBarsPtr CommandBars() const override {
    if (state_->commandBars) return state_->commandBars;
    throw word::HostError(word::kMethodNotAvailable, u"This method or property is not available.",
                          "Application.CommandBars");
  }
  word::CustomizationPtr CustomizationContext() const override { return std::make_shared<CustomizationProxy>(state_); }

 private:
  const std::shared_ptr<OpenDocument>& Open(std::string_view member) const {
    if (!state_->document) {
      throw word::HostError(word::kNoDocumentOpen, u"This command is not available because no document is open.",
                            member);
    }
    return state_->document;
  }

  StatePtr state_;
};

}  // namespace

WordProcessor::WordProcessor() : state_(std::make_shared<WordProcessorState>()) {}
WordProcessor::~WordProcessor() { Close(); }

word::ApplicationPtr WordProcessor::Application() const { return std::make_shared<ApplicationProxy>(state_); }

void WordProcessor::SetCommandBars(office::CommandBarsPtr commandBars) { state_->commandBars = std::move(commandBars); }

void WordProcessor::Open(std::unique_ptr<Package> package, DocumentSettings settings, DocumentFile& file) {
  Close();
  state_->document = std::make_shared<OpenDocument>(std::move(package), std::move(settings), file);
}

OpenDocument* WordProcessor::Document() const { return state_->document.get(); }
void WordProcessor::Close() { state_->document.reset(); }
const Package& WordProcessor::Updated() const { return state_->document->Parts().Updated(); }
WindowState& WordProcessor::Window() const { return state_->document->window; }
OptionsState& WordProcessor::Options() const { return state_->options; }

int WordProcessor::PageCount() const { return state_->document->Pages().PageCount(); }
std::u16string WordProcessor::PageLabel(int page) const { return state_->document->Pages().LabelOf(page); }
std::string WordProcessor::PagesFrom() const { return state_->document->Pages().Basis(); }

int WordProcessor::PageOf(int story, word::Position position) const {
  const auto& stories = state_->document->Parts().Stories(story);
  return stories.empty() ? 1 : state_->document->Pages().PageOf(*stories.front(), position);
}

bool WordProcessor::Select(const SelectionState& selection) {
  DocumentParts& parts = state_->document->Parts();
  if (selection.story < 1 || selection.story > DocumentParts::kLastStoryType) return false;
  const auto& stories = parts.Stories(selection.story);
  if (stories.empty()) return false;
  Story& story = *stories.front();
  if (selection.start < 0 || selection.start > selection.end || selection.end > story.Length()) return false;
  // No insertion point stands behind a story's last mark.
  if (selection.start == story.Length()) return false;
  state_->document->Select(story, selection.start, selection.end);
  return true;
}

SelectionState WordProcessor::Selection() const {
  const Anchor& anchor = state_->document->Selection();
  return {anchor.Of()->Type(), anchor.start, anchor.end};
}

}  // namespace docx
