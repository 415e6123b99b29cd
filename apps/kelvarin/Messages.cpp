#include "apps/kelvarin/Messages.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>

#include "apps/kelvarin/Printable.h"

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
  return Printable(line);
}

/// How many characters fit into a line of the terminal; a line that was wrapped could not be wiped.
std::size_t LineSize() {
  winsize size{};
  if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return std::string_view::npos;
  return size.ws_col - 1;
}

/// The beginning of a text in UTF-8, so many bytes at most: no character takes more columns than bytes.
std::string Fitting(const std::string& line, std::size_t size) {
  const auto continues = [&line](std::size_t at) { return (static_cast<unsigned char>(line[at]) & 0xC0) == 0x80; };
  while (size > 0 && size < line.size() && continues(size)) --size;
  return line.substr(0, size);
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

void ShowProgressLine(std::string_view bar, std::string_view text) {
  std::string line = OneLine(text);
  if (isatty(STDERR_FILENO) == 0) {
    WriteError(line + "\n");
    return;
  }
  const std::size_t size = LineSize();
  if (bar.size() + line.size() <= size) line.insert(0, bar);
  WriteError("\r\x1b[K" + Fitting(line, size));
  progressShown = true;
}

void EndProgressLine() {
  if (!progressShown && !progressShared) return;
  progressShown = false;
  WriteError("\r\x1b[K");
}

void ShareProgressLine() { progressShared = isatty(STDERR_FILENO) != 0; }
