#include "DocxDocument.h"

#include "discovery/Articles.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Range.h"

#include <gtest/gtest.h>

namespace {

TEST(HighlightedQuote, GivesItsColourBackAlsoWhereItWasMovedPastAnArticle) {
  const DocxDocument::Parts parts{.body = "<w:p><w:r><w:t>See \u201Cthe Bank\u201D.</w:t></w:r></w:p>"};
  const DocxDocument plain(parts);
  MoveQuotePastArticle(plain.Document(), u"the Bank");
  const DocxDocument moved(parts);
  const word::RangePtr quote = moved.Document()->Range(4, 5);
  quote->SetHighlightColorIndex(word::wdYellow);
  moved.Document()->Bookmarks()->Add(u"_KVXHighlight_0_1", quote);
  MoveQuotePastArticle(moved.Document(), u"the Bank");
  ASSERT_EQ(moved.Text(), u"See the \u201CBank\u201D.\r");
  reach::Marker()->RemoveTermHighlighting(moved.Document());
  EXPECT_EQ(moved.Canonical(), plain.Canonical());
}

}  // namespace
