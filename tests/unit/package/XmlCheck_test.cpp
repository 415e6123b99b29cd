#include "hosts/docx/package/XmlCheck.h"

#include <gtest/gtest.h>

#include "hosts/docx/package/Package.h"

#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace std::string_literals;

std::string WhyNot(std::string_view xml) {
  try {
    docx::CheckXml(xml, "part.xml");
  } catch (const docx::PackageError& error) {
    return error.what();
  }
  return "";
}

std::string Repeated(std::string_view text, std::size_t times) {
  std::string result;
  for (std::size_t i = 0; i < times; ++i) result += text;
  return result;
}

TEST(CheckXml, AcceptsWhatXmlAllows) {
  const std::string accepted[] = {
      "<a/>",
      "<a></a>",
      "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\" standalone='yes'?>\r\n<a/>\n",
      "<w:p w:x = \"1\"\n w:y='2' ><w:r >text</w:r ></w:p>",
      "<a b=\"&lt;&gt;&amp;&quot;&apos;&#65;&#x1F600;'>\"/>",
      "<a>&lt;&#9;&#xA;] ]] > ]&gt;</a>",
      "<a><!-- < & ]]> - ? \xE2\x80\x94 --></a>",
      "<!-- before --><?target data?><a><?x?></a><!-- after --> \t",
      "<a><![CDATA[ <b> & ]] > -- ? ]]]></a>",
      "<a>\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBF\xBD</a>",
      "<\xC3\xA9l\xC3\xA9ment \xC3\xA0=\"\"/>",
      "<a b1=\"\" b2=\"\" b3=\"\" b4=\"\" b5=\"\" b6=\"\" b7=\"\" b8=\"\" b9=\"\" b10=\"\"/>",
      "<a><b/><b/><bb><b></b></bb></a>",
  };
  for (const std::string& xml : accepted) EXPECT_EQ(WhyNot(xml), "") << xml;
}

struct Refused {
  std::string xml;
  std::string why;
};

