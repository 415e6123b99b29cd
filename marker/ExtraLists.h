#pragma once

#include "platform/word/Types.h"

namespace marker {

/// Whether lists that were written behind the index have moved anything on that the index tells the page of.
bool HaveListsMovedEntries(const word::DocumentPtr& document);

/// Removes the not-used and the not-found list: what their bookmarks cover from the paragraph mark written before
/// the heading on, which is all of the list's own, or from the heading on where that mark was deleted. What such a
/// bookmark covers before is the end of the index or the start of the author's paragraph, and stays.
void RemoveExtraLists(const word::DocumentPtr& document);

}  // namespace marker
