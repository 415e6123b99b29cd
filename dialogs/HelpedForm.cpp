#include "dialogs/HelpedForm.h"

#include "addin/modCommonErrorMsgs.h"
#include "dialogs/frmKVXAbout_COM.h"

#include <utility>

HelpedForm::HelpedForm(const Host& host, std::string name, HelpTopic topic)
    : Form(host.forms, std::move(name)), services_(host), topic_(topic) {}

void HelpedForm::OnHelp(forms::Control&) { ShowsTopic(topic_)(); }

std::function<void()> HelpedForm::ShowsTopic(HelpTopic topic) {
  return Trapped(u"Error showing help", [this, topic] { OpenHelpTopic(services_, kHelpFile, topic, *this); });
}

std::function<void()> HelpedForm::ShowsInstructions(PaperSize paper) {
  return Trapped(u"Error opening instructions", [this, paper] { OpenInstructions(services_, paper, *this); });
}

std::function<void()> HelpedForm::ShowsFAQ() {
  return Trapped(u"Error opening FAQ", [this] { OpenFAQ(services_, *this); });
}

std::function<void()> HelpedForm::ShowsAbout() {
  return Trapped(u"Error showing the About box", [this] { ShowAbout(services_); });
}

std::function<void()> HelpedForm::Trapped(std::u16string_view title, std::function<void()> body) {
  return [this, title, step = std::move(body)] { TrapErrors(services_.messages, title, step); };
}
