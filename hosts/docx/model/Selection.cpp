#include <utility>

#include "hosts/docx/model/DocumentProxies.h"
#include "hosts/docx/model/RangeProxy.h"

namespace docx {

namespace {

/// Tables that a stretch lies in or touches: those around its start, and those that begin inside it.
int CountTables(const Story& story, Position start, Position end) {
  const XmlPart& part = story.Part();
  const AtomSequence& atoms = story.Atoms();
  int count = 0;
  XmlNode last;
  AtomSequence::Place place = atoms.At(start);
  do {
    for (XmlNode node = atoms.Get(place).Node(); node; node = node.Parent()) {
      if (!part.Is(node, Tag::kTbl)) continue;
      if (node != last) ++count;
      last = node;
      break;
    }
    place = atoms.Next(place);
  } while (!atoms.IsEnd(place) && place.start < end);
  return count;
}

class TablesProxy : public word::Tables {
 public:
  explicit TablesProxy(int count) : count_(count) {}
  int Count() const override { return count_; }

 private:
  int count_;
};

class SelectionProxy : public word::Selection {
 public:
  explicit SelectionProxy(std::weak_ptr<OpenDocument> document) : document_(std::move(document)) {}

  word::RangePtr Range() const override {
    const std::shared_ptr<OpenDocument> document = Lock(document_, "Selection.Range");
    const Anchor& anchor = document->Selection();
    return RangeProxy::Make(document, *anchor.Of(), anchor.start, anchor.end);
  }

  word::TablesPtr Tables() const override {
    const std::shared_ptr<OpenDocument> document = Lock(document_, "Selection.Tables");
    const Anchor& anchor = document->Selection();
    return std::make_shared<TablesProxy>(CountTables(*anchor.Of(), anchor.start, anchor.end));
  }

  void Collapse(word::WdCollapseDirection direction) override {
    Anchor& anchor = Lock(document_, "Selection.Collapse")->Selection();
    (direction == word::wdCollapseStart ? anchor.end : anchor.start) =
        direction == word::wdCollapseStart ? anchor.start : anchor.end;
  }

  void HomeKey(word::WdUnits unit) override {
    Anchor& anchor = Lock(document_, "Selection.HomeKey")->Selection();
    if (unit != word::wdStory) {
      throw word::HostError(word::kCommandFailed, u"Only the start of a story can be gone to.", "Selection.HomeKey");
    }
    anchor.start = anchor.end = 0;
  }

  void GoTo(const word::GoToArguments& arguments) override {
    const std::shared_ptr<OpenDocument> document = Lock(document_, "Selection.GoTo");
    if (arguments.What == word::wdGoToPage) {
      document->Select(document->Parts().Main(), 0, 0);
      return;
    }
    const BookmarkIndex::Mark* mark = document->Bookmarks().Find(arguments.Name);
    if (mark == nullptr) {
      throw word::HostError(word::kBookmarkDoesNotExist, u"This bookmark does not exist.", "Selection.GoTo");
    }
    document->Select(*mark->story, BookmarkIndex::Start(*mark), BookmarkIndex::End(*mark));
  }

 private:
  std::weak_ptr<OpenDocument> document_;
};

}  // namespace

word::SelectionPtr MakeSelection(const std::shared_ptr<OpenDocument>& document) {
  return std::make_shared<SelectionProxy>(document);
}

}  // namespace docx
