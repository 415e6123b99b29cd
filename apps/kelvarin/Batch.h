#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

/// What became of one input.
struct FileResult {
  int status{0};
  std::string report{};      ///< one JSON object without a line end; empty when none is wanted
  std::string transcript{};  ///< whole lines
  std::string result{};      ///< what a command found out, in a form of its own; not printed yet
  std::string record{};      ///< the line for the journal; empty when the work has to be done again
};

/// What a batch tells while it runs.
class BatchWatch {
 public:
  BatchWatch() = default;
  BatchWatch(const BatchWatch&) = delete;
  BatchWatch& operator=(const BatchWatch&) = delete;
  virtual ~BatchWatch() = default;

  virtual void Begun(std::size_t /*number*/, pid_t /*process*/) {}
  /// @param process ended without a result when died says how, otherwise the result is the work's own
  virtual void Ended(std::size_t number, FileResult result, pid_t process, const std::string& died) = 0;
  /// Some times a second.
  virtual void Tick() {}
};

struct BatchLimits {
  int jobs{1};
  /// For one piece of work; 0: none.
  std::chrono::seconds time{0};
};

/// Does pieces of work, numbered from 0, at most so many at a time, each in a process of its own: what one does to the
/// program's state, or a crash, does not reach the next. They begin in their order, and none begins long before
/// the first that has not ended, so that whoever wants the results in order has only some to keep.
///
/// After SIGINT, SIGTERM or SIGHUP no more work begins, and what runs is brought to its end; after a second one it is
/// killed.
/// @return the signal that ended the batch early; 0: all is done
int RunBatch(std::size_t count, const BatchLimits& limits, const std::function<FileResult(std::size_t)>& work,
             BatchWatch& watch);
