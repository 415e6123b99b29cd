#pragma once

#include "dialogs/HelpedForm.h"
#include "platform/forms/Control.h"
#include "settings/modIniFile.h"

/// The small form in which the user chooses other quotation marks to search for. It opens with those of the settings
/// and writes the chosen ones there. Tag() is "OK" after its OK button and empty otherwise.
class frmKVXChangeQuotes : public HelpedForm {
 public:
  /// Both outlive the form.
  frmKVXChangeQuotes(const Host& host, modIniFile& ini);

  forms::Label lblOpenQuote{*this, "lblOpenQuote"};
  forms::ComboBox cmbOpenQuote{*this, "cmbOpenQuote"};
  forms::Label lblCloseQuote{*this, "lblCloseQuote"};
  forms::ComboBox cmbCloseQuote{*this, "cmbCloseQuote"};
  forms::Button cmdOK{*this, "cmdOK"};
  forms::Button cmdCancel{*this, "cmdCancel"};

 protected:
  forms::Layout MakeLayout() override;
  void OnLoad() override;

 private:
  void cmdOK_Click();

  modIniFile& ini_;
};
