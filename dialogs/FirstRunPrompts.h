#pragma once

#include "platform/Host.h"
#include "settings/modIniFile.h"

/// Shows a new user the prompts whose settings say so: the choice of a search type, the reminder of how terms are
/// formatted, and the offer of help, in that order.
/// @return whether the choice was shown, which may have changed the search type
bool ShowFirstRunPrompts(const Host& host, modIniFile& ini);
