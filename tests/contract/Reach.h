#pragma once

#include <memory>

#include "platform/TermMarker.h"
#include "platform/office/CommandBars.h"
#include "platform/os/Characters.h"
#include "platform/word/Types.h"

/// How contract tests reach a host: itself, or through what stands between it and the system elsewhere. Each test
/// program has its own.
namespace reach {

os::Characters& Characters();
std::unique_ptr<TermMarker> Marker();
word::ApplicationPtr Application(const word::ApplicationPtr& application);
office::CommandBarsPtr CommandBars(const office::CommandBarsPtr& bars);

}  // namespace reach
