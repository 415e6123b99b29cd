#include "apps/kelvarin/Output.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <system_error>

#include "apps/kelvarin/Printable.h"
#include "apps/kelvarin/Status.h"
#include "hosts/linux/AtomicFile.h"

namespace {

namespace fs = std::filesystem;

bool IsSameFile(const fs::path& one, const fs::path& other) {
  std::error_code error;
  return fs::equivalent(one, other, error) && !error;
}

std::span<const std::byte> Bytes(const std::string& text) { return std::as_bytes(std::span(text.data(), text.size())); }

/// Does work on a target's new content.
template <class Work>
auto Guarded(const fs::path& target, Work work) try {
  return work();
} catch (const os::FileError& error) {
  throw Failure(kUnreadable, target.string() + " " + error.what());
}

/// Makes the target's new content by a function that is given the file.
template <class Fill>
void Replace(const fs::path& target, Fill fill) {
  Guarded(target, [&] {
    os::AtomicFile file(target);
    fill(file);
    file.Commit();
  });
}

}  // namespace

std::optional<FileStamp> StampOf(const fs::path& file) {
  constexpr std::int64_t kNanoseconds = 1'000'000'000;
  struct stat status {};
  if (stat(file.c_str(), &status) != 0) return {};
  return FileStamp{.device = status.st_dev,
                   .number = status.st_ino,
                   .size = status.st_size,
                   .changed = status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec};
}

std::optional<fs::path> ResultOf(const OutputOptions& output, const Input& input) {
  if (output.inPlace) return input.file;
  if (!output.file && !output.folder) return {};
  return output.file ? *output.file : *output.folder / input.name;
}

std::optional<Target> ChooseTarget(const OutputOptions& output, const fs::path& input) {
  const std::optional<fs::path> result =
      ResultOf(output, {.file = input, .name = output.name.value_or(input.filename())});
  if (!result) return {};
  if (output.inPlace) return Target{.file = *result, .onlyAsItWas = true, .before = StampOf(*result)};
  const fs::path& target = *result;
  if (IsSameFile(target, input)) {
    throw Failure(kWrongCommandLine, "the result would replace the input; use --in-place for that");
  }
  std::error_code error;
  if (!output.force && fs::exists(fs::symlink_status(target, error))) {
    throw Failure(kUnreadable, target.string() + " exists; use --force to replace it");
  }
  if (output.folder) {
    const fs::path folder = target.parent_path();
    fs::create_directories(folder, error);
    if (error) throw Failure(kUnreadable, folder.string() + " cannot be created: " + error.message());
  }
  return Target{.file = target, .onlyAsItWas = !output.force, .before = {}};
}

void WriteDocument(const docx::Package& package, const Target& target) {
  Replace(target.file, [&](os::AtomicFile& file) {
    package.Write([&file](std::span<const std::byte> bytes) { file.Write(bytes); });
    if (!target.onlyAsItWas || StampOf(target.file) == target.before) return;
    throw Failure(kUnreadable, target.file.string() + (target.before ? " was changed" : " was made by somebody else") +
                                   " while the document was worked on, and stays as it is");
  });
}

void WriteDocument(const docx::Package& package, const fs::path& target) {
  WriteDocument(package, Target{.file = target, .onlyAsItWas = false, .before = {}});
}

TextSink::TextSink(const fs::path& target) : target_(target) {
  if (target_ != "-") file_ = Guarded(target_, [this] { return std::make_unique<os::AtomicFile>(target_); });
}

TextSink::~TextSink() = default;

void TextSink::Write(const std::string& text) {
  if (file_) return Guarded(target_, [&] { file_->Write(Bytes(text)); });
  std::cout << (isatty(STDOUT_FILENO) != 0 ? Printable(text) : text) << std::flush;
  if (!std::cout) throw Failure(kUnreadable, "standard output cannot be written");
}

void TextSink::Finish() {
  if (file_) Guarded(target_, [&] { file_->Commit(); });
}

void WriteText(const std::string& text, const fs::path& target) {
  TextSink sink(target);
  sink.Write(text);
  sink.Finish();
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
