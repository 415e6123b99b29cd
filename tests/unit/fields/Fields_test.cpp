#include "hosts/docx/fields/Fields.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace docx {
namespace {

const std::string kUri = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";

std::string Mark(const std::string& type) { return "<w:r><w:fldChar w:fldCharType=\"" + type + "\"/></w:r>"; }
std::string Code(const std::string& text) {
  return "<w:r><w:instrText xml:space=\"preserve\">" + text + "</w:instrText></w:r>";
}
std::string Text(const std::string& text) { return "<w:r><w:t xml:space=\"preserve\">" + text + "</w:t></w:r>"; }
std::string Field(const std::string& code, const std::string& result) {
  return Mark("begin") + Code(code) + Mark("separate") + Text(result) + Mark("end");
}

/// One paragraph with that content. Marks count one, so the story of Text("a") is "a" and its paragraph mark.
std::unique_ptr<Story> Paragraph(const std::string& content) {
  auto part = std::make_shared<XmlPart>("word/document.xml", "<w:document xmlns:w=\"" + kUri + "\"><w:body><w:p>" +
                                                                 content + "</w:p></w:body></w:document>");
  const docx::XmlNode body = part->Child(part->Root(), Tag::kBody);
  return std::make_unique<Story>(part, 1, std::vector<docx::XmlNode>{body});
}

TEST(Fields, HaveCodeAndResult) {
  const auto story = Paragraph(Text("ab") + Field(" PAGE ", "12") + Text("c"));
  const auto fields = AllFields(story->Atoms());
  ASSERT_EQ(fields.size(), 1U);
  EXPECT_EQ(fields[0].begin, 2);
  EXPECT_EQ(story->Text(fields[0].CodeStart(), fields[0].separator), u" PAGE ");
  EXPECT_TRUE(fields[0].HasResult());
  EXPECT_EQ(story->Text(fields[0].separator + 1, fields[0].end), u"12");
  EXPECT_EQ(story->Text(fields[0].Behind(), story->Length()), u"c\r");
}

TEST(Fields, WithoutSeparatorHaveNoResult) {
  const auto story = Paragraph(Mark("begin") + Code("XE a") + Mark("end"));
  const auto fields = AllFields(story->Atoms());
  ASSERT_EQ(fields.size(), 1U);
  EXPECT_FALSE(fields[0].HasResult());
  EXPECT_EQ(fields[0].end, 5);
}

TEST(Fields, SimpleOnesAreFieldsToo) {
  const auto story = Paragraph("<w:fldSimple w:instr=\" PAGE \">" + Text("3") + "</w:fldSimple>");
  const auto fields = AllFields(story->Atoms());
  ASSERT_EQ(fields.size(), 1U);
  EXPECT_EQ(FieldCodeText(*story, fields[0]), u" PAGE ");
  EXPECT_EQ(story->Text(fields[0].separator + 1, fields[0].end), u"3");
}

TEST(Fields, NestInCodesAndResults) {
  const std::string inner = Field("REF x", "Yes");
  const auto story = Paragraph(Mark("begin") + Code("IF ") + inner + Code(" = 1") + Mark("separate") +
                               Field("PAGE", "7") + Mark("end"));
  const auto fields = AllFields(story->Atoms());
  ASSERT_EQ(fields.size(), 3U);
  EXPECT_EQ(FieldCodeText(*story, fields[0]), u"IF Yes = 1");
  EXPECT_LT(fields[0].begin, fields[1].begin);
  EXPECT_LT(fields[1].end, fields[0].separator);
  EXPECT_GT(fields[2].begin, fields[0].separator);
}

TEST(Fields, ACodeIsJoinedFromItsRuns) {
  const auto story =
      Paragraph(Mark("begin") + Code("INDEX \\e \":") + "<w:r><w:tab/></w:r>" + Code("\"") + Mark("end"));
  const auto fields = AllFields(story->Atoms());
  ASSERT_EQ(fields.size(), 1U);
  EXPECT_EQ(FieldCodeText(*story, fields[0]), u"INDEX \\e \":\t\"");
}

TEST(Fields, WithoutAnEndAreNone) {
  const auto story = Paragraph(Mark("begin") + Code("IF ") + Field("PAGE", "7") + Text("end"));
  const AtomSequence& atoms = story->Atoms();
  EXPECT_FALSE(FieldAt(atoms, atoms.OfFieldBegin(0)));
  EXPECT_TRUE(FieldAt(atoms, atoms.OfFieldBegin(1)));
  ASSERT_EQ(AllFields(atoms).size(), 1U);
  FieldFinder finder(atoms);
  EXPECT_FALSE(finder.At(atoms.OfFieldBegin(0)));
  EXPECT_TRUE(finder.At(atoms.OfFieldBegin(1)));
}

TEST(Fields, StrayMarksAreNoFields) {
  const auto story = Paragraph(Mark("end") + Mark("separate") + Text("a") + Field("PAGE", "1"));
  ASSERT_EQ(AllFields(story->Atoms()).size(), 1U);
  const auto crossed = Paragraph("<w:fldSimple w:instr=\"PAGE\">" + Mark("begin") + "</w:fldSimple>" + Mark("end"));
  ASSERT_EQ(AllFields(crossed->Atoms()).size(), 1U);
}

TEST(Fields, EncloseThePositionsBetweenTheirMarks) {
  // 0 a, 1 begin, 2-5 PAGE, 6 separator, 7 begin, 8 B, 9 separator, 10 r, 11 end, 12 x, 13 end, 14 z
  const auto story = Paragraph(Text("a") + Mark("begin") + Code("PAGE") + Mark("separate") + Field("B", "r") +
                               Text("x") + Mark("end") + Text("z"));
  const AtomSequence& atoms = story->Atoms();
  const auto begins = [&](Position position) {
    std::vector<Position> result;
    for (const FieldSpan& field : EnclosingFields(atoms, position)) result.push_back(field.begin);
    return result;
  };
  EXPECT_EQ(begins(0), (std::vector<Position>{}));
  EXPECT_EQ(begins(1), (std::vector<Position>{}));
  EXPECT_EQ(begins(4), (std::vector<Position>{1}));
  EXPECT_EQ(begins(10), (std::vector<Position>{1, 7}));
  EXPECT_EQ(begins(12), (std::vector<Position>{1}));
  EXPECT_EQ(begins(13), (std::vector<Position>{1}));
  EXPECT_EQ(begins(14), (std::vector<Position>{}));
}

TEST(Fields, EncloseAPositionInsideASimpleFieldsCode) {
  const auto story = Paragraph("<w:fldSimple w:instr=\"PAGE\">" + Text("3") + "</w:fldSimple>");
  EXPECT_EQ(EnclosingFields(story->Atoms(), 2).size(), 1U);
  EXPECT_EQ(EnclosingFields(story->Atoms(), 6).size(), 1U);
  EXPECT_TRUE(EnclosingFields(story->Atoms(), 8).empty());
}

TEST(Fields, AreCountedCorrectlyAfterEdits) {
  const auto story = Paragraph(Text("one two"));
  story->InsertField(3, u" XE \"one\" ");
  EXPECT_EQ(AllFields(story->Atoms()).size(), 1U);
  EXPECT_EQ(EnclosingFields(story->Atoms(), 6).size(), 1U);
  EXPECT_TRUE(EnclosingFields(story->Atoms(), story->Length() - 1).empty());
  story->Erase(3, story->Length() - 5);
  EXPECT_TRUE(AllFields(story->Atoms()).empty());
  EXPECT_EQ(story->Atoms().FieldDepthBefore(story->Length()), 0);
}

TEST(Fields, HaveAKeyword) {
  const auto story = Paragraph(Field("  xe \"a\"", "b"));
  EXPECT_EQ(FieldKeyword(story->Atoms(), AllFields(story->Atoms()).front()), u"XE");
}

}  // namespace
}  // namespace docx
