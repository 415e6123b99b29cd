#include "settings/OptionSettings.h"

#include <gtest/gtest.h>

#include <climits>

#include "settings/Defaults.h"
#include "tests/fakes/FakeFormHost.h"
#include "tests/fakes/FakeServices.h"
#include "tests/fakes/OptionsForm.h"

namespace {

class OptionSettings : public testing::Test {
 protected:
  OptionSettings() { ini.IniFilePath = u"C:\\Data\\\\kvx.ini"; }
  bool Load() { return LoadSettingsIntoDialog(ini, messages, form.Options()); }
  void Save() { SaveOptionsToIni(ini, messages, form.Options()); }
  /// A file whose keys are all missing but these.
  void Keep(std::u16string_view key, std::u16string_view value) { ini.WriteIniValue(u"Defaults", key, value); }

  fakes::CallLog log;
  fakes::FakeMessages messages{log};
  fakes::FakeFormHost host{log};
  fakes::FakeFiles files;
  fakes::FakeProfile profile{files};
  modIniFile ini{profile, files};
  fakes::OptionsForm form{host};
};

}  // namespace

TEST_F(OptionSettings, WithoutAFileEveryKeyIsWrittenWithItsDefaultInOrder) {
  ASSERT_TRUE(Load());
  EXPECT_EQ(profile.written,
            (std::vector<std::u16string>{u"SearchType", u"Bold", u"Highlight", u"IgnoreWordsWithNums", u"CaseSensitive",
                                         u"IndexAllCaps", u"OpenQuote", u"CloseQuote", u"IndexCols", u"IndexSep",
                                         u"IncludeNotUsed", u"IncludeNotFound", u"ShowFormatReminder",
                                         u"ShowSearchChooser", u"ShowHelp", u"IndexWhat"}));
}

TEST_F(OptionSettings, WithoutAFileEachKeyGetsItsFactoryDefault) {
  ASSERT_TRUE(Load());
  const std::pair<std::u16string_view, std::u16string_view> defaults[] = {{u"SearchType", u"SearchFlagged"},
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
                                                                          {u"IndexWhat", u"IndexAll"}};
  EXPECT_EQ(profile.values.size(), std::size(defaults));
  for (const auto& [key, value] : defaults) EXPECT_EQ(profile[key], value) << fakes::Plain(key);
}

TEST_F(OptionSettings, WithoutAFileTheDialogShowsTheDefaults) {
  ASSERT_TRUE(Load());
  EXPECT_EQ(form.optSearchType.Selected(), 0);
  EXPECT_TRUE(form.cmbOpenQuote.Enabled());
  EXPECT_TRUE(form.optIndexWhat[1].Enabled());
  EXPECT_EQ(form.chkBold.Value(), 0);
  EXPECT_EQ(form.chkHighlight.Value(), 1);
  EXPECT_EQ(form.chkIgnoreNums.Value(), 1);
  EXPECT_EQ(form.chkCaseSensitive.Value(), 1);
  EXPECT_EQ(form.chkIndexCaps.Value(), 1);
  EXPECT_TRUE(form.chkIndexCaps.Enabled());
  EXPECT_EQ(form.chkIncludeNotUsed.Value(), 1);
  EXPECT_EQ(form.chkIncludeNotFound.Value(), 1);
  EXPECT_EQ(form.txtCols.Text(), u"2");
  EXPECT_EQ(form.txtSep.Text(), u":  ");
  EXPECT_EQ(form.chkTabSep.Value(), 1);
  EXPECT_EQ(form.cmbOpenQuote.List(form.cmbOpenQuote.ListIndex()), u"\u201C");
  EXPECT_EQ(form.cmbCloseQuote.List(form.cmbCloseQuote.ListIndex()), u"\u201D");
  EXPECT_EQ(form.optIndexWhat.Selected(), 0);
}

TEST_F(OptionSettings, BothListsOfferFiveQuotesInOrder) {
  ASSERT_TRUE(Load());
  for (const forms::ComboBox* list : {&form.cmbOpenQuote, &form.cmbCloseQuote}) {
    ASSERT_EQ(list->ListCount(), 5);
    const std::pair<int, char16_t> quotes[] = {
        {147, u'\u201C'}, {148, u'\u201D'}, {132, u'\u201E'}, {171, u'\u00AB'}, {187, u'\u00BB'}};
    for (int i = 0; i < 5; ++i) {
      EXPECT_EQ(list->ItemData(i), quotes[i].first);
      EXPECT_EQ(list->List(i), std::u16string(1, quotes[i].second));
    }
  }
}

TEST_F(OptionSettings, EachKeyThatCannotBeWrittenIsReportedAndTheRestFollows) {
  profile.failing = {u"Bold", u"IndexCols"};
  messages.Expect(u"Ini file problem");
  messages.Expect(u"Ini file problem");
  ASSERT_TRUE(Load());
  EXPECT_EQ(profile.written.size(), kSettingDefaults.size() - 2);
  EXPECT_EQ(profile.written.back(), u"IndexWhat");
}

