#include "TermMarkerOnDocx.h"

#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Fields.h"
#include "platform/word/Format.h"
#include "platform/word/HostError.h"
#include "platform/word/Range.h"
#include "platform/word/Selection.h"

#include <gtest/gtest.h>

#include <iterator>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

namespace {

TEST_F(TermMarkerOnDocx, AnEntryStandsBehindItsOccurrence) {
  OpenParagraph(TextRun("The Lender pays."));
  EXPECT_EQ(Mark({u"Lender"})[0].count, 1);
  EXPECT_EQ(docx_->Text(), u"The Lender" + Entry(u"Lender") + u" pays.\r");
}

TEST_F(TermMarkerOnDocx, MarkingAndRemovingGivesTheDocumentBack) {
  OpenParagraph(TextRun("The Lender pays the Lender\u2019s costs."));
  ExpectMarkedAndGivenBack(u"Lender", 2);
}

TEST_F(TermMarkerOnDocx, ATermSplitOverRunsIsOneOccurrence) {
  OpenParagraph(TextRun("The Stock Pur", "<w:b/>") + TextRun("chase", "<w:i/>") + TextRun(" Price."));
  ExpectMarkedAndGivenBack(u"Stock Purchase Price", 1);
}

TEST_F(TermMarkerOnDocx, BlanksAtTheEdgesOfATextThatDoNotCountComeBack) {
  OpenParagraph("<w:r><w:t> \t the Lender pays\n </w:t></w:r>");
  ExpectMarkedAndGivenBack(u"Lender", 1);
}

TEST_F(TermMarkerOnDocx, WhatATextSaidOfItsBlanksWithoutNeedComesBack) {
  OpenParagraph("<w:r><w:t xml:space=\"default\">the Lender pays </w:t></w:r>");
  EXPECT_EQ(docx_->Text(), u"the Lender pays\r");
  OpenParagraph("<w:r><w:t xml:space=\"default\">the Lender pays</w:t></w:r>");
  ExpectMarkedAndGivenBack(u"Lender", 1);
  OpenParagraph("<w:r><w:t xml:space=\"preserve\">the Lender pays</w:t></w:r>");
  ExpectMarkedAndGivenBack(u"Lender", 1);
}

TEST_F(TermMarkerOnDocx, CommentsAndSectionsOfCharactersInATextStayWhereTheyAre) {
  OpenParagraph(
      "<w:r><w:t xml:space=\"preserve\">a <![CDATA[Len]]><!-- c -->der, <![CDATA[the Lender ]]><!-- d --></w:t></w:r>");
  ExpectMarkedAndGivenBack(u"Lender", 2);
  OpenParagraph("<w:r><w:t>the <!-- b -->Lender<!-- c --><![CDATA[]]> and the Lender<?p i?></w:t><w:t>!</w:t></w:r>");
  ExpectMarkedAndGivenBack(u"Lender", 2);
}

TEST_F(TermMarkerOnDocx, TwoTextsOfOneRunStayTwo) {
  OpenParagraph("<w:r><w:t>Lender</w:t><w:t xml:space=\"preserve\"> pays</w:t></w:r>");
  ExpectMarkedAndGivenBack(u"Lender", 1);
}

TEST_F(TermMarkerOnDocx, TextsOfOneRunStayApartWhereOneOfThemIsDivided) {
  const auto text = [](const std::string& content) { return "<w:t xml:space=\"preserve\">" + content + "</w:t>"; };
  OpenParagraph("<w:r>" + text("the Buyer") + text(", Buyer") + "</w:r>");
  ExpectMarkedAndGivenBack(u"Buyer", 2);
  OpenParagraph("<w:r>" + text("the Buyer") + text(", Buyer, ") + text("Buyer and ") + "</w:r>");
  ExpectMarkedAndGivenBack(u"Buyer", 3);
  OpenParagraph("<w:r>" + text("the Buyer") + "<w:t> (Buyer) </w:t>" + text("Buyer ") + "<w:t>(Buyer) </w:t></w:r>");
  ExpectMarkedAndGivenBack(u"Buyer", 4);
}

TEST_F(TermMarkerOnDocx, RunsThatTheHighlightMakesEqualKeepWhatTheirTextsSayOfBlanks) {
  const std::string yellow = "<w:highlight w:val=\"yellow\"/>";
  OpenParagraph(TextRun("\"", yellow) + TextRun("Event") + TextRun("\""));
  ExpectMarkedAndGivenBack(u"Event", 1);
  OpenParagraph(TextRun("Event") + TextRun("\"", yellow));
  ExpectMarkedAndGivenBack(u"Event", 1);
}

TEST_F(TermMarkerOnDocx, BookmarksProofingMarksAndCommentsDoNotBreakATerm) {
  OpenParagraph(TextRun("Stock ") + "<w:bookmarkStart w:id=\"5\" w:name=\"mine\"/>" +
                "<w:proofErr w:type=\"spellStart\"/>" + TextRun("Pur") + "<w:bookmarkEnd w:id=\"5\"/>" +
                "<w:r><w:commentReference w:id=\"1\"/></w:r>" + TextRun("chase"));
  ExpectMarkedAndGivenBack(u"Stock Purchase", 1);
}

TEST_F(TermMarkerOnDocx, SoftHyphensAndNonBreakingCharactersReadAsTheirPlainOnes) {
  OpenParagraph(TextRun("Stock\u00A0Pur") + "<w:r><w:softHyphen/></w:r>" + TextRun("chase") +
                "<w:r><w:noBreakHyphen/></w:r>" + TextRun("Price"));
  ExpectMarkedAndGivenBack(u"Stock Purchase-Price", 1);
}

TEST_F(TermMarkerOnDocx, ATermRunsAcrossTheAuthorsEntryWhichStays) {
  OpenParagraph(TextRun("Stock ") + EntryField(" XE \"Stock\" ") + TextRun("Purchase"));
  ExpectMarkedAndGivenBack(u"Stock Purchase", 1);
}

TEST_F(TermMarkerOnDocx, TablesNestedTablesControlsLinksAndSmartTagsHoldText) {
  const std::string cell = "<w:tc>" + Paragraph(TextRun("Lender")) + "</w:tc>";
  const std::string inner = "<w:tbl><w:tr>" + cell + "</w:tr></w:tbl>";
  Open({.body = "<w:tbl><w:tr>" + cell + "<w:tc>" + inner + Paragraph("") + "</w:tc></w:tr></w:tbl>" +
                Paragraph("<w:hyperlink w:anchor=\"x\">" + TextRun("Lender") + "</w:hyperlink>" + TextRun(" ") +
                          "<w:smartTag w:element=\"y\">" + TextRun("Lender") + "</w:smartTag>" + TextRun(" ") +
                          "<w:sdt><w:sdtContent>" + TextRun("Lender") + "</w:sdtContent></w:sdt>") +
                "<w:sdt><w:sdtContent>" + Paragraph(TextRun("Lender")) + "</w:sdtContent></w:sdt>" +
                Paragraph(TextRun("end"))});
  const auto before = docx_->Canonical();
  EXPECT_EQ(Mark({u"Lender"})[0].count, 6);
  InsertIndexAt(docx_->Story()->End() - 1, 2);
  RemoveAll();
  ExpectSameParts(before);
}

TEST_F(TermMarkerOnDocx, ATermDoesNotRunFromOneCellIntoTheNext) {
  const auto cell = [](const std::string& text) { return "<w:tc>" + Paragraph(TextRun(text)) + "</w:tc>"; };
  Open({.body = "<w:tbl><w:tr>" + cell("Net") + cell("Income") + "</w:tr></w:tbl>" + Paragraph("")});
  EXPECT_EQ(Mark({u"Net Income", u"Net", u"Income"})[0].count, 0);
}

TEST_F(TermMarkerOnDocx, NotesAreMarkedAndGivenBack) {
  Open({.body = Paragraph(TextRun("Lender") + "<w:r><w:footnoteReference w:id=\"2\"/></w:r>" +
                          "<w:r><w:endnoteReference w:id=\"2\"/></w:r>"),
        .footnotes = Note("footnote", TextRun(" the Lender")),
        .endnotes = Note("endnote", TextRun(" a Lender, another Lender"))});
  ExpectMarkedAndGivenBack(u"Lender", 4);
}

TEST_F(TermMarkerOnDocx, TextBoxesAreNotMarked) {
  OpenParagraph(TextRun("Lender") +
                "<w:r><w:pict><v:shape xmlns:v=\"urn:schemas-microsoft-com:vml\"><v:textbox><w:txbxContent>" +
                Paragraph(TextRun("Lender")) + "</w:txbxContent></v:textbox></v:shape></w:pict></w:r>");
  ExpectMarkedAndGivenBack(u"Lender", 1);
}

TEST_F(TermMarkerOnDocx, TrackedInsertionsAreMarkedAndDeletionsAndMovesAreNot) {
  OpenParagraph(Tracked("ins", TextRun("Lender ")) + Tracked("del", DeletedRun("Lender ")) +
                Tracked("moveFrom", TextRun("Lender ")) + Tracked("moveTo", TextRun("Lender")));
  ExpectMarkedAndGivenBack(u"Lender", 2);
}

TEST_F(TermMarkerOnDocx, ADeletionInsideATermStaysAsItIs) {
  OpenParagraph(TextRun("Len") + Tracked("del", DeletedRun("xx")) + TextRun("der."));
  const auto before = docx_->Canonical();
  EXPECT_EQ(Mark({u"Lender"})[0].count, 1);
  EXPECT_EQ(docx_->Text(), u"Lenxxder" + Entry(u"Lender") + u".\r");
  RemoveAll();
  ExpectSameParts(before);
}

TEST_F(TermMarkerOnDocx, HiddenTextIsNotMarked) {
  OpenParagraph(TextRun("Lender ") + TextRun("Lender", "<w:vanish/>") + TextRun(" Lender"));
  ExpectMarkedAndGivenBack(u"Lender", 2);
}

TEST_F(TermMarkerOnDocx, TheHighlightGoesWhereHiddenTextStandsInATermOrBehindIt) {
  const std::string hidden = TextRun("zz", "<w:vanish/>");
  OpenParagraph(TextRun("the Len") + hidden + TextRun("der x"));
  ExpectMarkedAndGivenBack(u"Lender", 1);
  OpenParagraph(TextRun("the Stock ") + TextRun("(hidden) ", "<w:vanish/>") + TextRun("Purchase x"));
  ExpectMarkedAndGivenBack(u"Stock Purchase", 1);
  OpenParagraph(TextRun("the Lender\u2019s") + hidden + TextRun(" fees, Lender") + hidden + TextRun("\u2019s fees"));
  ExpectMarkedAndGivenBack(u"Lender", 2);
}

TEST_F(TermMarkerOnDocx, TheHighlightGoesWithoutItsEntryWhereHiddenTextStandsInATerm) {
  OpenParagraph(TextRun("the Len") + TextRun("zz", "<w:vanish/>") + TextRun("der x"));
  Mark({u"Lender"});
  marker_->RemoveTermHighlighting(docx_->Document());
  EXPECT_EQ(docx_->Story()->HighlightColorIndex(), word::wdNoHighlight);
}

TEST_F(TermMarkerOnDocx, TheAuthorsHighlightOfHiddenTextInATermStays) {
  const std::string yellow = "<w:highlight w:val=\"yellow\"/>";
  OpenParagraph(TextRun("the Len") + TextRun("zz", "<w:vanish/>" + yellow) + TextRun("der x"));
  ExpectMarkedAndGivenBack(u"Lender", 1);
}

TEST_F(TermMarkerOnDocx, TheHighlightGoesFromATermThatWasHiddenSince) {
  const auto marked = [](const std::string& properties) {
    const std::string yellow = "<w:highlight w:val=\"yellow\"/>";
    return "<w:bookmarkStart w:id=\"7\" w:name=\"_KVXHighlighting\"/><w:bookmarkEnd w:id=\"7\"/>" + TextRun("the ") +
           TextRun("Len", properties + yellow) + TextRun("der", yellow) +
           EntryField(" XE \"Lender\" \\f \"DefinedTermsIndex\" ");
  };
  OpenParagraph(marked("<w:vanish/>"));
  RemoveAll();
  EXPECT_EQ(docx_->Story()->HighlightColorIndex(), word::wdNoHighlight);
  EXPECT_EQ(docx_->Text(), u"the Lender\r");
}

TEST_F(TermMarkerOnDocx, CodesAndResultsOfFieldsAreNotMarked) {
  OpenWithIndexStyle(TextRun("Lender ") + Field(" REF Lender ", "Lender") + TextRun(" ") +
                     Field(" TOC \\o ", "Lender 1") + "<w:fldSimple w:instr=\" TITLE \">" + TextRun("Lender") +
                     "</w:fldSimple>" + Field(" INDEX \\c \"2\" ", "Lender, 1") + EntryField(" XE \"Lender\" ") +
                     TextRun(" Lender"));
  ExpectMarkedAndGivenBack(u"Lender", 2);
}

TEST_F(TermMarkerOnDocx, TheAuthorsHighlightComesBack) {
  OpenParagraph(TextRun("see ") + TextRun("the Len", "<w:highlight w:val=\"green\"/>") +
                TextRun("der", "<w:b/><w:highlight w:val=\"cyan\"/>") + TextRun(" and ") +
                TextRun("Lender", "<w:highlight w:val=\"yellow\"/>") + TextRun(" x"));
  ExpectMarkedAndGivenBack(u"Lender", 2);
}

TEST_F(TermMarkerOnDocx, RemovingHighlightsOnlyKeepsTheEntriesAndTheAuthorsHighlights) {
  OpenParagraph(TextRun("the Lender and ") + TextRun("Lender", "<w:highlight w:val=\"yellow\"/>"));
  Mark({u"Lender"});
  const std::u16string marked = docx_->Text();
  const word::RangePtr first = docx_->Document()->Range(4, 10);
  EXPECT_EQ(first->HighlightColorIndex(), word::wdYellow);
  marker_->RemoveTermHighlighting(docx_->Document());
  EXPECT_EQ(docx_->Text(), marked);
  EXPECT_EQ(first->HighlightColorIndex(), word::wdNoHighlight);
  const auto second = static_cast<word::Position>(marked.rfind(u"Lender" + Entry(u"Lender")));
  EXPECT_EQ(docx_->Document()->Range(second, second + 6)->HighlightColorIndex(), word::wdYellow);
  RemoveAll();
  EXPECT_EQ(docx_->Document()->Range(15, 21)->HighlightColorIndex(), word::wdYellow);
}

TEST_F(TermMarkerOnDocx, AnIndexBeforeTextThatTheAuthorHighlightedGetsNoneOfThat) {
  for (const word::Position place : {0, 16, 24}) {
    OpenParagraph(TextRun("Lender", "<w:highlight w:val=\"cyan\"/>") + TextRun(" pays ") +
                  TextRun("the Lender. ", "<w:highlight w:val=\"yellow\"/>") +
                  TextRun("Agent", "<w:highlight w:val=\"green\"/>"));
    const auto before = docx_->Canonical();
    const word::DocumentPtr document = docx_->Document();
    document->Bookmarks()->Add(u"IndexBKStart", document->Range(place, place));
    Mark({u"Lender", u"Agent"});
    marker_->InsertIndex(docx_->Application(), document, 2, u":  \t");
    document->Bookmarks()->Item(u"IndexBKStart")->Delete();
    marker_->RemoveTermHighlighting(document);
    const word::RangePtr index = document->Bookmarks()->Item(u"DefinedTermsIndex")->Range();
    EXPECT_EQ(index->HighlightColorIndex(), word::wdNoHighlight) << place;
    RemoveAll();
    ExpectSameParts(before);
  }
}

TEST_F(TermMarkerOnDocx, TheEntryHasNoHighlight) {
  OpenParagraph(TextRun("Lender."));
  Mark({u"Lender"});
  EXPECT_EQ(docx_->Document()->Range(6, 8)->HighlightColorIndex(), word::wdNoHighlight);
}

TEST_F(TermMarkerOnDocx, SpecialCharactersSurviveInTheEntry) {
  OpenParagraph(TextRun("the A:B;C\\D\"E, F fee"));
  const auto before = docx_->Canonical();
  EXPECT_EQ(Mark({u"A:B;C\\D\"E, F"})[0].count, 1);
  EXPECT_NE(docx_->Text().find(u"XE \"A\\:B\\;C\\\\D\\\"E, F\" \\f"), std::u16string::npos);
  InsertIndexAt(0, 1);
  EXPECT_NE(docx_->Text().find(u"A:B;C\\D\"E, F:  \t"), std::u16string::npos);
  RemoveAll();
  ExpectSameParts(before);
}

TEST_F(TermMarkerOnDocx, AnIndexFitsThePageWhateverUnitsThePageIsMeasuredIn) {
  const auto inserted = [this](const std::string& section) {
    Open({.body = Paragraph(TextRun("one Lender")), .section = section});
    Mark({u"Lender"});
    InsertIndexAt(0, 2);
    return docx_->Part("word/document.xml");
  };
  const auto tabOf = [](const std::string& xml) {
    const std::size_t at = xml.find("<w:tab w:val=");
    return at == std::string::npos ? "" : xml.substr(at, xml.find("/>", at) - at);
  };
  const std::string plain = inserted(
      "<w:pgSz w:w=\"11906\" w:h=\"16838\"/><w:pgMar w:top=\"1440\" w:right=\"1450\" w:bottom=\"1440\" "
      "w:left=\"1440\" w:header=\"720\" w:footer=\"720\" w:gutter=\"0\"/>");
  const std::string points = inserted(
      "<w:pgSz w:w=\"595.30pt\" w:h=\"841.90pt\"/><w:pgMar w:top=\"72pt\" w:right=\"72.5pt\" w:bottom=\"72pt\" "
      "w:left=\"1in\" w:header=\"36pt\" w:footer=\"36pt\" w:gutter=\"0pt\"/>");
  EXPECT_NE(tabOf(plain), "");
  EXPECT_EQ(tabOf(points), tabOf(plain));
  const std::regex sizes("<w:pgSz [^>]*>");
  EXPECT_EQ(std::distance(std::sregex_iterator(points.begin(), points.end(), sizes), {}), 3);
  for (std::sregex_iterator size(points.begin(), points.end(), sizes), end; size != end; ++size) {
    EXPECT_EQ(size->str(), "<w:pgSz w:w=\"595.30pt\" w:h=\"841.90pt\"/>");
  }
}

TEST_F(TermMarkerOnDocx, AnIndexOfOneColumnFitsTheColumnsOfItsSection) {
  const auto tabIn = [this](const std::string& columns) {
    Open({.body = Paragraph("") + Paragraph(TextRun("one Lender")),
          .section = "<w:pgSz w:w=\"12240\" w:h=\"15840\"/><w:pgMar w:top=\"1440\" w:right=\"1440\" w:bottom=\"1440\" "
                     "w:left=\"1440\"/>" +
                     columns});
    Mark({u"Lender"});
    InsertIndexAt(0, 1);
    const std::string xml = docx_->Part("word/document.xml");
    std::smatch tab;
    return std::regex_search(xml, tab, std::regex("<w:tab w:val=[^>]* w:pos=\"(-?\\d+)\"")) ? tab[1].str() : "none";
  };
  EXPECT_EQ(tabIn(""), "9350");
  EXPECT_EQ(tabIn("<w:cols w:num=\"1\" w:space=\"720\"/>"), "9350");
  EXPECT_EQ(tabIn("<w:cols w:num=\"2\" w:space=\"720\"/>"), "4310");
  EXPECT_EQ(tabIn("<w:cols w:num=\"3\"/>"), "2630");
  const std::string different = "<w:col w:w=\"5640\" w:space=\"720\"/><w:col w:w=\"3000\"/></w:cols>";
  EXPECT_EQ(tabIn("<w:cols w:num=\"2\" w:equalWidth=\"0\">" + different), "2990");
  EXPECT_EQ(tabIn("<w:cols w:num=\"2\" w:space=\"720\">" + different), "4310");
}

TEST_F(TermMarkerOnDocx, SectionsAroundAnIndexHaveWholeTwips) {
  Open({.body = Paragraph(TextRun("one Lender")), .section = "<w:pgSz w:w=\"11906.4\" w:h=\"16837.6\"/>"});
  Mark({u"Lender"});
  InsertIndexAt(0, 2);
  EXPECT_NE(docx_->Part("word/document.xml").find("<w:pgSz w:w=\"11906\" w:h=\"16838\"/>"), std::string::npos);
}

class IndexPlaces : public TermMarkerOnDocx, public testing::WithParamInterface<std::pair<word::Position, int>> {};

TEST_P(IndexPlaces, InsertingAndRemovingTheIndexGivesTheDocumentBack) {
  const auto [position, columns] = GetParam();
  Open({.body = Paragraph(TextRun("one Lender")) + Paragraph("") + Paragraph(TextRun("two Buyer two")),
        .section = "<w:pgSz w:w=\"11906\" w:h=\"16838\"/>"});
  const auto before = docx_->Canonical();
  const word::DocumentPtr document = docx_->Document();
  document->Bookmarks()->Add(u"IndexBKStart", document->Range(position, position));
  Mark({u"Lender", u"Buyer"});
  marker_->InsertIndex(docx_->Application(), document, columns, u":  \t");
  document->Bookmarks()->Item(u"IndexBKStart")->Delete();
  const word::RangePtr index = document->Bookmarks()->Item(u"DefinedTermsIndex")->Range();
  const std::u16string text = docx_->Text().substr(static_cast<std::size_t>(index->Start()),
                                                   static_cast<std::size_t>(index->End() - index->Start()));
  EXPECT_EQ(text.front(), word::kFieldBegin);
  EXPECT_EQ(text.back(), word::kFieldEnd);
  EXPECT_NE(text.find(u"Buyer:  \t1"), std::u16string::npos);
  EXPECT_EQ(docx_->Application()->Selection()->Range()->Start(), index->End());
  RemoveAll();
  ExpectSameParts(before);
}

INSTANTIATE_TEST_SUITE_P(All, IndexPlaces,
                         testing::Values(std::pair{0, 1}, std::pair{0, 3}, std::pair{4, 1}, std::pair{4, 2},
                                         std::pair{11, 1}, std::pair{11, 2}, std::pair{12, 1}, std::pair{12, 4},
                                         std::pair{25, 1}, std::pair{25, 2}));

TEST_F(TermMarkerOnDocx, MarkingOverAnEarlierMarkingIsMarkingOnce) {
  const std::string content = TextRun("The ") + TextRun("Lender", "<w:highlight w:val=\"cyan\"/>") +
                              TextRun(" pays the Lender\u2019s Agent.") + EntryField(" XE \"Lender\" ");
  const std::string note = Note("footnote", TextRun(" The Lender."));
  const DocxDocument::Parts parts{
      .body = Paragraph(content + "<w:r><w:footnoteReference w:id=\"2\"/></w:r>") + Paragraph(TextRun("End.")),
      .footnotes = note};
  Open(parts);
  const auto before = docx_->Canonical();
  Mark({u"Lender"});
  const auto marked = docx_->Canonical();
  InsertIndexAt(0, 2);
  for (const Terms& chosen : {Terms{u"Lender", u"Agent"}, Terms{u"Agent"}, Terms{u"Lender"}}) {
    EXPECT_EQ(Mark(chosen).back().count, chosen.back() == u"Agent" ? 1 : 3);
    if (chosen.size() == 2) InsertIndexAt(0, 2);
  }
  ExpectSameParts(marked);
  RemoveAll();
  ExpectSameParts(before);
}

TEST_F(TermMarkerOnDocx, EntriesWithoutIndexAndHighlightAreAnEarlierMarking) {
  OpenParagraph(TextRun("The Lender pays."));
  Mark({u"Lender"});
  marker_->RemoveTermHighlighting(docx_->Document());
  Mark({u"Lender"});
  EXPECT_EQ(docx_->Text(), u"The Lender" + Entry(u"Lender") + u" pays.\r");
}

TEST_F(TermMarkerOnDocx, AnotherAuthorsEntriesAndIndexStay) {
  OpenWithIndexStyle(TextRun("Lender") + EntryField(" XE \"Lender\" \\f \"D\" ") +
                     Field(" INDEX \\f \"D\" ", "Lender, 1"));
  ExpectMarkedAndGivenBack(u"Lender", 1);
}

TEST_F(TermMarkerOnDocx, UpdatingBringsANewOccurrencesPageIn) {
  OpenParagraph(TextRun("Lender"));
  Mark({u"Lender"});
  InsertIndexAt(docx_->Story()->End() - 1, 2);
  EXPECT_EQ(docx_->Text().find(u"Buyer"), std::u16string::npos);
  const word::RangePtr start = docx_->Document()->Range(0, 0);
  docx_->Document()->Fields()->Add(start,
                                   {.Text = u"XE \"Buyer\" \\f \"DefinedTermsIndex\"", .PreserveFormatting = false});
  marker_->UpdateIndex(docx_->Document());
  EXPECT_NE(docx_->Text().find(u"Buyer:  \t1"), std::u16string::npos);
}

TEST_F(TermMarkerOnDocx, AnIndexDoesNotGoIntoANote) {
  Open({.body = Paragraph(TextRun("Lender") + "<w:r><w:footnoteReference w:id=\"2\"/></w:r>"),
        .footnotes = Note("footnote", TextRun(" the Lender"))});
  const word::DocumentPtr document = docx_->Document();
  const word::RangePtr place = docx_->Story(word::wdFootnotesStory);
  place->Collapse(word::wdCollapseStart);
  document->Bookmarks()->Add(u"IndexBKStart", place);
  const auto before = docx_->Canonical();
  try {
    marker_->InsertIndex(docx_->Application(), document, 1, u", ");
    ADD_FAILURE() << "it went in";
  } catch (const word::HostError& error) {
    EXPECT_EQ(error.Description(), u"Your defined terms index has to be in the main body of your document.");
  }
  ExpectSameParts(before);
}

TEST_F(TermMarkerOnDocx, AProtectedDocumentIsLeftAlone) {
  Open({.body = Paragraph(TextRun("Lender")),
        .settings = "<w:documentProtection w:edit=\"readOnly\" w:enforcement=\"1\"/>"});
  const auto before = docx_->Canonical();
  EXPECT_THROW(Mark({u"Lender"}), word::HostError);
  ExpectSameParts(before);
}

TEST_F(TermMarkerOnDocx, RemovingFromADocumentNeverMarkedChangesNothing) {
  OpenParagraph(TextRun("Lender", "<w:highlight w:val=\"yellow\"/>") + FieldMark("begin") + Code(" REF x ") +
                TextRun("open"));
  const auto before = docx_->Canonical();
  RemoveAll();
  ExpectSameParts(before);
}

}  // namespace
