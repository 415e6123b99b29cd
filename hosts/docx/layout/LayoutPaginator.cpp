#include "hosts/docx/layout/LayoutPaginator.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "hosts/docx/layout/DocumentLayout.h"
#include "hosts/docx/pages/PageTable.h"
#include "platform/word/Constants.h"

namespace docx::layout {

namespace {

class LayoutPaginator : public PageTable {
 public:
  LayoutPaginator(DocumentParts& parts, bool lastBreaks, bool kept) {
    auto made = std::make_shared<DocumentLayout>(parts, lastBreaks);
    const DocumentLayout& layout = *made;
    if (kept) layout_ = std::move(made);
    keptLastBreaks_ = layout.KeptLastBreaks();
    count_ = layout.PageCount();
    numberings_ = layout.Numberings();
    for (const PageFiller::Placed& placed : layout.Placed()) {
      if (placed.repeated || placed.position < 0) continue;
      (placed.endnote ? endnotes_ : main_).push_back({placed.position, placed.page});
    }
    Compress(main_);
    Compress(endnotes_);
    const std::vector<std::unique_ptr<Story>>& footnotes = parts.Stories(word::wdFootnotesStory);
    if (footnotes.empty()) return;
    NotePages pages;
    const XmlPart& part = parts.MainPart();
    for (const auto& [reference, page] : layout.NotePages()) {
      const XmlNode node(const_cast<XmlNodeData*>(reference));
      if (part.Is(node, Tag::kFootnoteReference)) pages.emplace(NoteId(part, node), page);
    }
    footnotes_ = PlaceNotes(*footnotes.front(), pages);
  }

  std::string Basis() const override { return keptLastBreaks_ ? "layout and breaks that Word left" : "layout"; }

  std::shared_ptr<const DocumentLayout> Layout() const override { return layout_; }

 private:
  static void Compress(std::vector<PageStart>& starts) {
    std::stable_sort(starts.begin(), starts.end(),
                     [](const PageStart& a, const PageStart& b) { return a.position < b.position; });
    std::vector<PageStart> kept;
    for (const PageStart& start : starts) {
      if (!kept.empty() && kept.back().page == start.page) continue;
      kept.push_back(start);
    }
    starts = std::move(kept);
  }

  bool keptLastBreaks_{false};
  std::shared_ptr<const DocumentLayout> layout_;
};

}  // namespace

std::unique_ptr<Paginator> MakeLayoutPaginator(DocumentParts& parts, bool lastBreaks, bool kept) {
  return std::make_unique<LayoutPaginator>(parts, lastBreaks, kept);
}

}  // namespace docx::layout
