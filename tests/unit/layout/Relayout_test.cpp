#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "hosts/docx/WordProcessor.h"
#include "hosts/docx/layout/DocumentLayout.h"
#include "hosts/docx/layout/LayoutMemory.h"
#include "hosts/docx/model/OpenDocument.h"
#include "platform/word/Application.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Constants.h"
#include "platform/word/Document.h"
#include "platform/word/Fields.h"
#include "platform/word/Format.h"
#include "platform/word/HostError.h"
#include "platform/word/Range.h"
#include "tests/unit/layout/RandomContract.h"
#include "tests/unit/layout/Told.h"

namespace {

using docx::Position;
using docx::layout::DocumentLayout;
using docx::layout::LayoutMemory;

class NoFile : public docx::DocumentFile {
 public:
  void Save(const Current&) override {}
  void SaveAs(std::u16string_view, const docx::Package&) override {}
};

/// A document that is edited at random, and laid out after each edit with and without what the last layout left.
class Edited {
 public:
  Edited(std::unique_ptr<docx::Package> package, unsigned seed) : random_(seed), lastBreaks_(Chance(2)) {
    processor_.Open(std::move(package), {.name = u"edited.docx", .path = u"", .pages = docx::PageSource::kLayout},
                    file_);
  }

  /// @return what was done
  std::string Edit() {
    try {
      return Try();
    } catch (const word::HostError&) {
      return "refused";
    }
  }

  void Compare(const std::string& context) {
    auto layout = std::make_unique<DocumentLayout>(Parts(), lastBreaks_, &memory_);
    const DocumentLayout afresh(Parts(), lastBreaks_);
    const std::string told = laid::Told(*layout);
    ExpectEqual(told, laid::Told(afresh), context);
    // Whoever has a layout still draws what it was.
    if (kept_ != nullptr) ExpectEqual(laid::Told(*kept_), keptTold_, context + ", of the layout before");
    if (Chance(4)) kept_.reset();
    if (Chance(4)) {
      kept_ = std::move(layout);
      keptTold_ = told;
    }
  }

 private:
  static void ExpectEqual(const std::string& one, const std::string& other, const std::string& context) {
    if (one == other) return;
    std::istringstream first(one);
    std::istringstream second(other);
    std::string a;
    std::string b;
    while (a == b && std::getline(first, a) && std::getline(second, b)) {
    }
    ADD_FAILURE() << context << "\n" << a << "\n" << b;
  }

  docx::DocumentParts& Parts() { return processor_.Document()->Parts(); }
  int Below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
  bool Chance(int oneIn) { return Below(oneIn) == 0; }

  docx::Story& AnyStory() {
    const auto& notes = Parts().Stories(Chance(2) ? word::wdFootnotesStory : word::wdEndnotesStory);
    return Chance(6) && !notes.empty() ? *notes.front() : Parts().Main();
  }

  std::string Try() {
    docx::OpenDocument& document = *processor_.Document();
    document.BeforeChange("Edited");
    docx::Story& story = AnyStory();
    const Position a = Below(story.Length());
    const Position b = std::min<Position>(a + Below(Chance(10) ? 2000 : 30), story.Length() - 1);
    switch (Below(15)) {
      case 0:
      case 1:
        story.InsertText(a, Chance(2) ? u"words that were added, " : u"a");
        return "insert";
      case 2:
        story.InsertText(a, Chance(2) ? u"\r" : u"end\rbegin");
        return "divide";
      case 3:
        story.InsertText(a, Chance(2) ? u"\t" : u"\v");
        return "tab or break";
      case 4:
      case 5:
        story.InsertField(a, u" XE \"entry\" ");
        return "entry";
      case 6:
        ++ids_;
        story.InsertBookmark(a, b, "b" + std::to_string(ids_), ids_);
        return "bookmark";
      case 7:
      case 8:
        story.Erase(a, b);
        return "erase";
      case 9:
        return Undone(story, a);
      case 10:
      case 11:
        return Formatted(story.Type(), a, b);
      case 12:
        return Indexed();
      case 13: {
        const std::u16string text = Parts().Main().Text(0, Parts().Main().Length());
        const std::size_t note = text.find(u'\x02', static_cast<std::size_t>(Below(Parts().Main().Length())));
        if (note == std::u16string::npos) return "no note";
        Parts().Main().Erase(static_cast<Position>(note), static_cast<Position>(note) + 1);
        return "note";
      }
      default:
        return Stated();
    }
  }

  std::string Undone(docx::Story& story, Position at) {
    const Position before = story.Length();
    story.InsertText(at, u"done ");
    Compare("before it is undone");
    story.Erase(at, at + story.Length() - before);
    return "undo";
  }

