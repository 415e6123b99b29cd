#include "apps/kelvarin/Inspection.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

#include "hosts/recording/Values.h"
#include "marker/Entries.h"
#include "marker/FieldScan.h"
#include "marker/Highlights.h"
#include "marker/StoryText.h"
#include "platform/word/Document.h"
#include "platform/word/HiddenBookmarks.h"
#include "platform/word/Range.h"

namespace {

using Json = json::Value;
using recording::Utf8;

constexpr std::u16string_view kIndexEntryKeyword = u"XE";

struct FieldParts {
  marker::ScannedField field;
  std::u16string code;
  std::u16string result;
};

std::vector<FieldParts> FieldsOf(const std::u16string& text) {
  std::vector<FieldParts> fields;
  for (const marker::ScannedField& field : marker::ScanFields(text)) {
    const std::size_t codeEnd = field.HasResult() ? field.separator : field.end;
    FieldParts parts{.field = field, .code = text.substr(field.begin + 1, codeEnd - field.begin - 1), .result = {}};
    if (field.HasResult()) parts.result = text.substr(field.separator + 1, field.end - field.separator - 1);
    fields.push_back(std::move(parts));
  }
  std::sort(fields.begin(), fields.end(),
            [](const FieldParts& one, const FieldParts& other) { return one.field.begin < other.field.begin; });
  return fields;
}

/// The argument of \c; an index without it has one column.
int ColumnsOf(std::u16string_view code) {
  const std::string text = Utf8(code);
  const std::size_t at = text.find("\\c");
  if (at == std::string::npos) return 1;
  const std::size_t digit = text.find_first_of("0123456789", at + 2);
  int columns = 1;
  if (digit != std::string::npos) std::from_chars(text.data() + digit, text.data() + text.size(), columns);
  return columns;
}

Json IndexOf(const FieldParts& field) {
  Json paragraphs = Json::array();
  std::u16string paragraph;
  for (const char16_t character : field.result) {
    if (character != word::kParagraphMark && character != word::kPageBreak) {
      paragraph += character;
      continue;
    }
    if (!paragraph.empty()) paragraphs.push_back(Utf8(paragraph));
    paragraph.clear();
  }
  if (!paragraph.empty()) paragraphs.push_back(Utf8(paragraph));
  return {{"code", Utf8(field.code)}, {"columns", ColumnsOf(field.code)}, {"paragraphs", paragraphs}};
}

class Inspector {
 public:
  Inspector(word::DocumentPtr document, const PageOf& pageOf) : document_(std::move(document)), pageOf_(pageOf) {}

  Json Result() {
    const word::StoryRangesPtr stories = document_->StoryRanges();
    for (int i = 1; i <= stories->Count(); ++i) AddStory(stories->Item(i));
    AddBookmarks();
    return {{"stories", stories_}, {"bookmarks", bookmarks_},   {"fields", fields_},
            {"entries", entries_}, {"highlights", highlights_}, {"index", index_}};
  }

 private:
  void AddStory(const word::RangePtr& range) {
    const int type = range->StoryType();
    const std::u16string text = marker::TextByPosition(range);
    stories_.push_back({{"type", type}, {"length", range->StoryLength()}, {"text", Utf8(text)}});
    for (const FieldParts& field : FieldsOf(text)) AddField(type, field);
    const marker::Stretch whole{range->Start(), range->End()};
    marker::ForEachColour(range, whole, [this, type](marker::Stretch stretch, int colour) {
      if (colour != word::wdNoHighlight) AddHighlight(type, stretch, colour);
    });
  }

  void AddField(int story, const FieldParts& parts) {
    const auto start = static_cast<word::Position>(parts.field.begin);
    const marker::FieldCode code = marker::ParseFieldCode(parts.code);
    Json field{{"story", story}, {"start", start}, {"end", static_cast<word::Position>(parts.field.end) + 1}};
    field["kind"] = Utf8(code.keyword);
    field["code"] = Utf8(parts.code);
    field["result"] = Utf8(parts.result);
    fields_.push_back(std::move(field));
    if (code.keyword == kIndexEntryKeyword) {
      Json entry{{"text", Utf8(code.text)}, {"type", Utf8(code.type)}, {"story", story}, {"start", start}};
      entry["page"] = pageOf_(story, start);
      entries_.push_back(std::move(entry));
    }
    if (index_.is_null() && marker::IsOurIndex(code)) index_ = IndexOf(parts);
  }

  /// Neighbours of one colour are one highlight.
  void AddHighlight(int story, marker::Stretch stretch, int colour) {
    if (!highlights_.empty()) {
      Json& last = highlights_.back();
      if (last["story"] == story && last["end"] == stretch.begin && last["color"] == colour) {
        last["end"] = stretch.end;
        return;
      }
    }
    highlights_.push_back({{"story", story}, {"start", stretch.begin}, {"end", stretch.end}, {"color", colour}});
  }

  void AddBookmarks() {
    const word::BookmarksPtr bookmarks = document_->Bookmarks();
    const word::HiddenBookmarksShown shown(bookmarks);
    for (int i = 1; i <= bookmarks->Count(); ++i) {
      const word::BookmarkPtr bookmark = bookmarks->Item(i);
      const word::RangePtr range = bookmark->Range();
      const int story = range->StoryType();
      bookmarks_.push_back({{"name", Utf8(bookmark->Name())},
                            {"story", story},
                            {"start", range->Start()},
                            {"end", range->End()},
                            {"page", pageOf_(story, range->Start())}});
    }
  }

  word::DocumentPtr document_;
  const PageOf& pageOf_;
  Json stories_ = Json::array();
  Json bookmarks_ = Json::array();
  Json fields_ = Json::array();
  Json entries_ = Json::array();
  Json highlights_ = Json::array();
  Json index_;
};

}  // namespace

Json Inspect(const word::DocumentPtr& document, const PageOf& pageOf) { return Inspector(document, pageOf).Result(); }
