#include "hosts/docx/model/IndexField.h"

#include <algorithm>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "hosts/docx/fields/FieldCode.h"
#include "hosts/docx/fields/IndexContent.h"
#include "hosts/docx/fields/IndexSyntax.h"
#include "hosts/docx/model/SectionBreaks.h"
#include "hosts/docx/styles/IndexStyles.h"
#include "hosts/docx/styles/PropertyContainer.h"
#include "platform/word/Constants.h"

namespace docx {

namespace {

// Word sets the tab this far inside the column.
constexpr int kTabInset = 10;

// An index moves the pages behind it, and other numbers can make it longer. Where they never settle, the last are kept.
constexpr int kMostLayouts = 5;

/// What stands in one paragraph of the result, and where its text went.
struct Written {
  const IndexParagraph* paragraph;
  Position start;
};

bool IsSequence(const std::u16string& code, const std::u16string& name) {
  const FieldCode parsed = ParseFieldCode(code);
  return parsed.keyword == u"SEQ" && !parsed.arguments.empty() && FieldText(parsed.arguments.front()) == name;
}

/// What an index takes its entries from: its bookmark's range, or all.
class Taken {
 public:
  Taken(OpenDocument& document, const IndexOptions& options) : limited_(!options.bookmark.empty()) {
    if (limited_) bookmark_ = document.Bookmarks().Find(options.bookmark);
  }

  bool Holds(const Story& story, const FieldSpan& field) const {
    if (!limited_) return true;
    return bookmark_ != nullptr && bookmark_->story == &story && BookmarkIndex::Start(*bookmark_) <= field.begin &&
           field.Behind() <= BookmarkIndex::End(*bookmark_);
  }

 private:
  bool limited_;
  const BookmarkIndex::Mark* bookmark_{nullptr};
};

/// An entry that stands for a bookmark's range has the pages of that; without the bookmark its own.
/// @param before the one before it, which mostly stands on the same page; nullptr for none
void SetPages(IndexEntry& entry, const IndexEntry* before, OpenDocument& document, const Story& story,
              Position position) {
  Paginator& pages = document.Pages();
  const std::u16string& name = entry.mark->rangeBookmark;
  const BookmarkIndex::Mark* range = name.empty() ? nullptr : document.Bookmarks().Find(name);
  entry.page = pages.PageOf(story, position);
  if (range != nullptr) {
    const Position start = BookmarkIndex::Start(*range);
    entry.page = pages.PageOf(*range->story, start);
    entry.lastPage = pages.PageOf(*range->story, std::max(start, BookmarkIndex::End(*range) - 1));
    entry.lastLabel = pages.LabelOf(entry.lastPage);
  }
  entry.label = before != nullptr && before->page == entry.page ? before->label : pages.LabelOf(entry.page);
}

/// Every entry of the text and its notes that the index may list, in document order. What a tracked deletion holds is
/// gone. A sequence counts in the main text.
class Entries {
 public:
  Entries(OpenDocument& document, const IndexOptions& options) : document_(document) {
    const Taken taken(document, options);
    for (const int type : {word::wdMainTextStory, word::wdFootnotesStory, word::wdEndnotesStory}) {
      for (const auto& story : document.Parts().Stories(type)) Collect(*story, options, taken);
    }
  }

  /// To be told what was inserted into the main text, or, below 0, removed from it, right behind a position.
  void Move(Position behind, Position inserted) {
    for (Entry& entry : entries_) {
      if (entry.story->Type() == word::wdMainTextStory && entry.begin >= behind) entry.begin += inserted;
    }
  }

  /// Whether their pages are those of their own places, all of them before a position of the main text.
  bool StandBefore(Position position) const {
    return std::all_of(entries_.begin(), entries_.end(), [&](const Entry& entry) {
      return entry.story->Type() == word::wdMainTextStory && entry.begin < position &&
             entry.mark->rangeBookmark.empty();
    });
  }

