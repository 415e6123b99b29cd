#include "hosts/docx/pages/Paginator.h"

#include "hosts/docx/layout/LayoutPaginator.h"
#include "hosts/docx/pages/FilePaginator.h"

namespace docx {

std::unique_ptr<Paginator> MakePaginator(DocumentParts& parts, PageSource source) {
  switch (source) {
    case PageSource::kAuto:
    case PageSource::kLayout:
      return layout::MakeLayoutPaginator(parts);
    case PageSource::kFile:
      break;
  }
  return std::make_unique<FilePaginator>(parts);
}

}  // namespace docx
