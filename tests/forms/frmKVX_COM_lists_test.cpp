#include "dialogs/frmKVX_COM.h"

#include "tests/forms/Dialogs.h"

namespace {

using TermLists = Dialogs;
using Texts = std::vector<std::u16string>;

const std::string kAlready = R"({"message":"Already on list","press":"OK"})";

TEST_F(TermLists, AnAddedTermIsSelectedAndTheBoxEmptiedAndFocused) {
  frmKVX_COM& dialog =
      StepsInTerms({u"Buyer"}, R"({"set":"txtAddTerm","to":"  Closing Date "},{"click":"cmdAddTerm"})");
  EXPECT_EQ(Entries(dialog.lstAddTerms), (Texts{u"*Closing Date"}));
  EXPECT_EQ(dialog.txtAddTerm.Text(), u"");
  EXPECT_TRUE(shown.empty());
}

TEST_F(TermLists, AddingGivesTheFocusToTheBox) {
  frmKVX_COM& dialog = StepsInTerms({}, R"({"set":"txtAddTerm","to":"x"},{"click":"cmdAddTerm"},
                                           {"f1":"lblAddTerms"})");
  EXPECT_EQ(dialog.lstAddTerms.ListCount(), 1);
  Answer("");
  frmKVX_COM& again = MakeTerms();
  host->ShowModeless(again);
  again.cmdAddTerm.UserClick();
  EXPECT_EQ(again.ActiveControl(), &again.txtAddTerm);
  again.Hide();
}

TEST_F(TermLists, AFoundTermWithBlanksAroundItIsRefused) {
  frmKVX_COM& dialog =
      StepsInTerms({u" Buyer "}, R"({"set":"txtAddTerm","to":"  Buyer"},{"click":"cmdAddTerm"})", kAlready);
  EXPECT_EQ(dialog.lstAddTerms.ListCount(), 0);
  EXPECT_EQ(dialog.txtAddTerm.Text(), u"  Buyer");
  EXPECT_EQ(shown.at(0).text, u"Buyer is already in the list of defined terms.");
}

TEST_F(TermLists, ATermThatDiffersOnlyInCaseIsAdded) {
  EXPECT_EQ(
      Entries(StepsInTerms({u"Buyer"}, R"({"set":"txtAddTerm","to":"buyer"},{"click":"cmdAddTerm"})").lstAddTerms),
      (Texts{u"*buyer"}));
}

TEST_F(TermLists, AnAddedTermIsNotAddedTwice) {
  frmKVX_COM& dialog = StepsInTerms({}, R"({"set":"txtAddTerm","to":"x"},{"click":"cmdAddTerm"},
                                           {"set":"txtAddTerm","to":"x"},{"click":"cmdAddTerm"})",
                                    kAlready);
  EXPECT_EQ(dialog.lstAddTerms.ListCount(), 1);
  EXPECT_EQ(dialog.txtAddTerm.Text(), u"x");
}

TEST_F(TermLists, ABlankTermAddsNothingButEmptiesTheBoxAndFocusesIt) {
  Answer("");
  frmKVX_COM& dialog = MakeTerms();
  host->ShowModeless(dialog);
  EXPECT_TRUE(dialog.txtAddTerm.UserSetText(u"   "));
  EXPECT_TRUE(dialog.cmdAddTerm.UserClick());
  EXPECT_EQ(dialog.lstAddTerms.ListCount(), 0);
  EXPECT_EQ(dialog.txtAddTerm.Text(), u"");
  EXPECT_EQ(dialog.ActiveControl(), &dialog.txtAddTerm);
  dialog.Hide();
}

TEST_F(TermLists, DeletingWithoutASelectionSaysSo) {
  StepsInTerms({}, R"({"click":"cmdDeleteTerm"})", R"({"message":"Nothing deleted","press":"OK"})");
  EXPECT_EQ(shown.at(0).text, u"No items were selected for deletion.");
  EXPECT_EQ(shown.at(0).icon, os::Icon::kExclamation);
}

TEST_F(TermLists, DeletingAsksFirst) {
  const std::string steps = R"({"set":"txtAddTerm","to":"x"},{"click":"cmdAddTerm"},{"click":"cmdDeleteTerm"})";
  EXPECT_EQ(StepsInTerms({}, steps, R"({"message":"Confirm delete","press":"No"})").lstAddTerms.ListCount(), 1);
  EXPECT_EQ(StepsInTerms({}, steps, R"({"message":"Confirm delete","press":"Yes"})").lstAddTerms.ListCount(), 0);
  EXPECT_EQ(shown.at(0).text, u"Delete selected term(s) from list?");
}

TEST_F(TermLists, OfTwoEntriesWithTheSameTextEachSelectedCopyRemovesOne) {
  Answer(R"({"form":"frmKVX_COM","do":[{"click":["lstAddTerms",2]},{"click":"cmdDeleteTerm"}]},
            {"message":"Confirm delete","press":"Yes"})");
  frmKVX_COM& dialog = MakeTerms();
  for (const char16_t* text : {u"a", u"b", u"a"}) dialog.lstAddTerms.AddItem(text);
  ShowToItsEnd(dialog);
  EXPECT_EQ(Entries(dialog.lstAddTerms), (Texts{u"b", u"*a"}));
}

