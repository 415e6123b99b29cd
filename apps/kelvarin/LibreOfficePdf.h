#pragma once

#include "apps/kelvarin/PrivateFolder.h"
#include "hosts/docx/WordProcessor.h"
#include "hosts/linux/LibreOffice.h"

/// Has the installed LibreOffice lay a run's document out.
class LibreOfficePdf : public docx::PdfMaker {
 public:
  /// @throws Failure kStopped when LibreOffice is not installed
  LibreOfficePdf();

  std::string MakePdf(const docx::Package& document) override;
  std::string Name() const override { return "LibreOffice"; }

 private:
  PrivateFolder folder_;
  os::LibreOffice office_;
};
