#pragma once

#include <filesystem>
#include <functional>

#include "apps/kelvarin/Batch.h"
#include "apps/kelvarin/Options.h"

/// A command's work on one file.
using FileWork = std::function<FileResult(const Options& options, const std::filesystem::path& input)>;

/// Gets the results in the order of the inputs, those that a journal recalls included.
using TakeResult = std::function<void(const FileResult& result)>;

/// Works on many files: some at a time, each in a process of its own, with a journal, reports and progress.
/// @return the highest status. A run that was interrupted does not come back: it ends by the signal, as other programs
/// do, after what it had begun is brought to its end
/// @throws Failure kUnreadable when a journal, a report or a transcript cannot be written
int WorkOnMany(const Options& options, const FileWork& work, const TakeResult& take);
