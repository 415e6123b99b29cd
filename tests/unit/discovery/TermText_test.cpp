#include "platform/TermText.h"

#include <gtest/gtest.h>

TEST(TermText, IsTheTextWithoutTheMarksOfNotesAndCommentsAtItsEnds) {
  EXPECT_EQ(TermText(u"Bank"), u"Bank");
  EXPECT_EQ(TermText(u"\u0005\u0002Bank\u0002\u0005"), u"Bank");
  EXPECT_EQ(TermText(u"Central\u0005 Bank "), u"Central\u0005 Bank ");
  EXPECT_EQ(TermText(u"\u0005\u0002"), u"");
  EXPECT_EQ(TermText(u""), u"");
}

TEST(TermText, HoldsNoFieldsCodeAndItsResult) {
  EXPECT_EQ(TermText(u"\u0013 XE \"x\" \u0015Bank\u0005\u0013 XE \"Bank\" \u0015"), u"Bank");
  EXPECT_EQ(TermText(u"\u0013 REF \u0013 SEQ \u0014a\u0015 \u0014Ba\u0013 SEQ \u0014n\u0015\u0015k"), u"Bank");
}

TEST(TermText, AFieldThatEndsOrBeginsBeyondTheTextIsCodeInIt) {
  EXPECT_EQ(TermText(u" XE \"x\" \u0015Bank\u0013 XE \"Ba"), u"Bank");
}
