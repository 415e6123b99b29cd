#include "discovery/modQuickSort.h"

#include <cstddef>
#include <utility>

namespace {

/// Half of the sum, a half going to the even number.
int Middle(int lo, int hi) {
  const int half = (lo + hi) / 2;
  return (lo + hi) % 2 != 0 && half % 2 != 0 ? half + 1 : half;
}

}  // namespace

void QuickSort(std::vector<std::u16string>& items, int lo, int hi) {
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
  if (lo < j) QuickSort(items, lo, j);
  if (i < hi) QuickSort(items, i, hi);
}
