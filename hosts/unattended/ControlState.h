#pragma once

#include <vector>

#include "hosts/json/Json.h"
#include "platform/forms/Form.h"

namespace unattended {

/// A control as a transcript prints it: kind, enabled, visible, and what else its kind has of caption, value, toolTip,
/// text, items, selected, listIndex and itemData.
json::Value ControlState(const forms::Control& control);

/// Controls by name; elements of a control array as an array under their name. One element stands for its whole array.
/// @param controls in any order; the result has the order of the form
json::Value ControlStates(const forms::Form& form, const std::vector<const forms::Control*>& controls);

/// All controls of a form.
json::Value ControlStates(const forms::Form& form);

}  // namespace unattended
