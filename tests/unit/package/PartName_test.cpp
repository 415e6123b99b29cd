#include "hosts/docx/package/PartName.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(PartName, UnsafeNamesAreTold) {
  for (const char* const name : {"word/document.xml", "[Content_Types].xml", "_rels/.rels", "word/", "a..b/c...xml",
                                 "word/a:b.xml", "\xC3\xA9.xml"}) {
    EXPECT_TRUE(docx::IsSafePartName(name)) << name;
  }
  for (const char* const name : {"", "/word/document.xml", "../x", "word/../x", "word/..", "./x", "word\\document.xml",
                                 "C:/x", "c:x", "a\nb", "a\x7F"}) {
    EXPECT_FALSE(docx::IsSafePartName(name)) << name;
  }
}

TEST(PartName, RelationshipsLieBesideTheirSource) {
  EXPECT_EQ(docx::RelationshipsPartName("word/document.xml"), "word/_rels/document.xml.rels");
  EXPECT_EQ(docx::RelationshipsPartName("a.xml"), "_rels/a.xml.rels");
  EXPECT_EQ(docx::RelationshipsPartName(""), "_rels/.rels");
}

TEST(PartName, TargetsAreSeenFromTheirSource) {
  const std::string source = "word/document.xml";
  EXPECT_EQ(docx::ResolveTarget(source, "styles.xml"), "word/styles.xml");
  EXPECT_EQ(docx::ResolveTarget(source, "media/a.png"), "word/media/a.png");
  EXPECT_EQ(docx::ResolveTarget(source, "../customXml/item1.xml"), "customXml/item1.xml");
  EXPECT_EQ(docx::ResolveTarget(source, "/word/styles.xml"), "word/styles.xml");
  EXPECT_EQ(docx::ResolveTarget(source, "./x//y.xml"), "word/x/y.xml");
  EXPECT_EQ(docx::ResolveTarget(source, "a%20b.xml#part"), "word/a b.xml");
  EXPECT_EQ(docx::ResolveTarget(source, "100%.xml"), "word/100%.xml");
  EXPECT_EQ(docx::ResolveTarget("", "word/document.xml"), "word/document.xml");
}

TEST(PartName, TargetsDoNotLeaveThePackage) {
  EXPECT_EQ(docx::ResolveTarget("word/document.xml", "../../../etc/passwd"), "etc/passwd");
}

TEST(PartName, MadeTargetsResolveToTheirPart) {
  EXPECT_EQ(docx::MakeTarget("word/document.xml", "word/styles.xml"), "styles.xml");
  EXPECT_EQ(docx::MakeTarget("word/document.xml", "customXml/item1.xml"), "/customXml/item1.xml");
  EXPECT_EQ(docx::MakeTarget("", "docProps/app.xml"), "docProps/app.xml");
  for (const std::string part : {"word/a b%20#?.xml", "x/\xC3\xA9\".xml", "word/x/y.xml", "z"}) {
    EXPECT_EQ(docx::ResolveTarget("word/document.xml", docx::MakeTarget("word/document.xml", part)), part);
  }
}

}  // namespace
