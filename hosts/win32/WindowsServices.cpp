#include "hosts/win32/WindowsServices.h"

#include <windows.h>

#include <commdlg.h>
#include <psapi.h>
#include <shellapi.h>

#include <algorithm>
#include <array>

#include "hosts/win32/Wide.h"
#include "platform/word/HostError.h"

namespace win32 {

namespace {

UINT IconOf(os::Icon icon) {
  switch (icon) {
    case os::Icon::kInformation:
      return MB_ICONINFORMATION;
    case os::Icon::kExclamation:
      return MB_ICONEXCLAMATION;
    case os::Icon::kQuestion:
      return MB_ICONQUESTION;
    case os::Icon::kCritical:
      return MB_ICONERROR;
    case os::Icon::kNone:
      break;
  }
  return 0;
}

UINT ButtonsOf(os::Buttons buttons) {
  switch (buttons) {
    case os::Buttons::kOkCancel:
      return MB_OKCANCEL;
    case os::Buttons::kYesNo:
      return MB_YESNO;
    case os::Buttons::kYesNoCancel:
      return MB_YESNOCANCEL;
    case os::Buttons::kOk:
      break;
  }
  return MB_OK;
}

/// The window of this thread that a dialog has to stand before; nullptr where there is none.
HWND FrontWindow() {
  const HWND active = GetActiveWindow();
  return active != nullptr ? GetAncestor(active, GA_ROOT) : nullptr;
}

class Process {
 public:
  explicit Process(DWORD id) : handle_(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id)) {}
  ~Process() {
    if (handle_ != nullptr) CloseHandle(handle_);
  }
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  /// The file of its first module, which is its program; empty where that may not be known.
  std::u16string ProgramFile() const {
    HMODULE module = nullptr;
    DWORD needed = 0;
    if (handle_ == nullptr || !EnumProcessModules(handle_, &module, sizeof module, &needed)) return {};
    std::array<wchar_t, 32768> name{};
    const DWORD length = GetModuleFileNameExW(handle_, module, name.data(), static_cast<DWORD>(name.size()));
    return FromWide({name.data(), length});
  }

 private:
  HANDLE handle_;
};

std::vector<DWORD> ProcessIds() {
  std::vector<DWORD> ids(1024);
  for (;;) {
    const auto size = static_cast<DWORD>(ids.size() * sizeof(DWORD));
    DWORD needed = 0;
    if (!EnumProcesses(ids.data(), size, &needed)) return {};
    // A list that is full may not be all of it.
    if (needed < size) {
      ids.resize(needed / sizeof(DWORD));
      return ids;
    }
    ids.resize(ids.size() * 2);
  }
}

std::wstring KeyOf(std::u16string_view section) { return L"Software\\Kelvarin\\" + ToWide(section); }

/// With a NUL behind each piece and another at the end.
std::wstring FilterOf(std::u16string_view filter) { return filter.empty() ? L"" : ToWide(filter) + L'\0'; }

using HtmlHelp = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);
constexpr UINT kDisplayContents = 1;
constexpr UINT kDisplayContext = 0xF;
constexpr UINT kCloseAll = 0x12;

HtmlHelp FunctionOf(void* viewer) {
  if (viewer == nullptr) return nullptr;
  const FARPROC found = GetProcAddress(static_cast<HMODULE>(viewer), "HtmlHelpW");
  return reinterpret_cast<HtmlHelp>(reinterpret_cast<void*>(found));
}

}  // namespace

os::Pressed WindowsMessages::Show(std::u16string_view title, std::u16string_view text, os::Icon icon,
                                  os::Buttons buttons) {
  const HWND owner = FrontWindow();
  const UINT front = owner == nullptr ? MB_SETFOREGROUND | MB_TASKMODAL : 0;
  switch (MessageBoxW(owner, ToWide(text).c_str(), ToWide(title).c_str(), IconOf(icon) | ButtonsOf(buttons) | front)) {
    case IDYES:
      return os::Pressed::kYes;
    case IDNO:
      return os::Pressed::kNo;
    case IDCANCEL:
      return buttons == os::Buttons::kOk ? os::Pressed::kOk : os::Pressed::kCancel;
    default:
      return os::Pressed::kOk;
  }
}

