#include "hosts/docx/styles/IndexStyles.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/unit/styles/Parts.h"

using docx::EnsureIndexStyle;
using docx::RemoveAddedIndexStyles;
using docx::RemovedIndexStyles;
using docx::XmlPart;
using parts::StylesXml;

namespace {

const std::string kNormal =
    "<w:style w:type=\"paragraph\" w:default=\"1\" w:styleId=\"Standard\"><w:name w:val=\"Normal\"/></w:style>";

std::string Defaults(const std::string& size, const std::string& spacing) {
  return "<w:docDefaults><w:rPrDefault><w:rPr><w:sz w:val=\"" + size +
         "\"/></w:rPr></w:rPrDefault><w:pPrDefault><w:pPr>" + spacing + "</w:pPr></w:pPrDefault></w:docDefaults>";
}

/// The added style as the part writes it.
std::string Added(const XmlPart& part) {
  const std::string xml = part.Serialize();
  const std::size_t mark = xml.find("<?kelvarin added?>");
  if (mark == std::string::npos) return "";
  const std::size_t from = xml.rfind("<w:style ", mark);
  return xml.substr(from, xml.find("</w:style>", mark) + 10 - from);
}

TEST(IndexStyles, AStyleThatIsThereStaysAsItIs) {
  XmlPart part(
      "word/styles.xml",
      StylesXml(kNormal + "<w:style w:type=\"paragraph\" w:styleId=\"a17\"><w:name w:val=\"Index 1\"/></w:style>"));
  const std::string before = part.Serialize();
  EXPECT_EQ(EnsureIndexStyle(part, 1), "a17");
  EXPECT_EQ(part.Serialize(), before);
  EXPECT_FALSE(part.Changed());
}

TEST(IndexStyles, AMissingStyleIsMadeAsWordMakesIt) {
  XmlPart part("word/styles.xml",
               StylesXml(Defaults("22", "<w:spacing w:after=\"160\" w:line=\"259\" w:lineRule=\"auto\"/>") + kNormal));
  EXPECT_EQ(EnsureIndexStyle(part, 1), "Index1");
  EXPECT_TRUE(part.Changed());
  EXPECT_EQ(Added(part),
            "<w:style w:type=\"paragraph\" w:styleId=\"Index1\"><?kelvarin added?><w:name w:val=\"index 1\"/>"
            "<w:basedOn w:val=\"Standard\"/><w:next w:val=\"Standard\"/><w:autoRedefine/><w:uiPriority w:val=\"99\"/>"
            "<w:unhideWhenUsed/><w:pPr><w:spacing w:after=\"0\" w:line=\"240\" w:lineRule=\"auto\"/>"
            "<w:ind w:left=\"220\" w:hanging=\"220\"/></w:pPr></w:style>");
}

TEST(IndexStyles, TheIndentIsTheFontSizeOfNormalTimesTheLevel) {
  XmlPart part("word/styles.xml",
               StylesXml(Defaults("22", "") + "<w:style w:type=\"paragraph\" w:default=\"1\" "
                                              "w:styleId=\"N\"><w:rPr><w:sz w:val=\"21\"/></w:rPr></w:style>"));
  EXPECT_EQ(EnsureIndexStyle(part, 3), "Index3");
  EXPECT_NE(Added(part).find("<w:pPr><w:ind w:left=\"630\" w:hanging=\"210\"/></w:pPr>"), std::string::npos)
      << Added(part);
}

TEST(IndexStyles, WithoutAnyFontSizeItIsTenPoints) {
  XmlPart part("word/styles.xml", StylesXml(kNormal));
  EnsureIndexStyle(part, 1);
  EXPECT_NE(Added(part).find("<w:pPr><w:ind w:left=\"200\" w:hanging=\"200\"/></w:pPr>"), std::string::npos)
      << Added(part);
}

TEST(IndexStyles, StrictDocumentsSayStart) {
  XmlPart part("word/styles.xml", StylesXml(kNormal, parts::kStrict));
  EnsureIndexStyle(part, 1);
  EXPECT_NE(Added(part).find("<w:ind w:start=\"200\" w:hanging=\"200\"/>"), std::string::npos) << Added(part);
}

TEST(IndexStyles, ATakenIdIsLeftAlone) {
  XmlPart part(
      "word/styles.xml",
      StylesXml(kNormal +
                "<w:style w:type=\"character\" w:styleId=\"Index1\"><w:name w:val=\"mine\"/></w:style>"
                "<w:style w:type=\"paragraph\" w:styleId=\"Index1_2\"><w:name w:val=\"also mine\"/></w:style>"));
  EXPECT_EQ(EnsureIndexStyle(part, 1), "Index1_3");
}

TEST(IndexStyles, AskedTwiceTheStyleIsMadeOnce) {
  XmlPart part("word/styles.xml", StylesXml(kNormal));
  EnsureIndexStyle(part, 1);
  const std::string once = part.Serialize();
  EXPECT_EQ(EnsureIndexStyle(part, 1), "Index1");
  EXPECT_EQ(part.Serialize(), once);
}

TEST(IndexStyles, AStyleGoesBehindDefaultsAndLatentStyles) {
  XmlPart part("word/styles.xml", StylesXml(Defaults("20", "") + "<w:latentStyles/>\n"));
  EnsureIndexStyle(part, 1);
  const std::string xml = part.Serialize();
  EXPECT_NE(xml.find("<w:latentStyles/><w:style "), std::string::npos) << xml;
}

TEST(IndexStyles, RemovingGivesBackTheSameXml) {
  for (const std::string& styles :
       {std::string(), kNormal, Defaults("20", "") + "\n  " + kNormal + "\n  <!-- end -->\n", std::string("\n")}) {
    XmlPart part("word/styles.xml", StylesXml(styles));
    const std::string before = part.Serialize();
    for (int level = 1; level <= 9; ++level) EnsureIndexStyle(part, level);
    EXPECT_NE(part.Serialize(), before);
    const RemovedIndexStyles removed = RemoveAddedIndexStyles(part);
    EXPECT_TRUE(removed.changed);
    EXPECT_FALSE(removed.wholePart);
    EXPECT_EQ(part.Serialize(), before);
  }
}

TEST(IndexStyles, StylesThatWereThereAreNotRemoved) {
  XmlPart part("word/styles.xml",
               StylesXml("<w:style w:type=\"paragraph\" w:styleId=\"Index1\"><w:name w:val=\"index 1\"/></w:style>"));
  const std::string before = part.Serialize();
  EnsureIndexStyle(part, 1);
  EXPECT_FALSE(RemoveAddedIndexStyles(part).changed);
  EXPECT_EQ(part.Serialize(), before);
  EXPECT_FALSE(part.Changed());
}

TEST(IndexStyles, MarksSurviveSavingAndReading) {
  XmlPart part("word/styles.xml", StylesXml(kNormal));
  const std::string before = part.Serialize();
  EnsureIndexStyle(part, 1);
  XmlPart reread("word/styles.xml", part.Serialize());
  EXPECT_TRUE(RemoveAddedIndexStyles(reread).changed);
  EXPECT_EQ(reread.Root().Child("w:style").NextSibling(), docx::XmlNode());
  EXPECT_EQ(reread.Serialize().substr(reread.Serialize().find("<w:styles")), before.substr(before.find("<w:styles")));
}

TEST(IndexStyles, ANewPartIsKnownAsAWhole) {
  for (const bool strict : {false, true}) {
    XmlPart part("word/styles.xml", docx::NewStylesPart(strict));
    EXPECT_EQ(part.Strict(), strict);
    EXPECT_EQ(EnsureIndexStyle(part, 1), "Index1");
    EXPECT_NE(part.Serialize().find("<w:basedOn w:val=\"Normal\"/>"), std::string::npos);
    XmlPart reread("word/styles.xml", part.Serialize());
    EXPECT_TRUE(RemoveAddedIndexStyles(reread).wholePart);
  }
}

TEST(IndexStyles, ANewPartThatHasOtherStylesByNowStays) {
  XmlPart part("word/styles.xml", docx::NewStylesPart(false));
  EnsureIndexStyle(part, 1);
  part.SetAttribute(part.Root().AppendChild(part.Name("style")), "styleId", "Mine");
  const RemovedIndexStyles removed = RemoveAddedIndexStyles(part);
  EXPECT_TRUE(removed.changed);
  EXPECT_FALSE(removed.wholePart);
  const std::string xml = part.Serialize();
  EXPECT_EQ(xml.find("kelvarin"), std::string::npos) << xml;
  EXPECT_EQ(xml.find("Index1"), std::string::npos) << xml;
  EXPECT_NE(xml.find("w:styleId=\"Normal\""), std::string::npos) << xml;
  EXPECT_NE(xml.find("w:styleId=\"Mine\""), std::string::npos) << xml;
}

}  // namespace
