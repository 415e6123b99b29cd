#pragma once

#include <string>
#include <string_view>

namespace drafting {

/// The term with its last word in the other number, by the rules of English that contracts need: "Parties" for "Party",
/// "Claim" for "Claims". Of a phrase with "of" the word before it counts: "Events of Default" for "Event of Default".
/// Empty when no rule tells.
std::u16string InOtherNumber(std::u16string_view term);

}  // namespace drafting
