#pragma once

#include <memory>

#include "hosts/docx/pages/Paginator.h"

namespace docx::layout {

/// Pages by laying the document out. All is computed at once, in time proportional to the document. Never nullptr.
/// @throws PackageError when a part that the pages depend on cannot be read
/// @param lastBreaks pages that Word began when it last laid the document out begin there, where that is still true
/// @param kept the layout is kept, to draw pages
std::unique_ptr<Paginator> MakeLayoutPaginator(DocumentParts& parts, bool lastBreaks, bool kept);

}  // namespace docx::layout
