#include "apps/desktop/Desktop.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string_view>

#include "dialogs/frmKVXAbout_COM.h"
#include "dialogs/modHelpLinks.h"
#include "hosts/linux/Paths.h"
#include "hosts/unattended/Text.h"
#include "marker/MakeTermMarker.h"
#include "platform/Text.h"
#include "platform/os/Help.h"
#include "platform/word/Application.h"
#include "platform/word/Document.h"
#include "platform/word/HostError.h"
#include "settings/modKVXAppDocsSettingsSubPath.h"

namespace {

namespace fs = std::filesystem;

constexpr std::u16string_view kRecentSection = u"Recent";
constexpr int kMostRecent = 8;

std::u16string RecentKey(int number) { return u"File" + Decimal(number); }

/// Where the settings lie, in Windows form.
std::u16string SettingsFolder(os::LinuxFolders& folders) {
  return folders.SpecialFolder(os::kApplicationData, 0) + u"\\" + std::u16string(modKVXAppDocsSettingsSubPath);
}

std::string Lower(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return text;
}

bool IsKind(std::string_view ending) {
  return ending == ".docx" || ending == ".docm" || ending == ".dotx" || ending == ".dotm";
}

/// Errors of the word processor as the window shows them.
template <class Work>
void Plainly(Work work) {
  try {
    work();
  } catch (const word::HostError& error) {
    throw std::runtime_error(unattended::ToUtf8(error.Description()));
  }
}

}  // namespace

Desktop::Desktop(qt::DocumentWindow& window)
    : forms_(&window),
      messages_(forms_),
      fileDialogs_(forms_, {.toSystem = os::ToWindowsPath, .toMachine = os::ToPosixPath}),
      userSettings_(profile_, SettingsFolder(folders_)),
      shell_(os::ProgramFolder()),
      help_(shell_, messages_),
      host_{
          .forms = forms_,
          .messages = messages_,
          .profile = profile_,
          .files = files_,
          .folders = folders_,
          .characters = characters_,
          .processes = processes_,
          .userSettings = userSettings_,
          .fileDialogs = fileDialogs_,
          .shell = shell_,
          .help = help_,
          .addInFolder = os::ToWindowsPath(os::ProgramFolder()),
          .createTermMarker = [this] { return MakeTermMarker(characters_, EntryWriting::kByPosition); },
      },
      addIn_(host_) {
  processor_.SetCommandBars(menus_.CommandBars());
  addIn_.OnConnection(processor_.Application(), ConnectMode::kStartup);
  addIn_.OnStartupComplete();
}

Desktop::~Desktop() {
  addIn_.OnDisconnection(DisconnectMode::kHostShutdown);
  pages_.reset();
  processor_.Close();
}

void Desktop::Open(const std::string& path) {
  std::error_code error;
  const fs::path absolute = fs::absolute(path, error).lexically_normal();
  docx::DocumentSettings settings{.name = os::ToWindowsPath(absolute.filename().string()),
                                  .path = os::ToWindowsPath(absolute.parent_path().string()),
                                  .pages = docx::PageSource::kAuto,
                                  .drawn = true};
  // The file that is open stays until the next one has been read.
  std::unique_ptr<docx::Package> package = docx::Package::Open(absolute);
  auto file = std::make_unique<DesktopDocument>(absolute);
  pages_.reset();
  try {
    processor_.Open(std::move(package), settings, *file);
  } catch (...) {
    if (processor_.Document() != nullptr) ReadPages();
    throw;
  }
  file_ = std::move(file);
  file_->Remember(processor_.Updated());
  modified_ = false;
  ReadPages();
  Remember(absolute.string());
}

void Desktop::ReadPages() { pages_ = std::make_unique<DocumentPages>(processor_); }

std::string Desktop::Path() const { return file_ ? file_->Path().string() : std::string(); }

void Desktop::Save() {
  Plainly([this] { processor_.Application()->ActiveDocument()->Save(); });
  modified_ = false;
}

void Desktop::SaveAs(const std::string& path) {
  std::error_code error;
  const std::string absolute = fs::absolute(path, error).lexically_normal().string();
  // Word opens no file whose name says another kind of document than its content.
  const std::string ending = Lower(fs::path(Path()).extension().string());
  if (IsKind(ending) && Lower(fs::path(absolute).extension().string()) != ending) {
    throw std::runtime_error(absolute + " cannot be written: the name of this kind of document ends in " + ending);
  }
  Plainly([&] { processor_.Application()->ActiveDocument()->SaveAs(os::ToWindowsPath(absolute)); });
  modified_ = false;
  Remember(absolute);
}

std::vector<std::string> Desktop::Recent() const {
  std::vector<std::string> paths;
  for (int i = 1; i <= kMostRecent; ++i) {
    const std::u16string path = userSettings_.Read(kRecentSection, RecentKey(i), u"");
    if (!path.empty()) paths.push_back(os::ToPosixPath(path));
  }
  return paths;
}

void Desktop::Remember(const std::string& path) {
  std::vector<std::string> paths = Recent();
  std::erase(paths, path);
  paths.insert(paths.begin(), path);
  paths.resize(std::min<std::size_t>(paths.size(), kMostRecent));
  try {
    for (int i = 0; i < static_cast<int>(paths.size()); ++i) {
      userSettings_.Write(kRecentSection, RecentKey(i + 1), os::ToWindowsPath(paths[static_cast<std::size_t>(i)]));
    }
  } catch (const word::HostError&) {
    // A list that cannot be kept is no reason not to work on the document.
  }
}

std::vector<qt::DesktopProgram::Command> Desktop::Tools() { return Commands(menus_.Tools()); }

std::vector<qt::DesktopProgram::Command> Desktop::Commands(const std::vector<std::shared_ptr<menus::Item>>& items) {
  std::vector<Command> commands;
  for (const std::shared_ptr<menus::Item>& item : items) {
    if (!item->visible) continue;
    if (item->beginGroup && !commands.empty()) commands.push_back({});
    if (item->type == office::msoControlPopup) {
      commands.push_back({item->caption, {}, Commands(item->items)});
    } else {
      commands.push_back({item->caption, [this, item] { Run([&] { menus_.Click(item); }); }});
    }
  }
  return commands;
}

std::vector<qt::DesktopProgram::Command> Desktop::Help() {
  const auto topic = [this](int number) {
    help_.Show(host_.addInFolder + std::u16string(kHelpFile), number < 1 ? os::kHelpContents : os::kHelpContext, number,
               0);
  };
  const auto page = [this](std::u16string_view name) {
    const std::u16string path = host_.addInFolder + u"\\" + std::u16string(name);
    if (shell_.Open(u"Open", path, 0)) return;
    messages_.Show(u"Help", u"The help page could not be opened:\r\n\r\n" + path, os::Icon::kExclamation,
                   os::Buttons::kOk);
  };
  return {{u"The document &window", [topic] { topic(kHelpDocumentWindow); }},
          {u"&Contents", [topic] { topic(kHelpContentsPage); }},
          {u"&Getting started", [topic] { topic(kHelpGettingStarted); }},
          {u"&Questions and answers", [page] { page(u"kvxfaq.htm"); }},
          {u"&About Kelvarin", [this] { ShowAbout(host_); }}};
}

void Desktop::Run(const std::function<void()>& command) {
  command();
  if (processor_.Document() == nullptr) return;
  modified_ = file_->Differs(processor_.Updated());
  ReadPages();
}
