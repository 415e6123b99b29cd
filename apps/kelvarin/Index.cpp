#include "apps/kelvarin/Commands.h"
#include "apps/kelvarin/FileRun.h"
#include "apps/kelvarin/Output.h"

FileResult IndexFile(const Options& options, const std::filesystem::path& input) {
  return RunOnFile(options, input, [&](Report& report) {
    const std::filesystem::path target = *ChooseTarget(options.output, input);
    unattended::IndexAnswers answers(options.index);
    Session session(input, options, answers);
    session.Run([](Connect& addIn) { addIn.ShowKVXForm(); });
    const Status status = IndexingStatus(session, answers.Failure());
    SayMessages(options, input, session, status, answers.Failure());
    if (options.report) report.Fill(session);
    if (status == kDone) {
      WriteDocument(session.Processor().Updated(), target);
      report.SetOutput(target);
    }
    return Outcome{.status = status, .transcript = session.TranscriptText()};
  });
}
