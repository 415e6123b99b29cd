#include "dialogs/modHelpLinks.h"

#include "dialogs/modStartBrowser.h"
#include "platform/forms/FormHost.h"
#include "platform/os/Files.h"
#include "platform/os/Help.h"
#include "platform/os/Messages.h"

#include <string>

namespace {

constexpr std::u16string_view kFaqAddress = u"https://kelvarin.example/faq";

std::u16string Beside(const Host& host, std::u16string_view name) { return host.addInFolder + std::u16string(name); }

}  // namespace

void OpenHelpTopic(const Host& host, std::u16string_view fileName, int topic, forms::Form& form) {
  const std::u16string path = host.addInFolder + u"\\" + std::u16string(fileName);
  const std::intptr_t owner = host.forms.WindowHandle(form);
  if (topic < 1) {
    host.help.Show(path, os::kHelpContents, 0, owner);
  } else {
    host.help.Show(path, os::kHelpContext, topic, owner);
  }
}

void OpenFAQ(const Host& host, forms::Form& form) {
  const std::u16string file = Beside(host, u"\\kvxfaq.htm");
  StartBrowser(host, u"Open", host.files.FileExists(file) ? std::u16string_view(file) : kFaqAddress, form);
}

void OpenInstructions(const Host& host, PaperSize paper, forms::Form& form) {
  const std::u16string file =
      Beside(host, paper == PaperSize::kLetter ? u"\\KVX Instructions LTR.pdf" : u"\\KVX Instructions A4.pdf");
  if (host.files.FileExists(file)) return StartBrowser(host, u"open", file, form);
  host.messages.Show(u"File not found",
                     u"The instructions file could not be found.  "
                     u"Please reinstall Kelvarin, or write to support@kelvarin.example.",
                     os::Icon::kExclamation, os::Buttons::kOk);
}
