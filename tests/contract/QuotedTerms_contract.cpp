#include "DocxDocument.h"
#include "Markup.h"

#include "addin/clsProgForm.h"
#include "discovery/QuotedTerms.h"
#include "platform/word/Range.h"
#include "tests/fakes/FakeFormHost.h"
#include "tests/fakes/TermListForm.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

/// The search for terms in quotes on a document of the .docx host.
class QuotedTermsOnDocx : public testing::Test {
 protected:
  FoundTerms Find(bool bold) {
    const TermSearch search{docx_->Application(),
                            docx_->Document(),
                            *marker_,
                            progress_,
                            {form_.lstTermsInDoc, form_.lblTermsInDoc, form_.StatusBar1},
                            ProgressMode::kStatusBar};
    return FindQuotedTerms(search, docx_->Story(), {}, bold, FoundTerms(1));
  }

  void Open(const std::string& content) { docx_.emplace(DocxDocument::Parts{.body = Paragraph(content)}); }
  /// All is bold that does not say otherwise.
  void OpenBold(const std::string& content) {
    docx_.emplace(DocxDocument::Parts{
        .body = Paragraph("<w:pPr><w:pStyle w:val=\"Bold\"/></w:pPr>" + content),
        .styles = "<w:style w:type=\"paragraph\" w:styleId=\"Bold\"><w:name w:val=\"Bold\"/><w:rPr><w:b/></w:rPr>"
                  "</w:style>"});
  }
  FoundTerms FindBoldIn(const std::string& content) {
    Open(content);
    return Find(true);
  }
  FoundTerms FindBoldInBold(const std::string& content) {
    OpenBold(content);
    return Find(true);
  }
  FoundTerms FindIn(const std::string& content) {
    Open(content);
    return Find(false);
  }

  std::unique_ptr<TermMarker> marker_ = reach::Marker();
  std::optional<DocxDocument> docx_;

 private:
  fakes::CallLog log_;
  fakes::FakeFormHost host_{log_};
  fakes::TermListForm form_{host_};
  clsProgForm progress_{host_};
};

std::string Bold(const std::string& text) { return TextRun(text, "<w:b/>"); }
std::string NotBold(const std::string& text) { return TextRun(text, "<w:b w:val=\"0\"/>"); }
std::string Quoted(const std::string& content) { return TextRun("The \u201C") + content + TextRun("\u201D pays. "); }

const std::string kComment = "<w:r><w:commentReference w:id=\"1\"/></w:r>";
const std::string kNote = "<w:r><w:footnoteReference w:id=\"2\"/></w:r>";

/// What may stand between a term and its quotes without being part of it.
struct Piece {
  const char* what;
  std::string content;
};

const std::vector<Piece>& Pieces() {
  static const std::vector<Piece> pieces{
      {"a tracked deletion", Tracked("del", DeletedRun("Old "))},
      {"hidden text", TextRun("hid", "<w:vanish/>")},
      {"an entry of the author's", EntryField(" XE \"own\" ")},
      {"a comment's mark", kComment},
      {"a note's mark", kNote},
      {"several of them", Tracked("del", DeletedRun("x")) + kComment + EntryField(" XE \"own\" ") + kNote + kComment},
  };
  return pieces;
}

TEST_F(QuotedTermsOnDocx, ABoldTermIsFoundAgainWithItsEntryBehindIt) {
  ASSERT_EQ(FindBoldIn(Quoted(Bold("Bank")) + Quoted(TextRun("Broker"))), FoundTerms{u"Bank"});
  const word::DocumentPtr document = docx_->Document();
  marker_->BeginIndexing(document);
  marker_->BuildTermTable(docx_->Application(), document, {u"Bank"}, true);
  ASSERT_EQ(marker_->MarkTermInStory(document, docx_->Story(), u"Bank", 0, word::wdMainTextStory, true, false,
                                     u"IndexAll", u""),
            1);
  marker_->EndIndexing(document);
  ASSERT_NE(docx_->Text().find(u"Bank\u0013 XE \"Bank\""), std::u16string::npos);
  EXPECT_EQ(Find(true), FoundTerms{u"Bank"});
}

TEST_F(QuotedTermsOnDocx, WhatIsNoPartOfABoldTermNeedNotBeBold) {
  for (const auto& [what, piece] : Pieces()) {
    EXPECT_EQ(FindBoldIn(Quoted(piece + Bold("Bank"))), FoundTerms{u"Bank"}) << what << " before it";
    EXPECT_EQ(FindBoldIn(Quoted(Bold("Bank") + piece)), FoundTerms{u"Bank"}) << what << " behind it";
    EXPECT_EQ(FindBoldIn(Quoted(piece + Bold("B") + piece)), FoundTerms{u"B"}) << what << " on both sides";
  }
}

TEST_F(QuotedTermsOnDocx, WhatIsNoPartOfATermMakesItNoBolder) {
  for (const auto& [what, piece] : Pieces()) {
    EXPECT_EQ(FindBoldInBold(Quoted(piece + NotBold("B") + TextRun("ank"))), FoundTerms{u""}) << what << " before it";
    EXPECT_EQ(FindBoldInBold(Quoted(TextRun("Ban") + NotBold("k") + piece)), FoundTerms{u""}) << what << " behind it";
    EXPECT_EQ(FindBoldInBold(Quoted(piece + TextRun("Bank") + piece)), FoundTerms{u"Bank"}) << what;
  }
}

TEST_F(QuotedTermsOnDocx, ATermThatAFieldShowsIsAsBoldAsTheResult) {
  const std::string code = FieldMark("begin") + Code(" REF a ") + FieldMark("separate");
  EXPECT_EQ(FindBoldIn(Quoted(code + Bold("Bank") + FieldMark("end"))), FoundTerms{u"Bank"});
  EXPECT_EQ(FindBoldInBold(Quoted(code + NotBold("Bank") + FieldMark("end"))), FoundTerms{u""});
}

TEST_F(QuotedTermsOnDocx, QuotesAroundNothingThatIsPartOfATermHoldNone) {
  for (const auto& [what, piece] : Pieces()) {
    EXPECT_EQ(FindBoldInBold(Quoted(piece)), FoundTerms{u""}) << what;
    EXPECT_EQ(FindIn(Quoted(piece) + Quoted(TextRun("Bank"))), FoundTerms{u"Bank"}) << what;
  }
}

TEST_F(QuotedTermsOnDocx, ATermWithTheMarkOfANoteOrCommentIsTheTermWithoutIt) {
  for (const std::string& mark : {kComment, kNote, kNote + kComment}) {
    EXPECT_EQ(FindIn(Quoted(TextRun("Bank") + mark) + Quoted(TextRun("Bank")) + Quoted(mark + TextRun("Bank"))),
              FoundTerms{u"Bank"});
  }
}

TEST_F(QuotedTermsOnDocx, AMarkWithinATermStaysInIt) {
  EXPECT_EQ(FindIn(Quoted(TextRun("Central") + kComment + TextRun(" Bank"))), FoundTerms{u"Central\u0005 Bank"});
}

}  // namespace
