#include "apps/kelvarin/RunWatch.h"

#include <algorithm>

#include "apps/kelvarin/Messages.h"
#include "hosts/unattended/Text.h"
#include "platform/forms/Control.h"

namespace {

bool IsTermsDialog(const forms::Form& form) { return form.Name() == "frmKVX_COM"; }

}  // namespace

void RunWatch::FormShown(const forms::Form& form) {
  if (!IsTermsDialog(form)) return;
  termsShown_ = true;
  ReadFound(form);
}

// The list may have been refreshed meanwhile.
void RunWatch::FormEnded(const forms::Form& form) {
  if (IsTermsDialog(form)) ReadFound(form);
}

void RunWatch::ReadFound(const forms::Form& form) {
  found_.clear();
  const auto& list = dynamic_cast<const forms::ListBox&>(*form.Find("lstTermsInDoc"));
  for (int i = 0; i < list.ListCount(); ++i) found_.push_back(list.List(i));
}

void RunWatch::MessageShown(std::u16string_view title, std::u16string_view text, os::Icon icon, os::Buttons buttons,
                            os::Pressed pressed) {
  const bool asked = icon == os::Icon::kQuestion || (buttons == os::Buttons::kOkCancel && pressed == os::Pressed::kOk);
  messages_.push_back({std::u16string(title), std::u16string(text), icon, asked});
}

bool RunWatch::ToldAnError() const {
  return std::any_of(messages_.begin(), messages_.end(),
                     [](const ShownMessage& message) { return message.icon == os::Icon::kCritical; });
}

void RunWatch::ProgressShown(const unattended::ProgressState& state, unattended::Transcript::Phase phase) {
  if (file_.empty()) return;
  if (phase == unattended::Transcript::Phase::kEnd) return EndProgressLine();
  std::u16string said = state.bar;
  for (auto part = state.lines.rbegin(); part != state.lines.rend(); ++part) said.insert(0, *part + u' ');
  if (said.find_first_not_of(u' ') == std::u16string::npos) return;
  const std::string line = file_.string() + ": " + unattended::ToUtf8(said);
  // Where it is no terminal every line stays, so that each is to say something new.
  if (line == lastLine_) return;
  lastLine_ = line;
  ShowProgressLine({}, line);
}