TEST(CheckXml, RefusesWhatTheParserMustNotSee) {
  const std::vector<Refused> cases = {
      {"", "holds no XML"},
      {" \n", "holds no XML"},
      {"<!-- only a comment -->", "holds no XML"},
      {"text<a/>", "text outside its root"},
      {"<a/>text", "text outside its root"},
      {"<a/>&amp;", "text outside its root"},
      {"<a/><b/>", "second root"},
      {"<a/><a></a>", "second root"},
      {"<!DOCTYPE a><a/>", "document type"},
      {"<!DOCTYPE a [<!ENTITY x \"y\">]><a>&x;</a>", "document type"},
      {"<a><!DOCTYPE b></a>", "document type"},
      {"<a>&nbsp;</a>", "not declared"},
      {"<a b=\"&x;\"/>", "not declared"},
      {"<a>&;</a>", "not declared"},
      {"<a>a & b</a>", "no entity reference"},
      {"<a>&amp</a>", "no entity reference"},
      {"<a>&#0;</a>", "does not allow"},
      {"<a>&#x1F;</a>", "does not allow"},
      {"<a>&#xD800;</a>", "does not allow"},
      {"<a>&#x110000;</a>", "does not allow"},
      {"<a>&#99999999999;</a>", "does not allow"},
      {"<a>&#;</a>", "does not allow"},
      {"<a>&#x;</a>", "does not allow"},
      {"<a>&#1a;</a>", "does not allow"},
      {"<a>\x01</a>", "control character"},
      {"<a b=\"\x0B\"/>", "control character"},
      {"<a>\0</a>"s, "control character"},
      {"<a><!-- \x02 --></a>", "control character"},
      {"<a><![CDATA[\x03]]></a>", "control character"},
      {"<a>\x80</a>", "not valid UTF-8"},
      {"<a>\xC0\xAF</a>", "not valid UTF-8"},
      {"<a>\xC3</a>", "not valid UTF-8"},
      {"<a>\xE0\x80\xAF</a>", "not valid UTF-8"},
      {"<a>\xED\xA0\x80</a>", "not valid UTF-8"},
      {"<a>\xF4\x90\x80\x80</a>", "not valid UTF-8"},
      {"<a>\xF5\x80\x80\x80</a>", "not valid UTF-8"},
      {"<a b=\"\xFF\"/>", "not valid UTF-8"},
      {"<a>\xE2\x82", "not valid UTF-8"},
      {"<a>\xEF\xBF\xBE</a>", "does not allow"},
      {"<a b=\"<\"/>", "\"<\" in an attribute"},
      {"<a b='<c>'/>", "\"<\" in an attribute"},
      {"<a b=\"1\" b=\"2\"/>", "twice"},
      {"<a b1='' b2='' b3='' b4='' b5='' b6='' b7='' b8='' b9='' b3=''/>", "twice"},
      {"<a b=1/>", "quoted value"},
      {"<a b/>", "without a value"},
      {"<a b></a>", "without a value"},
      {"<a b=\"1\"c=\"2\"/>", "malformed tag"},
      {"<a / >", "malformed tag"},
      {"<1/>", "without a name"},
      {"< a/>", "without a name"},
      {"<a -b=\"\"/>", "without a name"},
      {"<a></b>", "does not match"},
      {"<a></aa>", "does not match"},
      {"<aa></a>", "does not match"},
      {"<a><b></a></b>", "does not match"},
      {"</a>", "does not match"},
      {"<a></a b>", "does not match"},
      {"<a>", "ends before"},
      {"<a><b/>", "ends before"},
      {"<a>text", "ends before"},
      {"<", "middle of a tag"},
      {"<a", "middle of a tag"},
      {"<a b=\"1", "middle of an attribute"},
      {"<a>]]></a>", "\"]]>\""},
      {"<a><!-- -- --></a>", "\"--\" in a comment"},
      {"<a><!-- ", "middle of a comment"},
      {"<a><!--->", "middle of a comment"},
      {"<a><![CDATA[ ]] ></a>", "middle of a comment, section"},
      {"<![CDATA[x]]><a/>", "malformed tag"},
      {"<a><!b></a>", "malformed tag"},
      {"<a><?b></a>", "processing instruction"},
      {"<a><?b?c?></a>", "processing instruction"},
      {"<a><?b c></a>", "or instruction"},
      {"<a/><?xml version=\"1.0\"?>", "XML declaration"},
      {"<?xml version?><a/>", "malformed XML declaration"},
      {"<?xml encoding='UTF-8' version='1.0'?><a/>", "malformed XML declaration"},
      {"<?xml version='1.0' other='x'?><a/>", "malformed XML declaration"},
      {"<?xml version='1.0'><a/>", "malformed XML declaration"},
      {"<?xml version='1.0'encoding='UTF-8'?><a/>", "malformed XML declaration"},
      {"<?xml version='1.0' encoding='?>UTF-8'?><a/>", "malformed XML declaration"},
      {" <?xml version=\"1.0\"?><a/>", "XML declaration"},
      {"<?XML version=\"1.0\"?><a/>", "XML declaration"},
  };
  for (const Refused& refused : cases) {
    EXPECT_NE(WhyNot(refused.xml).find(refused.why), std::string::npos) << refused.xml << ": " << WhyNot(refused.xml);
  }
}

TEST(CheckXml, NamesThePartAndThePlace) {
  EXPECT_EQ(WhyNot("<a>&x;</a>"),
            "is damaged or not accepted: part.xml refers to an entity that is not declared (at byte 3)");
}

// Every cut of a document is an error and none reads beyond the end.
TEST(CheckXml, RefusesEveryBeginningOfADocument) {
  const std::string xml =
      "<?xml version=\"1.0\"?><a b=\"&#65;\xC3\xA9\" c='&lt;'><!-- x -->t&amp;\xE2\x82\xAC<![CDATA[y]]><?p q?><b/></a>";
  ASSERT_EQ(WhyNot(xml), "");
  for (std::size_t size = 0; size < xml.size(); ++size) {
    const std::vector<char> exact(xml.begin(), xml.begin() + static_cast<std::ptrdiff_t>(size));
    EXPECT_NE(WhyNot(std::string_view(exact.data(), exact.size())), "") << size;
  }
}

