#include <gtest/gtest.h>

#include "hosts/docx/package/Package.h"
#include "tests/unit/linux/TempFolder.h"
#include "tests/unit/package/RawZip.h"

#include <chrono>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

std::vector<std::byte> Bytes(std::string_view text) {
  const auto bytes = std::as_bytes(std::span(text));
  return {bytes.begin(), bytes.end()};
}

enum class Reading { kXml, kBytes };

/// Opens the package and reads all its parts, and tells the refusal.
std::string Refusal(const std::vector<std::byte>& file, Reading reading = Reading::kXml) {
  const auto start = std::chrono::steady_clock::now();
  std::string why;
  try {
    const auto package = docx::Package::Open(file);
    for (const std::string& name : package->Names()) {
      reading == Reading::kXml ? package->ReadXml(name) : package->Read(name);
    }
  } catch (const docx::PackageError& error) {
    why = error.what();
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
  return why;
}

bool Has(const std::string& text, std::string_view part) { return text.find(part) != std::string::npos; }

TEST(HostilePackage, WhatIsNoZipArchive) {
  EXPECT_EQ(Refusal({}), "is not a Word document: it is empty");
  EXPECT_EQ(Refusal(Bytes("P")), "is not a Word document: it is not a zip archive");
  EXPECT_EQ(Refusal(Bytes("%PDF-1.7 and so on")), "is not a Word document: it is not a zip archive");
  EXPECT_EQ(Refusal(Bytes("{\\rtf1 text}")), "is not a Word document: it is not a zip archive");
}

TEST(HostilePackage, CompoundFiles) {
  const std::string head = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" + std::string(504, '\0');
  const auto named = [&head](std::string_view stream) {
    std::string directory;
    for (const char c : stream) directory += {c, '\0'};
    return Bytes(head + directory);
  };
  EXPECT_EQ(Refusal(named("EncryptedPackage")), "is encrypted: it needs a password to open");
  EXPECT_EQ(Refusal(named("WordDocument")), "is not a .docx document: it is in the older binary format of Word (.doc)");
  EXPECT_EQ(Refusal(named("Workbook")), "is not a Word document: it is a compound file of another program");
}

TEST(HostilePackage, FilesThatCannotBeRead) {
  const TempFolder folder;
  const auto refusal = [](const std::filesystem::path& path) -> std::string {
    try {
      docx::Package::Open(path);
    } catch (const docx::PackageError& error) {
      return error.what();
    }
    return "";
  };
  EXPECT_EQ(refusal(folder / "missing.docx"), "cannot be read: there is no such file");
  EXPECT_EQ(refusal(folder.Path()), "cannot be read: it is not a file");
  std::filesystem::create_symlink("loop.docx", folder / "loop.docx");
  EXPECT_EQ(refusal(folder / "loop.docx"), "cannot be read: Too many levels of symbolic links");
  EXPECT_EQ(refusal("/dev/zero"), "cannot be read: it is not a file");
  WriteBytes(folder / "empty.docx", "");
  EXPECT_EQ(refusal(folder / "empty.docx"), "is not a Word document: it is empty");
  WriteBytes(folder / "text.docx", "text");
  EXPECT_EQ(refusal(folder / "text.docx"), "is not a Word document: it is not a zip archive");
  // A file of holes, too large to be held in memory.
  WriteBytes(folder / "large.docx", "PK\3\4");
  std::filesystem::resize_file(folder / "large.docx", docx::kMaxFileSize + 1);
  EXPECT_EQ(refusal(folder / "large.docx"), "is too large for a Word document: more than 512 MiB");
}

TEST(HostilePackage, EveryTruncationIsRefused) {
  const std::vector<std::byte> whole = MinimalDocument().Bytes();
  ASSERT_EQ(Refusal(whole), "");
  for (std::size_t size = 2; size < whole.size(); size += 7) {
    const std::string why = Refusal({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)});
    EXPECT_TRUE(Has(why, "is truncated or damaged")) << size << ": " << why;
  }
}

TEST(HostilePackage, MissingParts) {
  EXPECT_EQ(Refusal(RawZip().Bytes()), "is not a Word document: the archive has no [Content_Types].xml");
  EXPECT_EQ(Refusal(RawZip().Add("a.txt", "a").Bytes()),
            "is not a Word document: the archive has no [Content_Types].xml");
  EXPECT_EQ(Refusal(RawZip().Add("mimetype", "x").Add("META-INF/manifest.xml", "<a/>").Bytes()),
            "is not a Word document: it is an OpenDocument file");
  EXPECT_EQ(Refusal(RawZip().Add("[Content_Types].xml", std::string(kContentTypes)).Bytes()),
            "is not a Word document: it has no main document part");
  EXPECT_EQ(Refusal(RawZip()
                        .Add("[Content_Types].xml", std::string(kContentTypes))
                        .Add("_rels/.rels", std::string(kPackageRelationships))
                        .Bytes()),
            "is not a Word document: its main document part, \"word/document.xml\", is missing");
}

TEST(HostilePackage, EncryptedParts) {
  RawZip zip;
  zip.Add({.name = "[Content_Types].xml", .content = std::string(kContentTypes), .flags = 1});
  EXPECT_EQ(Refusal(zip.Bytes()), "is encrypted: its parts need a password to open");
}

