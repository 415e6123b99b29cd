#include "hosts/docx/model/RangeProxy.h"

#include <algorithm>
#include <utility>

#include "hosts/docx/model/FormatRevision.h"
#include "hosts/docx/model/RangeText.h"
#include "hosts/docx/styles/RunProperties.h"

namespace docx {

namespace {

class CharactersProxy : public word::Characters {
 public:
  explicit CharactersProxy(RangeProxyPtr range) : range_(std::move(range)) {}

  word::RangePtr First() const override { return Character(range_->Start()); }
  word::RangePtr Last() const override {
    return Character(range_->End() > range_->Start() ? range_->End() - 1 : range_->Start());
  }

 private:
  word::RangePtr Character(Position at) const {
    Story& story = range_->StoryOf("Range.Characters");
    return RangeProxy::Make(range_->Document("Range.Characters"), story, at, std::min(at + 1, story.Length()));
  }

  RangeProxyPtr range_;
};

class TextRetrievalModeProxy : public word::TextRetrievalMode {
 public:
  explicit TextRetrievalModeProxy(RangeProxyPtr range) : range_(std::move(range)) {}
  bool IncludeFieldCodes() const override { return range_->includeFieldCodes; }
  void SetIncludeFieldCodes(bool value) override { range_->includeFieldCodes = value; }
  bool IncludeHiddenText() const override { return range_->includeHiddenText; }
  void SetIncludeHiddenText(bool value) override { range_->includeHiddenText = value; }

 private:
  RangeProxyPtr range_;
};

/// CR LF and LF become CR.
std::u16string WithParagraphMarks(std::u16string_view text) {
  std::u16string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u'\n') {
      if (i == 0 || text[i - 1] != u'\r') result += word::kParagraphMark;
    } else {
      result += text[i];
    }
  }
  return result;
}

}  // namespace

RangeProxy::RangeProxy(const std::shared_ptr<OpenDocument>& document, Story& story, Position start, Position end)
    : document_(document), anchor_(story, start, end) {}

word::RangePtr RangeProxy::Make(const std::shared_ptr<OpenDocument>& document, Story& story, Position start,
                                Position end) {
  return std::make_shared<RangeProxy>(document, story, start, end);
}

RangeProxy& RangeProxy::Of(const word::RangePtr& range) {
  auto* proxy = dynamic_cast<RangeProxy*>(range.get());
  if (proxy == nullptr) {
    throw word::HostError(word::kCommandFailed, u"The range belongs to another word processor.", "Range");
  }
  return *proxy;
}

Story& RangeProxy::StoryOf(std::string_view member) const {
  RequireOpen(document_, member);
  return *anchor_.Of();
}

Position RangeProxy::Within(Position value) const { return std::clamp(value, 0, anchor_.Of()->Length()); }

Position RangeProxy::Start() const {
  RequireOpen(document_, "Range.Start");
  return anchor_.start;
}

Position RangeProxy::End() const {
  RequireOpen(document_, "Range.End");
  return anchor_.end;
}

void RangeProxy::SetStart(Position value) {
  RequireOpen(document_, "Range.Start");
  anchor_.start = Within(value);
  anchor_.end = std::max(anchor_.start, anchor_.end);
}

void RangeProxy::SetEnd(Position value) {
  RequireOpen(document_, "Range.End");
  anchor_.end = Within(value);
  anchor_.start = std::min(anchor_.start, anchor_.end);
}

void RangeProxy::SetRange(Position start, Position end) {
  RequireOpen(document_, "Range.SetRange");
  anchor_.start = Within(start);
  anchor_.end = std::max(anchor_.start, Within(end));
}

std::u16string RangeProxy::Text() const {
  const std::shared_ptr<OpenDocument> document = Lock(document_, "Range.Text");
  const Story& story = *anchor_.Of();
  if (includeFieldCodes && includeHiddenText) return AllText(story, anchor_.start, anchor_.end);
  const bool hidden = includeHiddenText || document->window.showHiddenText || document->window.showAll;
  return ShownText(story, document->Parts().Formats(story.Part()), anchor_.start, anchor_.end, includeFieldCodes,
                   hidden);
}

void RangeProxy::SetText(std::u16string_view value) {
  const std::shared_ptr<OpenDocument> document = Lock(document_, "Range.Text");
  document->BeforeChange("Range.Text");
  Story& story = *anchor_.Of();
  const std::u16string text = WithParagraphMarks(value);
  const auto length = static_cast<Position>(text.size());
  const Position start = anchor_.start;
  const Position end = anchor_.end;
  const Tracking* tracked = document->Revisions().Wanted();
  if (start < end && story.RunAt(start)) {
    // Behind the first character the new text takes that character's formatting.
    story.InsertText(start + 1, text, tracked);
    story.Erase(start + 1 + length, end + length);
    story.Erase(start, start + 1);
  } else {
    story.InsertText(start, text, tracked);
    story.Erase(start + length, end + length);
  }
  // What could not be erased, such as the last mark of a cell, stays behind the new text.
  SetRange(start, start + length);
}

word::TextRetrievalModePtr RangeProxy::TextRetrievalMode() const {
  return std::make_shared<TextRetrievalModeProxy>(std::const_pointer_cast<RangeProxy>(shared_from_this()));
}

