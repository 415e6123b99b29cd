#pragma once

#include "discovery/QuotedTerms.h"
#include "platform/Host.h"

/// Finds the quoted terms of a document's main text, footnotes and endnotes, offers to move the quotes of those that
/// begin with an article, and says in lblTermsInDoc what came of it. The list itself is the caller's to fill.
/// @param terms receives the terms, sorted; a single empty element when there are none
/// @return false when an error, which was shown, ended the search; terms is then unchanged
bool BuildQuotedTermList(const TermSearch& search, const Host& host, QuoteCodes codes, bool bold, FoundTerms& terms);

/// Adds the found terms to a list in their order, all selected; nothing for a single empty element.
void FillFoundTerms(forms::ListBox& list, const FoundTerms& terms);

/// Whether a search found anything.
bool AnyFound(const FoundTerms& terms);
