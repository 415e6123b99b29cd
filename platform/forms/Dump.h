#pragma once

#include <string>

#include "platform/forms/Form.h"

namespace forms {

/// A loaded form as text, for tests of forms and of what renders them: its name and caption, then one line a control in
/// layout order, such as
///
///   CheckBox chkCaseSensitive=1 disabled "Case sens&itive" tip "Search and mark exact matches only"
///
/// indented below its frame, with the entries of lists and combo boxes below it ("*" before those selected or chosen).
/// Controls that the layout does not place come last. Lines end in LF.
std::u16string Dump(const Form& form);

}  // namespace forms
