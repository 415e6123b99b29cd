#include "apps/kelvarin/AddInCommand.h"
#include "apps/kelvarin/Commands.h"
#include "apps/kelvarin/FileRun.h"
#include "apps/kelvarin/Output.h"
#include "hosts/unattended/Answers.h"
#include "hosts/unattended/FileAnswers.h"

namespace {

unattended::AnswersFile ReadAnswers(const Options& options) {
  if (!options.answers) return {};
  try {
    return unattended::ParseAnswers(ReadFile(*options.answers));
  } catch (const unattended::AnswersError& error) {
    throw unattended::AnswersError(options.answers->string() + ": " + error.what());
  }
}

}  // namespace

FileResult RunCommand(const Options& options, const std::filesystem::path& input) {
  return RunOnFile(options, input, [&](FileRecord& record) {
    std::optional<Target> target = ChooseTarget(options.output, input);
    unattended::AnswersFile file = ReadAnswers(options);
    unattended::FileAnswers answers(std::move(file.answers), options.strict);
    Session session(input, options, answers, file.state, record.transcript);
    const bool finished = GiveCommand(options.runCommand, session);
    answers.Finish();
    const Status status = CommandStatus(options.runCommand, finished, session, answers.Failure());
    TellRun(options, input, session, status, answers.Failure(), record.report);
    if (target && session.HasDocument()) {
      session.Document().AcceptOwn(*target);
      WriteDocument(session.Processor().Updated(), *target);
      record.report.SetOutput(target->file);
    }
    return status;
  });
}
