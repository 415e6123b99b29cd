#include <algorithm>
#include <exception>
#include <new>
#include <string>

#include "apps/kelvarin/Bulk.h"
#include "apps/kelvarin/CheckOutput.h"
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
    case Options::Command::kCheck:
      return CheckFile(options, input);
    case Options::Command::kOpen:
      break;
  }
  return {.status = kWrongCommandLine};
}

int WorkOnOne(const Options& options, const TakeResult& take) {
  TakeMemoryInLargePages();
  const FileResult result = WorkOn(options, options.inputs.front().file);
  int status = result.status;
  try {
    take(result);
    if (options.report && !result.report.empty()) WriteText(result.report + "\n", *options.report);
    if (options.transcript) WriteText(result.transcript, *options.transcript);
  } catch (const Failure& failure) {
    Say(failure.what());
    status = std::max<int>(status, failure.Code());
  }
  return status;
}

int WorkOnAll(const Options& options, const TakeResult& take) {
  return options.many ? WorkOnMany(options, WorkOn, take) : WorkOnOne(options, take);
}

int Work(const Options& options) {
  if (options.command != Options::Command::kCheck) return WorkOnAll(options, [](const FileResult&) {});
  CheckOutput output(options);
  const int status = WorkOnAll(options, [&output](const FileResult& result) { output.Take(result); });
  output.Finish();
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  EndWhereMemoryRunsOut();
  try {
    int status = kDone;
    const std::optional<Options> options = ReadCommandLine(argc, argv, status);
    if (!options) return status;
    if (options->command == Options::Command::kOpen) return OpenDesktop(*options);
    return Work(*options);
  } catch (const Failure& failure) {
    Say(failure.what());
    return failure.Code();
  } catch (const std::bad_alloc&) {
    Say("needs more memory than there is");
    return kUnreadable;
  } catch (const std::exception& error) {
    Say(error.what());
    return kUnreadable;
  }
}
