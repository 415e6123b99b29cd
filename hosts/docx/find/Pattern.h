#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "hosts/docx/find/FindSettings.h"
#include "hosts/docx/find/VisibleText.h"

namespace docx {

/// A match by indices of a VisibleText; never empty.
struct Hit {
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  std::size_t start{0};
  std::size_t end{0};
  std::vector<std::pair<std::size_t, std::size_t>> groups{};  ///< kNone where a group took no part
};

/// A compiled search text.
class Pattern {
 public:
  Pattern() = default;
  virtual ~Pattern() = default;
  Pattern(const Pattern&) = delete;
  Pattern& operator=(const Pattern&) = delete;

  /// The first match that begins at an index or behind it.
  /// @throws word::HostError kBadPattern when a wildcard pattern costs too much on this text
  virtual std::optional<Hit> FindFirst(VisibleText& text, std::size_t from) = 0;
  /// The match that begins at an index.
  virtual std::optional<Hit> MatchAt(VisibleText& text, std::size_t index) = 0;
};

/// @throws word::HostError kBadPattern, kStringTooLong
std::unique_ptr<Pattern> CompilePattern(const FindSettings& settings);
std::unique_ptr<Pattern> CompilePlainPattern(const FindSettings& settings);
std::unique_ptr<Pattern> CompileWildcardPattern(const FindSettings& settings);

}  // namespace docx
