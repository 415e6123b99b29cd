// Any bytes as a package, or as the main part of one, for the command "check": it says what it found, or why it could
// not look, and leaves the document alone.

#include "CommandFolder.h"
#include "apps/kelvarin/Commands.h"
#include "apps/kelvarin/Status.h"
#include "hosts/json/Json.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static CommandFolder folder;
  folder.Put(data, size);
  const FileResult result = CheckFile(folder.For(Options::Command::kCheck), folder.Document());
  folder.Judge(result);
  Require((result.status == kDone) == !result.result.empty());
  if (result.status == kDone) Require(json::Read(result.result).at("findings").is_array());
  return 0;
}
