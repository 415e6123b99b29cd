#include "hosts/docx/pages/PageFlow.h"

#include <cstddef>
#include <string_view>
#include <utility>

#include "hosts/docx/story/StoryBuilder.h"
#include "platform/word/Constants.h"

namespace docx {

namespace {

constexpr std::uint32_t kTabCharacters = 5;

/// Which atoms show: the marks and codes of fields do not.
class ShownText {
 public:
  /// @return how many characters the atom at the place shows
  std::uint32_t Feed(const AtomSequence& atoms, const AtomSequence::Place& place) {
    const Atom& atom = atoms.Get(place);
    switch (atom.kind) {
      case AtomKind::kFieldBegin:
        inCode_.push_back(true);
        ++codes_;
        return 0;
      case AtomKind::kFieldSeparator:
        if (!inCode_.empty() && inCode_.back()) {
          inCode_.back() = false;
          --codes_;
        }
        return 0;
      case AtomKind::kFieldEnd:
        if (!inCode_.empty()) {
          if (inCode_.back()) --codes_;
          inCode_.pop_back();
        }
        return 0;
      case AtomKind::kText:
        return atom.deleted || codes_ > 0 ? 0 : atom.length;
      case AtomKind::kCharacter:
        if (atom.deleted || codes_ > 0 || atom.length == 0) return 0;
        switch (atoms.Text(place).front()) {
          case word::kTab:
            return kTabCharacters;
          case word::kPageBreak:
          case word::kColumnBreak:
          case word::kLineBreak:
          case word::kCommentMark:
          case word::kOptionalHyphen:
            return 0;
          default:
            return 1;
        }
      default:
        return 0;
    }
  }

 private:
  std::vector<bool> inCode_;  // of the fields begun and not ended, outermost first
  int codes_{0};
};

/// Goes through the elements in the same order as StoryBuilder, so that every atom is met at its element.
class FlowReader {
 public:
  explicit FlowReader(const Story& story)
      : part_(story.Part()), atoms_(story.Atoms()), mayHaveLastBreaks_(part_.Has(Tag::kLastRenderedPageBreak)) {
    place_ = atoms_.Begin();
  }

  void ReadBlocks(XmlNode container);
  PageFlow Take() { return std::move(flow_); }

 private:
  struct OpenField {
    bool named{false};
    bool index{false};
    Position resultStart{0};
    std::size_t lastBreaks{0};
  };

  void ReadParagraph(XmlNode paragraph);
  void ReadTable(XmlNode table);
  void ReadInlines(XmlNode parent);
  void ReadRun(XmlNode run);
  /// The same for a paragraph of which nothing counts but its atoms.
  void ReadAtoms();
  /// Moves on when the next atom is that element's. @return the atom; nullptr when the element has none here
  const Atom* Meet(XmlNode element);
  /// Moves on. @return the atom before
  const Atom& Pass();
  void AddCharacter(const AtomSequence::Place& place);
  void FollowField(const Atom& atom);
  bool IsIndex(Position code);
  void Add(FlowKind kind, XmlNode element);

