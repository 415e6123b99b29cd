#include "dialogs/frmKVX_COM.h"

#include "tests/forms/Dialogs.h"
#include "tests/forms/Golden.h"

namespace {

using TermsDialogOptions = Dialogs;

const std::u16string kReminder =
    u"You'll need to click the 'Find terms and refresh list' button to refresh the 'Terms found in document' list.";
const std::string kReminderAnswer = R"({"message":"Refresh terms list","press":"OK"})";

TEST_F(TermsDialogOptions, ItLooksAsLaidDownWithTheFactoryDefaults) {
  Answer("");
  ExpectGolden("frmKVX_COM.txt", MakeTerms({u"Buyer", u"Seller"}));
}

TEST_F(TermsDialogOptions, AClickOnATabShowsItsFrameAlone) {
  frmKVX_COM& dialog = StepsInTerms({}, R"({"tab":1},{"set":"chkIncludeNotUsed","to":0},{"tab":2},
                                           {"click":"lblHelpClick"},{"tab":1})");
  EXPECT_FALSE(dialog.fraTab[0].Visible());
  EXPECT_TRUE(dialog.fraTab[1].Visible());
  EXPECT_FALSE(dialog.fraTab[2].Visible());
  EXPECT_EQ(dialog.chkIncludeNotUsed.Value(), 0);
}

TEST_F(TermsDialogOptions, OptionsOnAnotherTabCannotBeUsed) {
  Answer(R"({"form":"frmKVX_COM","do":[{"set":"txtCols","to":"3"}]})");
  host->ShowModal(MakeTerms());
  EXPECT_EQ(answers->Failure(), "txtCols of frmKVX_COM: it is disabled or hidden");
}

TEST_F(TermsDialogOptions, ChoosingASearchTypeAppliesItsRuleAndRemindsEveryTime) {
  frmKVX_COM& dialog =
      StepsInTerms({}, R"({"click":["optSearchType",1]},{"click":["optSearchType",0]},{"click":["optSearchType",1]})",
                   kReminderAnswer + "," + kReminderAnswer + "," + kReminderAnswer);
  EXPECT_FALSE(dialog.cmbOpenQuote.Enabled());
  EXPECT_FALSE(dialog.optIndexWhat[1].Enabled());
  ASSERT_EQ(shown.size(), 3u);
  EXPECT_EQ(shown[0].text, kReminder);
  EXPECT_EQ(shown[0].icon, os::Icon::kInformation);
}

TEST_F(TermsDialogOptions, ChoosingTermsInQuotesBringsTheirOptionsBack) {
  frmKVX_COM& dialog = StepsInTerms({}, R"({"click":["optSearchType",1]},{"click":["optSearchType",0]})",
                                    kReminderAnswer + "," + kReminderAnswer);
  for (const forms::Control* control : std::initializer_list<const forms::Control*>{
           &dialog.lblOpenQuote, &dialog.cmbOpenQuote, &dialog.lblCloseQuote, &dialog.cmbCloseQuote,
           &dialog.optIndexWhat[0], &dialog.optIndexWhat[1]}) {
    EXPECT_TRUE(control->Enabled()) << control->Name();
  }
}

TEST_F(TermsDialogOptions, WhileEventsAreSuppressedASearchTypeSetFromCodeDoesNothing) {
  Answer("");
  frmKVX_COM& dialog = MakeTerms();
  ini.blnSuppressEvents = true;
  dialog.optSearchType[1].SetValue(true);
  EXPECT_TRUE(dialog.cmbOpenQuote.Enabled());
  EXPECT_TRUE(shown.empty());
}

TEST_F(TermsDialogOptions, TickingBoldAndThenClickingInAListShowsTheReminder) {
  StepsInTerms({u"Buyer"}, R"({"set":"chkBold","to":1},{"click":["lstTermsInDoc",0]})", kReminderAnswer);
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0].title, u"Refresh terms list");
  EXPECT_EQ(shown[0].text, kReminder);
}

TEST_F(TermsDialogOptions, TickingBoldAndThenRefreshingShowsNone) {
  StepsInTerms({u"Buyer"}, R"({"set":"chkBold","to":1},{"click":"cmdRefresh"})",
               R"({"message":"Save document","press":"OK"})");
  EXPECT_EQ(shown.size(), 1u) << "only that about saving";
}

TEST_F(TermsDialogOptions, TickingBoldAndThenSettingDefaultsShowsNone) {
  StepsInTerms({u"Buyer"}, R"({"set":"chkBold","to":1},{"click":"cmdSetDefaults"})",
               R"({"message":"Save document","press":"OK"})");
  EXPECT_EQ(shown.size(), 1u) << "only that about saving";
}

