#include "discovery/QuotePairs.h"

#include <gtest/gtest.h>

#include "addin/clsProgForm.h"
#include "tests/fakes/FakeHost.h"
#include "tests/fakes/FakeTermMarker.h"
#include "tests/fakes/TermListForm.h"

namespace {

constexpr char16_t kTitle[] = u"Mis-matched double quotes";

class QuotePairs : public testing::Test {
 protected:
  QuotePairs() {
    ini.IniFilePath = u"C:\\Data\\kvx.ini";
    host.profile.Write(u"Defaults", u"OpenQuote", u"147", ini.IniFilePath);
    host.profile.Write(u"Defaults", u"CloseQuote", u"148", ini.IniFilePath);
    host.profile.written.clear();
  }
  bool CannotIndex(const std::u16string& mainText, QuoteCodes given = {}) {
    host.word.stories[0].text = mainText;
    codes = given;
    const TermSearch search{host.word.MakeApplication(),
                            host.word.MakeDocument(),
                            marker,
                            progress,
                            {form.lstTermsInDoc, form.lblTermsInDoc, form.StatusBar1},
                            ProgressMode::kWindow};
    return CheckQuotePairs({search, services, ini, savedReplaceQuotes}, codes);
  }
  bool CannotIndexAfterNoAndNo(const std::u16string& mainText, QuoteCodes given = {}) {
    host.messages.Expect(kTitle, os::Pressed::kNo);
    host.messages.Expect(kTitle, os::Pressed::kNo);
    host.messages.Expect(u"Cannot index");
    return CannotIndex(mainText, given);
  }

  fakes::FakeHost host;
  Host services{host.Make()};
  modIniFile ini{host.profile, host.files};
  fakes::FakeTermMarker marker{host.log};
  fakes::TermListForm form{host.forms};
  clsProgForm progress{host.forms};
  QuoteCodes codes;
  bool savedReplaceQuotes{true};
};

const std::u16string kTwoOpenOneClose = u"\u201Ca\u201D and \u201Cb\r";

}  // namespace

TEST_F(QuotePairs, WithoutQuotesOrInPairsLetTheSearchGoOn) {
  EXPECT_FALSE(CannotIndex(u"nothing quoted\r"));
  EXPECT_FALSE(CannotIndex(u"\u201Ca\u201D and \u201Cb\u201D\r"));
}

TEST_F(QuotePairs, OfTheCurlyPairThatDifferByAnEvenNumberPass) {
  EXPECT_FALSE(CannotIndex(u"\u201Ca \u201Cb \u201Cc\u201D\r"));
}

TEST_F(QuotePairs, OfTheCurlyPairThatDifferByAnOddNumberStopTheSearch) {
  EXPECT_TRUE(CannotIndexAfterNoAndNo(kTwoOpenOneClose));
}

TEST_F(QuotePairs, StraightQuotesAsBothCodesHaveToBeEven) {
  EXPECT_TRUE(CannotIndexAfterNoAndNo(u"\"a\" and \"b\r", {34, 34}));
  EXPECT_FALSE(CannotIndex(u"\"a\" and \"b\"\r", {34, 34}));
}

TEST_F(QuotePairs, GuillemetsPassWhateverTheirCounts) {
  EXPECT_FALSE(CannotIndex(u"\u00ABa\u00BB and \u00ABb\r", {171, 187}));
}

TEST_F(QuotePairs, StraightQuotesDoNotCountWithTheCurlyPair) { EXPECT_FALSE(CannotIndex(u"an inch is 1\" long\r")); }

TEST_F(QuotePairs, TextBoxesHeadersAndCommentsAreNotCounted) {
  for (const int type : {4, 5, 7, 9}) host.word.stories.push_back({type, u"\u201Codd\r", {}});
  EXPECT_FALSE(CannotIndex(u"\u201Ca\u201D\r"));
}

TEST_F(QuotePairs, AnEmptyStoryIsNotCounted) {
  host.word.stories.push_back({word::wdFootnotesStory, u"\r", {}});
  EXPECT_FALSE(CannotIndex(u"text\r"));
  EXPECT_EQ(host.log.CountBeginning("Find.Text"), 2) << "the main text's only";
}

TEST_F(QuotePairs, AnErrorOfWordLeavesNoProgressBehind) {
  host.word.storiesFail = true;
  EXPECT_THROW(CannotIndex(u"text\r"), word::HostError);
  EXPECT_EQ(host.log.CountBeginning("show frmProgressForm"), 1);
  EXPECT_EQ(progress.Current(), nullptr);
}

