#include "hosts/unattended/IndexAnswers.h"

#include "hosts/unattended/FormScript.h"
#include "hosts/unattended/Text.h"
#include "platform/Text.h"

#include <algorithm>
#include <utility>

namespace unattended {

namespace {

constexpr std::u16string_view kLoadTitle = u"Load terms list";

/// Does steps in a form one by one.
class Steps {
 public:
  Steps(forms::Form& form, const std::function<void()>& stepDone) : form_(form), stepDone_(stepDone) {}

  void Tick(const char* box, std::optional<bool> value) {
    if (value) SetIfUsable(box, -1, *value ? 1 : 0);
  }
  void Choose(const char* group, std::optional<int> element) {
    if (element) SetIfUsable(group, *element, *element);
  }
  void Type(const char* box, const std::optional<std::string>& text) {
    if (text) SetIfUsable(box, -1, FromUtf8(*text));
  }
  void ChooseQuote(const char* list, std::optional<int> code) {
    if (!code) return;
    const auto& combo = dynamic_cast<const forms::ComboBox&>(Control(list));
    if (!combo.Usable()) return;
    for (int i = 0; i < combo.ListCount(); ++i) {
      if (combo.ItemData(i) == *code) return SetIfUsable(list, -1, i);
    }
    throw StepError("the dialog offers no quotation mark with the code " + std::to_string(*code));
  }
  void Click(const char* button) {
    Step step;
    step.kind = Step::Kind::kClick;
    step.control = {button};
    Do(step);
  }
  void Select(const char* list, const std::u16string& item, bool on) {
    Step step;
    step.kind = Step::Kind::kSelect;
    step.control = {list};
    step.items = {item};
    step.on = on;
    Do(step);
  }
  void SelectAll(const char* list) {
    Step step;
    step.kind = Step::Kind::kSelect;
    step.control = {list};
    step.select = Step::Select::kAll;
    Do(step);
  }
  std::vector<std::u16string> Entries(const char* list) {
    const auto& box = dynamic_cast<const forms::ListBox&>(Control(list));
    std::vector<std::u16string> entries;
    for (int i = 0; i < box.ListCount(); ++i) entries.push_back(box.List(i));
    return entries;
  }
  /// The entries of a list that are a term, as the dialog compares them: whatever blanks stand around them.
  std::vector<std::u16string> EntriesOf(const char* list, const std::u16string& term) {
    std::vector<std::u16string> entries = Entries(list);
    std::erase_if(entries, [&](const std::u16string& entry) { return TrimBlanks(entry) != term; });
    return entries;
  }

 private:
  const forms::Control& Control(const char* name, int index = -1) {
    const forms::Control* control = form_.Find(name, index);
    if (control == nullptr) throw StepError(form_.Name() + " has no control " + name);
    return *control;
  }

  void SetIfUsable(const char* name, int element, std::variant<int, std::u16string> value) {
    if (!Control(name, element).Usable()) return;
    Step step;
    step.kind = Step::Kind::kSet;
    step.control = {name};
    step.value = std::move(value);
    Do(step);
  }

  void Do(const Step& step) {
    DoStep(form_, step);
    stepDone_();
  }

