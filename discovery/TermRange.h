#pragma once

#include "platform/word/Types.h"

/// The part of a range between quotes that begins and ends with characters of the term: what does not show at its ends,
/// such as a tracked deletion or an index entry, and the marks of notes and comments there are left outside.
/// @param quoted stays as it is
/// @return may be the same object; all of the range where there is no term in it
word::RangePtr TermRange(const word::RangePtr& quoted);
