// Writes UnicodeTables.cpp from ICU's properties, so that hosts without ICU have the same characters as those with it.
//   g++ -std=c++20 hosts/unicode/make_tables.cpp $(pkg-config --cflags --libs icu-uc) -o make_tables && ./make_tables
#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace {

constexpr UChar32 kLast = 0x10FFFF;

bool IsSurrogate(UChar32 c) { return c >= 0xD800 && c <= 0xDFFF; }

void PrintRanges(const char* name, const char* comment, std::uint32_t mask) {
  std::printf("\n// %s\nconst Range %s[] = {\n", comment, name);
  int inLine = 0;
  UChar32 first = -1;
  for (UChar32 c = 0; c <= kLast + 1; ++c) {
    const bool in = c <= kLast && (U_GET_GC_MASK(c) & mask) != 0;
    if (in && first < 0) first = c;
    if (in || first < 0) continue;
    std::printf("%s{0x%X, 0x%X},", inLine == 0 ? "    " : " ", first, c - 1);
    inLine = (inLine + 1) % 6;
    if (inLine == 0) std::printf("\n");
    first = -1;
  }
  std::printf("%s};\nconst std::size_t %sCount = std::size(%s);\n", inLine == 0 ? "" : "\n", name, name);
}

void PrintMapping(const char* name, const char* comment, const std::function<UChar32(UChar32)>& map) {
  struct Stretch {
    UChar32 first, last, step;
    int delta;
  };
  std::vector<Stretch> stretches;
  for (UChar32 c = 0; c <= kLast; ++c) {
    if (IsSurrogate(c) || map(c) == c) continue;
    const int delta = map(c) - c;
    if (!stretches.empty() && stretches.back().delta == delta) {
      Stretch& last = stretches.back();
      const UChar32 step = c - last.last;
      if (step <= 2 && (last.first == last.last || step == last.step)) {
        last.step = step;
        last.last = c;
        continue;
      }
    }
    stretches.push_back({c, c, 1, delta});
  }
  std::printf("\n// %s\nconst CaseRange %s[] = {\n", comment, name);
  int inLine = 0;
  for (const Stretch& stretch : stretches) {
    std::printf("%s{0x%X, 0x%X, %d, %d},", inLine == 0 ? "    " : " ", stretch.first, stretch.last, stretch.step,
                stretch.delta);
    inLine = (inLine + 1) % 4;
    if (inLine == 0) std::printf("\n");
  }
  std::printf("%s};\nconst std::size_t %sCount = std::size(%s);\n", inLine == 0 ? "" : "\n", name, name);
}

void PrintSpecial(const char* name, const char* comment, bool upper) {
  std::printf("\n// %s\nconst SpecialCase %s[] = {\n", comment, name);
  int inLine = 0;
  for (UChar32 c = 0; c <= 0xFFFF; ++c) {
    if (IsSurrogate(c)) continue;
    const auto unit = static_cast<UChar>(c);
    UChar mapped[8];
    UErrorCode error = U_ZERO_ERROR;
    const auto map = upper ? &u_strToUpper : &u_strToLower;
    const int length = map(mapped, 8, &unit, 1, "", &error);
    if (length < 2) continue;
    std::printf("%s{0x%X, u\"", inLine == 0 ? "    " : " ", c);
    for (int i = 0; i < length; ++i) std::printf("\\u%04X", mapped[i]);
    std::printf("\"},");
    inLine = (inLine + 1) % 3;
    if (inLine == 0) std::printf("\n");
  }
  std::printf("%s};\nconst std::size_t %sCount = std::size(%s);\n", inLine == 0 ? "" : "\n", name, name);
}

}  // namespace

int main() {
  std::printf("// Written by make_tables.cpp from Unicode %s.\n#include \"hosts/unicode/UnicodeTables.h\"\n\n",
              U_UNICODE_VERSION);
  std::printf("#include <iterator>\n\nnamespace unicode {\n\n// clang-format off\n");
  PrintRanges("kLetters", "Letters.", U_GC_L_MASK);
  PrintRanges("kMarks", "Marks that combine.", U_GC_M_MASK);
  PrintRanges("kDigits", "Decimal digits.", U_GC_ND_MASK);
  PrintRanges("kOtherNumbers", "Numbers that are no decimal digits.", U_GC_NL_MASK | U_GC_NO_MASK);
  PrintRanges("kBlanks", "Blanks.", U_GC_ZS_MASK);
  PrintMapping("kUpper", "To upper case, one to one.", [](UChar32 c) { return u_toupper(c); });
  PrintMapping("kLower", "To lower case, one to one.", [](UChar32 c) { return u_tolower(c); });
  PrintMapping("kFold", "Simple case folding.", [](UChar32 c) { return u_foldCase(c, U_FOLD_CASE_DEFAULT); });
  PrintSpecial("kUpperSpecial", "To upper case, one to several.", true);
  PrintSpecial("kLowerSpecial", "To lower case, one to several.", false);
  std::printf("\n// clang-format on\n\n}  // namespace unicode\n");
}
