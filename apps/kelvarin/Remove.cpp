#include "apps/kelvarin/Commands.h"
#include "apps/kelvarin/FileRun.h"
#include "apps/kelvarin/Output.h"

FileResult RemoveIndexing(const Options& options, const std::filesystem::path& input) {
  return RunOnFile(options, input, [&](FileRecord& record) {
    const std::filesystem::path target = *ChooseTarget(options.output, input);
    unattended::IndexAnswers answers(options.index);
    Session session(input, options, answers, {}, record.transcript);
    session.RemoveIndexing();
    if (options.report) record.report.Fill(session);
    WriteDocument(session.Processor().Updated(), target);
    record.report.SetOutput(target);
    return kDone;
  });
}