  /// With the pages that they have now.
  std::vector<IndexEntry> Paged() const {
    std::vector<IndexEntry> paged;
    paged.reserve(entries_.size());
    for (const Entry& entry : entries_) {
      const bool isFirst = paged.empty();
      IndexEntry& made = paged.emplace_back(IndexEntry{.mark = entry.mark, .page = 1, .label = {}});
      SetPages(made, isFirst ? nullptr : &paged[paged.size() - 2], document_, *entry.story, entry.begin);
      made.sequence = entry.sequence;
    }
    return paged;
  }

 private:
  struct Entry {
    std::shared_ptr<const IndexMark> mark;
    const Story* story;
    Position begin;
    std::u16string sequence;
  };

  void Collect(const Story& story, const IndexOptions& options, const Taken& taken) {
    const AtomSequence& atoms = story.Atoms();
    std::u16string sequence;
    for (const FieldSpan& field : AllFields(atoms)) {
      if (atoms.Get(atoms.At(field.begin)).deleted) continue;
      const std::u16string code = FieldCodeText(story, field);
      if (!options.sequence.empty() && IsSequence(code, options.sequence) && field.HasResult()) {
        sequence = story.Text(field.separator + 1, field.end);
      }
      const std::shared_ptr<const IndexMark>& mark = MarkOf(code);
      if (mark != nullptr && taken.Holds(story, field)) entries_.push_back({mark, &story, field.begin, sequence});
    }
  }

  /// Thousands of entries have few codes. @return nullptr for the code of another field
  const std::shared_ptr<const IndexMark>& MarkOf(const std::u16string& code) {
    const auto [known, isNew] = marks_.try_emplace(code);
    if (isNew && FieldType(code) == word::wdFieldIndexEntry) {
      known->second = std::make_shared<const IndexMark>(ParseIndexEntry(code));
    }
    return known->second;
  }

