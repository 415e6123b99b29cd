#pragma once

#include <memory>

#include "hosts/qt/forms/ControlView.h"

namespace qt {

/// The window of a text box: one line that can be typed into, or a read-only text of several lines.
std::unique_ptr<ControlView> MakeTextView(forms::TextBox& box, QWidget& parent, ActionGate& gate);

}  // namespace qt
