#pragma once

#include <string_view>

namespace marker {

inline constexpr std::u16string_view kIndexBookmark = u"DefinedTermsIndex";
inline constexpr std::u16string_view kNotUsedBookmark = u"DefinedTermsIndexNotUsedList";
inline constexpr std::u16string_view kNotFoundBookmark = u"DefinedTermsIndexNotFoundList";
inline constexpr std::u16string_view kIndexStartBookmark = u"IndexBKStart";
inline constexpr std::u16string_view kReturnBookmark = u"ReturnHereBK";

}  // namespace marker
