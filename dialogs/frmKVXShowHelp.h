#pragma once

#include "dialogs/HelpedForm.h"
#include "platform/forms/Control.h"
#include "settings/modIniFile.h"

/// Offers a new user help. Tag() is "Yes" after "Yes please", "No" after "No thanks" or the close box.
class frmKVXShowHelp : public HelpedForm {
 public:
  /// Both outlive the form.
  frmKVXShowHelp(const Host& host, modIniFile& ini);

  forms::Label Label1{*this, "Label1"};
  forms::CheckBox chkDontShow{*this, "chkDontShow"};
  forms::Button cmdYes{*this, "cmdYes"};
  forms::Button cmdNo{*this, "cmdNo"};

 protected:
  forms::Layout MakeLayout() override;
  void OnQueryUnload(forms::UnloadReason reason) override;

 private:
  void Close(std::u16string_view answer);
};
