#pragma once

#include "platform/os/Messages.h"
#include "settings/OptionControls.h"
#include "settings/modIniFile.h"

/// The option controls of both dialogs, filled from the settings file and written back to it.

/// Fills every option control. When there is no settings file, all keys are written first with their
/// defaults; a key that cannot be written is reported, and the rest still follows. A quote code that is no
/// number is replaced by its default, in the file too.
/// @return false when an error interrupted it; nothing is shown for that
bool LoadSettingsIntoDialog(modIniFile& ini, os::Messages& messages, const OptionControls& options);

/// Writes what the controls show. An error is shown and ends it; what was written before stays.
void SaveOptionsToIni(modIniFile& ini, os::Messages& messages, const OptionControls& options);

/// A quote code as the settings keep it: any decimal number, which need not be the code of a quote, rounded to a whole
/// one and brought into the range of int. What is no number reads as the default, which is then written back.
/// @param key "OpenQuote" or "CloseQuote"
int ReadQuoteCode(modIniFile& ini, std::u16string_view key, std::u16string_view defaultCode);

/// Fills both lists with the quotation marks that are offered and chooses the curly pair.
void FillQuotes(forms::ComboBox& cmbOpenQuote, forms::ComboBox& cmbCloseQuote);

/// Chooses the entries of both lists that carry the codes; a list without such an entry stays as it is.
void SelectQuotes(forms::ComboBox& cmbOpenQuote, forms::ComboBox& cmbCloseQuote, int openCode, int closeCode);

/// Writes the codes of the chosen entries to the settings.
/// @return false when one could not be written
bool SaveQuotes(modIniFile& ini, const forms::ComboBox& cmbOpenQuote, const forms::ComboBox& cmbCloseQuote);
