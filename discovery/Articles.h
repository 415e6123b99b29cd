#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "discovery/QuotedTerms.h"
#include "platform/Host.h"

/// The found terms whose first word, the text before their first blank, is "a", "an", "any" or "the" in any case, in
/// their order.
std::vector<std::u16string> CollectArticleTerms(const FoundTerms& found, os::Characters& characters);

/// Moves the opening quote past the article wherever a term stands behind one, in main text, footnotes and endnotes.
/// Only the quote moves, with the style and formatting that it has. Straight and curly quotes count, whatever the
/// settings say.
/// @throws word::HostError; kInvalidCall for a term that is nothing but its article
void MoveQuotePastArticle(const word::DocumentPtr& document, std::u16string_view term);

/// Offers to move the quotes of those found terms that begin with an article. An error in moving one is shown, and the
/// others follow.
/// @return whether the document may have changed
bool OfferToMoveQuotes(const word::DocumentPtr& document, const Host& host, const FoundTerms& found);
