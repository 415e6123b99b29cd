#include "apps/kelvarin/Session.h"

#include <system_error>
#include <type_traits>

#include "apps/kelvarin/Cursor.h"
#include "apps/kelvarin/Status.h"
#include "hosts/linux/AtomicFile.h"
#include "hosts/linux/Paths.h"
#include "hosts/recording/Recording.h"
#include "hosts/unattended/Text.h"
#include "marker/MakeTermMarker.h"
#include "platform/word/Application.h"
#include "platform/word/Document.h"
#include "settings/Defaults.h"

namespace {

namespace fs = std::filesystem;
using unattended::RunStateOptions;
using Json = nlohmann::ordered_json;

/// Windows' numbers of the attributes that a file can have here.
constexpr int kReadOnlyAttribute = 1;
constexpr int kArchiveAttribute = 32;

constexpr std::u16string_view kNewDocumentName = u"Document1";

int AttributesOf(const fs::path& file) {
  return os::IsReadOnly(file) ? kArchiveAttribute | kReadOnlyAttribute : kArchiveAttribute;
}

PrivateSettings::Source SettingsSource(const Options& options, const RunStateOptions& state) {
  return {.file = options.settings, .writeBack = options.inputs.size() == 1, .applicationData = state.appData};
}

}  // namespace

Session::Session(const fs::path& input, const Options& options, unattended::DialogAnswers& answers,
                 const RunStateOptions& state)
    : options_(options),
      state_(state),
      settings_(SettingsSource(options, state)),
      file_(input, folder_.Path() / "document"),
      attributes_(state.attributes.value_or(AttributesOf(input))),
      folders_(settings_.ApplicationData().string()),
      processes_(state.wordProcesses.value_or(1)),
      userSettings_(profile_, os::ToWindowsPath(settings_.Folder().string())),
      log_(options.transcript ? &transcript_.emplace(transcriptText_) : nullptr),
      watch_(options.progress ? input : fs::path()),
      host_(answers, transcript_ ? &*transcript_ : nullptr, &watch_) {
  if (!state_.noDocument) Open(input);
  ApplyState();
}

void Session::Open(const fs::path& input) {
  std::error_code error;
  const fs::path absolute = fs::absolute(input, error);
  docx::DocumentSettings settings;
  if (state_.newDocument) {
    settings.name = kNewDocumentName;
  } else {
    settings.name = os::ToWindowsPath(absolute.filename().string());
    settings.path = os::ToWindowsPath(absolute.parent_path().lexically_normal().string());
  }
  processor_.Open(docx::Package::Open(input), settings, file_);
}

void Session::ApplyState() {
  for (const auto& [name, value] : state_.options) ApplyOption(name, value);
  if (!HasDocument()) return;
  docx::WindowState& window = processor_.Window();
  window.viewType = state_.viewType.value_or(window.viewType);
  window.splitSpecial = state_.viewSplitSpecial.value_or(window.splitSpecial);
  window.showHiddenText = state_.viewShowHiddenText.value_or(window.showHiddenText);
  window.showAll = state_.viewShowAll.value_or(window.showAll);
}

void Session::ApplyOption(const std::string& name, const RunStateOptions::OptionValue& value) {
  docx::OptionsState& options = processor_.Options();
  const std::pair<const char*, bool docx::OptionsState::*> known[] = {
      {"AutoFormatAsYouTypeReplaceQuotes", &docx::OptionsState::autoFormatAsYouTypeReplaceQuotes},
      {"AllowFastSave", &docx::OptionsState::allowFastSave},
      {"CheckSpellingAsYouType", &docx::OptionsState::checkSpellingAsYouType},
      {"CheckGrammarAsYouType", &docx::OptionsState::checkGrammarAsYouType},
      {"Pagination", &docx::OptionsState::pagination},
  };
  for (const auto& [knownName, member] : known) {
    if (name != knownName) continue;
    const bool* flag = std::get_if<bool>(&value);
    const int* number = std::get_if<int>(&value);
    if (flag == nullptr && number == nullptr) break;
    options.*member = flag != nullptr ? *flag : *number != 0;
    return;
  }
  throw Failure(kUnreadable,
                "the answers file sets the option " + name + ", which there is not, or not to such a value");
}

