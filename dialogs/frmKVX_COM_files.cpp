#include "dialogs/TermListFile.h"
#include "dialogs/frmKVX_COM.h"
#include "dialogs/modFileTestCode.h"
#include "dialogs/modSaveAsOpenDialog.h"
#include "platform/Text.h"
#include "platform/forms/FormHost.h"
#include "platform/os/Characters.h"
#include "platform/word/HostError.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <set>
#include <string>

namespace {

constexpr std::u16string_view kExtension = u".txt";

/// A description and a pattern.
const std::u16string kTextFilter = std::u16string(u"Text file (.txt)") + u'\0' + u"*.txt";

void ShowInUse(os::Messages& messages) {
  messages.Show(u"File in use/not available",
                u"The filename you specified is in use or not available.  Please try again.", os::Icon::kInformation,
                os::Buttons::kOkCancel);
}

/// Runs what reads or writes a list. Whatever it throws ends it, and is shown.
void TrapFileErrors(os::Messages& messages, std::u16string_view title, std::u16string_view advice,
                    const std::function<void()>& body) {
  try {
    body();
  } catch (const word::HostError& error) {
    std::u16string text = u"Error:  " + Decimal(error.Number()) + u' ' + error.Description() + u"\r\n\r\n";
    text += advice;
    messages.Show(title, text, os::Icon::kExclamation, os::Buttons::kOk);
  }
}

/// Makes each level of a folder that is missing.
void MakeFolders(os::Files& files, std::u16string_view folder) {
  if (folder.empty() || files.FolderExists(folder)) return;
  MakeFolders(files, FolderOf(folder));
  files.CreateFolder(folder);
}

}  // namespace

bool frmKVX_COM::HasTextExtension(std::u16string_view name) {
  const std::u16string ending(name.substr(name.size() - std::min(name.size(), kExtension.size())));
  return Services().characters.ToLower(ending) == kExtension;
}

void frmKVX_COM::cmdLoadSavedList_Click() {
  TrapFileErrors(Services().messages, u"List not loaded",
                 u"Could not open or read the specified folder or file.  Please try again.", [this] {
                   const std::u16string path = ChooseListToLoad();
                   if (!path.empty()) LoadList(path);
                 });
}

std::u16string frmKVX_COM::ChooseListToLoad() {
  while (true) {
    std::u16string path = SaveAsOpenDialog(
        Services().fileDialogs, os::FileDialogMode::kOpen,
        {.owner = Services().forms.WindowHandle(*this), .filter = kTextFilter, .title = u"Load terms list"});
    if (path.empty()) return path;
    if (!HasTextExtension(path)) {
      Services().messages.Show(u"Not a text file",
                               std::u16string(FileNameOf(path)) +
                                   u" is not a text file (*.txt) and cannot be loaded.  "
                                   u"Please try again.",
                               os::Icon::kExclamation, os::Buttons::kOk);
    } else if (FileInUse(Services().files, path)) {
      ShowInUse(Services().messages);
    } else {
      return path;
    }
  }
}

void frmKVX_COM::LoadList(std::u16string_view path) {
  std::set<std::u16string> onList;
  for (int i = 0; i < lstAddTerms.ListCount(); ++i) onList.insert(lstAddTerms.List(i));
  for (const std::u16string& item : ReadTermItems(Services().files.Read(path))) {
    if (onList.insert(item).second) lstAddTerms.AddItem(item);
  }
  SetHorizontalExtent(lstAddTerms);
}

void frmKVX_COM::cmdSaveList_Click(const forms::ListBox& list) {
  TrapFileErrors(Services().messages, u"List not saved",
                 u"Could not save to the specified folder or filename.  Please try again.", [&] {
                   const std::u16string path = ChooseListToSave();
                   if (!path.empty()) SaveList(list, path);
                 });
}

std::u16string frmKVX_COM::ChooseListToSave() {
  while (true) {
    std::u16string path = SaveAsOpenDialog(
        Services().fileDialogs, os::FileDialogMode::kSave,
        {.owner = Services().forms.WindowHandle(*this), .filter = kTextFilter, .title = u"Save terms list"});
    if (path.empty()) return path;
    MakeFolders(Services().files, FolderOf(path));
    if (!FileInUse(Services().files, path)) return path;
    ShowInUse(Services().messages);
  }
}

void frmKVX_COM::SaveList(const forms::ListBox& list, std::u16string_view path) {
  const std::unique_ptr<os::OutputFile> file = Services().files.OpenForOutput(path);
  os::Pressed selectedOnly = os::Pressed::kNo;
  if (list.SelCount() > 0 && list.SelCount() < list.ListCount()) {
    selectedOnly = Services().messages.Show(u"Save all or selected?",
                                            u"Save selected items only?  "
                                            u"Click Yes to save only the selected items, "
                                            u"click No to save all items in the additional terms list.",
                                            os::Icon::kQuestion, os::Buttons::kYesNoCancel);
  }
  if (selectedOnly != os::Pressed::kCancel) {
    for (int i = 0; i < list.ListCount(); ++i) {
      if (selectedOnly == os::Pressed::kNo || list.Selected(i)) file->Write(TermLine(list.List(i)));
    }
  }
  // After Cancel too: the file is then empty.
  file->Close();
}
