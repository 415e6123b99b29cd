#include "hosts/docx/pages/PageTable.h"

#include <algorithm>
#include <iterator>

#include "platform/word/Constants.h"

namespace docx {

int PageAt(const std::vector<PageStart>& starts, Position position) {
  const auto after = std::upper_bound(starts.begin(), starts.end(), position,
                                      [](Position wanted, const PageStart& one) { return wanted < one.position; });
  return after == starts.begin() ? 1 : std::prev(after)->page;
}

std::vector<Note> NotesOf(const Story& story) {
  std::vector<Note> notes;
  const XmlPart& part = story.Part();
  const AtomSequence& atoms = story.Atoms();
  Position start = 0;
  for (AtomSequence::Place place = atoms.Begin(); !atoms.IsEnd(place); place = atoms.Next(place)) {
    const Atom& atom = atoms.Get(place);
    if (atom.kind != AtomKind::kParagraphMark) continue;
    XmlNode note = atom.Node();
    while (note && !part.Is(note, Tag::kFootnote) && !part.Is(note, Tag::kEndnote)) note = note.Parent();
    if (note && (notes.empty() || notes.back().element != note)) notes.push_back({note, start});
    start = place.start + static_cast<Position>(atom.length);
  }
  return notes;
}

std::string NoteId(const XmlPart& part, XmlNode noteOrReference) {
  return std::string(part.Attribute(noteOrReference, "id").Value());
}

std::vector<PageStart> PageTable::PlaceNotes(const Story& story, const NotePages& pages) {
  std::vector<PageStart> starts;
  for (const Note& note : NotesOf(story)) {
    const auto page = pages.find(NoteId(story.Part(), note.element));
    if (page != pages.end()) starts.push_back({note.start, page->second});
  }
  return starts;
}

int PageTable::PageOf(const Story& story, Position position) const {
  switch (story.Type()) {
    case word::wdMainTextStory:
      return PageAt(main_, position);
    case word::wdFootnotesStory:
      return PageAt(footnotes_, position);
    case word::wdEndnotesStory:
      return PageAt(endnotes_, position);
    default:
      return 1;
  }
}

std::u16string PageTable::LabelOf(int page) const {
  if (page < 1 || page > count_) return FormatPageNumber({}, page);
  return PageLabel(numberings_, page);
}

}  // namespace docx
