// Any line as text around each pair of quotation marks in it: judging it touches nothing outside of it. Words in the
// other number are not empty where there is a rule.

#include "discovery/LineText.h"
#include "drafting/DefinitionPlace.h"
#include "drafting/WordNumber.h"
#include "hosts/docx/xml/Utf.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kLongest = 1'000;
  if (size > kLongest) return 0;
  const std::u16string line = docx::ToUtf16({reinterpret_cast<const char*>(data), size});
  std::size_t open = FindDoubleQuote(line, 0);
  while (open != std::u16string::npos) {
    const std::size_t close = FindDoubleQuote(line, open + 1);
    if (close == std::u16string::npos) break;
    for (std::size_t begin = open + 1; begin < close; ++begin) {
      static_cast<void>(drafting::RoleOf(line, begin, close));
      static_cast<void>(drafting::BeginsLine(line, begin));
    }
    const std::u16string term = line.substr(open + 1, close - open - 1);
    const std::u16string other = drafting::InOtherNumber(term);
    if (!other.empty() && other == term) std::abort();
    open = close;
  }
  return 0;
}
