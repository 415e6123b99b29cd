#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "apps/kelvarin/Batch.h"
#include "apps/kelvarin/Options.h"
#include "apps/kelvarin/Report.h"
#include "apps/kelvarin/Status.h"

/// What a command made of a file.
struct Outcome {
  Status status{kDone};
  std::string transcript{};
};

/// Does a command's work on a file: takes its time, says errors on standard error, and makes the report.
FileResult RunOnFile(const Options& options, const std::filesystem::path& input,
                     const std::function<Outcome(Report&)>& work);

/// Says on standard error what the run showed a person; a run that came to its end quietly, or with --quiet, says
/// nothing. @param failure why a dialog could not be answered; empty: none
void SayMessages(const Options& options, const std::filesystem::path& input, Session& session, Status status,
                 const std::string& failure);

/// Whether the run of "Find and index" came to its end. @param failure as above
Status IndexingStatus(const Session& session, const std::string& failure);
