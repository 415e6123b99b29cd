#include "apps/kelvarin/Session.h"

#include <algorithm>
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
#include "platform/word/Range.h"
#include "settings/Defaults.h"

namespace {

namespace fs = std::filesystem;
using unattended::RunStateOptions;
using Json = json::Value;

constexpr std::u16string_view kNewDocumentName = u"Document1";

int AttributesOf(const fs::path& file) { return os::IsReadOnly(file) ? os::kArchive | os::kReadOnly : os::kArchive; }

PrivateSettings::Source SettingsSource(const Options& options, const RunStateOptions& state) {
  return {.file = options.settings, .writeBack = !options.many, .applicationData = state.appData};
}

unattended::PathNames LinuxPathNames() {
  return {.toSystem =
              [](std::u16string_view path) {
                std::error_code failure;
                const fs::path full = fs::absolute(unattended::ToUtf8(path), failure);
                return os::ToWindowsPath(full.lexically_normal().string());
              },
          .toMachine =
              [](std::u16string_view path) {
                std::u16string name;
                // Piece by piece, so that a doubled separator stays one.
                for (std::size_t start = 0; start < path.size();) {
                  const std::size_t end = std::min(path.find(u'\\', start), path.size() - 1) + 1;
                  name += unattended::FromUtf8(os::ToPosixPath(path.substr(start, end - start)));
                  start = end;
                }
                return name;
              }};
}

/// Word loads the add-in when it starts, unless the state says otherwise.
ConnectMode ConnectModeOf(const RunStateOptions& state) {
  return static_cast<ConnectMode>(state.connectMode.value_or(static_cast<int>(ConnectMode::kStartup)));
}

}  // namespace

Session::Session(const fs::path& input, const Options& options, unattended::DialogAnswers& answers,
                 const RunStateOptions& state, std::ostream& transcript)
    : options_(options),
      state_(state),
      settings_(SettingsSource(options, state)),
      file_(input),
      attributes_(state.attributes.value_or(AttributesOf(input))),
      folders_(settings_.ApplicationData().string()),
      processes_(state.wordProcesses.value_or(1)),
      userSettings_(profile_, os::ToWindowsPath(settings_.Folder().string())),
      log_(options.transcript ? &transcript_.emplace(transcript) : nullptr),
      watch_(options.progress ? input : fs::path()),
      host_(answers, transcript_ ? &*transcript_ : nullptr, &watch_),
      services_(answers, transcript_ ? &*transcript_ : nullptr, LinuxPathNames()),
      menuLog_(transcript_ ? &*transcript_ : nullptr) {
  processor_.SetCommandBars(menus_.CommandBars());
  Conduct([&] {
    if (!state_.noDocument) Open(input);
    ApplyState();
  });
}

/// Does work whose failure ends the session.
template <class Work>
void Session::Conduct(Work work) try {
  work();
} catch (...) {
  WriteState();
  throw;
}

void Session::Open(const fs::path& input) {
  std::error_code error;
  const fs::path absolute = fs::absolute(input, error);
  docx::DocumentSettings settings{
      .name = {}, .path = {}, .pages = options_.pages, .readOnly = options_.command == Options::Command::kTerms};
  if (settings.pages == docx::PageSource::kPdf) settings.pdfMaker = &libreOffice_.emplace();
  if (state_.newDocument) {
    settings.name = kNewDocumentName;
  } else {
    settings.name = os::ToWindowsPath(absolute.filename().string());
    settings.path = os::ToWindowsPath(absolute.parent_path().lexically_normal().string());
    files_.SetDocument(settings.path + u"\\" + settings.name, attributes_);
  }
  processor_.Open(docx::Package::Open(input), settings, file_);
}

void Session::ApplyState() {
  std::erase_if(state_.options, [this](const auto& option) { return ApplyOption(option.first, option.second); });
  if (!HasDocument()) return;
  docx::WindowState& window = processor_.Window();
  window.viewType = state_.viewType.value_or(window.viewType);
  window.splitSpecial = state_.viewSplitSpecial.value_or(window.splitSpecial);
  window.showHiddenText = state_.viewShowHiddenText.value_or(window.showHiddenText);
  window.showAll = state_.viewShowAll.value_or(window.showAll);
}

