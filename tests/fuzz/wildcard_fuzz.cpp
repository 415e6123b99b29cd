// A line of settings and pattern, then a text: a search must stay within the text, find the same whether it goes on
// from match to match or collects them all, and give hostile patterns up instead of hanging on them.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/docx/find/Search.h"
#include "hosts/docx/xml/Utf.h"
#include "platform/word/HostError.h"

namespace {

/// Every "~" begins or ends a stretch that is passed over, every "|" is a barrier.
class FuzzText : public docx::TextSource {
 public:
  explicit FuzzText(std::u16string text) : text_(std::move(text)) {
    for (std::size_t i = 0; i < text_.size(); ++i) {
      if (text_[i] == u'~') passedOver_ = !passedOver_;
      const auto treatment = passedOver_ || text_[i] == u'~' ? docx::Treatment::kPassedOver
                             : text_[i] == u'|'              ? docx::Treatment::kBarrier
                                                             : docx::Treatment::kSearched;
      if (stretches_.empty() || stretches_.back().treatment != treatment) {
        stretches_.push_back({static_cast<docx::Position>(i), {}, treatment});
      }
    }
    for (std::size_t i = 0; i < stretches_.size(); ++i) {
      const docx::Position end = i + 1 < stretches_.size() ? stretches_[i + 1].start : Length();
      stretches_[i].text = std::u16string_view(text_).substr(static_cast<std::size_t>(stretches_[i].start),
                                                             static_cast<std::size_t>(end - stretches_[i].start));
    }
  }

  docx::Position Length() const override { return static_cast<docx::Position>(text_.size()); }
  Stretch StretchAt(docx::Position position) override {
    const auto behind = std::upper_bound(stretches_.begin(), stretches_.end(), position,
                                         [](docx::Position at, const Stretch& one) { return at < one.start; });
    return *(behind - 1);
  }
  docx::MarkKind MarkAt(docx::Position position) override {
    return static_cast<docx::MarkKind>(static_cast<unsigned>(position) % 4);
  }

 private:
  std::u16string text_;
  std::vector<Stretch> stretches_;
  bool passedOver_{false};
};

void Require(bool condition) {
  if (!condition) std::abort();
}

void Check(FuzzText& text, docx::FindSettings settings) {
  const std::vector<docx::Match> all = docx::SearchAll(text, settings, 0, text.Length());
  docx::Position from = 0;
  for (const docx::Match& match : all) {
    Require(from <= match.start && match.start < match.end && match.end <= text.Length());
    for (const docx::GroupSpan& group : match.groups) {
      Require((group.start == -1 && group.end == -1) ||
              (match.start <= group.start && group.start <= group.end && group.end <= match.end));
    }
    const std::optional<docx::Match> next = docx::Search(text, settings, from, from);
    Require(next && next->start == match.start && next->end == match.end);
    from = match.end;
  }
  Require(!docx::Search(text, settings, from, from));
  settings.forward = false;
  Require(docx::Search(text, settings, text.Length(), text.Length()).has_value() == !all.empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kLongest = 2'000;
  if (size < 2 || size > kLongest) return 0;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t line = std::min(input.find('\n'), input.size());
  docx::FindSettings settings;
  settings.wildcards = (data[0] & 1U) != 0;
  settings.matchCase = (data[0] & 2U) != 0;
  settings.wholeWord = (data[0] & 4U) != 0;
  settings.text = docx::ToUtf16(input.substr(1, line - std::min<std::size_t>(line, 1)));
  FuzzText text(docx::ToUtf16(input.substr(std::min(line + 1, input.size()))));
  try {
    Check(text, settings);
  } catch (const word::HostError&) {
    // No pattern, or too much of one.
  }
  return 0;
}
