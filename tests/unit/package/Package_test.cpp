#include "hosts/docx/package/Package.h"

#include <gtest/gtest.h>

#include "tests/unit/linux/TempFolder.h"
#include "tests/unit/package/RawZip.h"

#include <ostream>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr const char* kCommentsType = "application/vnd.openxmlformats-officedocument.wordprocessingml.comments+xml";

std::vector<std::byte> Written(const docx::Package& package) {
  std::vector<std::byte> bytes;
  package.Write([&bytes](std::span<const std::byte> piece) { bytes.insert(bytes.end(), piece.begin(), piece.end()); });
  return bytes;
}

/// A document with parts of all sorts around the main one.
RawZip Sample() {
  RawZip zip = MinimalDocument();
  zip.Add({.name = "word/styles.xml",
           .content = "<styles>" + std::string(5000, 's') + "</styles>",
           .dosTime = 0x6A3D,
           .dosDate = 0x52C5});
  zip.Add({.name = "word/media/", .content = "", .deflated = false});
  zip.Add({.name = "word/media/image1.png", .content = std::string("\x89PNG\0\xFF", 6), .deflated = false});
  zip.Add("docProps/app.xml", "<Properties/>");
  return zip;
}

TEST(Package, ListsPartsInTheContainersOrderWithoutFolders) {
  const auto package = docx::Package::Open(Sample().Bytes());
  EXPECT_EQ(package->Names(),
            (std::vector<std::string>{"[Content_Types].xml", "_rels/.rels", "word/document.xml", "word/styles.xml",
                                      "word/media/image1.png", "docProps/app.xml"}));
}

TEST(Package, ReadsParts) {
  const auto package = docx::Package::Open(Sample().Bytes());
  EXPECT_EQ(package->Read("word/document.xml"), kDocument);
  EXPECT_EQ(package->Read("word/media/image1.png"), std::string("\x89PNG\0\xFF", 6));
  EXPECT_THROW(package->Read("word/missing.xml"), std::out_of_range);
  EXPECT_THROW(package->Read("word/media/"), std::out_of_range);
}

TEST(Package, ComparesNamesWithoutCase) {
  const auto package = docx::Package::Open(Sample().Bytes());
  EXPECT_TRUE(package->Has("WORD/Document.XML"));
  EXPECT_EQ(package->Read("Word/Document.xml"), kDocument);
  EXPECT_FALSE(package->Has("word/media/"));
}

TEST(Package, TellsContentTypesByPartAndByExtension) {
  const auto package = docx::Package::Open(Sample().Bytes());
  EXPECT_EQ(package->ContentType("word/Document.xml"),
            "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml");
  EXPECT_EQ(package->ContentType("docProps/app.XML"), "application/xml");
  EXPECT_EQ(package->ContentType("word/media/image1.png"), "");
}