TEST(CheckXml, LimitsNesting) {
  const auto nested = [](std::size_t depth) { return Repeated("<a>", depth) + Repeated("</a>", depth); };
  EXPECT_EQ(WhyNot(nested(docx::kMaxDepth)), "");
  EXPECT_NE(WhyNot(nested(docx::kMaxDepth + 1)).find("nested too deeply"), std::string::npos);
  EXPECT_NE(WhyNot(nested(100'000)).find("nested too deeply"), std::string::npos);
}

TEST(CheckXml, LimitsWhatATreeHasNodesFor) {
  EXPECT_EQ(WhyNot("<a>" + Repeated("<b c=''/>", 100'000) + "</a>"), "");
  for (const char* node : {"<b/>", "<!---->", "<?p?>", "<![CDATA[]]>"}) {
    const std::string many = Repeated(Repeated(node, 1000), docx::kMaxNodes / 1000);
    EXPECT_NE(WhyNot("<a>" + many + "</a>").find("too many elements"), std::string::npos) << node;
  }
}

TEST(CheckXml, LimitsTheAttributesOfAnElement) {
  std::string xml = "<a";
  for (std::size_t i = 0; i <= docx::kMaxAttributes; ++i) xml += " b" + std::to_string(i) + "=''";
  EXPECT_NE(WhyNot(xml + "/>").find("too many attributes in one element"), std::string::npos);
}

TEST(CheckXml, TakesNoLongerForManyAttributesInOneTag) {
  std::string xml = "<a";
  for (int i = 0; i < 50'000; ++i) xml += " b" + std::to_string(i) + "=''";
  EXPECT_EQ(WhyNot(xml + "/>"), "");
  EXPECT_NE(WhyNot(xml + " b7=''/>").find("twice"), std::string::npos);
}

std::string Utf16(std::u16string_view text, bool bigEndian) {
  std::string bytes;
  for (const char16_t unit : text) {
    const char high = static_cast<char>(unit >> 8);
    const char low = static_cast<char>(unit & 0xFF);
    bytes += bigEndian ? high : low;
    bytes += bigEndian ? low : high;
  }
  return bytes;
}

TEST(ToUtf8, LeavesUtf8AsItIs) {
  for (const std::string xml : {"<a>\xC3\xA9</a>", "\xEF\xBB\xBF<a/>", "<?xml version='1.0' encoding='utf-8'?><a/>",
                                "<?xml version='1.0'?><a encoding='x'/>", ""}) {
    EXPECT_EQ(docx::ToUtf8(xml, "part.xml"), xml);
  }
}

TEST(ToUtf8, ConvertsUtf16AndItsDeclaration) {
  const std::u16string xml = u"<?xml version=\"1.0\" encoding=\"UTF-16\"?><a>\u00E9\u20AC\U0001F600</a>";
  const std::string expected = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><a>\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80</a>";
  EXPECT_EQ(docx::ToUtf8(Utf16(u"\uFEFF" + xml, false), "part.xml"), expected);
  EXPECT_EQ(docx::ToUtf8(Utf16(u"\uFEFF" + xml, true), "part.xml"), expected);
  EXPECT_EQ(docx::ToUtf8(Utf16(xml, false), "part.xml"), expected);
  EXPECT_EQ(docx::ToUtf8(Utf16(xml, true), "part.xml"), expected);
}

TEST(ToUtf8, RefusesOtherAndBrokenEncodings) {
  EXPECT_THROW(docx::ToUtf8("<?xml version='1.0' encoding='windows-1252'?><a/>", "part.xml"), docx::PackageError);
  EXPECT_THROW(docx::ToUtf8(Utf16(u"\uFEFF<a/>", false) + "x", "part.xml"), docx::PackageError);
  EXPECT_THROW(docx::ToUtf8(Utf16(u"\uFEFF<a>\xD83D</a>", false), "part.xml"), docx::PackageError);
  EXPECT_THROW(docx::ToUtf8(Utf16(u"\uFEFF<a>\xDE00</a>", true), "part.xml"), docx::PackageError);
}

}  // namespace
