#pragma once

#include "platform/word/Types.h"

#include <string_view>

namespace marker {

/// Puts the index at the start of the bookmark "IndexBKStart", behind entries of ours that begin there, and covers it
/// with "DefinedTermsIndex". One column at the start of a paragraph stays in the section it stands in. Any other index
/// gets a section of its own, since its entries need paragraphs of their own.
/// @param columns brought into 1 to 4
/// @return the range of the index
/// @throws HostError kMemberDoesNotExist without the bookmark, kCommandFailed when that is not in the main text
word::RangePtr InsertIndexField(const word::DocumentPtr& document, int columns, std::u16string_view separator);

/// Updates the first index of ours; none is no error.
void UpdateIndexField(const word::DocumentPtr& document);

/// Removes every index of ours, wherever it was moved to, with the bookmark over it.
void RemoveIndexFields(const word::DocumentPtr& document);

}  // namespace marker
