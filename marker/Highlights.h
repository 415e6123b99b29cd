#pragma once

#include "marker/StoryText.h"
#include "platform/word/Types.h"

#include <functional>
#include <string>
#include <vector>

namespace marker {

/// Calls `visit` for each part of a stretch that has one highlight colour, from the first to the last.
/// @param range a range of the story, which is moved about; it spans the part when `visit` is called
void ForEachColour(const word::RangePtr& range, Stretch stretch, const std::function<void(Stretch, int colour)>& visit);

/// The yellow stretches of a part of a story's text.
/// @param range a range of the story, which is moved about
std::vector<Stretch> YellowIn(const StoryText& text, const word::RangePtr& range, std::size_t begin, std::size_t end);

/// The yellow text that ends at a place without a gap in it, back to the beginning of its paragraph at most.
/// @param range a range of the story, which is moved about
/// @param first where it begins at the earliest
std::vector<Stretch> YellowTail(const StoryText& text, const word::RangePtr& range, std::size_t first, std::size_t end);

/// What marking leaves in a document to take its highlights away again, as hidden bookmarks, so that it follows
/// every edit and is saved with the document:
///  - "_KVXHighlighting" at the main text's start: highlights of ours stand directly before our entries;
///  - "_KVXHighlight_<colour>_<number>" over a stretch that is to have that colour again: the author's own below
///    ours, yellow of the author's that ours touches, or none (0) where the entry that told of it is gone, and under a
///    quotation mark.
/// A highlight of ours over none of the author's that still has its entry needs no bookmark of its own.
class HighlightRecord {
 public:
  explicit HighlightRecord(const word::DocumentPtr& document);

  bool IsLaidOn() const;
  /// Made once; marking calls it before it lays the first highlight on.
  void NoteLaidOn();
  /// To be told of an index or of lists put into a story, which may have come to lie inside bookmarks that begin there:
  /// whoever deletes them by hand shall not delete the record with them, and the author's highlight is not theirs.
  /// @param inserted of one story, in its order
  void KeepApartFrom(const std::vector<word::RangePtr>& inserted);
  /// @param range a range over the stretch
  void Keep(const word::RangePtr& range, int colour);
  /// Keeps the colour of every quotation mark of a story that a search for this one finds. One that the record holds
  /// already, alone or among other text, is passed over: it may have our highlight by now.
  /// @param ours what else is highlighted by us, which is kept as having no highlight
  void KeepQuotes(const word::RangePtr& story, char16_t quote, const std::vector<Stretch>& ours);
  /// The recorded stretches of one story that have a highlight of the author's, in order.
  std::vector<Stretch> Authors(int storyType) const;
  /// Gives every recorded stretch its colour and takes the whole record away.
  void PutBack();

 private:
  /// One stretch's bookmark.
  struct Record {
    int colour{0};
    int number{0};
    word::BookmarkPtr bookmark{};
  };
  std::vector<Record> Records() const;
  /// Those of one story that have a highlight of the author's.
  static std::vector<Stretch> AuthorsIn(const std::vector<Record>& records, int storyType);

  word::DocumentPtr document_;
  word::BookmarksPtr bookmarks_;
  int lastNumber_{-1};  ///< below 0 until the document was asked
  bool isLaidOn_{false};
};

/// Takes the highlight from a stretch except for what is the author's, which goes from our colour to its own at once: a
/// host that tracks changes then has none to note.
/// @param range any of the story, which is moved
/// @param authors as HighlightRecord::Authors() gives them
void TakeHighlightOff(const word::RangePtr& range, Stretch stretch, const std::vector<Stretch>& authors);

}  // namespace marker