TEST_F(TermLists, OfEqualEntriesAsManyGoAsAreSelected) {
  Answer(R"({"form":"frmKVX_COM","do":[{"click":["lstAddTerms",0]},{"click":["lstAddTerms",2]},
             {"click":"cmdDeleteTerm"}]},
            {"message":"Confirm delete","press":"Yes"})");
  frmKVX_COM& dialog = MakeTerms();
  for (const char16_t* text : {u"a", u"b", u"a", u"a"}) dialog.lstAddTerms.AddItem(text);
  ShowToItsEnd(dialog);
  std::vector<std::u16string> left;
  for (int i = 0; i < dialog.lstAddTerms.ListCount(); ++i) left.push_back(dialog.lstAddTerms.List(i));
  EXPECT_EQ(left, (Texts{u"b", u"a"}));
}

TEST_F(TermLists, ABlankSelectsAndDeselectsTheCurrentTerm) {
  frmKVX_COM& dialog = StepsInTerms({u"Buyer", u"Seller"}, R"({"click":["lstTermsInDoc",1]},
                                                              {"key":"lstTermsInDoc","char":" "})");
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*Buyer", u"*Seller"}));
}

TEST_F(TermLists, SelectAllAndDeselectAllKeepTheCurrentEntry) {
  Answer(R"({"form":"frmKVX_COM","do":[{"click":["lstTermsInDoc",1]},{"click":"cmdDeselectAllTermsInDoc"},
             {"click":"cmdSelectAllAddTerms"}]})");
  frmKVX_COM& dialog = MakeTerms({u"a", u"b", u"c"});
  for (const char16_t* text : {u"d", u"e"}) dialog.lstAddTerms.AddItem(text);
  dialog.lstAddTerms.SetListIndex(1);
  ShowToItsEnd(dialog);
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"a", u"b", u"c"}));
  EXPECT_EQ(dialog.lstTermsInDoc.ListIndex(), 1);
  EXPECT_EQ(Entries(dialog.lstAddTerms), (Texts{u"*d", u"*e"}));
  EXPECT_EQ(dialog.lstAddTerms.ListIndex(), 1);
}

TEST_F(TermLists, EachSelectButtonActsOnItsOwnList) {
  Answer(R"({"form":"frmKVX_COM","do":[{"click":"cmdDeselectAllTermsInDoc"},{"click":"cmdSelectAllTermsInDoc"},
             {"click":"cmdSelectAllAddTerms"},{"click":"cmdDeselectAllAddTerms"}]})");
  frmKVX_COM& dialog = MakeTerms({u"a"});
  dialog.lstAddTerms.AddItem(u"b");
  ShowToItsEnd(dialog);
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*a"}));
  EXPECT_EQ(Entries(dialog.lstAddTerms), (Texts{u"b"}));
}

TEST_F(TermLists, AfterAddingTheListScrollsAsFarAsItsWidestEntry) {
  Answer("");
  frmKVX_COM& dialog = MakeTerms();
  host->ShowModeless(dialog);
  // The third is wider with its blanks than any entry: its own width and that of one "W".
  for (const char16_t* text : {u"abcd", u"ab", u" xyz  "}) {
    EXPECT_TRUE(dialog.txtAddTerm.UserSetText(text));
    EXPECT_TRUE(dialog.cmdAddTerm.UserClick());
  }
  EXPECT_EQ(host->extents, (Extents{{"lstAddTerms", 40}, {"lstAddTerms", 40}, {"lstAddTerms", 70}}));
  dialog.Hide();
}

TEST_F(TermLists, ABlankTermSetsHowFarTheListScrollsLikeAnyOther) {
  Answer("");
  frmKVX_COM& dialog = MakeTerms();
  dialog.lstAddTerms.AddItem(u"abcd");
  host->ShowModeless(dialog);
  for (const char16_t* text : {u"", u"  ", u"      "}) {
    EXPECT_TRUE(dialog.txtAddTerm.UserSetText(text));
    EXPECT_TRUE(dialog.cmdAddTerm.UserClick());
  }
  EXPECT_EQ(host->extents, (Extents{{"lstAddTerms", 40}, {"lstAddTerms", 40}, {"lstAddTerms", 70}}));
  EXPECT_EQ(dialog.lstAddTerms.ListCount(), 1);
  dialog.Hide();
}

TEST_F(TermLists, ARefusedTermLeavesHowFarTheListScrolls) {
  StepsInTerms({u"Buyer"}, R"({"set":"txtAddTerm","to":"Buyer"},{"click":"cmdAddTerm"})", kAlready);
  EXPECT_EQ(host->extents, Extents{});
}

TEST_F(TermLists, AfterDeletingTheListScrollsAsFarAsWhatIsLeft) {
  Answer(R"({"form":"frmKVX_COM","do":[{"click":["lstAddTerms",0]},{"click":"cmdDeleteTerm"}]},
            {"message":"Confirm delete","press":"Yes"})");
  frmKVX_COM& dialog = MakeTerms();
  for (const char16_t* text : {u"abcdef", u"abc"}) dialog.lstAddTerms.AddItem(text);
  ShowToItsEnd(dialog);
  EXPECT_EQ(host->extents, (Extents{{"lstAddTerms", 30}}));
}

}  // namespace
