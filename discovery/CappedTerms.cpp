#include "discovery/CappedTerms.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "addin/clsProgForm.h"
#include "discovery/CappedCandidates.h"
#include "discovery/CappedPhrases.h"
#include "discovery/LineText.h"
#include "discovery/StoryPages.h"
#include "platform/BookmarkNames.h"
#include "platform/Text.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Find.h"
#include "platform/word/Range.h"

namespace {

constexpr std::u16string_view kTitle = u"Please wait";
/// A whole word that begins with a capital letter.
constexpr std::u16string_view kCappedWord = u"<[A-Z]*>";

/// @return empty for a story that is not searched
std::u16string_view StoryLabel(word::WdStoryType type) {
  switch (type) {
    case word::wdMainTextStory:
      return u"main document ";
    case word::wdFootnotesStory:
      return u"footnotes ";
    case word::wdEndnotesStory:
      return u"endnotes ";
    default:
      return {};
  }
}

struct Stretch {
  word::Position begin;
  word::Position end;
};

/// The places in a story, in their order, of the index and the lists that an earlier run made.
std::vector<Stretch> OwnText(const word::DocumentPtr& document, word::WdStoryType type) {
  std::vector<Stretch> own;
  const word::BookmarksPtr bookmarks = document->Bookmarks();
  for (const std::u16string_view name : {kIndexBookmark, kNotUsedListBookmark, kNotFoundListBookmark}) {
    if (!bookmarks->Exists(name)) continue;
    const word::RangePtr range = bookmarks->Item(name)->Range();
    if (range->StoryType() == type) own.push_back({range->Start(), range->End()});
  }
  std::sort(own.begin(), own.end(), [](const Stretch& one, const Stretch& other) { return one.begin < other.begin; });
  return own;
}

/// A stretch of a story as it shows, and where in it a part of the stretch stands.
class ShownText {
 public:
  ShownText(const word::RangePtr& range, os::Characters& characters)
      : characters_(characters), start_(range->Start()), text_(range->Text()) {
    const std::size_t positions = static_cast<std::size_t>(range->End() - start_);
    // A cell mark reads as two characters, and has one position.
    if (text_.find(word::kCellMark) != std::u16string::npos) DropMarksBeforeCellMarks();
    wholeShows_ = text_.size() == positions;
  }

  const std::u16string& Text() const { return text_; }

  bool IsOneWord() const {
    return std::all_of(text_.begin(), text_.end(), [this](char16_t unit) { return IsWordUnit(characters_, unit); });
  }

  /// @param word a whole word behind the one asked for before
  /// @return an empty stretch for one that does not show, such as one in a field's code
  CappedWord PlaceOf(const word::RangePtr& word) {
    const auto offset = static_cast<std::size_t>(word->Start() - start_);
    if (wholeShows_) return {offset, offset + static_cast<std::size_t>(word->End() - word->Start())};
    const std::u16string shown = word->Text();
    if (shown.empty()) return {};
    for (std::size_t at = text_.find(shown, searched_); at != std::u16string::npos; at = text_.find(shown, at + 1)) {
      if (IsLetterAt(at - 1) || IsLetterAt(at + shown.size())) continue;
      searched_ = at + shown.size();
      return {at, searched_};
    }
    return {};
  }

 private:
  void DropMarksBeforeCellMarks() {
    std::size_t kept = 0;
    for (const char16_t unit : text_) {
      if (unit == word::kCellMark && kept > 0 && text_[kept - 1] == word::kParagraphMark) --kept;
      text_[kept++] = unit;
    }
    text_.resize(kept);
  }
  bool IsLetterAt(std::size_t index) const { return index < text_.size() && IsWordUnit(characters_, text_[index]); }

