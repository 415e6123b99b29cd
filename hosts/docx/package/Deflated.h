#pragma once

#include <zip.h>

#include <cstdint>
#include <ctime>
#include <string_view>
#include <vector>

namespace docx {

/// A part's content packed for a zip archive. (libzip would pack it too, but at zlib's slowest level only.)
class Deflated {
 public:
  /// @param modified the time that the archive states for the part
  Deflated(std::string_view content, std::time_t modified);

  /// For one zip_file_add or zip_file_replace, which takes it over when it succeeds; the object outlives the archive.
  /// The entry's method must be ZIP_CM_DEFLATE.
  zip_source_t* MakeSource(zip_t* archive) const;

 private:
  static zip_int64_t Callback(void* reader, void* data, zip_uint64_t length, zip_source_cmd_t command);

  std::vector<unsigned char> bytes_;
  zip_stat_t stat_;
};

std::uint32_t Checksum(std::string_view content);

}  // namespace docx
