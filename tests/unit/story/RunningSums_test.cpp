#include "hosts/docx/story/RunningSums.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <numeric>
#include <random>
#include <vector>

namespace {

using docx::RunningSums;

RunningSums<int> Of(const std::vector<int>& values) {
  RunningSums<int> sums;
  for (const int value : values) sums.Append(value);
  return sums;
}

TEST(RunningSums, AreThoseOfTheValuesBefore) {
  const RunningSums<int> sums = Of({3, 0, 5});
  EXPECT_EQ(sums.Before(3), 8);
  EXPECT_EQ(sums.Before(0), 0);
  EXPECT_EQ(sums.Before(2), 3);
}

TEST(RunningSums, OfNothingAreNothing) {
  const RunningSums<int> sums;
  EXPECT_EQ(sums.Before(0), 0);
  EXPECT_EQ(sums.Passing(0), 0U);
}

TEST(RunningSums, ArePassedByTheValueThatHoldsTheTarget) {
  const RunningSums<int> sums = Of({3, 0, 5});
  EXPECT_EQ(sums.Passing(0), 0U);
  EXPECT_EQ(sums.Passing(2), 0U);
  EXPECT_EQ(sums.Passing(3), 2U);
  EXPECT_EQ(sums.Passing(7), 2U);
  EXPECT_EQ(sums.Passing(8), 3U);
}

TEST(RunningSums, FollowEveryChange) {
  std::mt19937 random(5);
  const auto below = [&](std::size_t limit) { return static_cast<std::size_t>(random() % limit); };
  std::vector<int> values;
  RunningSums<int> sums;
  for (int step = 0; step < 5'000; ++step) {
    const auto value = static_cast<int>(below(4));
    const std::size_t at = below(values.size() + 1);
    if (values.size() < 20 || below(3) == 0) {
      values.insert(values.begin() + static_cast<std::ptrdiff_t>(at), value);
      sums.Insert(at, value);
    } else if (at < values.size() && below(2) == 0) {
      values.erase(values.begin() + static_cast<std::ptrdiff_t>(at));
      sums.Remove(at);
    } else if (at < values.size()) {
      values[at] += value;
      sums.Add(at, value);
    }
    const std::size_t count = below(values.size() + 1);
    const int before = std::accumulate(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(count), 0);
    ASSERT_EQ(sums.Before(count), before);
    const std::size_t passing = sums.Passing(before);
    ASSERT_GE(passing, count);
    ASSERT_EQ(sums.Before(passing), before);
    ASSERT_TRUE(passing == values.size() || values[passing] > 0);
  }
}

}  // namespace
