#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// A document to be worked on.
struct Input {
  std::filesystem::path file;
  /// The result's name below the folder for results.
  std::filesystem::path name;
  /// Why it cannot be worked on, in the words of a person's message; empty: nothing is known against it
  std::string problem{};
};

struct InputChoice {
  /// What the command line names: a file; a folder, for the Word documents in it and below it; "@" and a file with such
  /// names, one a line, where "@-" is standard input. A file whose name begins with "@" is written "./@...".
  std::vector<std::string> operands;
  /// Results keep their place below it; absent: a file's result has its name alone, and one found in a folder its place
  /// below that folder.
  std::optional<std::filesystem::path> base;
  /// The folder for results, of which no document is taken.
  std::optional<std::filesystem::path> output;
};

/// The documents in the order named, those of a folder sorted by their names, each taken once. Of a folder hidden files
/// and folders are left out, the "~$" files that word processors leave beside open documents, and folders behind
/// symbolic links. A folder without documents, or one that cannot be read, is there as an input with its problem.
/// @throws Failure kUnreadable for a list that cannot be read, kWrongCommandLine for a document outside of the base
std::vector<Input> FindInputs(const InputChoice& choice);
