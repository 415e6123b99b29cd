#include "DocxDocument.h"

#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Find.h"
#include "platform/word/Range.h"

#include <gtest/gtest.h>

namespace {

constexpr char kParagraphs[] =
    "<w:p><w:r><w:t xml:space=\"preserve\">The \u201CBuyer\u201D and the </w:t></w:r>"
    "<w:r><w:rPr><w:highlight w:val=\"green\"/></w:rPr><w:t>\u201CSeller\u201D</w:t></w:r>"
    "<w:r><w:rPr><w:highlight w:val=\"yellow\"/></w:rPr><w:t>\"Agent\"</w:t></w:r></w:p>";

class HighlightedQuotes : public testing::Test {
 protected:
  void Highlight(char16_t quote) { HighlightIn(document, quote); }
  void HighlightIn(const DocxDocument& opened, char16_t quote) {
    const QuoteHighlighting next{opened.Story(), quote};
    marker->OptionChanged(opened.Document(), &next);
    const word::FindPtr find = opened.Story()->Find();
    find->SetText({&quote, 1});
    find->Replacement()->SetHighlight(-1);
    find->Execute({.Replace = word::wdReplaceAll});
    marker->OptionChanged(opened.Document(), nullptr);
  }
  int ColourAt(word::Position position) {
    const word::RangePtr range = document.Story();
    range->SetRange(position, position + 1);
    return range->HighlightColorIndex();
  }

  DocxDocument document{{.body = kParagraphs}};
  std::unique_ptr<TermMarker> marker = reach::Marker();
};

TEST_F(HighlightedQuotes, AreTakenAwayWithTheAuthorsHighlightingGivenBack) {
  const auto before = document.Canonical();
  Highlight(u'"');
  for (std::size_t i = 0; i < document.Text().size(); ++i) {
    const char16_t unit = document.Text()[i];
    if (unit == u'"' || unit == 0x201C || unit == 0x201D) {
      EXPECT_EQ(ColourAt(static_cast<word::Position>(i)), word::wdYellow);
    }
  }
  marker->RemoveTermHighlighting(document.Document());
  EXPECT_EQ(document.Canonical(), before);
}

TEST_F(HighlightedQuotes, TwiceGoAtOnce) {
  const auto before = document.Canonical();
  Highlight(u'"');
  Highlight(u'"');
  Highlight(0x201C);
  marker->RemoveTermHighlighting(document.Document());
  EXPECT_EQ(document.Canonical(), before);
}

TEST_F(HighlightedQuotes, GoAlsoWhereTheDocumentWasEditedSince) {
  Highlight(u'"');
  document.Document()->Range(0, 4)->Delete();
  document.Document()->Range(5, 5)->SetText(u"x");
  marker->RemoveTermHighlighting(document.Document());
  EXPECT_EQ(document.Document()->Bookmarks()->Count(), 0);
  for (word::Position position = 0; position < 17; ++position) EXPECT_EQ(ColourAt(position), word::wdNoHighlight);
}

TEST_F(HighlightedQuotes, InsideAHighlightedTermGoWithIt) {
  const std::string text = "<w:r><w:t>the \u201CNet\u201D price</w:t></w:r>";
  const std::string yellow =
      "<w:r><w:t xml:space=\"preserve\"> or the </w:t></w:r><w:r><w:rPr><w:highlight w:val=\"yellow\"/></w:rPr>"
      "<w:t>\u201CNet</w:t></w:r><w:r><w:t>\u201D price</w:t></w:r>";
  const DocxDocument::Parts parts{.body = "<w:p>" + text + yellow + "</w:p>"};
  for (const bool hasEntries : {true, false}) {
    const DocxDocument indexed(parts);
    const auto before = indexed.Canonical();
    EXPECT_EQ(marker->MarkTermInStory(indexed.Document(), indexed.Story(), u"the \u201CNet\u201D price", 0, 1, true,
                                      false, u"IndexAll", u""),
              2);
    if (!hasEntries) marker->RemoveIndexEntries(indexed.Application(), indexed.Document(), false);
    HighlightIn(indexed, u'"');
    if (hasEntries) marker->RemoveIndexEntries(indexed.Application(), indexed.Document(), false);
    marker->RemoveTermHighlighting(indexed.Document());
    EXPECT_EQ(indexed.Canonical(), before);
  }
}

TEST_F(HighlightedQuotes, WhatIsOnlyToldOfTheOptionLeavesTheDocumentAlone) {
  const auto before = document.Canonical();
  marker->OptionChanged(document.Document(), nullptr);
  EXPECT_EQ(document.Canonical(), before);
}

}  // namespace
