#include "apps/kelvarin/Report.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_map>

#include "apps/kelvarin/Printable.h"
#include "hosts/json/Json.h"
#include "hosts/recording/Values.h"
#include "hosts/unattended/Text.h"
#include "marker/Entries.h"
#include "marker/FieldScan.h"
#include "marker/StoryText.h"
#include "platform/word/Document.h"
#include "platform/word/Range.h"

namespace {

using Json = json::Value;
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

Report::Report(const std::filesystem::path& file) : messages_(Json::array()) {
  const std::pair<const char*, Json> fields[] = {{"file", InUtf8(file.string())},
                                                 {"output", nullptr},
                                                 {"status", "failed"},
                                                 {"searchType", nullptr},
                                                 {"pages", nullptr},
                                                 {"pagesFrom", nullptr},
                                                 {"found", Json::array()},
                                                 {"chosen", Json::array()},
                                                 {"terms", Json::array()},
                                                 {"notUsed", Json::array()},
                                                 {"notFound", Json::array()},
                                                 {"messages", messages_},
                                                 {"seconds", 0.0}};
  for (const auto& [name, value] : fields) fields_.push_back({name, json::Written(value)});
}

void Report::Set(std::string_view name, const Json& value) {
  const auto field = std::find_if(fields_.begin(), fields_.end(), [&](const Field& one) { return one.name == name; });
  field->value = json::Written(value);
}

void Report::AddMessage(const std::string& title, const std::string& text) {
  messages_.push_back({{"title", title}, {"text", InUtf8(text)}});
  Set("messages", messages_);
}

void Report::SetOutput(const std::filesystem::path& output) { Set("output", InUtf8(output.string())); }

void Report::AddReason(const std::string& text) { AddMessage("", text); }

void Report::SetPages(const docx::WordProcessor& processor) {
  Set("pages", processor.PageCount());
  Set("pagesFrom", processor.PagesFrom());
}

void Report::Fill(Session& session) {
  const std::string searchType = session.SearchType();
  if (!searchType.empty()) Set("searchType", searchType);
  if (session.HasDocument()) SetPages(session.Processor());
  Set("found", recording::ToValue(session.Watch().Found()));
  const RunLog& log = session.Log();
  Set("chosen", log.chosen);
  Set("notUsed", log.notUsed);
  Set("notFound", log.notFound);
  for (const RunWatch::ShownMessage& message : session.Watch().Messages()) {
    AddMessage(ToUtf8(message.title), ToUtf8(message.text));
  }
  if (session.HasDocument()) FillTerms(session);
}

void Report::FillTerms(Session& session) {
  const Json& table = session.Log().table;
  if (table.empty()) return;
  const std::map<std::u16string, std::set<int>> pages = EntryPages(session.Processor());
  Json terms = Json::array();
  for (const Json& row : table) {
    const std::string term = row.at(0).get<std::string>();
    Json labels = Json::array();
    const auto found = pages.find(marker::EntryText(FromUtf8(term)));
    if (found != pages.end()) {
      for (const int page : found->second) labels.push_back(ToUtf8(session.Processor().PageLabel(page)));
    }
    terms.push_back({{"term", term}, {"count", row.at(1)}, {"pages", std::move(labels)}});
  }
  Set("terms", terms);
}

std::string Report::Line() const {
  std::string line;
  for (const Field& field : fields_) line += (line.empty() ? "{\"" : ",\"") + field.name + "\":" + field.value;
  return line + "}";
}
