#pragma once

#include <string>
#include <vector>

#include "dialogs/HelpedForm.h"
#include "platform/forms/Control.h"

/// The small form in which the user ticks the terms whose opening quote is to go past their article. Tag() is "OK"
/// after its OK button, "Cancel" otherwise.
class frmKVXRemoveArticles : public HelpedForm {
 public:
  /// The host outlives the form. @param terms what is listed, unticked
  frmKVXRemoveArticles(const Host& host, const std::vector<std::u16string>& terms);

  forms::TextBox txtInstrux{*this, "txtInstrux", true};
  forms::ListBox lstTerms{*this, "lstTerms", true};
  forms::Button cmdOK{*this, "cmdOK"};
  forms::Button cmdCancel{*this, "cmdCancel"};

  /// In the order of the list.
  std::vector<std::u16string> TickedTerms() const;

 protected:
  forms::Layout MakeLayout() override;
  void OnQueryUnload(forms::UnloadReason reason) override;

 private:
  void End(std::u16string_view result);
};
