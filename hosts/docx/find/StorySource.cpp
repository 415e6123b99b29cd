#include "hosts/docx/find/StorySource.h"

#include <algorithm>
#include <utility>

#include "platform/word/Constants.h"

namespace docx {

namespace {

/// Outside of fields and hidden text every search sees it.
bool IsPlain(const Atom& atom) {
  switch (atom.kind) {
    case AtomKind::kText:
    case AtomKind::kCharacter:
    case AtomKind::kParagraphMark:
    case AtomKind::kRowMark:
    case AtomKind::kCellMark:
      return !atom.deleted;
    case AtomKind::kBookmarkStart:
    case AtomKind::kBookmarkEnd:
      return true;
    default:
      return false;
  }
}

}  // namespace

StorySource::StorySource(const Story& story, SearchScope scope)
    : story_(story), atoms_(story.Atoms()), scope_(std::move(scope)), fields_(atoms_) {}

TextSource::Stretch StorySource::StretchAt(Position position) {
  if (position == atomEnd_) {
    Advance();
  } else if (position < place_.start || position >= atomEnd_) {
    Seek(position);
  }
  const Atom& atom = atoms_.Get(place_);
  if (place_.start < block_.start || atomEnd_ > block_.start + static_cast<Position>(block_.text.size())) {
    block_ = atoms_.BlockAt(place_.start);
  }
  Stretch stretch{place_.start, block_.text.substr(static_cast<std::size_t>(place_.start - block_.start), atom.length),
                  Treatment::kPassedOver};
  if (atom.kind == AtomKind::kSimpleBegin && atom.length > 1) {
    // Mark and code may show, the separator never does.
    const Position separator = atomEnd_ - 1;
    if (position == separator) return {separator, stretch.text.substr(stretch.text.size() - 1), Treatment::kPassedOver};
    stretch.text.remove_suffix(1);
  }
  // A deletion is as good as gone, so what stands on both sides of it is one text; cells are two all the same.
  const bool gone = atom.deleted && stretch.text.front() != word::kCellMark;
  if (gone || !ShownByFields(place_.start)) return stretch;
  if (!scope_.showHidden && InHiddenRun(atom)) return stretch;
  stretch.treatment = Treatment::kSearched;
  if (open_.empty() && (scope_.showHidden || !scope_.hidden)) Extend(stretch);
  return stretch;
}

void StorySource::Extend(Stretch& stretch) {
  const std::vector<Atom>& atoms = atoms_.AtomsAround(place_);
  std::size_t last = place_.atom;
  Position start = place_.start;
  Position end = atomEnd_;
  for (std::size_t i = last + 1; i < atoms.size() && IsPlain(atoms[i]); ++i) {
    if (atoms[i].length == 0) continue;
    last = i;
    start = end;
    end += static_cast<Position>(atoms[i].length);
  }
  place_.atom = last;
  place_.start = start;
  atomEnd_ = end;
  stretch.text = block_.text.substr(static_cast<std::size_t>(stretch.start - block_.start),
                                    static_cast<std::size_t>(end - stretch.start));
}

void StorySource::Seek(Position position) {
  place_ = atoms_.At(position);
  open_.clear();
  for (const FieldSpan& span : EnclosingFields(atoms_, place_.start)) open_.push_back({span, ShowsCode(span)});
  EnterAtom();
}

void StorySource::Advance() {
  do {
    if (!open_.empty() && open_.back().span.end == place_.start && atomEnd_ > place_.start) open_.pop_back();
    place_ = atoms_.Next(place_);
    atomEnd_ = place_.start;
  } while (atoms_.Get(place_).length == 0);
  EnterAtom();
}

void StorySource::EnterAtom() {
  const Atom& atom = atoms_.Get(place_);
  atomEnd_ = place_.start + static_cast<Position>(atom.length);
  if (atom.kind != AtomKind::kFieldBegin && atom.kind != AtomKind::kSimpleBegin) return;
  if (const std::optional<FieldSpan> span = fields_.At(place_)) open_.push_back({*span, ShowsCode(*span)});
}

bool StorySource::ShowsCode(const FieldSpan& span) const {
  // Entries are hidden text by kind, whatever their runs say, and have no result to show.
  const std::u16string keyword = FieldKeyword(atoms_, span);
  const bool entry = keyword == u"XE" || keyword == u"TC" || keyword == u"TA" || keyword == u"RD";
  return entry ? scope_.showHidden : scope_.showFieldCodes;
}

bool StorySource::ShownByFields(Position position) const {
  const bool shown = std::all_of(open_.begin(), open_.end(), [position](const Open& open) {
    if (position < open.span.separator || position == open.span.end) return open.showsCode;
    return position != open.span.separator && !open.showsCode;
  });
  if (!shown) return false;
  switch (atoms_.Get(place_).kind) {
    case AtomKind::kCode:
      return !open_.empty();
    case AtomKind::kFieldBegin:
    case AtomKind::kSimpleBegin:
      return !open_.empty() && open_.back().span.begin == position;
    case AtomKind::kFieldEnd:
    case AtomKind::kSimpleEnd:
      return !open_.empty() && open_.back().span.end == position;
    case AtomKind::kFieldSeparator:
      return false;
    default:
      return true;
  }
}

bool StorySource::InHiddenRun(const Atom& atom) {
  if (!atom.InRun() || !scope_.hidden) return false;
  const XmlNode run = atom.Node().Parent();
  if (run != run_) {
    run_ = run;
    runHidden_ = scope_.hidden(run);
  }
  return runHidden_;
}

MarkKind StorySource::MarkAt(Position position) {
  const Atom& atom = atoms_.Get(atoms_.At(position));
  if (atom.kind == AtomKind::kParagraphMark) return MarkKind::kSectionBreak;
  switch (story_.Part().TagOf(atom.Node())) {
    case Tag::kFootnoteReference:
    case Tag::kFootnoteRef:
      return MarkKind::kFootnote;
    case Tag::kEndnoteReference:
    case Tag::kEndnoteRef:
      return MarkKind::kEndnote;
    default:
      return MarkKind::kOther;
  }
}

}  // namespace docx
