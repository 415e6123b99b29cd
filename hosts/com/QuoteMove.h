#pragma once

#include "hosts/com/Find.h"

namespace com {

/// Replaces all where the replacement is the searched text with its first character moved on: that character alone
/// moves, with its style and formatting and the bookmarks around it alone, and nothing between is touched. Word's own
/// replacing would put a character of another style there and make the whole match alike.
/// @param search with both texts put, a plain search @return whether there was one
bool MoveFirstCharacters(SearchOfRange& search);

}  // namespace com
