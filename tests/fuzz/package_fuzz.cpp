// Any bytes as a file: opened and read in whole, or refused; changed, written and opened again.

#include "hosts/docx/package/Package.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace {

std::vector<std::byte> Written(const docx::Package& package) {
  std::vector<std::byte> bytes;
  package.Write([&bytes](std::span<const std::byte> piece) { bytes.insert(bytes.end(), piece.begin(), piece.end()); });
  return bytes;
}

void Check(const std::vector<std::byte>& file) {
  const auto package = docx::Package::Open(file);
  if (Written(*package) != file) std::abort();
  for (const std::string& name : package->Names()) {
    try {
      package->ReadXml(name);
      package->Relationships(name);
    } catch (const docx::PackageError&) {
      // A part of its own may be refused; the next may be good.
    }
  }

  const std::string main = package->MainDocument();
  const std::string content = "<changed/>";
  package->Replace(main, content);
  const bool fresh = !package->Has("fuzz/new.xml");
  if (fresh) package->Add("fuzz/new.xml", content, "type/of-its-own");
  const std::string id = package->AddRelationship(main, "type", "fuzz/new.xml");
  const auto reopened = docx::Package::Open(Written(*package));
  if (reopened->Names() != package->Names() || reopened->Read(main) != content) std::abort();
  package->RemoveRelationship(main, id);
  if (fresh) package->Remove("fuzz/new.xml");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto bytes = std::as_bytes(std::span(data, size));
  try {
    Check({bytes.begin(), bytes.end()});
  } catch (const docx::PackageError&) {
    // The one error that a file may raise.
  }
  return 0;
}
