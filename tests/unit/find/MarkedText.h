#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hosts/docx/find/Search.h"

namespace docx {

/// A text to search in: what stands between ⟦ and ⟧ is passed over, a ‖ is a barrier. Marks: ƒ a footnote mark, ę an
/// endnote mark, § a section break; ¶ is a paragraph mark, ¤ a cell mark and → a tab.
class MarkedText : public TextSource {
 public:
  explicit MarkedText(std::u16string_view marked) {
    Treatment treatment = Treatment::kSearched;
    for (const char16_t unit : marked) {
      switch (unit) {
        case u'⟦':
          treatment = Treatment::kPassedOver;
          break;
        case u'⟧':
          treatment = Treatment::kSearched;
          break;
        case u'‖':
          Add(u'|', Treatment::kBarrier, MarkKind::kOther);
          break;
        case u'ƒ':
          Add(word::kNoteReference, treatment, MarkKind::kFootnote);
          break;
        case u'ę':
          Add(word::kNoteReference, treatment, MarkKind::kEndnote);
          break;
        case u'§':
          Add(word::kPageBreak, treatment, MarkKind::kSectionBreak);
          break;
        case u'¶':
          Add(word::kParagraphMark, treatment, MarkKind::kOther);
          break;
        case u'¤':
          Add(word::kCellMark, treatment, MarkKind::kOther);
          break;
        case u'→':
          Add(word::kTab, treatment, MarkKind::kOther);
          break;
        default:
          Add(unit, treatment, MarkKind::kOther);
      }
    }
  }

  Position Length() const override { return static_cast<Position>(text_.size()); }

  Stretch StretchAt(Position position) override {
    const auto behind = std::upper_bound(begins_.begin(), begins_.end(), static_cast<std::size_t>(position));
    const std::size_t begin = *(behind - 1);
    const std::size_t end = behind == begins_.end() ? text_.size() : *behind;
    return {static_cast<Position>(begin), std::u16string_view(text_).substr(begin, end - begin), treatments_[begin]};
  }

  MarkKind MarkAt(Position position) override { return marks_[static_cast<std::size_t>(position)]; }

  const std::u16string& Text() const { return text_; }

 private:
  void Add(char16_t unit, Treatment treatment, MarkKind mark) {
    if (treatments_.empty() || treatments_.back() != treatment) begins_.push_back(text_.size());
    text_ += unit;
    treatments_.push_back(treatment);
    marks_.push_back(mark);
  }

  std::u16string text_;
  std::vector<Treatment> treatments_;
  std::vector<std::size_t> begins_;  // of stretches that are treated alike
  std::vector<MarkKind> marks_;
};

/// The texts of all matches, as they stand in the text, what was passed over included.
inline std::vector<std::u16string> Found(std::u16string_view marked, const FindSettings& settings) {
  MarkedText text(marked);
  std::vector<std::u16string> found;
  for (const Match& match : SearchAll(text, settings, 0, text.Length())) {
    found.push_back(
        text.Text().substr(static_cast<std::size_t>(match.start), static_cast<std::size_t>(match.end - match.start)));
  }
  return found;
}

inline std::vector<std::u16string> FoundPlain(std::u16string_view pattern, std::u16string_view marked) {
  return Found(marked, {.text = std::u16string(pattern)});
}

inline std::vector<std::u16string> FoundWildcards(std::u16string_view pattern, std::u16string_view marked) {
  return Found(marked, {.text = std::u16string(pattern), .wildcards = true});
}

using Texts = std::vector<std::u16string>;

}  // namespace docx
