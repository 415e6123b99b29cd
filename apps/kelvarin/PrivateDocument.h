#pragma once

#include <filesystem>

#include "hosts/docx/WordProcessor.h"

/// Where a document's own saving goes: Save to a private copy, SaveAs to the path that was given, but never to the
/// input.
class PrivateDocument : public docx::DocumentFile {
 public:
  PrivateDocument(std::filesystem::path input, std::filesystem::path copy);

  /// @throws word::HostError kCannotSaveFile
  void Save(const docx::Package& package) override;
  void SaveAs(std::u16string_view fileName, const docx::Package& package) override;

 private:
  void Write(const docx::Package& package, const std::filesystem::path& target, const char* member) const;

  std::filesystem::path input_;
  std::filesystem::path copy_;
};
