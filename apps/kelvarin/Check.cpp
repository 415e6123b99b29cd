#include <memory>

#include "apps/kelvarin/CheckReport.h"
#include "apps/kelvarin/Commands.h"
#include "apps/kelvarin/FileRun.h"
#include "apps/kelvarin/Printable.h"
#include "apps/kelvarin/ReadDocument.h"
#include "drafting/DraftCheck.h"
#include "hosts/json/Json.h"
#include "hosts/linux/IcuCharacters.h"
#include "hosts/unattended/FileAnswers.h"
#include "hosts/unattended/Text.h"
#include "hosts/unattended/UnattendedHost.h"
#include "marker/MakeTermMarker.h"

namespace {

using Json = json::Value;
using unattended::ToUtf8;

Json Placed(const docx::WordProcessor& processor, const drafting::Place& place) {
  return {{"story", place.story},
          {"position", place.position},
          {"page", processor.PageOf(place.story, place.position)},
          {"sentence", ToUtf8(place.sentence)},
          {"begin", place.begin},
          {"end", place.end}};
}

Json Described(const std::filesystem::path& input, const docx::WordProcessor& processor,
               const drafting::Result& result) {
  Json defined = Json::array();
  for (const drafting::Definition& definition : result.definitions) {
    Json item{{"term", ToUtf8(definition.term)}, {"uses", definition.uses}};
    item.update(Placed(processor, definition.place));
    defined.push_back(std::move(item));
  }
  Json findings = Json::array();
  for (const drafting::Finding& finding : result.findings) {
    Json item{{"kind", KindsOfFindings().at(static_cast<std::size_t>(finding.kind)).name},
              {"term", ToUtf8(finding.term)},
              {"text", ToUtf8(finding.text)},
              {"count", finding.count}};
    item.update(Placed(processor, finding.place));
    if (finding.other) item["other"] = Placed(processor, *finding.other);
    findings.push_back(std::move(item));
  }
  return {{"file", InUtf8(input.string())},
          {"pages", processor.PageCount()},
          {"pagesFrom", processor.PagesFrom()},
          {"defined", defined},
          {"findings", findings}};
}

}  // namespace

FileResult CheckFile(const Options& options, const std::filesystem::path& input) {
  std::string found;
  FileResult result = RunOnFile(options, input, [&](FileRecord& record) {
    os::IcuCharacters characters;
    ReadDocument document(input, options.pages);
    docx::WordProcessor& processor = document.Processor();
    unattended::FileAnswers answers({}, false);
    unattended::UnattendedHost host(answers, nullptr, nullptr);
    const std::unique_ptr<TermMarker> marker = MakeTermMarker(characters);
    const word::ApplicationPtr application = processor.Application();
    const drafting::Result checked =
        drafting::CheckDraft({application, application->ActiveDocument(), *marker, host, characters});
    const Json described = Described(input, processor, checked);
    found = json::Written(described);
    record.report.SetPages(processor);
    return kDone;
  });
  result.result = std::move(found);
  return result;
}
