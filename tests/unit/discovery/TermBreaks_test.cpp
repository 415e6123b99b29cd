#include "discovery/TermBreaks.h"

#include <gtest/gtest.h>

#include "tests/fakes/FakeServices.h"

namespace {

class TermBreaks : public testing::Test {
 protected:
  fakes::CallLog log;
  fakes::FakeMessages messages{log};
};

}  // namespace

TEST_F(TermBreaks, TermsWithoutAreNotWarnedOf) { WarnOfBreaks({u"Bank", u"Loan Agreement\u00A0Date", u""}, messages); }

TEST_F(TermBreaks, OfEveryKindAreWarnedOf) {
  for (const char16_t* term : {u"a\rb", u"a\vb", u"a\nb", u"a\tb", u"a\bb"}) {
    messages.Expect(u"Tabs/returns found in terms");
    WarnOfBreaks({u"Bank", term}, messages);
  }
}

TEST_F(TermBreaks, OfTwoTermsAreWarnedOfOnce) {
  messages.Expect(u"Tabs/returns found in terms");
  WarnOfBreaks({u"a\vb", u"c\td"}, messages);
  EXPECT_EQ(messages.shown.size(), 1u);
  EXPECT_EQ(messages.shown[0].icon, os::Icon::kExclamation);
  EXPECT_EQ(messages.shown[0].buttons, os::Buttons::kOk);
  EXPECT_EQ(messages.shown[0].text,
            u"At least one of the terms found in quotes contains a paragraph mark or tab.  This can happen if the term "
            u"is manually split between lines.  Kelvarin probably won't be able to find any matches for terms "
            u"containing returns or tabs because they probably don't contain tabs and returns in the rest of your "
            u"document.  \r\n\r\nIf you have a definitions section where your terms are in one column and your "
            u"defintions are in another, you should use tables rather than tabs and returns, so that your columns wrap "
            u"automatically and your terms won't contain tabs and returns.\r\n\r\nPlease check the list of terms found "
            u"for indexing for any terms containing empty spaces or square boxes and either:\r\n\r\nAdd it to the list "
            u"of additional terms for indexing without the tab/return\r\n\r\nor\r\n\r\nCancel out and fix the "
            u"formatting in the document.");
}
