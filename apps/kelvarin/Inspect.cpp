#include "apps/kelvarin/Commands.h"
#include "apps/kelvarin/FileRun.h"
#include "apps/kelvarin/Inspection.h"
#include "apps/kelvarin/Output.h"
#include "platform/word/Application.h"
#include "platform/word/Document.h"

FileResult InspectFile(const Options& options, const std::filesystem::path& input) {
  return RunOnFile(options, input, [&](FileRecord& record) {
    unattended::IndexAnswers answers(options.index);
    Session session(input, options, answers, {}, record.transcript);
    session.Finish();
    docx::WordProcessor& processor = session.Processor();
    nlohmann::ordered_json result{{"pages", processor.PageCount()}, {"pagesFrom", processor.PagesFrom()}};
    result.update(Inspect(processor.Application()->ActiveDocument(), [&processor](int story, word::Position position) {
      return processor.PageOf(story, position);
    }));
    if (options.WantsReport()) record.report.Fill(session);
    WriteText(result.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n", "-");
    return kDone;
  });
}
