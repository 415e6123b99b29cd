#include "addin/modCommonErrorMsgs.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "platform/word/HostError.h"
#include "tests/fakes/FakeServices.h"

namespace {

class Trap : public testing::Test {
 protected:
  fakes::CallLog log;
  fakes::FakeMessages messages{log};
};

}  // namespace

TEST_F(Trap, SaysNothingWhenAllGoesWell) {
  bool ran = false;
  EXPECT_TRUE(TrapErrors(messages, u"Reset doc view", [&] { ran = true; }));
  EXPECT_TRUE(ran);
}

TEST_F(Trap, ShowsTheHostsNumberAndDescriptionUnderTheTitle) {
  messages.Expect(u"Reset doc view");
  EXPECT_FALSE(TrapErrors(messages, u"Reset doc view", [] {
    throw word::HostError(word::kObjectDeleted, u"Object has been deleted.", "Range.Start");
  }));
  ASSERT_EQ(messages.shown.size(), 1u);
  EXPECT_EQ(messages.shown[0].text, u"Error: 5825 Object has been deleted.");
  EXPECT_EQ(messages.shown[0].icon, os::Icon::kCritical);
  EXPECT_EQ(messages.shown[0].buttons, os::Buttons::kOk);
}

TEST_F(Trap, MemoryThatRanOutIsErrorSeven) {
  messages.Expect(u"Anything");
  EXPECT_FALSE(TrapErrors(messages, u"Anything", [] { throw std::bad_alloc(); }));
  EXPECT_EQ(messages.shown.at(0).text, u"Error: 7 Out of memory");
}

TEST_F(Trap, AnyOtherExceptionIsAnInternalError) {
  messages.Expect(u"Anything");
  EXPECT_FALSE(TrapErrors(messages, u"Anything", [] { throw std::out_of_range("Invalid character code"); }));
  EXPECT_EQ(messages.shown.at(0).text, u"Error: 51 Invalid character code");
}

TEST_F(Trap, TheSettingsFileProblemIsWordedOnce) {
  messages.Expect(u"Ini file problem");
  ShowIniFileProblem(messages);
  EXPECT_EQ(messages.shown.at(0).text,
            u"There is a problem with the ini file. Please reinstall to try to fix the problem.");
  EXPECT_EQ(messages.shown.at(0).icon, os::Icon::kExclamation);
}