TEST_F(OptionSettings, AnExistingFileIsNotFilledUp) {
  Keep(u"Bold", u"True");
  Keep(u"OpenQuote", u"171");
  Keep(u"CloseQuote", u"187");
  profile.written.clear();
  ASSERT_TRUE(Load());
  EXPECT_TRUE(profile.written.empty());
}

TEST_F(OptionSettings, OnlyTheExactWordTrueTicksABox) {
  for (const std::u16string_view value : {u"true", u"TRUE", u"1", u""}) {
    Keep(u"Bold", value);
    form.chkBold.SetValue(1);
    ASSERT_TRUE(Load());
    EXPECT_EQ(form.chkBold.Value(), 0) << fakes::Plain(value);
  }
  Keep(u"Bold", u"True");
  ASSERT_TRUE(Load());
  EXPECT_EQ(form.chkBold.Value(), 1);
}

TEST_F(OptionSettings, WithoutCaseSensitiveFullCapsKeepsItsTickButIsDisabled) {
  Keep(u"CaseSensitive", u"False");
  Keep(u"IndexAllCaps", u"True");
  ASSERT_TRUE(Load());
  EXPECT_EQ(form.chkIndexCaps.Value(), 1);
  EXPECT_FALSE(form.chkIndexCaps.Enabled());
}

TEST_F(OptionSettings, CapitalisedWordsDisableQuotesAndIndexWhat) {
  Keep(u"SearchType", u"SearchInitCaps");
  ASSERT_TRUE(Load());
  EXPECT_EQ(form.optSearchType.Selected(), 1);
  EXPECT_FALSE(form.lblOpenQuote.Enabled());
  EXPECT_FALSE(form.cmbOpenQuote.Enabled());
  EXPECT_FALSE(form.lblCloseQuote.Enabled());
  EXPECT_FALSE(form.cmbCloseQuote.Enabled());
  EXPECT_FALSE(form.optIndexWhat[0].Enabled());
  EXPECT_FALSE(form.optIndexWhat[1].Enabled());
}

TEST_F(OptionSettings, AnUnknownSearchTypeChangesNothing) {
  Keep(u"SearchType", u"Anything");
  ASSERT_TRUE(Load());
  EXPECT_EQ(form.optSearchType.Selected(), -1);
  EXPECT_TRUE(form.cmbOpenQuote.Enabled());
}

TEST_F(OptionSettings, AnEmptyIndexWhatMeansAllAndAnUnknownOneNeither) {
  Keep(u"IndexWhat", u"");
  ASSERT_TRUE(Load());
  EXPECT_EQ(form.optIndexWhat.Selected(), 0);
  Keep(u"IndexWhat", u"IndexDefs");
  ASSERT_TRUE(Load());
  EXPECT_EQ(form.optIndexWhat.Selected(), 1);
  Keep(u"IndexWhat", u"indexall");
  ASSERT_TRUE(Load());
  EXPECT_EQ(form.optIndexWhat.Selected(), -1);
}

TEST_F(OptionSettings, AQuoteThatIsNoNumberBecomesTheDefaultInTheFileToo) {
  Keep(u"OpenQuote", u"abc");
  Keep(u"CloseQuote", u"");
  ASSERT_TRUE(Load());
  EXPECT_EQ(profile[u"OpenQuote"], u"147");
  EXPECT_EQ(profile[u"CloseQuote"], u"148");
  EXPECT_EQ(form.cmbOpenQuote.ItemData(form.cmbOpenQuote.ListIndex()), 147);
}

TEST_F(OptionSettings, QuoteCodesAreNumbersAsDecimalText) {
  const std::pair<std::u16string_view, int> cases[] = {
      {u"171", 171},  {u"34", 34},         {u"147.4", 147},      {u"146.5", 146},          {u".5e1", 5},
      {u"+187", 187}, {u"-1", -1},         {u"99999", 99999},    {u"4294967296", INT_MAX}, {u"-4294967296", INT_MIN},
      {u"1e3", 1000}, {u"1e999", INT_MAX}, {u"-1e999", INT_MIN}, {u"1e-999", 0},           {u"2147483647", INT_MAX}};
  for (const auto& [text, code] : cases) {
    Keep(u"OpenQuote", text);
    EXPECT_EQ(ReadQuoteCode(ini, u"OpenQuote", u"147"), code) << fakes::Plain(text);
    EXPECT_EQ(profile[u"OpenQuote"], text);
  }
}

TEST_F(OptionSettings, WhatIsNoNumberIsNoQuoteCode) {
  for (const std::u16string_view text : {u"1.2.3", u".", u"12a", u"", u"-", u"+-1", u"e3", u"1e", u"inf", u"nan"}) {
    Keep(u"OpenQuote", text);
    EXPECT_EQ(ReadQuoteCode(ini, u"OpenQuote", u"147"), 147) << fakes::Plain(text);
    EXPECT_EQ(profile[u"OpenQuote"], u"147");
  }
}

