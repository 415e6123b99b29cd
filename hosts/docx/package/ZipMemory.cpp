#include "hosts/docx/package/ZipMemory.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace docx {

ZipMemory::ZipMemory(std::span<const std::byte> input) : input_(input) { zip_error_init(&error_); }

ZipMemory::~ZipMemory() { zip_error_fini(&error_); }

zip_source_t* ZipMemory::MakeSource(zip_error_t* error) { return zip_source_function_create(&Callback, this, error); }

zip_int64_t ZipMemory::Fail(int code) {
  zip_error_set(&error_, code, 0);
  return -1;
}

zip_int64_t ZipMemory::Callback(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command) {
  auto* const memory = static_cast<ZipMemory*>(self);
  try {
    return memory->Handle(data, length, command);
  } catch (const std::bad_alloc&) {
    return memory->Fail(ZIP_ER_MEMORY);
  }
}

zip_int64_t ZipMemory::Handle(void* data, zip_uint64_t length, zip_source_cmd_t command) {
  switch (command) {
    case ZIP_SOURCE_OPEN:
      position_ = 0;
      return 0;
    case ZIP_SOURCE_READ: {
      const std::size_t size = std::min<std::size_t>(length, input_.size() - position_);
      if (size != 0) std::memcpy(data, input_.data() + position_, size);
      position_ += size;
      return static_cast<zip_int64_t>(size);
    }
    case ZIP_SOURCE_SEEK: {
      const zip_int64_t position = zip_source_seek_compute_offset(position_, input_.size(), data, length, &error_);
      if (position < 0) return -1;
      position_ = static_cast<std::size_t>(position);
      return 0;
    }
    case ZIP_SOURCE_TELL:
      return static_cast<zip_int64_t>(position_);
    case ZIP_SOURCE_CLOSE:
    case ZIP_SOURCE_FREE:
    case ZIP_SOURCE_COMMIT_WRITE:
      return 0;
    case ZIP_SOURCE_STAT: {
      auto* const stat = static_cast<zip_stat_t*>(data);
      zip_stat_init(stat);
      stat->size = input_.size();
      stat->valid = ZIP_STAT_SIZE;
      return sizeof(zip_stat_t);
    }
    case ZIP_SOURCE_ERROR:
      return zip_error_to_data(&error_, data, length);
    case ZIP_SOURCE_BEGIN_WRITE:
    case ZIP_SOURCE_ROLLBACK_WRITE:
      output_.clear();
      outputPosition_ = 0;
      return 0;
    case ZIP_SOURCE_WRITE: {
      const std::size_t end = outputPosition_ + static_cast<std::size_t>(length);
      if (end > output_.size()) output_.resize(end);
      std::memcpy(output_.data() + outputPosition_, data, length);
      outputPosition_ = end;
      return static_cast<zip_int64_t>(length);
    }
    case ZIP_SOURCE_SEEK_WRITE: {
      const zip_int64_t position =
          zip_source_seek_compute_offset(outputPosition_, output_.size(), data, length, &error_);
      if (position < 0) return -1;
      outputPosition_ = static_cast<std::size_t>(position);
      return 0;
    }
    case ZIP_SOURCE_TELL_WRITE:
      return static_cast<zip_int64_t>(outputPosition_);
    case ZIP_SOURCE_SUPPORTS:
      return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                                            ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, ZIP_SOURCE_SEEK, ZIP_SOURCE_TELL,
                                            ZIP_SOURCE_SUPPORTS, ZIP_SOURCE_REMOVE, ZIP_SOURCE_BEGIN_WRITE,
                                            ZIP_SOURCE_COMMIT_WRITE, ZIP_SOURCE_ROLLBACK_WRITE, ZIP_SOURCE_WRITE,
                                            ZIP_SOURCE_SEEK_WRITE, ZIP_SOURCE_TELL_WRITE, -1);
    case ZIP_SOURCE_REMOVE:
      // An archive that lost all its entries.
      output_.clear();
      return 0;
    default:
      return Fail(ZIP_ER_OPNOTSUPP);
  }
}

}  // namespace docx
