#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <stdexcept>
#include <string>

namespace os {

/// Why a file could not be written. what() is a predicate, to be put behind the file's name:
/// "cannot be written: No space left on device".
class FileError : public std::runtime_error {
 public:
  FileError(const std::string& what, int code) : std::runtime_error(what), code_(code) {}
  /// errno's value
  int Code() const noexcept { return code_; }

 private:
  int code_;
};

/// What a new content survives: the death of the program, or a crash of the machine too, which costs waiting for the
/// disk.
enum class Durability { kProgram, kMachine };

/// A new content for a file. It is written beside its target and takes the target's place in one step, so that at every
/// moment, also when the disk is full or the program is killed, the target is the old file or the whole new one. The
/// target keeps its permissions and, as far as the user may set it, its owner; through a symbolic link the file it
/// points to is replaced.
class AtomicFile {
 public:
  /// @throws FileError when nothing can be created beside the target, when the target is no file, and when it has no
  /// write permission
  explicit AtomicFile(const std::filesystem::path& target, Durability durability = Durability::kMachine);
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;
  /// Without Commit nothing stays behind.
  ~AtomicFile();

  /// @throws FileError
  void Write(std::span<const std::byte> bytes);
  /// The content takes its place, and survives what the durability says. To be called once, last. @throws FileError;
  /// the target is then untouched
  void Commit();

 private:
  [[noreturn]] void Fail(int code);
  void Abandon() noexcept;

  Durability durability_;
  std::filesystem::path target_;
  std::filesystem::path temporary_;
  int file_ = -1;
};

void WriteFileAtomically(const std::filesystem::path& target, std::span<const std::byte> bytes,
                         Durability durability = Durability::kMachine);

/// Takes away what a process that was killed left beside a target. @param process which does not run any more
void SweepTemporaries(const std::filesystem::path& target, int process) noexcept;

/// Whether there is a file without write permission; for the superuser too, whom the system itself lets write.
bool IsReadOnly(const std::filesystem::path& file);

}  // namespace os