std::vector<std::u16string> WindowsProcesses::ModuleFileNames() {
  std::vector<std::u16string> names;
  for (const DWORD id : ProcessIds()) {
    if (id == 0) continue;
    std::u16string name = Process(id).ProgramFile();
    if (!name.empty()) names.push_back(std::move(name));
  }
  return names;
}

std::u16string WindowsUserSettings::Read(std::u16string_view section, std::u16string_view key,
                                         std::u16string_view defaultValue) {
  std::array<wchar_t, 1024> value{};
  DWORD size = sizeof value;
  const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, KeyOf(section).c_str(), ToWide(key).c_str(), RRF_RT_REG_SZ,
                                      nullptr, value.data(), &size);
  return status == ERROR_SUCCESS ? FromWide(value.data()) : std::u16string(defaultValue);
}

void WindowsUserSettings::Write(std::u16string_view section, std::u16string_view key, std::u16string_view value) {
  const std::wstring text = ToWide(value);
  const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  const LSTATUS status =
      RegSetKeyValueW(HKEY_CURRENT_USER, KeyOf(section).c_str(), ToWide(key).c_str(), REG_SZ, text.c_str(), size);
  if (status != ERROR_SUCCESS) {
    throw word::HostError(word::kPathAccess, u"Path/File access error", "UserSettings.Write");
  }
}

std::u16string WindowsFileDialogs::Choose(const os::FileDialog& dialog) {
  std::array<wchar_t, 32768> file{};
  std::copy_n(dialog.fileName.begin(), std::min(dialog.fileName.size(), file.size() - 1), file.begin());
  const std::wstring filter = FilterOf(dialog.filter);
  const std::wstring folder = ToWide(dialog.initialFolder);
  const std::wstring title = ToWide(dialog.title);
  OPENFILENAMEW request{};
  request.lStructSize = sizeof request;
  request.hwndOwner = dialog.owner != 0 ? reinterpret_cast<HWND>(dialog.owner) : FrontWindow();
  request.lpstrFilter = filter.empty() ? nullptr : filter.c_str();
  request.nFilterIndex = static_cast<DWORD>(dialog.filterIndex);
  request.lpstrFile = file.data();
  request.nMaxFile = static_cast<DWORD>(file.size());
  request.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
  request.lpstrTitle = title.empty() ? nullptr : title.c_str();
  request.Flags = dialog.flags;
  const bool chosen =
      (dialog.mode == os::FileDialogMode::kOpen ? GetOpenFileNameW(&request) : GetSaveFileNameW(&request)) != FALSE;
  return chosen ? FromWide(file.data()) : std::u16string();
}

bool WindowsShell::Open(std::u16string_view verb, std::u16string_view path, std::intptr_t owner) {
  constexpr INT_PTR kLastFailure = 32;
  const HINSTANCE result = ShellExecuteW(reinterpret_cast<HWND>(owner), ToWide(verb).c_str(), ToWide(path).c_str(),
                                         nullptr, nullptr, SW_SHOWNORMAL);
  return reinterpret_cast<INT_PTR>(result) > kLastFailure;
}

WindowsHelp::~WindowsHelp() {
  if (const HtmlHelp show = FunctionOf(viewer_)) show(nullptr, nullptr, kCloseAll, 0);
}

void WindowsHelp::Show(std::u16string_view file, int command, int data, std::intptr_t owner) {
  if (viewer_ == nullptr) viewer_ = LoadLibraryExW(L"hhctrl.ocx", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  const HtmlHelp show = FunctionOf(viewer_);
  if (show == nullptr) return;
  const UINT display = command == os::kHelpContext ? kDisplayContext : kDisplayContents;
  show(reinterpret_cast<HWND>(owner), ToWide(file).c_str(), display, static_cast<DWORD_PTR>(data));
}

}  // namespace win32
