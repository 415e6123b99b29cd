#pragma once

#include <functional>

#include "discovery/QuotedTerms.h"
#include "platform/os/Characters.h"

/// What the search for capitalised words and phrases needs; all of it outlives the search.
struct CappedScan {
  word::DocumentPtr document;
  clsProgForm& progress;
  os::Characters& characters;
  /// Words that hold a digit are no part of a candidate.
  bool ignoreNumbers{true};
  /// Lets the word processor handle what waits.
  std::function<void()> doEvents;
  /// Asked before each page: whether to leave off.
  std::function<bool()> stopped;
};

/// Finds the capitalised words and phrases of a document's main text, footnotes and endnotes, page by page. Text of an
/// index of defined terms, and of its lists, is passed over.
/// @param found receives the candidates in the order in which they were come across; a single empty element when there
/// are none. After an error it holds what was found until then.
/// @return false when the search was stopped
/// @throws word::HostError
bool FindCappedTerms(const CappedScan& scan, FoundTerms& found);
