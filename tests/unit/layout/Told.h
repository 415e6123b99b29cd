#pragma once

#include <string>

#include "hosts/docx/layout/DocumentLayout.h"

namespace laid {

/// All that a layout says: every line and its place, what each page shows, the pages of notes; a line of text each.
/// Equal texts are equal layouts, to the last bit of each length.
std::string Told(const docx::layout::DocumentLayout& layout);

}  // namespace laid
