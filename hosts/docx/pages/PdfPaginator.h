#pragma once

#include <string>

#include "hosts/docx/model/DocumentParts.h"
#include "hosts/docx/pages/PageTable.h"

namespace docx {

/// Pages as another word processor lays the document out: a copy gets a bookmark at every paragraph, at every field and
/// here and there within long paragraphs, and one PDF of it tells the pages of all of them. Any other position has the
/// page of the bookmark before it.
///
/// Notes are on the page on which that word processor puts them. Blank pages count when they are in the PDF.
class PdfPaginator : public PageTable {
 public:
  /// @throws word::HostError when there is no PDF of the document
  PdfPaginator(DocumentParts& parts, PdfMaker& maker);

  std::string Basis() const override { return basis_; }

 private:
  void NumberSections(const XmlPart& part, const Story& main);

  std::string basis_;
};

}  // namespace docx