/// @return false for an option that is none of the word processor's, and so is only kept
bool Session::ApplyOption(const std::string& name, const RunStateOptions::OptionValue& value) {
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
    if (flag == nullptr && number == nullptr) {
      throw Failure(kUnreadable, "the answers file sets the option " + name + " to a text; true or false is expected");
    }
    options.*member = flag != nullptr ? *flag : *number != 0;
    return true;
  }
  return false;
}

void Session::PlaceCursor() {
  const auto require = [](bool exists) {
    if (!exists) throw Failure(kStopped, "the document has no such place for the cursor");
  };
  if (!options_.at && state_.cursor) {
    const auto& [story, start, end] = *state_.cursor;
    require(processor_.Select({.story = story, .start = start, .end = end}));
    return;
  }
  const word::RangePtr place =
      FindPlace(processor_.Application()->ActiveDocument(), options_.at.value_or(CursorPlace{}));
  // No insertion point stands behind a story's last mark.
  require(place->Start() < place->StoryLength());
  place->Select();
}

std::unique_ptr<TermMarker> Session::MakeMarker() {
  return recording::Record(MakeTermMarker(characters_, EntryWriting::kByPosition), log_);
}

word::ApplicationPtr Session::Application() {
  word::ApplicationPtr application = processor_.Application();
  return transcript_ ? recording::Record(std::move(application), log_) : application;
}

void Session::Run(const std::function<void(Connect&)>& command) {
  Conduct([&] {
    if (HasDocument()) PlaceCursor();
    Command(command);
  });
  Finish();
}

void Session::Command(const std::function<void(Connect&)>& command) {
  const Host services{
      .forms = host_,
      .messages = host_,
      .profile = profile_,
      .files = files_,
      .folders = folders_,
      .characters = characters_,
      .processes = processes_,
      .userSettings = userSettings_,
      .fileDialogs = services_,
      .shell = services_,
      .help = services_,
      .addInFolder = os::ToWindowsPath(AddInFolder()),
      .createTermMarker = [this] { return MakeMarker(); },
  };
  Connect addIn(services);
  addIn.OnConnection(Application(), ConnectModeOf(state_));
  addIn.OnStartupComplete();
  command(addIn);
  addIn.OnDisconnection(DisconnectMode::kHostShutdown);
}

void Session::Finish() {
  WriteState();
  settings_.WriteBack();
}

std::string Session::AddInFolder() const { return state_.addInFolder.value_or(os::ProgramFolder()); }

void Session::WriteState() {
  if (transcript_) transcript_->State(StateAtEnd());
}

std::string Session::SearchType() {
  return unattended::ToUtf8(
      profile_.Read(kDefaultsSection, u"SearchType", u"", 255, os::ToWindowsPath(settings_.File().string())));
}

Json Session::OptionsAtEnd() const {
  const docx::OptionsState& known = processor_.Options();
  Json options = {{"AutoFormatAsYouTypeReplaceQuotes", known.autoFormatAsYouTypeReplaceQuotes},
                  {"AllowFastSave", known.allowFastSave},
                  {"CheckSpellingAsYouType", known.checkSpellingAsYouType},
                  {"CheckGrammarAsYouType", known.checkGrammarAsYouType},
                  {"Pagination", known.pagination}};
  for (const auto& [name, value] : state_.options) {
    std::visit([&options, &name = name](const auto& given) { options[name] = given; }, value);
  }
  return options;
}

int Session::AttributesAtEnd() {
  const word::DocumentPtr document = processor_.Application()->ActiveDocument();
  return document->Path().empty() ? attributes_ : files_.Attributes(document->Path() + u"\\" + document->Name());
}

Json Session::StateAtEnd() {
  Json state = Json::object();
  if (HasDocument()) {
    if (processor_.Application()->ActiveDocument()->Path().empty()) state["new"] = true;
    state["attributes"] = AttributesAtEnd();
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
  state["options"] = OptionsAtEnd();
  state["wordProcesses"] = state_.wordProcesses.value_or(1);
  state["connectMode"] = static_cast<int>(ConnectModeOf(state_));
  state["addInFolder"] = AddInFolder();
  state["appData"] = state_.appData.value_or(PersonsApplicationData().string());
  state["displayOnConnect"] = unattended::ToUtf8(userSettings_.Read(u"Settings", u"DisplayOnConnect", u"0"));
  return state;
}
