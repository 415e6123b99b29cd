// Any bytes as a list of terms. Its items hold no line ends and no edges that reading drops, and a line that is written
// for an item reads back as that item where the item holds nothing that a list has a use for.

#include "dialogs/TermListFile.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  for (const std::u16string& item : ReadTermItems(input)) {
    if (item.size() > size) std::abort();
    if (item.empty() || item.find_first_of(u"\r\n\t,\"\x1A") != std::u16string::npos) continue;
    if (item.front() == u' ' || item.back() == u' ') continue;
    const std::vector<std::u16string> again = ReadTermItems(TermLine(item));
    if (again.size() != 1 || again.front() != item) std::abort();
  }
  return 0;
}
