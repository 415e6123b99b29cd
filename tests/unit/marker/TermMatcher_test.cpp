#include "marker/TermMatcher.h"

#include "hosts/linux/IcuCharacters.h"
#include "marker/PlainText.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace marker {
namespace {

using Terms = std::vector<std::u16string>;

class TermMatcherTest : public testing::Test {
 protected:
  std::vector<Match> Find(const Terms& terms, std::u16string_view text, bool matchCase = false) {
    std::vector<Form> forms;
    for (const std::u16string& term : terms) forms.push_back({PlainTerm(term), matchCase});
    return TermMatcher(letters_, forms).Find(text);
  }

  /// Every occurrence as "<number of its form>:<its text>".
  std::vector<std::u16string> Found(const Terms& terms, std::u16string_view text, bool matchCase = false) {
    std::vector<std::u16string> found;
    for (const Match& match : Find(terms, text, matchCase)) {
      std::u16string one;
      one.push_back(static_cast<char16_t>(u'0' + match.form));
      found.push_back(one.append(u":").append(text.substr(match.begin, match.end - match.begin)));
    }
    return found;
  }

  os::IcuCharacters characters_;
  Letters letters_{characters_};
};

TEST_F(TermMatcherTest, ATermThatHoldsAMarkOrABreakHasNoOccurrences) {
  for (const char16_t mark : {13, 7, 12, 14}) {
    const std::u16string term = std::u16string(u"Net").append(1, mark).append(u"Income");
    EXPECT_EQ(Found({term}, term), Terms{}) << static_cast<int>(mark);
    EXPECT_EQ(Found({term + u"\r"}, u"x " + term + u"\r"), Terms{}) << static_cast<int>(mark);
  }
}

TEST_F(TermMatcherTest, ATermRunsAcrossATabOrALineBreakThatItHolds) {
  EXPECT_EQ(Found({u"Net\tIncome", u"Net\vLoss"}, u"Net\tIncome Net\vLoss Net Loss"),
            (Terms{u"0:Net\tIncome", u"1:Net\vLoss"}));
}

TEST_F(TermMatcherTest, TabsAndLineBreaksAtTheEndsOfATermAreNoPartOfIt) {
  EXPECT_EQ(Found({u"\t\v Lender\t"}, u"a\tLender."), Terms{u"0:Lender"});
}

// Halves are searched by themselves, and long texts by two threads.
TEST_F(TermMatcherTest, NothingIsLostOrFoundTwiceWhereATextIsHalved) {
  const Terms terms{u"Net", u"Net Income", u"Income \U00010400\U00010428 Statement"};
  const std::u16string pattern = u"Net Income \U00010400\U00010428 Statement, Networth and \u201CNet\u201D; ";
  const std::array<std::size_t, 3> at{0, 4, 41};
  for (const std::size_t repeats : {std::size_t{1}, std::size_t{2}, std::size_t{3}, std::size_t{5000}}) {
    for (std::size_t blanks = 0; blanks < pattern.size(); ++blanks) {
      if (repeats > 3 && blanks % 9 != 0) continue;
      std::u16string text;
      for (std::size_t i = 0; i < repeats; ++i) text += pattern;
      text.append(blanks, u' ');
      const std::vector<Match> found = Find(terms, text, true);
      ASSERT_EQ(found.size(), 3 * repeats) << blanks;
      for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_EQ(found[i].form, i % 3 == 1 ? 2U : 0U);
        EXPECT_EQ(found[i].begin, i / 3 * pattern.size() + at[i % 3]);
        EXPECT_EQ(found[i].definition, i % 3 == 2);
      }
    }
  }
}

TEST_F(TermMatcherTest, AWordInsideALongerWordIsNoOccurrence) {
  EXPECT_EQ(Found({u"Lender"}, u"Lenders, SubLender and Lender2 but Lender."), Terms{u"0:Lender"});
}

TEST_F(TermMatcherTest, TheLongestTermTakesItsPlace) {
  EXPECT_EQ(Found({u"Agreement", u"Stock Purchase Agreement"}, u"this Stock Purchase Agreement and that Agreement"),
            (Terms{u"1:Stock Purchase Agreement", u"0:Agreement"}));
}

TEST_F(TermMatcherTest, ATermInsideALongerWordsTermIsFreeElsewhere) {
  EXPECT_EQ(Found({u"Purchase", u"Stock Purchase Agreement"}, u"Stock Purchase, Purchase Agreement"),
            (Terms{u"0:Purchase", u"0:Purchase"}));
}

