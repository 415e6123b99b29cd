#include <algorithm>
#include <exception>
#include <string>
#include <vector>

#include "apps/kelvarin/Batch.h"
#include "apps/kelvarin/CommandLine.h"
#include "apps/kelvarin/Commands.h"
#include "apps/kelvarin/Memory.h"
#include "apps/kelvarin/Messages.h"
#include "apps/kelvarin/Output.h"
#include "apps/kelvarin/Status.h"

namespace {

FileResult WorkOn(const Options& options, const std::filesystem::path& input) {
  switch (options.command) {
    case Options::Command::kIndex:
      return IndexFile(options, input);
    case Options::Command::kTerms:
      return ListTerms(options, input);
    case Options::Command::kRemove:
    case Options::Command::kUnhighlight:
    case Options::Command::kUpdate:
      return ChangeIndexedFile(options, input);
    case Options::Command::kRun:
      return RunCommand(options, input);
    case Options::Command::kInspect:
      return InspectFile(options, input);
    case Options::Command::kOpen:
      break;
  }
  return {.status = kWrongCommandLine};
}

int Work(const Options& options) {
  const std::vector<FileResult> results = RunEach(
      options.inputs, options.jobs, [&options](const std::filesystem::path& input) { return WorkOn(options, input); });
  int status = kDone;
  std::string reports;
  std::string transcripts;
  for (const FileResult& result : results) {
    status = std::max(status, result.status);
    if (!result.report.empty()) reports += result.report + "\n";
    transcripts += result.transcript;
  }
  try {
    if (options.report) WriteText(reports, *options.report);
    if (options.transcript) WriteText(transcripts, *options.transcript);
  } catch (const Failure& failure) {
    Say(failure.what());
    status = std::max<int>(status, failure.Code());
  }
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    int status = kDone;
    const std::optional<Options> options = ReadCommandLine(argc, argv, status);
    if (!options) return status;
    if (options->command == Options::Command::kOpen) return OpenDesktop(*options);
    TakeMemoryInLargePages();
    return Work(*options);
  } catch (const std::exception& error) {
    Say(error.what());
    return kUnreadable;
  }
}
