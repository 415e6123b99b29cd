#pragma once

#include <memory>
#include <string_view>

#include "hosts/docx/model/OpenDocument.h"
#include "platform/word/HostError.h"

namespace docx {

/// The document that a proxy speaks of. @throws HostError kObjectDeleted after it was closed
inline std::shared_ptr<OpenDocument> Lock(const std::weak_ptr<OpenDocument>& document, std::string_view member) {
  std::shared_ptr<OpenDocument> open = document.lock();
  if (!open) throw word::HostError(word::kObjectDeleted, u"Object has been deleted.", member);
  return open;
}

/// The same for whom it is enough that the document is open.
inline void RequireOpen(const std::weak_ptr<OpenDocument>& document, std::string_view member) {
  if (document.expired()) static_cast<void>(Lock(document, member));
}

[[noreturn]] inline void ThrowNoMember(std::string_view member) {
  throw word::HostError(word::kMemberDoesNotExist, u"The requested member of the collection does not exist.", member);
}

}  // namespace docx
