// Any bytes as a PDF whose pages and destinations are read.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "hosts/docx/pages/PdfPages.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const docx::PdfPages pages = docx::ReadPdfPages(std::string_view(reinterpret_cast<const char*>(data), size));
    Require(pages.count >= 1);
    for (const auto& [name, page] : pages.destinations) Require(page >= 1 && page <= pages.count);
  } catch (const docx::PdfError& error) {
    Require(!std::string_view(error.what()).empty());
  }
  return 0;
}
