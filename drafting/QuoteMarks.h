#pragma once

#include <vector>

#include "drafting/Texts.h"

namespace drafting {

/// Double quotation marks of a pair, or of a document.
enum class QuoteStyle { kStraight, kCurly, kLow, kAngled, kMixed };

/// @param open, close  the two marks of a pair
QuoteStyle StyleOf(char16_t open, char16_t close);

/// The lines in which a quotation mark has no partner, of those texts in which the marks do not pair up on the whole: a
/// quotation of several paragraphs may open each of them and close the last. Marks behind digits are inches.
std::vector<Finding> FindUnpairedQuotes(const std::vector<Text>& texts, os::Characters& characters);

}  // namespace drafting
