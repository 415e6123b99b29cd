#include "apps/KVXDLLCOM/AddInServices.h"

#include <utility>

Host AddInServices::Services(std::u16string addInFolder,
                             std::function<std::unique_ptr<TermMarker>()> createTermMarker) {
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
          .addInFolder = std::move(addInFolder),
          .createTermMarker = std::move(createTermMarker)};
}
