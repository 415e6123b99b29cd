#include "apps/kelvarin/RunWatch.h"

#include "apps/kelvarin/Messages.h"
#include "hosts/unattended/Text.h"
#include "platform/forms/Control.h"

void RunWatch::FormShown(const forms::Form& form) {
  if (form.Name() != "frmKVX_COM") return;
  termsShown_ = true;
  found_.clear();
  const auto& list = dynamic_cast<const forms::ListBox&>(*form.Find("lstTermsInDoc"));
  for (int i = 0; i < list.ListCount(); ++i) found_.push_back(list.List(i));
}

void RunWatch::MessageShown(std::u16string_view title, std::u16string_view text, os::Icon icon, os::Pressed) {
  messages_.push_back({std::u16string(title), std::u16string(text), icon});
}

void RunWatch::ProgressShown(const unattended::ProgressState& state, unattended::Transcript::Phase phase) {
  if (file_.empty()) return;
  if (phase == unattended::Transcript::Phase::kEnd) return EndProgressLine();
  std::string line;
  for (const std::u16string& part : state.lines) line += " " + unattended::ToUtf8(part);
  line = file_.string() + ":" + line + " " + unattended::ToUtf8(state.bar);
  // Where it is no terminal every line stays, so that each is to say something new.
  if (line == lastLine_) return;
  lastLine_ = line;
  ShowProgressLine(line);
}
