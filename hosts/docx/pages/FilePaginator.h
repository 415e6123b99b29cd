#pragma once

#include <string>

#include "hosts/docx/model/DocumentParts.h"
#include "hosts/docx/pages/PageTable.h"
#include "hosts/docx/pages/PageWalk.h"

namespace docx {

/// Pages by what the file says: the breaks that it states and those that Word left of its last layout
/// (w:lastRenderedPageBreak). A file that has none of the latter gets estimated breaks between the stated ones, and so
/// does an index that Word has not laid out; what follows such an index keeps the breaks that Word left.
///
/// All is computed at once, in time proportional to the document.
class FilePaginator : public PageTable {
 public:
  /// @throws PackageError when a part that the pages depend on cannot be read
  explicit FilePaginator(DocumentParts& parts);

  bool HoldsBefore() const override { return onlyEstimated_; }
  std::string Basis() const override;

 private:
  void PlaceEndnotes(DocumentParts& parts, PageWalk& walk);

  bool stated_{false};
  bool estimated_{false};
  // Without breaks that Word left an estimate goes ahead, and never back. With them what it lays depends on whether
  // there is an index that Word has not laid out.
  bool onlyEstimated_{false};
};

}  // namespace docx