TEST(Package, OpensAFile) {
  const TempFolder folder;
  const std::vector<std::byte> bytes = Sample().Bytes();
  WriteBytes(folder / "a.docx", std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
  EXPECT_EQ(Written(*docx::Package::Open(folder / "a.docx")), bytes);
}

TEST(Package, GivesTheSameBytesWhenNothingChanged) {
  const std::vector<std::byte> bytes = Sample().Bytes();
  const auto package = docx::Package::Open(bytes);
  package->Read("word/document.xml");
  EXPECT_FALSE(package->Changed());
  EXPECT_EQ(Written(*package), bytes);
}

TEST(Package, GivesTheSameBytesWhenAChangeIsTakenBack) {
  const std::vector<std::byte> bytes = Sample().Bytes();
  const auto package = docx::Package::Open(bytes);
  package->Replace("word/document.xml", "<other/>");
  EXPECT_TRUE(package->Changed());
  EXPECT_EQ(package->Read("word/document.xml"), "<other/>");
  package->Replace("word/document.xml", std::string(kDocument));
  EXPECT_FALSE(package->Changed());
  EXPECT_EQ(Written(*package), bytes);
}

TEST(Package, CopiesUnchangedPartsAsTheyArePacked) {
  const std::vector<std::byte> before = Sample().Bytes();
  const auto package = docx::Package::Open(before);
  package->Replace("word/document.xml", "<changed>" + std::string(1000, 'x') + "</changed>");
  const std::vector<std::byte> after = Written(*package);
  const std::vector<PackedPart> partsBefore = PackedParts(before);
  const std::vector<PackedPart> partsAfter = PackedParts(after);
  ASSERT_EQ(partsBefore.size(), 7U);
  ASSERT_EQ(partsAfter.size(), 7U);
  for (std::size_t i = 0; i < partsBefore.size(); ++i) {
    EXPECT_EQ(partsAfter[i].name, partsBefore[i].name);
    if (i != 2) {
      EXPECT_EQ(partsAfter[i], partsBefore[i]) << partsBefore[i].name;
    }
  }
  EXPECT_EQ(docx::Package::Open(after)->Read("word/document.xml"), "<changed>" + std::string(1000, 'x') + "</changed>");
}

TEST(Package, KeepsTheTimeOfAChangedPartAndPacksIt) {
  const auto package = docx::Package::Open(Sample().Bytes());
  package->Replace("word/styles.xml", "<styles>" + std::string(4000, 't') + "</styles>");
  package->Replace("word/document.xml", "<changed/>");
  package->Replace("word/media/image1.png", std::string(4000, 'p'));
  const std::vector<PackedPart> parts = PackedParts(Written(*package));
  EXPECT_EQ(parts[3].dosTime, 0x6A3D);
  EXPECT_EQ(parts[3].dosDate, 0x52C5);
  EXPECT_EQ(parts[3].method, 8);
  EXPECT_LT(parts[3].bytes.size(), 200U);
  EXPECT_EQ(parts[2].dosDate, 0x21);
  EXPECT_EQ(parts[5].name, "word/media/image1.png");
  EXPECT_EQ(parts[5].method, 8);
}

TEST(Package, GivesTheSameBytesForTheSameChanges) {
  const auto change = [] {
    auto package = docx::Package::Open(Sample().Bytes());
    package->Replace("word/document.xml", "<changed/>");
    package->Add("word/comments.xml", "<comments/>", kCommentsType);
    package->AddRelationship("word/document.xml", "type:comments", "word/comments.xml");
    return package;
  };
  const auto package = change();
  const std::vector<std::byte> first = Written(*package);
  EXPECT_EQ(Written(*package), first);
  EXPECT_EQ(Written(*change()), first);
}

TEST(Package, HoldsLargePartsWhole) {
  std::string large;
  for (int i = 0; large.size() < 3'000'000; ++i) large += "<p n=\"" + std::to_string(i * 7919 % 100'003) + "\"/>";
  const auto package = docx::Package::Open(Sample().Bytes());
  package->Replace("word/styles.xml", large);
  EXPECT_EQ(docx::Package::Open(Written(*package))->Read("word/styles.xml"), large);
}

TEST(Package, StoresAPartThatWouldPackSoWellThatItWouldBeTakenForABomb) {
  const auto package = docx::Package::Open(Sample().Bytes());
  const std::string large(docx::kRatioFreeSize + 1, 'x');
  package->Replace("word/styles.xml", large);
  EXPECT_EQ(package->Read("word/styles.xml"), large);
  const std::vector<std::byte> written = Written(*package);
  EXPECT_GT(written.size(), large.size());
  EXPECT_EQ(docx::Package::Open(written)->Read("word/styles.xml"), large);
}

TEST(Package, RefusesToWriteAPartThatItWouldNotRead) {
  const auto package = docx::Package::Open(Sample().Bytes());
  const std::string large(docx::kMaxPartSize + 1, 'x');
  try {
    package->Replace("word/styles.xml", large);
    FAIL();
  } catch (const docx::PackageError& error) {
    EXPECT_STREQ(error.what(), "would become too large: \"word/styles.xml\" more than 256 MiB");
  }
  EXPECT_FALSE(package->Changed());
}

TEST(Package, WritesAnEmptyPart) {
  const auto package = docx::Package::Open(Sample().Bytes());
  package->Replace("word/styles.xml", "");
  EXPECT_EQ(docx::Package::Open(Written(*package))->Read("word/styles.xml"), "");
}

TEST(Package, AddsPartsAtTheEnd) {
  const auto package = docx::Package::Open(Sample().Bytes());
  package->Add("word/comments.xml", "<comments/>", kCommentsType);
  EXPECT_EQ(package->Read("word/comments.xml"), "<comments/>");
  const auto reopened = docx::Package::Open(Written(*package));
  EXPECT_EQ(reopened->Names().back(), "word/comments.xml");
  EXPECT_EQ(reopened->Read("word/comments.xml"), "<comments/>");
  EXPECT_EQ(reopened->ContentType("word/comments.xml"), kCommentsType);
  EXPECT_THROW(package->Add("Word/Comments.xml", "", kCommentsType), std::invalid_argument);
  EXPECT_THROW(package->Add("../x.xml", "", kCommentsType), std::invalid_argument);
}

TEST(Package, StatesNoContentTypeThatTheExtensionHasAlready) {
  const auto package = docx::Package::Open(Sample().Bytes());
  package->Add("custom/item.xml", "<item/>", "application/xml");
  EXPECT_EQ(package->Read("[Content_Types].xml"), kContentTypes);
}

TEST(Package, RemovesAPartWithItsTypeAndItsRelationships) {
  const auto package = docx::Package::Open(Sample().Bytes());
  package->AddRelationship("word/styles.xml", "type:x", "http://example.com/", true);
  package->Remove("word/styles.xml");
  EXPECT_FALSE(package->Has("word/styles.xml"));
  const auto reopened = docx::Package::Open(Written(*package));
  EXPECT_EQ(reopened->Names(), (std::vector<std::string>{"[Content_Types].xml", "_rels/.rels", "word/document.xml",
                                                         "word/media/image1.png", "docProps/app.xml"}));
}

TEST(Package, APartRemovedAndAddedAgainIsUnchanged) {
  const std::vector<std::byte> bytes = Sample().Bytes();
  const auto package = docx::Package::Open(bytes);
  const std::string styles = package->Read("word/styles.xml");
  package->Remove("word/styles.xml");
  package->Add("word/styles.xml", styles, "application/xml");
  EXPECT_EQ(Written(*package), bytes);
}

TEST(Package, ListsRelationships) {
  RawZip zip = Sample();
  zip.Add(
      "word/_rels/document.xml.rels",
      "<r:Relationships xmlns:r=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
      "<r:Relationship Id=\"a\" Type=\"t:styles\" Target=\"styles.xml\"/>"
      "<r:Relationship Id=\"b\" Type=\"t:link\" Target=\"http://example.com/?a=1&amp;b=2\" TargetMode=\"External\"/>"
      "<r:Relationship Id=\"c\" Type=\"t:lost\" Target=\"NULL\"/></r:Relationships>");
  const auto package = docx::Package::Open(zip.Bytes());
  const auto relationships = package->Relationships("word/document.xml");
  ASSERT_EQ(relationships.size(), 3U);
  EXPECT_EQ(relationships[0].target, "word/styles.xml");
  EXPECT_FALSE(relationships[0].external);
  EXPECT_EQ(relationships[1].id, "b");
  EXPECT_EQ(relationships[1].type, "t:link");
  EXPECT_EQ(relationships[1].target, "http://example.com/?a=1&b=2");
  EXPECT_TRUE(relationships[1].external);
  EXPECT_EQ(relationships[2].target, "word/NULL");
  EXPECT_TRUE(package->Relationships("word/styles.xml").empty());
}

TEST(Package, SaysWhichRelationshipsThereAreAfterEachChange) {
  const auto package = docx::Package::Open(Sample().Bytes());
  const auto targets = [&package] {
    std::vector<std::string> found;
    for (const docx::Relationship& relationship : package->Relationships("word/document.xml")) {
      found.push_back(relationship.target);
    }
    return found;
  };
  using Targets = std::vector<std::string>;
  EXPECT_EQ(targets(), Targets());
  const std::string one = package->AddRelationship("word/document.xml", "t:x", "word/one.xml");
  EXPECT_EQ(targets(), Targets({"word/one.xml"}));
  const std::string two = package->AddRelationship("word/document.xml", "t:x", "word/two.xml");
  EXPECT_EQ(targets(), Targets({"word/one.xml", "word/two.xml"}));
  package->RemoveRelationship("word/document.xml", one);
  EXPECT_EQ(targets(), Targets({"word/two.xml"}));
  package->Replace("word/_rels/document.xml.rels",
                   "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
                   "<Relationship Id=\"rId1\" Type=\"t:x\" Target=\"three.xml\"/></Relationships>");
  EXPECT_EQ(targets(), Targets({"word/three.xml"}));
  package->RemoveRelationship("word/document.xml", "rId1");
  EXPECT_EQ(targets(), Targets());
}

TEST(Package, NewRelationshipsHaveNewIds) {
  RawZip zip = Sample();
  zip.Add("word/_rels/document.xml.rels",
          "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
          "<Relationship Id=\"rId7\" Type=\"t:a\" Target=\"styles.xml\"/>"
          "<Relationship Id=\"rId10\" Type=\"t:b\" Target=\"styles.xml\"/>"
          "<Relationship Id=\"rId99999999999999\" Type=\"t:c\" Target=\"styles.xml\"/></Relationships>");
  const auto package = docx::Package::Open(zip.Bytes());
  EXPECT_EQ(package->AddRelationship("word/document.xml", "t:x", "word/new.xml"), "rId11");
  EXPECT_EQ(package->AddRelationship("word/document.xml", "t:y", "http://x/?a&b", true), "rId12");
  const auto relationships = docx::Package::Open(Written(*package))->Relationships("word/document.xml");
  ASSERT_EQ(relationships.size(), 5U);
  EXPECT_EQ(relationships[3].target, "word/new.xml");
  EXPECT_EQ(relationships[4].target, "http://x/?a&b");
  EXPECT_TRUE(relationships[4].external);
}

/// Forms in which content types and relationships are found.
struct Lists {
  std::string name;
  std::string contentTypes;
  /// The main document's; empty when it has none.
  std::string relationships;
};

void PrintTo(const Lists& lists, std::ostream* stream) { *stream << lists.name; }

class PackageLists : public testing::TestWithParam<Lists> {};

TEST_P(PackageLists, AreToTheByteWhatTheyWereOnceAPartIsRemovedAgain) {
  RawZip zip = MinimalDocument(GetParam().contentTypes);
  if (!GetParam().relationships.empty()) zip.Add("word/_rels/document.xml.rels", GetParam().relationships);
  const std::vector<std::byte> bytes = zip.Bytes();

  const auto package = docx::Package::Open(bytes);
  package->Add("word/comments.xml", "<comments/>", kCommentsType);
  package->Add("word/people.xml", "<people/>", "t/people");
  const std::string first = package->AddRelationship("word/document.xml", "t:c", "word/comments.xml");
  const std::string second = package->AddRelationship("word/document.xml", "t:p", "word/people.xml");
  EXPECT_NE(first, second);

  // The removal happens in another run.
  const auto reopened = docx::Package::Open(Written(*package));
  EXPECT_EQ(reopened->ContentType("word/people.xml"), "t/people");
  EXPECT_EQ(reopened->ContentType("word/comments.xml"), kCommentsType);
  const auto relationships = reopened->Relationships("word/document.xml");
  ASSERT_GE(relationships.size(), 2U);
  EXPECT_EQ(relationships[relationships.size() - 2].target, "word/comments.xml");
  reopened->RemoveRelationship("word/document.xml", first);
  reopened->RemoveRelationship("word/document.xml", second);
  reopened->Remove("word/comments.xml");
  reopened->Remove("word/people.xml");
  const std::vector<std::byte> after = Written(*reopened);
  const auto restored = docx::Package::Open(after);
  const auto original = docx::Package::Open(bytes);
  EXPECT_EQ(restored->Names(), original->Names());
  for (const std::string& name : original->Names()) EXPECT_EQ(restored->Read(name), original->Read(name)) << name;

  // And in the same one.
  package->Remove("word/people.xml");
  package->RemoveRelationship("word/document.xml", second);
  package->Remove("word/comments.xml");
  package->RemoveRelationship("word/document.xml", first);
  EXPECT_EQ(Written(*package), bytes);
}

std::string Prefixed(std::string_view contentTypes) {
  std::string text(contentTypes);
  for (const std::string_view name : {"Types", "Default ", "Override"}) {
    for (const std::string before : {"<", "</"}) {
      const std::string tag = before + std::string(name);
      for (std::size_t at = text.find(tag); at != std::string::npos; at = text.find(tag, at + 3)) {
        text.replace(at, before.size(), before + "ct:");
      }
    }
  }
  return text.replace(text.find("xmlns="), 6, "xmlns:ct=");
}

const std::vector<Lists> kLists = {
    {"NoRelationships", std::string(kContentTypes), ""},
    {"OneLine", std::string(kContentTypes),
     "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\"><Relationship Id=\"rId1\" "
     "Type=\"t\" Target=\"a&gt;b>c.xml\"/></Relationships>"},
    {"Indented", std::string(kContentTypes) + "\r\n",
     "\xEF\xBB\xBF<?xml version='1.0'?>\n<Relationships "
     "xmlns='http://schemas.openxmlformats.org/package/2006/relationships'>\n  <!-- one -->\n  <Relationship Id='x' "
     "Type='t' Target='a.xml'></Relationship>\n</Relationships>\n"},
    {"Prefixed", Prefixed(kContentTypes),
     "<p:Relationships xmlns:p=\"http://schemas.openxmlformats.org/package/2006/relationships\"><p:Relationship "
     "Id=\"rId1\" Type=\"t\" Target=\"a.xml\"/></p:Relationships>"},
    {"SelfClosed", std::string(kContentTypes),
     "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\"/>"},
};

INSTANTIATE_TEST_SUITE_P(Package, PackageLists, testing::ValuesIn(kLists),
                         [](const auto& given) { return given.param.name; });

TEST(Package, ReadsXmlInUtf16) {
  RawZip zip = MinimalDocument();
  std::string utf16 = "\xFF\xFE";
  for (const char c : std::string_view("<a>x</a>")) utf16 += {c, '\0'};
  zip.Add("word/styles.xml", utf16);
  EXPECT_EQ(docx::Package::Open(zip.Bytes())->ReadXml("word/styles.xml"), "<a>x</a>");
}

TEST(Package, WhatTheSinkThrowsPassesThrough) {
  const auto package = docx::Package::Open(Sample().Bytes());
  package->Replace("word/document.xml", "<changed/>");
  EXPECT_THROW(package->Write([](std::span<const std::byte>) { throw std::length_error("full"); }), std::length_error);
}

struct MainPart {
  std::string type;
  std::string relationship;
  /// Empty when it is a Word document.
  std::string refusal;
};

TEST(Package, KnowsAWordDocumentByItsMainPart) {
  const std::string transitional = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument";
  const std::string strict = "http://purl.oclc.org/ooxml/officeDocument/relationships/officeDocument";
  const std::string base = "application/vnd.openxmlformats-officedocument.";
  const std::vector<MainPart> cases = {
      {base + "wordprocessingml.document.main+xml", transitional, ""},
      {base + "wordprocessingml.document.main+xml", strict, ""},
      {base + "wordprocessingml.template.main+xml", transitional, ""},
      {"application/vnd.ms-word.document.macroEnabled.main+xml", transitional, ""},
      {"application/vnd.ms-word.template.macroEnabledTemplate.main+xml", transitional, ""},
      {base + "spreadsheetml.sheet.main+xml", transitional, "is not a Word document: it is a spreadsheet"},
      {"application/vnd.ms-excel.sheet.macroEnabled.main+xml", transitional,
       "is not a Word document: it is a spreadsheet"},
      {base + "presentationml.presentation.main+xml", strict, "is not a Word document: it is a presentation"},
      {"application/x", transitional, "is not a Word document: its main part has the content type \"application/x\""},
      {base + "wordprocessingml.document.main+xml", "http://example.com/officeDocument",
       "is not a Word document: it has no main document part"},
  };
  for (const MainPart& main : cases) {
    std::string types(kContentTypes);
    const std::string standard = base + "wordprocessingml.document.main+xml";
    types.replace(types.find(standard), standard.size(), main.type);
    std::string relationships(kPackageRelationships);
    relationships.replace(relationships.find(transitional), transitional.size(), main.relationship);
    std::string refusal;
    try {
      EXPECT_EQ(docx::Package::Open(MinimalDocument(types, relationships).Bytes())->MainDocument(),
                "word/document.xml");
    } catch (const docx::PackageError& error) {
      refusal = error.what();
    }
    EXPECT_EQ(refusal, main.refusal);
  }
}

}  // namespace
