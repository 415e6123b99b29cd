#include "dialogs/frmKVXOptions.h"

#include "tests/forms/Dialogs.h"
#include "tests/forms/Golden.h"

namespace {

using OptionsDialog = Dialogs;

TEST_F(OptionsDialog, ItLooksAsLaidDownWithTheFactoryDefaults) {
  frmKVXOptions& dialog = StepsInOptions(R"({"click":"cmdOK"})");
  ExpectGolden("frmKVXOptions.txt", dialog);
}

TEST_F(OptionsDialog, OKSavesTheOptionsAndHides) {
  frmKVXOptions& dialog = StepsInOptions(R"({"set":"chkBold","to":1},{"click":"cmdOK"})");
  EXPECT_EQ(dialog.Tag(), u"OK");
  EXPECT_TRUE(dialog.Loaded());
  EXPECT_EQ(profile[u"Bold"], u"True");
}

TEST_F(OptionsDialog, CancelHidesWithoutSaving) {
  frmKVXOptions& dialog = StepsInOptions(R"({"set":"chkBold","to":1},{"click":"cmdCancel"})");
  EXPECT_EQ(dialog.Tag(), u"Cancel");
  EXPECT_TRUE(dialog.Loaded());
  EXPECT_TRUE(profile.written.empty());
}

TEST_F(OptionsDialog, TheTitleBarGivesCancelAndUnloadingByCodeGivesDone) {
  frmKVXOptions& dialog = StepsInOptions(R"({"close":true})");
  EXPECT_EQ(dialog.Tag(), u"Cancel");
  EXPECT_FALSE(dialog.Loaded());
  frmKVXOptions& other = StepsInOptions(R"({"click":"cmdOK"})");
  other.Unload();
  EXPECT_EQ(other.Tag(), u"Done");
}

TEST_F(OptionsDialog, SetAsDefaultsSavesAndStaysOpen) {
  frmKVXOptions& dialog =
      StepsInOptions(R"({"set":"chkHighlight","to":0},{"click":"cmdSetDefaults"},{"set":"chkBold","to":1},
                        {"click":"cmdCancel"})");
  EXPECT_EQ(dialog.Tag(), u"Cancel");
  EXPECT_EQ(profile[u"Highlight"], u"False");
  EXPECT_EQ(profile[u"Bold"], u"False");
}

TEST_F(OptionsDialog, EnterPressesSearchAndEscapeCancel) {
  EXPECT_EQ(StepsInOptions(R"({"key":"txtSep","code":13})").Tag(), u"OK");
  EXPECT_EQ(StepsInOptions(R"({"key":"txtSep","code":27})").Tag(), u"Cancel");
}

TEST_F(OptionsDialog, ChoosingCapitalisedWordsGreysQuotesAndIndexWhatAndQuotesBringThemBack) {
  frmKVXOptions& dialog = StepsInOptions(R"({"click":["optSearchType",1]},{"click":"cmdOK"})");
  for (const forms::Control* control : {static_cast<const forms::Control*>(&dialog.lblOpenQuote),
                                        static_cast<const forms::Control*>(&dialog.cmbOpenQuote),
                                        static_cast<const forms::Control*>(&dialog.lblCloseQuote),
                                        static_cast<const forms::Control*>(&dialog.cmbCloseQuote),
                                        static_cast<const forms::Control*>(&dialog.optIndexWhat[0]),
                                        static_cast<const forms::Control*>(&dialog.optIndexWhat[1])}) {
    EXPECT_FALSE(control->Enabled()) << control->Name();
  }
  frmKVXOptions& other = StepsInOptions(R"({"click":["optSearchType",0]},{"set":"cmbOpenQuote","to":3},
                                           {"click":["optIndexWhat",1]},{"click":"cmdOK"})");
  EXPECT_EQ(other.cmbOpenQuote.ListIndex(), 3);
  EXPECT_TRUE(other.optIndexWhat[1].Value());
}

TEST_F(OptionsDialog, NoReminderIsShown) {
  StepsInOptions(R"({"set":"chkBold","to":1},{"focus":"txtSep"},{"set":"cmbOpenQuote","to":2},{"focus":"txtSep"},
                    {"click":["optSearchType",1]},{"click":"cmdOK"})");
  EXPECT_TRUE(shown.empty());
}

TEST_F(OptionsDialog, ClearingCaseSensitiveGreysFullCapsWithoutChangingItsTick) {
  frmKVXOptions& dialog = StepsInOptions(R"({"set":"chkCaseSensitive","to":0},{"click":"cmdOK"})");
  EXPECT_FALSE(dialog.chkIndexCaps.Enabled());
  EXPECT_EQ(dialog.chkIndexCaps.Value(), 1);
}

TEST_F(OptionsDialog, TheTabFollowsTheIndexKindWhateverTheUserSetBefore) {
  EXPECT_EQ(StepsInOptions(R"({"click":["optIndexWhat",1]},{"set":"chkTabSep","to":0},{"click":["optIndexWhat",0]},
                              {"click":["optIndexWhat",1]},{"click":"cmdOK"})")
                .chkTabSep.Value(),
            1);
  EXPECT_EQ(StepsInOptions(R"({"click":["optIndexWhat",0]},{"click":"cmdOK"})").chkTabSep.Value(), 0);
}

TEST_F(OptionsDialog, ChoosingTheIndexKindThatIsChosenLeavesTheTabAlone) {
  EXPECT_EQ(StepsInOptions(R"({"click":["optIndexWhat",0]},{"click":"cmdOK"})").chkTabSep.Value(), 1);
}

TEST_F(OptionsDialog, TheColumnsBoxTakesOneToFourAndBackspaceOnly) {
  frmKVXOptions& dialog = StepsInOptions(
      R"({"key":"txtCols","char":"5"},{"key":"txtCols","char":"0"},{"key":"txtCols","char":"x"},
         {"key":"txtCols","code":8},{"key":"txtCols","char":"1"},{"key":"txtCols","char":"4"},{"click":"cmdOK"})");
  EXPECT_EQ(dialog.txtCols.Text(), u"14");
  for (const char16_t key : {char16_t{8}, char16_t{9}, char16_t{13}, char16_t{27}, u'1', u'2', u'3', u'4'}) {
    EXPECT_TRUE(dialog.txtCols.onKeyPress(key)) << static_cast<int>(key);
  }
  for (const char16_t key : {u'0', u'5', u' ', u'-', char16_t{127}, char16_t{0xFF12}}) {
    EXPECT_FALSE(dialog.txtCols.onKeyPress(key)) << static_cast<int>(key);
  }
}

TEST_F(OptionsDialog, TheArrowsStepTheColumnsWithinOneToFour) {
  EXPECT_EQ(StepsInOptions(R"({"click":["updownCols",1]},{"click":["updownCols",1]},{"click":["updownCols",1]},
                              {"click":"cmdOK"})")
                .txtCols.Text(),
            u"4");
  EXPECT_EQ(StepsInOptions(R"({"click":["updownCols",0]},{"click":["updownCols",0]},{"click":["updownCols",0]},
                              {"click":["updownCols",0]},{"click":"cmdOK"})")
                .txtCols.Text(),
            u"1");
}

}  // namespace
