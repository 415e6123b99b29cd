#include <gtest/gtest.h>

#include "platform/word/HostError.h"
#include "tests/unit/find/MarkedText.h"

namespace docx {
namespace {

int ErrorOf(const FindSettings& settings) {
  try {
    MarkedText text(u"text");
    Search(text, settings, 0, 0);
  } catch (const word::HostError& error) {
    return error.Number();
  }
  return 0;
}

TEST(PlainSearch, IgnoresCaseUnlessAsked) {
  EXPECT_EQ(FoundPlain(u"buyer", u"Buyer BUYER buyers"), (Texts{u"Buyer", u"BUYER", u"buyer"}));
  EXPECT_EQ(FoundPlain(u"ÉTÉ Σ", u"été σ, été ς"), (Texts{u"été σ", u"été ς"}));
  EXPECT_EQ(Found(u"Buyer BUYER buyers", {.text = u"buyer", .matchCase = true}), (Texts{u"buyer"}));
}

TEST(PlainSearch, FoldsCharactersBeyondTheBasicPlane) {
  EXPECT_EQ(FoundPlain(u"\U00010400x", u"a\U00010428x"), (Texts{u"\U00010428x"}));
}

TEST(PlainSearch, NeverBeginsInTheMiddleOfACharacter) {
  EXPECT_EQ(FoundPlain(u"^?", u"\U0001F600b"), (Texts{u"\U0001F600", u"b"}));
}

TEST(PlainSearch, FindsWholeWordsOnly) {
  const FindSettings whole{.text = u"term", .wholeWord = true};
  EXPECT_EQ(Found(u"term terms midterm Term's (term) term-sheet", whole), (Texts{u"term", u"Term", u"term", u"term"}));
  EXPECT_EQ(Found(u"term2 éterm term\u0301", whole), (Texts{}));
}

TEST(PlainSearch, TakesNoNoticeOfWholeWordsForAPhrase) {
  EXPECT_EQ(Found(u"old terms", {.text = u"ld term", .wholeWord = true}), (Texts{u"ld term"}));
}

TEST(PlainSearch, SeesTheCharactersAroundTheStretchForWholeWords) {
  MarkedText text(u"midterms");
  EXPECT_FALSE(Search(text, {.text = u"term", .wholeWord = true}, 3, 7));
  EXPECT_TRUE(Search(text, {.text = u"term"}, 3, 8));
}

TEST(PlainSearch, AStraightDoubleQuoteFindsAllStyles) {
  EXPECT_EQ(FoundPlain(u"\"", u"\"“”„«»"), (Texts{u"\"", u"“", u"”"}));
  EXPECT_EQ(FoundPlain(u"“", u"\"“”"), (Texts{u"“"}));
  EXPECT_EQ(FoundPlain(u"”", u"\"“”"), (Texts{u"”"}));
  EXPECT_EQ(FoundPlain(u"^034", u"\"“”"), (Texts{u"\""}));
  EXPECT_EQ(FoundPlain(u"^0147^0148", u"\"\"“”"), (Texts{u"“”"}));
}

TEST(PlainSearch, AStraightSingleQuoteFindsAllStyles) {
  EXPECT_EQ(FoundPlain(u"r's", u"Buyer's Buyer’s Buyer‘s"), (Texts{u"r's", u"r’s", u"r‘s"}));
  EXPECT_EQ(FoundPlain(u"’", u"'‘’"), (Texts{u"’"}));
  EXPECT_EQ(FoundPlain(u"^039", u"'‘’"), (Texts{u"'"}));
}

struct CodeCase {
  const char16_t* pattern;
  const char16_t* text;
  Texts found;
};

TEST(PlainSearch, KnowsTheCodes) {
  const std::vector<CodeCase> cases{
      {u"a^pb", u"a¶b", {u"a\rb"}},
      {u"^p", u"a¤b§c", {}},
      {u"^t", u"a→b", {u"\t"}},
      {u"^9", u"a→b", {u"\t"}},
      {u"^l", u"a\u000Bb", {u"\u000B"}},
      {u"^11", u"a\u000Bb", {u"\u000B"}},
      {u"^n", u"\u000E", {u"\u000E"}},
      {u"a^mb", u"a\u000Cb a§b", {u"a\u000Cb"}},
      {u"a^bb", u"a\u000Cb a§b", {u"a\u000Cb"}},
      {u"^12", u"\u000C§", {u"\u000C", u"\u000C"}},
      {u"^f", u"ƒę", {u"\u0002"}},
      {u"1^e", u"1ƒ 1ę", {u"1\u0002"}},
      {u"^2", u"ƒę", {u"\u0002", u"\u0002"}},
      {u"^g^a^d", u"\u0001\u0005\u0013", {u"\u0001\u0005\u0013"}},
      {u"^s^~^-", u"\u00A0\u001E\u001F", {u"\u00A0\u001E\u001F"}},
      {u"^=^+", u"–—", {u"–—"}},
      {u"^^", u"a^b", {u"^"}},
      {u"a^", u"a^b", {u"a^"}},
      {u"a^wb", u"a \u00A0→b ab", {u"a \u00A0\tb"}},
      {u"^w^w", u"   ", {}},
      {u"^#^#", u"a12 3", {u"12"}},
      {u"^$^#", u"é1 §1", {u"é1"}},
      {u"^?b", u"¶b", {u"\rb"}},
      {u"^u8220", u"“", {u"“"}},
      {u"^u65", u"aA", {u"a", u"A"}},
      {u"^0233", u"éÉ", {u"é", u"É"}},
      {u"^0147x", u"“x", {u"“x"}},
  };
  for (const CodeCase& one : cases) {
    EXPECT_EQ(FoundPlain(one.pattern, one.text), one.found) << "pattern number " << &one - cases.data();
  }
}

TEST(PlainSearch, TellsPageBreaksFromSectionBreaks) {
  MarkedText text(u"a\u000Cb§c");
  EXPECT_EQ(Search(text, {.text = u"^m"}, 0, 0)->start, 1);
  EXPECT_EQ(Search(text, {.text = u"^b"}, 0, 0)->start, 3);
}

TEST(PlainSearch, RefusesUnknownCodesAndTextsTooLong) {
  EXPECT_EQ(ErrorOf({.text = u"^z"}), word::kBadPattern);
  EXPECT_EQ(ErrorOf({.text = u"^c"}), word::kBadPattern);
  EXPECT_EQ(ErrorOf({.text = u"^0"}), word::kBadPattern);
  EXPECT_EQ(ErrorOf({.text = u"^300"}), word::kBadPattern);
  EXPECT_EQ(ErrorOf({.text = u"^u"}), word::kBadPattern);
  EXPECT_EQ(ErrorOf({.text = std::u16string(256, u'a')}), word::kStringTooLong);
  EXPECT_EQ(ErrorOf({.text = std::u16string(255, u'a')}), 0);
}

TEST(PlainSearch, PassesOverWhatDoesNotShow) {
  EXPECT_EQ(FoundPlain(u"Purchase Agreement", u"Purchase ⟦XE \"x\"⟧Agreement"), (Texts{u"Purchase XE \"x\"Agreement"}));
  EXPECT_EQ(FoundPlain(u"x", u"a⟦x⟧b"), (Texts{}));
  EXPECT_EQ(FoundPlain(u"ab", u"⟦1⟧a⟦2⟧b⟦3⟧"), (Texts{u"a2b"}));
}

TEST(PlainSearch, NeverCrossesACellMarkOrABarrier) { EXPECT_EQ(FoundPlain(u"a^?b", u"a¤b a‖b a¶b"), (Texts{u"a\rb"})); }

TEST(PlainSearch, FindsNothingForAnEmptyText) { EXPECT_EQ(FoundPlain(u"", u"text"), (Texts{})); }

TEST(PlainSearch, ARunOfBlanksMayBeginWhereTheMatchBeforeEnded) {
  EXPECT_EQ(FoundPlain(u"^wx^s", u" x\u00A0 x\u00A0"), (Texts{u" x\u00A0", u" x\u00A0"}));
}

TEST(PlainSearch, MeasuresARunOfBlanksOnce) {
  MarkedText text(std::u16string(200'000, u' ') + u"y");
  EXPECT_FALSE(Search(text, {.text = u"^?^wx"}, 0, 0));
  EXPECT_FALSE(Search(text, {.text = u"^wx"}, 0, 0));
}

}  // namespace
}  // namespace docx
