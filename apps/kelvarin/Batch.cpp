#include "apps/kelvarin/Batch.h"

#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <vector>

#include "apps/kelvarin/Memory.h"
#include "apps/kelvarin/Status.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kAheadForEachJob = 64;
constexpr int kTickMilliseconds = 200;
constexpr std::array kEndings{SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t endingSignal = 0;
volatile std::sig_atomic_t endingSignals = 0;

void NoteSignal(int signal) {
  endingSignal = signal;
  endingSignals = endingSignals + 1;
}

/// Signals that end a program are noted while it exists.
class NotedSignals {
 public:
  NotedSignals() {
    endingSignal = 0;
    endingSignals = 0;
    struct sigaction noted {};
    noted.sa_handler = NoteSignal;
    for (std::size_t i = 0; i < kEndings.size(); ++i) {
      sigaction(kEndings[i], nullptr, &before_[i]);
      // What a parent had ignored, as nohup does, stays so.
      if (before_[i].sa_handler != SIG_IGN) sigaction(kEndings[i], &noted, nullptr);
    }
  }
  ~NotedSignals() {
    for (std::size_t i = 0; i < kEndings.size(); ++i) sigaction(kEndings[i], &before_[i], nullptr);
  }
  NotedSignals(const NotedSignals&) = delete;
  NotedSignals& operator=(const NotedSignals&) = delete;

 private:
  std::array<struct sigaction, kEndings.size()> before_{};
};

bool SendAll(int pipe, const char* data, std::size_t size) {
  while (size > 0) {
    const ssize_t sent = write(pipe, data, size);
    if (sent < 0 && errno == EINTR) continue;
    if (sent <= 0) return false;
    data += sent;
    size -= static_cast<std::size_t>(sent);
  }
  return true;
}

constexpr std::array kTexts{&FileResult::report, &FileResult::transcript, &FileResult::result, &FileResult::record};

/// What a child sends: the status and the lengths of the texts, and then the texts.
struct Header {
  std::int32_t status{0};
  std::array<std::uint64_t, kTexts.size()> lengths{};
};

bool Send(int pipe, const FileResult& result) {
  Header header{.status = result.status};
  for (std::size_t i = 0; i < kTexts.size(); ++i) header.lengths[i] = (result.*kTexts[i]).size();
  std::array<char, sizeof header> bytes{};
  std::memcpy(bytes.data(), &header, sizeof header);
  return SendAll(pipe, bytes.data(), bytes.size()) &&
         std::all_of(kTexts.begin(), kTexts.end(), [&](std::string FileResult::*text) {
           return SendAll(pipe, (result.*text).data(), (result.*text).size());
         });
}

/// @return false when it is not whole
bool Unpack(const std::string& received, FileResult& result) {
  Header header;
  if (received.size() < sizeof header) return false;
  std::memcpy(&header, received.data(), sizeof header);
  result.status = header.status;
  std::size_t at = sizeof header;
  for (std::size_t i = 0; i < kTexts.size(); ++i) {
    if (header.lengths[i] > received.size() - at) return false;
    result.*kTexts[i] = received.substr(at, header.lengths[i]);
    at += header.lengths[i];
  }
  return true;
}

/// Where memory runs out the system is to take that of one document, not of the program that has the others to do.
void BeFirstToGo() { std::ofstream("/proc/self/oom_score_adj") << 500; }

[[noreturn]] void RunChild(int pipe, pid_t parent, const std::function<FileResult()>& work) {
  int status = 1;
  try {
    // A terminal sends its signals to all processes: the parent decides what is brought to its end.
    for (const int ending : kEndings) std::signal(ending, SIG_IGN);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(1);
    BeFirstToGo();
    TakeMemoryInLargePages();
    if (Send(pipe, work())) status = 0;
    std::fflush(nullptr);
  } catch (...) {
    status = 1;
  }
  // Without the destructors of the parent's objects, which this process only inherited.
  _exit(status);
}

struct Child {
  std::size_t number;
  pid_t process;
  int pipe;
  Clock::time_point start;
  bool tooLong{false};
  std::string received{};
};

/// Reads what has come. @return false at the end
bool Receive(Child& child) {
  char buffer[65536];
  const ssize_t size = read(child.pipe, buffer, sizeof buffer);
  if (size < 0 && errno == EINTR) return true;
  if (size > 0) child.received.append(buffer, static_cast<std::size_t>(size));
  return size > 0;
}

class Batch {
 public:
  Batch(const BatchLimits& limits, const std::function<FileResult(std::size_t)>& work, BatchWatch& watch)
      : limits_(limits), work_(work), watch_(watch) {}

  void Run(std::size_t count) {
    std::size_t next = 0;
    while ((next < count && endingSignal == 0) || !children_.empty()) {
      if (next < count && endingSignal == 0 && MayBegin(next)) {
        Start(next++);
      } else {
        Await();
        EndSome();
      }
    }
  }

 private:
  std::size_t Jobs() const { return static_cast<std::size_t>(std::max(limits_.jobs, 1)); }

  bool MayBegin(std::size_t number) const {
    if (children_.size() >= Jobs()) return false;
    // The children are in the order of their numbers.
    return children_.empty() || number - children_.front().number < kAheadForEachJob * Jobs();
  }

  void Start(std::size_t number) {
    int ends[2];
    std::fflush(nullptr);
    const pid_t self = getpid();
    const bool piped = pipe(ends) == 0;
    const pid_t process = piped ? fork() : -1;
    if (process == 0) {
      close(ends[0]);
      RunChild(ends[1], self, [&] { return work_(number); });
    }
    if (piped) close(ends[1]);
    if (process < 0) {
      if (piped) close(ends[0]);
      watch_.Ended(number, {.status = kUnreadable}, 0, "no process could be started");
      return;
    }
    children_.push_back({number, process, ends[0], Clock::now()});
    watch_.Begun(number, process);
  }

  void Await() {
    std::vector<pollfd> waiting;
    for (const Child& child : children_) waiting.push_back({child.pipe, POLLIN, 0});
    const int ready = poll(waiting.data(), waiting.size(), kTickMilliseconds);
    watch_.Tick();
    if (ready <= 0) return;
    for (std::size_t i = children_.size(); i-- > 0;) {
      if (waiting[i].revents == 0 || Receive(children_[i])) continue;
      const Child child = std::move(children_[i]);
      children_.erase(children_.begin() + static_cast<std::ptrdiff_t>(i));
      Finish(child);
    }
  }

  void EndSome() {
    for (Child& child : children_) {
      const bool tooLong = limits_.time.count() > 0 && Clock::now() - child.start > limits_.time;
      if (!tooLong && endingSignals < 2) continue;
      child.tooLong = tooLong;
      kill(child.process, SIGKILL);
    }
  }

  void Finish(const Child& child) {
    close(child.pipe);
    int ended = 0;
    while (waitpid(child.process, &ended, 0) < 0 && errno == EINTR) {
    }
    FileResult result;
    if (WIFEXITED(ended) && WEXITSTATUS(ended) == 0 && Unpack(child.received, result)) {
      return watch_.Ended(child.number, std::move(result), child.process, {});
    }
    std::string died = "the program ended while it did so";
    if (child.tooLong) {
      died = "it took longer than " + std::to_string(limits_.time.count()) + " seconds (--time-limit)";
    } else if (WIFSIGNALED(ended) && endingSignals > 1) {
      died = "the run was interrupted";
    } else if (WIFSIGNALED(ended) && WTERMSIG(ended) == SIGKILL) {
      died = "the program was killed while it did so, perhaps for want of memory";
    }
    watch_.Ended(child.number, {.status = kUnreadable}, child.process, died);
  }

  const BatchLimits& limits_;
  const std::function<FileResult(std::size_t)>& work_;
  BatchWatch& watch_;
  std::vector<Child> children_;
};

}  // namespace

int RunBatch(std::size_t count, const BatchLimits& limits, const std::function<FileResult(std::size_t)>& work,
             BatchWatch& watch) {
  const NotedSignals noted;
  Batch(limits, work, watch).Run(count);
  return endingSignal;
}
