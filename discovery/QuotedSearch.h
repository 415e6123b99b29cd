#pragma once

#include "discovery/QuotedTerms.h"
#include "discovery/SearchResult.h"
#include "platform/Host.h"
#include "settings/OptionControls.h"
#include "settings/modIniFile.h"

/// What the search for terms in quotes needs beside the terms dialog's own; all of it outlives the search.
struct QuotedSearch {
  const TermSearch& search;
  const Host& host;
  modIniFile& ini;
  /// The dialog's. Where the user chooses other quotation marks on the way, its lists show those.
  OptionControls options;
  /// The user's own Options.AutoFormatAsYouTypeReplaceQuotes.
  bool savedReplaceQuotes{false};
};

/// The whole search for terms in quotes: checks that the quotation marks pair up, finds the terms, offers
/// to move the quotes of those that begin with an article, says in lblTermsInDoc what came of it, and warns of terms
/// that hold breaks. The list itself is the caller's to fill.
/// @param codes what is searched for first
/// @param terms receives the terms, sorted; a single empty element when there are none; unchanged unless kGoOn
/// @return kFailed after an error and kStopQuietly for quotation marks that do not pair up, both of which were shown
SearchResult SearchQuotedTerms(const QuotedSearch& quoted, QuoteCodes codes, bool bold, FoundTerms& terms);
