#include "apps/kelvarin/Cursor.h"

#include "apps/kelvarin/Status.h"
#include "hosts/unattended/Text.h"
#include "marker/StoryText.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Range.h"

namespace {

word::RangePtr InMainText(const word::DocumentPtr& document, word::Position position) {
  return document->Range(position, position);
}

word::RangePtr AtBookmark(const word::DocumentPtr& document, const std::string& name) {
  const std::u16string wanted = unattended::FromUtf8(name);
  if (!document->Bookmarks()->Exists(wanted)) throw Failure(kStopped, "there is no bookmark \"" + name + "\"");
  word::RangePtr range = document->Bookmarks()->Item(wanted)->Range();
  range->Collapse(word::wdCollapseStart);
  return range;
}

word::RangePtr AfterText(const word::DocumentPtr& document, const std::string& text) {
  const marker::StoryText story(document, document->StoryRanges()->Item(1), marker::StoryText::Hidden::kKept);
  const std::u16string wanted = unattended::FromUtf8(text);
  const std::size_t at = story.Plain().find(wanted);
  if (at == std::u16string::npos) throw Failure(kStopped, "the main text does not hold \"" + text + "\"");
  return InMainText(document, story.PositionOf(at + wanted.size() - 1) + 1);
}

}  // namespace

word::RangePtr FindPlace(const word::DocumentPtr& document, const CursorPlace& place) {
  // Nothing can stand behind the last paragraph mark.
  const word::Position end = document->StoryRanges()->Item(1)->StoryLength() - 1;
  switch (place.kind) {
    case CursorPlace::Kind::kStart:
      return InMainText(document, 0);
    case CursorPlace::Kind::kBookmark:
      return AtBookmark(document, place.text);
    case CursorPlace::Kind::kAfterText:
      return AfterText(document, place.text);
    case CursorPlace::Kind::kCharacter:
      if (place.position > end) {
        throw Failure(kStopped, "the main text has only " + std::to_string(end) + " characters before its end");
      }
      return InMainText(document, place.position);
    case CursorPlace::Kind::kEnd:
      break;
  }
  return InMainText(document, end);
}
