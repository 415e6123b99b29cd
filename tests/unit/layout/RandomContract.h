#pragma once

#include <memory>
#include <random>

#include "hosts/docx/package/Package.h"

namespace laid {

/// A document of a few pages with all that a layout has to do with: lists, tables in tables, merged cells, sections
/// with columns, notes, pictures that text stands beside, frames, fields, tracked changes and hidden marks.
std::unique_ptr<docx::Package> RandomContract(std::mt19937& random);

}  // namespace laid
