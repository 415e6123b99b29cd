#include "apps/kelvarin/Inputs.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <iostream>
#include <set>
#include <system_error>

#include "apps/kelvarin/Status.h"

namespace {

namespace fs = std::filesystem;

bool IsWordDocument(const fs::path& file) {
  constexpr std::array<std::string_view, 4> kKinds{".docx", ".docm", ".dotx", ".dotm"};
  std::string kind = file.extension().string();
  std::transform(kind.begin(), kind.end(), kind.begin(), [](unsigned char c) { return std::tolower(c); });
  return std::find(kKinds.begin(), kKinds.end(), kind) != kKinds.end();
}

/// Whether a name is of what no person put there as a document.
bool IsAside(const std::string& name) { return name.starts_with(".") || name.starts_with("~$"); }

fs::path Normal(const fs::path& path) {
  std::error_code error;
  const fs::path absolute = fs::absolute(path, error).lexically_normal();
  return absolute.has_filename() ? absolute : absolute.parent_path();
}

class Finder {
 public:
  explicit Finder(const InputChoice& choice) : choice_(choice) {
    if (choice.base) base_ = Normal(*choice.base);
  }

  void Take(const std::string& operand) {
    if (operand.starts_with("@")) return TakeList(operand.substr(1));
    TakeNamed(operand);
  }

  std::vector<Input> Found() { return std::move(found_); }

 private:
  void TakeList(const std::string& name) {
    std::ifstream file;
    if (name != "-") {
      std::error_code error;
      file.open(name, std::ios::binary);
      if (!file || fs::is_directory(name, error)) throw Failure(kUnreadable, "the list " + name + " cannot be read");
    }
    std::istream& in = name == "-" ? std::cin : file;
    std::string line;
    while (std::getline(in, line)) {
      if (line.ends_with('\r')) line.pop_back();
      if (!line.empty()) TakeNamed(line);
    }
    if (in.bad()) throw Failure(kUnreadable, "the list " + name + " cannot be read");
  }

  void TakeNamed(const fs::path& path) {
    std::error_code error;
    if (!fs::is_directory(path, error)) return Add({.file = path, .name = NameOf(path, path.filename())});
    const std::size_t before = found_.size();
    const std::size_t known = seen_.size();
    TakeFolder(path, path);
    if (found_.size() == before && seen_.size() == known)
      Add({.file = path, .name = {}, .problem = "holds no Word documents"});
  }

  void TakeFolder(const fs::path& folder, const fs::path& top) {
    std::vector<fs::directory_entry> entries;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
      if (!IsAside(entry->path().filename().string())) entries.push_back(*entry);
    }
    if (error) Add({.file = folder, .name = {}, .problem = "cannot be read: " + error.message()});
    std::sort(entries.begin(), entries.end());
    for (const fs::directory_entry& entry : entries) {
      if (entry.is_directory(error)) {
        if (!entry.is_symlink(error) && !IsForResults(entry.path())) TakeFolder(entry.path(), top);
      } else if (IsWordDocument(entry.path()) && entry.is_regular_file(error)) {
        Add({.file = entry.path(), .name = NameOf(entry.path(), entry.path().lexically_relative(top))});
      }
    }
  }

  bool IsForResults(const fs::path& folder) const {
    std::error_code error;
    return choice_.output && fs::equivalent(folder, *choice_.output, error) && !error;
  }

  fs::path NameOf(const fs::path& file, const fs::path& ownName) const {
    if (!choice_.base) return ownName;
    const fs::path name = Normal(file).lexically_relative(base_);
    if (name.empty() || *name.begin() == "..") {
      throw Failure(kWrongCommandLine, file.string() + " does not lie below " + choice_.base->string());
    }
    return name;
  }

  void Add(Input input) {
    if (seen_.insert(Normal(input.file).string()).second) found_.push_back(std::move(input));
  }

  const InputChoice& choice_;
  fs::path base_;
  std::vector<Input> found_;
  std::set<std::string> seen_;
};

}  // namespace

std::vector<Input> FindInputs(const InputChoice& choice) {
  Finder finder(choice);
  for (const std::string& operand : choice.operands) finder.Take(operand);
  return finder.Found();
}
