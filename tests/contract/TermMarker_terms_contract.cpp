#include "TermMarkerOnDocx.h"

#include "platform/word/HostError.h"

#include <utility>

namespace {

/// What stands where in a text whose terms are marked, an entry as its term in braces.
class MarkedTerms : public TermMarkerOnDocx {
 protected:
  std::u16string Marked(const std::string& content, const Terms& terms) {
    OpenParagraph(content);
    const auto before = docx_->Canonical();
    Mark(terms);
    std::u16string text = docx_->Text();
    for (const std::u16string& term : terms) {
      for (const char16_t* const switches : {u" ", u" \\b "}) {
        const std::u16string entry = u"\u0013 XE \"" + term + u"\" \\f \"DefinedTermsIndex\"" + switches + u"\u0015";
        for (std::size_t at = text.find(entry); at != std::u16string::npos; at = text.find(entry)) {
          text.replace(at, entry.size(), u"{" + term + u"}");
        }
      }
    }
    text.pop_back();
    RemoveAll();
    ExpectSameParts(before);
    return text;
  }
};

TEST_F(MarkedTerms, APossessivesEntryStandsBehindTheWordWhateverItsApostrophe) {
  EXPECT_EQ(Marked(TextRun("the Buyer's and the Buyer\u2019s"), {u"Buyer"}),
            u"the Buyer's{Buyer} and the Buyer\u2019s{Buyer}");
  EXPECT_EQ(Marked(TextRun("Buyer", "<w:b/>") + TextRun("\u2019") + TextRun("s.", "<w:i/>"), {u"Buyer"}),
            u"Buyer\u2019s{Buyer}.");
}

TEST_F(MarkedTerms, ATermIsIndexedAsChosenWhateverApostropheItsOccurrenceHas) {
  EXPECT_EQ(
      Marked(TextRun("Seller's Knowledge, Seller\u2019s Knowledge, Seller's"), {u"Seller", u"Seller\u2019s Knowledge"}),
      u"Seller's Knowledge{Seller\u2019s Knowledge}, Seller\u2019s Knowledge{Seller\u2019s Knowledge}, "
      u"Seller's{Seller}");
}

// What removing takes from it is the whole of the occurrence, not all but a possessive ending.
TEST_F(MarkedTerms, ATermThatEndsInAPossessiveIsGivenBackWhateverItsApostrophe) {
  EXPECT_EQ(Marked(TextRun("for the Lloyd\u2019s, the LLOYD\u2018S"), {u"Lloyd's"}),
            u"for the Lloyd\u2019s{Lloyd's}, the LLOYD\u2018S");
}

TEST_F(MarkedTerms, ATermThatReadsAsAPossessiveEndingIsGivenBackBeforeOneAndAsOne) {
  EXPECT_EQ(Marked(TextRun("the s\u2019s length in Sales\u2019s"), {u"s"}),
            u"the s\u2019s{s} length in Sales\u2019s{s}");
}

TEST_F(MarkedTerms, ATermThatRepeatsItselfIsGivenBackThoughItsEntryIsCut) {
  std::string repeated = "Term";
  while (repeated.size() < 300) repeated += " of the Term";
  const std::u16string term(repeated.begin(), repeated.end());
  OpenParagraph(TextRun("The " + repeated + "\u2019s end") + TextRun(" of ", "<w:highlight w:val=\"yellow\"/>") +
                TextRun(repeated.substr(0, 250)) + TextRun(repeated.substr(250), "<w:highlight w:val=\"yellow\"/>"));
  const auto before = docx_->Canonical();
  EXPECT_EQ(Mark({term})[0].count, 2);
  RemoveAll();
  ExpectSameParts(before);
}

TEST_F(MarkedTerms, PunctuationQuotesBracketsSlashesAndHyphensBoundATerm) {
  EXPECT_EQ(
      Marked(TextRun("(Buyer)[Buyer]Buyer/Buyer-Buyer\u2013Buyer,Buyer;Buyer.\u201CBuyer\u201D'Buyer'"), {u"Buyer"}),
      u"(Buyer{Buyer})[Buyer{Buyer}]Buyer{Buyer}/Buyer{Buyer}-Buyer{Buyer}\u2013Buyer{Buyer},Buyer{Buyer};"
      u"Buyer{Buyer}.\u201CBuyer{Buyer}\u201D'Buyer{Buyer}'");
  EXPECT_EQ(Marked(TextRun("Buyers Buyer1 1Buyer preBuyer"), {u"Buyer"}), u"Buyers Buyer1 1Buyer preBuyer");
}

TEST_F(MarkedTerms, OfNestedTermsTheLongestIsMarkedAndTheOthersElsewhere) {
  EXPECT_EQ(Marked(TextRun("the Stock Pur") + TextRun("chase Agreement", "<w:b/>") + TextRun(", this Agreement, Stock"),
                   {u"Stock", u"Agreement", u"Stock Purchase Agreement"}),
            u"the Stock Purchase Agreement{Stock Purchase Agreement}, this Agreement{Agreement}, Stock{Stock}");
}

TEST_F(MarkedTerms, OfOverlappingTermsTheLongerIsMarked) {
  EXPECT_EQ(Marked(TextRun("Net Income Statement"), {u"Net Income", u"Income Statement"}),
            u"Net Income Statement{Income Statement}");
}

TEST_F(MarkedTerms, TermsThatDifferOnlyInCaseKeepTheirOccurrences) {
  EXPECT_EQ(Marked(TextRun("Party party PARTY"), {u"Party", u"PARTY"}), u"Party{Party} party PARTY{PARTY}");
}

TEST_F(MarkedTerms, OtherScriptsCombiningMarksAndSurrogatePairsAreMarkedWhole) {
  EXPECT_EQ(Marked(TextRun("der Käufer, Käuferin, Покупатель, 買主 und Ἀγοραστής"),
                   {u"Käufer", u"Покупатель", u"買主", u"Ἀγοραστής"}),
            u"der Käufer{Käufer}, Käuferin, Покупатель{Покупатель}, 買主{買主} und Ἀγοραστής{Ἀγοραστής}");
  EXPECT_EQ(Marked(TextRun("Cafe\u0301 Cafe"), {u"Cafe"}), u"Cafe\u0301 Cafe{Cafe}");
  EXPECT_EQ(Marked(TextRun("the \U0001D400\U0001D401 pays \U0001D400"), {u"\U0001D400\U0001D401"}),
            u"the \U0001D400\U0001D401{\U0001D400\U0001D401} pays \U0001D400");
}

TEST_F(MarkedTerms, AFieldWithoutResultDoesNotBreakATermAndOneWithDoes) {
  EXPECT_EQ(Marked(TextRun("Stock ") + EntryField(" TC \"x\" ") + TextRun("Purchase"), {u"Stock Purchase"}),
            u"Stock \u0013 TC \"x\" \u0015Purchase{Stock Purchase}");
  EXPECT_EQ(Marked(TextRun("Stock ") + Field(" REF x ", "Pur") + TextRun("chase"), {u"Stock Purchase"}),
            u"Stock \u0013 REF x \u0014Pur\u0015chase");
}

TEST_F(MarkedTerms, ASoftHyphenAtTheEndOfATermStaysBehindItsEntry) {
  OpenParagraph(TextRun("the Lender") + "<w:r><w:softHyphen/></w:r>" + TextRun(" pays"));
  ExpectMarkedAndGivenBack(u"Lender", 1);
}

TEST_F(MarkedTerms, ACommentsRangeDoesNotBreakATerm) {
  OpenParagraph(TextRun("Stock ") + "<w:commentRangeStart w:id=\"1\"/>" + TextRun("Pur") +
                "<w:commentRangeEnd w:id=\"1\"/><w:r><w:commentReference w:id=\"1\"/></w:r>" +
                "<w:proofErr w:type=\"gramEnd\"/>" + TextRun("chase Price"));
  ExpectMarkedAndGivenBack(u"Stock Purchase", 1);
}

TEST_F(MarkedTerms, ATextBoxStoredTwiceIsNotMarkedAndItsParagraphIs) {
  const std::string box = "<w:txbxContent>" + Paragraph(TextRun("Lender")) + "</w:txbxContent>";
  OpenParagraph(TextRun("a Lender ") +
                "<w:r><mc:AlternateContent xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\">"
                "<mc:Choice xmlns:wps=\"http://schemas.microsoft.com/office/word/2010/wordprocessingShape\" "
                "Requires=\"wps\"><w:drawing><wps:wsp><wps:txbx>" +
                box + "</wps:txbx></wps:wsp></w:drawing></mc:Choice><mc:Fallback><w:pict>" +
                "<v:shape xmlns:v=\"urn:schemas-microsoft-com:vml\"><v:textbox>" + box +
                "</v:textbox></v:shape></w:pict></mc:Fallback></mc:AlternateContent></w:r>" + TextRun(" Lender"));
  ExpectMarkedAndGivenBack(u"Lender", 2);
}

TEST_F(MarkedTerms, AnEarlierIndexIsNotMarked) {
  Open({.body = Paragraph(TextRun("The Lender pays.")) + Paragraph("")});
  const auto before = docx_->Canonical();
  Mark({u"Lender"});
  InsertIndexAt(docx_->Story()->End() - 1, 1);
  ASSERT_NE(docx_->Text().find(u"Lender:"), std::u16string::npos);
  marker_->RemoveIndexEntries(docx_->Application(), docx_->Document(), false);
  marker_->RemoveTermHighlighting(docx_->Document());
  // Outside of a run nothing of the earlier one is taken away first.
  EXPECT_EQ(marker_->MarkTermInStory(docx_->Document(), docx_->Story(), u"Lender", 0, word::wdMainTextStory, true,
                                     false, u"IndexAll", u""),
            1);
  RemoveAll();
  ExpectSameParts(before);
}

TEST_F(MarkedTerms, AProtectedDocumentSaysSoAndIsNotChangedByAnyPartOfIt) {
  for (const char* edit : {"readOnly", "comments", "forms"}) {
    Open({.body = Paragraph(TextRun("Lender ") + Field(" INDEX \\f \"DefinedTermsIndex\" ", "Lender, 1")),
          .settings = "<w:documentProtection w:edit=\"" + std::string(edit) + "\" w:enforcement=\"1\"/>"});
    const auto before = docx_->Canonical();
    try {
      Mark({u"Lender"});
      ADD_FAILURE() << edit;
    } catch (const word::HostError& error) {
      EXPECT_EQ(error.Description(),
                u"This method or property is not available because the document is a protected document.");
    }
    EXPECT_THROW(marker_->UpdateIndex(docx_->Document()), word::HostError) << edit;
    ExpectSameParts(before);
  }
}

TEST_F(MarkedTerms, AProtectionThatIsNotEnforcedOrLeavesChangesIsNone) {
  for (const char* protection :
       {"w:edit=\"readOnly\" w:enforcement=\"0\"", "w:edit=\"trackedChanges\" w:enforcement=\"1\""}) {
    Open({.body = Paragraph(TextRun("Lender")), .settings = "<w:documentProtection " + std::string(protection) + "/>"});
    ExpectMarkedAndGivenBack(u"Lender", 1);
  }
}

}  // namespace
