#pragma once

#include <string>

#include "platform/forms/Form.h"

namespace forms {

/// A loaded form as text, for tests of forms and of what renders them: its name and caption, then one line a control in
/// layout order, such as
///
///   CheckBox chkIndexCaps=1 disabled "Treat full caps as upper&/lower"
///
/// indented below its frame, with the entries of lists and combo boxes below it ("*" before those selected or chosen).
/// Controls that the layout does not place come last. Lines end in LF.
std::u16string Dump(const Form& form);

}  // namespace forms
