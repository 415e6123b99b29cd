#include "discovery/TermList.h"

#include <gtest/gtest.h>

#include "addin/clsProgForm.h"
#include "tests/fakes/FakeHost.h"
#include "tests/fakes/FakeTermMarker.h"
#include "tests/fakes/TermListForm.h"

namespace {

class TermList : public testing::Test {
 protected:
  bool Build() {
    const TermSearch search{word.MakeApplication(),
                            word.MakeDocument(),
                            marker,
                            progress,
                            {form.lstTermsInDoc, form.lblTermsInDoc, form.StatusBar1}};
    return BuildQuotedTermList(search, services, {}, false, terms);
  }

  fakes::FakeHost host;
  Host services{host.Make()};
  fakes::CallLog& log{host.log};
  fakes::FakeMessages& messages{host.messages};
  fakes::FakeWord& word{host.word};
  fakes::FakeTermMarker marker{log};
  fakes::TermListForm form{host.forms};
  clsProgForm progress{host.forms};
  FoundTerms terms{u"before"};
};

}  // namespace

TEST_F(TermList, HoldsTheTermsOfTextAndNotesSorted) {
  word.stories = {{1, u"\"Seller\" \"buyer\"\r", {}}, {2, u"\"Closing\"\r", {}}, {3, u"\"Act\"\r", {}}};
  ASSERT_TRUE(Build());
  EXPECT_EQ(terms, (FoundTerms{u"Act", u"Closing", u"Seller", u"buyer"}));
  EXPECT_EQ(form.lblTermsInDoc.Caption(),
            u"The following defined terms were found in your document.  Select which terms you want to index.  You can "
            u"specify additional terms for indexing in the 'Add terms for indexing' section below.");
}

TEST_F(TermList, ATermOnlyInAHeaderOrTextBoxOrCommentIsNeverFound) {
  word.stories = {{1, u"\"Seller\"\r", {}}, {4, u"\"Note\"\r", {}}, {5, u"\"Box\"\r", {}}, {7, u"\"Head\"\r", {}}};
  ASSERT_TRUE(Build());
  EXPECT_EQ(terms, FoundTerms{u"Seller"});
}

TEST_F(TermList, WithoutQuotesTheLabelSaysSo) {
  word.stories = {{1, u"plain\r", {}}};
  ASSERT_TRUE(Build());
  EXPECT_FALSE(AnyFound(terms));
  EXPECT_EQ(form.lblTermsInDoc.Caption(),
            u"No defined terms were found in this document.  Defined terms must be enclosed in double quotes where "
            u"they are defined to be recognized - they will be indexed no matter how they are formatted.  Choose the "
            u"style of open and close quotes in your document in the Options section below.\r\n"
            u"If the defined terms in your document are in double quotes, check the search options panel below to see "
            u"whether 'Defined terms in bold' is ticked - untick it, click 'Find terms and refresh list' and they "
            u"should be listed. If the defined terms in your document aren't bold and that option is ticked, they "
            u"won't be listed.\r\n"
            u"You can type a list of terms to index in the 'Add terms for indexing' section below, or click Cancel, "
            u"and make sure that your defined terms are enclosed in double quotation marks where they are defined so "
            u"that they can be recognized.");
}

TEST_F(TermList, AnErrorIsShownAndLeavesTheTermsAlone) {
  word.stories = {{1, u"\"Seller\"\r", {}}};
  log.failAt = "AddTerm Seller";
  messages.Expect(u"Get list of terms failed");
  EXPECT_FALSE(Build());
  EXPECT_EQ(terms, FoundTerms{u"before"});
  EXPECT_EQ(messages.shown.at(0).text, u"Error: 4605 This method or property is not available");
  EXPECT_EQ(log.Count("unload frmProgressForm"), 1);
}

TEST_F(TermList, AMovedTermIsListedAsItNowStandsAndNoQuestionComesAgain) {
  word.stories = {{1, u"\"the Seller\" \"the Buyer\" \"Act\"\r", {}}, {2, u"\"The Seller\"\r", {}}};
  host.forms.On("frmKVXRemoveArticles", [](fakes::FormDriver& d) {
    const auto& list = d.At<forms::ListBox>("lstTerms");
    EXPECT_EQ(list.List(0), u"the Seller") << "in the order of the document";
    EXPECT_EQ(list.List(1), u"the Buyer");
    d.Select("lstTerms", 0, true);
    d.Click("cmdOK");
  });
  ASSERT_TRUE(Build());
  EXPECT_EQ(terms, (FoundTerms{u"Act", u"Seller", u"the Buyer"}));
}

TEST_F(TermList, ArticlesThatAreLeftStayInTheList) {
  word.stories = {{1, u"\"the Seller\"\r", {}}};
  host.forms.On("frmKVXRemoveArticles", [](fakes::FormDriver& d) { d.Click("cmdCancel"); });
  ASSERT_TRUE(Build());
  EXPECT_EQ(terms, FoundTerms{u"the Seller"});
  EXPECT_EQ(word.stories[0].text, u"\"the Seller\"\r");
}

TEST_F(TermList, EveryTermIsListedAndSelected) {
  FillFoundTerms(form.lstTermsInDoc, {u"Act", u"Seller"});
  ASSERT_EQ(form.lstTermsInDoc.ListCount(), 2);
  EXPECT_EQ(form.lstTermsInDoc.List(1), u"Seller");
  EXPECT_EQ(form.lstTermsInDoc.SelCount(), 2);
}

TEST_F(TermList, ASingleEmptyElementFillsNothing) {
  FillFoundTerms(form.lstTermsInDoc, FoundTerms(1));
  EXPECT_EQ(form.lstTermsInDoc.ListCount(), 0);
}
