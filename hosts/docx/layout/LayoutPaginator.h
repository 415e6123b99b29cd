#pragma once

#include <memory>

#include "hosts/docx/pages/Paginator.h"

namespace docx::layout {

class LayoutMemory;

/// Pages by laying the document out. All is computed at once, in time proportional to the document. Never nullptr.
/// @throws PackageError when a part that the pages depend on cannot be read
/// @param lastBreaks pages that Word began when it last laid the document out begin there, where that is still true
/// @param kept the layout is kept, to draw pages
/// @param memory of the layouts of the document before
std::unique_ptr<Paginator> MakeLayoutPaginator(DocumentParts& parts, bool lastBreaks, bool kept, LayoutMemory& memory);

}  // namespace docx::layout
