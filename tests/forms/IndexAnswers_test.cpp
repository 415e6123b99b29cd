#include "hosts/unattended/IndexAnswers.h"

#include "dialogs/frmKVXRemoveArticles.h"
#include "tests/forms/Dialogs.h"

namespace {

using Texts = std::vector<std::u16string>;
using unattended::IndexOptions;

class Index : public Dialogs {
 protected:
  void Use(const IndexOptions& wanted) {
    source = std::make_unique<unattended::IndexAnswers>(wanted);
    AnswerWith(*source);
  }
  /// Shows the options dialog with the settings as they are.
  frmKVXOptions& ShowOptions(const IndexOptions& wanted) {
    Use(wanted);
    options = std::make_unique<frmKVXOptions>(*services, ini);
    EXPECT_TRUE(LoadSettingsIntoDialog(ini, *host, options->Options()));
    host->ShowModal(*options);
    return *options;
  }
  frmKVX_COM& ShowTerms(const IndexOptions& wanted, const Texts& found) {
    Use(wanted);
    frmKVX_COM& dialog = MakeTerms(found);
    word.stories = {{word::wdMainTextStory, u"The Buyer buys.\r", {}}};
    host->ShowModal(dialog);
    return dialog;
  }

  std::unique_ptr<unattended::IndexAnswers> source;
};

TEST_F(Index, WithoutOptionsTheSettingsDecide) {
  frmKVXOptions& dialog = ShowOptions({});
  EXPECT_EQ(dialog.Tag(), u"OK");
  EXPECT_EQ(profile[u"Highlight"], u"True");
  EXPECT_EQ(profile[u"IndexCols"], u"2");
  EXPECT_EQ(source->Failure(), "");
}

TEST_F(Index, EachOptionReachesItsSetting) {
  IndexOptions wanted;
  wanted.bold = true;
  wanted.highlight = false;
  wanted.matchCase = true;
  wanted.caps = false;
  wanted.ignoreNumbers = false;
  wanted.openQuote = 171;
  wanted.closeQuote = 187;
  wanted.columns = 4;
  wanted.separator = " \xE2\x80\x93 ";
  wanted.notUsed = false;
  wanted.notFound = false;
  wanted.what = IndexOptions::What::kDefinitions;
  wanted.tab = false;
  ShowOptions(wanted);
  EXPECT_EQ(source->Failure(), "");
  EXPECT_EQ(profile[u"SearchType"], u"SearchFlagged");
  EXPECT_EQ(profile[u"Bold"], u"True");
  EXPECT_EQ(profile[u"Highlight"], u"False");
  EXPECT_EQ(profile[u"CaseSensitive"], u"True");
  EXPECT_EQ(profile[u"IndexAllCaps"], u"False");
  EXPECT_EQ(profile[u"IgnoreWordsWithNums"], u"False");
  EXPECT_EQ(profile[u"OpenQuote"], u"171");
  EXPECT_EQ(profile[u"CloseQuote"], u"187");
  EXPECT_EQ(profile[u"IndexCols"], u"4");
  EXPECT_EQ(profile[u"IndexSep"], u"\" \u2013 \"");
  EXPECT_EQ(profile[u"IncludeNotUsed"], u"False");
  EXPECT_EQ(profile[u"IncludeNotFound"], u"False");
  EXPECT_EQ(profile[u"IndexWhat"], u"IndexDefs");
}

TEST_F(Index, WhatToIndexBringsItsTabUnlessTheTabIsSaid) {
  IndexOptions wanted;
  wanted.separator = ";";
  wanted.what = IndexOptions::What::kDefinitions;
  ShowOptions(wanted);
  EXPECT_EQ(profile[u"IndexSep"], u"\";{TAB}\"");
  wanted.what = IndexOptions::What::kAll;
  ShowOptions(wanted);
  EXPECT_EQ(profile[u"IndexSep"], u"\";\"");
  wanted.tab = true;
  ShowOptions(wanted);
  EXPECT_EQ(profile[u"IndexSep"], u"\";{TAB}\"");
}

TEST_F(Index, AnOptionWithoutMeaningForTheSearchIsPassedOver) {
  IndexOptions wanted;
  wanted.search = IndexOptions::Search::kCapitals;
  wanted.openQuote = 171;
  wanted.what = IndexOptions::What::kDefinitions;
  ShowOptions(wanted);
  EXPECT_EQ(source->Failure(), "");
  EXPECT_EQ(profile[u"SearchType"], u"SearchInitCaps");
  EXPECT_EQ(profile[u"OpenQuote"], u"147");
}

TEST_F(Index, AQuoteThatTheDialogDoesNotOfferIsAFailureAndCancels) {
  IndexOptions wanted;
  wanted.openQuote = 150;
  EXPECT_EQ(ShowOptions(wanted).Tag(), u"Cancel");
  EXPECT_EQ(source->Failure(), "the dialog offers no quotation mark with the code 150");
}

TEST_F(Index, FoundTermsAreIndexedByDefault) {
  ShowTerms({}, {u"Buyer", u"Seller"});
  EXPECT_TRUE(log.Contains("BuildTermTable True Buyer Seller"));
}

TEST_F(Index, ExcludedTermsAreDeselectedAndAddedOnesTypedOrSelected) {
  IndexOptions wanted;
  wanted.exclude = {"Seller", "Nobody"};
  wanted.add = {" Closing Date ", "Buyer", "Closing Date", " "};
  frmKVX_COM& dialog = ShowTerms(wanted, {u"Buyer", u"Seller"});
  EXPECT_EQ(source->Failure(), "");
  EXPECT_TRUE(shown.empty());
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*Buyer", u"Seller"}));
  EXPECT_EQ(Entries(dialog.lstAddTerms), (Texts{u"*Closing Date"}));
  EXPECT_TRUE(log.Contains("BuildTermTable True Buyer Closing Date"));
}

TEST_F(Index, AFoundTermWithBlanksAroundItIsTheAddedOne) {
  IndexOptions wanted;
  wanted.onlyAdded = true;
  wanted.add = {"Buyer", " Seller"};
  frmKVX_COM& dialog = ShowTerms(wanted, {u" Buyer ", u"Agent", u"Seller ", u"Seller"});
  EXPECT_EQ(source->Failure(), "");
  EXPECT_TRUE(shown.empty());
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"* Buyer ", u"Agent", u"*Seller ", u"*Seller"}));
  EXPECT_EQ(Entries(dialog.lstAddTerms), Texts{});
}

