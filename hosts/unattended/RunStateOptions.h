#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace unattended {

/// What a run is to find when it starts, as an answers file says it. What is absent stays as the host has it.
struct RunStateOptions {
  /// Positions count UTF-16 code units from the start of the story.
  struct Cursor {
    int story{1};
    std::int32_t start{0};
    std::int32_t end{0};
  };
  using OptionValue = std::variant<bool, int, std::string>;

  bool noDocument{false};
  /// The document was never saved.
  bool newDocument{false};
  /// As Windows numbers them: 1 read-only, 32 archive.
  std::optional<int> attributes;
  std::optional<Cursor> cursor;

  std::optional<int> viewType;
  std::optional<int> viewSplitSpecial;
  std::optional<bool> viewShowHiddenText;
  std::optional<bool> viewShowAll;

  /// Members of Word's Options by name, in the file's order.
  std::vector<std::pair<std::string, OptionValue>> options;
  std::optional<int> wordProcesses;
  std::optional<int> connectMode;
  /// Paths, UTF-8.
  std::optional<std::string> addInFolder;
  std::optional<std::string> appData;
};

}  // namespace unattended
