#include "dialogs/FirstRunPrompts.h"

#include "dialogs/frmKVXFormatInstrux.h"
#include "dialogs/frmKVXSearchChooser.h"
#include "dialogs/frmKVXShowHelp.h"
#include "platform/forms/FormHost.h"
#include "settings/Defaults.h"

namespace {

bool IsWanted(const modIniFile& ini, std::u16string_view key) {
  return ini.ReadIniValue(kDefaultsSection, key) == u"True";
}

}  // namespace

bool ShowFirstRunPrompts(const Host& host, modIniFile& ini) {
  const bool choose = IsWanted(ini, u"ShowSearchChooser");
  if (choose) {
    frmKVXSearchChooser chooser(host, ini);
    host.forms.ShowModal(chooser);
    chooser.Unload();
  }
  if (IsWanted(ini, u"ShowFormatReminder")) {
    frmKVXFormatInstrux reminder(host, ini);
    host.forms.ShowModal(reminder);
    reminder.Unload();
  }
  if (IsWanted(ini, u"ShowHelp")) {
    frmKVXShowHelp offer(host, ini);
    host.forms.ShowModal(offer);
    // What is opened belongs to the form, which has to be there still.
    if (offer.Tag() == u"Yes") OpenHelpTopic(host, kHelpFile, kHelpGettingStarted, offer);
    offer.Unload();
  }
  return choose;
}
