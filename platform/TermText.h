#pragma once

#include <string>
#include <string_view>

/// The term that stands in a text between quotes, as a range gives it. The marks of notes and comments at its ends say
/// nothing of the term, and Word leaves the code of a field without result in a text though no codes show.
/// @return empty where the quotes hold nothing else
std::u16string TermText(std::u16string_view quoted);
