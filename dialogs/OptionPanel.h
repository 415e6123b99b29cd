#pragma once

#include "platform/forms/Control.h"
#include "settings/OptionControls.h"
#include "settings/modIniFile.h"

/// The search and index options: the controls that the terms dialog and the options dialog both have, and the rules
/// between them. Each dialog places them and may word a caption its own way.
class OptionPanel {
 public:
  OptionPanel(const OptionPanel&) = delete;
  OptionPanel& operator=(const OptionPanel&) = delete;

  forms::Frame frameSearchType;
  forms::OptionButtons<2> optSearchType;
  forms::CheckBox chkBold;
  forms::Label lblOpenQuote;
  forms::ComboBox cmbOpenQuote;
  forms::Label lblCloseQuote;
  forms::ComboBox cmbCloseQuote;
  forms::CheckBox chkCaseSensitive;
  forms::CheckBox chkIndexCaps;
  forms::CheckBox chkIgnoreNums;
  forms::CheckBox chkHighlight;
  forms::Frame frmIndexWhat;
  forms::OptionButtons<2> optIndexWhat;
  forms::CheckBox chkIncludeNotUsed;
  forms::CheckBox chkIncludeNotFound;
  forms::Label lblCols;
  forms::TextBox txtCols;
  forms::UpDown updownCols;
  forms::Label lblSep;
  forms::TextBox txtSep;
  forms::CheckBox chkTabSep;
  forms::Button cmdSetDefaults;

  OptionControls Options();

 protected:
  /// @param ini the holder of blnSuppressEvents; outlives the panel
  OptionPanel(forms::Form& form, modIniFile& ini);
  ~OptionPanel() = default;

  /// A search type was chosen, and the rule for it applied.
  virtual void SearchTypeChosen() {}

  modIniFile& Ini() const { return ini_; }

 private:
  void SetTexts();
  void SetRules();

  modIniFile& ini_;
};