word::WdStoryType RangeProxy::StoryType() const {
  return static_cast<word::WdStoryType>(StoryOf("Range.StoryType").Type());
}

int RangeProxy::Information(word::WdInformation type) const {
  const std::shared_ptr<OpenDocument> document = Lock(document_, "Range.Information");
  const Paginator& pages = document->Pages();
  return type == word::wdNumberOfPagesInDocument ? pages.PageCount() : pages.PageOf(*anchor_.Of(), anchor_.end);
}

Position RangeProxy::StoryLength() const { return StoryOf("Range.StoryLength").Length(); }

word::RangePtr RangeProxy::NextStoryRange() const {
  const std::shared_ptr<OpenDocument> document = Lock(document_, "Range.NextStoryRange");
  Story* behind = document->Parts().StoryBehind(*anchor_.Of());
  return behind == nullptr ? nullptr : Make(document, *behind, 0, behind->Length());
}

word::RangePtr RangeProxy::Duplicate() const {
  return Make(Lock(document_, "Range.Duplicate"), *anchor_.Of(), anchor_.start, anchor_.end);
}

void RangeProxy::Collapse(word::WdCollapseDirection direction) {
  RequireOpen(document_, "Range.Collapse");
  (direction == word::wdCollapseStart ? anchor_.end : anchor_.start) =
      direction == word::wdCollapseStart ? anchor_.start : anchor_.end;
}

int RangeProxy::MoveStart(word::WdUnits unit, int count) {
  Story& story = StoryOf("Range.MoveStart");
  const int step = count < 0 ? -1 : 1;
  int moved = 0;
  for (; moved != count; moved += step) {
    Position to = anchor_.start + step;
    if (unit == word::wdParagraph && step > 0) to = story.ParagraphEnd(anchor_.start);
    if (unit == word::wdParagraph && step < 0 && to >= 0) to = story.ParagraphStart(to);
    if (to < 0 || to > story.Length() || to == anchor_.start) break;
    SetStart(to);
  }
  return moved;
}

void RangeProxy::Select() { Lock(document_, "Range.Select")->Select(*anchor_.Of(), anchor_.start, anchor_.end); }

void RangeProxy::InsertParagraphBefore() {
  const std::shared_ptr<OpenDocument> document = Lock(document_, "Range.InsertParagraphBefore");
  document->BeforeChange("Range.InsertParagraphBefore");
  const Position start = anchor_.start;
  const Position end = anchor_.end;
  anchor_.Of()->InsertText(start, std::u16string_view(&word::kParagraphMark, 1), document->Revisions().Wanted());
  SetRange(start, end + 1);
}

void RangeProxy::Delete() {
  Lock(document_, "Range.Delete")->BeforeChange("Range.Delete");
  anchor_.Of()->Erase(anchor_.start, anchor_.end);
}

word::FindPtr RangeProxy::Find() const { return MakeFind(std::const_pointer_cast<RangeProxy>(shared_from_this())); }

word::CharactersPtr RangeProxy::Characters() const {
  return std::make_shared<CharactersProxy>(std::const_pointer_cast<RangeProxy>(shared_from_this()));
}

word::FieldsPtr RangeProxy::Fields() const {
  return MakeFields(std::const_pointer_cast<RangeProxy>(shared_from_this()));
}

word::RevisionsPtr RangeProxy::Revisions() const {
  return MakeRevisions(std::const_pointer_cast<RangeProxy>(shared_from_this()));
}

word::FontPtr RangeProxy::Font() const { return MakeFont(std::const_pointer_cast<RangeProxy>(shared_from_this())); }

word::ParagraphFormatPtr RangeProxy::ParagraphFormat() const {
  return MakeParagraphFormat(std::const_pointer_cast<RangeProxy>(shared_from_this()));
}

int RangeProxy::HighlightColorIndex() const {
  const std::shared_ptr<OpenDocument> document = Lock(document_, "Range.HighlightColorIndex");
  const Formatting& formats = document->Parts().Formats(anchor_.Of()->Part());
  return CommonValue(*anchor_.Of(), anchor_.start, anchor_.end, Marks::kPassOver,
                     [&](XmlNode run) { return formats.Highlight(run); });
}

void RangeProxy::SetHighlightColorIndex(int value) {
  const std::shared_ptr<OpenDocument> document = Lock(document_, "Range.HighlightColorIndex");
  if (value < word::wdNoHighlight || value > word::wdGray25) {
    throw word::HostError(word::kCommandFailed, u"There is no such highlight colour.", "Range.HighlightColorIndex");
  }
  document->BeforeChange("Range.HighlightColorIndex");
  Story& story = *anchor_.Of();
  const Formatting& formats = document->Parts().Formats(story.Part());
  Highlighter& highlighter = document->Parts().Highlights(story.Part());
  // Only yellow is ever laid on. Any other value puts back what was there before, and that leaves no trace.
  const Tracking* tracked = value == word::wdYellow ? document->Revisions().Wanted() : nullptr;
  for (const XmlNode run : story.IsolateRuns(anchor_.start, anchor_.end)) {
    if (tracked != nullptr && formats.Highlight(run) != value) NoteFormatting(story.Part(), run, tracked);
    if (highlighter.Set(run, value)) DropNoteOfEqualFormatting(story.Part(), run, document->Revisions().Own());
  }
  story.RejoinRuns(anchor_.start, anchor_.end);
}

}  // namespace docx