TEST_F(OptionSettings, AQuoteThatIsNotOfferedLeavesTheFirstChoices) {
  for (const std::u16string_view code : {u"34", u"99999", u"1e30"}) {
    Keep(u"OpenQuote", code);
    Keep(u"CloseQuote", code);
    ASSERT_TRUE(Load());
    EXPECT_EQ(form.cmbOpenQuote.ListIndex(), 0);
    EXPECT_EQ(form.cmbCloseQuote.ListIndex(), 1);
    EXPECT_EQ(profile[u"OpenQuote"], code);
    EXPECT_EQ(profile[u"CloseQuote"], code);
  }
}

TEST_F(OptionSettings, WhatFollowsTheTabMarkerIsLost) {
  Keep(u"IndexSep", u"\"; {TAB}x\"");
  ASSERT_TRUE(Load());
  EXPECT_EQ(form.txtSep.Text(), u"; ");
  EXPECT_EQ(form.chkTabSep.Value(), 1);
  Save();
  EXPECT_EQ(profile[u"IndexSep"], u"\"; {TAB}\"");
}

TEST_F(OptionSettings, ASeparatorWithoutTheMarkerIsTakenWhole) {
  Keep(u"IndexSep", u"\" - {tab}\"");
  ASSERT_TRUE(Load());
  EXPECT_EQ(form.txtSep.Text(), u" - {tab}");
  EXPECT_EQ(form.chkTabSep.Value(), 0);
}

TEST_F(OptionSettings, LoadingRaisesNoRulesAndEndsTheirSuppression) {
  bool suppressed = false;
  form.optSearchType[0].onClick = [&] { suppressed = ini.blnSuppressEvents; };
  ASSERT_TRUE(Load());
  EXPECT_TRUE(suppressed);
  EXPECT_FALSE(ini.blnSuppressEvents);
}

TEST_F(OptionSettings, AnErrorWhileLoadingIsOnlyReturned) {
  form.chkBold.onClick = [] { throw word::HostError(word::kCommandFailed, u"Command failed", "Test"); };
  Keep(u"Bold", u"True");
  EXPECT_FALSE(Load());
  EXPECT_FALSE(ini.blnSuppressEvents);
  EXPECT_TRUE(messages.shown.empty());
}

TEST_F(OptionSettings, SavingWritesTheControlsInOrderAndNeverTheShowKeys) {
  ASSERT_TRUE(Load());
  form.chkBold.SetValue(1);
  form.chkHighlight.SetValue(0);
  form.txtCols.SetText(u"3");
  form.txtSep.SetText(u" ");
  form.chkTabSep.SetValue(0);
  form.cmbOpenQuote.SetListIndex(3);
  form.cmbCloseQuote.SetListIndex(4);
  form.optIndexWhat[1].SetValue(true);
  form.optSearchType[1].SetValue(true);
  profile.written.clear();
  Save();
  EXPECT_EQ(profile.written,
            (std::vector<std::u16string>{u"Bold", u"CaseSensitive", u"IndexAllCaps", u"Highlight",
                                         u"IgnoreWordsWithNums", u"IncludeNotFound", u"IncludeNotUsed", u"IndexCols",
                                         u"IndexSep", u"OpenQuote", u"CloseQuote", u"SearchType", u"IndexWhat"}));
  EXPECT_EQ(profile[u"Bold"], u"True");
  EXPECT_EQ(profile[u"Highlight"], u"False");
  EXPECT_EQ(profile[u"IndexCols"], u"3");
  EXPECT_EQ(profile[u"IndexSep"], u"\" \"");
  EXPECT_EQ(profile[u"OpenQuote"], u"171");
  EXPECT_EQ(profile[u"CloseQuote"], u"187");
  EXPECT_EQ(profile[u"SearchType"], u"SearchInitCaps");
  EXPECT_EQ(profile[u"IndexWhat"], u"IndexDefs");
  EXPECT_FALSE(form.cmbOpenQuote.Enabled());
}

TEST_F(OptionSettings, SavingWithoutAChosenSearchTypeWritesNone) {
  Keep(u"SearchType", u"Anything");
  Keep(u"IndexWhat", u"Anything");
  ASSERT_TRUE(Load());
  Save();
  EXPECT_EQ(profile[u"SearchType"], u"Anything");
  EXPECT_EQ(profile[u"IndexWhat"], u"Anything");
}

TEST_F(OptionSettings, AnErrorWhileSavingIsShownAndKeepsWhatWasWritten) {
  Keep(u"Bold", u"False");
  form.chkBold.SetValue(1);
  messages.Expect(u"Error setting defaults");
  Save();  // The quote lists were never filled, so no entry is chosen.
  EXPECT_EQ(profile[u"Bold"], u"True");
  EXPECT_EQ(profile.values.count({u"Defaults", u"SearchType"}), 0u);
}
