#include "Pieces.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::uint8_t kClose = 0xFF;
constexpr std::uint8_t kNextPart = 0xFE;

/// Usual lengths, counts and sizes, the limits of formats, and what is no number.
constexpr std::array<std::string_view, 48> kNumbers{
    "0",     "1",      "-1",     "2",      "3",          "5",           "8",          "9",
    "10",    "20",     "24",     "60",     "100",        "120",         "240",        "276",
    "360",   "480",    "567",    "720",    "1000",       "1440",        "2000",       "2880",
    "4000",  "5000",   "8000",   "9360",   "12240",      "15840",       "20000",      "31680",
    "-720",  "-1440",  "-31680", "65536",  "2147483647", "-2147483648", "4294967296", "9223372036854775808",
    "12700", "914400", "-91440", "100000", "0.5",        "1e300",       "nan",        ""};

constexpr std::array<std::string_view, 72> kWords{
    "auto",        "center",       "right",         "left",     "both",        "distribute", "start",      "end",
    "top",         "bottom",       "page",          "margin",   "column",      "text",       "paragraph",  "exact",
    "atLeast",     "restart",      "continue",      "nextPage", "evenPage",    "oddPage",    "continuous", "nextColumn",
    "single",      "double",       "none",          "nil",      "dxa",         "pct",        "decimal",    "bar",
    "clear",       "dot",          "hyphen",        "bullet",   "upperLetter", "lowerRoman", "around",     "drop",
    "superscript", "subscript",    "btLr",          "tbRl",     "fixed",       "square",     "first",      "even",
    "default",     "lines",        "linesAndChars", "inside",   "outside",     "largest",    "bothSides",  "Normal",
    "Clause",      "Term",         "Grid",          "1",        "0",           "true",       "%1.%2",      "chicago",
    "ordinalText", "cardinalText", "decimalZero",   "sectEnd",  "pageBottom",  "firstRow",   "band1Horz",  "notBeside"};

std::string_view ChosenOf(std::span<const std::string_view> choices, std::span<const std::uint8_t>& bytes) {
  if (bytes.empty()) return choices.front();
  const std::string_view chosen = choices[bytes.front() % choices.size()];
  bytes = bytes.subspan(1);
  return chosen;
}

}  // namespace

std::string XmlOf(std::span<const Piece> pieces, std::span<const std::uint8_t> bytes) {
  std::string xml;
  std::vector<std::string_view> open;
  while (!bytes.empty()) {
    const std::uint8_t byte = bytes.front();
    bytes = bytes.subspan(1);
    if (byte == kClose) {
      if (open.empty()) continue;
      xml += open.back();
      open.pop_back();
      continue;
    }
    const Piece& piece = pieces[byte % pieces.size()];
    for (const char c : piece.open) {
      if (c == '#') {
        xml += ChosenOf(kNumbers, bytes);
      } else if (c == '@') {
        xml += ChosenOf(kWords, bytes);
      } else {
        xml += c;
      }
    }
    if (!piece.close.empty()) open.push_back(piece.close);
  }
  for (; !open.empty(); open.pop_back()) xml += open.back();
  return xml;
}

std::vector<std::span<const std::uint8_t>> Divided(std::span<const std::uint8_t> bytes, std::size_t parts) {
  std::vector<std::span<const std::uint8_t>> divided;
  while (divided.size() + 1 < parts) {
    const auto end = std::find(bytes.begin(), bytes.end(), kNextPart);
    if (end == bytes.end()) break;
    const auto size = static_cast<std::size_t>(end - bytes.begin());
    divided.push_back(bytes.first(size));
    bytes = bytes.subspan(size + 1);
  }
  divided.push_back(bytes);
  return divided;
}
