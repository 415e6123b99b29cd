#pragma once

#include <functional>
#include <string_view>

#include "platform/os/Messages.h"

/// The message boxes that every part of the system words the same way.

/// Runs the body of an event, click or command. Whatever it throws ends here: the error box shows its number
/// and description under the title.
/// @param title the procedure's purpose, such as "Reset doc view"
/// @return whether the body came to its end
bool TrapErrors(os::Messages& messages, std::u16string_view title, const std::function<void()>& body);

/// For clean-up steps of which each is tried whatever became of the others.
void IgnoreErrors(const std::function<void()>& step);

/// The settings file cannot be used.
void ShowIniFileProblem(os::Messages& messages);
