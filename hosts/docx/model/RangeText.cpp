#include "hosts/docx/model/RangeText.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/word/Constants.h"
#include "platform/word/FindUnit.h"

namespace docx {

namespace {

std::u16string WithCellMarks(std::u16string text) {
  const std::size_t first =
      word::FindUnit(std::u16string_view(text), 0, [](char16_t unit) { return unit == word::kCellMark; });
  if (first == text.size()) return text;
  std::u16string result(text, 0, first);
  result.reserve(text.size());
  for (const char16_t unit : std::u16string_view(text).substr(first)) {
    if (unit == word::kCellMark) result += word::kParagraphMark;
    result += unit;
  }
  return result;
}

/// Whether the position lies in a field's code, that is, how many codes are open there.
int OpenCodes(const Story& story, Position start) {
  const AtomSequence& atoms = story.Atoms();
  if (atoms.FieldBegins() == 0) return 0;
  int open = 0;
  std::vector<bool> inCode;
  for (AtomSequence::Place place = atoms.At(story.ParagraphStart(start)); place.start < start;
       place = atoms.Next(place)) {
    const AtomKind kind = atoms.Get(place).kind;
    if (kind == AtomKind::kFieldBegin) {
      inCode.push_back(true);
      ++open;
    } else if (kind == AtomKind::kFieldSeparator && !inCode.empty() && inCode.back()) {
      inCode.back() = false;
      --open;
    } else if (kind == AtomKind::kFieldEnd && !inCode.empty()) {
      if (inCode.back()) --open;
      inCode.pop_back();
    }
  }
  return open;
}

}  // namespace

std::u16string AllText(const Story& story, Position start, Position end) {
  return WithCellMarks(story.Text(start, end));
}

std::u16string ShownText(const Story& story, const Formatting& formats, Position start, Position end, bool fieldCodes,
                         bool hidden) {
  std::u16string text;
  text.reserve(static_cast<std::size_t>(end - start));
  std::vector<bool> inCode(static_cast<std::size_t>(OpenCodes(story, start)), true);
  const auto codesOpen = [&] { return std::find(inCode.begin(), inCode.end(), true) != inCode.end(); };
  const AtomSequence& atoms = story.Atoms();
  const bool mayHide = !hidden && formats.MayHide();
  AtomSequence::TextBlock block;
  for (AtomSequence::Place place = atoms.At(start); !atoms.IsEnd(place) && place.start < end;
       place = atoms.Next(place)) {
    const Atom& atom = atoms.Get(place);
    if (atom.length == 0) continue;
    bool shown = !atom.deleted;
    const bool mark = atom.kind == AtomKind::kFieldBegin || atom.kind == AtomKind::kFieldSeparator ||
                      atom.kind == AtomKind::kFieldEnd || atom.kind == AtomKind::kSimpleBegin ||
                      atom.kind == AtomKind::kSimpleEnd;
    if (atom.kind == AtomKind::kFieldBegin) inCode.push_back(true);
    shown = shown && (fieldCodes || (!mark && !codesOpen()));
    if (atom.kind == AtomKind::kFieldSeparator && !inCode.empty()) inCode.back() = false;
    if (atom.kind == AtomKind::kFieldEnd && !inCode.empty()) inCode.pop_back();
    if (shown && mayHide && atom.InRun() && formats.Hidden(atom.Node().Parent())) shown = false;
    if (!shown) continue;
    const auto from = static_cast<std::size_t>(std::max(start - place.start, 0));
    const auto to = static_cast<std::size_t>(std::min(end - place.start, static_cast<Position>(atom.length)));
    // All of an atom's text is in one block.
    if (place.start >= block.start + static_cast<Position>(block.text.size())) block = atoms.BlockAt(place.start);
    text += block.text.substr(static_cast<std::size_t>(place.start - block.start) + from, to - from);
  }
  return WithCellMarks(std::move(text));
}

int CommonValue(const Story& story, Position start, Position end, Marks marks,
                const std::function<int(XmlNode node)>& value) {
  const AtomSequence& atoms = story.Atoms();
  if (start == end && start > 0) --start;
  if (start == end) ++end;
  end = std::max(end, start + 1);
  std::optional<int> common;
  XmlNode last;
  for (AtomSequence::Place place = atoms.At(start); !atoms.IsEnd(place) && place.start < end;
       place = atoms.Next(place)) {
    const Atom& atom = atoms.Get(place);
    const bool mark = atom.kind == AtomKind::kParagraphMark && marks == Marks::kCount;
    if ((!atom.InRun() && !mark) || atom.deleted) continue;
    const XmlNode node = mark ? atom.Node() : atom.Node().Parent();
    if (node == last) continue;
    last = node;
    const int here = value(node);
    if (common && *common != here) return word::wdUndefined;
    common = here;
  }
  return common ? *common : value({});
}

}  // namespace docx
