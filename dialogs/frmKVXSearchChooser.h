#pragma once

#include "dialogs/HelpedForm.h"
#include "platform/forms/Control.h"
#include "settings/modIniFile.h"

/// Asks a new user what kind of search to begin with. Tag() is "OK" after its OK button, "Cancel" after its Cancel
/// button or close box.
class frmKVXSearchChooser : public HelpedForm {
 public:
  /// Both outlive the form.
  frmKVXSearchChooser(const Host& host, modIniFile& ini);

  forms::TextBox txtSearchTypeInstrux{*this, "txtSearchTypeInstrux", true};
  forms::OptionButtons<2> optSearchType{*this, "optSearchType"};
  forms::TextBox txtQuotesExample{*this, "txtQuotesExample", true};
  forms::TextBox txtCapsExample{*this, "txtCapsExample", true};
  forms::CheckBox chkDontShow{*this, "chkDontShow"};
  forms::Button cmdOK{*this, "cmdOK"};
  forms::Button cmdCancel{*this, "cmdCancel"};
  forms::Button cmdHelp{*this, "cmdHelp"};

 protected:
  forms::Layout MakeLayout() override;
  void OnLoad() override;
  void OnQueryUnload(forms::UnloadReason reason) override;

 private:
  void cmdOK_Click();
  void Write(std::u16string_view key, std::u16string_view value);

  modIniFile& ini_;
};
