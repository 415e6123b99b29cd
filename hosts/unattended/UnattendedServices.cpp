#include "hosts/unattended/UnattendedServices.h"

#include <utility>

namespace unattended {

namespace {

bool IsWebAddress(std::u16string_view path) { return path.starts_with(u"https://"); }

}  // namespace

UnattendedServices::UnattendedServices(DialogAnswers& answers, Transcript* transcript, PathNames paths)
    : answers_(answers), transcript_(transcript), paths_(std::move(paths)) {}

std::u16string UnattendedServices::Choose(const os::FileDialog& dialog) {
  const bool open = dialog.mode == os::FileDialogMode::kOpen;
  const std::u16string title = !dialog.title.empty() ? dialog.title : open ? u"Open" : u"Save As";
  const std::u16string answer = answers_.AnswerFile(title);
  const std::u16string path = answer.empty() ? answer : paths_.toSystem(answer);
  if (transcript_ != nullptr) {
    transcript_->FileDialog(open ? Transcript::FileMode::kOpen : Transcript::FileMode::kSave, title, dialog.filter,
                            dialog.fileName, paths_.toMachine(path));
  }
  answers_.LeaveFailedStep();
  return path;
}

bool UnattendedServices::Open(std::u16string_view verb, std::u16string_view path, std::intptr_t) {
  if (transcript_ != nullptr)
    transcript_->Open(verb, IsWebAddress(path) ? std::u16string(path) : paths_.toMachine(path));
  return true;
}

void UnattendedServices::Show(std::u16string_view file, int command, int data, std::intptr_t) {
  if (transcript_ != nullptr) transcript_->Help(paths_.toMachine(file), command, data);
}

}  // namespace unattended
