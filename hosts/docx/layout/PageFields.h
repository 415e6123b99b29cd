#pragma once

#include <string_view>
#include <vector>

#include "hosts/docx/layout/Content.h"

namespace docx::layout {

/// What a field with that code prints of the page that it stands on; PageField::kNone for other fields.
PageFieldCode PageFieldOf(std::string_view code);

/// What fields print of a page.
struct PageFieldNumbers {
  std::u16string_view label;  ///< its number, in the format of its section
  int number{1};
  int pages{1};         ///< of the document
  int sectionPages{1};  ///< of its section
};

/// Puts the numbers of a page into the fields of a header or footer.
void SetPageFields(std::vector<Block>& blocks, const PageFieldNumbers& numbers);

}  // namespace docx::layout
