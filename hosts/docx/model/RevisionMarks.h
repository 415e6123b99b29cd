#pragma once

#include <set>

#include "hosts/docx/model/DocumentParts.h"
#include "hosts/docx/story/RevisionStamp.h"

namespace docx {

/// The tracking of changes in an open document.
class RevisionMarks {
 public:
  /// @param parts outlive the object
  explicit RevisionMarks(DocumentParts& parts);

  /// Whether the document says that changes are to be tracked.
  bool Tracking() const { return tracking_; }
  /// A stamp for a further change: of this system as the author, at the time of SOURCE_DATE_EPOCH when that is set, or
  /// else now.
  RevisionStamp Next();

 private:
  void CollectIds();

  DocumentParts& parts_;
  bool tracking_{false};
  /// Those in use; empty until one is wanted.
  std::set<int> ids_;
  int last_{0};
};

}  // namespace docx
