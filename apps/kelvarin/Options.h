#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "hosts/docx/WordProcessor.h"
#include "hosts/unattended/IndexAnswers.h"

/// The command line, once it is known to be right. What is absent leaves the choice to the settings or the defaults.

/// Where the cursor stands when the command begins.
struct CursorPlace {
  enum class Kind { kEnd, kStart, kBookmark, kAfterText, kCharacter };
  Kind kind{Kind::kEnd};
  std::string text{};        ///< the bookmark's name or the text, UTF-8
  std::int32_t position{0};  ///< for kCharacter: from the start of the main text
};

struct OutputOptions {
  std::optional<std::filesystem::path> file{};
  std::optional<std::filesystem::path> folder{};
  bool inPlace{false};
  bool force{false};
};

struct Options {
  enum class Command { kIndex, kTerms, kRemove, kUnhighlight, kUpdate, kRun, kInspect, kOpen };
  Command command{Command::kIndex};
  Command runCommand{Command::kIndex};  ///< of kRun: the command that is run
  std::vector<std::filesystem::path> inputs{};

  unattended::IndexOptions index{};
  std::optional<CursorPlace> at{};  ///< absent: the end, or where the answers file says
  docx::PageSource pages{docx::PageSource::kAuto};
  bool json{false};
  OutputOptions output{};

  std::optional<std::filesystem::path> answers{};
  bool strict{false};
  std::optional<std::filesystem::path> settings{};
  std::optional<std::filesystem::path> report{};  ///< "-" is standard output
  std::optional<std::filesystem::path> transcript{};
  int jobs{1};
  bool quiet{false};
  bool progress{false};
};
