#include "apps/kelvarin/AddInCommand.h"
#include "apps/kelvarin/Commands.h"
#include "apps/kelvarin/FileRun.h"
#include "apps/kelvarin/Output.h"
#include "hosts/unattended/FileAnswers.h"

FileResult ChangeIndexedFile(const Options& options, const std::filesystem::path& input) {
  return RunOnFile(options, input, [&](FileRecord& record) {
    const Target target = *ChooseTarget(options.output, input);
    unattended::FileAnswers answers({}, false);
    Session session(input, options, answers, {}, record.transcript);
    const bool finished = GiveCommand(options.command, session);
    const Status status = CommandStatus(options.command, finished, session, answers.Failure());
    TellRun(options, input, session, status, answers.Failure(), record.report);
    if (status == kDone) {
      WriteDocument(session.Processor().Updated(), target);
      record.report.SetOutput(target.file);
    }
    return status;
  });
}
