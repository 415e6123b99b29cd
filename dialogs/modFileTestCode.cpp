#include "dialogs/modFileTestCode.h"

#include "platform/word/HostError.h"

bool FileInUse(os::Files& files, std::u16string_view path) {
  try {
    files.OpenForBinary(path);
    return false;
  } catch (const word::HostError&) {
    return true;
  }
}
