#pragma once

#include <filesystem>
#include <vector>

#include "apps/kelvarin/Output.h"
#include "hosts/docx/WordProcessor.h"

/// Where a document's own saving goes: SaveAs to the path that was given, but never to the input. Save succeeds and
/// writes nothing, since the document goes with its run and nobody could read what it wrote.
class PrivateDocument : public docx::DocumentFile {
 public:
  explicit PrivateDocument(std::filesystem::path input);

  void Save(const Current& current) override;
  /// @throws word::HostError kCannotSaveFile
  void SaveAs(std::u16string_view fileName, const docx::Package& package) override;

  /// A file that SaveAs wrote, and nobody since, may be replaced by the result of the run.
  void AcceptOwn(Target& target) const;

 private:
  std::filesystem::path input_;
  std::vector<FileStamp> written_;
};
