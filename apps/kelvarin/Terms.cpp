#include <iostream>

#include "apps/kelvarin/Commands.h"
#include "apps/kelvarin/FileRun.h"
#include "apps/kelvarin/Output.h"
#include "hosts/unattended/Text.h"

namespace {

std::string Printed(const std::vector<std::u16string>& terms, bool json) {
  std::string text;
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (const std::u16string& term : terms) {
    list.push_back({{"term", unattended::ToUtf8(term)}});
    text += unattended::ToUtf8(term) + "\n";
  }
  return json ? list.dump(2) + "\n" : text;
}

}  // namespace

FileResult ListTerms(const Options& options, const std::filesystem::path& input) {
  return RunOnFile(options, input, [&](FileRecord& record) {
    unattended::IndexOptions search = options.index;
    search.searchOnly = true;
    unattended::IndexAnswers answers(search);
    Session session(input, options, answers, {}, record.transcript);
    session.Run([](Connect& addIn) { addIn.ShowKVXForm(); });
    const Status status = session.Watch().TermsShown() && answers.Failure().empty() ? kDone : kStopped;
    TellRun(options, input, session, status, answers.Failure(), record.report);
    if (status == kDone) WriteText(Printed(session.Watch().Found(), options.json), "-");
    return status;
  });
}
