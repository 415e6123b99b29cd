#include "apps/desktop/DesktopDocument.h"

#include <span>
#include <system_error>
#include <utility>

#include "apps/kelvarin/Output.h"
#include "apps/kelvarin/Status.h"
#include "hosts/linux/Paths.h"
#include "hosts/unattended/Text.h"
#include "platform/word/HostError.h"

namespace {

namespace fs = std::filesystem;

/// A number that another content hardly ever has.
std::uint64_t Print(const docx::Package& package) {
  std::uint64_t print = 0xcbf29ce484222325;
  package.Write([&print](std::span<const std::byte> bytes) {
    for (const std::byte byte : bytes) print = (print ^ static_cast<std::uint64_t>(byte)) * 0x100000001b3;
  });
  return print;
}

}  // namespace

DesktopDocument::DesktopDocument(fs::path path) : path_(std::move(path)), stamp_(StampNow()) {}

std::optional<DesktopDocument::Stamp> DesktopDocument::StampNow() const {
  std::error_code error;
  const Stamp stamp{fs::last_write_time(path_, error), fs::file_size(path_, error)};
  return error ? std::nullopt : std::optional(stamp);
}

void DesktopDocument::Save(const Current& current) { Write(current(), path_, "Document.Save"); }

void DesktopDocument::SaveAs(std::u16string_view fileName, const docx::Package& package) {
  const fs::path target = os::ToPosixPath(fileName);
  Write(package, target, "Document.SaveAs");
}

void DesktopDocument::Write(const docx::Package& package, const fs::path& target, const char* member) {
  try {
    WriteDocument(package, target);
  } catch (const Failure& failure) {
    throw word::HostError(word::kCannotSaveFile, unattended::FromUtf8(failure.what()), member);
  }
  path_ = target;
  stamp_ = StampNow();
  Remember(package);
}

void DesktopDocument::Remember(const docx::Package& package) { content_ = Print(package); }

bool DesktopDocument::Differs(const docx::Package& package) const { return Print(package) != content_; }

bool DesktopDocument::ChangedOutside() const { return stamp_ && StampNow() && *stamp_ != *StampNow(); }
