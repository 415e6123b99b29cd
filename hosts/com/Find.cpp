#include "hosts/com/Find.h"

#include <utility>

#include "hosts/com/FindText.h"
#include "hosts/com/QuoteMove.h"
#include "platform/word/Find.h"
#include "platform/word/HostError.h"
#include "platform/word/Replacing.h"

namespace com {

namespace {

/// Longer ones Word refuses; what is put is held to it, not what becomes of it.
constexpr std::size_t kMaxText = 255;

class Replacement : public word::Replacement {
 public:
  explicit Replacement(std::shared_ptr<SearchOfRange> search) : search_(std::move(search)) {}
  void ClearFormatting() override { search_->Replacement().Call("Replacement.ClearFormatting"); }
  std::u16string Text() const override { return search_->Replacement().Text("Replacement.Text"); }
  void SetText(std::u16string_view value) override {
    search_->Replacement().Put("Replacement.Text", value);
    search_->replacementText = value;
  }
  int Highlight() const override { return search_->Replacement().Int("Replacement.Highlight"); }
  void SetHighlight(int value) override { search_->Replacement().Put("Replacement.Highlight", value); }

 private:
  std::shared_ptr<SearchOfRange> search_;
};

class Find : public word::Find {
 public:
  explicit Find(std::shared_ptr<SearchOfRange> search) : search_(std::move(search)) {}

  void ClearFormatting() override { search_->ClearFormatting(); }
  std::u16string Text() const override { return search_->text ? *search_->text : Word().Text("Find.Text"); }
  void SetText(std::u16string_view value) override {
    if (value.size() > kMaxText) {
      throw word::HostError(word::kStringTooLong, u"String parameter too long.", "Find.Text");
    }
    search_->text = value;
  }
  bool Forward() const override { return Word().Bool("Find.Forward"); }
  void SetForward(bool value) override { search_->Tell("Find.Forward", value); }
  int Wrap() const override { return Word().Int("Find.Wrap"); }
  void SetWrap(int value) override { search_->Tell("Find.Wrap", value); }
  bool Format() const override { return Word().Bool("Find.Format"); }
  void SetFormat(bool value) override { search_->Tell("Find.Format", value); }
  bool MatchCase() const override { return Word().Bool("Find.MatchCase"); }
  void SetMatchCase(bool value) override { search_->Tell("Find.MatchCase", value); }
  bool MatchWholeWord() const override { return Word().Bool("Find.MatchWholeWord"); }
  void SetMatchWholeWord(bool value) override { search_->Tell("Find.MatchWholeWord", value); }
  bool MatchWildcards() const override { return Word().Bool("Find.MatchWildcards"); }
  void SetMatchWildcards(bool value) override {
    search_->Tell("Find.MatchWildcards", value);
    search_->wildcards = value;
  }
  bool MatchSoundsLike() const override { return Word().Bool("Find.MatchSoundsLike"); }
  void SetMatchSoundsLike(bool value) override { search_->Tell("Find.MatchSoundsLike", value); }
  bool MatchAllWordForms() const override { return Word().Bool("Find.MatchAllWordForms"); }
  void SetMatchAllWordForms(bool value) override { search_->Tell("Find.MatchAllWordForms", value); }
  word::ReplacementPtr Replacement() const override { return std::make_shared<com::Replacement>(search_); }

  bool Execute(const word::FindArguments& arguments) override {
    search_->found.reset();
    search_->TellText();
    if (arguments.Replace == word::wdReplaceNone) {
      search_->found = Word().Call("Find.Execute").ToBool();
      return *search_->found;
    }
    if (arguments.Replace == word::wdReplaceAll && MovesItsFirstCharacter()) return MoveFirstCharacters(*search_);
    const Variant absent = Variant::Missing();
    return Word()
        .Call("Find.Execute",
              {absent, absent, absent, absent, absent, absent, absent, absent, absent, absent, arguments.Replace})
        .ToBool();
  }
  bool Found() const override { return search_->found ? *search_->found : Word().Bool("Find.Found"); }

 private:
  const Dispatch& Word() const { return search_->Find(); }
  bool MovesItsFirstCharacter() const {
    return search_->text && search_->replacementText && !search_->wildcards.value_or(false) &&
           word::CharactersMovedPast(*search_->text, *search_->replacementText).has_value();
  }

  std::shared_ptr<SearchOfRange> search_;
};

}  // namespace

const Dispatch& SearchOfRange::Find() {
  if (!find_) find_ = range_.Object("Range.Find");
  return *find_;
}

const Dispatch& SearchOfRange::Replacement() {
  if (!replacement_) replacement_ = Find().Object("Find.Replacement");
  return *replacement_;
}

void SearchOfRange::ClearFormatting() {
  if (cleared_) return;
  Find().Call("Find.ClearFormatting");
  cleared_ = true;
}

void SearchOfRange::TellText() {
  if (!text) return;
  std::u16string telling = ForWord(*text, wildcards.value_or(false));
  if (told_ == telling) return;
  Find().Put("Find.Text", telling);
  told_ = std::move(telling);
}

word::FindPtr MakeFind(std::shared_ptr<SearchOfRange> search) { return std::make_shared<Find>(std::move(search)); }

}  // namespace com
