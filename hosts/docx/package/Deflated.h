#pragma once

#include <zip.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <future>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace docx {

/// A part's content packed for a zip archive. (libzip would pack it too, but at zlib's slowest level only.) Larger
/// texts are packed in a thread of their own, for which whoever wants the result waits.
class Deflated {
 public:
  /// Running out of memory is told by the members.
  explicit Deflated(std::string text);

  /// The text again.
  std::string Content() const;

  /// For one zip_file_add or zip_file_replace, which takes it over when it succeeds; the object outlives the archive.
  /// @param modified the time that the archive states for the part
  zip_source_t* MakeSource(zip_t* archive, std::time_t modified) const;
  /// The method that the entry must be given: of a text that would pack so well that it would be taken for a bomb, that
  /// it is stored as it is.
  zip_uint16_t Method() const { return packed_.get().method; }
  std::size_t PackedSize() const { return packed_.get().size; }

 private:
  struct Free {
    void operator()(std::byte* bytes) const { std::free(bytes); }
  };
  struct Packed {
    std::unique_ptr<std::byte, Free> bytes;
    std::size_t size{0};
    zip_uint16_t method{ZIP_CM_DEFLATE};
  };
  struct Reader;

  static Packed Pack(std::string_view text);
  static zip_int64_t Callback(void* reader, void* data, zip_uint64_t length, zip_source_cmd_t command);

  std::size_t size_;
  std::shared_future<Packed> packed_;
  std::uint32_t checksum_;  // of the text
};

/// Unpacks what an archive holds.
/// @return whether it gives as many bytes as the text has, no more and no less
bool Unpack(std::span<const std::byte> packed, std::span<char> text);

/// As archives state it.
std::uint32_t Checksum(std::span<const char> text);

}  // namespace docx
