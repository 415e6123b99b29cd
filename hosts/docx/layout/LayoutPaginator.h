#pragma once

#include <memory>

#include "hosts/docx/pages/Paginator.h"

namespace docx::layout {

/// Pages by laying the document out. All is computed at once, in time proportional to the document. Never nullptr.
/// @throws PackageError when a part that the pages depend on cannot be read
std::unique_ptr<Paginator> MakeLayoutPaginator(DocumentParts& parts);

}  // namespace docx::layout
