#include "hosts/docx/package/Deflated.h"

#include <libdeflate.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include "hosts/docx/package/Package.h"

namespace docx {

namespace {

/// On WordprocessingML about a sixth larger than the usual 6, in less than half the time.
constexpr int kLevel = 1;

/// Below it a thread costs more than it saves.
constexpr std::size_t kWorthThread = 256 << 10;

struct FreeCompressor {
  void operator()(libdeflate_compressor* compressor) const { libdeflate_free_compressor(compressor); }
};
struct FreeDecompressor {
  void operator()(libdeflate_decompressor* decompressor) const { libdeflate_free_decompressor(decompressor); }
};

template <typename Pointer>
Pointer Allocated(typename Pointer::pointer raw) {
  if (raw == nullptr) throw std::bad_alloc();
  return Pointer(raw);
}

}  // namespace

struct Deflated::Reader {
  std::span<const std::byte> bytes;
  zip_stat_t stat;
  std::size_t position = 0;
};

Deflated::Deflated(std::string text) : size_(text.size()) {
  // Without another thread to be had it is packed when it is asked for.
  const auto policy = size_ < kWorthThread ? std::launch::deferred : std::launch::async | std::launch::deferred;
  const auto shared = std::make_shared<std::string>(std::move(text));
  // The text goes when it is packed, not with what it was packed to.
  packed_ = std::async(policy, [held = shared]() mutable { return Pack(*std::exchange(held, nullptr)); }).share();
  checksum_ = Checksum(*shared);
}

Deflated::Packed Deflated::Pack(std::string_view text) {
  const auto compressor =
      Allocated<std::unique_ptr<libdeflate_compressor, FreeCompressor>>(libdeflate_alloc_compressor(kLevel));
  const std::size_t bound = libdeflate_deflate_compress_bound(compressor.get(), text.size());
  const auto allocate = [](std::size_t size) {
    return Allocated<std::unique_ptr<std::byte, Free>>(static_cast<std::byte*>(std::malloc(size)));
  };
  // Not all of it is touched, and what is not costs nothing.
  Packed packed{.bytes = allocate(bound)};
  packed.size = libdeflate_deflate_compress(compressor.get(), text.data(), text.size(), packed.bytes.get(), bound);
  if (text.size() > kRatioFreeSize && text.size() / kMaxRatio > packed.size) {
    packed = {.bytes = allocate(text.size()), .size = text.size(), .method = ZIP_CM_STORE};
    std::memcpy(packed.bytes.get(), text.data(), text.size());
  } else if (void* const fitting = std::realloc(packed.bytes.get(), packed.size)) {
    static_cast<void>(packed.bytes.release());
    packed.bytes.reset(static_cast<std::byte*>(fitting));
  }
  return packed;
}

std::string Deflated::Content() const {
  const Packed& packed = packed_.get();
  std::string text(size_, '\0');
  if (packed.method == ZIP_CM_STORE) {
    std::memcpy(text.data(), packed.bytes.get(), text.size());
  } else {
    Unpack({packed.bytes.get(), packed.size}, text);
  }
  return text;
}

zip_source_t* Deflated::MakeSource(zip_t* archive, std::time_t modified) const {
  const Packed& packed = packed_.get();
  auto reader = std::make_unique<Reader>();
  reader->bytes = {packed.bytes.get(), packed.size};
  zip_stat_t& stat = reader->stat;
  zip_stat_init(&stat);
  stat.size = size_;
  stat.comp_size = packed.size;
  stat.crc = checksum_;
  stat.comp_method = packed.method;
  stat.encryption_method = ZIP_EM_NONE;
  stat.mtime = modified;
  stat.valid = ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_CRC | ZIP_STAT_COMP_METHOD | ZIP_STAT_ENCRYPTION_METHOD |
               ZIP_STAT_MTIME;
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
      const std::size_t size = std::min<std::size_t>(length, reader->bytes.size() - reader->position);
      if (size != 0) std::memcpy(data, reader->bytes.data() + reader->position, size);
      reader->position += size;
      return static_cast<zip_int64_t>(size);
    }
    case ZIP_SOURCE_CLOSE:
      return 0;
    case ZIP_SOURCE_STAT:
      std::memcpy(data, &reader->stat, sizeof(zip_stat_t));
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

bool Unpack(std::span<const std::byte> packed, std::span<char> text) {
  const auto decompressor =
      Allocated<std::unique_ptr<libdeflate_decompressor, FreeDecompressor>>(libdeflate_alloc_decompressor());
  return libdeflate_deflate_decompress(decompressor.get(), packed.data(), packed.size(), text.data(), text.size(),
                                       nullptr) == LIBDEFLATE_SUCCESS;
}

std::uint32_t Checksum(std::span<const char> text) { return libdeflate_crc32(0, text.data(), text.size()); }

}  // namespace docx
