#include "hosts/recording/Recorded.h"
#include "platform/word/Format.h"

namespace recording {

namespace {

class RecordedFont : public Recorded<word::Font> {
 public:
  using Recorded::Recorded;
  int Bold() const override { return On("Font.Bold").Bold(); }
  void SetBold(int value) override { Put("Font.Bold", value).SetBold(value); }
  int Hidden() const override { return On("Font.Hidden").Hidden(); }
  int Color() const override { return On("Font.Color").Color(); }
  void SetColor(int value) override { Put("Font.Color", value).SetColor(value); }
};

class RecordedParagraphFormat : public Recorded<word::ParagraphFormat> {
 public:
  using Recorded::Recorded;
  int Alignment() const override { return On("ParagraphFormat.Alignment").Alignment(); }
  void SetAlignment(int value) override { Put("ParagraphFormat.Alignment", value).SetAlignment(value); }
  double SpaceBefore() const override { return On("ParagraphFormat.SpaceBefore").SpaceBefore(); }
  void SetSpaceBefore(double points) override { Put("ParagraphFormat.SpaceBefore", points).SetSpaceBefore(points); }
  double SpaceAfter() const override { return On("ParagraphFormat.SpaceAfter").SpaceAfter(); }
  void SetSpaceAfter(double points) override { Put("ParagraphFormat.SpaceAfter", points).SetSpaceAfter(points); }
};

}  // namespace

word::FontPtr Wrap(word::FontPtr inner, CallObserver& observer) {
  return WrapAs<RecordedFont>(std::move(inner), observer);
}
word::ParagraphFormatPtr Wrap(word::ParagraphFormatPtr inner, CallObserver& observer) {
  return WrapAs<RecordedParagraphFormat>(std::move(inner), observer);
}

}  // namespace recording