TEST_F(TermMatcherTest, OfOverlappingTermsTheLongerOneWinsThoughItStartsLater) {
  EXPECT_EQ(Found({u"Share Purchase", u"Purchase Price Schedule"}, u"the Share Purchase Price Schedule"),
            Terms{u"1:Purchase Price Schedule"});
}

TEST_F(TermMatcherTest, OfOverlappingTermsOfOneLengthTheFirstInTheTextWins) {
  EXPECT_EQ(Found({u"bb cc", u"aa bb"}, u"aa bb cc"), Terms{u"1:aa bb"});
}

TEST_F(TermMatcherTest, WhatALosingTermLeavesOverIsFreeForAShorterOne) {
  EXPECT_EQ(Found({u"aa bb", u"bb cc dd", u"aa"}, u"aa bb cc dd"), (Terms{u"2:aa", u"1:bb cc dd"}));
}

TEST_F(TermMatcherTest, CaseCountsOnlyWhenItIsToBeMatched) {
  EXPECT_EQ(Found({u"Lender"}, u"Lender LENDER lender"), (Terms{u"0:Lender", u"0:LENDER", u"0:lender"}));
  EXPECT_EQ(Found({u"Lender"}, u"Lender LENDER lender", true), Terms{u"0:Lender"});
}

TEST_F(TermMatcherTest, OfTermsThatDifferInCaseTheExactOneWinsAndOtherwiseTheFirst) {
  EXPECT_EQ(Found({u"Lender", u"LENDER"}, u"LENDER Lender lender"), (Terms{u"1:LENDER", u"0:Lender", u"0:lender"}));
}

TEST_F(TermMatcherTest, AFormThatMatchesCaseWinsOverTheSameTextWithoutCase) {
  const TermMatcher matcher(letters_, {{u"Lender", false}, {u"LENDER", true}});
  const std::vector<Match> matches = matcher.Find(u"LENDER lender");
  ASSERT_EQ(matches.size(), 2U);
  EXPECT_EQ(matches[0].form, 1U);
  EXPECT_EQ(matches[1].form, 0U);
}

TEST_F(TermMatcherTest, OfEqualFormsTheFirstGivenWins) {
  EXPECT_EQ(Found({u"Lender", u"Lender "}, u"Lender"), Terms{u"0:Lender"});
}

TEST_F(TermMatcherTest, StraightAndCurlyApostrophesAreTheSameCharacter) {
  const std::u16string straight = u"Sellers' Agent";
  const std::u16string curly = u"Sellers\u2019 Agent";
  const std::u16string text = straight + u", " + curly + u", Sellers\u2018 Agent";
  for (const bool matchCase : {true, false}) {
    for (const std::u16string& term : {straight, curly}) {
      EXPECT_EQ(Found({term}, text, matchCase), (Terms{u"0:" + straight, u"0:" + curly, u"0:Sellers\u2018 Agent"}));
    }
  }
  EXPECT_EQ(Found({straight}, u"SELLERS\u2019 AGENT"), Terms{u"0:SELLERS\u2019 AGENT"});
  EXPECT_EQ(Found({straight}, u"SELLERS\u2019 AGENT", true), Terms{});
}

TEST_F(TermMatcherTest, StraightAndCurlyDoubleQuotesAreTheSameCharacterAndOthersAreNot) {
  EXPECT_EQ(Found({u"6\" Pipe"}, u"6\u201D Pipe, 6\u201C Pipe, 6\u201E Pipe, 6\u00BB Pipe", true),
            (Terms{u"0:6\u201D Pipe", u"0:6\u201C Pipe"}));
  EXPECT_EQ(Found({u"6\u201D Pipe"}, u"6\" Pipe"), Terms{u"0:6\" Pipe"});
  EXPECT_EQ(Found({u"6\u201E Pipe"}, u"6\" Pipe"), Terms{});
}

TEST_F(TermMatcherTest, ALongerTermWinsWhateverItsApostrophe) {
  EXPECT_EQ(Found({u"Seller", u"Seller\u2019s Knowledge"}, u"to Seller's Knowledge, the Seller's", true),
            (Terms{u"1:Seller's Knowledge", u"0:Seller"}));
}

TEST_F(TermMatcherTest, OfTermsThatDifferInTheirApostropheTheExactOneWinsAndOtherwiseTheFirst) {
  const Terms terms{u"Sellers' Agent", u"Sellers\u2019 Agent"};
  const std::u16string text = u"Sellers\u2019 Agent, Sellers' Agent, Sellers\u2018 Agent";
  for (const bool matchCase : {true, false}) {
    EXPECT_EQ(Found(terms, text, matchCase),
              (Terms{u"1:Sellers\u2019 Agent", u"0:Sellers' Agent", u"0:Sellers\u2018 Agent"}));
  }
}

