#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// Writes "kelvarin: FILE: text" to standard error, as one line and at once; line ends inside the text become blanks.
void Say(const std::filesystem::path& file, std::string_view text);

/// The same without a file.
void Say(std::string_view text);

/// Where standard error is a terminal, a line of progress is wiped first and drawn again by the next report of it.
void ShowProgressLine(std::string_view text);
void EndProgressLine();

/// For a process of many that write to one terminal: a line of progress may be there whenever this one has something to
/// say.
void ShareProgressLine();
