// Any bytes as an XML part. What passes the check, the parser takes too.

#include <pugixml.hpp>

#include "hosts/docx/package/Package.h"
#include "hosts/docx/package/XmlCheck.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string xml;
  try {
    xml = docx::ToUtf8(std::string(reinterpret_cast<const char*>(data), size), "part.xml");
    docx::CheckXml(xml, "part.xml");
  } catch (const docx::PackageError&) {
    return 0;
  }
  pugi::xml_document document;
  if (!document.load_buffer(xml.data(), xml.size(), pugi::parse_full, pugi::encoding_utf8)) std::abort();
  return 0;
}
