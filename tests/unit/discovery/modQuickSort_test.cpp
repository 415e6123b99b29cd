#include "discovery/modQuickSort.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

std::vector<std::u16string> Sorted(std::vector<std::u16string> items) {
  QuickSort(items, 0, static_cast<int>(items.size()) - 1);
  return items;
}

using Terms = std::vector<std::u16string>;

}  // namespace

TEST(QuickSort, CapitalsStandBeforeSmallLetters) {
  EXPECT_EQ(Sorted({u"b", u"B", u"a"}), (Terms{u"B", u"a", u"b"}));
  EXPECT_EQ(Sorted({u"apple", u"Zebra"}), (Terms{u"Zebra", u"apple"}));
}

TEST(QuickSort, ATextStandsBeforeALongerOneThatBeginsWithIt) {
  EXPECT_EQ(Sorted({u"Closing Date", u"Closing", u""}), (Terms{u"", u"Closing", u"Closing Date"}));
}

TEST(QuickSort, CodeUnitsAboveASCIISortByTheirNumber) {
  EXPECT_EQ(Sorted({u"\uFFFDx", u"\u00C4x", u"zx"}), (Terms{u"zx", u"\u00C4x", u"\uFFFDx"}));
}

TEST(QuickSort, OnlyTheGivenElementsMove) {
  Terms items{u"d", u"c", u"b", u"a"};
  QuickSort(items, 1, 2);
  EXPECT_EQ(items, (Terms{u"d", u"b", u"c", u"a"}));
}

TEST(QuickSort, OneElementIsSorted) { EXPECT_EQ(Sorted({u""}), Terms{u""}); }

TEST(QuickSort, EveryOrderOfSevenTextsComesOutTheSame) {
  Terms items{u"a", u"b", u"b", u"c", u"d", u"e", u"f"};
  const Terms sorted = items;
  do {
    ASSERT_EQ(Sorted(items), sorted);
  } while (std::next_permutation(items.begin(), items.end()));
}
