#pragma once

#include <sys/types.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "apps/kelvarin/Batch.h"
#include "apps/kelvarin/Identity.h"
#include "apps/kelvarin/Inputs.h"
#include "hosts/json/Json.h"

/// The record of a run over many files, a JSON object a line, by which the same run goes on after an interruption. The
/// first line says what the run was asked to do; "begun" lines name a document whose result may have been written,
/// "done" lines one whose result was, with the identities of document and result and with what was reported.
class Journal {
 public:
  /// What the journal knows of an input.
  enum class Known {
    kNothing,
    kBegun,  ///< a result that is there already is the run's own
    kDone,   ///< nothing is left to do: document and result are those of the record
  };

  /// Opens the journal, or begins one. One that was begun for other options is begun anew, which is said.
  /// @param options what the results depend on besides the documents, in one line
  /// @throws Failure kUnreadable when it cannot be opened, is none, or another run works with it
  Journal(std::filesystem::path file, const std::string& options);
  ~Journal();
  Journal(const Journal&) = delete;
  Journal& operator=(const Journal&) = delete;

  /// Looks at the files. @param target where the input's result goes; empty: nowhere
  Known Find(const Input& input, const std::filesystem::path& target) const;
  /// What was reported of an input that is kDone.
  FileResult Recall(const Input& input) const;

  /// Notes the folder for temporary files and the program's process, so that a run that goes on after a kill takes away
  /// what it left.
  void NoteRun(const std::filesystem::path& folder);
  /// Takes away what killed runs left beside a report or another file that they were writing.
  void SweepAfterRuns(const std::filesystem::path& target) const;

  /// A failure to write is said once, and the run goes on without.
  void Begin(const Input& input, pid_t process);
  void Append(const std::string& record);

  /// Takes the temporary file away that a killed process left beside its target.
  void SweepAfter(const Input& input, const std::filesystem::path& target) const;

  /// To be called when all is done: the file goes.
  void Remove();

  /// The line for an input whose work came to its end. Made beside the work, since it reads both files.
  /// @param before the input as it was before the work
  static std::string Record(const Input& input, const std::optional<Identity>& before,
                            const std::filesystem::path& target, const FileResult& result);

 private:
  struct Entry {
    bool begun{false};
    pid_t process{0};
    std::streamoff line{-1};  ///< where its "done" line begins; negative: it has none
  };

  void Read(const std::string& options);
  void Anew(const std::string& options);
  json::Value LineAt(std::streamoff offset) const;

  std::filesystem::path file_;
  int handle_{-1};
  bool saidFailure_{false};
  std::map<std::string, Entry> entries_;
  /// The processes of earlier runs.
  std::vector<pid_t> runs_;
};
