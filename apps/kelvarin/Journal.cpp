#include "apps/kelvarin/Journal.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <fstream>
#include <string>
#include <system_error>
#include <thread>

#include "apps/kelvarin/Messages.h"
#include "apps/kelvarin/PrivateFolder.h"
#include "apps/kelvarin/Status.h"
#include "hosts/json/Json.h"
#include "hosts/linux/AtomicFile.h"

namespace {

namespace fs = std::filesystem;
using Json = json::Value;

constexpr char kFirstMember[] = "kelvarinJournal";
constexpr int kFormat = 1;

/// A file's full name in ASCII: names are bytes, of which JSON could not keep all.
std::string KeyOf(const fs::path& file) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::error_code error;
  std::string key;
  for (const char byte : fs::absolute(file, error).lexically_normal().string()) {
    const auto code = static_cast<unsigned char>(byte);
    if (code < 0x80 && byte != '%') {
      key += byte;
    } else {
      key += {'%', kDigits[code / 16], kDigits[code % 16]};
    }
  }
  return key;
}

Json ToJson(const std::optional<Identity>& identity) {
  return identity ? Json{{"size", identity->size}, {"crc32", identity->checksum}} : Json();
}

bool Is(const Json& record, const char* member, const fs::path& file) {
  const std::optional<Identity> identity = IdentityOf(file);
  return identity && record.contains(member) && record.at(member) == ToJson(identity);
}

/// Not for a person: its texts need not be readable, only whole.
std::string Line(const Json& json) { return json::InAscii(json) + "\n"; }

/// Empty where there is none: a journal is a file like any other, and somebody may have written in it.
std::string TextOf(const Json& record, const char* member) {
  const auto found = record.is_object() ? record.find(member) : record.end();
  return found != record.end() && found->is_string() ? found->get<std::string>() : std::string();
}

int NumberOf(const Json& record, const char* member) {
  const auto found = record.is_object() ? record.find(member) : record.end();
  return found != record.end() && found->is_number_integer() ? found->get<int>() : 0;
}

/// One that has ended and that nobody has taken notice of runs no more.
bool Runs(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/stat");
  std::string line;
  std::getline(status, line);
  const std::size_t name = line.rfind(") ");
  const char state = name == std::string::npos || name + 2 >= line.size() ? 'X' : line[name + 2];
  return state != 'Z' && state != 'X';
}

/// Whether a process is gone or soon will be: those of a run that was killed are killed with it, each in its time.
bool Ends(pid_t process) {
  constexpr int kTries = 100;
  constexpr auto kPause = std::chrono::milliseconds(10);
  for (int i = 0; i < kTries && Runs(process); ++i) std::this_thread::sleep_for(kPause);
  return !Runs(process);
}

}  // namespace

