#pragma once

#include "dialogs/HelpMenu.h"
#include "dialogs/OptionPanel.h"
#include "platform/Host.h"
#include "platform/forms/Control.h"

/// The options dialog, shown before a search. Tag() is "OK" after its OK button, "Cancel" after its Cancel button or
/// close box, and "Done" after it was unloaded by code.
class frmKVXOptions : public HelpedForm, public OptionPanel {
 public:
  /// Both outlive the form.
  frmKVXOptions(const Host& host, modIniFile& ini);

  /// "Search options" and "Index options".
  forms::ControlArray<forms::Frame, 2> fraIndex{*this, "fraIndex"};
  forms::Label lblReadme{*this, "lblReadme"};
  forms::LinkLabel lblHelpClick{*this, "lblHelpClick"};
  forms::LinkLabel lblFAQClick{*this, "lblFAQClick"};
  forms::Button cmdOK{*this, "cmdOK"};
  forms::Button cmdCancel{*this, "cmdCancel"};
  HelpMenu menu{*this, u"Getting Started"};

 protected:
  forms::Layout MakeLayout() override;
  void OnQueryUnload(forms::UnloadReason reason) override;

 private:
  void cmdOK_Click();
  void cmdCancel_Click();
};