TEST(HostilePackage, UnsafeNames) {
  for (const std::string name :
       {"../evil.xml", "word/../../evil.xml", "/etc/passwd", "word\\evil.xml", "C:/evil.xml", "a\nb.xml"}) {
    const std::string why = Refusal(MinimalDocument().Add(name, "<a/>").Bytes());
    EXPECT_TRUE(Has(why, "is not accepted: it has a part with an unsafe name")) << name << ": " << why;
  }
  EXPECT_EQ(Refusal(MinimalDocument().Add("a\nb", "<a/>").Bytes()),
            "is not accepted: it has a part with an unsafe name, \"a?b\"");
}

TEST(HostilePackage, NamesTwice) {
  EXPECT_EQ(Refusal(MinimalDocument().Add("word/document.xml", "<a/>").Bytes()),
            "is not accepted: it has two parts named \"word/document.xml\"");
  EXPECT_EQ(Refusal(MinimalDocument().Add("Word/Document.xml", "<a/>").Bytes()),
            "is not accepted: it has two parts named \"Word/Document.xml\"");
}

TEST(HostilePackage, TooManyParts) {
  for (const std::size_t count : {docx::kMaxEntries, std::size_t{65'530}}) {
    RawZip zip = MinimalDocument();
    zip.AddCopies({.name = "p", .content = "", .deflated = false}, count);
    EXPECT_EQ(Refusal(zip.Bytes()), "is not accepted: it has more than 20,000 parts");
  }
}

TEST(HostilePackage, ABombOfOnePart) {
  const std::string bomb = "<a>" + std::string(64 << 20, ' ') + "</a>";
  EXPECT_EQ(Refusal(MinimalDocument(kContentTypes, kPackageRelationships, bomb).Bytes()),
            "is not accepted: \"word/document.xml\" is too large when unpacked"
            ": more than 256 MiB, or 300 times its packed size, or 384 MiB with the other parts");
}

TEST(HostilePackage, APartLargerThanAnyMayBe) {
  RawZip zip = MinimalDocument();
  zip.Add({.name = "word/styles.xml", .content = "<a/>", .sizeLie = static_cast<std::int64_t>(docx::kMaxPartSize)});
  EXPECT_EQ(Refusal(zip.Bytes()),
            "is not accepted: \"word/styles.xml\" is too large when unpacked"
            ": more than 256 MiB, or 300 times its packed size, or 384 MiB with the other parts");
}

TEST(HostilePackage, ManyPartsThatAreTooLargeTogether) {
  // Each unpacks to less than a ratio would tell.
  const std::string part = "<a>" + std::string(7 << 20, ' ') + "</a>";
  RawZip zip = MinimalDocument();
  zip.AddCopies({.name = "p", .content = part}, 56);
  const std::string why = Refusal(zip.Bytes(), Reading::kBytes);
  EXPECT_TRUE(Has(why, "is too large when unpacked")) << why;
}

TEST(HostilePackage, ADirectoryThatLies) {
  const auto refusal = [](const RawZip::Part& part) { return Refusal(MinimalDocument().Add(part).Bytes()); };
  const std::string content = "<a>" + std::string(2000, 'x') + "</a>";
  for (const bool deflated : {false, true}) {
    const RawZip::Part honest{.name = "p.xml", .content = content, .deflated = deflated};
    EXPECT_EQ(refusal(honest), "");
    RawZip::Part part = honest;
    part.sizeLie = -1000;
    EXPECT_TRUE(Has(refusal(part), "is truncated or damaged")) << deflated;
    part.sizeLie = 1000;
    EXPECT_TRUE(Has(refusal(part), "is truncated or damaged")) << deflated;
    part.sizeLie = static_cast<std::int64_t>(100) << 20;
    EXPECT_NE(refusal(part), "") << deflated;
    part = honest;
    part.packedSizeLie = 1'000'000;
    EXPECT_TRUE(Has(refusal(part), "is truncated or damaged")) << deflated;
    part.packedSizeLie = -10;
    EXPECT_TRUE(Has(refusal(part), "is truncated or damaged")) << deflated;
    part = honest;
    part.checksumLie = 1;
    EXPECT_TRUE(Has(refusal(part), "CRC")) << deflated;
  }
}

TEST(HostilePackage, ADamagedPartThatNobodyReadsIsCopied) {
  RawZip zip = MinimalDocument();
  zip.Add({.name = "word/theme.xml", .content = "<a/>", .checksumLie = 1});
  const std::vector<std::byte> before = zip.Bytes();
  const auto package = docx::Package::Open(before);
  package->Replace("word/document.xml", "<changed/>");
  std::vector<std::byte> after;
  package->Write([&after](std::span<const std::byte> piece) { after.insert(after.end(), piece.begin(), piece.end()); });
  EXPECT_EQ(PackedParts(after).at(3), PackedParts(before).at(3));
}

TEST(HostilePackage, EntityBombsAndDeepNestingInTheListsToo) {
  const std::string bomb =
      "<!DOCTYPE x [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\">]><Types>&b;</Types>";
  EXPECT_TRUE(Has(Refusal(MinimalDocument(bomb).Bytes()), "declares a document type"));
  EXPECT_TRUE(Has(Refusal(MinimalDocument(kContentTypes, bomb).Bytes()), "declares a document type"));
  EXPECT_TRUE(Has(Refusal(MinimalDocument(kContentTypes, kPackageRelationships, bomb).Bytes()),
                  "word/document.xml declares a document type"));
  std::string deep;
  for (int i = 0; i < 100'000; ++i) deep += "<a>";
  for (int i = 0; i < 100'000; ++i) deep += "</a>";
  EXPECT_TRUE(Has(Refusal(MinimalDocument(kContentTypes, kPackageRelationships, deep).Bytes()),
                  "word/document.xml is nested too deeply"));
}

}  // namespace
