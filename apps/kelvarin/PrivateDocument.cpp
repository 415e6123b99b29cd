#include "apps/kelvarin/PrivateDocument.h"

#include <algorithm>
#include <optional>
#include <system_error>
#include <utility>

#include "apps/kelvarin/Status.h"
#include "hosts/linux/Paths.h"
#include "hosts/unattended/Text.h"
#include "platform/word/HostError.h"

PrivateDocument::PrivateDocument(std::filesystem::path input) : input_(std::move(input)) {}

void PrivateDocument::Save(const Current&) {}

void PrivateDocument::SaveAs(std::u16string_view fileName, const docx::Package& package) {
  const std::filesystem::path target = os::ToPosixPath(fileName);
  std::error_code error;
  if (std::filesystem::equivalent(target, input_, error) && !error) {
    throw word::HostError(word::kCannotSaveFile, u"The document cannot replace the file that it was read from.",
                          "Document.SaveAs");
  }
  try {
    WriteDocument(package, target);
    if (const std::optional<FileStamp> written = StampOf(target)) written_.push_back(*written);
  } catch (const Failure& failure) {
    throw word::HostError(word::kCannotSaveFile, unattended::FromUtf8(failure.what()), "Document.SaveAs");
  }
}

void PrivateDocument::AcceptOwn(Target& target) const {
  const std::optional<FileStamp> now = StampOf(target.file);
  if (now && std::find(written_.begin(), written_.end(), *now) != written_.end()) target.before = now;
}
