#pragma once

#include <vector>

#include "drafting/Texts.h"

namespace drafting {

/// Double quotation marks of a pair, or of a document.
enum class QuoteStyle { kStraight, kCurly, kLow, kAngled, kMixed };

/// @param open, close  the two marks of a pair
QuoteStyle StyleOf(char16_t open, char16_t close);

/// A term without the comma or full stop that American usage puts inside of its quotation marks: “Company,” and
/// “Parties.” The stop of an abbreviation stays: “Acorn Inc.”
std::u16string_view WithoutPunctuation(std::u16string_view term);

/// Index of the quotation mark behind a term that ends at an index, which punctuation and the marks of notes may come
/// before; the text's length when there is none.
std::size_t ClosingMark(std::u16string_view text, std::size_t end);

/// The lines in which a quotation mark has no partner, of those texts in which the marks do not pair up on the whole: a
/// quotation of several paragraphs may open each of them and close the last. Marks behind digits are inches.
std::vector<Finding> FindUnpairedQuotes(const std::vector<Text>& texts, os::Characters& characters);

}  // namespace drafting