TEST_F(TermsDialogOptions, TickingBoldAndThenChoosingASearchTypeShowsOnlyThatOnesReminder) {
  StepsInTerms({u"Buyer"}, R"({"set":"chkBold","to":1},{"click":["optSearchType",1]})", kReminderAnswer);
  EXPECT_EQ(shown.size(), 1u);
}

TEST_F(TermsDialogOptions, AValueTurnedBackBeforeTheFocusGoesShowsNoReminder) {
  StepsInTerms({u"Buyer"}, R"({"set":"chkBold","to":1},{"set":"chkBold","to":0},{"click":["lstTermsInDoc",0]})");
  EXPECT_TRUE(shown.empty());
}

TEST_F(TermsDialogOptions, ComingBackToAChangedBoxWithoutChangingItShowsNoSecondReminder) {
  StepsInTerms({u"Buyer"},
               R"({"set":"chkBold","to":1},{"focus":"lstTermsInDoc"},{"focus":"chkBold"},{"focus":"lstTermsInDoc"})",
               kReminderAnswer);
  EXPECT_EQ(shown.size(), 1u);
}

TEST_F(TermsDialogOptions, ChangedQuotesRemindWhenTheyLoseTheFocus) {
  StepsInTerms({u"Buyer"}, R"({"set":"cmbOpenQuote","to":2},{"set":"cmbCloseQuote","to":3},{"focus":"chkIgnoreNums"})",
               kReminderAnswer + "," + kReminderAnswer);
  EXPECT_EQ(shown.size(), 2u);
}

TEST_F(TermsDialogOptions, DuringTheFirstFillNoReminderIsShown) {
  Answer("");
  frmKVX_COM& dialog = MakeTerms();
  host->ShowModeless(dialog);
  dialog.chkBold.SetFocus();
  dialog.chkBold.SetValue(1);
  dialog.firstFillInProgress = true;
  dialog.lstTermsInDoc.SetFocus();
  EXPECT_TRUE(shown.empty());
  dialog.Hide();
}

TEST_F(TermsDialogOptions, TheCaseRuleHoldsHereToo) {
  frmKVX_COM& dialog = StepsInTerms({}, R"({"set":"chkCaseSensitive","to":0})");
  EXPECT_FALSE(dialog.chkIndexCaps.Enabled());
  EXPECT_EQ(dialog.chkIndexCaps.Value(), 1);
  EXPECT_TRUE(StepsInTerms({}, R"({"set":"chkCaseSensitive","to":0},{"set":"chkCaseSensitive","to":1})")
                  .chkIndexCaps.Enabled());
}

TEST_F(TermsDialogOptions, TheTabFollowsTheIndexKindHereToo) {
  EXPECT_EQ(StepsInTerms({}, R"({"tab":1},{"click":["optIndexWhat",1]},{"set":"chkTabSep","to":0},
                                {"click":["optIndexWhat",0]},{"click":["optIndexWhat",1]})")
                .chkTabSep.Value(),
            1);
  EXPECT_EQ(
      StepsInTerms({}, R"({"tab":1},{"click":["optIndexWhat",1]},{"click":["optIndexWhat",0]})").chkTabSep.Value(), 0);
}

TEST_F(TermsDialogOptions, TheColumnsBoxTakesOneToFourAndBackspaceHereToo) {
  frmKVX_COM& dialog = StepsInTerms(
      {}, R"({"tab":1},{"key":"txtCols","char":"5"},{"key":"txtCols","char":"0"},{"key":"txtCols","char":"x"},
             {"key":"txtCols","code":8},{"key":"txtCols","char":"1"},{"key":"txtCols","char":"4"})");
  EXPECT_EQ(dialog.txtCols.Text(), u"14");
}

TEST_F(TermsDialogOptions, TheCloseBoxIsTakenAway) {
  Answer(R"({"form":"frmKVX_COM","do":[{"close":true}]})");
  frmKVX_COM& dialog = MakeTerms();
  host->ShowModal(dialog);
  EXPECT_EQ(answers->Failure(), "frmKVX_COM has no close box");
  EXPECT_NE(dialog.CloseBoxWindow(), 0);
  dialog.RemoveCloseBox(u"No such window");
  EXPECT_EQ(dialog.CloseBoxWindow(), 0);
}

TEST_F(TermsDialogOptions, UnloadingByCodeGivesDone) {
  frmKVX_COM& dialog = StepsInTerms({}, R"({"click":"cmdCancel"})");
  EXPECT_EQ(dialog.Tag(), u"Cancel");
  dialog.Unload();
  EXPECT_EQ(dialog.Tag(), u"Done");
}

TEST_F(TermsDialogOptions, TheStatusTextGoesToTheStatusBar) {
  Answer("");
  frmKVX_COM& dialog = MakeTerms();
  dialog.SetStatusText(u"Sorting");
  EXPECT_EQ(dialog.StatusBar1.SimpleText(), u"Sorting");
}

}  // namespace