void Session::PlaceCursor() {
  docx::SelectionState selection;
  if (!options_.at && state_.cursor) {
    selection = {.story = state_.cursor->story, .start = state_.cursor->start, .end = state_.cursor->end};
  } else {
    selection = FindPlace(processor_.Application()->ActiveDocument(), options_.at.value_or(CursorPlace{}));
  }
  if (!processor_.Select(selection)) throw Failure(kStopped, "the document has no such place for the cursor");
}

std::unique_ptr<TermMarker> Session::MakeMarker() { return recording::Record(MakeTermMarker(characters_), log_); }

word::ApplicationPtr Session::Application() {
  word::ApplicationPtr application = processor_.Application();
  return transcript_ ? recording::Record(std::move(application), log_) : application;
}

void Session::Run(const std::function<void(Connect&)>& command) {
  if (HasDocument()) PlaceCursor();
  const Host services{
      .forms = host_,
      .messages = host_,
      .profile = profile_,
      .files = files_,
      .folders = folders_,
      .characters = characters_,
      .processes = processes_,
      .userSettings = userSettings_,
      .createTermMarker = [this] { return MakeMarker(); },
  };
  {
    Connect addIn(services);
    addIn.OnConnection(Application(), static_cast<ConnectMode>(state_.connectMode.value_or(0)));
    addIn.OnStartupComplete();
    command(addIn);
    addIn.OnDisconnection(DisconnectMode::kHostShutdown);
  }
  End();
}

void Session::RemoveIndexing() {
  const word::ApplicationPtr application = Application();
  const word::DocumentPtr document = application->ActiveDocument();
  const std::unique_ptr<TermMarker> marker = MakeMarker();
  marker->RemoveIndexEntries(application, document, false);
  document->UndoClear();
  marker->RemoveIndex(application, document, true);
  document->UndoClear();
  marker->RemoveTermHighlighting(document);
  document->UndoClear();
  End();
}

void Session::End() {
  if (transcript_) transcript_->State(StateAtEnd());
  settings_.WriteBack();
}

std::string Session::SearchType() {
  return unattended::ToUtf8(
      profile_.Read(kDefaultsSection, u"SearchType", u"", 255, os::ToWindowsPath(settings_.File().string())));
}

Json Session::StateAtEnd() {
  Json state = Json::object();
  if (HasDocument()) {
    if (processor_.Application()->ActiveDocument()->Path().empty()) state["new"] = true;
    state["attributes"] = attributes_;
    const docx::SelectionState selection = processor_.Selection();
    state["cursor"] = {{"story", selection.story}, {"start", selection.start}, {"end", selection.end}};
    const docx::WindowState& window = processor_.Window();
    state["view"] = {{"type", window.viewType},
                     {"splitSpecial", window.splitSpecial},
                     {"showHiddenText", window.showHiddenText},
                     {"showAll", window.showAll}};
  } else {
    state["noDocument"] = true;
  }
  const docx::OptionsState& options = processor_.Options();
  state["options"] = {{"AutoFormatAsYouTypeReplaceQuotes", options.autoFormatAsYouTypeReplaceQuotes},
                      {"AllowFastSave", options.allowFastSave},
                      {"CheckSpellingAsYouType", options.checkSpellingAsYouType},
                      {"CheckGrammarAsYouType", options.checkGrammarAsYouType},
                      {"Pagination", options.pagination}};
  state["wordProcesses"] = state_.wordProcesses.value_or(1);
  state["connectMode"] = state_.connectMode.value_or(0);
  if (state_.addInFolder) state["addInFolder"] = *state_.addInFolder;
  if (state_.appData) state["appData"] = *state_.appData;
  state["displayOnConnect"] = unattended::ToUtf8(userSettings_.Read(u"Settings", u"DisplayOnConnect", u"0"));
  return state;
}
