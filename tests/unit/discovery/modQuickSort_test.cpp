#include "discovery/modQuickSort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>

namespace {

using Terms = std::vector<std::u16string>;

Terms Sorted(Terms items) {
  QuickSort(items, 0, static_cast<int>(items.size()) - 1);
  return items;
}

/// The number of the text in the middle of 0 to hi, as the sort takes it.
std::size_t Middle(std::size_t hi) {
  const std::size_t half = hi / 2;
  return hi % 2 != 0 && half % 2 != 0 ? half + 1 : half;
}

/// So many different texts in an order in which the middle one of every part to be sorted is its last.
Terms WorstOrder(std::size_t count) {
  Terms texts;
  for (std::size_t next = 0; next < count; ++next) {
    const std::string digits = std::to_string(1'000'000 + next);
    texts.emplace_back(digits.begin(), digits.end());
    std::swap(texts[Middle(next)], texts.back());
  }
  return texts;
}

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

TEST(QuickSort, NoOrderOfManyTextsTakesLongOrMuchOfTheStack) {
  constexpr std::size_t kCount = 100'000;
  const Terms sorted = Sorted(WorstOrder(kCount));
  ASSERT_EQ(sorted.size(), kCount);
  EXPECT_EQ(std::adjacent_find(sorted.begin(), sorted.end(), std::greater_equal<>()), sorted.end());
}
