#include "discovery/modQuickSort.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <utility>

namespace {

/// Half of the sum, a half going to the even number.
int Middle(int lo, int hi) {
  const int half = (lo + hi) / 2;
  return (lo + hi) % 2 != 0 && half % 2 != 0 ? half + 1 : half;
}

using Items = std::vector<std::u16string>;

struct Parts {
  int endOfFirst;
  int startOfSecond;
};

/// Puts what is not above the middle element before what is not below it.
Parts Partition(Items& items, int lo, int hi) {
  const auto at = [&items](int index) -> std::u16string& { return items[static_cast<std::size_t>(index)]; };
  const std::u16string pivot = at(Middle(lo, hi));
  int i = lo;
  int j = hi;
  while (i <= j) {
    while (at(i) < pivot && i < hi) ++i;
    while (pivot < at(j) && j > lo) --j;
    if (i <= j) {
      std::swap(at(i), at(j));
      ++i;
      --j;
    }
  }
  return {.endOfFirst = j, .startOfSecond = i};
}

/// @param levels how often a part may be divided again. Whoever writes a document chooses the order of its terms, and
///     with it how unequal the parts are.
void Sort(Items& items, int lo, int hi, int levels) {
  while (lo < hi && levels > 0) {
    --levels;
    const auto [endOfFirst, startOfSecond] = Partition(items, lo, hi);
    if (endOfFirst - lo < hi - startOfSecond) {
      Sort(items, lo, endOfFirst, levels);
      lo = startOfSecond;
    } else {
      Sort(items, startOfSecond, hi, levels);
      hi = endOfFirst;
    }
  }
  if (lo < hi) std::sort(items.begin() + lo, items.begin() + hi + 1);
}

}  // namespace

void QuickSort(std::vector<std::u16string>& items, int lo, int hi) {
  const auto evenLevels = static_cast<int>(std::bit_width(static_cast<unsigned>(hi - lo)));
  Sort(items, lo, hi, 2 * evenLevels);
}