  OpenDocument& document_;
  std::unordered_map<std::u16string, std::shared_ptr<const IndexMark>> marks_;
  std::vector<Entry> entries_;
};

/// Where no section can begin, and a row may move as a whole.
bool IsInTable(const Story& main, Position position) {
  XmlNode up = main.ParagraphAt(position);
  while (up && !main.Part().Is(up, Tag::kTc)) up = up.Parent();
  return !up.Empty();
}

/// Whether the result of an index will leave the pages of its entries as they are.
bool PagesHold(OpenDocument& document, const FieldSpan& field, const IndexOptions& options, const Entries& entries) {
  if (!document.Pages().HoldsBefore()) return false;
  const Story& main = document.Parts().Main();
  if (IsInTable(main, field.begin)) return false;
  if (options.columns == 0) return entries.StandBefore(main.ParagraphStart(field.begin));
  // Only there a section of its own ends what stood before it, and leaves that its properties.
  if (!main.Part().Is(main.ParagraphAt(field.begin).Parent(), Tag::kBody)) return false;
  const bool endsParagraph = main.ParagraphEnd(field.begin) == field.Behind() + 1;
  return entries.StandBefore(endsParagraph ? field.begin : main.ParagraphStart(field.begin));
}

/// The style and the right tab that Word gives each paragraph of an index, and nothing else but a section's end and
/// that it is a tracked insertion. A heading stays with the entry below it.
void FormatParagraph(XmlPart& part, XmlNode paragraph, const std::string& style, bool heading, int tabPosition) {
  XmlNode given = part.Child(paragraph, Tag::kPPr);
  XmlNode properties = paragraph.PrependChild(part.Name("pPr"));
  part.SetAttribute(properties.AppendChild(part.Name("pStyle")), "val", style.c_str());
  if (heading) properties.AppendChild(part.Name("keepNext"));
  XmlNode tab = properties.AppendChild(part.Name("tabs")).AppendChild(part.Name("tab"));
  part.SetAttribute(tab, "val", "right");
  part.SetAttribute(tab, "leader", "dot");
  part.SetAttribute(tab, "pos", std::to_string(tabPosition).c_str());
  if (!given) return;
  if (const XmlNode insertion = part.Child(part.Child(given, Tag::kRPr), Tag::kIns)) {
    properties.AppendChild(part.Name("rPr")).AppendMove(insertion);
  }
  if (const XmlNode section = part.Child(given, Tag::kSectPr)) properties.AppendMove(section);
  paragraph.RemoveChild(given);
}

std::u16string TextOf(const IndexParagraph& paragraph) {
  std::u16string text;
  for (const IndexRun& run : paragraph.runs) text += run.text;
  return text;
}

/// What stands beside it, such as the field's end mark, lends it nothing.
void FormatRuns(Story& main, const Written& written) {
  Position at = written.start;
  const auto length = static_cast<Position>(TextOf(*written.paragraph).size());
  for (XmlNode run : main.IsolateRuns(at, at + length)) run.RemoveChild(main.Part().Name("rPr"));
  for (const IndexRun& run : written.paragraph->runs) {
    const Position end = at + static_cast<Position>(run.text.size());
    if (run.bold || run.italic) {
      for (const XmlNode node : main.IsolateRuns(at, end)) {
        PropertyContainer properties = PropertyContainer::OfRun(main.Part(), node);
        if (run.bold) properties.Ensure("b");
        if (run.italic) properties.Ensure("i");
      }
    }
    at = end;
  }
}

/// Takes the result away, and the sections that were made for it. @return the field as it is then
FieldSpan RemoveResult(Story& main, const FieldSpan& field) {
  if (!field.HasResult()) return field;
  const Position firstMark = main.ParagraphEnd(field.begin) - 1;
  if (firstMark < field.end && main.Text(firstMark, firstMark + 1).front() == word::kPageBreak) {
    OpenSection(main, firstMark, field.end);
  }
  main.Erase(field.separator, field.end);
  return {field.begin, field.separator, field.separator};
}

/// The paragraph that a section of the index's own begins behind. Its properties are those of the paragraph that the
/// index was put into, which may have been given others since.
class OpeningParagraph {
 public:
  OpeningParagraph(const Story& main, const FieldSpan& field) : part_(main.Part()) {
    const XmlNode properties = part_.Child(main.ParagraphAt(field.begin), Tag::kPPr);
    const bool isOwn = field.HasResult() && part_.Child(properties, Tag::kSectPr);
    if (!isOwn) return;
    XmlNode paragraph = properties.Parent();
    kept_ = paragraph.InsertCopyAfter(properties, properties);
    kept_.RemoveChild(part_.Name("sectPr"));
    paragraph.RemoveChild(kept_);
  }

  /// Gives the paragraph the properties that it had, besides the section's.
  void PutBack(const Story& main, Position begin) const {
    XmlNode properties = part_.Child(main.ParagraphAt(begin), Tag::kPPr);
    const XmlNode section = part_.Child(properties, Tag::kSectPr);
    if (!kept_ || !section) return;
    while (properties.FirstChild() != section) properties.RemoveChild(properties.FirstChild());
    for (const XmlNode property : kept_.Children()) properties.InsertCopyBefore(property, section);
  }

