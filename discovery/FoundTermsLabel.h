#pragma once

#include <string_view>

/// What was searched for.
enum class TermKind { kQuoted, kBoldQuoted, kCapitals };

/// What stands over the list of found terms after a search. @param any whether any were found
std::u16string_view FoundTermsLabel(TermKind kind, bool any);
