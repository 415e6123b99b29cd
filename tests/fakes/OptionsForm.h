#pragma once

#include "platform/forms/Form.h"
#include "settings/OptionControls.h"

namespace fakes {

/// The option controls that both dialogs have, without any rule of a dialog's.
class OptionsForm : public forms::Form {
 public:
  explicit OptionsForm(forms::FormHost& host) : Form(host, "OptionsForm") {}

  forms::OptionButtons<2> optSearchType{*this, "optSearchType"};
  forms::CheckBox chkBold{*this, "chkBold"};
  forms::Label lblOpenQuote{*this, "lblOpenQuote"};
  forms::ComboBox cmbOpenQuote{*this, "cmbOpenQuote"};
  forms::Label lblCloseQuote{*this, "lblCloseQuote"};
  forms::ComboBox cmbCloseQuote{*this, "cmbCloseQuote"};
  forms::CheckBox chkCaseSensitive{*this, "chkCaseSensitive"};
  forms::CheckBox chkIndexCaps{*this, "chkIndexCaps"};
  forms::CheckBox chkIgnoreNums{*this, "chkIgnoreNums"};
  forms::CheckBox chkHighlight{*this, "chkHighlight"};
  forms::OptionButtons<2> optIndexWhat{*this, "optIndexWhat"};
  forms::CheckBox chkIncludeNotUsed{*this, "chkIncludeNotUsed"};
  forms::CheckBox chkIncludeNotFound{*this, "chkIncludeNotFound"};
  forms::TextBox txtCols{*this, "txtCols"};
  forms::TextBox txtSep{*this, "txtSep"};
  forms::CheckBox chkTabSep{*this, "chkTabSep"};

  OptionControls Options() {
    return {optSearchType,      chkBold,      lblOpenQuote,  cmbOpenQuote, lblCloseQuote, cmbCloseQuote,
            chkCaseSensitive,   chkIndexCaps, chkIgnoreNums, chkHighlight, optIndexWhat,  chkIncludeNotUsed,
            chkIncludeNotFound, txtCols,      txtSep,        chkTabSep};
  }

 protected:
  forms::Layout MakeLayout() override { return {}; }
};

}  // namespace fakes
