#pragma once

#include <zip.h>

#include <cstddef>
#include <span>
#include <vector>

namespace docx {

/// Lets libzip read an archive from memory that somebody else owns and write its successor to memory of ours.
/// (libzip's own buffer source frees what it does not own when such an archive is rewritten.)
class ZipMemory {
 public:
  /// @param input outlives the archive that is opened from the source
  explicit ZipMemory(std::span<const std::byte> input);
  ZipMemory(const ZipMemory&) = delete;
  ZipMemory& operator=(const ZipMemory&) = delete;
  ~ZipMemory();

  /// For one zip_open_from_source, which takes it over when it succeeds; the object outlives the archive.
  zip_source_t* MakeSource(zip_error_t* error);
  /// Makes room for so many bytes of the successor; more may be written.
  void Expect(std::size_t size) { output_.reserve(size); }
  /// What closing the archive wrote; empty before.
  std::span<const std::byte> Output() const { return output_; }

 private:
  static zip_int64_t Callback(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command);
  zip_int64_t Handle(void* data, zip_uint64_t length, zip_source_cmd_t command);
  zip_int64_t Fail(int code);

  std::span<const std::byte> input_;
  std::size_t position_ = 0;
  std::vector<std::byte> output_;
  std::size_t outputPosition_ = 0;
  zip_error_t error_;
};

}  // namespace docx
