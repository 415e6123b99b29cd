#pragma once

#include "apps/kelvarin/Options.h"
#include "platform/word/Types.h"

/// An empty range at a place. @throws Failure kStopped when the document has no such bookmark, text or position
word::RangePtr FindPlace(const word::DocumentPtr& document, const CursorPlace& place);
