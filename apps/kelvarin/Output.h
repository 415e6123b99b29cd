#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "apps/kelvarin/Options.h"
#include "hosts/docx/package/Package.h"

namespace os {
class AtomicFile;
}

/// Where the result of an input goes; empty when it goes nowhere.
std::optional<std::filesystem::path> ResultOf(const OutputOptions& output, const Input& input);

/// What tells one content of a file from another, without reading it.
struct FileStamp {
  std::uint64_t device;
  std::uint64_t number;
  std::int64_t size;
  std::int64_t changed;  ///< nanoseconds since 1970

  bool operator==(const FileStamp&) const = default;
};

/// Empty where there is no file.
std::optional<FileStamp> StampOf(const std::filesystem::path& file);

/// Where a result goes.
struct Target {
  std::filesystem::path file;
  /// Whether only the file that was there when the target was chosen may be replaced: work takes its time, and somebody
  /// may save the document meanwhile.
  bool onlyAsItWas;
  /// The file then; empty: there was none.
  std::optional<FileStamp> before;
};

/// The same, made ready to be written; empty when it goes nowhere. To be called before the input is read.
/// @throws Failure when that is the input itself without --in-place, or a file that exists without --force
std::optional<Target> ChooseTarget(const OutputOptions& output, const std::filesystem::path& input);

/// Writes the document so that the target is at every moment the old file or the whole new one.
/// @throws Failure kUnreadable, also for a target that is no more as it was
void WriteDocument(const docx::Package& package, const Target& target);
/// The same to a file that may be replaced however it is.
void WriteDocument(const docx::Package& package, const std::filesystem::path& target);

/// A report, a transcript or a page that is written piece by piece: to standard output at once, and as it can be
/// printed (Printable.h) where that is a terminal; to a file so that it is at every moment the old file or the whole
/// new one.
class TextSink {
 public:
  /// @param target "-" is standard output  @throws Failure kUnreadable, as all members do
  explicit TextSink(const std::filesystem::path& target);
  ~TextSink();

  void Write(const std::string& text);
  /// To be called once, last: without it a file stays as it was.
  void Finish();

 private:
  std::filesystem::path target_;
  /// Absent: standard output.
  std::unique_ptr<os::AtomicFile> file_;
};

/// Writes a report, a transcript or settings in the same way. "-" is standard output. @throws Failure kUnreadable
void WriteText(const std::string& text, const std::filesystem::path& target);

/// The file's bytes. @throws Failure kUnreadable
std::string ReadFile(const std::filesystem::path& file);
