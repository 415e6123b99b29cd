#pragma once

#include <string>

namespace docx {

/// What a tracked change says of itself.
struct RevisionStamp {
  int id{0};  ///< unique among the document's annotations
  std::string author;
  std::string date;  ///< as ISO 8601 has it, in UTC
};

}  // namespace docx