TEST_F(QuotePairs, TheStoryAtFaultIsNamed) {
  const std::pair<int, std::u16string> stories[] = {{word::wdFootnotesStory, u"footnotes"},
                                                    {word::wdEndnotesStory, u"endnotes"}};
  for (const auto& [type, name] : stories) {
    host.word.stories = {{word::wdMainTextStory, u"", {}}, {type, u"\u201Codd\r", {}}};
    host.messages.shown.clear();
    EXPECT_TRUE(CannotIndexAfterNoAndNo(u"text\r"));
    const std::u16string& text = host.messages.shown.at(0).text;
    EXPECT_NE(text.find(u"in your document's " + name + u".\r\n"), std::u16string::npos);
    EXPECT_TRUE(text.ends_with(u"in your document's " + name + u"?"));
  }
}

TEST_F(QuotePairs, TheDialogueAsksAndEndsWithItsReason) {
  CannotIndexAfterNoAndNo(kTwoOpenOneClose);
  const auto& shown = host.messages.shown;
  ASSERT_EQ(shown.size(), 3u);
  EXPECT_EQ(shown[0].text,
            u"There is a mis-matched pair of double quotes in your document's main body.\r\n\r\n"
            u"Kelvarin cannot index documents where there is an odd number of double quotes.  If an open quote is not "
            u"matched with a close quote, KVX can't recognize where terms begin and end properly - the same thing goes "
            u"if close quotes aren't matched with open quotes.\r\n\r\n"
            u"You may be seeing this message because the double quotes style in your document doesn't match what KVX "
            u"is looking for.  You can change the double quotes style by clicking No and selecting the correct "
            u"style.\r\n\r\n"
            u"Or you can click Yes to let KVX highlight all the double quotes it recognizes in your document to help "
            u"you find the stray one(s).\r\n\r\n"
            u"Do you want to highlight the double quotes in your document's main body?");
  EXPECT_EQ(shown[0].icon, os::Icon::kExclamation);
  EXPECT_EQ(shown[0].buttons, os::Buttons::kYesNo);
  EXPECT_EQ(shown[1].text, u"Do you want to change which kind of double quotes KVX should search for?");
  EXPECT_EQ(shown[1].icon, os::Icon::kQuestion);
  EXPECT_EQ(shown[1].buttons, os::Buttons::kYesNo);
  EXPECT_EQ(shown[2].text,
            u"Please go through your document to make sure there are no extra double quotation marks before trying to "
            u"index again.");
  EXPECT_EQ(shown[2].icon, os::Icon::kCritical);
  EXPECT_EQ(shown[2].buttons, os::Buttons::kOk);
}

TEST_F(QuotePairs, ProgressIsClosedBeforeTheFirstQuestion) {
  CannotIndexAfterNoAndNo(kTwoOpenOneClose);
  const std::vector<std::string> expected = {"show frmProgressForm",
                                             "Find.Text = ?",
                                             "Find.Text = ?",
                                             "hide frmProgressForm",
                                             "unload frmProgressForm",
                                             "message Mis-matched double quotes",
                                             "message Mis-matched double quotes",
                                             "message Cannot index"};
  EXPECT_EQ(host.log.calls, expected);
}

TEST_F(QuotePairs, AreHighlightedOnYesWithTheCompanionTold) {
  host.messages.Expect(kTitle, os::Pressed::kYes);
  host.messages.Expect(u"Cannot index");
  EXPECT_TRUE(CannotIndex(kTwoOpenOneClose));
  const auto asked = std::find(host.log.calls.begin(), host.log.calls.end(), "message Mis-matched double quotes");
  const std::vector<std::string> once = {"Options.AutoFormatAsYouTypeReplaceQuotes = False",
                                         "OptionChanged for \"",
                                         "Range.Select 1:0-0",
                                         "Selection.HomeKey 6",
                                         "Find.Text = \"",
                                         "Replacement.Highlight = -1",
                                         "Find.Execute replace all",
                                         "Options.AutoFormatAsYouTypeReplaceQuotes = True",
                                         "OptionChanged"};
  std::vector<std::string> expected = once;
  expected.insert(expected.end(), once.begin(), once.end());
  expected.insert(expected.end(), {"Document.UndoClear", "message Cannot index"});
  EXPECT_EQ(std::vector<std::string>(asked + 1, host.log.calls.end()), expected);
  EXPECT_EQ(host.word.highlights.size(), 6u);
  EXPECT_EQ(host.messages.shown.back().text,
            u"Double quotes have been highlighted in your document's main body.  You can remove the highlighting from "
            u"these double quotes by clicking:\r\n\r\nTools > Kelvarin > Remove highlighting only\r\n\r\n"
            u"Please go through your document to make sure there are no extra double quotation marks before trying to "
            u"index again.");
}

