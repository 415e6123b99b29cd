#include "dialogs/frmKVX_COM.h"

#include "hosts/json/Json.h"
#include "tests/forms/Dialogs.h"

namespace {

using Texts = std::vector<std::u16string>;
using Json = json::Value;

const std::string kSave = R"({"message":"Save document","press":"OK"})";

class Refresh : public Dialogs {
 protected:
  Refresh() { word.stories = {{word::wdMainTextStory, u"The \"Seller\" sells to the \"Buyer\".\r", {{5, 11}}}}; }

  /// Steps that search once, answered with the leave to save, before the other answers.
  frmKVX_COM& StepsThatSearch(const std::vector<std::u16string>& found, const std::string& steps,
                              const std::string& otherAnswers = "") {
    return StepsInTerms(found, steps, kSave + (otherAnswers.empty() ? "" : "," + otherAnswers));
  }

  std::vector<Json> Events(const std::string& kind) const {
    std::vector<Json> events;
    std::istringstream lines(transcriptText.str());
    for (std::string line; std::getline(lines, line);) {
      Json event = json::Read(line);
      if (event["event"] == kind) events.push_back(std::move(event));
    }
    return events;
  }
};

TEST_F(Refresh, TheFoundTermsReplaceTheListSortedAndSelected) {
  frmKVX_COM& dialog = StepsThatSearch({u"old"}, R"({"click":"cmdRefresh"})");
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*Buyer", u"*Seller"}));
  EXPECT_EQ(dialog.lstTermsInDoc.ListIndex(), 0);
  EXPECT_EQ(dialog.DefaultButton(), &dialog.cmdOK);
}

TEST_F(Refresh, AfterRefreshingTheListScrollsAsFarAsItsWidestEntry) {
  StepsThatSearch({u"something wide"}, R"({"click":"cmdRefresh"})");
  EXPECT_EQ(host->extents, (Extents{{"lstTermsInDoc", 60}}));
}

TEST_F(Refresh, ItEnablesOKAndCancel) {
  Answer(R"({"form":"frmKVX_COM","do":[{"click":"cmdRefresh"},{"focus":"cmdOK"},{"click":"cmdCancel"}]})" +
         ("," + kSave));
  frmKVX_COM& dialog = MakeTerms();
  dialog.cmdOK.SetEnabled(false);
  dialog.cmdCancel.SetEnabled(false);
  ShowToItsEnd(dialog);
  EXPECT_TRUE(dialog.cmdOK.Enabled());
  EXPECT_EQ(dialog.Tag(), u"Cancel");
}

TEST_F(Refresh, TheOptionsInTheDialogCountWithoutBeingSaved) {
  frmKVX_COM& dialog = StepsThatSearch({}, R"({"set":"chkBold","to":1},{"click":"cmdRefresh"})");
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*Seller"}));
  EXPECT_TRUE(profile.written.empty());
}

TEST_F(Refresh, TheChosenQuotesAreSearchedFor) {
  frmKVX_COM& dialog =
      StepsInTerms({u"old"}, R"({"set":"cmbOpenQuote","to":3},{"set":"cmbCloseQuote","to":4},{"click":"cmdRefresh"})",
                   R"({"message":"Refresh terms list","press":"OK"},)" + kSave);
  EXPECT_TRUE(log.Contains("Find.Text = ?*?"));
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*old"}));
}

TEST_F(Refresh, TheSavedSearchTypeIsTheOneThatRuns) {
  word.stories[0].text = u"The \"Seller\" sells to the \"Buyer\" on Closing.\r";
  frmKVX_COM& dialog = StepsInTerms({}, R"({"click":["optSearchType",1]},{"click":"cmdRefresh"})",
                                    R"({"message":"Refresh terms list","press":"OK"},)" + kSave);
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*Buyer", u"*Seller"}));
  EXPECT_FALSE(log.Contains("Find.Text = <[A-Z]*>"));
  EXPECT_FALSE(dialog.cmbOpenQuote.Enabled());
}

TEST_F(Refresh, ASavedSearchTypeThatIsNoneSearchesNothing) {
  Answer(R"({"form":"frmKVX_COM","do":[{"click":["lstTermsInDoc",1]},{"click":"cmdRefresh"}]})" + ("," + kSave));
  frmKVX_COM& dialog = MakeTerms({u"a", u"b"});
  profile[u"SearchType"] = u"SearchEverything";
  dialog.cmdOK.SetEnabled(false);
  ShowToItsEnd(dialog);
  EXPECT_EQ(log.CountBeginning("Find.Text"), 0);
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*a", u"b"}));
  EXPECT_EQ(dialog.lstTermsInDoc.ListIndex(), 1);
  EXPECT_FALSE(dialog.cmdOK.Enabled());
  EXPECT_TRUE(dialog.cmdCancel.Enabled());
  EXPECT_FALSE(dialog.lblLabel1.Visible());
}

TEST_F(Refresh, AnEmptySearchLeavesListAndButtonsAsTheyWere) {
  word.stories = {{word::wdMainTextStory, u"No terms here.\r", {}}};
  Answer(R"({"form":"frmKVX_COM","do":[{"click":["lstTermsInDoc",1]},{"click":"cmdRefresh"}]})" + ("," + kSave));
  frmKVX_COM& dialog = MakeTerms({u"a", u"b"});
  dialog.cmdOK.SetEnabled(false);
  ShowToItsEnd(dialog);
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*a", u"b"}));
  EXPECT_EQ(dialog.lstTermsInDoc.ListIndex(), 1);
  EXPECT_FALSE(dialog.cmdOK.Enabled());
}

TEST_F(Refresh, AFailedSearchIsReportedAndLeavesTheList) {
  log.failAt = "Find.Text = \"*\"";
  frmKVX_COM& dialog =
      StepsThatSearch({u"a"}, R"({"click":"cmdRefresh"})", R"({"message":"Get list of terms failed","press":"OK"})");
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*a"}));
  EXPECT_FALSE(dialog.lblLabel1.Visible());
  EXPECT_EQ(Events("status").at(0)["text"], "Please wait: Finding defined terms in document");
  EXPECT_EQ(dialog.StatusBar1.SimpleText(), u"");
}

TEST_F(Refresh, AnErrorEndsWhatShowsThatASearchRuns) {
  for (const auto& [button, title] :
       {std::pair("cmdRefresh", "Error refreshing list"), std::pair("cmdSetDefaults", "Error setting defaults")}) {
    Answer(R"({"form":"frmKVX_COM","do":[{"click":")" + std::string(button) + R"("}]},)" + kSave + R"(,{"message":")" +
           title + R"(","press":"OK"})");
    frmKVX_COM& dialog = MakeTerms({u"a", u"b"});
    word.storiesFail = true;
    ShowToItsEnd(dialog);
    EXPECT_EQ(shown.back().text, u"Error: 4198 Command failed");
    EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*a", u"*b"}));
    EXPECT_FALSE(dialog.lblLabel1.Visible());
    EXPECT_FALSE(dialog.lblLabel2.Visible());
    EXPECT_EQ(progress->Current(), nullptr);
  }
}

