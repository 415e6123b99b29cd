#include "drafting/DefinitionPlace.h"

#include <gtest/gtest.h>

#include <string>

using drafting::Role;

namespace {

/// Of "Buyer" in its first quotation marks.
Role RoleIn(std::u16string_view line) {
  const std::size_t begin = line.find(u"Buyer\u201D");
  return drafting::RoleOf(line, begin, begin + 5);
}

}  // namespace

TEST(DefinitionPlace, WhatFollowsDefines) {
  for (const std::u16string_view line : {
           u"“Buyer” means Acorn Limited.",
           u"(a) “Buyer” shall mean Acorn.",
           u"The term “Buyer” includes its heirs.",
           u"“Buyer” or “Buyers” means Acorn.",
           u"“Buyer”, “Seller” and “Bank” mean those.",
           u"“Buyer” (also “we”) means Acorn.",
           u"1.1 “Buyer”: Acorn Limited of Ropewalk.",
           u"“Buyer” \u2013 Acorn Limited.",
           u"“Buyer”",
           u"“the Buyer” means Acorn.",
       }) {
    EXPECT_EQ(RoleIn(line), Role::kListed) << std::string(line.begin(), line.end());
  }
}

TEST(DefinitionPlace, WhatStandsBeforeDefines) {
  for (const std::u16string_view line : {
           u"Acorn Limited (the “Buyer”) and others",
           u"Acorn Limited (“Buyer”) and others",
           u"Acorn (together with its heirs, the “Group” and each a “Buyer”) pays.",
           u"Acorn, hereinafter referred to as the “Buyer”, pays.",
           u"Acorn, hereinafter “Buyer”, pays.",
       }) {
    EXPECT_EQ(RoleIn(line), Role::kInline) << std::string(line.begin(), line.end());
  }
}

TEST(DefinitionPlace, APointerIsNoDefinition) {
  for (const std::u16string_view line : {
           u"“Buyer” has the meaning given to it in the Deed.",
           u"“Buyer”: the meaning given in the Deed.",
           u"“Buyer”: the firm appointed under paragraph 5 of Part 1.",
           u"“Buyer” is defined in Section 2.",
       }) {
    EXPECT_EQ(RoleIn(line), Role::kPointer) << std::string(line.begin(), line.end());
  }
}

TEST(DefinitionPlace, WhatIsSpokenOfIsNotDefined) {
  for (const std::u16string_view line : {
           u"Wherever it says “Buyer” the heirs are bound.",
           u"He pays (as defined in the Deed, “Buyer” being another) at once.",
           u"This is commonly known as “Buyer” there.",
           u"He pays at once (it was late) and “Buyer” is not he.",
       }) {
    EXPECT_EQ(RoleIn(line), Role::kMention) << std::string(line.begin(), line.end());
  }
}
