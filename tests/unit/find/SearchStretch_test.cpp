#include <gtest/gtest.h>

#include "tests/unit/find/MarkedText.h"

namespace docx {
namespace {

std::pair<Position, Position> Find(std::u16string_view marked, const FindSettings& settings, Position start,
                                   Position end) {
  MarkedText text(marked);
  const auto match = Search(text, settings, start, end);
  if (!match) return {-1, -1};
  return {match->start, match->end};
}

using Stretch = std::pair<Position, Position>;
constexpr Stretch kNothing{-1, -1};

TEST(SearchStretch, AStretchIsSearchedInsideItself) {
  EXPECT_EQ(Find(u"a ab ab", {.text = u"ab"}, 0, 4), (Stretch{2, 4}));
  EXPECT_EQ(Find(u"a ab ab", {.text = u"ab"}, 0, 3), kNothing);
  EXPECT_EQ(Find(u"ab a ab", {.text = u"ab"}, 1, 4), kNothing);
}

TEST(SearchStretch, AnEmptyStretchIsSearchedToTheEnd) {
  EXPECT_EQ(Find(u"ab ab", {.text = u"ab"}, 1, 1), (Stretch{3, 5}));
  EXPECT_EQ(Find(u"ab ab", {.text = u"ab"}, 5, 5), kNothing);
}

TEST(SearchStretch, AStretchThatIsAMatchIsSearchedOnBehindIt) {
  EXPECT_EQ(Find(u"ab ab", {.text = u"ab"}, 0, 2), (Stretch{3, 5}));
  EXPECT_EQ(Find(u"ab ab", {.text = u"ab"}, 3, 5), kNothing);
  EXPECT_EQ(Find(u"“a” “b”", {.text = u"\"*\"", .wildcards = true}, 0, 3), (Stretch{4, 7}));
}

TEST(SearchStretch, BackwardsFindsTheLastMatch) {
  const FindSettings back{.text = u"ab", .forward = false};
  EXPECT_EQ(Find(u"ab ab ab", back, 0, 7), (Stretch{3, 5}));
  EXPECT_EQ(Find(u"ab ab ab", back, 4, 4), (Stretch{0, 2}));
  EXPECT_EQ(Find(u"ab ab ab", back, 3, 5), (Stretch{0, 2}));
  EXPECT_EQ(Find(u"ab ab ab", back, 0, 2), kNothing);
}

TEST(SearchStretch, BackwardsReachesFarBack) {
  const std::u16string text = u"“far”" + std::u16string(50'000, u'x');
  const FindSettings back{.text = u"\"*\"", .wildcards = true, .forward = false};
  EXPECT_EQ(Find(text, back, 40'000, 40'000), (Stretch{0, 5}));
}

TEST(SearchStretch, ContinuingGoesOnOutsideAndOnceRound) {
  const FindSettings round{.text = u"ab", .wrap = word::wdFindContinue};
  EXPECT_EQ(Find(u"ab cd ab", round, 3, 5), (Stretch{6, 8}));
  EXPECT_EQ(Find(u"ab cd", round, 3, 5), (Stretch{0, 2}));
  EXPECT_EQ(Find(u"ab cd", round, 4, 4), (Stretch{0, 2}));
  EXPECT_EQ(Find(u"cd cd", round, 3, 5), kNothing);
  EXPECT_EQ(Find(u"ab cd ab", {.text = u"ab", .forward = false, .wrap = word::wdFindContinue}, 0, 1), (Stretch{6, 8}));
}

TEST(SearchStretch, AMatchSpansWhatItPassedOverButDoesNotBeginOrEndWithIt) {
  EXPECT_EQ(Find(u"⟦xx⟧a⟦yy⟧b⟦zz⟧", {.text = u"ab"}, 0, 0), (Stretch{2, 6}));
  EXPECT_EQ(Find(u"⟦xx⟧a⟦yy⟧b⟦zz⟧", {.text = u"ab", .forward = false}, 8, 8), (Stretch{2, 6}));
}

std::vector<Stretch> All(std::u16string_view marked, const FindSettings& settings, Position start, Position end) {
  MarkedText text(marked);
  std::vector<Stretch> found;
  for (const Match& match : SearchAll(text, settings, start, end)) found.emplace_back(match.start, match.end);
  return found;
}

TEST(SearchStretch, AllFromAnEmptyStretchIsAllToTheEndInTheDirection) {
  EXPECT_EQ(All(u"a a a", {.text = u"a"}, 2, 2), (std::vector<Stretch>{{2, 3}, {4, 5}}));
  EXPECT_EQ(All(u"a a a", {.text = u"a", .forward = false}, 2, 2), (std::vector<Stretch>{{0, 1}}));
  EXPECT_EQ(All(u"a a a", {.text = u"a", .wrap = word::wdFindContinue}, 2, 2),
            (std::vector<Stretch>{{0, 1}, {2, 3}, {4, 5}}));
  EXPECT_EQ(All(u"a a a", {.text = u"a"}, 1, 3), (std::vector<Stretch>{{2, 3}}));
  EXPECT_TRUE(All(u"", {.text = u"a"}, 0, 0).empty());
}

TEST(SearchStretch, TheSeenPartsOfAMatchLeaveOutWhatItPassedOver) {
  const std::u16string marked = u"⟦xx⟧a⟦yy⟧bc⟦zz⟧";
  MarkedText text(marked);
  const std::optional<Match> match = Search(text, {.text = u"abc"}, 0, 0);
  ASSERT_TRUE(match);
  std::vector<Stretch> parts;
  for (const GroupSpan& part : SeenParts(text, *match)) parts.emplace_back(part.start, part.end);
  EXPECT_EQ(parts, (std::vector<Stretch>{{2, 3}, {5, 7}}));
}

}  // namespace
}  // namespace docx
