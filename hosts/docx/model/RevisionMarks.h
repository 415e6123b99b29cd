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

  RevisionMarks(const RevisionMarks&) = delete;
  RevisionMarks& operator=(const RevisionMarks&) = delete;

  /// Changes as this system's own, at the time of SOURCE_DATE_EPOCH when that is set, or else the one at which the
  /// document was opened.
  const Tracking& Own() const { return own_; }
  /// The same where the document says that changes are to be tracked; nullptr elsewhere.
  const Tracking* Wanted() const { return tracking_ ? &own_ : nullptr; }

 private:
  int NextId();
  void CollectIds();

  DocumentParts& parts_;
  bool tracking_{false};
  Tracking own_;
  /// Those in use; empty until one is wanted.
  std::set<int> ids_;
  int last_{0};
};

}  // namespace docx
