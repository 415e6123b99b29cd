#pragma once

#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Fields.h"
#include "platform/word/Format.h"
#include "platform/word/Range.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// A document in memory, as much of the object model as marking uses, with a count of calls. Text is given as a
/// story holds it, one unit a position: 7 for a cell mark, 19, 20 and 21 for the marks of a field.
namespace fake {

/// Takes a position and reads as nothing, as no character of Word's does.
inline constexpr char16_t kMute = 0xFFFF;

struct Character {
  char16_t unit{0};
  int highlight{0};
  bool hidden{false};
  bool deleted{false};  ///< by a tracked change
};

struct Span {
  word::Position begin{0};
  word::Position end{0};
};

class StoryRange;

struct Story {
  word::WdStoryType type{word::wdMainTextStory};
  std::vector<Character> characters{};
  std::set<StoryRange*> ranges{};

  word::Position End() const { return static_cast<word::Position>(characters.size()); }
  std::u16string Text() const;
};

struct BookmarkPlace {
  Story* story{nullptr};
  Span span{};
};

/// What every proxy works on.
struct State {
  std::map<int, Story> stories{};
  std::map<std::u16string, BookmarkPlace> bookmarks{};
  bool showHidden{false};
  Span selection{};
  std::map<std::string, int> calls{};

  void Insert(Story& story, word::Position at, std::u16string_view text);
  void Delete(Story& story, word::Position begin, word::Position end);
};

class Document : public word::Document {
 public:
  /// @param main without its last paragraph mark
  explicit Document(std::u16string_view main);
  void AddStory(word::WdStoryType type, std::u16string_view text);

  std::u16string Text(word::WdStoryType type = word::wdMainTextStory) const;
  /// One figure for each position: its highlight colour.
  std::string Highlights(word::WdStoryType type = word::wdMainTextStory) const;
  std::vector<std::u16string> BookmarkNames() const;
  int Calls(const std::string& member) const;
  int AllCalls() const;
  Span SelectionSpan() const { return state_->selection; }
  void SetBookmark(std::u16string_view name, word::Position begin, word::Position end);
  /// Applies a change to the characters of the first place that holds the text.
  void Format(std::u16string_view where, void (*change)(Character&));
  void InsertAt(word::Position at, std::u16string_view text);
  word::RangePtr Story(word::WdStoryType type = word::wdMainTextStory) const;

  std::u16string Name() const override { return u"fake.docx"; }
  std::u16string Path() const override { return {}; }
  word::StoryRangesPtr StoryRanges() const override;
  word::BookmarksPtr Bookmarks() const override;
  word::FieldsPtr Fields() const override;
  word::WindowPtr ActiveWindow() const override;
  word::RangePtr Range(word::Position start, word::Position end) const override;
  bool ShowGrammaticalErrors() const override { return false; }
  void SetShowGrammaticalErrors(bool) override {}
  bool ShowSpellingErrors() const override { return false; }
  void SetShowSpellingErrors(bool) override {}
  void UndoClear() override {}
  void Save() override {}
  void SaveAs(std::u16string_view) override {}

 private:
  std::shared_ptr<State> state_;
};

}  // namespace fake
