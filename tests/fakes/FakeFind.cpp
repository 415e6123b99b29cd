#include "tests/fakes/FakeFind.h"

#include "platform/word/Find.h"
#include "platform/word/HostError.h"

#include <algorithm>

namespace fakes {

namespace {

bool IsDoubleQuote(char16_t unit) { return unit == u'"' || unit == 0x201C || unit == 0x201D; }

bool Matches(char16_t pattern, char16_t unit) { return pattern == u'"' ? IsDoubleQuote(unit) : pattern == unit; }

/// Replaces text as the hosts do: a quotation mark that is found comes back in its own style.
class FakeReplacement : public word::Replacement {
 public:
  FakeReplacement(FakeWord& word, std::shared_ptr<std::u16string> text, std::shared_ptr<bool> highlights)
      : word_(word), text_(std::move(text)), highlights_(std::move(highlights)) {}
  void ClearFormatting() override { NotHere(); }
  std::u16string Text() const override { return *text_; }
  void SetText(std::u16string_view value) override {
    *text_ = value;
    word_.log.Add("Replacement.Text = " + Plain(value));
  }
  int Highlight() const override { return *highlights_ ? -1 : 0; }
  void SetHighlight(int value) override {
    *highlights_ = value != 0;
    word_.log.Add("Replacement.Highlight = " + std::to_string(value));
  }

 private:
  FakeWord& word_;
  std::shared_ptr<std::u16string> text_;
  std::shared_ptr<bool> highlights_;
};

/// Knows wildcard patterns of one character, "*" and one character, the pattern "<[A-Z]*>", and plain texts in ASCII
/// without codes.
class FakeFind : public word::Find {
 public:
  FakeFind(FakeWord& word, std::shared_ptr<Place> place) : word_(word), place_(std::move(place)) {}
  void ClearFormatting() override {}
  std::u16string Text() const override { return text_; }
  void SetText(std::u16string_view value) override {
    text_ = value;
    word_.log.Add("Find.Text = " + Plain(value));
  }
  bool Forward() const override { return true; }
  void SetForward(bool value) override { word_.log.Add("Find.Forward = " + Plain(value)); }
  int Wrap() const override { return word::wdFindStop; }
  void SetWrap(int value) override { word_.log.Add("Find.Wrap = " + std::to_string(value)); }
  bool Format() const override { return false; }
  void SetFormat(bool value) override { word_.log.Add("Find.Format = " + Plain(value)); }
  bool MatchCase() const override { return false; }
  void SetMatchCase(bool value) override { Keep(value); }
  bool MatchWholeWord() const override { return false; }
  void SetMatchWholeWord(bool value) override { Keep(value); }
  bool MatchWildcards() const override { return wildcards_; }
  void SetMatchWildcards(bool value) override { wildcards_ = value; }
  bool MatchSoundsLike() const override { return false; }
  void SetMatchSoundsLike(bool value) override { Keep(value); }
  bool MatchAllWordForms() const override { return false; }
  void SetMatchAllWordForms(bool value) override { Keep(value); }
  word::ReplacementPtr Replacement() const override {
    return std::make_shared<FakeReplacement>(word_, replacement_, highlights_);
  }
  bool Execute(const word::FindArguments& arguments) override {
    if (word_.findFails) throw word::HostError(word::kCommandFailed, u"Command failed", "Find.Execute");
    if (arguments.Replace == word::wdReplaceAll) {
      word_.log.Add("Find.Execute replace all");
      return found_ = ReplaceAll();
    }
    if (arguments.Replace != word::wdReplaceNone) NotHere();
    found_ = wildcards_ ? FindWildcards() : FindPlain();
    return found_;
  }
  bool Found() const override { return found_; }

 private:
  /// Switches that stay off in every search of this fake.
  static void Keep(bool value) {
    if (value) NotHere();
  }
  std::u16string& StoryText() const { return word_.stories[place_->story].text; }

  bool FindCappedWord() {
    const auto isLetter = [](char16_t unit) {
      return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
    };
    const std::u16string& text = StoryText();
    const std::size_t stop = place_->start == place_->end ? text.size() : static_cast<std::size_t>(place_->end);
    for (auto i = static_cast<std::size_t>(place_->start); i < stop; ++i) {
      if (text[i] < u'A' || text[i] > u'Z' || (i > 0 && isLetter(text[i - 1]))) continue;
      std::size_t end = i;
      while (end < text.size() && isLetter(text[end])) ++end;
      if (end > stop) continue;
      place_->start = static_cast<word::Position>(i);
      place_->end = static_cast<word::Position>(end);
      return true;
    }
    return false;
  }

  bool FindWildcards() {
    if (text_ == u"<[A-Z]*>") return FindCappedWord();
    if (text_.size() != 3 || text_[1] != u'*') NotHere();
    const std::u16string& text = StoryText();
    const std::size_t stop = place_->start == place_->end ? text.size() : static_cast<std::size_t>(place_->end);
    for (std::size_t i = static_cast<std::size_t>(place_->start); i < stop; ++i) {
      if (!Matches(text_[0], text[i])) continue;
      for (std::size_t j = i + 1; j < stop; ++j) {
        if (!Matches(text_[2], text[j])) continue;
        place_->start = static_cast<word::Position>(i);
        place_->end = static_cast<word::Position>(j + 1);
        return true;
      }
    }
    return false;
  }

  bool MatchesAt(std::size_t at) const {
    const auto lower = [](char16_t unit) { return unit >= u'A' && unit <= u'Z' ? unit + 32 : +unit; };
    const std::u16string& text = StoryText();
    if (at + text_.size() > text.size()) return false;
    for (std::size_t i = 0; i < text_.size(); ++i) {
      if (!Matches(text_[i], text[at + i]) && lower(text_[i]) != lower(text[at + i])) return false;
    }
    return true;
  }

  bool FindPlain() {
    // From a match it goes on, to the story's end.
    const std::size_t from = static_cast<std::size_t>(found_ ? place_->end : place_->start);
    for (std::size_t i = from; i < StoryText().size(); ++i) {
      if (!MatchesAt(i)) continue;
      place_->start = static_cast<word::Position>(i);
      place_->end = static_cast<word::Position>(i + text_.size());
      return true;
    }
    return false;
  }

  bool ReplaceAll() {
    bool any = false;
    for (std::size_t i = 0; i < StoryText().size(); ++i) {
      if (!MatchesAt(i)) continue;
      any = true;
      if (*highlights_) {
        const auto start = static_cast<word::Position>(i);
        word_.highlights.push_back({place_->story, start, start + static_cast<word::Position>(text_.size())});
        i += text_.size() - 1;
        continue;
      }
      std::u16string text = *replacement_;
      if (IsDoubleQuote(StoryText()[i])) std::replace(text.begin(), text.end(), u'"', StoryText()[i]);
      StoryText().replace(i, text_.size(), text);
      i += text.size() - 1;
    }
    return any;
  }

  FakeWord& word_;
  std::shared_ptr<Place> place_;
  std::u16string text_;
  std::shared_ptr<std::u16string> replacement_{std::make_shared<std::u16string>()};
  std::shared_ptr<bool> highlights_{std::make_shared<bool>(false)};
  bool wildcards_{false};
  bool found_{false};
};

}  // namespace

word::FindPtr MakeFakeFind(FakeWord& word, const std::shared_ptr<Place>& place) {
  return std::make_shared<FakeFind>(word, place);
}

}  // namespace fakes
