#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "hosts/docx/model/DocumentParts.h"
#include "hosts/docx/pages/PageWalk.h"
#include "hosts/docx/pages/Paginator.h"

namespace docx {

/// Pages by what the file says: the breaks that it states and those that Word left of its last layout
/// (w:lastRenderedPageBreak). A file that has none of the latter gets estimated breaks between the stated ones, and so
/// does an index that Word has not laid out; what follows such an index keeps the breaks that Word left.
///
/// All is computed at once, in time proportional to the document.
class FilePaginator : public Paginator {
 public:
  /// @throws PackageError when a part that the pages depend on cannot be read
  explicit FilePaginator(DocumentParts& parts);

  int PageCount() const override { return count_; }
  int PageOf(const Story& story, Position position) const override;
  std::u16string LabelOf(int page) const override;
  std::string Basis() const override;

 private:
  using NotePages = std::unordered_map<std::string, int>;

  void PlaceFootnotes(const Story& story, const NotePages& pages);
  void PlaceEndnotes(DocumentParts& parts, PageWalk& walk);

  int count_{1};
  std::vector<PageStart> main_;
  std::vector<PageStart> footnotes_;
  std::vector<PageStart> endnotes_;
  std::vector<PageNumbering> numberings_;
  bool stated_{false};
  bool estimated_{false};
};

}  // namespace docx
