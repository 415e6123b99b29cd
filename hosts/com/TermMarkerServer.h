#pragma once

#include <memory>

#include "hosts/com/ComPtr.h"
#include "platform/TermMarker.h"

namespace com {

/// The companion as an automation object, with members under their names: objects of the word processor come as
/// automation references, flags as booleans, found terms as an array of strings by reference, the term table as
/// ToTermTable has it.
/// @param marker what does the work
ComPtr<IDispatch> ServeTermMarker(std::unique_ptr<TermMarker> marker);

}  // namespace com
