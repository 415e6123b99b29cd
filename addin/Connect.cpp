#include "addin/Connect.h"

#include "addin/modCommonErrorMsgs.h"
#include "platform/os/Processes.h"
#include "platform/os/UserSettings.h"
#include "platform/word/Application.h"
#include "platform/word/HostError.h"
#include "platform/word/Options.h"

#include <utility>

namespace {

/// WdDefaultFilePath: Word's start-up folder.
constexpr int kStartupPath = 8;
constexpr std::u16string_view kStartupName = u"Startup";

constexpr std::u16string_view kSettingsSection = u"Settings";
constexpr std::u16string_view kDisplayOnConnect = u"DisplayOnConnect";

std::u16string_view LastName(std::u16string_view path) { return path.substr(path.rfind(u'\\') + 1); }

}  // namespace

Connect::Connect(const Host& host)
    : host_(host), ini_(host.profile, host.files), settingsFolder_(host.folders, host.files) {}

Connect::~Connect() { ReleaseButtons(); }

void Connect::OnConnection(const word::ApplicationPtr& application, ConnectMode mode) {
  TrapErrors(host_.messages, u"Connecting to Word", [&] {
    wordApp_ = application;
    CreateProgress();
    if (mode != ConnectMode::kExternal && IsOnlyWordProcess()) AddMenu();
  });
}

void Connect::OnStartupComplete() {
  TrapErrors(host_.messages, u"Completing startup", [&] {
    if (!IsOnlyWordProcess()) return;
    CreateTermMarker();
    const std::u16string folder = wordApp_->Options()->DefaultFilePath(kStartupPath);
    const bool named = host_.characters.ToLower(LastName(folder)) == host_.characters.ToLower(kStartupName);
    startupFolder_ = named ? folder + u"\\" : folder + u"\\" + std::u16string(kStartupName) + u"\\";
    dialogOpenedLastTime_ = host_.userSettings.Read(kSettingsSection, kDisplayOnConnect, u"0") == u"1";
  });
}

void Connect::OnDisconnection(DisconnectMode) {
  TrapErrors(host_.messages, u"Disconnecting from Word", [&] {
    if (!IsOnlyWordProcess()) return;
    RemoveMenu();
    host_.userSettings.Write(kSettingsSection, kDisplayOnConnect, running_ ? u"1" : u"0");
    running_ = false;
  });
  ReleaseButtons();
  engine_.reset();
  termMarker_.reset();
  progress_.reset();
  run_ = {};
  wordApp_.reset();
}

int Connect::CountWinwordProcesses() const {
  int count = 0;
  for (const std::u16string& file : host_.processes.ModuleFileNames()) {
    // The file's name on disk is in capitals.
    if (host_.characters.ToLower(LastName(file)) == u"winword.exe") ++count;
  }
  return count;
}

bool Connect::IsOnlyWordProcess() const { return CountWinwordProcesses() < 2; }

void Connect::CreateProgress() { progress_ = std::make_unique<clsProgForm>(host_.forms); }

void Connect::CreateTermMarker() {
  if (!progress_) CreateProgress();
  std::unique_ptr<TermMarker> marker = host_.createTermMarker();
  engine_ = std::make_unique<modKVX>(*marker, *progress_, host_.characters, host_.messages);
  termMarker_ = std::move(marker);
}

void Connect::RequireTermMarker() {
  // Word leaves OnStartupComplete out when the user loads the add-in later.
  if (!termMarker_ && IsOnlyWordProcess()) CreateTermMarker();
  if (!termMarker_) {
    throw word::HostError(word::kObjectNotSet, u"Object variable or With block variable not set", "TermMarker");
  }
}
