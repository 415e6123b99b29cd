#pragma once

#include <string_view>

/// The bookmarks that a run and the companion know a document's index by. Each covers what it is named after.
inline constexpr std::u16string_view kIndexBookmark = u"DefinedTermsIndex";
inline constexpr std::u16string_view kNotUsedListBookmark = u"DefinedTermsIndexNotUsedList";
inline constexpr std::u16string_view kNotFoundListBookmark = u"DefinedTermsIndexNotFoundList";
/// Where a run puts the index.
inline constexpr std::u16string_view kIndexStartBookmark = u"IndexBKStart";
/// Where the cursor was before a run.
inline constexpr std::u16string_view kReturnBookmark = u"ReturnHereBK";
