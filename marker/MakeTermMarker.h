#pragma once

#include "platform/TermMarker.h"
#include "platform/os/Characters.h"

#include <memory>

/// The companion over any host's object model. One instance serves any number of runs and documents, one run
/// at a time.
/// @param characters must outlive what is returned
std::unique_ptr<TermMarker> MakeTermMarker(os::Characters& characters);
