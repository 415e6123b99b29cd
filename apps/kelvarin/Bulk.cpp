#include "apps/kelvarin/Bulk.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <map>
#include <memory>
#include <optional>
#include <system_error>
#include <vector>

#include "apps/kelvarin/BatchProgress.h"
#include "apps/kelvarin/Identity.h"
#include "apps/kelvarin/Journal.h"
#include "apps/kelvarin/Messages.h"
#include "apps/kelvarin/Output.h"
#include "apps/kelvarin/PrivateFolder.h"
#include "apps/kelvarin/Report.h"
#include "apps/kelvarin/Status.h"
#include "hosts/linux/AtomicFile.h"

namespace {

namespace fs = std::filesystem;

constexpr char kTemporaryFolderVariable[] = "TMPDIR";

std::uint64_t SizeOf(const fs::path& file) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(file, error);
  return error ? 0 : size;
}

std::string FailedReport(const fs::path& file, const std::string& reason) {
  Report report(file);
  report.AddReason(reason);
  return report.Line();
}

std::unique_ptr<Journal> OpenJournal(const Options& options) {
  if (!options.journal.file) return nullptr;
  std::error_code error;
  const bool noFolder = !options.journal.kept && !fs::is_directory(*options.output.folder, error);
  // Each file will say what is wrong with the folder.
  if (noFolder) return nullptr;
  return std::make_unique<Journal>(*options.journal.file, options.journal.options);
}

/// Journal and report may lie in it, too.
void MakeResultFolder(const Options& options) {
  std::error_code error;
  if (options.output.folder) fs::create_directories(*options.output.folder, error);
}

class ManyFiles : public BatchWatch {
 public:
  ManyFiles(const Options& options, const FileWork& work, const TakeResult& take)
      : options_(options), work_(work), take_(take) {
    MakeResultFolder(options);
    journal_ = OpenJournal(options);
    for (const std::optional<fs::path>& target : {options.report, options.transcript, options.html}) {
      if (journal_ && target && *target != "-") journal_->SweepAfterRuns(*target);
    }
    if (options.report) reports_.emplace(*options.report);
    if (options.transcript) transcripts_.emplace(*options.transcript);
    if (journal_) journal_->NoteRun(temporary_.Path());
    setenv(kTemporaryFolderVariable, temporary_.Path().c_str(), 1);
    Sort();
  }

  int Run() {
    std::uint64_t bytes = 0;
    for (const Task& task : tasks_) bytes += task.bytes;
    progress_.emplace(options_.progress, options_.inputs.size(), bytes);
    EmitReady();
    const BatchLimits limits{.jobs = options_.jobs, .time = std::chrono::seconds(options_.timeLimit)};
    const int signal = RunBatch(
        tasks_.size(), limits, [this](std::size_t task) { return Work(tasks_[task]); }, *this);
    if (signal != 0 && next_ < options_.inputs.size()) return Interrupted(signal);
    progress_->End("finished");
    if (reports_) reports_->Finish();
    if (transcripts_) transcripts_->Finish();
    if (journal_ && !options_.journal.kept) journal_->Remove();
    return status_;
  }

  /// 0: it was not
  int InterruptedBy() const { return interruptedBy_; }

  void Begun(std::size_t number, pid_t process) override {
    if (journal_) journal_->Begin(InputOf(number), process);
  }

  void Ended(std::size_t number, FileResult result, pid_t process, const std::string& died) override {
    const Task& task = tasks_[number];
    const Input& input = InputOf(number);
    if (!died.empty()) {
      const std::string reason = "could not be worked on: " + died;
      Say(input.file, reason);
      result.report = FailedReport(input.file, reason);
      if (process != 0) os::SweepTemporaries(ResultOf(options_.output, input).value_or(fs::path()), process);
    }
    if (journal_ && !result.record.empty()) journal_->Append(result.record);
    progress_->Count(result.status != kDone, task.bytes);
    waiting_.emplace(task.input, std::move(result));
    EmitReady();
  }

  void Tick() override { progress_->Tick(); }

 private:
  struct Task {
    std::size_t input;
    std::uint64_t bytes;
    bool mayReplace;
  };

  const Input& InputOf(std::size_t task) const { return options_.inputs[tasks_[task].input]; }

  /// Parts what is left to do from what an earlier run did.
  void Sort() {
    recalled_.resize(options_.inputs.size());
    for (std::size_t i = 0; i < options_.inputs.size(); ++i) {
      const Input& input = options_.inputs[i];
      const fs::path target = ResultOf(options_.output, input).value_or(fs::path());
      const Journal::Known known = journal_ ? journal_->Find(input, target) : Journal::Known::kNothing;
      recalled_[i] = known == Journal::Known::kDone;
      if (recalled_[i]) continue;
      if (known == Journal::Known::kBegun) journal_->SweepAfter(input, target);
      tasks_.push_back({i, SizeOf(input.file), known == Journal::Known::kBegun});
    }
  }

  /// Runs in the process of the task.
  FileResult Work(const Task& task) const {
    const Input& input = options_.inputs[task.input];
    if (options_.progress) ShareProgressLine();
    if (!input.problem.empty()) {
      Say(input.file, input.problem);
      return {.status = kUnreadable, .report = FailedReport(input.file, input.problem)};
    }
    Options own = options_;
    own.inputs = {input};
    own.output.name = input.name;
    own.output.force = own.output.force || task.mayReplace;
    own.progress = false;
    std::optional<Identity> before;
    if (journal_) before = IdentityOf(input.file);
    FileResult result = work_(own, input.file);
    if (journal_ && result.status == kDone) {
      const fs::path target = ResultOf(options_.output, input).value_or(fs::path());
      result.record = Journal::Record(input, before, target, result);
    }
    return result;
  }

  void EmitReady() {
    for (; next_ < options_.inputs.size(); ++next_) {
      if (recalled_[next_]) {
        Emit(journal_->Recall(options_.inputs[next_]));
        progress_->Count(false, 0);
        continue;
      }
      const auto ready = waiting_.find(next_);
      if (ready == waiting_.end()) return;
      Emit(ready->second);
      waiting_.erase(ready);
    }
  }

  void Emit(const FileResult& result) {
    status_ = std::max(status_, result.status);
    if (reports_ && !result.report.empty()) reports_->Write(result.report + "\n");
    if (transcripts_) transcripts_->Write(result.transcript);
    take_(result);
  }

  int Interrupted(int signal) {
    progress_->End("interrupted");
    if (journal_) Say("the same command goes on where this run was interrupted");
    interruptedBy_ = signal;
    return std::max<int>(status_, kStopped);
  }

  const Options& options_;
  const FileWork& work_;
  const TakeResult& take_;
  PrivateFolder temporary_;
  std::unique_ptr<Journal> journal_;
  std::optional<TextSink> reports_;
  std::optional<TextSink> transcripts_;
  std::optional<BatchProgress> progress_;

  std::vector<bool> recalled_;
  std::vector<Task> tasks_;
  /// Results whose turn has not come, by their input.
  std::map<std::size_t, FileResult> waiting_;
  std::size_t next_{0};
  int status_{kDone};
  int interruptedBy_{0};
};

}  // namespace

int WorkOnMany(const Options& options, const FileWork& work, const TakeResult& take) {
  int signal = 0;
  int status = kDone;
  {
    ManyFiles files(options, work, take);
    status = files.Run();
    signal = files.InterruptedBy();
  }
  if (signal != 0) {
    std::signal(signal, SIG_DFL);
    std::raise(signal);
  }
  return status;
}
