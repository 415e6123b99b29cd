#include <gtest/gtest.h>

#include "platform/word/HostError.h"
#include "tests/unit/find/MarkedText.h"

namespace docx {
namespace {

struct Case {
  const char16_t* pattern;
  const char16_t* text;
  Texts found;
};

void Check(const std::vector<Case>& cases) {
  for (const Case& one : cases) {
    EXPECT_EQ(FoundWildcards(one.pattern, one.text), one.found) << "case number " << &one - cases.data();
  }
}

int ErrorOf(std::u16string_view pattern, std::u16string_view searched = u"") {
  try {
    MarkedText text(searched);
    Search(text, {.text = std::u16string(pattern), .wildcards = true}, 0, 0);
  } catch (const word::HostError& error) {
    return error.Number();
  }
  return 0;
}

TEST(WildcardSearch, IsCaseSensitiveWhateverMatchCaseSays) {
  EXPECT_EQ(Found(u"Ab ab", {.text = u"ab", .matchCase = false, .wildcards = true}), (Texts{u"ab"}));
}

TEST(WildcardSearch, OneCharacter) {
  Check({
      {u"a?c", u"abc ac a¶c a\U0001F600c", {u"abc", u"a\rc", u"a\U0001F600c"}},
      {u"?", u"\U0001F600b", {u"\U0001F600", u"b"}},
      {u"a?c", u"a¤c a‖c", {}},
  });
}

TEST(WildcardSearch, AnyRunIsTheShortest) {
  Check({
      {u"a*c", u"abcbc", {u"abc"}},
      {u"a*c", u"ac", {u"ac"}},
      {u"a*b", u"a¶b", {u"a\rb"}},
      {u"a*b", u"a¤b a‖b", {}},
      {u"*", u"ab", {u"a", u"b"}},
      {u"a*", u"abc", {u"a"}},
      {u"*c", u"abc", {u"abc"}},
      {u"a*b*c", u"a1b2b3c", {u"a1b2b3c"}},
  });
}

TEST(WildcardSearch, Sets) {
  Check({
      {u"[abc]", u"abd", {u"a", u"b"}},
      {u"[a-c]x", u"axdx", {u"ax"}},
      {u"[!a-c]", u"ab1¶", {u"1", u"\r"}},
      {u"[!^13]@^13", u"one¶two¶", {u"one\r", u"two\r"}},
      {u"[a-]", u"a-b", {u"a", u"-"}},
      {u"[\\]\\[]", u"[]", {u"[", u"]"}},
      {u"[?*@<(]", u"?*@<(", {u"?", u"*", u"@", u"<", u"("}},
      {u"[^9^13]", u"→¶", {u"\t", u"\r"}},
      {u"[\U0001F600-\U0001F610]", u"\U0001F605a", {u"\U0001F605"}},
      {u"[!a]", u"\U0001F600a", {u"\U0001F600"}},
      {u"[A-z]", u"é", {}},
  });
}

TEST(WildcardSearch, WordBounds) {
  Check({
      {u"<[A-Z]*>", u"The Buyer's A (One) xY", {u"The", u"Buyer", u"A", u"One"}},
      {u"<ab", u"ab cab", {u"ab"}},
      {u"ab>", u"abc ab", {u"ab"}},
      {u"<*>", u"two words", {u"two", u"words"}},
      {u"<É*>", u"Été", {u"Été"}},
      {u">", u"word", {}},
  });
}

TEST(WildcardSearch, AWholeWordEndsWhereTheShortestRunWould) {
  for (const std::u16string_view marked : {u"The Buyer's A (One) xY", u"Été Büro B\u0301a AÉ", u"A¶B C→D",
                                           u"A\U0001D400 \U0001D400B", u"A‖B Cd‖e F¤G", u"B⟦C⟧D E⟦ F⟧", u"", u"A"}) {
    MarkedText text(marked);
    // In a group the same is searched for in the general way.
    const std::vector<Match> words = SearchAll(text, {.text = u"<[A-Z]*>", .wildcards = true}, 0, text.Length());
    const std::vector<Match> grouped = SearchAll(text, {.text = u"(<[A-Z]*>)", .wildcards = true}, 0, text.Length());
    ASSERT_EQ(words.size(), grouped.size());
    for (std::size_t i = 0; i < words.size(); ++i) {
      EXPECT_EQ(words[i].start, grouped[i].start);
      EXPECT_EQ(words[i].end, grouped[i].end);
    }
  }
}

TEST(WildcardSearch, WordBoundsSeeWhatIsAroundTheStretch) {
  MarkedText text(u"xAbc");
  EXPECT_FALSE(Search(text, {.text = u"<[A-Z]*>", .wildcards = true}, 1, 3));
  EXPECT_FALSE(Search(text, {.text = u"<[A-Z]*>", .wildcards = true}, 0, 3));
  MarkedText cut(u"A Buyer");
  EXPECT_FALSE(Search(cut, {.text = u"<[A-Z]*>", .wildcards = true}, 1, 5));
  EXPECT_TRUE(Search(cut, {.text = u"<[A-Z]*>", .wildcards = true}, 1, 7));
  MarkedText parted(u"Buyer⟦, once⟧s");
  EXPECT_FALSE(Search(parted, {.text = u"Buyer>", .wildcards = true}, 0, 0));
}

TEST(WildcardSearch, Repetitions) {
  Check({
      {u"a{2}", u"aaaaa", {u"aa", u"aa"}},
      {u"a{2,}", u"a aa aaaa", {u"aa", u"aaaa"}},
      {u"a{2,3}", u"aaaaa", {u"aaa", u"aa"}},
      {u"a{1;2}b", u"aaab", {u"aab"}},
      {u"[0-9]{1,}", u"123 4", {u"123", u"4"}},
      {u"lo@t", u"lot loot lt", {u"lot", u"loot"}},
      {u"o@", u"oo", {u"o", u"o"}},
      {u"(ab){2}", u"ababab", {u"abab"}},
      {u"(ab)@c", u"ababc", {u"ababc"}},
      {u" {2,}", u"a   b", {u"   "}},
  });
}

TEST(WildcardSearch, QuotesOfAllStyles) {
  Check({
      {u"\"*\"", u"the \"Buyer\" and “Seller”, “”", {u"\"Buyer\"", u"“Seller”", u"“”"}},
      {u"\"*»", u"“a»", {u"“a»"}},
      {u"“*”", u"\"a\" “b”", {u"“b”"}},
      {u"[\"]", u"\"“”„", {u"\"", u"“", u"”"}},
      {u"\"[!\"]@\"", u"“one” two", {u"“one”"}},
      {u"[^034]", u"\"“”", {u"\""}},
      {u"[^034^0147^0148]", u"\"“”", {u"\"", u"“", u"”"}},
      {u"\\\"", u"“", {u"“"}},
      {u"[ -z]", u"“", {}},
      {u"'", u"'’", {u"'"}},
  });
}

TEST(WildcardSearch, CodesAndEscapes) {
  Check({
      {u"^13", u"a¶", {u"\r"}},
      {u"^t^9", u"→→", {u"\t\t"}},
      {u"^l^n^s^=^+^^", u"\u000B\u000E\u00A0–—^", {u"\u000B\u000E\u00A0–—^"}},
      {u"^u8220", u"“", {u"“"}},
      {u"\\*\\?\\(\\)\\[\\]\\{\\}\\<\\>\\!\\@\\\\\\^", u"*?()[]{}<>!@\\^", {u"*?()[]{}<>!@\\^"}},
      {u"\\a", u"a", {u"a"}},
  });
}

TEST(WildcardSearch, NotesWhatGroupsMatched) {
  MarkedText text(u"Smith, John");
  const auto match = Search(text, {.text = u"(<*>), (<*>)", .wildcards = true}, 0, 0);
  ASSERT_TRUE(match);
  ASSERT_EQ(match->groups.size(), 2U);
  EXPECT_EQ(match->groups[0].start, 0);
  EXPECT_EQ(match->groups[0].end, 5);
  EXPECT_EQ(match->groups[1].start, 7);
  EXPECT_EQ(match->groups[1].end, 11);
}

TEST(WildcardSearch, NotesTheLastTurnOfARepeatedGroup) {
  MarkedText text(u"abab!");
  const auto match = Search(text, {.text = u"(a)(b){1}(*)([ab]){2}\\!", .wildcards = true}, 0, 0);
  ASSERT_TRUE(match);
  EXPECT_EQ(match->groups[2].start, match->groups[2].end);
  EXPECT_EQ(match->groups[3].start, 3);
}

TEST(WildcardSearch, RepeatsAGroupInsideThePattern) {
  Check({
      {u"(<*>) \\1>", u"that that is is fine", {u"that that", u"is is"}},
      {u"(?)(?)\\2\\1", u"xabbay", {u"abba"}},
      {u"(\U0001F600)\\1", u"\U0001F600\U0001F600", {u"\U0001F600\U0001F600"}},
  });
}

TEST(WildcardSearch, RefusesWhatIsNoPattern) {
  for (const char16_t* pattern :
       {u"!!",      u"{*}", u"a{",   u"a}",  u"a]",   u"[a",     u"[]",     u"[!]",  u"[b-a]", u"(a",
        u"a)",      u"()",  u"@",    u"{2}", u"a{0}", u"a{3,2}", u"a{256}", u"a{x}", u"a{2",   u"a@@",
        u"a{2}{3}", u"*@",  u"*{2}", u"<@",  u"a\\",  u"\\1",    u"(a)\\2", u"^p",   u"^w",    u"^#",
        u"^$",      u"^?",  u"^b",   u"^e",  u"^f",   u"^d",     u"[^p]"}) {
    EXPECT_EQ(ErrorOf(pattern), word::kBadPattern) << "in the pattern beginning with " << static_cast<int>(pattern[0]);
  }
  EXPECT_EQ(ErrorOf(std::u16string(256, u'?')), word::kStringTooLong);
}

TEST(WildcardSearch, GivesUpPatternsThatGrowBeyondMeasure) {
  EXPECT_EQ(ErrorOf(u"((a{255}){255}){255}"), word::kBadPattern);
  EXPECT_EQ(ErrorOf(u"(*)(*)(*)(*)\\1\\2\\3\\4x", std::u16string(2'000, u'a')), word::kBadPattern);
}

TEST(WildcardSearch, PassesOverWhatDoesNotShow) {
  EXPECT_EQ(FoundWildcards(u"\"*\"", u"“Bu⟦”⟧yer”"), (Texts{u"“Bu”yer”"}));
}

TEST(WildcardSearch, CostsTheLengthOfTheTextWhateverThePattern) {
  const std::u16string letters(300'000, u'a');
  for (const char16_t* pattern : {u"a*b", u"a*a*a*a*b", u"(a@)@b", u"[a-z]@[a-z]@[a-z]@b", u"(*)(*)(*)b"}) {
    MarkedText text(letters);
    EXPECT_FALSE(Search(text, {.text = pattern, .wildcards = true}, 0, 0));
  }
}

TEST(WildcardSearch, SearchingOnFromMatchToMatchCostsTheTextOnce) {
  std::u16string contract;
  for (int i = 0; i < 20'000; ++i) contract += u"the party named in clause (the “Buyer”) and others ";
  MarkedText text(contract);
  int count = 0;
  Position from = 0;
  while (const auto match = Search(text, {.text = u"\"*\"", .wildcards = true}, from, from)) {
    ++count;
    from = match->end;
  }
  EXPECT_EQ(count, 20'000);
}

}  // namespace
}  // namespace docx