Journal::Journal(fs::path file, const std::string& options) : file_(std::move(file)) {
  handle_ = open(file_.c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  if (handle_ < 0) {
    throw Failure(kUnreadable, "the journal " + file_.string() + " cannot be written: " + std::strerror(errno));
  }
  // Given back by the system when the program ends, however it does.
  if (flock(handle_, LOCK_EX | LOCK_NB) != 0) {
    close(handle_);
    throw Failure(kUnreadable, "another run works with the journal " + file_.string());
  }
  try {
    Read(options);
  } catch (...) {
    close(handle_);
    throw;
  }
}

Journal::~Journal() {
  if (handle_ >= 0) close(handle_);
}

void Journal::Read(const std::string& options) {
  std::ifstream in(file_, std::ios::binary);
  std::string line;
  if (!std::getline(in, line)) return Anew(options);
  const Json first = json::ReadOrDiscard(line);
  if (!first.is_object() || !first.contains(kFirstMember)) {
    throw Failure(kUnreadable, file_.string() + " is no journal of a run");
  }
  if (NumberOf(first, kFirstMember) != kFormat || TextOf(first, "options") != options) {
    Say("the journal " + file_.string() + " is of a run with other options or settings: nothing of it counts as done");
    return Anew(options);
  }
  // Its own end was still to be written.
  if (in.eof()) return Anew(options);
  std::streamoff offset = static_cast<std::streamoff>(line.size()) + 1;
  bool whole = true;
  while (std::getline(in, line)) {
    // What was being written when the program was killed has no end.
    whole = !in.eof();
    const Json record = whole ? json::ReadOrDiscard(line) : Json();
    const std::string begun = TextOf(record, "begun");
    const std::string done = TextOf(record, "done");
    if (!begun.empty()) entries_[begun] = {.begun = true, .process = NumberOf(record, "process")};
    if (!done.empty()) entries_[done].line = offset;
    const std::string folder = TextOf(record, "folder");
    if (!folder.empty()) PrivateFolder::RemoveLeft(folder);
    if (const int process = NumberOf(record, "process"); !folder.empty() && process != 0) runs_.push_back(process);
    offset += static_cast<std::streamoff>(line.size()) + 1;
  }
  if (!whole) Append("\n");
}

void Journal::Anew(const std::string& options) {
  if (ftruncate(handle_, 0) != 0) {
    throw Failure(kUnreadable, "the journal " + file_.string() + " cannot be written: " + std::strerror(errno));
  }
  Append(Line({{kFirstMember, kFormat}, {"options", options}}));
}

Json Journal::LineAt(std::streamoff offset) const {
  std::ifstream in(file_, std::ios::binary);
  std::string line;
  in.seekg(offset);
  std::getline(in, line);
  return json::ReadOrDiscard(line);
}

Journal::Known Journal::Find(const Input& input, const fs::path& target) const {
  const auto found = entries_.find(KeyOf(input.file));
  if (found == entries_.end()) return Known::kNothing;
  if (found->second.line >= 0) {
    const Json record = LineAt(found->second.line);
    const bool inPlace = target == input.file;
    const bool whole = record.is_object() && (target.empty() || Is(record, "output", target)) &&
                       (inPlace || Is(record, "input", input.file));
    // A result that is not as the run left it is somebody's work.
    if (!whole) return record.is_object() && Is(record, "output", target) ? Known::kBegun : Known::kNothing;
    return Known::kDone;
  }
  return found->second.begun ? Known::kBegun : Known::kNothing;
}

FileResult Journal::Recall(const Input& input) const {
  const Json record = LineAt(entries_.at(KeyOf(input.file)).line);
  return {.status = kDone,
          .report = TextOf(record, "report"),
          .transcript = TextOf(record, "transcript"),
          .result = TextOf(record, "result")};
}

void Journal::NoteRun(const fs::path& folder) { Append(Line({{"folder", folder.string()}, {"process", getpid()}})); }

void Journal::SweepAfterRuns(const fs::path& target) const {
  for (const pid_t process : runs_) {
    if (!Runs(process)) os::SweepTemporaries(target, process);
  }
}

void Journal::Begin(const Input& input, pid_t process) {
  Append(Line({{"begun", KeyOf(input.file)}, {"process", process}}));
}

void Journal::Append(const std::string& record) {
  // In one piece, so that a kill leaves whole lines and at most one that has no end.
  const ssize_t written = write(handle_, record.data(), record.size());
  if (written == static_cast<ssize_t>(record.size()) || saidFailure_) return;
  saidFailure_ = true;
  Say("the journal " + file_.string() + " cannot be written: " + std::strerror(errno) +
      "; an interrupted run would begin anew");
}

void Journal::SweepAfter(const Input& input, const fs::path& target) const {
  const auto found = entries_.find(KeyOf(input.file));
  if (found == entries_.end() || found->second.process == 0 || target.empty()) return;
  // The number may be another program's by now; its own temporary file would have another name only by chance.
  if (Ends(found->second.process)) os::SweepTemporaries(target, found->second.process);
}

void Journal::Remove() {
  std::error_code error;
  fs::remove(file_, error);
}

std::string Journal::Record(const Input& input, const std::optional<Identity>& before, const fs::path& target,
                            const FileResult& result) {
  Json record{{"done", KeyOf(input.file)}, {"input", ToJson(before)}, {"report", result.report}};
  if (!target.empty()) record["output"] = ToJson(IdentityOf(target));
  if (!result.transcript.empty()) record["transcript"] = result.transcript;
  if (!result.result.empty()) record["result"] = result.result;
  return Line(record);
}
