#include "discovery/Articles.h"

#include <gtest/gtest.h>

#include "tests/fakes/FakeHost.h"

namespace {

using Terms = std::vector<std::u16string>;

class Articles : public testing::Test {
 protected:
  bool Offer(const Terms& found) { return OfferToMoveQuotes(host.word.MakeDocument(), services, found); }

  fakes::FakeHost host;
  Host services{host.Make()};
};

}  // namespace

TEST_F(Articles, AreTheFirstWordInAnyCase) {
  EXPECT_EQ(
      CollectArticleTerms({u"the Bank", u"Bank", u"The Agent", u"THE FUND", u"a Day", u"An Act", u"ANY Loan", u"the"},
                          host.characters),
      (Terms{u"the Bank", u"The Agent", u"THE FUND", u"a Day", u"An Act", u"ANY Loan", u"the"}));
}

TEST_F(Articles, AreNoPartOfALongerWordNorBehindATabOrBlank) {
  EXPECT_EQ(CollectArticleTerms({u"Then Bank", u"Theory", u"the\tBank", u" the Bank", u"the-Bank", u"Bank the", u""},
                                host.characters),
            Terms{});
}

TEST_F(Articles, TheQuoteGoesPastThemInMainTextFootnotesAndEndnotes) {
  host.word.stories = {{1, u"\u201Cthe Bank\u201D and \"the Bank\"\r", {}},
                       {2, u"\u201Cthe Bank\u201D\r", {}},
                       {3, u"\"The Bank\"\r", {}},
                       {4, u"\"the Bank\"\r", {}},
                       {5, u"\"the Bank\"\r", {}}};
  MoveQuotePastArticle(host.word.MakeDocument(), u"the Bank");
  EXPECT_EQ(host.word.stories[0].text, u"the \u201CBank\u201D and the \"Bank\"\r");
  EXPECT_EQ(host.word.stories[1].text, u"the \u201CBank\u201D\r");
  EXPECT_EQ(host.word.stories[3].text, u"\"the Bank\"\r");
  EXPECT_EQ(host.word.stories[4].text, u"\"the Bank\"\r");
  EXPECT_EQ(host.log.Count("Find.Execute replace all"), 3);
}

TEST_F(Articles, TheReplacementUsesStraightQuotesInItsOrderOfCalls) {
  host.word.stories = {{1, u"text\r", {}}, {2, u"\r", {}}};
  MoveQuotePastArticle(host.word.MakeDocument(), u"any ^ Loan");
  EXPECT_EQ(host.log.calls, (std::vector<std::string>{"Find.Text = \"any ^^ Loan", "Replacement.Text = any \"^^ Loan",
                                                      "Find.Forward = True", "Find.Wrap = 1", "Find.Format = False",
                                                      "Find.Execute replace all"}));
}

TEST_F(Articles, ATermThatIsOneAloneCannotBeMoved) {
  host.word.stories[0].text = u"\"the\" end\r";
  EXPECT_THROW(MoveQuotePastArticle(host.word.MakeDocument(), u"the"), word::HostError);
  EXPECT_EQ(host.word.stories[0].text, u"\"the\" end\r");
}

TEST_F(Articles, WithoutThemNothingIsOffered) {
  EXPECT_FALSE(Offer({u"Bank", u"Agent"}));
  EXPECT_TRUE(host.log.calls.empty());
}

TEST_F(Articles, TickedTermsAreMovedAndTheOthersStay) {
  host.word.stories[0].text = u"\"the Bank\" \"the Agent\"\r";
  host.forms.On("frmKVXRemoveArticles", [](fakes::FormDriver& d) {
    EXPECT_EQ(d.At<forms::ListBox>("lstTerms").ListCount(), 2);
    d.Select("lstTerms", 1, true);
    d.Click("cmdOK");
  });
  EXPECT_TRUE(Offer({u"the Bank", u"Buyer", u"the Agent"}));
  EXPECT_EQ(host.word.stories[0].text, u"\"the Bank\" the \"Agent\"\r");
  EXPECT_EQ(host.log.Count("Document.UndoClear"), 1);
}

TEST_F(Articles, CancelOrNoTickLeavesTheDocumentAlone) {
  host.word.stories[0].text = u"\"the Bank\"\r";
  host.forms.On("frmKVXRemoveArticles", [](fakes::FormDriver& d) {
    d.Select("lstTerms", 0, true);
    d.Click("cmdCancel");
  });
  EXPECT_FALSE(Offer({u"the Bank"}));
  host.forms.On("frmKVXRemoveArticles", [](fakes::FormDriver& d) { d.Click("cmdOK"); });
  EXPECT_FALSE(Offer({u"the Bank"}));
  EXPECT_EQ(host.word.stories[0].text, u"\"the Bank\"\r");
  EXPECT_FALSE(host.log.Contains("Document.UndoClear"));
}

TEST_F(Articles, AnErrorInOneIsShownAndTheOthersFollow) {
  host.word.stories[0].text = u"\"the\" \"a Bank\"\r";
  host.forms.On("frmKVXRemoveArticles", [](fakes::FormDriver& d) {
    d.Select("lstTerms", 0, true);
    d.Select("lstTerms", 1, true);
    d.Click("cmdOK");
  });
  host.messages.Expect(u"Error moving quotes");
  EXPECT_TRUE(Offer({u"the", u"a Bank"}));
  EXPECT_EQ(host.messages.shown.at(0).text, u"Error: 5 Invalid procedure call or argument");
  EXPECT_EQ(host.word.stories[0].text, u"\"the\" a \"Bank\"\r");
}
