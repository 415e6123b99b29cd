#pragma once

#include <string_view>
#include <vector>

#include "hosts/docx/layout/Content.h"

namespace docx::layout {

/// Puts the numbers of a page into the fields of a header or footer.
void SetPageFields(std::vector<Block>& blocks, std::u16string_view label, int pageCount);

}  // namespace docx::layout
