#pragma once

#include "hosts/com/Variant.h"
#include "platform/TermMarker.h"

namespace com {

/// The term table as automation has it: an array of variants in two dimensions, a row for each term from 0, with the
/// text in column 0 and the count in column 1.
Variant FromTermTable(const TermTable& table);
/// @throws word::HostError 13 for anything else
TermTable ToTermTable(const Variant& value);

}  // namespace com
