#pragma once

#include <string_view>

#include "discovery/QuotedTerms.h"
#include "platform/Host.h"
#include "platform/word/Constants.h"
#include "settings/modIniFile.h"

/// What counting one story's quotation marks came to.
enum class QuoteCount : int { kBalanced = 0, kUnbalanced = 1, kFailed = 2 };

/// Whether a story's quotation marks pair up. Of different codes only the curly pair is judged, and only by whether
/// the counts differ by an odd number.
/// @param story any range of the story
/// @return kFailed after an error, which was shown
QuoteCount CountQuotes(const word::DocumentPtr& document, const word::RangePtr& story, QuoteCodes codes,
                       os::Messages& messages);

/// "main body", "footnotes" or "endnotes".
std::u16string_view StoryName(word::WdStoryType type);

/// What the check of a document's quotation marks needs; all of it outlives the check.
struct QuoteCheck {
  const TermSearch& search;
  const Host& host;
  modIniFile& ini;
  /// The user's own Options.AutoFormatAsYouTypeReplaceQuotes.
  bool savedReplaceQuotes{false};
};

/// Counts the quotation marks story by story, with its progress shown. Where they do not pair up, the user may have
/// them highlighted, or choose other ones, which are saved and checked in their turn.
/// @param codes what is searched for; the choice of the user afterwards
/// @return whether the document cannot be indexed, which the user was told. A count that failed lets the search go on.
bool CheckQuotePairs(const QuoteCheck& check, QuoteCodes& codes);
