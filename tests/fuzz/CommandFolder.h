#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "apps/kelvarin/Batch.h"
#include "apps/kelvarin/Options.h"

/// Where a fuzzer's commands find their document and put their result, with nobody's settings. What a command says on
/// standard error is not heard.
class CommandFolder {
 public:
  CommandFolder();
  ~CommandFolder();
  CommandFolder(const CommandFolder&) = delete;
  CommandFolder& operator=(const CommandFolder&) = delete;

  /// Makes the document of any bytes: what begins as a package does is one, all else is the main part of a package that
  /// is sound otherwise. No result is there then.
  void Put(const std::uint8_t* data, std::size_t size);

  std::filesystem::path Document() const { return folder_ / "contract.docx"; }
  std::filesystem::path Result() const { return folder_ / "result.docx"; }
  /// For a command on the document that writes the result and a report.
  Options For(Options::Command command) const;
  /// Ends the program when the document is not as it was put there, or when a command that did not come to its end gave
  /// no reason.
  void Judge(const FileResult& result) const;

 private:
  std::filesystem::path folder_;
  std::vector<std::byte> put_;
};

/// Ends the program as a fuzzer's finding.
void Require(bool good);
/// @return nothing when there is no such file
std::vector<std::byte> BytesOf(const std::filesystem::path& file);
