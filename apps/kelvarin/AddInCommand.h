#pragma once

#include <string>

#include "apps/kelvarin/Options.h"
#include "apps/kelvarin/Session.h"
#include "apps/kelvarin/Status.h"

/// Gives one of the commands that the add-in has in its menu: kIndex, kRemove, kUnhighlight or kUpdate.
/// @return whether it came to its end, as far as the add-in tells
/// @throws Failure as Session::Run
bool GiveCommand(Options::Command command, Session& session);

/// What the run of such a command came to. @param finished what GiveCommand returned
/// @param failure why a dialog could not be answered; empty: none
Status CommandStatus(Options::Command command, bool finished, const Session& session, const std::string& failure);