TEST_F(Index, AFoundTermWithBlanksAroundItIsExcluded) {
  for (const char* term : {"Buyer", " Buyer "}) {
    IndexOptions wanted;
    wanted.exclude = {term};
    frmKVX_COM& dialog = ShowTerms(wanted, {u" Buyer ", u"Buyer", u"Seller"});
    EXPECT_EQ(source->Failure(), "");
    EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u" Buyer ", u"Buyer", u"*Seller"}));
  }
}

TEST_F(Index, OnlyBlanksAreLookedPast) {
  IndexOptions wanted;
  wanted.add = {"Buyer"};
  frmKVX_COM& dialog = ShowTerms(wanted, {u"\u00A0Buyer"});
  EXPECT_TRUE(shown.empty());
  EXPECT_EQ(Entries(dialog.lstTermsInDoc), (Texts{u"*\u00A0Buyer"}));
  EXPECT_EQ(Entries(dialog.lstAddTerms), (Texts{u"*Buyer"}));
}

TEST_F(Index, ALoadedTermWithBlanksBehindItIsNotAddedAgain) {
  files.folders = {u"C:", u"C:\\Data"};
  files.files.insert(u"C:\\Data\\my.txt");
  files.contents[u"C:\\Data\\my.txt"] = "\"Agent \"\r\n";
  IndexOptions wanted;
  wanted.load = "C:\\Data\\my.txt";
  wanted.add = {"Agent"};
  frmKVX_COM& dialog = ShowTerms(wanted, {u"Buyer"});
  EXPECT_EQ(source->Failure(), "");
  EXPECT_TRUE(shown.empty());
  EXPECT_EQ(Entries(dialog.lstAddTerms), (Texts{u"*Agent "}));
}

TEST_F(Index, OnlyAddedLeavesTheFoundTermsThatAreAdded) {
  IndexOptions wanted;
  wanted.onlyAdded = true;
  wanted.add = {"Seller"};
  EXPECT_EQ(Entries(ShowTerms(wanted, {u"Buyer", u"Seller"}).lstTermsInDoc), (Texts{u"Buyer", u"*Seller"}));
}

TEST_F(Index, WithNoTermChosenTheDialogIsCancelled) {
  IndexOptions wanted;
  wanted.onlyAdded = true;
  EXPECT_EQ(ShowTerms(wanted, {u"Buyer"}).Tag(), u"Cancel");
  EXPECT_EQ(shown.at(0).title, u"Nothing selected");
  EXPECT_EQ(source->Failure(), "");
}

TEST_F(Index, ArticlesAreLeftAloneUnlessTheyAreToBeFixed) {
  const std::u16string caretsOnly = u"the " + std::u16string(126, u'^');
  const Texts found{
      u"the Bank", u"the", u"a  ", u"any " + std::u16string(250, u'x'), u"any " + std::u16string(251, u'x'),
      caretsOnly};
  for (const bool fix : {false, true}) {
    IndexOptions wanted;
    wanted.fixArticles = fix;
    Use(wanted);
    frmKVXRemoveArticles dialog(*services, found);
    host->ShowModal(dialog);
    EXPECT_EQ(dialog.Tag(), fix ? u"OK" : u"Cancel");
    EXPECT_EQ(dialog.TickedTerms(), fix ? (Texts{found[0], found[3]}) : Texts{});
  }
}

TEST_F(Index, ASearchAloneCancelsTheTermsDialog) {
  IndexOptions wanted;
  wanted.searchOnly = true;
  EXPECT_EQ(ShowTerms(wanted, {u"Buyer"}).Tag(), u"Cancel");
  EXPECT_EQ(log.CountBeginning("BuildTermTable"), 0);
}

}  // namespace
