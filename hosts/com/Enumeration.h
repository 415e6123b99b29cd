#pragma once

#include <string_view>
#include <vector>

#include "hosts/com/Dispatch.h"

namespace com {

/// The members of a collection in the order of its enumeration. @param member its _NewEnum
std::vector<Dispatch> Enumerate(const Dispatch& collection, std::string_view member);

}  // namespace com
