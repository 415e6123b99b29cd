#include "platform/word/Format.h"

#include "hosts/com/Objects.h"

namespace com {

namespace {

class Font : public Proxied<word::Font> {
 public:
  using Proxied::Proxied;
  int Bold() const override { return word_.Int("Font.Bold"); }
  void SetBold(int value) override { word_.Put("Font.Bold", value); }
  int Hidden() const override { return word_.Int("Font.Hidden"); }
  int Color() const override { return word_.Int("Font.Color"); }
  void SetColor(int value) override { word_.Put("Font.Color", value); }
};

class ParagraphFormat : public Proxied<word::ParagraphFormat> {
 public:
  using Proxied::Proxied;
  int Alignment() const override { return word_.Int("ParagraphFormat.Alignment"); }
  void SetAlignment(int value) override { word_.Put("ParagraphFormat.Alignment", value); }
  double SpaceBefore() const override { return word_.Double("ParagraphFormat.SpaceBefore"); }
  void SetSpaceBefore(double points) override { word_.Put("ParagraphFormat.SpaceBefore", points); }
  double SpaceAfter() const override { return word_.Double("ParagraphFormat.SpaceAfter"); }
  void SetSpaceAfter(double points) override { word_.Put("ParagraphFormat.SpaceAfter", points); }
};

}  // namespace

word::FontPtr MakeFont(Dispatch word) { return std::make_shared<Font>(std::move(word)); }

word::ParagraphFormatPtr MakeParagraphFormat(Dispatch word) {
  return std::make_shared<ParagraphFormat>(std::move(word));
}

}  // namespace com