TEST_F(TermMatcherTest, AFormInCapitalsWinsWhateverItsApostrophe) {
  const TermMatcher matcher(letters_, {{u"Sellers' Agent", false}, {u"SELLERS' AGENT", true}});
  const std::vector<Match> matches = matcher.Find(u"SELLERS\u2019 AGENT, sellers\u2019 agent");
  ASSERT_EQ(matches.size(), 2U);
  EXPECT_EQ(matches[0].form, 1U);
  EXPECT_EQ(matches[1].form, 0U);
}

TEST_F(TermMatcherTest, PunctuationQuotesBracketsSlashesAndHyphensBoundAWord) {
  EXPECT_EQ(Found({u"Buyer"}, u"(Buyer) [Buyer] \u201CBuyer\u201D Buyer/Buyer non-Buyer Buyer-led Buyer, Buyer; Buyer")
                .size(),
            10U);
}

TEST_F(TermMatcherTest, DigitsBelongToAWord) {
  EXPECT_EQ(Found({u"Note", u"Note 1"}, u"Note 1, Note 12, Note1"), (Terms{u"1:Note 1", u"0:Note"}));
}

TEST_F(TermMatcherTest, ACombiningMarkBelongsToItsLetter) {
  EXPECT_TRUE(Found({u"Cafe"}, u"Cafe\u0301").empty());
  EXPECT_EQ(Found({u"Cafe\u0301"}, u"Cafe\u0301 x"), Terms{u"0:Cafe\u0301"});
}

TEST_F(TermMatcherTest, LettersOfOtherScriptsBoundNoWord) {
  EXPECT_EQ(Found({u"\u0414\u043E\u0433\u043E\u0432\u043E\u0440"},
                  u"\u0414\u043E\u0433\u043E\u0432\u043E\u0440\u0430 \u0434\u043E\u0433\u043E\u0432\u043E\u0440"),
            Terms{u"0:\u0434\u043E\u0433\u043E\u0432\u043E\u0440"});
}

TEST_F(TermMatcherTest, SurrogatePairsAreLettersToo) {
  EXPECT_TRUE(Found({u"Deal"}, u"\U00010400Deal Deal\U00010400").empty());
  EXPECT_EQ(Found({u"\U00010400"}, u"\U00010428 \U00010400"), (Terms{u"0:\U00010428", u"0:\U00010400"}));
  EXPECT_EQ(Found({u"Deal"}, u"\U0001F600Deal\U0001F600"), Terms{u"0:Deal"});
}

TEST_F(TermMatcherTest, HalfASurrogatePairIsNeverFound) {
  const std::u16string high(1, static_cast<char16_t>(0xD83D));
  EXPECT_TRUE(Found({high}, u"\U0001F600").empty());
}

TEST_F(TermMatcherTest, APossessiveEndingStaysOutsideAndTheEntryGoesBehindIt) {
  for (const std::u16string_view text : {u"the Buyer's duty", u"the Buyer\u2019s duty", u"THE BUYER'S DUTY"}) {
    const std::vector<Match> matches = Find({u"Buyer"}, text);
    ASSERT_EQ(matches.size(), 1U);
    EXPECT_EQ(matches[0].end, 9U);
    EXPECT_EQ(matches[0].entry, 11U);
  }
}

TEST_F(TermMatcherTest, AnApostropheWithoutAFreeStandingSIsNoPossessiveEnding) {
  for (const std::u16string_view text : {u"'Buyer' duty", u"Buyers' duty", u"Buyer'so", u"Buyer'", u"Buyer 's"}) {
    for (const Match& match : Find({u"Buyer", u"Buyers"}, text)) EXPECT_EQ(match.entry, match.end);
  }
}

TEST_F(TermMatcherTest, ATermThatHoldsThePossessiveIsTheLonger) {
  EXPECT_EQ(Found({u"Buyer", u"Buyer's Counsel"}, u"Buyer's Counsel"), Terms{u"1:Buyer's Counsel"});
}

TEST_F(TermMatcherTest, ThePossessiveSIsNoOccurrenceOfATermS) {
  EXPECT_EQ(Found({u"S", u"Buyer"}, u"Buyer's S"), (Terms{u"1:Buyer", u"0:S"}));
}

TEST_F(TermMatcherTest, AnSThatALongerTermTookIsNoPossessiveEnding) {
  const std::vector<Match> matches = Find({u"Buyer", u"S Corporation"}, u"Buyer's Corporation");
  ASSERT_EQ(matches.size(), 2U);
  EXPECT_EQ(matches[0].entry, 5U);
}

