#pragma once

#include <zip.h>

#include <cstdint>
#include <ctime>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace docx {

/// Takes a text piece by piece.
using TextSink = std::function<void(std::string_view piece)>;
/// Hands a text to a sink.
using TextProducer = std::function<void(const TextSink& sink)>;

/// A part's content packed for a zip archive. (libzip would pack it too, but at zlib's slowest level only.)
class Deflated {
 public:
  /// The text is packed as it comes and never held whole. What the producer throws passes through.
  explicit Deflated(const TextProducer& produce);

  std::uint64_t Size() const { return size_; }
  std::uint32_t Checksum() const { return checksum_; }
  /// The text again.
  std::string Content() const;

  /// For one zip_file_add or zip_file_replace, which takes it over when it succeeds; the object outlives the archive.
  /// The entry's method must be ZIP_CM_DEFLATE.
  /// @param modified the time that the archive states for the part
  zip_source_t* MakeSource(zip_t* archive, std::time_t modified) const;

 private:
  static zip_int64_t Callback(void* reader, void* data, zip_uint64_t length, zip_source_cmd_t command);

  std::vector<unsigned char> bytes_;
  std::uint64_t size_{0};
  std::uint32_t checksum_{0};
};

}  // namespace docx
