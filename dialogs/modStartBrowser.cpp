#include "dialogs/modStartBrowser.h"

#include "platform/forms/FormHost.h"
#include "platform/os/Messages.h"
#include "platform/os/Shell.h"

#include <string>

void StartBrowser(const Host& host, std::u16string_view verb, std::u16string_view path, forms::Form& form) {
  if (host.shell.Open(verb, path, host.forms.WindowHandle(form))) return;
  host.messages.Show(u"Cannot open", std::u16string(path) + u"\r\n\r\ncould not be opened.", os::Icon::kExclamation,
                     os::Buttons::kOk);
}
