#pragma once

#include "discovery/QuotePairs.h"

/// Highlights every quotation mark of a story that the codes stand for: of the curly pair the straight ones too. The
/// story is brought into view with the cursor at its start. What the quotation marks had before is recorded by the
/// companion, so that removing the highlighting gives it back.
/// @return false after an error, which was shown
bool HighlightQuotes(const QuoteCheck& check, QuoteCodes codes, const word::RangePtr& story);
