#pragma once

#include "dialogs/HelpedForm.h"
#include "platform/forms/Control.h"

/// Says what the program is, which version, and on what terms.
class frmKVXAbout_COM : public HelpedForm {
 public:
  /// @param host outlives the form
  explicit frmKVXAbout_COM(const Host& host);

  forms::Label lblProduct{*this, "lblProduct"};
  forms::Label lblVersion{*this, "lblVersion"};
  forms::Label lblNotices{*this, "lblNotices"};
  forms::Button cmdOK{*this, "cmdOK"};

 protected:
  forms::Layout MakeLayout() override;
};

/// Shows the box until it is closed.
void ShowAbout(const Host& host);
