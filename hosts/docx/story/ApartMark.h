#pragma once

#include <pugixml.hpp>

namespace docx {

// The instruction <?kelvarin apart?> between two runs: they were equal neighbours before something came between them or
// one was changed. Runs that become neighbours again are joined only where it does not stand, so that a file gets back
// the runs it had.

bool IsApartMark(pugi::xml_node node);
/// Puts a mark behind a run. @return the mark
pugi::xml_node PutApartMark(pugi::xml_node run);

}  // namespace docx
