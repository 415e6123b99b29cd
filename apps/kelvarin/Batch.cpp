#include "apps/kelvarin/Batch.h"

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>

#include "apps/kelvarin/Messages.h"
#include "apps/kelvarin/Status.h"

namespace {

/// What a child sends: status, length of the report, report, transcript up to the end.
struct Header {
  std::int32_t status;
  std::uint32_t reportLength;
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

[[noreturn]] void RunChild(int pipe, const std::filesystem::path& input,
                           const std::function<FileResult(const std::filesystem::path&)>& work) {
  const FileResult result = work(input);
  const Header header{result.status, static_cast<std::uint32_t>(result.report.size())};
  char bytes[sizeof header];
  std::memcpy(bytes, &header, sizeof header);
  const bool sent = SendAll(pipe, bytes, sizeof header) && SendAll(pipe, result.report.data(), result.report.size()) &&
                    SendAll(pipe, result.transcript.data(), result.transcript.size());
  std::fflush(nullptr);
  // Without the destructors of the parent's objects, which this process only inherited.
  _exit(sent ? 0 : 1);
}

struct Child {
  std::size_t number;
  pid_t process;
  int pipe;
  std::string received{};
};

FileResult Finish(const Child& child, const std::filesystem::path& input) {
  int ended = 0;
  while (waitpid(child.process, &ended, 0) < 0 && errno == EINTR) {
  }
  Header header{};
  if (child.received.size() < sizeof header || !WIFEXITED(ended) || WEXITSTATUS(ended) != 0) {
    Say(input, "could not be worked on: the program ended while it did so");
    return {.status = kUnreadable};
  }
  std::memcpy(&header, child.received.data(), sizeof header);
  return {.status = header.status,
          .report = child.received.substr(sizeof header, header.reportLength),
          .transcript = child.received.substr(sizeof header + header.reportLength)};
}

/// Reads what has come. @return false at the end
bool Receive(Child& child) {
  char buffer[65536];
  const ssize_t size = read(child.pipe, buffer, sizeof buffer);
  if (size < 0 && errno == EINTR) return true;
  if (size > 0) child.received.append(buffer, static_cast<std::size_t>(size));
  return size > 0;
}

bool Start(std::size_t number, const std::filesystem::path& input, std::vector<Child>& children,
           const std::function<FileResult(const std::filesystem::path&)>& work) {
  int ends[2];
  if (pipe(ends) != 0) return false;
  std::fflush(nullptr);
  const pid_t process = fork();
  if (process == 0) {
    close(ends[0]);
    RunChild(ends[1], input, work);
  }
  close(ends[1]);
  if (process < 0) {
    close(ends[0]);
    return false;
  }
  children.push_back({number, process, ends[0]});
  return true;
}

void AwaitSome(std::vector<Child>& children, const std::vector<std::filesystem::path>& inputs,
               std::vector<FileResult>& results) {
  std::vector<pollfd> waiting;
  for (const Child& child : children) waiting.push_back({child.pipe, POLLIN, 0});
  if (poll(waiting.data(), waiting.size(), -1) < 0) return;
  for (std::size_t i = children.size(); i-- > 0;) {
    if (waiting[i].revents == 0 || Receive(children[i])) continue;
    close(children[i].pipe);
    results[children[i].number] = Finish(children[i], inputs[children[i].number]);
    children.erase(children.begin() + static_cast<std::ptrdiff_t>(i));
  }
}

}  // namespace

std::vector<FileResult> RunEach(const std::vector<std::filesystem::path>& inputs, int jobs,
                                const std::function<FileResult(const std::filesystem::path&)>& work) {
  if (inputs.size() == 1) return {work(inputs.front())};
  std::vector<FileResult> results(inputs.size());
  std::vector<Child> children;
  std::size_t next = 0;
  while (next < inputs.size() || !children.empty()) {
    if (next < inputs.size() && children.size() < static_cast<std::size_t>(std::max(jobs, 1))) {
      if (!Start(next, inputs[next], children, work)) {
        Say(inputs[next], "could not be worked on: no process could be started");
        results[next].status = kUnreadable;
      }
      ++next;
    } else {
      AwaitSome(children, inputs, results);
    }
  }
  return results;
}
