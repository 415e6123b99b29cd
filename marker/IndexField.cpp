#include "marker/IndexField.h"

#include "marker/Entries.h"
#include "marker/FieldScan.h"
#include "marker/Stories.h"
#include "marker/StoryText.h"
#include "platform/BookmarkNames.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Constants.h"
#include "platform/word/Document.h"
#include "platform/word/Fields.h"
#include "platform/word/HostError.h"
#include "platform/word/Range.h"

#include <algorithm>

namespace marker {
namespace {

constexpr int kMostColumns = 4;

/// Asks for the type first: a document's index entries, thousands perhaps, then cost one short call each.
bool IsOurIndexField(const word::FieldPtr& field) {
  return field->Type() == word::wdFieldIndex && IsOurIndex(ParseFieldCode(field->Code()->Text()));
}

bool IsParagraphStart(const word::DocumentPtr& document, word::Position position) {
  if (position == 0) return true;
  const std::u16string before = document->Range(position - 1, position)->Text();
  constexpr std::u16string_view kEnds{u"\r\f\a"};  // of paragraphs, sections, cells and rows
  return !before.empty() && kEnds.find(before.back()) != std::u16string_view::npos;
}

/// An entry written right at the place has come to stand behind it: the index shall not part it from its word.
word::Position BehindEntriesAt(const word::DocumentPtr& document, word::Position position) {
  while (true) {
    const word::FieldsPtr fields = document->Range(position, position + 1)->Fields();
    if (fields->Count() == 0) return position;
    const word::RangePtr code = fields->Item(1)->Code();
    if (!IsOurEntry(ParseFieldCode(code->Text()))) return position;
    position = code->End() + 1;
  }
}

/// Another field's next update would take an index in its result with it, and a code is no place for one.
word::Position BehindFieldsAround(const word::DocumentPtr& document, word::Position position) {
  if (document->Fields()->Count() == 0) return position;
  const std::u16string text = TextByPosition(document->StoryRanges()->Item(word::wdMainTextStory));
  word::Position behind = position;
  for (const ScannedField& field : ScanFields(text)) {
    const auto begin = static_cast<word::Position>(field.begin);
    const auto end = static_cast<word::Position>(field.end);
    const bool isEnded = text[field.end] == word::kFieldEnd;
    if (isEnded && begin < position && position <= end) behind = std::max(behind, end + 1);
  }
  return behind;
}

}  // namespace

word::RangePtr InsertIndexField(const word::DocumentPtr& document, int columns, std::u16string_view separator) {
  const word::BookmarksPtr bookmarks = document->Bookmarks();
  // An empty range: a bookmark over text must not cost that text.
  const word::RangePtr place = bookmarks->Item(kIndexStartBookmark)->Range();
  if (place->StoryType() != word::wdMainTextStory) {
    throw word::HostError(word::kCommandFailed,
                          u"Your defined terms index has to be in the main body of your document.", "Fields.Add");
  }
  const word::Position start = place->Start();
  const word::Position at = BehindEntriesAt(document, BehindFieldsAround(document, start));
  const int wanted = std::clamp(columns, 1, kMostColumns);
  const bool isPlain = wanted == 1 && IsParagraphStart(document, at);
  const word::FieldPtr field = document->Fields()->Add(
      document->Range(at, at),
      {.Type = word::wdFieldEmpty, .Text = IndexCode(separator, isPlain ? 0 : wanted), .PreserveFormatting = false});
  const word::RangePtr code = field->Code();
  const word::RangePtr result = field->Result();
  const word::Position begin = code->Start() - 1;
  const word::Position end = (result ? result->End() : code->End()) + 1;
  word::RangePtr index = document->Range(begin, end);
  bookmarks->Add(kIndexBookmark, index);
  return index;
}

void UpdateIndexField(const word::DocumentPtr& document) {
  const word::FieldsPtr fields = document->Fields();
  const int count = fields->Count();
  for (int index = 1; index <= count; ++index) {
    const word::FieldPtr field = fields->Item(index);
    if (!IsOurIndexField(field)) continue;
    field->Update();
    return;
  }
}

void RemoveIndexFields(const word::DocumentPtr& document) {
  for (const word::RangePtr& story : AllStories(document)) {
    const word::FieldsPtr fields = story->Fields();
    for (int index = fields->Count(); index >= 1; --index) {
      const word::FieldPtr field = fields->Item(index);
      if (IsOurIndexField(field)) field->Delete();
    }
  }
  const word::BookmarksPtr bookmarks = document->Bookmarks();
  if (bookmarks->Exists(kIndexBookmark)) bookmarks->Item(kIndexBookmark)->Delete();
}

}  // namespace marker
