#include "CommandFolder.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <span>
#include <string_view>

#include "DocxDocument.h"
#include "apps/kelvarin/Status.h"
#include "hosts/docx/package/Package.h"
#include "hosts/json/Json.h"

namespace {

namespace fs = std::filesystem;

/// Around a main part that may refer to a note, a style and a number.
std::vector<std::byte> Around(std::string mainPart) {
  static const std::vector<std::byte> sound =
      DocxDocument({.body = "<w:p/>",
                    .footnotes = "<w:footnote w:id=\"2\"><w:p><w:r><w:t>The “Seller”.</w:t></w:r></w:p></w:footnote>",
                    .styles = "<w:style w:type=\"character\" w:styleId=\"Strong\"><w:rPr><w:b/></w:rPr></w:style>"})
          .File();
  const std::unique_ptr<docx::Package> package = docx::Package::Open(sound);
  package->Replace(package->MainDocument(), std::move(mainPart));
  std::vector<std::byte> bytes;
  package->Write([&](std::span<const std::byte> piece) { bytes.insert(bytes.end(), piece.begin(), piece.end()); });
  return bytes;
}

}  // namespace

void Require(bool good) {
  if (!good) std::abort();
}

std::vector<std::byte> BytesOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  const std::string content{std::istreambuf_iterator<char>(in), {}};
  const auto bytes = std::as_bytes(std::span(content));
  return {bytes.begin(), bytes.end()};
}

CommandFolder::CommandFolder() {
  std::string name = (fs::temp_directory_path() / "command_fuzz-XXXXXX").string();
  Require(mkdtemp(name.data()) != nullptr);
  folder_ = name;
  // Settings, and whatever a command keeps for itself.
  setenv("XDG_CONFIG_HOME", name.c_str(), 1);
  setenv("TMPDIR", name.c_str(), 1);
  // The fuzzer and the sanitizers have the other one by now.
  stderr = std::fopen("/dev/null", "w");
  Require(stderr != nullptr);
}

CommandFolder::~CommandFolder() {
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

void CommandFolder::Put(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto bytes = std::as_bytes(std::span(text));
  put_ = text.starts_with("PK") ? std::vector<std::byte>(bytes.begin(), bytes.end()) : Around(std::string(text));
  std::ofstream out(Document(), std::ios::binary);
  out.write(reinterpret_cast<const char*>(put_.data()), static_cast<std::streamsize>(put_.size()));
  out.close();
  Require(static_cast<bool>(out));
  fs::remove(Result());
}

Options CommandFolder::For(Options::Command command) const {
  Options options{.command = command, .pages = docx::PageSource::kFile};
  options.output.file = Result();
  options.report = folder_ / "report.json";
  options.quiet = true;
  return options;
}

void CommandFolder::Judge(const FileResult& result) const {
  Require(BytesOf(Document()) == put_);
  const auto report = json::Read(result.report);
  if (result.status != kDone) Require(!report.at("messages").empty());
}
