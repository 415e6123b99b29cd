#pragma once

#include "discovery/QuotedTerms.h"
#include "platform/os/Messages.h"

/// Warns, once, when any of the found terms holds a tab or a line or paragraph break: such a term will hardly be found
/// elsewhere. The terms stay as they are.
void WarnOfBreaks(const FoundTerms& found, os::Messages& messages);
