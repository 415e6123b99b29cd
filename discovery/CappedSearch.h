#pragma once

#include "discovery/QuotedTerms.h"
#include "discovery/SearchResult.h"
#include "platform/Host.h"

/// The whole search for capitalised words and phrases, behind its progress form: finds them and says in lblTermsInDoc
/// what came of it. The list itself is the caller's to fill.
/// @param ignoreNumbers words that hold a digit are no part of a candidate
/// @param terms receives the candidates, sorted; a single empty element when there are none. After an error it holds
/// what was found until then.
/// @return kFailed after an error, which was shown; kStopQuietly when a person closed the progress form
SearchResult SearchCappedTerms(const TermSearch& search, const Host& host, bool ignoreNumbers, FoundTerms& terms);
