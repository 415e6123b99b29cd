#include "hosts/docx/pages/PdfPaginator.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

#include "hosts/docx/pages/PageSetup.h"
#include "hosts/docx/pages/PdfPages.h"
#include "platform/word/Constants.h"
#include "platform/word/HostError.h"

namespace docx {

namespace {

/// In a long paragraph a bookmark stands at least so many characters behind the one before.
constexpr Position kBetween = 150;

// Neither is likely to be an author's.
constexpr const char* kNamePrefix = "KelvarinPlace";
constexpr int kFirstId = 1'900'000'000;

std::string NameOf(std::size_t number) { return kNamePrefix + std::to_string(number); }

/// The positions of a story whose pages are to be told, in order.
std::vector<Position> PlacesIn(const Story& story) {
  std::vector<Position> places;
  const AtomSequence& atoms = story.Atoms();
  bool paragraphBegins = true;
  for (AtomSequence::Place place = atoms.Begin(); !atoms.IsEnd(place); place = atoms.Next(place)) {
    const Atom& atom = atoms.Get(place);
    if (atom.length == 0) continue;
    const bool isMark = atom.kind == AtomKind::kRowMark || atom.kind == AtomKind::kCellMark;
    const bool isField = atom.kind == AtomKind::kFieldBegin || atom.kind == AtomKind::kSimpleBegin;
    const bool isText = atom.kind == AtomKind::kText && !places.empty() && place.start - places.back() >= kBetween;
    if (!isMark && !atom.deleted && (paragraphBegins || isField || isText)) {
      places.push_back(place.start);
      paragraphBegins = false;
    }
    if (isMark || atom.kind == AtomKind::kParagraphMark) paragraphBegins = true;
  }
  return places;
}

[[noreturn]] void Fail(const std::string& why) {
  throw word::HostError(word::kCommandFailed, std::u16string(why.begin(), why.end()), "Document.Repaginate");
}

}  // namespace

PdfPaginator::PdfPaginator(DocumentParts& parts, PdfMaker& maker) : basis_("the layout of " + maker.Name()) {
  std::vector<std::byte> bytes;
  parts.Updated().Write(
      [&bytes](std::span<const std::byte> piece) { bytes.insert(bytes.end(), piece.begin(), piece.end()); });
  DocumentParts copy(Package::Open(std::move(bytes)));

  struct Marked {
    std::vector<PageStart>* starts;
    Position position;
  };
  std::vector<Marked> marked;
  const std::pair<int, std::vector<PageStart>*> told[] = {
      {word::wdMainTextStory, &main_}, {word::wdFootnotesStory, &footnotes_}, {word::wdEndnotesStory, &endnotes_}};
  for (const auto& [type, starts] : told) {
    for (const auto& story : copy.Stories(type)) {
      for (const Position position : PlacesIn(*story)) {
        story->InsertBookmark(position, position, NameOf(marked.size()), kFirstId + static_cast<int>(marked.size()));
        marked.push_back({starts, position});
      }
    }
  }

  PdfPages pages;
  try {
    pages = ReadPdfPages(maker.MakePdf(copy.Updated()));
  } catch (const PdfError& error) {
    Fail("The PDF that " + maker.Name() + " made cannot be read: " + error.what() + ".");
  }
  count_ = pages.count;
  for (std::size_t number = 0; number < marked.size(); ++number) {
    const auto destination = pages.destinations.find(NameOf(number));
    if (destination == pages.destinations.end()) continue;
    marked[number].starts->push_back({marked[number].position, destination->second});
  }
  if (main_.empty()) Fail("The PDF that " + maker.Name() + " made names no places.");
  NumberSections(parts.MainPart(), parts.Main());
}

void PdfPaginator::NumberSections(const XmlPart& part, const Story& main) {
  const auto add = [this, &part](const auto& sectPr, Position start) {
    const PageSetup setup = ReadPageSetup(part, sectPr);
    if (numberings_.empty()) {
      numberings_.push_back(NumberFirstSection(setup));
      return;
    }
    const int page = PageAt(main_, start);
    const bool beginsPage = setup.start != SectionStart::kContinuous || PageAt(main_, start - 1) != page;
    numberings_.push_back(NumberNextSection(numberings_.back(), setup, page, beginsPage));
  };
  const AtomSequence& atoms = main.Atoms();
  Position start = 0;
  for (AtomSequence::Place place = atoms.Begin(); !atoms.IsEnd(place); place = atoms.Next(place)) {
    const Atom& atom = atoms.Get(place);
    const bool endsSection = atom.kind == AtomKind::kParagraphMark && atoms.Text(place).front() == word::kPageBreak;
    if (!endsSection || atom.deleted) continue;
    add(part.Child(part.Child(atom.Node(), Tag::kPPr), Tag::kSectPr), start);
    start = place.start + static_cast<Position>(atom.length);
  }
  add(part.Child(part.Child(part.Root(), Tag::kBody), Tag::kSectPr), start);
}

}  // namespace docx
