#include "discovery/DocumentCheck.h"

#include "addin/modCommonErrorMsgs.h"
#include "dialogs/modSaveAsOpenDialog.h"
#include "platform/os/Files.h"
#include "platform/os/Messages.h"
#include "platform/word/Document.h"
#include "platform/word/HostError.h"

#include <string>

using namespace std::string_view_literals;

namespace {

bool AskLeave(os::Messages& messages, std::u16string_view searchType) {
  const std::u16string_view noun =
      searchType == u"SearchInitCaps" ? u"capitalized words and phrases" : u"defined terms";
  std::u16string text = u"Your document needs to be saved before searching for ";
  text.append(noun).append(
      u".  "
      u"If you need to make a safety "
      u"copy of your document, please Cancel and make a safety copy before indexing."
      u"\r\n\r\n"
      u"Click OK to continue, or click "
      u"Cancel to cancel.");
  return messages.Show(u"Save document", text, os::Icon::kInformation, os::Buttons::kOkCancel) == os::Pressed::kOk;
}

/// On purpose no more than the bit alone: a file that has another attribute too is saved in place.
bool IsReadOnly(const word::DocumentPtr& document, os::Files& files) {
  return files.Attributes(document->Path() + u"\\" + document->Name()) == os::kReadOnly;
}

std::u16string ChooseName(os::FileDialogs& dialogs, std::intptr_t hwnd, const std::u16string& proposed) {
  constexpr std::u16string_view kFilter =
      u"Documents (*.doc)\0*.doc\0"
      u"Templates (*.dot)\0*.dot\0"
      u"All files (*.*)\0*.*"sv;
  SaveAsOpenArguments arguments;
  arguments.owner = hwnd;
  arguments.filter = kFilter;
  arguments.fileName = proposed;
  return SaveAsOpenDialog(dialogs, os::FileDialogMode::kSave, arguments);
}

DocumentCheck SaveSomewhere(const word::DocumentPtr& document, std::intptr_t hwnd, const Host& host) {
  while (true) {
    const bool isNew = document->Path().empty();
    const std::u16string proposed = isNew ? document->Name() : u"NewDocument";
    // What was new may have been saved while its name was asked for.
    const bool canSave = isNew ? !document->Path().empty() : !IsReadOnly(document, host.files);
    if (canSave) {
      document->Save();
      return DocumentCheck::kSaved;
    }
    if (!isNew) {
      host.messages.Show(u"Read only document",
                         u"Your source document is read only.  You must save it under a new name to continue.",
                         os::Icon::kInformation, os::Buttons::kOk);
    }
    const std::u16string name = ChooseName(host.fileDialogs, hwnd, proposed);
    if (name.empty()) {
      host.messages.Show(u"Save before continuing", u"Your document must be saved in order to continue.",
                         os::Icon::kInformation, os::Buttons::kOk);
      return DocumentCheck::kStop;
    }
    if (SaveUnderName(document, name, u"Source", host.messages)) return DocumentCheck::kSaved;
  }
}

}  // namespace

DocumentCheck CheckDocumentBeforeSearch(const word::DocumentPtr& document, std::intptr_t hwnd, bool prompt,
                                        std::u16string_view searchType, const Host& host) {
  if (!prompt) return DocumentCheck::kSkipped;
  if (!AskLeave(host.messages, searchType)) return DocumentCheck::kStop;
  DocumentCheck result = DocumentCheck::kStop;
  TrapErrors(host.messages, u"Save document", [&] { result = SaveSomewhere(document, hwnd, host); });
  return result;
}

bool SaveUnderName(const word::DocumentPtr& document, std::u16string_view FileName, std::u16string_view source,
                   os::Messages& messages) {
  try {
    document->SaveAs(FileName);
    return true;
  } catch (const word::HostError& error) {
    std::u16string text(source);
    text.append(u" document could not be saved as\r\n\r\n")
        .append(FileName)
        .append(u"\r\n\r\n")
        .append(error.Description())
        .append(u"\r\n\r\nPlease choose another name or folder.");
    messages.Show(u"Invalid filename", text, os::Icon::kExclamation, os::Buttons::kOk);
    return false;
  }
}
