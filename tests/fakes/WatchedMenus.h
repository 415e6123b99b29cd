#pragma once

#include <functional>

#include "platform/office/CommandBars.h"

namespace fakes {

/// The same menus, with every call into them told of before it is made.
/// @param onCall what it throws becomes of the call; empty: nobody is told
office::CommandBarsPtr WatchMenus(office::CommandBarsPtr bars, std::function<void()> onCall);

}  // namespace fakes
