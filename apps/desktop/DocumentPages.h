#pragma once

#include <memory>
#include <string>
#include <vector>

#include "hosts/docx/WordProcessor.h"
#include "hosts/docx/model/OpenDocument.h"
#include "hosts/qt/document/DocumentSource.h"

namespace docx::layout {
class DocumentLayout;
}

/// The pages of an open document for its window, as its layout has them. A snapshot but for the selection and
/// searching: after a change it has to be made anew.
class DocumentPages : public qt::DocumentSource {
 public:
  /// @param processor has a document open, and outlives this
  explicit DocumentPages(docx::WordProcessor& processor);
  ~DocumentPages() override;

  int PageCount() const override;
  std::u16string LabelOf(int page) const override;
  std::string PagesFrom() const override;
  int PageOf(const qt::Place& place) const override;
  qt::Paper PaperOf(int page) const override;
  page::Display DrawingOf(int page) const override;
  std::string PictureOf(const std::string& name) const override;
  Selection Selected() const override;
  void Select(const Selection& selection) override;
  std::optional<Selection> Find(std::u16string_view text, const qt::Place& from, bool forward, bool matchCase) override;
  std::optional<Selection> LinkAt(const qt::Place& place) const override;
  std::u16string CopyText(const Selection& selection) const override;

 private:
  void ReadIndex();
  bool InIndex(const qt::Place& place) const;

  docx::WordProcessor& processor_;
  std::shared_ptr<const docx::layout::DocumentLayout> layout_;
  /// Our index in the main text, and the terms marked for it.
  word::Position indexStart_{0};
  word::Position indexEnd_{0};
  struct Marked {
    std::u16string term;
    qt::DocumentSource::Selection place;
    int page{1};
  };
  std::vector<Marked> marked_;
};
