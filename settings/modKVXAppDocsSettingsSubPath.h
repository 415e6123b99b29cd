#pragma once

#include <string_view>

/// Where the settings file lies below the user's Application Data folder.
inline constexpr std::u16string_view modKVXAppDocsSettingsSubPath = u"Brantholt\\Kelvarin";
