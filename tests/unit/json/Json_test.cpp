#include "hosts/json/Json.h"

#include <gtest/gtest.h>

namespace {

const json::Value kSample{{"term", "Buyer\u2019s"}, {"pages", {1, 12}}, {"index", nullptr}};

TEST(Json, IsWrittenInOneLineWithMembersAsTheyWereSet) {
  EXPECT_EQ(json::Written(kSample), "{\"term\":\"Buyer\u2019s\",\"pages\":[1,12],\"index\":null}");
}

TEST(Json, IsIndentedByTwoBlanksForEachLevel) {
  EXPECT_EQ(json::Indented({{"pages", {1}}}), "{\n  \"pages\": [\n    1\n  ]\n}");
}

TEST(Json, IsWrittenInAsciiWhereItIsForNoPerson) {
  EXPECT_EQ(json::InAscii(kSample), "{\"term\":\"Buyer\\u2019s\",\"pages\":[1,12],\"index\":null}");
}

TEST(Json, TextThatIsNoUtf8IsWrittenWithReplacementCharacters) {
  EXPECT_EQ(json::Written("a\xFFz"), "\"a\uFFFDz\"");
  EXPECT_EQ(json::Indented("a\xFFz"), "\"a\uFFFDz\"");
  EXPECT_EQ(json::InAscii("a\xFFz"), "\"a\\ufffdz\"");
}

TEST(Json, ReadIsWhatWasWritten) {
  EXPECT_EQ(json::Read(json::Written(kSample)), kSample);
  EXPECT_EQ(json::Read(json::Indented(kSample)), kSample);
  EXPECT_EQ(json::ReadOrDiscard(json::InAscii(kSample)), kSample);
}

TEST(Json, WhereTextIsNoJsonItsByteIsTold) {
  for (const auto& [text, byte] : {std::pair{"", 1U}, {"{\"a\" 1}", 6U}, {"[1] 2", 5U}}) {
    try {
      json::Read(text);
      ADD_FAILURE() << text << " was read";
    } catch (const json::Value::parse_error& error) {
      EXPECT_EQ(error.byte, byte) << text;
    }
  }
}

TEST(Json, ANumberOutOfRangeIsAnErrorOfItsOwn) { EXPECT_THROW(json::Read("[1e999]"), json::Value::out_of_range); }

TEST(Json, WhatCannotBeReadIsDiscarded) {
  for (const char* text : {"", "{", "[1] 2", "[1e999]"}) {
    const json::Value value = json::ReadOrDiscard(text);
    EXPECT_TRUE(value.is_discarded()) << text;
    EXPECT_FALSE(value.is_object()) << text;
  }
}

}  // namespace
