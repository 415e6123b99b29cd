// Any bytes as a package, or as the main part of one, for the command "update": it writes a document that can be
// updated once more, or nothing, and says why.

#include "CommandFolder.h"
#include "apps/kelvarin/Commands.h"
#include "apps/kelvarin/Status.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static CommandFolder folder;
  folder.Put(data, size);
  Options options = folder.For(Options::Command::kUpdate);
  const FileResult result = ChangeIndexedFile(options, folder.Document());
  folder.Judge(result);
  const std::vector<std::byte> updated = BytesOf(folder.Result());
  Require((result.status == kDone) == !updated.empty());
  if (result.status != kDone) return 0;
  options.output = {.inPlace = true};
  Require(ChangeIndexedFile(options, folder.Result()).status == kDone);
  return 0;
}
