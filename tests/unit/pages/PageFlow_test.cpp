#include "hosts/docx/pages/PageFlow.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include "hosts/docx/xml/XmlPart.h"

namespace {

/// All that is read of a main text. @param rest elements of the document that are in no text
std::string Read(const std::string& blocks, const std::string& rest = {}) {
  const auto part = std::make_shared<docx::XmlPart>(
      "word/document.xml",
      "<w:document xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\"><w:body>" + blocks +
          "</w:body>" + rest + "</w:document>");
  const docx::XmlNode body = part->Child(part->Root(), docx::Tag::kBody);
  const docx::Story story(part, 1, {body});
  const docx::PageFlow flow = docx::ReadPageFlow(story, {body});
  std::ostringstream read;
  for (const docx::FlowEvent& event : flow.events) {
    read << event.position << ":" << static_cast<int>(event.kind) << ":" << event.text << ":" << event.Node().Name()
         << ":" << docx::XmlNode(event.run).Child("w:t").Value() << docx::XmlNode(event.run).AttributeText() << " ";
  }
  for (const docx::FlowStretch& index : flow.indexes) read << "[" << index.start << "-" << index.end << "]";
  return read.str();
}

std::string R(const std::string& content, const std::string& id) {
  return "<w:r w:rsidR=\"" + id + "\">" + content + "</w:r>";
}
std::string T(const std::string& text) { return "<w:t xml:space=\"preserve\">" + text + "</w:t>"; }
std::string Mark(const std::string& type) { return R("<w:fldChar w:fldCharType=\"" + type + "\"/>", "f"); }
std::string Field(const std::string& code, const std::string& result) {
  return Mark("begin") + R("<w:instrText>" + code + "</w:instrText>", "c") + Mark("separate") + result + Mark("end");
}

// Only the first is read along its elements; the other along the text that was made of them.
TEST(PageFlow, IsTheSameWhetherOrNotTheDocumentHadBreaksOfALastLayout) {
  const std::string inlines =
      "<w:bookmarkStart w:id=\"1\" w:name=\"b\"/>" + R("<w:rPr><w:b/></w:rPr>" + T("bold"), "1") + "<w:hyperlink>" +
      R(T("link") + "<w:tab/>", "2") + "</w:hyperlink>" + "<w:del>" +
      R("<w:delText>gone</w:delText><w:br w:type=\"page\"/><w:footnoteReference w:id=\"3\"/>", "3") + "</w:del>" +
      "<w:ins>" + R("<w:br w:type=\"column\"/>" + T("in") + "<w:br/><w:cr/>", "4") + "</w:ins>" +
      "<w:fldSimple w:instr=\" PAGE \">" + R(T("7"), "5") + "</w:fldSimple>" + Field(" INDEX ", R(T("Buyer, 1"), "6")) +
      Field(" REF x ", R(T("seen"), "7")) + R("<w:footnoteReference w:id=\"2\"/><w:softHyphen/><w:sym/>", "8") +
      "<w:bookmarkEnd w:id=\"1\"/><w:sdt><w:sdtContent>" + R(T("control") + "<w:drawing/>", "9") +
      "</w:sdtContent></w:sdt>";
  const std::string paragraph = "<w:p>" + inlines + "</w:p>";
  const std::string blocks = "<w:p/>" + paragraph + "<w:p><w:pPr><w:sectPr/></w:pPr>" +
                             R("<w:br w:type=\"page\"/>", "0") + "</w:p><w:tbl><w:tr><w:tc>" + paragraph +
                             "</w:tc><w:tc><w:p/></w:tc></w:tr></w:tbl><w:bookmarkStart w:id=\"4\" w:name=\"c\"/>" +
                             paragraph + "<w:bookmarkEnd w:id=\"4\"/><w:p>" + Mark("begin") +
                             R("<w:instrText> INDEX </w:instrText>", "c") + "</w:p>" + paragraph;
  const std::string read = Read(blocks, "<w:p><w:r><w:lastRenderedPageBreak/></w:r></w:p>");
  EXPECT_GT(read.size(), 200U);
  EXPECT_EQ(Read(blocks), read);
}

}  // namespace
