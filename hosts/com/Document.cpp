#include "platform/word/Document.h"

#include <algorithm>
#include <vector>

#include "hosts/com/Enumeration.h"
#include "hosts/com/Objects.h"
#include "platform/word/HostError.h"
#include "platform/word/Range.h"

namespace com {

namespace {

/// Word's collection is asked by story type and raises an error for one that the document has not; only its enumeration
/// says which there are. It is taken once, since stories do not come and go during a walk.
class StoryRanges : public Proxied<word::StoryRanges> {
 public:
  using Proxied::Proxied;
  int Count() const override { return static_cast<int>(Stories().size()); }
  word::RangePtr Item(int index) const override {
    if (index < 1 || index > Count()) {
      throw word::HostError(word::kMemberDoesNotExist, u"The requested member of the collection does not exist.",
                            "StoryRanges.Item");
    }
    return Stories()[static_cast<std::size_t>(index) - 1]->Duplicate();
  }

 private:
  const std::vector<word::RangePtr>& Stories() const {
    if (!stories_.empty()) return stories_;
    std::vector<std::pair<int, word::RangePtr>> found;
    for (Dispatch& story : Enumerate(word_, "StoryRanges._NewEnum")) {
      word::RangePtr range = MakeRange(std::move(story));
      const int type = range->StoryType();
      found.emplace_back(type, std::move(range));
    }
    std::stable_sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (auto& [type, range] : found) stories_.push_back(std::move(range));
    return stories_;
  }

  mutable std::vector<word::RangePtr> stories_;
};

class Document : public Proxied<word::Document> {
 public:
  using Proxied::Proxied;
  std::u16string Name() const override { return word_.Text("Document.Name"); }
  std::u16string Path() const override { return word_.Text("Document.Path"); }
  word::StoryRangesPtr StoryRanges() const override {
    return std::make_shared<com::StoryRanges>(word_.Object("Document.StoryRanges"));
  }
  word::BookmarksPtr Bookmarks() const override { return MakeBookmarks(word_.Object("Document.Bookmarks")); }
  word::FieldsPtr Fields() const override { return MakeFields(word_.Object("Document.Fields")); }
  word::WindowPtr ActiveWindow() const override { return MakeWindow(word_.Object("Document.ActiveWindow")); }
  word::RangePtr Range(word::Position start, word::Position end) const override {
    return MakeRange(word_.Object("Document.Range", {start, end}));
  }
  bool ShowGrammaticalErrors() const override { return word_.Bool("Document.ShowGrammaticalErrors"); }
  void SetShowGrammaticalErrors(bool value) override { word_.Put("Document.ShowGrammaticalErrors", value); }
  bool ShowSpellingErrors() const override { return word_.Bool("Document.ShowSpellingErrors"); }
  void SetShowSpellingErrors(bool value) override { word_.Put("Document.ShowSpellingErrors", value); }
  void UndoClear() override { word_.Call("Document.UndoClear"); }
  void Save() override { word_.Call("Document.Save"); }
  void SaveAs(std::u16string_view fileName) override { word_.Call("Document.SaveAs", {fileName}); }
};

}  // namespace

word::DocumentPtr MakeDocument(Dispatch word) { return std::make_shared<Document>(std::move(word)); }

}  // namespace com
