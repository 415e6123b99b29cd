#include "apps/kelvarin/Commands.h"
#include "apps/kelvarin/FileRun.h"
#include "apps/kelvarin/Output.h"
#include "apps/kelvarin/ReadDocument.h"
#include "apps/kelvarin/TermPlaces.h"
#include "hosts/json/Json.h"
#include "hosts/linux/IcuCharacters.h"
#include "hosts/unattended/Text.h"

namespace {

std::string Lines(const std::vector<std::u16string>& terms) {
  std::string text;
  for (const std::u16string& term : terms) text += unattended::ToUtf8(term) + "\n";
  return text;
}

/// The terms with their places in the file as it is: a run takes an earlier index away before it shows what it found.
std::string Described(const Options& options, const std::filesystem::path& input,
                      const std::vector<std::u16string>& terms) {
  os::IcuCharacters characters;
  ReadDocument document(input, options.pages);
  const json::Value list = DescribeTerms(document.Processor(), characters, terms);
  return json::Indented(list) + "\n";
}

}  // namespace

FileResult ListTerms(const Options& options, const std::filesystem::path& input) {
  return RunOnFile(options, input, [&](FileRecord& record) {
    unattended::IndexOptions search = options.index;
    search.searchOnly = true;
    unattended::IndexAnswers answers(search);
    Session session(input, options, answers, {}, record.transcript);
    session.Run([](Connect& addIn) { addIn.ShowKVXForm(); });
    const RunWatch& watch = session.Watch();
    const bool searched = watch.TermsShown() && !watch.ToldAnError();
    const Status status = searched && answers.Failure().empty() ? kDone : kStopped;
    TellRun(options, input, session, status, answers.Failure(), record.report);
    const std::vector<std::u16string>& found = watch.Found();
    if (status == kDone) WriteText(options.json ? Described(options, input, found) : Lines(found), "-");
    return status;
  });
}
