#include "hosts/docx/model/RevisionMarks.h"

#include <array>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string_view>

#include "hosts/docx/xml/XmlWalk.h"
#include "platform/word/Constants.h"

namespace docx {

namespace {

constexpr char kAuthor[] = "Kelvarin";

std::time_t Now() {
  const char* const given = std::getenv("SOURCE_DATE_EPOCH");
  if (given != nullptr) {
    std::time_t seconds = 0;
    const char* const end = given + std::strlen(given);
    const auto [last, error] = std::from_chars(given, end, seconds);
    if (error == std::errc() && last == end) return seconds;
  }
  return std::time(nullptr);
}

std::string Date() {
  const std::time_t now = Now();
  std::tm parts{};
  std::array<char, sizeof "9999-12-31T23:59:59Z"> text{};
  if (gmtime_r(&now, &parts) == nullptr) return {};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

bool SaysTracking(XmlPart* settings) {
  if (settings == nullptr) return false;
  const auto isOff = [](std::string_view value) { return value == "0" || value == "false" || value == "off"; };
  const XmlNode tracking = settings->Child(settings->Root(), "trackRevisions");
  if (tracking && !isOff(settings->Attribute(tracking, "val").Value())) return true;
  // A document can be protected against whatever is not tracked.
  const XmlNode protection = settings->Child(settings->Root(), "documentProtection");
  const std::string_view enforced = settings->Attribute(protection, "enforcement").Value();
  return settings->Attribute(protection, "edit").Value() == "trackedChanges" && !enforced.empty() && !isOff(enforced);
}

}  // namespace

RevisionMarks::RevisionMarks(DocumentParts& parts)
    : parts_(parts),
      tracking_(SaysTracking(parts.Settings())),
      own_{.author = kAuthor, .date = Date(), .nextId = [this] { return NextId(); }} {}

void RevisionMarks::CollectIds() {
  ids_.insert(0);
  for (const int type : {word::wdMainTextStory, word::wdFootnotesStory, word::wdEndnotesStory}) {
    for (const auto& story : parts_.Stories(type)) {
      const XmlPart& part = story->Part();
      ForEachElement(part.Root(), [&](XmlNode node) {
        if (const XmlAttribute id = part.Attribute(node, "id")) ids_.insert(id.AsInt());
        return true;
      });
    }
  }
}

int RevisionMarks::NextId() {
  if (ids_.empty()) CollectIds();
  do {
    ++last_;
  } while (!ids_.insert(last_).second);
  return last_;
}

}  // namespace docx
