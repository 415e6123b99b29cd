#include "apps/KVXDLLCOM/AddInServices.h"

#include "hosts/com/Library.h"
#include "hosts/com/TermMarkerClient.h"
#include "hosts/win32/Wide.h"

#include <string>

namespace {

std::u16string FolderOf(HMODULE library) {
  std::wstring file(32768, L'\0');
  file.resize(GetModuleFileNameW(library, file.data(), static_cast<DWORD>(file.size())));
  return win32::FromWide(file.substr(0, file.rfind(L'\\')));
}

}  // namespace

Host AddInServices::Services() {
  return {.forms = forms_,
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
          .locale = locale_,
          .addInFolder = FolderOf(com::ThisModule()),
          .createTermMarker = &com::CreateTermMarker};
}
