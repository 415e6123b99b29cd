#pragma once

#include <filesystem>

#include "apps/kelvarin/Batch.h"
#include "apps/kelvarin/Options.h"

/// Each command's work on one input. Reasons why it did not come to its end are said on standard error.
/// @throws docx::PackageError, Failure

FileResult IndexFile(const Options& options, const std::filesystem::path& input);
FileResult ListTerms(const Options& options, const std::filesystem::path& input);
/// "Remove indexing", "Remove highlighting only" and "Update index".
FileResult ChangeIndexedFile(const Options& options, const std::filesystem::path& input);
FileResult RunCommand(const Options& options, const std::filesystem::path& input);
/// What was found out is the result, to be shown by CheckOutput.
FileResult CheckFile(const Options& options, const std::filesystem::path& input);
FileResult InspectFile(const Options& options, const std::filesystem::path& input);

/// Whether this build has windows.
bool HasDesktop();
/// Goes on as the desktop program, which lies beside this one, with the input when there is one. @return only when it
/// cannot, the exit status
int OpenDesktop(const Options& options);
