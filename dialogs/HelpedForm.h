#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "dialogs/modHelpLinks.h"
#include "platform/Host.h"
#include "platform/forms/Form.h"

/// A form of which F1 shows a topic of the help file.
class HelpedForm : public forms::Form {
 public:
  /// What a button, link or menu entry of the form does that shows help.
  std::function<void()> ShowsTopic(HelpTopic topic);
  std::function<void()> ShowsInstructions(PaperSize paper);
  std::function<void()> ShowsFAQ();
  std::function<void()> ShowsAbout();

 protected:
  /// @param host outlives the form
  HelpedForm(const Host& host, std::string name, HelpTopic topic = kHelpGettingStarted);

  void OnHelp(forms::Control& control) override;
  /// An entry point: what the body throws ends in the error box with the title.
  std::function<void()> Trapped(std::u16string_view title, std::function<void()> body);

  const Host& Services() const { return services_; }

 private:
  const Host& services_;
  HelpTopic topic_;
};