TEST_F(QuotePairs, TheUsersOwnOptionIsPutBackAfterHighlighting) {
  savedReplaceQuotes = false;
  host.messages.Expect(kTitle, os::Pressed::kYes);
  host.messages.Expect(u"Cannot index");
  CannotIndex(kTwoOpenOneClose);
  EXPECT_EQ(host.log.Count("Options.AutoFormatAsYouTypeReplaceQuotes = True"), 0);
}

TEST_F(QuotePairs, OfOtherStylesAreHighlightedAsTheyAreWithTheOptionLeftAlone) {
  host.messages.Expect(kTitle, os::Pressed::kYes);
  host.messages.Expect(u"Cannot index");
  EXPECT_TRUE(CannotIndex(u"\u00ABa\u00AB b \u00AB\r", {171, 171}));
  EXPECT_EQ(host.log.CountBeginning("Options."), 0);
  EXPECT_EQ(host.log.Count("OptionChanged for ?"), 2);
  EXPECT_EQ(host.word.highlights.size(), 6u);
}

TEST_F(QuotePairs, AFailedHighlightingIsReportedAndNotClaimed) {
  host.log.failAt = "Find.Execute replace all";
  host.messages.Expect(kTitle, os::Pressed::kYes);
  host.messages.Expect(u"Error highlighting quotes");
  host.messages.Expect(u"Cannot index");
  EXPECT_TRUE(CannotIndex(kTwoOpenOneClose));
  EXPECT_TRUE(host.messages.shown.back().text.starts_with(u"Please go through"));
}

TEST_F(QuotePairs, OtherQuotesAreSavedReadAndCheckedInTheirTurn) {
  host.messages.Expect(kTitle, os::Pressed::kNo);
  host.messages.Expect(kTitle, os::Pressed::kYes);
  host.forms.On("frmKVXChangeQuotes", [](fakes::FormDriver& d) {
    EXPECT_TRUE(d.At<forms::ComboBox>("cmbOpenQuote").UserSetListIndex(3));
    EXPECT_TRUE(d.At<forms::ComboBox>("cmbCloseQuote").UserSetListIndex(4));
    d.Click("cmdOK");
  });
  EXPECT_FALSE(CannotIndex(kTwoOpenOneClose));
  EXPECT_EQ(codes.open, 171);
  EXPECT_EQ(codes.close, 187);
  EXPECT_EQ(host.profile[u"OpenQuote"], u"171");
  EXPECT_EQ(host.profile[u"CloseQuote"], u"187");
}

TEST_F(QuotePairs, TheDialogueRepeatsWhileTheChosenQuotesDoNotPairUp) {
  for (int i = 0; i < 2; ++i) {
    host.messages.Expect(kTitle, os::Pressed::kNo);
    host.messages.Expect(kTitle, os::Pressed::kYes);
    host.forms.On("frmKVXChangeQuotes", [](fakes::FormDriver& d) { d.Click("cmdOK"); });
  }
  EXPECT_TRUE(CannotIndexAfterNoAndNo(kTwoOpenOneClose));
}

TEST_F(QuotePairs, CancellingTheChoiceStopsTheSearch) {
  host.messages.Expect(kTitle, os::Pressed::kNo);
  host.messages.Expect(kTitle, os::Pressed::kYes);
  host.messages.Expect(u"Cannot index");
  host.forms.On("frmKVXChangeQuotes", [](fakes::FormDriver& d) { d.Click("cmdCancel"); });
  EXPECT_TRUE(CannotIndex(kTwoOpenOneClose));
  EXPECT_EQ(codes.open, 147);
  EXPECT_TRUE(host.profile.written.empty());
}

TEST_F(QuotePairs, ACountThatFailsIsReportedAndLetsTheSearchGoOn) {
  host.log.failAt = "Find.Text = ?";
  host.messages.Expect(u"Error counting quotes");
  host.word.stories.push_back({word::wdFootnotesStory, u"\u201Codd\r", {}});
  EXPECT_FALSE(CannotIndex(kTwoOpenOneClose));
  EXPECT_EQ(host.messages.shown.at(0).text, u"Error: 4605 This method or property is not available");
}

TEST_F(QuotePairs, ACodeThatIsNoneFailsTheCount) {
  host.messages.Expect(u"Error counting quotes");
  EXPECT_FALSE(CannotIndex(kTwoOpenOneClose, {300, 148}));
}