  std::string Formatted(int storyType, Position a, Position b) {
    const word::StoryRangesPtr stories = processor_.Application()->ActiveDocument()->StoryRanges();
    for (int i = 1; i <= stories->Count(); ++i) {
      const word::RangePtr range = stories->Item(i);
      if (range->StoryType() != storyType) continue;
      range->SetRange(a, b);
      switch (Below(4)) {
        case 0:
          range->SetHighlightColorIndex(Chance(2) ? word::wdYellow : word::wdNoHighlight);
          break;
        case 1:
          range->Font()->SetBold(Chance(2) ? 1 : 0);
          break;
        case 2:
          range->ParagraphFormat()->SetSpaceAfter(Below(20));
          break;
        default:
          range->ParagraphFormat()->SetAlignment(Below(3));
      }
    }
    return "format";
  }

  std::string Indexed() {
    const word::DocumentPtr document = processor_.Application()->ActiveDocument();
    const word::FieldsPtr fields = document->Fields();
    for (int i = 1; i <= fields->Count(); ++i) {
      const word::FieldPtr field = fields->Item(i);
      if (field->Type() != word::wdFieldIndex) continue;
      if (Chance(2)) {
        field->Update();
        return "update";
      }
      field->Delete();
      return "no index";
    }
    const Position at = Below(Parts().Main().Length());
    fields->Add(document->Range(at, at),
                {.Type = word::wdFieldIndex, .Text = Chance(2) ? u"INDEX" : u"INDEX \\c \"2\""});
    return "index";
  }

  /// Changes what is said for many: a style, a list, the page.
  std::string Stated() {
    switch (Below(6)) {
      case 0:
        return Set(Parts().Related("/styles"), "style", "spacing", "after", std::to_string(Below(300)));
      case 1:
        return Set(Parts().Related("/numbering"), "lvl", "ind", "left", std::to_string(Below(1500)));
      case 2: {
        docx::XmlPart& part = Parts().MainPart();
        const docx::XmlNode body = part.Child(part.Root(), docx::Tag::kBody);
        const docx::XmlNode margins = part.Child(part.Child(body, docx::Tag::kSectPr), "pgMar");
        if (!margins) return "no margins";
        part.SetAttribute(margins, "left", std::to_string(500 + Below(1200)));
        return "margin";
      }
      default:
        return "nothing";
    }
  }
  static std::string Set(docx::XmlPart* part, const char* of, const char* element, const char* attribute,
                         const std::string& value) {
    if (part == nullptr) return "no part";
    std::vector<docx::XmlNode> open{part->Root()};
    while (!open.empty()) {
      const docx::XmlNode node = open.back();
      open.pop_back();
      for (const docx::XmlNode child : node.Children()) open.push_back(child);
      const docx::XmlNode stated = part->Child(part->Child(node, docx::Tag::kPPr), std::string_view(element));
      if (!stated || !node.Is(part->Name(std::string_view(of)))) continue;
      part->SetAttribute(stated, std::string_view(attribute), value);
      return "style or list";
    }
    return "no style";
  }

  std::mt19937 random_;
  bool lastBreaks_;
  NoFile file_;
  docx::WordProcessor processor_;
  LayoutMemory memory_;
  std::unique_ptr<DocumentLayout> kept_;
  std::string keptTold_;
  int ids_{1000};
};

/// A number from the environment, for runs by hand.
int Stated(const char* name, int otherwise) {
  const char* value = std::getenv(name);
  return value == nullptr ? otherwise : std::atoi(value);
}

void EditAndCompare(Edited& edited, int edits, const std::string& name) {
  edited.Compare(name);
  std::string done;
  for (int edit = 1; edit <= edits && !testing::Test::HasFailure(); ++edit) {
    done += ' ' + edited.Edit();
    edited.Compare(name + ", behind:" + done);
  }
}

TEST(Relayout, AfterAnyEditsIsWhatALayoutFromNothingIs) {
  for (int seed = 1; seed <= Stated("KVX_RELAYOUT_DOCUMENTS", 10) && !HasFailure(); ++seed) {
    std::mt19937 random(static_cast<unsigned>(seed));
    Edited edited(laid::RandomContract(random), static_cast<unsigned>(seed));
    EditAndCompare(edited, Stated("KVX_RELAYOUT_EDITS", 12), "seed " + std::to_string(seed));
  }
}

TEST(Relayout, OfFilesIsWhatALayoutFromNothingIs) {
  // Others are given with a colon between them.
  std::string files = std::string(KVX_SAMPLES) + "/mutual_nda.docx:" + KVX_SAMPLES + "/awkward_licence.docx";
  if (const char* stated = std::getenv("KVX_RELAYOUT_FILES")) files = stated;
  std::istringstream names(files);
  for (std::string name; std::getline(names, name, ':') && !HasFailure();) {
    Edited edited(docx::Package::Open(std::filesystem::path(name)), 1);
    EditAndCompare(edited, Stated("KVX_RELAYOUT_EDITS", 12), name);
  }
}

}  // namespace
