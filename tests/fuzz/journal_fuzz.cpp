// Any bytes as the journal of a run over many files: it is refused in a sentence, or whatever it says, a document that
// is done after it is known as done when the run goes on.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "apps/kelvarin/Journal.h"
#include "apps/kelvarin/Status.h"

namespace {

namespace fs = std::filesystem;

constexpr char kOptions[] = "options";
constexpr char kBeginning[] = "{\"kelvarinJournal\":1,\"options\":\"options\"}\n";

void Require(bool good) {
  if (!good) std::abort();
}

void Write(const fs::path& file, const std::string& content) { std::ofstream(file, std::ios::binary) << content; }

/// The journal has nowhere else to look for folders that it names.
class Folder {
 public:
  Folder() {
    std::string name = (fs::temp_directory_path() / "journal_fuzz-XXXXXX").string();
    Require(mkdtemp(name.data()) != nullptr);
    path_ = name;
    setenv("TMPDIR", name.c_str(), 1);
    Write(path_ / "contract.docx", "contract");
    Write(path_ / "indexed.docx", "indexed");
  }
  ~Folder() { fs::remove_all(path_); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  fs::path operator/(const char* name) const { return path_ / name; }

 private:
  fs::path path_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Folder folder;
  const fs::path file = folder / "journal";
  const Input input{.file = folder / "contract.docx", .name = "contract.docx"};
  const fs::path target = folder / "indexed.docx";

  const std::string bytes(reinterpret_cast<const char*>(data), size);
  // Most made-up beginnings end the matter.
  Write(file, size > 0 && (data[0] & 1) != 0 ? kBeginning + bytes : bytes);
  try {
    Journal journal(file, kOptions);
    if (journal.Find(input, target) == Journal::Known::kDone) journal.Recall(input);
    journal.SweepAfter(input, target);
    journal.Append(Journal::Record(input, IdentityOf(input.file), target, {.report = "report"}));
  } catch (const Failure& failure) {
    Require(failure.what()[0] != '\0');
    return 0;
  }
  const Journal again(file, kOptions);
  Require(again.Find(input, target) == Journal::Known::kDone);
  Require(again.Recall(input).report == "report");
  return 0;
}
