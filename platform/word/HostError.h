#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace word {

/// The numbers a host raises. Where Word has a number for the case, it is Word's.
enum ErrorNumber : int {
  kInvalidCall = 5,
  kOutOfMemory = 7,
  kFileNotFound = 53,
  kDeviceError = 57,
  kDiskFull = 61,
  kPermissionDenied = 70,
  kPathAccess = 75,  ///< the file cannot be opened in that way
  kPathNotFound = 76,
  kObjectNotSet = 91,
  kCommandFailed = 4198,
  kNoDocumentOpen = 4248,
  kMethodNotAvailable = 4605,  ///< also for a change to a protected document
  kBookmarkDoesNotExist = 5101,
  kCannotSaveFile = 5155,
  kBadPattern = 5560,
  kObjectDeleted = 5825,
  kBadBookmarkName = 5828,
  kStringTooLong = 5854,
  kMemberDoesNotExist = 5941,
};

/// The one error of the platform. "Not found" is no error: Exists() or an empty pointer says it.
class HostError : public std::runtime_error {
 public:
  /// @param description for people, in the host's words, without the number
  /// @param member what was called, such as "Range.Start", for the log
  HostError(int number, std::u16string description, std::string_view member);

  /// What the error box prints before the description.
  int Number() const noexcept { return number_; }
  const std::u16string& Description() const noexcept { return description_; }
  const std::string& Member() const noexcept { return member_; }

 private:
  int number_;
  std::u16string description_;
  std::string member_;
};

}  // namespace word
