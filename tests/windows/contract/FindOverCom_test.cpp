#include <gtest/gtest.h>

#include "platform/word/Document.h"
#include "platform/word/Find.h"
#include "platform/word/Format.h"
#include "platform/word/Range.h"
#include "tests/contract/DocxDocument.h"
#include "tests/contract/Markup.h"

namespace {

/// Searches of a Word that takes quotes as Word does, through what the host makes of them.
class FindOverCom : public testing::Test {
 protected:
  static constexpr char kParagraph[] =
      "<w:p><w:r><w:t xml:space=\"preserve\">A \u201CBuyer\u201D, a \"Seller\" and </w:t></w:r>"
      "<w:r><w:rPr><w:b/></w:rPr><w:t>\u201Cthe Bank\u201D</w:t></w:r>"
      "<w:r><w:t xml:space=\"preserve\"> and \"the Bank\" again.</w:t></w:r></w:p>";

  /// All texts that a search finds.
  std::vector<std::u16string> Found(std::u16string_view text, bool wildcards) {
    const word::RangePtr range = document.Story();
    const word::FindPtr find = range->Find();
    find->SetText(text);
    find->SetMatchWildcards(wildcards);
    std::vector<std::u16string> found;
    while (find->Execute()) found.push_back(range->Text());
    return found;
  }

  DocxDocument document{{.body = kParagraph}};
};

using Texts = std::vector<std::u16string>;

TEST_F(FindOverCom, AStraightQuoteFindsAllStyles) {
  EXPECT_EQ(Found(u"\"", false).size(), 8u);
  EXPECT_EQ(Found(u"\"", true).size(), 8u);
}

TEST_F(FindOverCom, ACurlyQuoteFindsOnlyItself) {
  EXPECT_EQ(Found(u"\u201C", false), (Texts{u"\u201C", u"\u201C"}));
  EXPECT_EQ(Found(u"\u201D", true), (Texts{u"\u201D", u"\u201D"}));
}

TEST_F(FindOverCom, TermsInQuotesAreFoundByOnePattern) {
  EXPECT_EQ(Found(u"\"*\"", true),
            (Texts{u"\u201CBuyer\u201D", u"\"Seller\"", u"\u201Cthe Bank\u201D", u"\"the Bank\""}));
}

TEST_F(FindOverCom, AQuoteMovesPastItsArticleWithItsStyleAndFormatting) {
  const word::RangePtr story = document.Story();
  const word::FindPtr find = story->Find();
  find->SetText(u"\"the Bank");
  find->Replacement()->SetText(u"the \"Bank");
  EXPECT_TRUE(find->Execute({.Replace = word::wdReplaceAll}));
  EXPECT_EQ(document.Text(), u"A \u201CBuyer\u201D, a \"Seller\" and the \u201CBank\u201D and the \"Bank\" again.\r");
  const auto at = static_cast<word::Position>(document.Text().find(u"\u201CBank"));
  EXPECT_EQ(document.Document()->Range(at, at + 1)->Font()->Bold(), -1);
  const auto straight = static_cast<word::Position>(document.Text().find(u"\"Bank"));
  EXPECT_EQ(document.Document()->Range(straight, straight + 1)->Font()->Bold(), 0);
  EXPECT_FALSE(find->Execute({.Replace = word::wdReplaceAll}));
}

}  // namespace
