#include "hosts/docx/package/Deflated.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <future>
#include <memory>
#include <new>

namespace docx {

namespace {

/// On WordprocessingML about a tenth larger than the usual 6, in half the time.
constexpr int kLevel = 3;

/// How much is packed at a time.
constexpr std::size_t kPiece = 256 << 10;
constexpr std::size_t kSmallest = 512;

struct Reader {
  const std::vector<unsigned char>* bytes;
  zip_stat_t stat;
  std::size_t position = 0;
};

/// A running compression. Pieces are packed in a thread of their own while the next are being made, from the second
/// on: most parts are too small to gain by it.
class Deflater {
 public:
  explicit Deflater(std::vector<unsigned char>& packed) : packed_(packed) {
    // Without zlib's own header, as zip archives have it.
    if (deflateInit2(&stream_, kLevel, Z_DEFLATED, -MAX_WBITS, MAX_MEM_LEVEL, Z_DEFAULT_STRATEGY) != Z_OK) {
      throw std::bad_alloc();
    }
  }
  ~Deflater() {
    if (running_.valid()) running_.wait();
    deflateEnd(&stream_);
  }
  Deflater(const Deflater&) = delete;
  Deflater& operator=(const Deflater&) = delete;

  /// Takes the piece and leaves an empty one with room for the next.
  void Feed(std::string& piece) {
    Wait();
    current_.swap(piece);
    piece.clear();
    piece.reserve(kPiece);
    running_ = std::async(std::launch::async, [this] { Pack(current_, Z_NO_FLUSH); });
  }

  void Finish(const std::string& last) {
    Wait();
    Pack(last, Z_FINISH);
  }

  std::uint64_t Size() const { return size_; }
  std::uint32_t Checksum() const { return checksum_; }

 private:
  void Wait() {
    if (running_.valid()) running_.get();
  }

  void Pack(const std::string& text, int flush) {
    size_ += text.size();
    checksum_ = static_cast<std::uint32_t>(
        crc32_z(checksum_, reinterpret_cast<const Bytef*>(text.data()), static_cast<z_size_t>(text.size())));
    stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
    stream_.avail_in = static_cast<uInt>(text.size());
    int status = Z_OK;
    do {
      const std::size_t used = packed_.size();
      packed_.resize(used + std::min(kPiece / 4, text.size() + kSmallest));
      stream_.next_out = packed_.data() + used;
      stream_.avail_out = static_cast<uInt>(packed_.size() - used);
      status = deflate(&stream_, flush);
      packed_.resize(packed_.size() - stream_.avail_out);
    } while (flush == Z_FINISH ? status != Z_STREAM_END : stream_.avail_in != 0 || stream_.avail_out == 0);
  }

  z_stream stream_{};
  std::vector<unsigned char>& packed_;
  std::string current_;  // what the thread packs
  std::uint64_t size_{0};
  std::uint32_t checksum_{0};
  std::future<void> running_;
};

}  // namespace

Deflated::Deflated(const TextProducer& produce) {
  Deflater deflater(bytes_);
  std::string waiting;
  produce([&](std::string_view piece) {
    while (!piece.empty()) {
      const std::size_t taken = std::min(piece.size(), kPiece - waiting.size());
      waiting += piece.substr(0, taken);
      piece.remove_prefix(taken);
      if (waiting.size() == kPiece) deflater.Feed(waiting);
    }
  });
  deflater.Finish(waiting);
  size_ = deflater.Size();
  checksum_ = deflater.Checksum();
  bytes_.shrink_to_fit();
}

std::string Deflated::Content() const {
  std::string text(size_, '\0');
  z_stream stream{};
  stream.next_in = const_cast<Bytef*>(bytes_.data());
  stream.avail_in = static_cast<uInt>(bytes_.size());
  stream.next_out = reinterpret_cast<Bytef*>(text.data());
  stream.avail_out = static_cast<uInt>(text.size());
  if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) throw std::bad_alloc();
  inflate(&stream, Z_FINISH);
  inflateEnd(&stream);
  return text;
}

zip_source_t* Deflated::MakeSource(zip_t* archive, std::time_t modified) const {
  auto reader = std::make_unique<Reader>();
  reader->bytes = &bytes_;
  zip_stat_t& stat = reader->stat;
  zip_stat_init(&stat);
  stat.size = size_;
  stat.comp_size = bytes_.size();
  stat.crc = checksum_;
  stat.comp_method = ZIP_CM_DEFLATE;
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
      const std::size_t size = std::min<std::size_t>(length, reader->bytes->size() - reader->position);
      if (size != 0) std::memcpy(data, reader->bytes->data() + reader->position, size);
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

}  // namespace docx
