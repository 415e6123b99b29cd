#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "platform/word/HostError.h"

namespace fakes {

/// What was done, in order, for tests of the order of calls: properties that were put and calls that change
/// something, never plain reads. Text outside ASCII shows as "?".
class CallLog {
 public:
  /// @throws word::HostError 4605 when a test asked for this very call to fail
  void Add(std::string call) {
    calls.push_back(std::move(call));
    const bool failsOnce = !failOnceAt.empty() && calls.back() == failOnceAt;
    if (failsOnce) failOnceAt.clear();
    if (failsOnce || (!failAt.empty() && calls.back() == failAt)) {
      throw word::HostError(word::kMethodNotAvailable, u"This method or property is not available", "Fake");
    }
  }
  bool Contains(std::string_view call) const { return std::find(calls.begin(), calls.end(), call) != calls.end(); }
  std::ptrdiff_t Count(std::string_view call) const { return std::count(calls.begin(), calls.end(), call); }
  /// How many entries begin with this.
  std::ptrdiff_t CountBeginning(std::string_view start) const {
    return std::count_if(calls.begin(), calls.end(), [&](const std::string& call) { return call.starts_with(start); });
  }

  std::vector<std::string> calls;
  /// The call that fails, in full; empty: none does.
  std::string failAt;
  /// The same for one that fails the first time only.
  std::string failOnceAt;
};

inline std::string Plain(std::u16string_view text) {
  std::string result;
  for (const char16_t unit : text) result += unit < 128 ? static_cast<char>(unit) : '?';
  return result;
}

inline std::string Plain(bool value) { return value ? "True" : "False"; }

}  // namespace fakes
