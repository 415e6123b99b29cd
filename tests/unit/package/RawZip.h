#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A zip archive put together byte by byte, so that every field may lie.
class RawZip {
 public:
  struct Part {
    std::string name;
    std::string content;
    bool deflated = true;
    std::uint16_t flags = 0;
    /// The date and time that archives start with, 1 January 1980.
    std::uint16_t dosTime = 0;
    std::uint16_t dosDate = 0x21;
    /// Added to what the directory states.
    std::int64_t sizeLie = 0;
    std::int64_t packedSizeLie = 0;
    std::uint32_t checksumLie = 0;
  };

  RawZip& Add(const Part& part);
  RawZip& Add(std::string name, std::string content) {
    return Add(Part{.name = std::move(name), .content = std::move(content)});
  }
  /// The part again and again, a number added to its name; packed once.
  RawZip& AddCopies(const Part& part, std::size_t count);

  std::vector<std::byte> Bytes() const;

 private:
  struct Entry {
    Part part;  // its content is packed
    std::uint32_t size;
    std::uint32_t checksum;
  };
  static Entry Pack(Part part);

  std::vector<Entry> entries_;
};

/// An archive's parts as they lie in it, by its central directory.
struct PackedPart {
  std::string name;
  std::uint16_t method;
  std::uint16_t dosTime;
  std::uint16_t dosDate;
  std::string bytes;

  bool operator==(const PackedPart&) const = default;
};
std::vector<PackedPart> PackedParts(const std::vector<std::byte>& archive);

/// The smallest Word document, and its parts.
inline constexpr std::string_view kContentTypes =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n"
    "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
    "<Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
    "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
    "<Override PartName=\"/word/document.xml\" "
    "ContentType=\"application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml\"/></Types>";
inline constexpr std::string_view kPackageRelationships =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
    "<Relationship Id=\"rId1\" "
    "Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument\" "
    "Target=\"word/document.xml\"/></Relationships>";
inline constexpr std::string_view kDocument =
    "<w:document xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\"><w:body><w:p/></w:body>"
    "</w:document>";

/// Content types, package relationships and main document, ready for more parts.
RawZip MinimalDocument(std::string_view contentTypes = kContentTypes,
                       std::string_view relationships = kPackageRelationships, std::string_view document = kDocument);
