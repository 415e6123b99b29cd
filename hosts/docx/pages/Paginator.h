#pragma once

#include <memory>
#include <string>

#include "hosts/docx/WordProcessor.h"
#include "hosts/docx/story/Story.h"

namespace docx {

class DocumentParts;

namespace layout {
class DocumentLayout;
class LayoutMemory;
}  // namespace layout

/// The pages of a document as it stood when the paginator was made; any change to its text or page set-up spoils it.
/// Pages count from 1 through the whole document, whatever number is printed on them; blank pages that an odd or even
/// section start leaves count.
class Paginator {
 public:
  Paginator() = default;
  Paginator(const Paginator&) = delete;
  Paginator& operator=(const Paginator&) = delete;
  virtual ~Paginator() = default;

  /// At least 1.
  virtual int PageCount() const = 0;
  /// The page of the character at a position of a story of the document. For footnotes the page of the reference, for
  /// endnotes the page at the end of the document or of the section, wherever the document collects them; 1 in every
  /// other story but the main text.
  virtual int PageOf(const Story& story, Position position) const = 0;
  /// What is printed on a page as its number: in the format and with the restart of the page's section. Plain decimal
  /// for a page that does not exist.
  virtual std::u16string LabelOf(int page) const = 0;
  /// Whether the pages of the main text up to a paragraph's beginning or end stay what they are, whatever is put in
  /// there; the end of a section too, when what is before keeps its section's properties.
  virtual bool HoldsBefore() const { return false; }
  /// What the numbers rest on, as a short English phrase for reports: "an estimate".
  virtual std::string Basis() const = 0;
  /// What the pages look like; nullptr when nobody asked for that, or the pages come from elsewhere.
  virtual std::shared_ptr<const layout::DocumentLayout> Layout() const { return nullptr; }
};

/// Never nullptr. @param parts outlives the paginator @param pdfMaker needed for kPdf only
/// @param drawn the pages will be drawn: a layout is kept
/// @param memory of the paginators of this document; nullptr before the first one, and where there is no layout
/// @throws PackageError when a part that the pages depend on cannot be read
/// @throws word::HostError when there is no PDF
std::unique_ptr<Paginator> MakePaginator(DocumentParts& parts, PageSource source, PdfMaker* pdfMaker, bool drawn,
                                         std::shared_ptr<layout::LayoutMemory>& memory);

}  // namespace docx