 private:
  XmlPart& part_;
  XmlNode kept_;  // in no tree
};

/// The bookmarks that begin right before a field's end mark, as that of a list behind an index does. A new result would
/// come to stand inside of them.
std::vector<std::u16string> BookmarksFrom(OpenDocument& document, const Story& main, Position endMark) {
  std::vector<std::u16string> names;
  const BookmarkIndex& bookmarks = document.Bookmarks();
  for (int number = 0; number < bookmarks.Count(); ++number) {
    const BookmarkIndex::Mark& mark = bookmarks.Item(number);
    if (mark.story == &main && BookmarkIndex::Start(mark) == endMark && BookmarkIndex::End(mark) > endMark) {
      names.push_back(mark.name);
    }
  }
  return names;
}

void MoveStarts(OpenDocument& document, Story& main, const std::vector<std::u16string>& names, Position to) {
  for (const std::u16string& name : names) {
    main.MoveBookmarkMark(document.Bookmarks().Find(name)->first, to);
  }
}

/// A field's result is inserted as the field itself was: whoever refuses the insertion shall not be left with the one
/// without the other. @return nullptr for a field that no tracked insertion holds
const Tracking* TrackingOf(OpenDocument& document, const Story& main, const FieldSpan& field) {
  const XmlPart& part = main.Part();
  for (XmlNode up = main.RunAt(field.begin); up && !part.Is(up, Tag::kP); up = up.Parent()) {
    if (part.Is(up, Tag::kIns)) return &document.Revisions().Own();
  }
  return nullptr;
}

/// Gives a field without a result one.
void WriteResult(OpenDocument& document, const FieldSpan& field, const IndexOptions& options,
                 const std::vector<IndexParagraph>& content) {
  Story& main = document.Parts().Main();
  XmlPart& part = main.Part();
  const bool ownParagraphs = options.columns > 0;
  const bool ownSection = ownParagraphs && !IsInTable(main, field.begin);
  const Tracking* tracked = TrackingOf(document, main, field);

  main.InsertFieldSeparator(field.end, tracked);
  Position at = field.end + 1;
  const Position firstMark = at;
  if (ownParagraphs) main.InsertText(at++, std::u16string_view(&word::kParagraphMark, 1), tracked);
  std::vector<Written> written;
  for (const IndexParagraph& paragraph : content) {
    const std::u16string text = TextOf(paragraph) + word::kParagraphMark;
    main.InsertText(at, text, tracked);
    written.push_back({&paragraph, at});
    at += static_cast<Position>(text.size());
  }
  if (ownSection && !written.empty()) EncloseInSection(main, firstMark, at - 1, options.columns, tracked);

  const int tab = ColumnWidth(part, SectionAt(main, written.front().start)) - kTabInset;
  for (const Written& each : written) {
    const bool heading = each.paragraph->heading;
    // What follows a heading, which the heading's style names, has to be there first.
    if (heading) document.Parts().EnsureIndexStyle(1);
    const std::string style = document.Parts().EnsureIndexStyle(heading ? kIndexHeadingLevel : each.paragraph->level);
    FormatParagraph(part, main.ParagraphAt(each.start), style, heading, tab);
    FormatRuns(main, each);
  }
  part.Touch();
}

}  // namespace

void UpdateIndexField(OpenDocument& document, const FieldSpan& given) {
  constexpr const char* kMember = "Field.Update";
  Story& main = document.Parts().Main();
  main.ResolveSimpleField(given.begin);
  const OpeningParagraph opening(main, given);
  const std::vector<std::u16string> behind = BookmarksFrom(document, main, given.end);
  const auto written = [&](Position begin) { return *FieldAt(main.Atoms(), main.Atoms().At(begin)); };
  FieldSpan field = RemoveResult(main, given);
  const IndexOptions options = ParseIndexOptions(FieldCodeText(main, field));
  Entries entries(document, options);
  std::vector<IndexParagraph> content = BuildIndexContent(entries.Paged(), options);
  const bool holds = PagesHold(document, field, options, entries);
  for (int layouts = 1;; ++layouts) {
    document.BeforeChange(kMember);
    const Position without = main.Length();
    WriteResult(document, field, options, content);
    opening.PutBack(main, field.begin);
    if (holds || layouts == kMostLayouts) break;
    entries.Move(field.end, main.Length() - without);
    std::vector<IndexParagraph> settled = BuildIndexContent(entries.Paged(), options);
    if (settled == content) break;
    content = std::move(settled);
    const FieldSpan last = written(field.begin);
    const Position with = main.Length();
    field = RemoveResult(main, last);
    entries.Move(last.end, main.Length() - with);
  }
  MoveStarts(document, main, behind, written(field.begin).end);
}

void DeleteIndexField(OpenDocument& document, const FieldSpan& given) {
  Story& main = document.Parts().Main();
  main.ResolveSimpleField(given.begin);
  const FieldSpan field = RemoveResult(main, given);
  main.Erase(field.begin, field.Behind());
  document.Parts().RemoveAddedIndexStyles();
}

}  // namespace docx
