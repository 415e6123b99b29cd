#pragma once

#include "apps/kelvarin/Options.h"
#include "hosts/docx/WordProcessor.h"
#include "platform/word/Types.h"

/// Where in the document a place is. @throws Failure kStopped when the document has no such bookmark, text or position
docx::SelectionState FindPlace(const word::DocumentPtr& document, const CursorPlace& place);