  forms::Form& form_;
  const std::function<void()>& stepDone_;
};

/// Whether a term has something behind its article, and is short enough to be searched for behind a quote; a caret is
/// searched for as two.
bool CanMoveQuote(const std::u16string& term) {
  constexpr std::size_t kLongestSearch = 255;
  const std::size_t blank = term.find(u' ');
  if (blank == std::u16string::npos || term.find_first_not_of(u' ', blank) == std::u16string::npos) return false;
  return 1 + term.size() + static_cast<std::size_t>(std::count(term.begin(), term.end(), u'^')) <= kLongestSearch;
}

template <class Enum>
std::optional<int> Element(std::optional<Enum> value) {
  return value ? std::optional<int>(static_cast<int>(*value)) : std::nullopt;
}

std::u16string Trimmed(const std::string& text) { return std::u16string(TrimBlanks(FromUtf8(text))); }

}  // namespace

IndexAnswers::IndexAnswers(IndexOptions options) : options_(std::move(options)) {}

os::Pressed IndexAnswers::ChooseButton(std::u16string_view title, os::Buttons buttons) {
  return DefaultButton(title, buttons);
}

std::u16string IndexAnswers::ChooseFile(std::u16string_view title) {
  if (title != kLoadTitle) return {};
  if (!loadPending_) {
    Fail("the term list " + *options_.load + " was not loaded");
    return {};
  }
  loadPending_ = false;
  return FromUtf8(*options_.load);
}

void IndexAnswers::LoadList(forms::Form& form, const std::function<void()>& stepDone) {
  Steps steps(form, stepDone);
  loadPending_ = true;
  steps.Click("cmdLoadSavedList");
  if (Failure().empty()) steps.SelectAll("lstAddTerms");
}

void IndexAnswers::WorkIn(forms::Form& form, const std::function<void()>& stepDone) {
  try {
    if (form.Name() == "frmKVXOptions") {
      SetOptions(form, stepDone);
    } else if (form.Name() == "frmKVXRemoveArticles" && options_.fixArticles) {
      MoveArticles(form, stepDone);
    } else if (form.Name() == "frmKVX_COM") {
      if (!options_.searchOnly) ChooseTerms(form, stepDone);
    } else {
      WorkByDefault(form, stepDone);
    }
  } catch (const StepError& error) {
    Fail(error.what());
  }
}

void IndexAnswers::SetOptions(forms::Form& form, const std::function<void()>& stepDone) {
  Steps steps(form, stepDone);
  // What enables or ticks another control comes before it.
  steps.Choose("optSearchType", Element(options_.search));
  steps.Tick("chkBold", options_.bold);
  steps.ChooseQuote("cmbOpenQuote", options_.openQuote);
  steps.ChooseQuote("cmbCloseQuote", options_.closeQuote);
  steps.Tick("chkCaseSensitive", options_.matchCase);
  steps.Tick("chkIndexCaps", options_.caps);
  steps.Tick("chkIgnoreNums", options_.ignoreNumbers);
  steps.Tick("chkHighlight", options_.highlight);
  steps.Choose("optIndexWhat", Element(options_.what));
  steps.Tick("chkIncludeNotUsed", options_.notUsed);
  steps.Tick("chkIncludeNotFound", options_.notFound);
  if (options_.columns) steps.Type("txtCols", std::to_string(*options_.columns));
  steps.Type("txtSep", options_.separator);
  steps.Tick("chkTabSep", options_.tab);
  steps.Click("cmdOK");
}

void IndexAnswers::MoveArticles(forms::Form& form, const std::function<void()>& stepDone) {
  Steps steps(form, stepDone);
  std::vector<std::u16string> movable = steps.Entries("lstTerms");
  std::erase_if(movable, [](const std::u16string& term) { return !CanMoveQuote(term); });
  for (const std::u16string& term : movable) steps.Select("lstTerms", term, true);
  steps.Click("cmdOK");
}

void IndexAnswers::ChooseTerms(forms::Form& form, const std::function<void()>& stepDone) {
  if (options_.load) LoadList(form, stepDone);
  if (!Failure().empty()) return;
  Steps steps(form, stepDone);
  if (options_.onlyAdded) steps.Click("cmdDeselectAllTermsInDoc");
  for (const std::string& term : options_.exclude) {
    for (const std::u16string& entry : steps.EntriesOf("lstTermsInDoc", Trimmed(term))) {
      steps.Select("lstTermsInDoc", entry, false);
    }
  }
  for (const std::string& term : options_.add) {
    const std::u16string text = Trimmed(term);
    const std::vector<std::u16string> found = steps.EntriesOf("lstTermsInDoc", text);
    for (const std::u16string& entry : found) steps.Select("lstTermsInDoc", entry, true);
    if (found.empty() && !text.empty() && steps.EntriesOf("lstAddTerms", text).empty()) {
      steps.Type("txtAddTerm", ToUtf8(text));
      steps.Click("cmdAddTerm");
    }
  }
  steps.Click("cmdOK");
}

}  // namespace unattended
