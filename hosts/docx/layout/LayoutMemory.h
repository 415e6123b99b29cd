#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "hosts/docx/layout/BlockMemory.h"
#include "hosts/docx/layout/DocumentFormats.h"
#include "hosts/docx/model/DocumentParts.h"

namespace docx::layout {

/// What one layout of a document leaves for the next: formats, and what each paragraph and table was read into, with
/// the lines of paragraphs. Takes memory for one reading of the document, whatever is done to it.
class LayoutMemory {
 public:
  LayoutMemory() = default;
  LayoutMemory(const LayoutMemory&) = delete;
  LayoutMemory& operator=(const LayoutMemory&) = delete;

  /// Before a document is laid out. @param parts always of the same document @return to be kept as long as the blocks
  /// that are read are
  std::shared_ptr<const std::uint64_t> Begin(DocumentParts& parts);
  /// Behind it. Without this, where an error ended the layout, the next one begins from nothing.
  void End();

  const std::shared_ptr<DocumentFormats>& Formats() const { return formats_; }
  /// Between Begin and End.
  BlockMemory& Blocks(const XmlPart& part);

 private:
  bool FormatsHold(DocumentParts& parts);

  std::shared_ptr<DocumentFormats> formats_;
  /// Parts that formats are read from, and the periods of theirs that began when that was done.
  struct Source {
    const XmlPart* part{nullptr};
    std::uint32_t since{0};
  };
  std::vector<Source> sources_;
  std::map<const XmlPart*, BlockMemory> blocks_;
  std::uint64_t reading_{0};
  std::uint64_t inUse_{0};
  bool ended_{false};
  std::vector<std::weak_ptr<const std::uint64_t>> readings_;
};

}  // namespace docx::layout
