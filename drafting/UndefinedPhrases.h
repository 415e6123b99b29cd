#pragma once

#include <string>
#include <vector>

#include "drafting/Texts.h"

namespace drafting {

/// Capitalised phrases that are used as defined terms are, and are not defined. The rules are in docs/check.md.
/// @param phrases the candidates  @param defined the terms that are defined, in all forms that count as them
std::vector<Finding> FindUndefined(const std::vector<Text>& texts, const std::vector<std::u16string>& phrases,
                                   const std::vector<std::u16string>& defined, os::Characters& characters);

}  // namespace drafting
