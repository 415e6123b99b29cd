#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace docx {

/// Values in a row with the sums of those before each. The sums are brought up to date only as far as somebody asks:
/// whoever goes through the row in either direction, changing as he goes, pays for what he passes; whoever jumps,
/// for the way between.
template <typename Number>
class RunningSums {
 public:
  void Insert(std::size_t index, Number value) {
    values_.insert(values_.begin() + static_cast<std::ptrdiff_t>(index), value);
    sums_.push_back(0);
    ChangedFrom(index);
  }
  void Append(Number value) { Insert(values_.size(), value); }
  void Remove(std::size_t index) {
    values_.erase(values_.begin() + static_cast<std::ptrdiff_t>(index));
    sums_.pop_back();
    ChangedFrom(index);
  }
  void Add(std::size_t index, Number amount) {
    values_[index] += amount;
    ChangedFrom(index);
  }

  /// The sum of the first `count` values.
  Number Before(std::size_t count) const {
    for (; known_ < count; ++known_) sums_[known_ + 1] = sums_[known_] + values_[known_];
    return sums_[count];
  }

  /// The first value with which the sum passes `target`; behind the last one when none does. @pre no value is negative
  std::size_t Passing(Number target) const {
    while (known_ < values_.size() && sums_[known_] <= target) Before(known_ + 1);
    const auto end = sums_.begin() + static_cast<std::ptrdiff_t>(known_) + 1;
    return static_cast<std::size_t>(std::upper_bound(sums_.begin(), end, target) - sums_.begin()) - 1;
  }

 private:
  void ChangedFrom(std::size_t index) { known_ = std::min(known_, index); }

  std::vector<Number> values_;
  mutable std::vector<Number> sums_{0};
  mutable std::size_t known_{0};  ///< sums_ up to and with this one are right
};

}  // namespace docx
