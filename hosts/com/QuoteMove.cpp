#include "hosts/com/QuoteMove.h"

#include "hosts/com/FindText.h"
#include "hosts/com/Objects.h"
#include "platform/word/Constants.h"
#include "platform/word/HiddenBookmarks.h"
#include "platform/word/Range.h"
#include "platform/word/Replacing.h"

namespace com {

namespace {

/// A code unit of the text without codes takes two of the text when it is a caret.
std::u16string_view Behind(std::u16string_view text, std::size_t characters) {
  std::size_t at = 0;
  for (; characters > 0; --characters) at += text[at] == u'^' ? 2 : 1;
  return text.substr(at);
}

/// Where the last text of that kind inside a match begins; the match's end for an empty one.
int PlaceOf(const Dispatch& match, std::u16string_view text) {
  if (text.empty()) return match.Int("Range.End");
  const Dispatch inside = match.Object("Range.Duplicate");
  const Dispatch find = inside.Object("Range.Find");
  find.Put("Find.Text", ForWord(text, false));
  find.Put("Find.Forward", false);
  find.Put("Find.Wrap", word::wdFindStop);
  return find.Call("Find.Execute").ToBool() ? inside.Int("Range.Start") : match.Int("Range.End");
}

/// Those that stand around a character and nothing else, hidden ones too.
std::vector<std::u16string> NamesAround(const Dispatch& character) {
  std::vector<std::u16string> names;
  const word::BookmarksPtr bookmarks = MakeBookmarks(character.Object("Range.Bookmarks"));
  word::HiddenBookmarksShown shown(bookmarks);
  for (int index = bookmarks->Count(); index >= 1; --index) {
    const word::BookmarkPtr bookmark = bookmarks->Item(index);
    const word::RangePtr marked = bookmark->Range();
    if (marked->Start() == character.Int("Range.Start") && marked->End() == character.Int("Range.End")) {
      names.push_back(bookmark->Name());
    }
  }
  shown.End();
  return names;
}

}  // namespace

bool MoveFirstCharacters(SearchOfRange& search) {
  const std::size_t past = *word::CharactersMovedPast(*search.text, *search.replacementText);
  const std::u16string_view following = Behind(*search.text, past + 1);
  const Dispatch& whole = search.Range();
  const Dispatch match = whole.Object("Range.Duplicate");
  const Dispatch find = match.Object("Range.Find");
  find.Put("Find.Text", ForWord(*search.text, false));
  for (const std::string_view setting : {"Find.MatchCase", "Find.MatchWholeWord"}) {
    find.Put(setting, search.Find().Get(setting));
  }
  find.Put("Find.Forward", true);
  find.Put("Find.Wrap", word::wdFindStop);
  bool any = false;
  while (find.Call("Find.Execute").ToBool() && match.Int("Range.End") <= whole.Int("Range.End")) {
    any = true;
    const Dispatch first = match.Object("Range.Characters").Object("Characters.First");
    const Dispatch target = match.Object("Range.Duplicate");
    const Dispatch rest = match.Object("Range.Duplicate");
    const int place = PlaceOf(match, following);
    target.Call("Range.SetRange", {place, place});
    const std::vector<std::u16string> names = NamesAround(first);
    target.Put("Range.FormattedText", first.Get("Range.FormattedText"));
    // Word leaves a bookmark where it is when its text is copied.
    target.Call("Range.SetRange", {place, place + 1});
    for (const std::u16string& name : names) {
      MakeBookmarks(target.Object("Range.Bookmarks"))->Add(name, MakeRange(target));
    }
    first.Call("Range.Delete");
    match.Call("Range.SetRange", {rest.Int("Range.End"), whole.Int("Range.End")});
  }
  return any;
}

}  // namespace com