TEST_F(TermMatcherTest, QuotesOfAnyStyleOnBothSidesMakeADefinition) {
  for (const std::u16string_view text : {u"\"Buyer\"", u"\u201CBuyer\u201D", u"\u201EBuyer\u201C", u"\u00ABBuyer\u00BB",
                                         u"\u00BBBuyer\u00AB", u"\u201CBuyer\""}) {
    const std::vector<Match> matches = Find({u"Buyer"}, text);
    ASSERT_EQ(matches.size(), 1U);
    EXPECT_TRUE(matches[0].definition);
  }
}

TEST_F(TermMatcherTest, OnlyAnArticleMayStandBetweenTheOpeningQuoteAndADefinition) {
  for (const std::u16string_view text :
       {u"\"the Buyer\"", u"\"The Buyer\"", u"\"a Buyer\"", u"\"an Buyer\"", u"\"ANY Buyer\"", u"\"the  Buyer\""}) {
    ASSERT_EQ(Find({u"Buyer"}, text).size(), 1U);
    EXPECT_TRUE(Find({u"Buyer"}, text)[0].definition);
  }
  for (const std::u16string_view text : {u"\"each Buyer\"", u"\"the\tBuyer\"", u"\"  Buyer\"", u"the Buyer\"",
                                         u"\"Buyer", u"\"Buyer's\"", u"'Buyer'", u"\"Buyer \"", u"\"breathe Buyer\""}) {
    ASSERT_EQ(Find({u"Buyer"}, text).size(), 1U);
    EXPECT_FALSE(Find({u"Buyer"}, text)[0].definition);
  }
}

TEST_F(TermMatcherTest, TheMarkOfANoteMayStandBetweenADefinitionAndItsClosingQuote) {
  EXPECT_TRUE(Find({u"Buyer"}, u"\u201CBuyer\u0002\u201D")[0].definition);
  EXPECT_TRUE(Find({u"Buyer"}, u"\"the Buyer\u0002\u0002\"")[0].definition);
  EXPECT_FALSE(Find({u"Buyer"}, u"\u201CBuyer\u0002 \u201D")[0].definition);
  EXPECT_FALSE(Find({u"Buyer"}, u"\u201CBuyer\u0002")[0].definition);
}

TEST_F(TermMatcherTest, ATermRunsAcrossNoBreakUnlessItHoldsOne) {
  EXPECT_TRUE(Found({u"Net Income"}, u"Net\rIncome Net\tIncome Net\u000BIncome").empty());
  EXPECT_EQ(Found({u"Net\tIncome"}, u"Net\tIncome"), Terms{u"0:Net\tIncome"});
}

TEST_F(TermMatcherTest, SpecialCharactersInATermAreOrdinary) {
  EXPECT_EQ(Found({u"R&D: \"A\\B\"; [x]*"}, u"for R&D: \"A\\B\"; [x]* only"), Terms{u"0:R&D: \"A\\B\"; [x]*"});
}

TEST_F(TermMatcherTest, AnEmptyTermIsNeverFound) { EXPECT_TRUE(Found({u"", u"  ", u"\u00AD"}, u"a  b").empty()); }

TEST_F(TermMatcherTest, ATermAtBothEndsOfTheTextIsFound) {
  EXPECT_EQ(Found({u"Buyer"}, u"Buyer Buyer"), (Terms{u"0:Buyer", u"0:Buyer"}));
}

TEST_F(TermMatcherTest, ATermThatRepeatsItselfIsFoundWithoutOverlap) {
  EXPECT_EQ(Found({u"go go"}, u"go go go go go").size(), 2U);
}

TEST_F(TermMatcherTest, ASharpSIsNotItsUpperCaseFormButBothMayBeForms) {
  const TermMatcher matcher(letters_, {{u"Stra\u00DFe", false}, {letters_.ToUpper(u"Stra\u00DFe"), true}});
  EXPECT_EQ(matcher.Find(u"STRASSE Stra\u00DFe Strasse").size(), 2U);
}

TEST(PlainTerm, ReadsNonBreakingCharactersAsOrdinaryOnes) {
  EXPECT_EQ(PlainTerm(u"Net\u00A0In\u00ADcome\u2011Tax\u001EPlus\u001FMore\u0005"), u"Net Income-Tax-PlusMore");
}

TEST(PlainTerm, LosesTheBlanksAtItsEnds) { EXPECT_EQ(PlainTerm(u"\u00A0 Net Income "), u"Net Income"); }

}  // namespace
}  // namespace marker
