#include "discovery/Like.h"

#include <gtest/gtest.h>

TEST(Like, ASetTakesOneCharacterOfItsRange) {
  EXPECT_TRUE(Like(u"Buyer", u"[A-Z]*"));
  EXPECT_FALSE(Like(u"buyer", u"[A-Z]*"));
  EXPECT_FALSE(Like(u"", u"[A-Z]*"));
  EXPECT_FALSE(Like(u"\u00C9tat", u"[A-Z]*")) << "an accented capital is not between A and Z";
}

TEST(Like, AStarTakesAnyRunAlsoNone) {
  EXPECT_TRUE(Like(u"x", u"*[a-z]*"));
  EXPECT_TRUE(Like(u"12 x 34", u"*[a-z]*"));
  EXPECT_FALSE(Like(u"12 34", u"*[a-z]*"));
  EXPECT_TRUE(Like(u"", u"*"));
}

TEST(Like, TheWholeTextHasToMatch) {
  EXPECT_TRUE(Like(u"abc", u"abc"));
  EXPECT_FALSE(Like(u"abcd", u"abc"));
  EXPECT_FALSE(Like(u"ab", u"abc"));
  EXPECT_TRUE(Like(u"aXbXc", u"a*X*c"));
  EXPECT_FALSE(Like(u"aXbXd", u"a*X*c"));
}
