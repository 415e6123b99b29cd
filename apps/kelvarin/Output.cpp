#include "apps/kelvarin/Output.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <system_error>

#include "apps/kelvarin/Status.h"
#include "hosts/linux/AtomicFile.h"

namespace {

namespace fs = std::filesystem;

bool IsSameFile(const fs::path& one, const fs::path& other) {
  std::error_code error;
  return fs::equivalent(one, other, error) && !error;
}

std::span<const std::byte> Bytes(const std::string& text) { return std::as_bytes(std::span(text.data(), text.size())); }

/// Makes the target's new content by a function that is given the file.
template <class Fill>
void Replace(const fs::path& target, Fill fill) try {
  os::AtomicFile file(target);
  fill(file);
  file.Commit();
} catch (const os::FileError& error) {
  throw Failure(kUnreadable, target.string() + " " + error.what());
}

}  // namespace

std::optional<fs::path> ChooseTarget(const OutputOptions& output, const fs::path& input) {
  if (output.inPlace) return input;
  if (!output.file && !output.folder) return {};
  const fs::path target = output.file ? *output.file : *output.folder / input.filename();
  if (IsSameFile(target, input)) {
    throw Failure(kWrongCommandLine, "the result would replace the input; use --in-place for that");
  }
  std::error_code error;
  if (!output.force && fs::exists(fs::symlink_status(target, error))) {
    throw Failure(kUnreadable, target.string() + " exists; use --force to replace it");
  }
  if (output.folder) {
    fs::create_directories(*output.folder, error);
    if (error) throw Failure(kUnreadable, output.folder->string() + " cannot be created: " + error.message());
  }
  return target;
}

void WriteDocument(const docx::Package& package, const fs::path& target) {
  Replace(target, [&package](os::AtomicFile& file) {
    package.Write([&file](std::span<const std::byte> bytes) { file.Write(bytes); });
  });
}

void WriteText(const std::string& text, const fs::path& target) {
  if (target == "-") {
    std::cout << text << std::flush;
    if (!std::cout) throw Failure(kUnreadable, "standard output cannot be written");
    return;
  }
  Replace(target, [&text](os::AtomicFile& file) { file.Write(Bytes(text)); });
}

std::string ReadFile(const fs::path& file) {
  std::error_code error;
  if (fs::is_directory(file, error)) throw Failure(kUnreadable, file.string() + " cannot be read: it is a folder");
  std::ifstream in(file, std::ios::binary);
  std::string content{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (!in.is_open() || in.bad()) {
    throw Failure(kUnreadable, file.string() + " cannot be read: " + std::strerror(errno));
  }
  return content;
}
