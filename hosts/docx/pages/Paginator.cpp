#include "hosts/docx/pages/Paginator.h"

#include "hosts/docx/pages/FilePaginator.h"
#include "hosts/docx/pages/PdfPaginator.h"

// The layout measures with font libraries that a Windows build has not.
#ifndef _WIN32
#include "hosts/docx/layout/LayoutMemory.h"
#include "hosts/docx/layout/LayoutPaginator.h"
#endif

namespace docx {

std::unique_ptr<Paginator> MakePaginator(DocumentParts& parts, PageSource source, PdfMaker* pdfMaker,
                                         [[maybe_unused]] bool drawn,
                                         [[maybe_unused]] std::shared_ptr<layout::LayoutMemory>& memory) {
  switch (source) {
    case PageSource::kAuto:
    case PageSource::kLayout:
#ifndef _WIN32
      if (memory == nullptr) memory = std::make_shared<layout::LayoutMemory>();
      return layout::MakeLayoutPaginator(parts, source == PageSource::kAuto, drawn, *memory);
#else
      break;
#endif
    case PageSource::kPdf:
      return std::make_unique<PdfPaginator>(parts, *pdfMaker);
    case PageSource::kFile:
      break;
  }
  return std::make_unique<FilePaginator>(parts);
}

}  // namespace docx
