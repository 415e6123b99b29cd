#pragma once

#include <string>
#include <vector>

#include "platform/TermMarker.h"
#include "platform/forms/Control.h"
#include "platform/word/Types.h"

class clsProgForm;

/// Windows-1252 codes of the quotation marks that are treated in a way of their own.
inline constexpr int kStraightQuote = 34;
inline constexpr int kOpenCurlyQuote = 147;
inline constexpr int kCloseCurlyQuote = 148;

/// Windows-1252 codes of the quotation marks around a defined term. A straight quote (34) is searched for in
/// the place of an open 147 and a close 148, which finds both styles.
struct QuoteCodes {
  int open{kOpenCurlyQuote};
  int close{kCloseCurlyQuote};
};

/// The controls of the terms dialog that a search writes to.
struct FoundTermsControls {
  forms::ListBox& lstTermsInDoc;
  forms::Label& lblTermsInDoc;
  forms::StatusBar& StatusBar1;
};

/// Where a search tells how far it is.
enum class ProgressMode { kStatusBar, kWindow };

/// What a search for terms needs; all of it outlives the search.
struct TermSearch {
  word::ApplicationPtr application;
  word::DocumentPtr document;
  TermMarker& termMarker;
  clsProgForm& progress;
  FoundTermsControls controls;
  ProgressMode progressMode{ProgressMode::kWindow};
};

/// Takes away what a search showed of its progress.
void EndProgress(const TermSearch& search);

/// Found terms are an array that is never empty: a single empty element means that nothing was found.
using FoundTerms = std::vector<std::u16string>;

/// Finds the texts between an open and a close quotation mark in one story, which is left collapsed behind
/// the last of them. Word's quote conversion is switched off where it matters and stays off: the run puts it back.
/// @param bold only terms whose first and last characters are bold
/// @param found what earlier stories gave
/// @return found with this story's terms behind it. From the first term on that found holds already, no
/// term of this story is taken.
/// @throws word::HostError; std::out_of_range for a code that is none
FoundTerms FindQuotedTerms(const TermSearch& search, const word::RangePtr& story, QuoteCodes codes, bool bold,
                           FoundTerms found);
