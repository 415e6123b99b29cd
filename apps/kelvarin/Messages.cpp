#include "apps/kelvarin/Messages.h"

#include <unistd.h>

#include <cstdio>

namespace {

bool progressShown = false;
bool progressShared = false;

std::string OneLine(std::string_view text) {
  std::string line;
  for (const char character : text) {
    const bool isBlank = character == '\r' || character == '\n' || character == '\t' || character == ' ';
    if (!isBlank) {
      line += character;
    } else if (!line.empty() && line.back() != ' ') {
      line += ' ';
    }
  }
  while (line.ends_with(' ')) line.pop_back();
  return line;
}

/// In one call, so that lines of several processes do not mix.
void WriteError(const std::string& line) {
  std::fwrite(line.data(), 1, line.size(), stderr);
  std::fflush(stderr);
}

}  // namespace

void Say(const std::filesystem::path& file, std::string_view text) { Say(file.string() + ": " + std::string(text)); }

void Say(std::string_view text) {
  EndProgressLine();
  WriteError("kelvarin: " + OneLine(text) + "\n");
}

void ShowProgressLine(std::string_view text) {
  const std::string line = OneLine(text);
  if (isatty(STDERR_FILENO) == 0) {
    WriteError(line + "\n");
    return;
  }
  WriteError("\r\x1b[K" + line);
  progressShown = true;
}

void EndProgressLine() {
  if (!progressShown && !progressShared) return;
  progressShown = false;
  WriteError("\r\x1b[K");
}

void ShareProgressLine() { progressShared = isatty(STDERR_FILENO) != 0; }
