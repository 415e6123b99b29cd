#pragma once

#include "platform/forms/Control.h"

/// The frames of the terms dialog's tabs, numbered as the tabs are.
using TabFrames = forms::ControlArray<forms::Frame, 3>;

/// Shows the frame with the number of the chosen tab, hides the others, and has the dialog drawn.
void ManageFrames(const forms::TabStrip& tabs, TabFrames& frames);
