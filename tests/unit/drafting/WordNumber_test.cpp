#include "drafting/WordNumber.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using drafting::InOtherNumber;

TEST(WordNumber, TurnsSingularsAndPluralsIntoEachOther) {
  const std::vector<std::pair<std::u16string, std::u16string>> pairs{
      {u"Claim", u"Claims"},       {u"Party", u"Parties"},      {u"Business Day", u"Business Days"},
      {u"Loss", u"Losses"},        {u"Tax", u"Taxes"},          {u"Licence", u"Licences"},
      {u"Purchase", u"Purchases"}, {u"Key", u"Keys"},           {u"Event of Default", u"Events of Default"},
      {u"Promise", u"Promises"},   {u"Licensee", u"Licensees"}, {u"Branch", u"Branches"}};
  for (const auto& [one, other] : pairs) {
    EXPECT_EQ(InOtherNumber(one), other);
    EXPECT_EQ(InOtherNumber(other), one);
  }
}

TEST(WordNumber, SaysNothingOfWhatItDoesNotKnow) {
  for (const std::u16string_view term : {u"", u"LLC", u"Schedule 1", u"To", u"B2"}) {
    EXPECT_EQ(InOtherNumber(term), u"") << std::string(term.begin(), term.end());
  }
}
