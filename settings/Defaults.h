#pragma once

#include <array>
#include <string_view>

/// The keys of the settings file's only section, with what is written for each when the file is made. Their
/// order is that in which they are written.

inline constexpr std::u16string_view kDefaultsSection = u"Defaults";

struct SettingDefault {
  std::u16string_view key;
  std::u16string_view value;
};

inline constexpr std::array<SettingDefault, 16> kSettingDefaults = {{
    {u"SearchType", u"SearchFlagged"},
    {u"Bold", u"False"},
    {u"Highlight", u"True"},
    {u"IgnoreWordsWithNums", u"True"},
    {u"CaseSensitive", u"True"},
    {u"IndexAllCaps", u"True"},
    {u"OpenQuote", u"147"},
    {u"CloseQuote", u"148"},
    {u"IndexCols", u"2"},
    {u"IndexSep", u"\":  {TAB}\""},
    {u"IncludeNotUsed", u"True"},
    {u"IncludeNotFound", u"True"},
    {u"ShowFormatReminder", u"True"},
    {u"ShowSearchChooser", u"True"},
    {u"ShowHelp", u"True"},
    {u"IndexWhat", u"IndexAll"},
}};
