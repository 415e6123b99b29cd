#pragma once

#include <stdexcept>

/// What the program's exit status says of a file's run. With several files it is the highest.
enum Status : int {
  kDone = 0,
  kStopped = 1,           ///< the system refused or stopped; its message is on standard error
  kWrongCommandLine = 2,  ///< also where a result would overwrite what it must not
  kUnreadable = 3,        ///< a file could not be read or written
};

/// Ends a file's run with a status and one clear sentence for standard error.
class Failure : public std::runtime_error {
 public:
  Failure(Status status, const std::string& sentence) : std::runtime_error(sentence), status_(status) {}
  Status Code() const noexcept { return status_; }

 private:
  Status status_;
};
