#include "apps/kelvarin/Commands.h"
#include "apps/kelvarin/FileRun.h"
#include "apps/kelvarin/Inspection.h"
#include "apps/kelvarin/Output.h"
#include "hosts/json/Json.h"
#include "platform/word/Application.h"
#include "platform/word/Document.h"

FileResult InspectFile(const Options& options, const std::filesystem::path& input) {
  return RunOnFile(options, input, [&](FileRecord& record) {
    unattended::IndexAnswers answers(options.index);
    Session session(input, options, answers, {}, record.transcript);
    session.Finish();
    docx::WordProcessor& processor = session.Processor();
    json::Value result{{"pages", processor.PageCount()}, {"pagesFrom", processor.PagesFrom()}};
    result.update(Inspect(processor.Application()->ActiveDocument(), [&processor](int story, word::Position position) {
      return processor.PageOf(story, position);
    }));
    if (options.WantsReport()) record.report.Fill(session);
    WriteText(json::Indented(result) + "\n", "-");
    return kDone;
  });
}
