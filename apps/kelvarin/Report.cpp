#include "apps/kelvarin/Report.h"

#include <map>
#include <set>
#include <unordered_map>

#include "hosts/recording/Values.h"
#include "hosts/unattended/Text.h"
#include "marker/Entries.h"
#include "marker/FieldScan.h"
#include "marker/StoryText.h"
#include "platform/word/Document.h"
#include "platform/word/Range.h"

namespace {

using Json = nlohmann::ordered_json;
using unattended::FromUtf8;
using unattended::ToUtf8;

/// The pages of our entries, by what the entries say.
std::map<std::u16string, std::set<int>> EntryPages(docx::WordProcessor& processor) {
  std::map<std::u16string, std::set<int>> pages;
  const word::StoryRangesPtr stories = processor.Application()->ActiveDocument()->StoryRanges();
  for (int i = 1; i <= stories->Count(); ++i) {
    const word::RangePtr story = stories->Item(i);
    const int type = story->StoryType();
    if (type > word::wdEndnotesStory) continue;
    const std::u16string text = marker::TextByPosition(story);
    // Thousands of entries have few codes; nullptr for the code of another field.
    std::unordered_map<std::u16string_view, std::set<int>*> pagesOf;
    for (const marker::ScannedField& field : marker::ScanFields(text)) {
      if (field.HasResult()) continue;
      const std::u16string_view code = std::u16string_view(text).substr(field.begin + 1, field.end - field.begin - 1);
      const auto [known, isNew] = pagesOf.try_emplace(code);
      if (isNew) {
        const marker::FieldCode entry = marker::ParseFieldCode(code);
        if (marker::IsOurEntry(entry)) known->second = &pages[entry.text];
      }
      if (known->second == nullptr) continue;
      // Mostly behind the pages so far.
      const int page = processor.PageOf(type, static_cast<word::Position>(field.begin));
      known->second->insert(known->second->end(), page);
    }
  }
  return pages;
}

}  // namespace

Report::Report(const std::filesystem::path& file) {
  const Json none = Json::array();
  report_ = {{"file", file.string()}, {"output", nullptr},    {"status", "failed"}, {"searchType", nullptr},
             {"pages", nullptr},      {"pagesFrom", nullptr}, {"found", none},      {"chosen", none},
             {"terms", none},         {"notUsed", none},      {"notFound", none},   {"messages", none},
             {"seconds", 0.0}};
}

void Report::SetOutput(const std::filesystem::path& output) { report_["output"] = output.string(); }

void Report::AddReason(const std::string& text) { report_["messages"].push_back({{"title", ""}, {"text", text}}); }

void Report::SetPages(const docx::WordProcessor& processor) {
  report_["pages"] = processor.PageCount();
  report_["pagesFrom"] = processor.PagesFrom();
}

void Report::Fill(Session& session) {
  const std::string searchType = session.SearchType();
  if (!searchType.empty()) report_["searchType"] = searchType;
  if (session.HasDocument()) SetPages(session.Processor());
  report_["found"] = recording::ToValue(session.Watch().Found());
  const RunLog& log = session.Log();
  report_["chosen"] = log.chosen;
  report_["notUsed"] = log.notUsed;
  report_["notFound"] = log.notFound;
  for (const RunWatch::ShownMessage& message : session.Watch().Messages()) {
    report_["messages"].push_back({{"title", ToUtf8(message.title)}, {"text", ToUtf8(message.text)}});
  }
  if (session.HasDocument()) FillTerms(session);
}

void Report::FillTerms(Session& session) {
  const Json& table = session.Log().table;
  if (table.empty()) return;
  const std::map<std::u16string, std::set<int>> pages = EntryPages(session.Processor());
  for (const Json& row : table) {
    const std::string term = row.at(0).get<std::string>();
    Json labels = Json::array();
    const auto found = pages.find(marker::EntryText(FromUtf8(term)));
    if (found != pages.end()) {
      for (const int page : found->second) labels.push_back(ToUtf8(session.Processor().PageLabel(page)));
    }
    report_["terms"].push_back({{"term", term}, {"count", row.at(1)}, {"pages", labels}});
  }
}

std::string Report::Line() const { return report_.dump(-1, ' ', false, Json::error_handler_t::replace); }