TEST_F(Refresh, TheStatusLinesAreDrawnBeforeTheSearch) {
  Answer(R"({"form":"frmKVX_COM","do":[{"click":"cmdRefresh"}]})" + ("," + kSave));
  frmKVX_COM& dialog = MakeTerms({u"a"});
  dialog.lblTermsInDoc.SetCaption(u"old");
  ShowToItsEnd(dialog);
  const Json first = Events("controls").at(0)["changed"];
  EXPECT_EQ(first["lblTermsInDoc"]["caption"], "");
  EXPECT_EQ(first["lblLabel1"]["caption"], "Please wait");
  EXPECT_EQ(first["lblLabel1"]["visible"], true);
  EXPECT_EQ(first["lblLabel2"]["caption"], "Refreshing list...");
  EXPECT_EQ(first["lblLabel2"]["visible"], true);
  EXPECT_EQ(first["lblLabel3"]["caption"], "");
  EXPECT_FALSE(first.contains("lstTermsInDoc"));
  EXPECT_FALSE(dialog.lblLabel1.Visible());
  EXPECT_FALSE(dialog.lblLabel2.Visible());
}

TEST_F(Refresh, TheDocumentIsSavedWithTheChosenSearchTypeNamed) {
  StepsThatSearch({}, R"({"click":"cmdRefresh"})");
  EXPECT_TRUE(shown.at(0).text.starts_with(u"Your document needs to be saved before searching for defined terms.  "));
  EXPECT_EQ(log.calls.front(), "Document.Save");
  StepsInTerms({}, R"({"click":["optSearchType",1]},{"click":"cmdRefresh"})",
               R"({"message":"Refresh terms list","press":"OK"},)" + kSave);
  EXPECT_TRUE(shown.back().text.starts_with(
      u"Your document needs to be saved before searching for capitalized words and phrases.  "));
}

