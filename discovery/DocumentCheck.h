#pragma once

#include <cstdint>
#include <string_view>

#include "platform/Host.h"
#include "platform/word/Types.h"

/// What the check before a search came to.
enum class DocumentCheck : int { kSkipped = 0, kSaved = 1, kStop = 2 };

/// Makes sure that a document is saved under a name that can be written, before a search changes it: asks the user's
/// leave, saves it, and takes one that was never saved or whose file is read-only through a Save As dialog, until it is
/// saved or the user gives up.
/// @param hwnd the terms dialog's window, which owns the Save As dialog
/// @param prompt false: nothing is checked
/// @param searchType "SearchFlagged" or "SearchInitCaps", for the wording
/// @return kStop when the user refused, or when saving in place failed, which was shown
DocumentCheck CheckDocumentBeforeSearch(const word::DocumentPtr& document, std::intptr_t hwnd, bool prompt,
                                        std::u16string_view searchType, const Host& host);

/// Saves a document under another name. A failure is shown.
/// @param source what the document is to the user, such as "Source"
bool SaveUnderName(const word::DocumentPtr& document, std::u16string_view FileName, std::u16string_view source,
                   os::Messages& messages);
