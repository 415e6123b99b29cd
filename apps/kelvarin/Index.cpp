#include "apps/kelvarin/Commands.h"
#include "apps/kelvarin/FileRun.h"
#include "apps/kelvarin/Output.h"

FileResult IndexFile(const Options& options, const std::filesystem::path& input) {
  return RunOnFile(options, input, [&](FileRecord& record) {
    const Target target = *ChooseTarget(options.output, input);
    // Said before any work is done.
    if (options.index.load) static_cast<void>(ReadFile(*options.index.load));
    unattended::IndexAnswers answers(options.index);
    Session session(input, options, answers, {}, record.transcript);
    session.Run([](Connect& addIn) { addIn.ShowKVXForm(); });
    const Status status = IndexingStatus(session, answers.Failure());
    // Packed while the report is made.
    const docx::Package* const updated = status == kDone ? &session.Processor().Updated() : nullptr;
    TellRun(options, input, session, status, answers.Failure(), record.report);
    if (updated != nullptr) {
      WriteDocument(*updated, target);
      record.report.SetOutput(target.file);
    }
    return status;
  });
}
