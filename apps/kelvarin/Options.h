#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "apps/kelvarin/Inputs.h"
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
  /// The result's name in the folder; absent: the input's.
  std::optional<std::filesystem::path> name{};
  bool inPlace{false};
  bool force{false};
};

/// Where a run over many files writes down what it has done.
struct JournalOptions {
  std::optional<std::filesystem::path> file{};
  /// It was asked for, and stays when all is done.
  bool kept{false};
  /// What results depend on besides the documents, in one line.
  std::string options{};
};

struct Options {
  enum class Command { kIndex, kTerms, kRemove, kUnhighlight, kUpdate, kRun, kInspect, kCheck, kOpen };
  Command command{Command::kIndex};
  Command runCommand{Command::kIndex};  ///< of kRun: the command that is run
  std::vector<Input> inputs{};
  /// More than one document may be meant, whatever number was found, or what only many have is asked for.
  bool many{false};

  unattended::IndexOptions index{};
  std::optional<CursorPlace> at{};  ///< absent: the end, or where the answers file says
  docx::PageSource pages{docx::PageSource::kAuto};
  bool json{false};
  std::optional<std::filesystem::path> html{};  ///< of kCheck; "-" is standard output
  OutputOptions output{};

  std::optional<std::filesystem::path> answers{};
  bool strict{false};
  std::optional<std::filesystem::path> settings{};
  std::optional<std::filesystem::path> report{};  ///< "-" is standard output
  std::optional<std::filesystem::path> transcript{};
  JournalOptions journal{};
  int jobs{1};
  int timeLimit{0};  ///< seconds for a file of many; 0: none
  bool quiet{false};
  bool progress{false};

  /// A journal keeps the reports too, since a run that goes on with it may be asked for them; a page says why a file
  /// is not on it.
  bool WantsReport() const { return report || journal.file || html; }
};
