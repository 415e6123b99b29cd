// Any text as a field code: taken apart, read as an entry and as an index's options, and laid out.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/docx/fields/FieldCode.h"
#include "hosts/docx/fields/IndexContent.h"
#include "hosts/docx/xml/Utf.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::u16string input = docx::ToUtf16(std::string_view(reinterpret_cast<const char*>(data), size));
  std::vector<docx::IndexEntry> entries;
  docx::IndexOptions options;
  int page = 0;
  // Each line is a code.
  for (std::size_t begin = 0; begin <= input.size();) {
    const std::size_t end = std::min(input.find(u'\n', begin), input.size());
    const std::u16string_view code = std::u16string_view(input).substr(begin, end - begin);
    const docx::FieldCode parsed = docx::ParseFieldCode(code);
    Require(parsed.keyword.empty() || docx::FieldType(code) >= -1);
    docx::IndexMark mark = docx::ParseIndexEntry(code);
    Require(mark.levels.size() <= 9);
    for (const docx::IndexLevel& level : mark.levels) Require(!level.text.empty() && !level.key.empty());
    entries.push_back({std::make_shared<const docx::IndexMark>(std::move(mark)), ++page, u"1"});
    options = docx::ParseIndexOptions(code);
    Require(options.entrySeparator.size() <= 5 && options.columns >= 0 && options.columns <= 4);
    begin = end + 1;
  }
  const std::vector<docx::IndexParagraph> index = docx::BuildIndexContent(entries, options);
  Require(!index.empty());
  for (const docx::IndexParagraph& paragraph : index) Require(paragraph.level >= 1 && paragraph.level <= 9);
  return 0;
}
