#pragma once

#include "dialogs/HelpedForm.h"
#include "platform/forms/Control.h"
#include "settings/modIniFile.h"

/// Reminds a new user how defined terms have to be formatted to be found.
class frmKVXFormatInstrux : public HelpedForm {
 public:
  /// Both outlive the form.
  frmKVXFormatInstrux(const Host& host, modIniFile& ini);

  forms::Label lblFormatInstrux{*this, "lblFormatInstrux"};
  forms::CheckBox chkDontShow{*this, "chkDontShow"};
  forms::Button cmdOK{*this, "cmdOK"};

 protected:
  forms::Layout MakeLayout() override;

 private:
  void cmdOK_Click();

  modIniFile& ini_;
};
