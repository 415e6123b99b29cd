#include "apps/kelvarin/Commands.h"
#include "apps/kelvarin/FileRun.h"
#include "apps/kelvarin/Output.h"

FileResult RemoveIndexing(const Options& options, const std::filesystem::path& input) {
  return RunOnFile(options, input, [&](Report& report) {
    const std::filesystem::path target = *ChooseTarget(options.output, input);
    unattended::IndexAnswers answers(options.index);
    Session session(input, options, answers);
    session.RemoveIndexing();
    if (options.report) report.Fill(session);
    WriteDocument(session.Processor().Updated(), target);
    report.SetOutput(target);
    return Outcome{.status = kDone, .transcript = session.TranscriptText()};
  });
}
