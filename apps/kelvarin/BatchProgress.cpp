#include "apps/kelvarin/BatchProgress.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "apps/kelvarin/Messages.h"

namespace {

constexpr std::size_t kBarWidth = 24;
constexpr std::chrono::milliseconds kBetweenDrawings{200};
/// Before that a guess would jump about.
constexpr std::chrono::seconds kBeforeGuessing{2};

/// 12,345
std::string Grouped(std::size_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t at = digits.size(); at > 3;) {
    at -= 3;
    digits.insert(at, 1, ',');
  }
  return digits;
}

/// "1:02:03" or "2:03"
std::string Clocked(long seconds) {
  char text[32];
  const long hours = seconds / 3600;
  if (hours > 0) {
    std::snprintf(text, sizeof text, "%ld:%02ld:%02ld", hours, seconds / 60 % 60, seconds % 60);
  } else {
    std::snprintf(text, sizeof text, "%ld:%02ld", seconds / 60, seconds % 60);
  }
  return text;
}

}  // namespace

BatchProgress::BatchProgress(bool shown, std::size_t count, std::uint64_t bytes)
    : shown_(shown), terminal_(isatty(STDERR_FILENO) != 0), count_(count), bytes_(bytes) {
  if (shown_ && terminal_) Draw();
}

void BatchProgress::Count(bool failed, std::uint64_t bytes) {
  ++ended_;
  if (failed) ++failed_;
  bytesEnded_ += bytes;
  if (!shown_) return;
  const std::size_t hundredth = 100 * ended_ / std::max<std::size_t>(count_, 1);
  if (terminal_) {
    if (Clock::now() - drawn_ >= kBetweenDrawings) Draw();
  } else if (hundredth > lastHundredth_) {
    Draw();
  }
  lastHundredth_ = hundredth;
}

void BatchProgress::Tick() {
  if (shown_ && terminal_ && Clock::now() - drawn_ >= kBetweenDrawings) Draw();
}

void BatchProgress::End(const std::string& word) {
  if (!shown_) return;
  EndProgressLine();
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - start_).count();
  Say(word + ": " + Counts() + ", " + Clocked(seconds));
}

std::string BatchProgress::Counts() const {
  return Grouped(ended_) + " of " + Grouped(count_) + " files" +
         (failed_ > 0 ? ", " + Grouped(failed_) + " failed" : "");
}

std::string BatchProgress::Bar() const {
  const std::size_t filled = kBarWidth * ended_ / std::max<std::size_t>(count_, 1);
  return "[" + std::string(filled, '#') + std::string(kBarWidth - filled, '.') + "] ";
}

std::string BatchProgress::TimeLeft() const {
  const auto passed = Clock::now() - start_;
  if (passed < kBeforeGuessing || bytesEnded_ == 0 || ended_ == count_) return "";
  const double seconds = std::chrono::duration<double>(passed).count();
  const double left =
      seconds * static_cast<double>(bytes_ - std::min(bytes_, bytesEnded_)) / static_cast<double>(bytesEnded_);
  return ", " + Clocked(std::lround(left)) + " left";
}

void BatchProgress::Draw() {
  drawn_ = Clock::now();
  ShowProgressLine(Bar(), Counts() + TimeLeft());
}
