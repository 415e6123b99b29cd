#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

/// How far a run over many files is, on standard error: on a terminal a bar that is drawn anew, otherwise a line for
/// each hundredth of the work. The time left is guessed from the bytes that were worked on and are left.
class BatchProgress {
 public:
  /// @param count of files, those that were done before included  @param bytes of all files that are to be worked on
  BatchProgress(bool shown, std::size_t count, std::uint64_t bytes);

  /// @param bytes of the file; 0 for one that was done before
  void Count(bool failed, std::uint64_t bytes);
  /// Draws again when it is time to.
  void Tick();
  /// Wipes the bar. @param word what the run came to, such as "done"
  void End(const std::string& word);

 private:
  using Clock = std::chrono::steady_clock;

  std::string Counts() const;
  std::string Bar() const;
  std::string TimeLeft() const;
  void Draw();

  bool shown_;
  bool terminal_;
  std::size_t count_;
  std::uint64_t bytes_;
  std::size_t ended_{0};
  std::size_t failed_{0};
  std::uint64_t bytesEnded_{0};
  std::size_t lastHundredth_{0};
  Clock::time_point start_{Clock::now()};
  Clock::time_point drawn_{};
};
