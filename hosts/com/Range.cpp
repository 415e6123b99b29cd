#include "platform/word/Range.h"

#include <optional>

#include "hosts/com/Find.h"
#include "hosts/com/Objects.h"

namespace com {

namespace {

class Characters : public Proxied<word::Characters> {
 public:
  using Proxied::Proxied;
  word::RangePtr First() const override { return MakeRange(word_.Object("Characters.First")); }
  word::RangePtr Last() const override { return MakeRange(word_.Object("Characters.Last")); }
};

class TextRetrievalMode : public Proxied<word::TextRetrievalMode> {
 public:
  using Proxied::Proxied;
  bool IncludeFieldCodes() const override { return word_.Bool("TextRetrievalMode.IncludeFieldCodes"); }
  void SetIncludeFieldCodes(bool value) override { word_.Put("TextRetrievalMode.IncludeFieldCodes", value); }
  bool IncludeHiddenText() const override { return word_.Bool("TextRetrievalMode.IncludeHiddenText"); }
  void SetIncludeHiddenText(bool value) override { word_.Put("TextRetrievalMode.IncludeHiddenText", value); }
};

class Revision : public Proxied<word::Revision> {
 public:
  using Proxied::Proxied;
  int Type() const override { return word_.Int("Revision.Type"); }
  word::RangePtr Range() const override { return MakeRange(word_.Object("Revision.Range")); }
};

class Revisions : public Proxied<word::Revisions> {
 public:
  using Proxied::Proxied;
  int Count() const override { return word_.Int("Revisions.Count"); }
  word::RevisionPtr Item(int index) const override {
    return std::make_shared<Revision>(word_.Object("Revisions.Item", {index}));
  }
};

class Range : public Proxied<word::Range> {
 public:
  using Proxied::Proxied;
  word::Position Start() const override { return word_.Int("Range.Start"); }
  word::Position End() const override { return word_.Int("Range.End"); }
  void SetStart(word::Position value) override { word_.Put("Range.Start", value); }
  void SetEnd(word::Position value) override { word_.Put("Range.End", value); }
  void SetRange(word::Position start, word::Position end) override { word_.Call("Range.SetRange", {start, end}); }
  std::u16string Text() const override { return word_.Text("Range.Text"); }
  void SetText(std::u16string_view value) override { word_.Put("Range.Text", value); }
  word::TextRetrievalModePtr TextRetrievalMode() const override {
    return std::make_shared<com::TextRetrievalMode>(word_.Object("Range.TextRetrievalMode"));
  }
  /// A range stays in its story.
  word::WdStoryType StoryType() const override {
    if (!storyType_) storyType_ = static_cast<word::WdStoryType>(word_.Int("Range.StoryType"));
    return *storyType_;
  }
  int Information(word::WdInformation type) const override { return word_.Get("Range.Information", {type}).ToInt(); }
  word::Position StoryLength() const override { return word_.Int("Range.StoryLength"); }
  word::RangePtr NextStoryRange() const override {
    const Variant next = word_.Get("Range.NextStoryRange");
    return next.IsNothing() ? nullptr : MakeRange(word_.Wrap(next, "Range.NextStoryRange"));
  }
  word::RangePtr Duplicate() const override {
    auto duplicate = std::make_shared<Range>(word_.Object("Range.Duplicate"));
    duplicate->storyType_ = storyType_;
    return duplicate;
  }
  void Collapse(word::WdCollapseDirection direction) override { word_.Call("Range.Collapse", {direction}); }
  int MoveStart(word::WdUnits unit, int count) override { return word_.Call("Range.MoveStart", {unit, count}).ToInt(); }
  void Select() override { word_.Call("Range.Select"); }
  void InsertParagraphBefore() override { word_.Call("Range.InsertParagraphBefore"); }
  void Delete() override { word_.Call("Range.Delete"); }
  word::FindPtr Find() const override {
    if (!find_) find_ = std::make_shared<SearchOfRange>(word_);
    return MakeFind(find_);
  }
  word::CharactersPtr Characters() const override {
    return std::make_shared<com::Characters>(word_.Object("Range.Characters"));
  }
  word::FieldsPtr Fields() const override { return MakeFields(word_.Object("Range.Fields")); }
  word::RevisionsPtr Revisions() const override {
    return std::make_shared<com::Revisions>(word_.Object("Range.Revisions"));
  }
  word::FontPtr Font() const override { return MakeFont(word_.Object("Range.Font")); }
  word::ParagraphFormatPtr ParagraphFormat() const override {
    return MakeParagraphFormat(word_.Object("Range.ParagraphFormat"));
  }
  int HighlightColorIndex() const override { return word_.Int("Range.HighlightColorIndex"); }
  void SetHighlightColorIndex(int value) override { word_.Put("Range.HighlightColorIndex", value); }

 private:
  mutable std::shared_ptr<SearchOfRange> find_;
  mutable std::optional<word::WdStoryType> storyType_;
};

}  // namespace

word::RangePtr MakeRange(Dispatch word) { return std::make_shared<Range>(std::move(word)); }

}  // namespace com
