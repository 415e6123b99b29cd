#include <algorithm>
#include <exception>
#include <string>

#include "apps/kelvarin/Bulk.h"
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

int WorkOnOne(const Options& options) {
  TakeMemoryInLargePages();
  const FileResult result = WorkOn(options, options.inputs.front().file);
  int status = result.status;
  try {
    if (options.report && !result.report.empty()) WriteText(result.report + "\n", *options.report);
    if (options.transcript) WriteText(result.transcript, *options.transcript);
  } catch (const Failure& failure) {
    Say(failure.what());
    status = std::max<int>(status, failure.Code());
  }
  return status;
}

int Work(const Options& options) {
  if (!options.many) return WorkOnOne(options);
  return WorkOnMany(options, WorkOn, [](const FileResult&) {});
}

}  // namespace

int main(int argc, char** argv) {
  try {
    int status = kDone;
    const std::optional<Options> options = ReadCommandLine(argc, argv, status);
    if (!options) return status;
    if (options->command == Options::Command::kOpen) return OpenDesktop(*options);
    return Work(*options);
  } catch (const Failure& failure) {
    Say(failure.what());
    return failure.Code();
  } catch (const std::exception& error) {
    Say(error.what());
    return kUnreadable;
  }
}
