#include "tests/unit/package/RawZip.h"

#include <zlib.h>

#include <new>

namespace {

std::string Deflate(std::string_view content) {
  z_stream stream{};
  if (deflateInit2(&stream, 6, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY) != Z_OK) throw std::bad_alloc();
  std::string packed(deflateBound(&stream, static_cast<uLong>(content.size())), '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(content.data()));
  stream.avail_in = static_cast<uInt>(content.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  deflate(&stream, Z_FINISH);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

void Put(std::string& bytes, std::uint64_t value, int size) {
  for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i));
}

std::uint32_t Get(std::string_view bytes, std::size_t at, int size) {
  std::uint32_t value = 0;
  for (int i = size - 1; i >= 0; --i) {
    value = value << 8 | static_cast<unsigned char>(bytes.at(at + static_cast<std::size_t>(i)));
  }
  return value;
}

}  // namespace

RawZip::Entry RawZip::Pack(Part part) {
  const auto size = static_cast<std::uint32_t>(part.content.size());
  const auto checksum = static_cast<std::uint32_t>(crc32(0, reinterpret_cast<const Bytef*>(part.content.data()), size));
  if (part.deflated) part.content = Deflate(part.content);
  return {std::move(part), size, checksum};
}

RawZip& RawZip::Add(const Part& part) {
  entries_.push_back(Pack(part));
  return *this;
}

RawZip& RawZip::AddCopies(const Part& part, std::size_t count) {
  const Entry packed = Pack(part);
  for (std::size_t i = 0; i < count; ++i) entries_.emplace_back(packed).part.name += std::to_string(i);
  return *this;
}

std::vector<std::byte> RawZip::Bytes() const {
  std::string local;
  std::string central;
  for (const auto& [part, size, checksum] : entries_) {
    const std::string& packed = part.content;
    std::string common;
    Put(common, 20, 2);  // version needed
    Put(common, part.flags, 2);
    Put(common, part.deflated ? 8 : 0, 2);
    Put(common, part.dosTime, 2);
    Put(common, part.dosDate, 2);
    Put(common, checksum + part.checksumLie, 4);
    Put(common, packed.size() + static_cast<std::uint64_t>(part.packedSizeLie), 4);
    Put(common, size + static_cast<std::uint64_t>(part.sizeLie), 4);
    Put(common, part.name.size(), 2);
    Put(common, 0, 2);  // no extra field

    central += "PK\1\2";
    Put(central, 20, 2);  // version made by
    central += common;
    Put(central, 0, 6);  // comment, disk, attributes
    Put(central, 0, 4);
    Put(central, local.size(), 4);
    central += part.name;

    local += "PK\3\4" + common + part.name + packed;
  }
  std::string bytes = local + central + "PK\5\6";
  Put(bytes, 0, 4);
  Put(bytes, entries_.size() & 0xFFFF, 2);
  Put(bytes, entries_.size() & 0xFFFF, 2);
  Put(bytes, central.size(), 4);
  Put(bytes, local.size(), 4);
  Put(bytes, 0, 2);
  const auto* const data = reinterpret_cast<const std::byte*>(bytes.data());
  return {data, data + bytes.size()};
}

std::vector<PackedPart> PackedParts(const std::vector<std::byte>& archive) {
  const std::string_view bytes(reinterpret_cast<const char*>(archive.data()), archive.size());
  const std::size_t end = bytes.rfind("PK\5\6");
  const std::size_t count = Get(bytes, end + 10, 2);
  std::size_t at = Get(bytes, end + 16, 4);
  std::vector<PackedPart> parts;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t nameSize = Get(bytes, at + 28, 2);
    const std::size_t local = Get(bytes, at + 42, 4);
    const std::size_t start = local + 30 + Get(bytes, local + 26, 2) + Get(bytes, local + 28, 2);
    parts.push_back({std::string(bytes.substr(at + 46, nameSize)), static_cast<std::uint16_t>(Get(bytes, at + 10, 2)),
                     static_cast<std::uint16_t>(Get(bytes, at + 12, 2)),
                     static_cast<std::uint16_t>(Get(bytes, at + 14, 2)),
                     std::string(bytes.substr(start, Get(bytes, at + 20, 4)))});
    at += 46 + nameSize + Get(bytes, at + 30, 2) + Get(bytes, at + 32, 2);
  }
  return parts;
}

RawZip MinimalDocument(std::string_view contentTypes, std::string_view relationships, std::string_view document) {
  RawZip zip;
  zip.Add("[Content_Types].xml", std::string(contentTypes));
  zip.Add("_rels/.rels", std::string(relationships));
  zip.Add("word/document.xml", std::string(document));
  return zip;
}
