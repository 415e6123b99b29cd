#include "hosts/docx/layout/LayoutPaginator.h"

#include <string>
#include <utility>

#include "hosts/docx/layout/DocumentLayout.h"
#include "hosts/docx/pages/PageTable.h"
#include "platform/word/Constants.h"

namespace docx::layout {

namespace {

class LayoutPaginator : public PageTable {
 public:
  LayoutPaginator(DocumentParts& parts, bool lastBreaks, bool kept, LayoutMemory& memory) {
    auto made = std::make_shared<DocumentLayout>(parts, lastBreaks, &memory);
    const DocumentLayout& layout = *made;
    if (kept) layout_ = std::move(made);
    keptLastBreaks_ = layout.KeptLastBreaks();
    count_ = layout.PageCount();
    numberings_ = layout.Numberings();
    // What is counted is what is drawn.
    main_ = layout.Starts(word::wdMainTextStory);
    footnotes_ = layout.Starts(word::wdFootnotesStory);
    endnotes_ = layout.Starts(word::wdEndnotesStory);
  }

  std::string Basis() const override { return keptLastBreaks_ ? "layout and breaks that Word left" : "layout"; }

  std::shared_ptr<const DocumentLayout> Layout() const override { return layout_; }

 private:
  bool keptLastBreaks_{false};
  std::shared_ptr<const DocumentLayout> layout_;
};

}  // namespace

std::unique_ptr<Paginator> MakeLayoutPaginator(DocumentParts& parts, bool lastBreaks, bool kept, LayoutMemory& memory) {
  return std::make_unique<LayoutPaginator>(parts, lastBreaks, kept, memory);
}

}  // namespace docx::layout
