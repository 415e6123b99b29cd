#include "drafting/DefinitionPlace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using drafting::Role;

namespace {

/// Of "Buyer" in its first quotation marks.
Role RoleIn(std::u16string_view line) {
  const std::size_t close = std::min(line.find(u"Buyer\u201D"), line.find(u"Buyer,\u201D"));
  return drafting::RoleOf(line, close, line.find(u'\u201D', close));
}

}  // namespace

TEST(DefinitionPlace, WhatFollowsDefines) {
  for (const std::u16string_view line : {
           u"“Buyer” means Acorn Limited.",
           u"(a) “Buyer” shall mean Acorn.",
           u"The term “Buyer” refers to Acorn.",
           u"“Buyer” includes its heirs.",
           u"As used herein, the “Buyer” of a Share will mean whoever pays for it.",
           u"an “Buyer”, with respect to any Share (also one that is not paid), means whoever pays for it.",
           u"(c) “Buyer” of a Share at a given price shall be deemed to be whoever pays it.",
           u"“Buyer,” “Seller,” and “Bank” mean those.",
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
           u"He pays (and any of his heirs to whom the Seller sells a share of what he owns by then, a “Buyer”) at "
           u"once.",
           u"Acorn may be referred to in this deed individually as a “Party” and with its heirs as the “Buyer”.",
           u"What was sold to a Party is referred to herein as such Party’s “Buyer”.",
           u"Its heirs will be collectively deemed “Buyer”.",
           u"Acorn (“Buyer,” “us,” or “we”) pays.",
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
           u"All references to “Buyer” include its heirs.",
           u"“Buyer” of a Share has the meaning given in the Deed.",
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
           u"The words “Buyer” of a Share are used by all means.",
           u"It says “Buyer” of a Share; it means Acorn.",
           u"He pays (and any of his heirs to whom the Seller sells a share of what he owns by then under “Buyer”) at "
           u"once.",
           u"He is referred to in the Deed; as it stands, there is no “Buyer” there.",
       }) {
    EXPECT_EQ(RoleIn(line), Role::kMention) << std::string(line.begin(), line.end());
  }
}
