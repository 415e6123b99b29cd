#include "apps/kelvarin/WrittenFiles.h"

#include <sys/stat.h>

#include <CLI/CLI.hpp>
#include <map>

namespace {

namespace fs = std::filesystem;

/// Files that are read or written, by what they are for.
class TakenFiles {
 public:
  void Add(const std::string& purpose, const fs::path& path) {
    if (const std::optional<FileNumber> number = NumberOf(path)) byNumber_.emplace(*number, purpose);
    byPath_.emplace(Canonical(path), purpose);
  }

  /// What a file is taken for; empty: it is not.
  std::string Find(const fs::path& path) const {
    if (const std::optional<FileNumber> number = NumberOf(path)) {
      const auto found = byNumber_.find(*number);
      if (found != byNumber_.end()) return found->second;
    }
    const auto found = byPath_.find(Canonical(path));
    return found == byPath_.end() ? std::string() : found->second;
  }

 private:
  /// Device and number in it.
  using FileNumber = std::pair<dev_t, ino_t>;

  static std::optional<FileNumber> NumberOf(const fs::path& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return {};
    return FileNumber(status.st_dev, status.st_ino);
  }

  static fs::path Canonical(const fs::path& path) {
    std::error_code error;
    return fs::weakly_canonical(fs::absolute(path), error);
  }

  std::map<FileNumber, std::string> byNumber_;
  std::map<fs::path, std::string> byPath_;
};

/// Two inputs of one name would end in one file.
void CheckNames(const Options& options) {
  if (!options.output.folder) return;
  std::map<fs::path, fs::path> names;
  for (const Input& input : options.inputs) {
    if (!input.problem.empty()) continue;
    const auto [other, isNew] = names.emplace(input.name, input.file);
    if (!isNew) {
      throw CLI::ValidationError("--out-dir", other->second.string() + " and " + input.file.string() +
                                                  " have the same name; --base keeps the folders that they are in");
    }
  }
}

/// What is written must not be what is read, nor what something else is written to.
void CheckWritten(const Options& options) {
  TakenFiles taken;
  for (const Input& input : options.inputs) taken.Add("the input", input.file);
  if (options.answers) taken.Add("--answers", *options.answers);
  if (options.index.load) taken.Add("--load", *options.index.load);
  const auto take = [&taken](const char* name, const fs::path& path) {
    std::error_code error;
    // Nothing is lost in a device.
    if (fs::exists(path, error) && !fs::is_regular_file(path, error)) return;
    const std::string other = taken.Find(path);
    if (!other.empty()) {
      throw CLI::ValidationError(
          name, path.string() + " would replace " + other + (other == "the input" ? "; only --in-place may" : ""));
    }
    taken.Add(name, path);
  };
  const OutputOptions& output = options.output;
  if (output.file) take("-o", *output.file);
  if (output.folder) {
    for (const Input& input : options.inputs) {
      if (input.problem.empty()) take("--out-dir", *output.folder / input.name);
    }
  }
  if (options.settings) take("--settings", *options.settings);
  if (options.report && *options.report != "-") take("--report", *options.report);
  if (options.transcript && *options.transcript != "-") take("--transcript", *options.transcript);
  if (options.html && *options.html != "-") take("--html", *options.html);
  if (options.journal.file) take("--journal", *options.journal.file);
}

}  // namespace

void CheckWrittenFiles(const Options& options) {
  CheckNames(options);
  CheckWritten(options);
}
