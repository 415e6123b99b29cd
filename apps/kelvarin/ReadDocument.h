#pragma once

#include <filesystem>
#include <optional>

#include "apps/kelvarin/LibreOfficePdf.h"
#include "apps/kelvarin/PrivateDocument.h"
#include "hosts/docx/WordProcessor.h"
#include "hosts/docx/package/Package.h"

/// A file's document as it is, to be looked at without a run.
class ReadDocument {
 public:
  /// @throws docx::PackageError; Failure kStopped when pages come from LibreOffice and it is not installed
  ReadDocument(const std::filesystem::path& input, docx::PageSource pages) : neverSaved_(input) {
    docx::DocumentSettings settings{.name = {}, .path = {}, .pages = pages};
    if (pages == docx::PageSource::kPdf) settings.pdfMaker = &libreOffice_.emplace();
    processor_.Open(docx::Package::Open(input), settings, neverSaved_);
  }
  ReadDocument(const ReadDocument&) = delete;
  ReadDocument& operator=(const ReadDocument&) = delete;

  docx::WordProcessor& Processor() { return processor_; }

 private:
  PrivateDocument neverSaved_;
  std::optional<LibreOfficePdf> libreOffice_;
  docx::WordProcessor processor_;
};
