#include "platform/AnsiText.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <stdexcept>

namespace {

/// Codes 128 to 159; every other code is the number of its character.
constexpr std::array<char16_t, 32> kHigh = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                            0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                            0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                            0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char kNone = '?';

/// U+0100 to U+017F.
constexpr std::string_view kLatinExtendedA =
    "AaAaAaCcCcCcCcDd"
    "\320dEeEeEeEeEeGgGgGgGg"
    "HhHhIiIiIiIiIi??JjKk?LlLlLl??Ll"
    "NnNnNn???OoOoOo??RrRrRrSsSsSs??TtTtTtUuUuUuUuUuUuWwYy?ZzZz???";
static_assert(kLatinExtendedA.size() == 128);

struct Fit {
  char16_t first;
  char16_t last;
  unsigned char code;
};

/// The rest, in ascending order; a whole range has one best fit.
constexpr Fit kFits[] = {
    {0x0180, 0x0180, 'b'},  {0x0189, 0x0189, 0xD0}, {0x0191, 0x0191, 0x83}, {0x0197, 0x0197, 'I'},
    {0x019A, 0x019A, 'l'},  {0x019F, 0x019F, 'O'},  {0x01A0, 0x01A0, 'O'},  {0x01A1, 0x01A1, 'o'},
    {0x01AB, 0x01AB, 't'},  {0x01AE, 0x01AE, 'T'},  {0x01AF, 0x01AF, 'U'},  {0x01B0, 0x01B0, 'u'},
    {0x01B6, 0x01B6, 'z'},  {0x01C0, 0x01C0, '|'},  {0x01C3, 0x01C3, '!'},  {0x01CD, 0x01CD, 'A'},
    {0x01CE, 0x01CE, 'a'},  {0x01CF, 0x01CF, 'I'},  {0x01D0, 0x01D0, 'i'},  {0x01D1, 0x01D1, 'O'},
    {0x01D2, 0x01D2, 'o'},  {0x01D3, 0x01D3, 'U'},  {0x01D4, 0x01D4, 'u'},  {0x01E4, 0x01E4, 'G'},
    {0x01E5, 0x01E5, 'g'},  {0x01E6, 0x01E6, 'G'},  {0x01E7, 0x01E7, 'g'},  {0x01E8, 0x01E8, 'K'},
    {0x01E9, 0x01E9, 'k'},  {0x01EA, 0x01EA, 'O'},  {0x01EB, 0x01EB, 'o'},  {0x0261, 0x0261, 'g'},
    {0x02B9, 0x02B9, '\''}, {0x02BA, 0x02BA, '"'},  {0x02BC, 0x02BC, '\''}, {0x02C4, 0x02C4, '^'},
    {0x02C8, 0x02C8, '\''}, {0x02C9, 0x02C9, 0xAF}, {0x02CA, 0x02CA, 0xB4}, {0x02CB, 0x02CB, '`'},
    {0x02CD, 0x02CD, '_'},  {0x02DA, 0x02DA, 0xB0}, {0x0393, 0x0393, 'G'},  {0x0398, 0x0398, 'T'},
    {0x03A3, 0x03A3, 'S'},  {0x03A6, 0x03A6, 'F'},  {0x03A9, 0x03A9, 'O'},  {0x03B1, 0x03B1, 'a'},
    {0x03B4, 0x03B4, 'd'},  {0x03B5, 0x03B5, 'e'},  {0x03C0, 0x03C0, 'p'},  {0x03C3, 0x03C3, 's'},
    {0x03C4, 0x03C4, 't'},  {0x03C6, 0x03C6, 'f'},  {0x04BB, 0x04BB, 'h'},  {0x0589, 0x0589, ':'},
    {0x066A, 0x066A, '%'},  {0x2000, 0x2006, ' '},  {0x2010, 0x2011, '-'},  {0x2017, 0x2017, '='},
    {0x2024, 0x2024, 0xB7}, {0x2032, 0x2032, '\''}, {0x2033, 0x2033, '"'},  {0x2035, 0x2035, '`'},
    {0x2044, 0x2044, '/'},  {0x207F, 0x207F, 'n'},  {0x20A1, 0x20A1, 0xA2}, {0x20A4, 0x20A4, 0xA3},
    {0x20A7, 0x20A7, 'P'},  {0x212A, 0x212A, 'K'},  {0x212B, 0x212B, 0xC5}, {0x2205, 0x2205, 0xD8},
    {0x2212, 0x2212, '-'},  {0x2213, 0x2213, 0xB1}, {0x2215, 0x2215, '/'},  {0x2216, 0x2216, '\\'},
    {0x2217, 0x2217, '*'},  {0x2218, 0x2218, 0xB0}, {0x2219, 0x2219, 0xB7}, {0x221A, 0x221A, 'v'},
    {0x221E, 0x221E, '8'},  {0x2223, 0x2223, '|'},  {0x2229, 0x2229, 'n'},  {0x2236, 0x2236, ':'},
    {0x223C, 0x223C, '~'},  {0x2248, 0x2248, 0x98}, {0x2261, 0x2261, '='},  {0x2264, 0x2265, '='},
    {0x226A, 0x226A, 0xAB}, {0x226B, 0x226B, 0xBB}, {0x22C5, 0x22C5, 0xB7}, {0x2329, 0x2329, '<'},
    {0x232A, 0x232A, '>'},  {0x2758, 0x2758, '|'},  {0x3000, 0x3000, ' '},  {0x3008, 0x3008, '<'},
    {0x3009, 0x3009, '>'},  {0x300A, 0x300A, 0xAB}, {0x300B, 0x300B, 0xBB}, {0x301A, 0x301A, '['},
    {0x301B, 0x301B, ']'},  {0x30FB, 0x30FB, 0xB7},
};

char FromCode(unsigned char code) { return static_cast<char>(code); }

char BestFit(char16_t unit) {
  if (unit >= 0x0100 && unit <= 0x017F) return kLatinExtendedA[unit - 0x0100];
  if (unit >= 0x2070 && unit <= 0x2089) {
    // Superscript and subscript digits; superscript 1 to 3 have codes of their own.
    if (unit == 0x2070 || (unit >= 0x2074 && unit <= 0x2079))
      return FromCode(static_cast<unsigned char>('0' + unit - 0x2070));
    if (unit >= 0x2080) return FromCode(static_cast<unsigned char>('0' + unit - 0x2080));
  }
  if (unit >= 0xFF01 && unit <= 0xFF5E) return FromCode(static_cast<unsigned char>(unit - 0xFF01 + '!'));
  const auto* fit = std::lower_bound(std::begin(kFits), std::end(kFits), unit,
                                     [](const Fit& entry, char16_t value) { return entry.last < value; });
  return fit != std::end(kFits) && fit->first <= unit ? FromCode(fit->code) : kNone;
}

char ToAnsiUnit(char16_t unit) {
  if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) return FromCode(static_cast<unsigned char>(unit));
  const auto* found = std::find(kHigh.begin(), kHigh.end(), unit);
  if (found != kHigh.end()) return FromCode(static_cast<unsigned char>(0x80 + (found - kHigh.begin())));
  return BestFit(unit);
}

}  // namespace

char16_t CharFromAnsiCode(int code) {
  if (code < 0 || code > 255) throw std::out_of_range("Invalid character code");
  return code >= 0x80 && code <= 0x9F ? kHigh[static_cast<std::size_t>(code - 0x80)] : static_cast<char16_t>(code);
}

std::u16string FromAnsi(std::string_view bytes) {
  std::u16string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) text += CharFromAnsiCode(static_cast<unsigned char>(byte));
  return text;
}

std::string ToAnsi(std::u16string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (const char16_t unit : text) bytes += ToAnsiUnit(unit);
  return bytes;
}
