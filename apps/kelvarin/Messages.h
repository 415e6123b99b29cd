#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// Writes "kelvarin: FILE: text" to standard error, as one line and at once; line ends inside the text become blanks,
/// and control characters what they can be read as (Printable.h): names and texts may be made by anybody.
void Say(const std::filesystem::path& file, std::string_view text);

/// The same without a file.
void Say(std::string_view text);

/// Where standard error is a terminal, a line of progress is wiped first and drawn again by the next report of it.
/// @param bar drawn before the text where both fit into a line of the terminal  @param text cut where it does not fit
void ShowProgressLine(std::string_view bar, std::string_view text);
void EndProgressLine();

/// For a process of many that write to one terminal: a line of progress may be there whenever this one has something to
/// say.
void ShareProgressLine();