  os::Characters& characters_;
  word::Position start_;
  std::u16string text_;
  bool wholeShows_{false};
  std::size_t searched_{0};
};

class Finder {
 public:
  Finder(const CappedScan& scan, FoundTerms& found)
      : scan_(scan),
        candidates_(scan.characters, found),
        phrases_(scan.characters, scan.ignoreNumbers,
                 [this](std::u16string_view phrase) { candidates_.Offer(phrase); }) {}

  void LearnQuotes(const word::RangePtr& story) {
    const word::WdStoryType type = story->StoryType();
    if (StoryLabel(type).empty()) return;
    const word::RangePtr range = story->Duplicate();
    word::Position begin = story->Start();
    for (const Stretch& own : OwnText(scan_.document, type)) {
      if (own.begin > begin) LearnBetween(range, begin, own.begin);
      begin = std::max(begin, own.end);
    }
    LearnBetween(range, begin, story->End());
  }

  bool SearchStory(const word::RangePtr& story) {
    const word::WdStoryType type = story->StoryType();
    const std::u16string_view label = StoryLabel(type);
    if (label.empty()) return true;
    own_ = OwnText(scan_.document, type);
    pageCount_ = story->Information(word::wdNumberOfPagesInDocument);
    StoryPages pages(story);
    scan_.doEvents();
    const word::RangePtr range = story->Duplicate();
    while (pages.Next()) {
      if (scan_.stopped()) return false;
      SearchPage(range, pages, label);
    }
    phrases_.EndStory();
    return true;
  }

 private:
  void LearnBetween(const word::RangePtr& range, word::Position begin, word::Position end) {
    range->SetRange(begin, end);
    phrases_.Learn(range->Text());
  }

  void SearchPage(const word::RangePtr& range, const StoryPages& page, std::u16string_view label) {
    const std::u16string number = Decimal(page.Number());
    ShowStep(u"Searching page:  " + number, page.Number());
    range->SetRange(page.Start(), page.End());
    ShownText shown(range, scan_.characters);
    // A range that is itself a match is not found; an empty one is searched from.
    if (shown.IsOneWord()) range->Collapse(word::wdCollapseStart);
    FindWords(range, page, shown);
    ShowStep(u"Processing " + std::u16string(label) + u"page " + number, page.Number());
    phrases_.Add(shown.Text(), words_);
  }

  void FindWords(const word::RangePtr& range, const StoryPages& page, ShownText& shown) {
    words_.clear();
    const word::FindPtr find = range->Find();
    find->ClearFormatting();
    find->SetText(kCappedWord);
    find->Replacement()->SetText(u"");
    find->SetForward(true);
    find->SetWrap(word::wdFindStop);
    find->SetFormat(false);
    find->SetMatchCase(false);
    find->SetMatchWholeWord(false);
    find->SetMatchWildcards(true);
    while (find->Execute() && range->Start() < page.End()) {
      const CappedWord word = shown.PlaceOf(range);
      const bool isOwn = std::any_of(own_.begin(), own_.end(), [start = range->Start()](const Stretch& own) {
        return start >= own.begin && start < own.end;
      });
      if (word.end > word.begin && !isOwn) words_.push_back(word);
      range->Collapse(word::wdCollapseEnd);
    }
  }

  void ShowStep(const std::u16string& message, int page) {
    scan_.progress.UpdateProgress(message, u"", u"", page, pageCount_, kTitle);
  }

  const CappedScan& scan_;
  CappedCandidates candidates_;
  CappedPhrases phrases_;
  std::vector<Stretch> own_;
  std::vector<CappedWord> words_;
  int pageCount_{0};
};

}  // namespace

bool FindCappedTerms(const CappedScan& scan, FoundTerms& found) {
  found = FoundTerms(1);
  Finder finder(scan, found);
  const word::StoryRangesPtr stories = scan.document->StoryRanges();
  for (int i = 1; i <= stories->Count(); ++i) finder.LearnQuotes(stories->Item(i));
  for (int i = 1; i <= stories->Count(); ++i) {
    if (!finder.SearchStory(stories->Item(i))) return false;
  }
  return true;
}
