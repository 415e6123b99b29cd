#include "hosts/docx/package/Deflated.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

namespace docx {

namespace {

/// On WordprocessingML about a tenth larger than the usual 6, in half the time.
constexpr int kLevel = 3;

struct EndDeflate {
  void operator()(z_stream* stream) const { deflateEnd(stream); }
};

struct Reader {
  const std::vector<unsigned char>* bytes;
  const zip_stat_t* stat;
  std::size_t position = 0;
};

}  // namespace

Deflated::Deflated(std::string_view content, std::time_t modified) {
  z_stream stream{};
  // Without zlib's own header, as zip archives have it.
  if (deflateInit2(&stream, kLevel, Z_DEFLATED, -MAX_WBITS, MAX_MEM_LEVEL, Z_DEFAULT_STRATEGY) != Z_OK) {
    throw std::bad_alloc();
  }
  const std::unique_ptr<z_stream, EndDeflate> guard(&stream);
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(content.data()));
  stream.avail_in = static_cast<uInt>(content.size());
  int status = Z_OK;
  while (status != Z_STREAM_END) {
    const std::size_t used = bytes_.size();
    bytes_.resize(used + std::max<std::size_t>(content.size() / 8, 4096));
    stream.next_out = bytes_.data() + used;
    stream.avail_out = static_cast<uInt>(bytes_.size() - used);
    status = deflate(&stream, Z_FINISH);
    bytes_.resize(bytes_.size() - stream.avail_out);
  }

  zip_stat_init(&stat_);
  stat_.size = content.size();
  stat_.comp_size = bytes_.size();
  stat_.crc = Checksum(content);
  stat_.comp_method = ZIP_CM_DEFLATE;
  stat_.encryption_method = ZIP_EM_NONE;
  stat_.mtime = modified;
  stat_.valid = ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_CRC | ZIP_STAT_COMP_METHOD | ZIP_STAT_ENCRYPTION_METHOD |
                ZIP_STAT_MTIME;
}

zip_source_t* Deflated::MakeSource(zip_t* archive) const {
  auto reader = std::make_unique<Reader>(Reader{&bytes_, &stat_});
  zip_source_t* const source = zip_source_function(archive, &Callback, reader.get());
  if (source != nullptr) static_cast<void>(reader.release());
  return source;
}

zip_int64_t Deflated::Callback(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command) {
  auto* const reader = static_cast<Reader*>(self);
  switch (command) {
    case ZIP_SOURCE_OPEN:
      reader->position = 0;
      return 0;
    case ZIP_SOURCE_READ: {
      const std::size_t size = std::min<std::size_t>(length, reader->bytes->size() - reader->position);
      if (size != 0) std::memcpy(data, reader->bytes->data() + reader->position, size);
      reader->position += size;
      return static_cast<zip_int64_t>(size);
    }
    case ZIP_SOURCE_CLOSE:
      return 0;
    case ZIP_SOURCE_STAT:
      std::memcpy(data, reader->stat, sizeof(zip_stat_t));
      return sizeof(zip_stat_t);
    case ZIP_SOURCE_FREE:
      delete reader;
      return 0;
    case ZIP_SOURCE_ERROR: {
      zip_error_t none;
      zip_error_init(&none);
      return zip_error_to_data(&none, data, length);
    }
    case ZIP_SOURCE_SUPPORTS:
      return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                                            ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, ZIP_SOURCE_SUPPORTS, -1);
    default:
      return -1;
  }
}

std::uint32_t Checksum(std::string_view content) {
  return static_cast<std::uint32_t>(
      crc32_z(0, reinterpret_cast<const Bytef*>(content.data()), static_cast<z_size_t>(content.size())));
}

}  // namespace docx
