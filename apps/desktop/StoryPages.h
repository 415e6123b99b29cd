#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "hosts/docx/WordProcessor.h"
#include "hosts/docx/layout/Content.h"
#include "hosts/docx/layout/SectionGeometry.h"
#include "hosts/docx/model/OpenDocument.h"
#include "hosts/qt/document/DocumentSource.h"

/// The pages of an open document for its window. What stands on a page is what its paginator says; the lines are the
/// window's own. A snapshot but for the selection and searching: after a change it has to be made anew.
class StoryPages : public qt::DocumentSource {
 public:
  /// @param processor has a document open, and outlives this
  explicit StoryPages(docx::WordProcessor& processor);
  ~StoryPages() override;

  int PageCount() const override;
  std::u16string LabelOf(int page) const override;
  std::string PagesFrom() const override;
  int PageOf(const qt::Place& place) const override;
  qt::PageText TextOf(int page) const override;
  qt::Paper PaperOf(int page) const override;
  Selection Selected() const override;
  void Select(const Selection& selection) override;
  std::optional<Selection> Find(std::u16string_view text, const qt::Place& from, bool forward, bool matchCase) override;
  std::optional<Selection> LinkAt(const qt::Place& place) const override;
  std::u16string CopyText(const Selection& selection) const override;

 private:
  struct Content;
  /// A paragraph and where it stands.
  struct Entry {
    const docx::layout::Paragraph* paragraph{nullptr};
    std::size_t section{0};
    int row{-1};
    int cell{0};
    int cells{1};
  };
  /// The part of a paragraph that a page holds, as units of its text.
  struct Part {
    std::size_t entry{0};
    std::size_t begin{0};
    std::size_t end{0};
  };

  void ReadMain();
  void ReadFootnotes();
  void Flatten(const std::vector<docx::layout::Block>& blocks, int row, int cell, int cells, int story);
  void Divide(std::size_t entry, int story);
  void ReadIndex();
  qt::PageParagraph Show(const Part& part, int story) const;
  qt::TextLook LookOf(int story, word::Position position, const docx::layout::Piece& piece) const;
  static word::Position PositionAt(const docx::layout::Paragraph& paragraph, std::size_t unit);
  bool InIndex(const qt::Place& place) const;

  docx::WordProcessor& processor_;
  std::unique_ptr<Content> content_;
  std::vector<Entry> main_;
  std::vector<Entry> notes_;
  std::vector<docx::layout::SectionGeometry> sections_;
  std::size_t section_{0};
  int rows_{0};
  struct Page {
    std::vector<Part> body;
    std::vector<Part> notes;
    std::size_t section{0};
  };
  std::vector<Page> pages_;  ///< from page 1
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