TEST_F(Refresh, WithoutLeaveToSaveNothingIsSearched) {
  frmKVX_COM& dialog =
      StepsInTerms({u"old"}, R"({"click":"cmdRefresh"})", R"({"message":"Save document","press":"Cancel"})");
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*old"}));
  EXPECT_TRUE(log.calls.empty());
  EXPECT_FALSE(dialog.lblLabel1.Visible());
}

TEST_F(Refresh, TheQuotationMarksAreCheckedFirst) {
  word.stories[0].text = u"The \u201CSeller\u201D sells to the \u201CBuyer.\r";
  frmKVX_COM& dialog = StepsThatSearch({u"old"}, R"({"click":"cmdRefresh"})",
                                       R"({"message":"Mis-matched double quotes","press":"No"},
                                       {"message":"Mis-matched double quotes","press":"No"},
                                       {"message":"Cannot index","press":"OK"})");
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*old"}));
  EXPECT_EQ(log.Count("Find.Text = \"*\""), 0);
}

TEST_F(Refresh, QuotationMarksChosenOnTheWayAreShownAndSearchedFor) {
  word.stories[0].text = u"The \u00ABSeller\u00BB sells to the \u201CBuyer.\r";
  frmKVX_COM& dialog = StepsThatSearch({u"old"}, R"({"click":"cmdRefresh"})",
                                       R"({"message":"Mis-matched double quotes","press":"No"},
                                       {"message":"Mis-matched double quotes","press":"Yes"},
                                       {"form":"frmKVXChangeQuotes","do":[{"set":"cmbOpenQuote","to":3},
                                         {"set":"cmbCloseQuote","to":4},{"click":"cmdOK"}]})");
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*Seller"}));
  EXPECT_EQ(dialog.cmbOpenQuote.ListIndex(), 3);
  EXPECT_EQ(dialog.cmbCloseQuote.ListIndex(), 4);
}

TEST_F(Refresh, ProgressOfTheSearchGoesToTheStatusBar) {
  StepsThatSearch({}, R"({"click":"cmdRefresh"})");
  const std::vector<Json> status = Events("status");
  ASSERT_FALSE(status.empty());
  EXPECT_EQ(status.front()["text"], "Please wait: Finding defined terms in document");
  EXPECT_EQ(status.back()["text"], "");
  for (const Json& event : Events("progress")) {
    const std::string line = event["lines"][0];
    EXPECT_TRUE(line.empty() || line == "Checking quotation marks") << line;
  }
}

TEST_F(Refresh, SetAsDefaultsWritesEveryOptionInOrderAndSearches) {
  frmKVX_COM& dialog = StepsThatSearch({u"old"}, R"({"click":"cmdSetDefaults"})");
  EXPECT_EQ(profile.written, (Texts{u"Bold", u"CaseSensitive", u"IndexAllCaps", u"Highlight", u"IgnoreWordsWithNums",
                                    u"IncludeNotFound", u"IncludeNotUsed", u"IndexCols", u"IndexSep", u"OpenQuote",
                                    u"CloseQuote", u"SearchType", u"IndexWhat"}));
  EXPECT_EQ(profile[u"IndexSep"], u"\":  {TAB}\"");
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*Buyer", u"*Seller"}));
}

TEST_F(Refresh, SetAsDefaultsWithCapitalisedWordsSearchesForThemAtOnce) {
  frmKVX_COM& dialog = StepsInTerms({u"old"}, R"({"click":["optSearchType",1]},{"click":"cmdSetDefaults"})",
                                    R"({"message":"Refresh terms list","press":"OK"},)" + kSave);
  EXPECT_EQ(profile[u"SearchType"], u"SearchInitCaps");
  EXPECT_TRUE(log.Contains("Find.Text = <[A-Z]*>"));
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*Buyer", u"*Seller"}));
}

}  // namespace