  const XmlPart& part_;
  const AtomSequence& atoms_;
  const bool mayHaveLastBreaks_;
  AtomSequence::Place place_;
  PageFlow flow_;
  ShownText shown_;
  std::vector<OpenField> fields_;
  std::uint32_t text_{0};
  std::size_t paragraph_{0};  // the event that began it
  std::size_t lastBreaks_{0};
  int tables_{0};
};

void FlowReader::Add(FlowKind kind, XmlNode element) {
  FlowEvent event;
  event.position = place_.start;
  event.text = text_;
  event.kind = kind;
  event.element = element.Data();
  flow_.events.push_back(event);
  text_ = 0;
}

const Atom* FlowReader::Meet(XmlNode element) {
  if (atoms_.IsEnd(place_)) return nullptr;
  return atoms_.Get(place_).element == element.Data() ? &Pass() : nullptr;
}

const Atom& FlowReader::Pass() {
  const Atom& atom = atoms_.Get(place_);
  const std::uint32_t shown = shown_.Feed(atoms_, place_);
  if (shown != 0 && flow_.events[paragraph_].run == nullptr) {
    flow_.events[paragraph_].run = atom.Node().Parent().Data();
  }
  text_ += shown;
  FollowField(atom);
  place_ = atoms_.Next(place_);
  return atom;
}

bool FlowReader::IsIndex(Position code) {
  constexpr std::u16string_view kName = u"INDEX";
  TextReader reader(atoms_);
  while (code < atoms_.Length() && reader.At(code) == u' ') ++code;
  for (const char16_t wanted : kName) {
    if (code >= atoms_.Length()) return false;
    const char16_t c = reader.At(code++);
    if (c != wanted && c != wanted + (u'a' - u'A')) return false;
  }
  return code < atoms_.Length() && reader.At(code) <= u' ';
}

void FlowReader::FollowField(const Atom& atom) {
  const Position behind = place_.start + static_cast<Position>(atom.length);
  switch (atom.kind) {
    case AtomKind::kFieldBegin:
      fields_.emplace_back();
      break;
    case AtomKind::kFieldSeparator:
      if (!fields_.empty()) {
        fields_.back().resultStart = behind;
        fields_.back().lastBreaks = lastBreaks_;
      }
      break;
    case AtomKind::kFieldEnd:
      if (fields_.empty()) break;
      if (fields_.back().index && fields_.back().resultStart != 0 && fields_.back().lastBreaks == lastBreaks_) {
        flow_.indexes.push_back({fields_.back().resultStart, place_.start});
      }
      fields_.pop_back();
      break;
    case AtomKind::kCode:
      // The first piece of the code has the field's name.
      if (!fields_.empty() && !fields_.back().named) {
        fields_.back().named = true;
        fields_.back().index = IsIndex(place_.start);
      }
      break;
    default:
      break;
  }
}

void FlowReader::ReadBlocks(XmlNode container) {
  for (const XmlNode child : container.Children()) {
    switch (part_.TagOf(child)) {
      case Tag::kP:
        ReadParagraph(child);
        break;
      case Tag::kTbl:
        ReadTable(child);
        break;
      case Tag::kBookmarkStart:
      case Tag::kBookmarkEnd:
        Meet(child);
        break;
      default:
        if (const XmlNode content = WrappedBy(part_, child, Within::kBlocks).content) ReadBlocks(content);
        break;
    }
  }
}

void FlowReader::ReadParagraph(XmlNode paragraph) {
  paragraph_ = flow_.events.size();
  Add(FlowKind::kParagraphStart, paragraph);
  if (mayHaveLastBreaks_) {
    ReadInlines(paragraph);
  } else {
    ReadAtoms();
  }
  const Atom* mark = Meet(paragraph);
  Add(FlowKind::kParagraphEnd, paragraph);
  if (mark == nullptr || mark->deleted || tables_ > 0) return;
  const XmlNode section = part_.Child(part_.Child(paragraph, Tag::kPPr), Tag::kSectPr);
  if (section) Add(FlowKind::kSectionEnd, section);
}

void FlowReader::ReadTable(XmlNode table) {
  for (const XmlNode child : table.Children()) {
    switch (part_.TagOf(child)) {
      case Tag::kTr:
        Add(FlowKind::kRowStart, child);
        ReadTable(child);
        Meet(child);
        Add(FlowKind::kRowEnd, child);
        break;
      case Tag::kTc:
        Add(FlowKind::kCellStart, child);
        ++tables_;
        ReadBlocks(child);
        --tables_;
        Meet(child);
        Add(FlowKind::kCellEnd, child);
        break;
      case Tag::kBookmarkStart:
      case Tag::kBookmarkEnd:
        Meet(child);
        break;
      default:
        if (const XmlNode content = WrappedBy(part_, child, Within::kRows).content) ReadTable(content);
        break;
    }
  }
}

void FlowReader::ReadInlines(XmlNode parent) {
  for (const XmlNode child : parent.Children()) {
    switch (part_.TagOf(child)) {
      case Tag::kR:
        ReadRun(child);
        break;
      case Tag::kFldSimple:
        Meet(child);
        ReadInlines(child);
        Meet(child);
        break;
      case Tag::kBookmarkStart:
      case Tag::kBookmarkEnd:
        Meet(child);
        break;
      default:
        if (const XmlNode content = WrappedBy(part_, child, Within::kText).content) ReadInlines(content);
        break;
    }
  }
}

void FlowReader::ReadRun(XmlNode run) {
  for (const XmlNode child : run.Children()) {
    const Tag tag = part_.TagOf(child);
    if (tag == Tag::kLastRenderedPageBreak) {
      Add(FlowKind::kLastBreak, child);
      flow_.hasLastBreaks = true;
      ++lastBreaks_;
      continue;
    }
    const AtomSequence::Place place = place_;
    const Atom* atom = Meet(child);
    if (atom != nullptr && atom->kind == AtomKind::kCharacter) AddCharacter(place);
  }
}

void FlowReader::ReadAtoms() {
  while (!atoms_.IsEnd(place_) && atoms_.Get(place_).kind != AtomKind::kParagraphMark) {
    const AtomSequence::Place place = place_;
    if (Pass().kind == AtomKind::kCharacter) AddCharacter(place);
  }
}

void FlowReader::AddCharacter(const AtomSequence::Place& place) {
  const Atom& atom = atoms_.Get(place);
  if (atom.deleted) return;
  const XmlNode element = atom.Node();
  const Tag tag = part_.TagOf(element);
  if (tag == Tag::kFootnoteReference || tag == Tag::kEndnoteReference) Add(FlowKind::kNote, element);
  if (tag != Tag::kBr && tag != Tag::kCr) return;
  const char16_t c = atoms_.Text(place).front();
  Add(c == word::kPageBreak     ? FlowKind::kPageBreak
      : c == word::kColumnBreak ? FlowKind::kColumnBreak
                                : FlowKind::kLineBreak,
      element);
}

}  // namespace

PageFlow ReadPageFlow(const Story& story, const std::vector<XmlNode>& containers) {
  FlowReader reader(story);
  for (const XmlNode container : containers) reader.ReadBlocks(container);
  return reader.Take();
}

Position PositionOfShown(const AtomSequence& atoms, Position from, std::uint32_t n) {
  ShownText shown;
  for (AtomSequence::Place place = atoms.At(from); !atoms.IsEnd(place); place = atoms.Next(place)) {
    const Atom& atom = atoms.Get(place);
    const std::uint32_t count = shown.Feed(atoms, place);
    // The position may lie within the first atom.
    const std::uint32_t skipped = place.start < from && count != 0 ? static_cast<std::uint32_t>(from - place.start) : 0;
    if (n + skipped < count) {
      const std::uint32_t inside = atom.kind == AtomKind::kText ? n + skipped : 0;
      return place.start + static_cast<Position>(inside);
    }
    n -= count > skipped ? count - skipped : 0;
  }
  return atoms.Length();
}

}  // namespace docx
