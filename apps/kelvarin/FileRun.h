#pragma once

#include <filesystem>
#include <functional>
#include <sstream>
#include <string>

#include "apps/kelvarin/Batch.h"
#include "apps/kelvarin/Options.h"
#include "apps/kelvarin/Report.h"
#include "apps/kelvarin/Status.h"

/// What is written down of a command's work on a file. It outlives the work, so that a failure loses none of it.
struct FileRecord {
  Report report;
  std::ostringstream transcript{};
};

/// Does a command's work on a file: takes its time, says errors on standard error, and finishes the report.
FileResult RunOnFile(const Options& options, const std::filesystem::path& input,
                     const std::function<Status(FileRecord&)>& work);

/// Puts what the run did and showed a person into the report, and says what it showed on standard error; a run that
/// came to its end quietly, or with --quiet, says nothing. A run that stopped has its reason among the report's
/// messages.
/// @param failure why a dialog could not be answered; empty: none
void TellRun(const Options& options, const std::filesystem::path& input, Session& session, Status status,
             const std::string& failure, Report& report);

/// Whether the run of "Find and index" came to its end. @param failure as above
Status IndexingStatus(const Session& session, const std::string& failure);
