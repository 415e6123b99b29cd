#pragma once

#include "platform/forms/Form.h"

namespace fakes {

/// The few controls of the terms dialog that searches and the engine write to.
class TermListForm : public forms::Form {
 public:
  explicit TermListForm(forms::FormHost& host) : Form(host, "TermListForm") {}

  forms::ListBox lstTermsInDoc{*this, "lstTermsInDoc"};
  forms::ListBox lstAddTerms{*this, "lstAddTerms"};
  forms::Label lblTermsInDoc{*this, "lblTermsInDoc"};
  forms::StatusBar StatusBar1{*this, "StatusBar1"};

 protected:
  forms::Layout MakeLayout() override { return {}; }
};

}  // namespace fakes
