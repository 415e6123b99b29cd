#pragma once

#include <stdexcept>

#include "hosts/unattended/Answers.h"
#include "platform/forms/Form.h"

namespace unattended {

/// A step that a person could not do; what() is one sentence.
class StepError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Does one step in a form that is shown, as a person does it: the focus moves first, and what the form does about it
/// happens before this returns, dialogs that it shows included.
/// @throws StepError for a control that does not exist, does not take such a step, or is disabled or hidden
void DoStep(forms::Form& form, const Step& step);

}  // namespace unattended
