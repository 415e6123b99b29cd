#include "apps/kelvarin/LibreOfficePdf.h"

#include "apps/kelvarin/Output.h"
#include "apps/kelvarin/Status.h"
#include "hosts/unattended/Text.h"
#include "platform/word/HostError.h"

namespace {

std::filesystem::path Program() {
  const std::optional<std::filesystem::path> program = os::LibreOffice::Find();
  if (!program) throw Failure(kStopped, "--pages libreoffice needs LibreOffice, and none is installed");
  return *program;
}

}  // namespace

LibreOfficePdf::LibreOfficePdf() : office_(Program(), folder_.Path()) {}

std::string LibreOfficePdf::MakePdf(const docx::Package& document) {
  constexpr const char* kMember = "Document.Repaginate";
  try {
    WriteDocument(document, office_.DocumentFile());
    return office_.ToPdf();
  } catch (const os::LibreOfficeError& error) {
    throw word::HostError(word::kCommandFailed, unattended::FromUtf8(error.what()), kMember);
  } catch (const Failure& failure) {
    throw word::HostError(word::kCannotSaveFile, unattended::FromUtf8(failure.what()), kMember);
  }
}
