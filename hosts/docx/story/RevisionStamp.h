#pragma once

#include <functional>
#include <string>

#include "hosts/docx/xml/XmlPart.h"

namespace docx {

/// What a tracked change says of itself.
struct RevisionStamp {
  int id{0};  ///< unique among the document's annotations
  std::string author;
  std::string date;  ///< as ISO 8601 has it, in UTC
};

/// Whose changes are tracked. All changes of a document as long as it is open have one date: what belongs together is
/// one revision.
struct Tracking {
  std::string author;
  std::string date;
  std::function<int()> nextId;

  /// A stamp for a further change.
  RevisionStamp Next() const { return {nextId(), author, date}; }
};

/// Writes into a tracked change what it says of itself.
void Stamp(XmlPart& part, XmlNode revision, const RevisionStamp& stamp);
/// Whether a node is a tracked insertion of that author and date.
bool IsInsertionBy(const XmlPart& part, XmlNode node, const Tracking& tracking);

}  // namespace docx
