#pragma once

#include <string_view>

/// The warning about mixed quotation marks that both option dialogs show in lblReadme.
inline constexpr std::u16string_view kMixedQuotesWarning =
    u"If you're indexing terms in quotes, results are unpredictable if your document includes mixed types of quotation "
    u"marks.  For instance if it contains both "
    u"\u201C and \""
    u" as open quotes.  Ensure that your document only uses one consistent style of open and close quotation marks.";
