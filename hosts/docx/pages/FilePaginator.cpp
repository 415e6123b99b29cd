#include "hosts/docx/pages/FilePaginator.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "hosts/docx/pages/PageFlow.h"
#include "platform/word/Constants.h"

namespace docx {

namespace {

std::vector<XmlNode> ElementsOf(const std::vector<Note>& notes) {
  std::vector<XmlNode> elements;
  elements.reserve(notes.size());
  for (const Note& note : notes) elements.push_back(note.element);
  return elements;
}

/// What each footnote's lines take, in points, by the note's id.
std::unordered_map<std::string, double> NoteHeights(const Formatting& formatting, const Story& story, double width) {
  std::unordered_map<std::string, double> heights;
  const std::vector<Note> notes = NotesOf(story);
  ParagraphShapes shapes(formatting);
  std::size_t at = 0;
  std::uint32_t characters = 0;
  XmlNode run;
  for (const FlowEvent& event : ReadPageFlow(story, ElementsOf(notes)).events) {
    characters += event.text;
    if (event.kind == FlowKind::kParagraphStart) {
      while (at + 1 < notes.size() && notes[at + 1].start <= event.position) ++at;
      characters = 0;
      run = XmlNode(event.run);
    }
    if (event.kind != FlowKind::kParagraphEnd) continue;
    const ParagraphShape shape = shapes.Of(event.Node(), run, width);
    heights[NoteId(story.Part(), notes[at].element)] +=
        std::max(1, shape.Lines(characters)) * shape.lineHeight + shape.after;
  }
  return heights;
}

std::vector<PageSetup> SetupsOf(const XmlPart& part, const PageFlow& flow) {
  std::vector<PageSetup> setups;
  for (const FlowEvent& event : flow.events) {
    if (event.kind == FlowKind::kSectionEnd) setups.push_back(ReadPageSetup(part, event.Node()));
  }
  setups.push_back(ReadPageSetup(part, part.Child(part.Child(part.Root(), Tag::kBody), Tag::kSectPr)));
  return setups;
}

/// Whether endnotes stand at the end of their section. Sections cannot choose it for themselves.
bool EndnotesAtSectionEnd(const XmlPart* settings) {
  if (settings == nullptr) return false;
  const XmlNode endnotes = settings->Child(settings->Root(), "endnotePr");
  return std::string_view(settings->Attribute(settings->Child(endnotes, "pos"), "val").Value()) == "sectEnd";
}

/// The one story of a kind that has at most one.
const Story* OnlyStory(DocumentParts& parts, int type) {
  const std::vector<std::unique_ptr<Story>>& stories = parts.Stories(type);
  return stories.empty() ? nullptr : stories.front().get();
}

}  // namespace

FilePaginator::FilePaginator(DocumentParts& parts) {
  const Story& main = parts.Main();
  XmlPart& part = parts.MainPart();
  const PageFlow flow = ReadPageFlow(main, {part.Child(part.Root(), Tag::kBody)});
  std::vector<PageSetup> setups = SetupsOf(part, flow);
  const Story* footnotes = OnlyStory(parts, word::wdFootnotesStory);

  PageWalk::Options options;
  options.estimate = !flow.hasLastBreaks;
  std::unordered_map<std::string, double> heights;
  if (options.estimate && footnotes != nullptr) {
    heights = NoteHeights(parts.Formats(footnotes->Part()), *footnotes, setups.front().columnWidth);
    options.noteHeight = [&](XmlNode reference) {
      if (!part.Is(reference, Tag::kFootnoteReference)) return 0.0;
      const auto height = heights.find(NoteId(part, reference));
      return height == heights.end() ? 0.0 : height->second;
    };
  }
  PageWalk walk(parts.Formats(part), std::move(setups), options);
  walk.WalkMain(main, flow);

  if (footnotes != nullptr) {
    NotePages pages;
    for (const PageWalk::NoteReference& reference : walk.NoteReferences()) {
      if (part.Is(reference.element, Tag::kFootnoteReference)) {
        pages.emplace(NoteId(part, reference.element), reference.page);
      }
    }
    footnotes_ = PlaceNotes(*footnotes, pages);
  }
  PlaceEndnotes(parts, walk);
  count_ = walk.PageCount();
  main_ = walk.TakeMainStarts();
  numberings_ = walk.TakeNumberings();
  stated_ = walk.Stated();
  estimated_ = options.estimate || walk.Estimated();
  onlyEstimated_ = options.estimate;
}

void FilePaginator::PlaceEndnotes(DocumentParts& parts, PageWalk& walk) {
  const Story* story = OnlyStory(parts, word::wdEndnotesStory);
  if (story == nullptr) return;
  const std::vector<Note> notes = NotesOf(*story);
  if (!EndnotesAtSectionEnd(parts.Settings())) {
    walk.WalkEndnotes(parts.Formats(story->Part()), *story, ReadPageFlow(*story, ElementsOf(notes)));
    endnotes_ = walk.TakeEndnoteStarts();
    return;
  }
  NotePages pages;
  const XmlPart& part = parts.MainPart();
  for (const PageWalk::NoteReference& reference : walk.NoteReferences()) {
    if (!part.Is(reference.element, Tag::kEndnoteReference)) continue;
    pages.emplace(NoteId(part, reference.element), walk.SectionEnds()[reference.section]);
  }
  endnotes_ = PlaceNotes(*story, pages);
}

std::string FilePaginator::Basis() const {
  if (!estimated_) return "breaks in the file";
  return stated_ ? "breaks in the file and an estimate" : "an estimate";
}

}  // namespace docx
