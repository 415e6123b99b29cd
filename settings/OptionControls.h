#pragma once

#include "platform/forms/Control.h"

/// The option controls that the terms dialog and the options dialog both have, under the same names, so that settings
/// are loaded into and saved from either. A view: the dialog owns the controls and outlives it.
struct OptionControls {
  forms::OptionButtons<2>& optSearchType;  ///< 0 terms in quotes, 1 capitalised words
  forms::CheckBox& chkBold;
  forms::Label& lblOpenQuote;
  forms::ComboBox& cmbOpenQuote;  ///< an entry's item data is its Windows-1252 code
  forms::Label& lblCloseQuote;
  forms::ComboBox& cmbCloseQuote;
  forms::CheckBox& chkCaseSensitive;
  forms::CheckBox& chkIndexCaps;
  forms::CheckBox& chkIgnoreNums;
  forms::CheckBox& chkHighlight;
  forms::OptionButtons<2>& optIndexWhat;  ///< 0 all instances, 1 definitions only
  forms::CheckBox& chkIncludeNotUsed;
  forms::CheckBox& chkIncludeNotFound;
  forms::TextBox& txtCols;
  forms::TextBox& txtSep;
  forms::CheckBox& chkTabSep;  ///< stands for the marker "{TAB}" behind the separator
};

/// Terms in quotes can have quotation marks and definitions; for capitalised words those controls are disabled.
/// @param quotedTerms whether terms in quotes are searched for
void ApplySearchTypeRule(const OptionControls& options, bool quotedTerms);

/// Full capitals are treated as upper and lower case only in a case-sensitive search.
void ApplyCaseRule(const OptionControls& options);
