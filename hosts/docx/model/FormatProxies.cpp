#include <cmath>
#include <optional>
#include <utility>

#include "hosts/docx/model/FormatRevision.h"
#include "hosts/docx/model/RangeProxy.h"
#include "hosts/docx/model/RangeText.h"
#include "hosts/docx/styles/ParagraphProperties.h"
#include "hosts/docx/styles/RunProperties.h"
#include "platform/word/Format.h"

namespace docx {

namespace {

class FontProxy : public word::Font {
 public:
  explicit FontProxy(RangeProxyPtr range) : range_(std::move(range)) {}

  int Bold() const override {
    return Common([](const Formatting& formats, XmlNode run) { return formats.Bold(run); }, "Font.Bold");
  }
  void SetBold(int value) override {
    Change([&](const Formatting& formats, XmlNode run) { docx::SetBold(formats, run, value != 0); }, "Font.Bold");
  }
  int Hidden() const override {
    return Common([](const Formatting& formats, XmlNode run) { return formats.Hidden(run) ? -1 : 0; }, "Font.Hidden");
  }
  int Color() const override {
    return Common([](const Formatting& formats, XmlNode run) { return formats.Color(run); }, "Font.Color");
  }
  void SetColor(int value) override {
    Change([&](const Formatting& formats, XmlNode run) { docx::SetColor(formats, run, value); }, "Font.Color");
  }

 private:
  template <typename Value>
  int Common(Value value, std::string_view member) const {
    Story& story = range_->StoryOf(member);
    const Formatting& formats = range_->Document(member)->Parts().Formats(story.Part());
    return CommonValue(story, range_->Start(), range_->End(), Marks::kCount,
                       [&](XmlNode node) { return value(formats, node); });
  }

  template <typename Setter>
  void Change(Setter setter, std::string_view member) {
    const std::shared_ptr<OpenDocument> document = range_->Document(member);
    document->BeforeChange(member);
    Story& story = range_->StoryOf(member);
    const Formatting& formats = document->Parts().Formats(story.Part());
    const Position start = range_->Start();
    const Position end = range_->End();
    for (const XmlNode run : story.IsolateRuns(start, end)) {
      NoteFormatting(story.Part(), run, document->Revisions().Wanted());
      setter(formats, run);
      DropNoteOfEqualFormatting(story.Part(), run, document->Revisions().Own());
    }
    story.RejoinRuns(start, end);
  }

  RangeProxyPtr range_;
};

class ParagraphFormatProxy : public word::ParagraphFormat {
 public:
  explicit ParagraphFormatProxy(RangeProxyPtr range) : range_(std::move(range)) {}

  int Alignment() const override {
    return static_cast<int>(
        Common([](const Formatting& formats, XmlNode p) { return formats.Alignment(p); }, "ParagraphFormat.Alignment"));
  }
  void SetAlignment(int value) override {
    if (!IsAlignment(value)) {
      throw word::HostError(word::kCommandFailed, u"There is no such alignment.", "ParagraphFormat.Alignment");
    }
    Change([&](const Formatting& formats, XmlNode p) { docx::SetAlignment(formats, p, value); },
           "ParagraphFormat.Alignment");
  }
  double SpaceBefore() const override {
    return Common([](const Formatting& formats, XmlNode p) { return formats.SpaceBefore(p); },
                  "ParagraphFormat.SpaceBefore");
  }
  void SetSpaceBefore(double points) override {
    Change([&](const Formatting& formats, XmlNode p) { docx::SetSpaceBefore(formats, p, points); },
           "ParagraphFormat.SpaceBefore");
  }
  double SpaceAfter() const override {
    return Common([](const Formatting& formats, XmlNode p) { return formats.SpaceAfter(p); },
                  "ParagraphFormat.SpaceAfter");
  }
  void SetSpaceAfter(double points) override {
    Change([&](const Formatting& formats, XmlNode p) { docx::SetSpaceAfter(formats, p, points); },
           "ParagraphFormat.SpaceAfter");
  }

 private:
  /// Visits each paragraph that the range touches once.
  template <typename Visit>
  void ForEachParagraph(std::string_view member, Visit visit) const {
    Story& story = range_->StoryOf(member);
    Position at = range_->Start();
    do {
      if (const XmlNode p = story.ParagraphAt(at)) visit(p);
      at = story.ParagraphEnd(at);
    } while (at < range_->End());
  }

  template <typename Value>
  double Common(Value value, std::string_view member) const {
    const Formatting& formats = range_->Document(member)->Parts().Formats(range_->StoryOf(member).Part());
    std::optional<double> common;
    bool differs = false;
    ForEachParagraph(member, [&](XmlNode p) {
      const double here = value(formats, p);
      if (common && *common != here) differs = true;
      common = here;
    });
    return differs || !common ? word::wdUndefined : *common;
  }

  template <typename Setter>
  void Change(Setter setter, std::string_view member) {
    const std::shared_ptr<OpenDocument> document = range_->Document(member);
    document->BeforeChange(member);
    const Formatting& formats = document->Parts().Formats(range_->StoryOf(member).Part());
    ForEachParagraph(member, [&](XmlNode p) { setter(formats, p); });
  }

  RangeProxyPtr range_;
};

}  // namespace

word::FontPtr MakeFont(RangeProxyPtr range) { return std::make_shared<FontProxy>(std::move(range)); }

word::ParagraphFormatPtr MakeParagraphFormat(RangeProxyPtr range) {
  return std::make_shared<ParagraphFormatProxy>(std::move(range));
}

}  // namespace docx
