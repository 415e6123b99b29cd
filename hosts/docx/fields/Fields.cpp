#include "hosts/docx/fields/Fields.h"

#include "platform/word/Constants.h"

#include <algorithm>

namespace docx {

namespace {

/// No field is called by a longer name.
constexpr std::size_t kLongestKeyword = 16;

}  // namespace

std::optional<FieldSpan> FieldScanner::Feed(const Atom& atom, Position start) {
  constexpr Position kNone = -1;
  switch (atom.kind) {
    case AtomKind::kFieldBegin:
      open_.push_back({{start, kNone, kNone}, false});
      return std::nullopt;
    case AtomKind::kSimpleBegin:
      open_.push_back({{start, start + static_cast<Position>(atom.length) - 1, kNone}, true});
      return std::nullopt;
    case AtomKind::kFieldSeparator:
      if (!open_.empty() && !open_.back().simple && open_.back().span.separator == kNone) {
        open_.back().span.separator = start;
      }
      return std::nullopt;
    case AtomKind::kFieldEnd:
      if (open_.empty() || open_.back().simple) return std::nullopt;
      break;
    case AtomKind::kSimpleEnd:
      // What was begun inside the element and has not ended in it never will.
      while (!open_.empty() && !open_.back().simple) open_.pop_back();
      if (open_.empty()) return std::nullopt;
      break;
    default:
      return std::nullopt;
  }
  FieldSpan span = open_.back().span;
  open_.pop_back();
  span.end = start;
  if (span.separator == kNone) span.separator = start;
  return span;
}

std::vector<Position> FieldScanner::Unended() const {
  std::vector<Position> begins;
  for (const Open& open : open_) begins.push_back(open.span.begin);
  return begins;
}

std::optional<FieldSpan> FieldAt(const AtomSequence& atoms, const AtomSequence::Place& begin) {
  FieldScanner scanner;
  for (AtomSequence::Place place = begin; !atoms.IsEnd(place); place = atoms.Next(place)) {
    const std::optional<FieldSpan> field = scanner.Feed(atoms.Get(place), place.start);
    if (field && field->begin == begin.start) return field;
    if (scanner.Depth() == 0) break;
  }
  return std::nullopt;
}

std::vector<FieldSpan> AllFields(const AtomSequence& atoms) {
  std::vector<FieldSpan> fields;
  if (atoms.FieldBegins() == 0) return fields;
  FieldScanner scanner;
  for (AtomSequence::Place place = atoms.Begin(); !atoms.IsEnd(place); place = atoms.Next(place)) {
    if (const std::optional<FieldSpan> field = scanner.Feed(atoms.Get(place), place.start)) fields.push_back(*field);
  }
  std::sort(fields.begin(), fields.end(),
            [](const FieldSpan& left, const FieldSpan& right) { return left.begin < right.begin; });
  return fields;
}

std::vector<FieldSpan> EnclosingFields(const AtomSequence& atoms, Position position) {
  std::vector<FieldSpan> fields;
  int open = atoms.FieldDepthBefore(position);
  if (open <= 0) return fields;
  FieldFinder finder(atoms);
  int ended = 0;
  AtomSequence::Place place = atoms.At(position);
  if (place.start < position) place = atoms.Next(place);
  while (open > 0 && !atoms.IsBegin(place)) {
    place = atoms.Previous(place);
    const AtomKind kind = atoms.Get(place).kind;
    if (kind == AtomKind::kFieldEnd || kind == AtomKind::kSimpleEnd) {
      ++ended;
    } else if (kind == AtomKind::kFieldBegin || kind == AtomKind::kSimpleBegin) {
      if (ended > 0) {
        --ended;
        continue;
      }
      --open;
      const std::optional<FieldSpan> field = finder.At(place);
      if (field && field->end >= position) fields.push_back(*field);
    }
  }
  std::reverse(fields.begin(), fields.end());
  return fields;
}

std::u16string FieldCodeText(const Story& story, const FieldSpan& field) {
  const std::u16string all = story.Text(field.CodeStart(), field.separator);
  if (all.find(word::kFieldBegin) == std::u16string::npos) return all;
  std::u16string code;
  std::vector<std::size_t> nested;  // where the code of each open nested field began in the text so far
  for (const char16_t unit : all) {
    if (unit == word::kFieldBegin) {
      nested.push_back(code.size());
    } else if (unit == word::kFieldSeparator && !nested.empty()) {
      code.resize(nested.back());
    } else if (unit == word::kFieldEnd && !nested.empty()) {
      nested.pop_back();
    } else {
      code += unit;
    }
  }
  return code;
}

std::u16string FieldKeyword(const AtomSequence& atoms, const FieldSpan& field) {
  std::u16string keyword;
  TextReader reader(atoms);
  for (Position position = field.CodeStart(); position < field.separator; ++position) {
    const char16_t unit = reader.At(position);
    const bool blank = unit <= u' ' || unit == word::kNonBreakingSpace;
    if (blank && keyword.empty()) continue;
    if (blank || keyword.size() >= kLongestKeyword) break;
    keyword += unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
  }
  return keyword;
}

std::optional<FieldSpan> FieldFinder::At(const AtomSequence::Place& begin) {
  const auto found = known_.find(begin.start);
  if (found == known_.end()) {
    FieldScanner scanner;
    AtomSequence::Place place = begin;
    while (!atoms_.IsEnd(place)) {
      if (const std::optional<FieldSpan> field = scanner.Feed(atoms_.Get(place), place.start)) {
        known_[field->begin] = *field;
      }
      if (scanner.Depth() == 0) break;
      place = atoms_.Next(place);
    }
    for (const Position unended : scanner.Unended()) known_[unended] = {unended, -1, -1};
    known_.try_emplace(begin.start, FieldSpan{begin.start, -1, -1});
  }
  const FieldSpan& span = known_[begin.start];
  if (span.end < 0) return std::nullopt;
  return span;
}

}  // namespace docx
