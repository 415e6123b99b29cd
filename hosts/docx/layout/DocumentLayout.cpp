#include "hosts/docx/layout/DocumentLayout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <utility>

#include "hosts/docx/layout/LayoutMemory.h"
#include "hosts/docx/pages/PageTable.h"
#include "hosts/docx/xml/Utf.h"
#include "platform/word/Constants.h"

namespace docx::layout {

namespace {

/// How often pages are filled until pictures that are placed by them hold.
constexpr int kMostPasses = 3;
constexpr double kSame = 1;  // twips

/// An r:id: the one attribute of a reference that is not WordprocessingML's.
std::string_view RelationshipId(XmlNode reference) {
  for (const XmlAttribute& attribute : reference.Attributes()) {
    const std::string_view name = attribute.Name();
    if (name == "id" || name.ends_with(":id")) return attribute.Value();
  }
  return {};
}

}  // namespace

DocumentLayout::DocumentLayout(DocumentParts& parts, bool lastBreaks, LayoutMemory* memory)
    : parts_(parts),
      memory_(memory),
      reading_(memory == nullptr ? nullptr : memory->Begin(parts)),
      formats_(memory == nullptr ? std::make_shared<DocumentFormats>(parts) : memory->Formats()),
      lines_(lineSettings_) {
  options_.lastBreaks = lastBreaks;
  ReadSettings();
  const Story& main = parts_.Main();
  const XmlPart& part = main.Part();
  BlockReader reader(formats_->Of(), part, &main, counters_, noteNumbers_);
  reader.SetPictureNames(PictureNames());
  SetMemory(reader, part);
  std::vector<Block> blocks = reader.Read(part.Child(part.Root(), Tag::kBody));
  ReadSections(blocks);
  LayOut(std::move(blocks));
  if (memory != nullptr) memory->End();
  memory_ = nullptr;
}

void DocumentLayout::SetMemory(BlockReader& reader, const XmlPart& part) {
  if (memory_ != nullptr) reader.SetMemory(memory_->Blocks(part));
}

BlockReader::PictureNames DocumentLayout::PictureNames() {
  return [this](const XmlPart& part, std::string_view id) { return parts_.TargetOf(part, id); };
}

void DocumentLayout::ReadSettings() {
  lineSettings_.compatibility = CompatibilityOf(parts_.Settings());
  if (const XmlPart* settings = parts_.Settings()) {
    const XmlNode root = settings->Root();
    lineSettings_.defaultTab = TwipsOf(*settings, settings->Child(root, "defaultTabStop"), "val").value_or(720);
    options_.mirrored = OnOffOf(*settings, settings->Child(root, "mirrorMargins")).value_or(false);
    options_.evenAndOdd = OnOffOf(*settings, settings->Child(root, "evenAndOddHeaders")).value_or(false);
    const std::u16string point = ToUtf16(ValueOf(*settings, settings->Child(root, "decimalSymbol")));
    if (point.size() == 1) lineSettings_.decimalPoint = point.front();
    const XmlNode compat = settings->Child(root, "compat");
    const auto compatible = [&](const char* name) {
      return OnOffOf(*settings, settings->Child(compat, name)).value_or(false);
    };
    lineSettings_.hangingStop = !compatible("noTabHangInd");
    lineSettings_.gridInCells = compatible("adjustLineHeightInTable");
    lineSettings_.markBehindBreak = compatible("splitPgBreakAndParaMark");
    lineSettings_.breaksJustify = !compatible("doNotExpandShiftReturn");
    flowSettings_.addSpaces = compatible("doNotUseHTMLParagraphAutoSpacing");
    const auto format = [&](const char* notes) {
      return std::string(ValueOf(*settings, settings->Child(settings->Child(root, notes), "numFmt")));
    };
    noteNumbers_.SetFormats(format("footnotePr"), format("endnotePr"));
  }
  lines_.Settings() = lineSettings_;
}

void DocumentLayout::ReadSections(const std::vector<Block>& blocks) {
  const XmlPart& part = parts_.MainPart();
  std::vector<XmlNode> properties;
  for (const Block& block : blocks) {
    const Paragraph* paragraph = block.AsParagraph();
    if (paragraph != nullptr && paragraph->section) properties.push_back(paragraph->section);
  }
  properties.push_back(part.Child(part.Child(part.Root(), Tag::kBody), Tag::kSectPr));
  std::vector<XmlNode> inherited(6);
  for (const XmlNode sectPr : properties) {
    sections_.push_back(std::make_unique<SectionGeometry>(ReadSectionGeometry(part, sectPr)));
    MeasureHeaders(*sections_.back(), sectPr, inherited);
  }
}

void DocumentLayout::MeasureHeaders(SectionGeometry& section, XmlNode sectPr, std::vector<XmlNode>& inherited) {
  const XmlPart& main = parts_.MainPart();
  for (const bool header : {true, false}) {
    const std::size_t base = header ? 0 : 3;
    for (const XmlNode reference : sectPr.Children(main.Name(header ? "headerReference" : "footerReference"))) {
      const std::string_view type = main.Attribute(reference, "type").Value();
      inherited[base + (type == "first" ? 1 : type == "even" ? 2 : 0)] = reference;
    }
    for (std::size_t side = 0; side < 3; ++side) {
      const XmlNode reference = inherited[base + side];
      if (!reference) continue;
      XmlPart* part = parts_.ByRelationship(RelationshipId(reference));
      if (part == nullptr) continue;
      std::vector<Block>*& blocks = headers_[part];
      if (blocks == nullptr) blocks = &kept_.emplace_back(ReadApart(*part, part->Root()));
      (header ? section.headers : section.footers)[side] = blocks;
      (header ? section.headerHeights : section.footerHeights)[side] = HeightOf(*blocks, section.TextWidth());
    }
  }
}

std::vector<Block> DocumentLayout::ReadApart(XmlPart& part, XmlNode container) {
  NumberCounters counters;
  NoteNumbers notes;
  BlockReader reader(formats_->Of(), part, nullptr, counters, notes);
  reader.SetPictureNames(PictureNames());
  return reader.Read(container);
}

double DocumentLayout::HeightOf(const std::vector<Block>& blocks, double width) {
  FlowBuilder builder(lines_, flowSettings_);
  return builder.Build(blocks, width).Height();
}

std::vector<Block> DocumentLayout::ReadSeparator(XmlPart& part, Tag note, std::string_view type) {
  for (const XmlNode child : part.Root().Children()) {
    if (part.Is(child, note) && part.Attribute(child, "type").Value() == type) return ReadApart(part, child);
  }
  return {};
}

void DocumentLayout::MeasureFootnotes(const std::vector<Position>& sectionEnds) {
  const std::vector<std::unique_ptr<Story>>& stories = parts_.Stories(word::wdFootnotesStory);
  if (stories.empty()) return;
  const Story& story = *stories.front();
  XmlPart& part = story.Part();
  separator_ = &kept_.emplace_back(ReadSeparator(part, Tag::kFootnote, "separator"));
  continuation_ = &kept_.emplace_back(ReadSeparator(part, Tag::kFootnote, "continuationSeparator"));
  const double width = sections_.front()->columns.front();
  options_.noteSeparator = HeightOf(*separator_, width);
  options_.noteContinuation = HeightOf(*continuation_, width);

  std::unordered_map<std::string, const std::vector<Block>*> byId;
  NoteNumbers none;
  NoteNumbers numbers = noteNumbers_.Fresh();
  BlockReader reader(formats_->Of(), part, &story, counters_, none);
  reader.SetPictureNames(PictureNames());
  SetMemory(reader, part);
  for (const Note& note : NotesOf(story)) {
    reader.SetNoteMark(numbers.Next(true));
    byId[NoteId(part, note.element)] = &kept_.emplace_back(reader.Read(note.element));
  }
  const XmlPart& main = parts_.MainPart();
  const AtomSequence& atoms = parts_.Main().Atoms();
  FlowBuilder builder(lines_, flowSettings_);
  for (AtomSequence::Place place = atoms.Begin(); !atoms.IsEnd(place); place = atoms.Next(place)) {
    const Atom& atom = atoms.Get(place);
    if (atom.kind != AtomKind::kCharacter || !main.Is(atom.Node(), Tag::kFootnoteReference)) continue;
    const auto note = byId.find(NoteId(main, atom.Node()));
    if (note == byId.end()) continue;
    // A note is as wide as the columns of its reference's section.
    const auto section = std::ranges::upper_bound(sectionEnds, place.start) - sectionEnds.begin();
    const double room = sections_[static_cast<std::size_t>(section)]->columns.front();
    const Flow& flow = noteFlows_.emplace_back(builder.Build(*note->second, room));
    NoteRoom needed;
    needed.height = flow.Height();
    if (!flow.items.empty()) needed.firstLine = flow.items.front().before + flow.items.front().height;
    needed.flow = noteFlows_.size() - 1;
    noteRooms_[atom.element] = needed;
  }
}

void DocumentLayout::ReadEndnotes(const std::vector<Position>& sectionEnds) {
  const std::vector<std::unique_ptr<Story>>& stories = parts_.Stories(word::wdEndnotesStory);
  if (stories.empty()) return;
  const Story& story = *stories.front();
  XmlPart& part = story.Part();
  endnoteSeparator_ = &kept_.emplace_back(ReadSeparator(part, Tag::kEndnote, "separator"));
  std::unordered_map<std::string, std::size_t> sectionOf;
  if (const XmlPart* settings = parts_.Settings()) {
    // Sections cannot choose it for themselves, but only hand their notes on to the next one.
    const XmlNode place = settings->Child(settings->Child(settings->Root(), "endnotePr"), "pos");
    if (ValueOf(*settings, place) == "sectEnd") sectionOf = EndnoteSections(sectionEnds);
  }
  NoteNumbers none;
  NoteNumbers numbers = noteNumbers_.Fresh();
  BlockReader reader(formats_->Of(), part, &story, counters_, none);
  reader.SetPictureNames(PictureNames());
  SetMemory(reader, part);
  for (const Note& note : NotesOf(story)) {
    reader.SetNoteMark(numbers.Next(false));
    const auto section = sectionOf.find(NoteId(part, note.element));
    endnotes_.push_back({section == sectionOf.end() ? sections_.size() - 1 : section->second,
                         &kept_.emplace_back(reader.Read(note.element))});
  }
}

std::unordered_map<std::string, std::size_t> DocumentLayout::EndnoteSections(
    const std::vector<Position>& sectionEnds) const {
  std::unordered_map<std::string, std::size_t> sectionOf;
  const XmlPart& main = parts_.MainPart();
  const AtomSequence& atoms = parts_.Main().Atoms();
  for (AtomSequence::Place place = atoms.Begin(); !atoms.IsEnd(place); place = atoms.Next(place)) {
    const Atom& atom = atoms.Get(place);
    if (atom.kind != AtomKind::kCharacter || !main.Is(atom.Node(), Tag::kEndnoteReference)) continue;
    auto section = static_cast<std::size_t>(std::ranges::upper_bound(sectionEnds, place.start) - sectionEnds.begin());
    while (section + 1 < sections_.size() && sections_[section]->handsEndnotesOn) ++section;
    sectionOf.emplace(NoteId(main, atom.Node()), section);
  }
  return sectionOf;
}

void DocumentLayout::AppendEndnotes(std::size_t section, Flow& flow, double width) {
  FlowBuilder builder(lines_, flowSettings_);
  bool first = true;
  double after = 0;
  for (const Endnote& note : endnotes_) {
    if (note.section != section) continue;
    if (std::exchange(first, false)) {
      FlowItem separator;
      separator.before = flow.after;
      separator.position = -1;
      Flow rule = builder.Build(*endnoteSeparator_, width);
      separator.height = rule.Height();
      if (!rule.items.empty()) separator.shown = rule.items.front().shown;
      flow.items.push_back(std::move(separator));
    }
    Flow notes = builder.Build(*note.blocks, width);
    for (FlowItem& item : notes.items) {
      item.endnote = true;
      item.before = std::max(item.before, std::exchange(after, 0));
      flow.items.push_back(std::move(item));
    }
    after = notes.after;
  }
  if (!first) flow.after = after;
}

void DocumentLayout::LayOut(std::vector<Block> blocks) {
  flowSettings_.drops = &drops_;
  std::vector<const std::vector<Block>*> sections;
  std::vector<Position> sectionEnds;
  std::vector<Block> ofSection;
  for (Block& block : blocks) {
    const Paragraph* paragraph = block.AsParagraph();
    const bool ends = paragraph != nullptr && paragraph->section;
    if (ends) sectionEnds.push_back(paragraph->end + 1);
    ofSection.push_back(std::move(block));
    if (ends) sections.push_back(&kept_.emplace_back(std::exchange(ofSection, {})));
  }
  sections.push_back(&kept_.emplace_back(std::move(ofSection)));
  MeasureFootnotes(sectionEnds);
  ReadEndnotes(sectionEnds);
  // Text stands around what is placed by the page, and by where the text stands the page is found.
  for (int pass = 0; pass < kMostPasses; ++pass) {
    FillPages(sections);
    if (!DropFloats()) break;
  }
  PlaceFootnotes();
}

void DocumentLayout::FillPages(const std::vector<const std::vector<Block>*>& sections) {
  FlowBuilder builder(lines_, flowSettings_);
  filler_ = std::make_unique<PageFiller>(noteRooms_, options_, &builder);
  body_ = {};
  for (std::size_t i = 0; i < sections.size(); ++i) {
    const bool last = i + 1 == sections.size();
    const SectionGeometry& geometry = *sections_[i];
    lines_.Settings().gridPitch = geometry.gridPitch;
    builder.SetSurroundings({geometry.TextLeft(false), geometry.TextWidth(), geometry.width});
    Flow flow = builder.Build(*sections[i], geometry.columns.front());
    AppendEndnotes(i, flow, geometry.columns.front());
    filler_->BeginSection(geometry);
    const bool balanced = !last && sections_[i + 1]->setup.start == SectionStart::kContinuous;
    filler_->Fill(flow, balanced, body_);
  }
}

bool DocumentLayout::DropFloats() {
  bool changed = false;
  for (const PageFiller::Placed& line : body_.lines) {
    if (!line.shown.floats || line.shown.paragraph == nullptr) continue;
    const PageFiller::PageRoom& room = filler_->Pages()[static_cast<std::size_t>(line.page - 1)];
    for (const Floating& floating : line.shown.paragraph->floats) {
      using From = Floating::From;
      if (floating.wrap == Floating::Wrap::kNone || floating.down == From::kText) continue;
      const bool paper = floating.down == From::kPaper;
      const double begin = paper ? 0 : room.section->BodyTop(room.side);
      const double length = paper ? room.section->height : room.bottom - begin;
      const double y = floating.sideDown ? (length - floating.height) * *floating.sideDown : floating.y;
      const auto [drop, isNew] = drops_.try_emplace(&floating, 0);
      const double now = begin + y - line.top;
      changed = changed || isNew || std::abs(now - drop->second) > kSame;
      drop->second = now;
    }
  }
  return changed;
}

}  // namespace docx::layout
