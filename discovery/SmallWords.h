#pragma once

#include <string_view>

/// The words that hold an English sentence together: articles, pronouns, prepositions, conjunctions, auxiliaries and
/// the adverbs of drafting. With a capital they begin a sentence or stand in a title; they are no part of a name
/// either way. Case does not count. @param word letters only, as it reads
bool IsSmallWord(std::u16string_view word);
