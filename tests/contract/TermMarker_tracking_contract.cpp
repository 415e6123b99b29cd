#include "TermMarkerOnDocx.h"

#include "tests/unit/linux/Environment.h"

#include <regex>
#include <set>

namespace {

constexpr const char* kTracking = "<w:trackRevisions/>";
const std::string kHighlightGreen = "<w:highlight w:val=\"green\"/>";

std::string OurEntry(const std::string& term, int id, const std::string& switches = "") {
  return "<w:ins w:id=\"" + std::to_string(id) + "\" w:author=\"Kelvarin\" w:date=\"2026-01-02T03:04:05Z\">" +
         EntryField(" XE \"" + term + "\" \\f \"DefinedTermsIndex\"" + switches + " ") + "</w:ins>";
}

/// A document that tracks its changes.
class TrackedMarking : public TermMarkerOnDocx {
 protected:
  void OpenTracking(const std::string& content) { Open({.body = Paragraph(content), .settings = kTracking}); }

  void MarkWithoutHighlight(const Terms& terms) {
    Mark(terms);
    marker_->RemoveTermHighlighting(docx_->Document());
  }

  /// The content of the only paragraph, as the document would be written now but for what texts say of their blanks.
  std::string Content() const {
    const std::string xml = docx_->Part("word/document.xml");
    const std::size_t from = xml.find("<w:p>") + 5;
    return WithoutBlanksNoted(xml.substr(from, xml.rfind("</w:p>") - from));
  }

  static std::string WithoutBlanksNoted(const std::string& content) {
    static const std::regex kNoted("<\\?kelvarin preserve [0-9]+\\?>| xml:space=\"preserve\"");
    return std::regex_replace(content, kNoted, "");
  }

  void ExpectContent(const std::string& content) const { EXPECT_EQ(Content(), WithoutBlanksNoted(content)); }

  void SaveAndOpenAgain() { docx_.emplace(docx::Package::Open(docx_->File())); }

  Environment epoch_{"SOURCE_DATE_EPOCH", "1767323045"};
};

TEST_F(TrackedMarking, AnEntryIsOneInsertion) {
  OpenTracking(TextRun("The Lender pays."));
  MarkWithoutHighlight({u"Lender"});
  ExpectContent(TextRun("The Lender") + OurEntry("Lender", 1) + TextRun(" pays."));
}

TEST_F(TrackedMarking, WithoutTrackingAnEntryIsNone) {
  for (const char* settings : {"", "<w:trackRevisions w:val=\"0\"/>"}) {
    Open({.body = Paragraph(TextRun("The Lender pays.")), .settings = settings});
    Mark({u"Lender"});
    EXPECT_EQ(docx_->Part("word/document.xml").find("<w:ins "), std::string::npos) << settings;
  }
}

TEST_F(TrackedMarking, EachEntryHasANumberOfItsOwnThatNothingElseHas) {
  OpenTracking(Tracked("ins", TextRun("A ")) + "<w:bookmarkStart w:id=\"1\" w:name=\"b\"/><w:bookmarkEnd w:id=\"1\"/>" +
               TextRun("Lender, Lender"));
  MarkWithoutHighlight({u"Lender"});
  ExpectContent(Tracked("ins", TextRun("A ")) +
                "<w:bookmarkStart w:id=\"1\" w:name=\"b\"/><w:bookmarkEnd w:id=\"1\"/>" + TextRun("Lender") +
                OurEntry("Lender", 4) + TextRun(", Lender") + OurEntry("Lender", 2));
}

TEST_F(TrackedMarking, AnEntryDividesAnotherAuthorsInsertion) {
  OpenTracking(Tracked("ins", TextRun("The Lender pays")) + TextRun("."));
  MarkWithoutHighlight({u"Lender"});
  ExpectContent(Tracked("ins", TextRun("The Lender")) + OurEntry("Lender", 1) + Tracked("ins", TextRun(" pays")) +
                TextRun("."));
}

TEST_F(TrackedMarking, AnEntryAtTheEndOfAnInsertionStandsBehindIt) {
  OpenTracking(Tracked("ins", TextRun("The Lender")) + TextRun(" pays."));
  MarkWithoutHighlight({u"Lender"});
  ExpectContent(Tracked("ins", TextRun("The Lender")) + OurEntry("Lender", 1) + TextRun(" pays."));
}

TEST_F(TrackedMarking, InALinkInsideOfAnInsertionAnEntryIsTrackedWithIt) {
  OpenTracking(Tracked("ins", "<w:hyperlink w:anchor=\"x\">" + TextRun("Lender pays") + "</w:hyperlink>"));
  MarkWithoutHighlight({u"Lender"});
  EXPECT_EQ(Content().find("Kelvarin"), std::string::npos);
  EXPECT_NE(Content().find("XE"), std::string::npos);
}

class TrackedPlaces : public TrackedMarking, public testing::WithParamInterface<std::string> {};

TEST_P(TrackedPlaces, ComeBackAtOnceAndFromTheFile) {
  const std::string content = GetParam();
  Open({.body = Paragraph(content) + Paragraph(TextRun("End.")), .settings = kTracking});
  const auto before = docx_->Canonical();
  EXPECT_GT(Mark({u"Lender"})[0].count, 0);
  InsertIndexAt(docx_->Story()->End() - 1, 2);
  RemoveAll();
  ExpectSameParts(before);
  Mark({u"Lender"});
  InsertIndexAt(docx_->Story()->End() - 1, 2);
  SaveAndOpenAgain();
  RemoveAll();
  ExpectSameParts(before);
}

TEST_P(TrackedPlaces, AreMarkedTwiceAsOnce) {
  OpenTracking(GetParam());
  Mark({u"Lender"});
  const auto once = docx_->Canonical();
  SaveAndOpenAgain();
  Mark({u"Lender"});
  ExpectSameParts(once);
}

INSTANTIATE_TEST_SUITE_P(
    All, TrackedPlaces,
    testing::Values(TextRun("The Lender pays the Lender\u2019s costs."),
                    Tracked("ins", TextRun("The Lender pays the Lender\u2019s costs.")),
                    Tracked("ins", TextRun("The Len", "<w:b/>") + TextRun("der") + TextRun(" pays.")),
                    // Insertions that say the same and are two nevertheless.
                    Tracked("ins", TextRun("The Lender")) + Tracked("ins", TextRun(" pays the Lender.")),
                    Tracked("ins", TextRun("The Len")) + Tracked("ins", TextRun("der pays.")),
                    // The author's highlights are kept by bookmarks.
                    TextRun("the ") + TextRun("Lender pays the ", "<w:highlight w:val=\"yellow\"/>") +
                        TextRun("Lender", kHighlightGreen),
                    Tracked("ins", TextRun("the ") + TextRun("Lender", kHighlightGreen) + TextRun(" pays")),
                    Tracked("ins", TextRun("the ") + TextRun("Lender", kHighlightGreen)) +
                        Tracked("ins", TextRun(" pays")),
                    TextRun("The Lender") + "<?review \'open\'?>" + TextRun(" pays."),
                    Tracked("moveTo", TextRun("The Lender pays.")) + Tracked("moveFrom", TextRun("Lender ")),
                    "<w:hyperlink w:anchor=\"x\">" + Tracked("ins", TextRun("The Lender pays")) + "</w:hyperlink>",
                    Tracked("ins", "<w:smartTag w:element=\"y\">" + TextRun("The Lender pays") + "</w:smartTag>"),
                    TextRun("The Len") + Tracked("del", DeletedRun("xx")) + TextRun("der pays."),
                    TextRun("The Lender") + Tracked("del", DeletedRun("s")) + TextRun(" pay."),
                    Tracked("ins", "<w:bookmarkStart w:id=\"3\" w:name=\"b\"/>" + TextRun("Lender") +
                                       "<w:bookmarkEnd w:id=\"3\"/>" + TextRun(" pays"))));

TEST_F(TrackedMarking, NotesAreTrackedAndGivenBack) {
  Open({.body = Paragraph(TextRun("A") + "<w:r><w:footnoteReference w:id=\"2\"/></w:r>"),
        .footnotes = Note("footnote", Tracked("ins", TextRun(" the Lender pays"))),
        .settings = kTracking});
  const auto before = docx_->Canonical();
  Mark({u"Lender"});
  EXPECT_NE(docx_->Part("word/footnotes.xml").find("w:author=\"Kelvarin\""), std::string::npos);
  RemoveAll();
  ExpectSameParts(before);
}

TEST_F(TrackedMarking, TheIndexIsOneInsertionWithItsParagraphs) {
  Open({.body = Paragraph(TextRun("The Lender pays.")) + Paragraph(TextRun("End.")), .settings = kTracking});
  MarkWithoutHighlight({u"Lender"});
  InsertIndexAt(static_cast<word::Position>(docx_->Text().find(u"End.")), 1);
  const std::string xml = WithoutBlanksNoted(docx_->Part("word/document.xml"));
  const std::string own = " w:author=\"Kelvarin\" w:date=\"2026-01-02T03:04:05Z\"";
  const auto ins = [&](int id, const std::string& content) {
    return "<w:ins w:id=\"" + std::to_string(id) + "\"" + own + (content.empty() ? "/>" : ">" + content + "</w:ins>");
  };
  const std::string index =
      "<w:p><w:pPr><w:pStyle w:val=\"Index1\"/><w:tabs><w:tab w:val=\"right\" w:leader=\"dot\" "
      "w:pos=\"9350\"/></w:tabs>"
      "<w:rPr>" +
      ins(5, "") + "</w:rPr></w:pPr>" + "<w:bookmarkStart w:id=\"1\" w:name=\"DefinedTermsIndex\"/>" +
      ins(3, FieldMark("begin") +
                 "<w:r><w:instrText> INDEX \\f \"DefinedTermsIndex\" \\e \":  </w:instrText><w:tab/>"
                 "<w:instrText>\" </w:instrText></w:r>" +
                 FieldMark("separate") + "<w:r><w:t>Lender:  </w:t><w:tab/><w:t>1</w:t></w:r>") +
      "</w:p><w:p>" + ins(4, FieldMark("end")) + "<w:bookmarkEnd w:id=\"1\"/><w:r><w:t>End.</w:t></w:r></w:p>";
  EXPECT_NE(xml.find(index), std::string::npos) << index << "\n" << xml;
}

TEST_F(TrackedMarking, WhatASectionWasIsNotedWhereTheSectionMarksAreTracked) {
  Open({.body = Paragraph(TextRun("The Lender pays.")) + Paragraph(TextRun("End.")),
        .section = "<w:pgSz w:w=\"12240\" w:h=\"15840\"/><w:pgNumType w:start=\"3\"/><w:titlePg/>",
        .settings = kTracking});
  MarkWithoutHighlight({u"Lender"});
  InsertIndexAt(static_cast<word::Position>(docx_->Text().find(u"End.")), 2);
  const std::string xml = docx_->Part("word/document.xml");
  const std::string last = xml.substr(xml.rfind("<w:sectPr>", xml.rfind("<w:sectPrChange")));
  EXPECT_TRUE(std::regex_match(
      last,
      std::regex("<w:sectPr><w:type w:val=\"continuous\"/><w:pgSz w:w=\"12240\" w:h=\"15840\"/>"
                 "<w:sectPrChange w:id=\"[0-9]+\" w:author=\"Kelvarin\" w:date=\"2026-01-02T03:04:05Z\">"
                 "<w:sectPr><w:pgSz w:w=\"12240\" w:h=\"15840\"/><w:pgNumType w:start=\"3\"/><w:titlePg/></w:sectPr>"
                 "</w:sectPrChange></w:sectPr></w:body></w:document>")))
      << last;
}

TEST_F(TrackedMarking, NoTwoRevisionsHaveOneNumber) {
  Open({.body = Paragraph(TextRun("The Lender pays the Bank.")) + Paragraph(TextRun("End.")), .settings = kTracking});
  Mark({u"Lender", u"Bank"});
  for (const int columns : {1, 2}) {
    InsertIndexAt(3, columns);
    const std::string xml = docx_->Part("word/document.xml");
    const std::regex revision("<w:(ins|rPrChange|sectPrChange) w:id=\"([0-9]+)\"");
    std::set<std::string> ids;
    for (std::sregex_iterator each(xml.begin(), xml.end(), revision), end; each != end; ++each) {
      EXPECT_TRUE(ids.insert((*each)[2]).second) << (*each)[2] << "\n" << xml;
    }
    EXPECT_GT(ids.size(), 6U);
    marker_->RemoveIndex(docx_->Application(), docx_->Document(), true);
  }
}

TEST_F(TrackedMarking, AHighlightIsAChangeOfFormatting) {
  OpenTracking(TextRun("The ") + TextRun("Lender", "<w:b/>") + TextRun(" pays."));
  Mark({u"Lender"});
  EXPECT_NE(Content().find("<w:rPr><w:b/><w:highlight w:val=\"yellow\"/><w:rPrChange w:id=\"2\" w:author=\"Kelvarin\" "
                           "w:date=\"2026-01-02T03:04:05Z\"><w:rPr><w:b/></w:rPr></w:rPrChange></w:rPr>"),
            std::string::npos)
      << Content();
}

TEST_F(TrackedMarking, AHighlightOverAnEarlierChangeOfFormattingLeavesThatAsItWas) {
  const std::string change = "<w:rPrChange" + std::string(kTracked) + "><w:rPr/></w:rPrChange>";
  OpenTracking(TextRun("Lender", "<w:b/>" + change));
  const auto before = docx_->Canonical();
  Mark({u"Lender"});
  EXPECT_NE(Content().find("<w:b/><w:highlight w:val=\"yellow\"/>" + change), std::string::npos) << Content();
  RemoveAll();
  ExpectSameParts(before);
}

TEST_F(TrackedMarking, UnhighlightingLeavesNoChangeOfFormatting) {
  const std::string none = "<w:highlight w:val=\"none\"/>";
  OpenTracking(TextRun("The ") + TextRun("Lender", none) + TextRun(" and the Lender and ") +
               TextRun("Lender", kHighlightGreen) + "<w:r><w:rPr/><w:t>, Lender</w:t></w:r>");
  Mark({u"Lender"});
  EXPECT_NE(Content().find("rPrChange"), std::string::npos);
  marker_->RemoveTermHighlighting(docx_->Document());
  EXPECT_EQ(Content().find("rPrChange"), std::string::npos) << Content();
  EXPECT_NE(Content().find(none), std::string::npos) << Content();
}

// Laid on before changes were tracked, or accepted since.
TEST_F(TrackedMarking, PuttingBackTheAuthorsHighlightLeavesNoChangeOfFormatting) {
  const auto bookmark = [](int id, const std::string& name, const std::string& content) {
    const std::string number = "w:id=\"" + std::to_string(id) + "\"";
    return "<w:bookmarkStart " + number + " w:name=\"" + name + "\"/>" + content + "<w:bookmarkEnd " + number + "/>";
  };
  OpenTracking(bookmark(7, "_KVXHighlighting", "") + TextRun("The ") +
               bookmark(8, "_KVXHighlight_4_1", TextRun("Lender", "<w:highlight w:val=\"yellow\"/>")) +
               TextRun(" pays."));
  marker_->RemoveTermHighlighting(docx_->Document());
  ExpectContent(TextRun("The ") + TextRun("Lender", kHighlightGreen) + TextRun(" pays."));
}

TEST_F(TrackedMarking, AnIndexThatWasPutInUntrackedIsUpdatedUntracked) {
  Open({.body = Paragraph(TextRun("The Lender pays."))});
  Mark({u"Lender"});
  InsertIndexAt(0, 1);
  const std::string xml = docx_->Part("word/document.xml");
  const std::size_t body = xml.find("<w:p>");
  Open({.body = xml.substr(body, xml.rfind("<w:sectPr") - body), .settings = kTracking});
  marker_->UpdateIndex(docx_->Document());
  EXPECT_EQ(docx_->Part("word/document.xml").find("<w:ins "), std::string::npos);
}

TEST_F(TrackedMarking, ProtectionForTrackedChangesTracks) {
  Open({.body = Paragraph(TextRun("The Lender pays.")),
        .settings = "<w:documentProtection w:edit=\"trackedChanges\" w:enforcement=\"1\"/>"});
  Mark({u"Lender"});
  EXPECT_NE(docx_->Part("word/document.xml").find("<w:ins "), std::string::npos);
}

/// Paragraphs in the middle of which an index may be put.
class AroundTheIndex : public TermMarkerOnDocx, public testing::WithParamInterface<std::string> {};

TEST_P(AroundTheIndex, ComesBackWholeFromEveryPlace) {
  for (const char* settings : {"", kTracking}) {
    word::Position last = 1;
    for (word::Position at = 0; at < last; ++at) {
      Open({.body = Paragraph(GetParam()) + Paragraph(Tracked("ins", TextRun("End."))), .settings = settings});
      last = docx_->Story()->End() - 1;
      const auto before = docx_->Canonical();
      for (const int columns : {1, 2}) {
        const word::DocumentPtr document = docx_->Document();
        document->Bookmarks()->Add(u"IndexBKStart", document->Range(at, at));
        Mark({u"Lender"});
        marker_->InsertIndex(docx_->Application(), document, columns, u":  \t");
        document->Bookmarks()->Item(u"IndexBKStart")->Delete();
        ASSERT_NE(docx_->Text().find(u" INDEX "), std::u16string::npos);
        const std::string xml = docx_->Part("word/document.xml");
        for (const std::string name : {"hyperlink", "smartTag", "customXml", "sdt", "bdo", "fldSimple"}) {
          const std::size_t index = xml.find(" INDEX ");
          const std::size_t begin = xml.rfind("<w:" + name + " ", index);
          ASSERT_FALSE(begin != std::string::npos && xml.find("</w:" + name + ">", begin) > index) << xml;
        }
        RemoveAll();
        ExpectSameParts(before);
        ASSERT_FALSE(HasFailure()) << settings << " at " << at << " in " << columns;
      }
    }
  }
}

TEST_F(TermMarkerOnDocx, AnIndexInTheResultOfASimpleFieldGoesBehindTheField) {
  const std::string field = "<w:fldSimple w:instr=\"REF x\">" + TextRun("pays") + "</w:fldSimple>";
  OpenParagraph(TextRun("A Lender ") + field + TextRun("."));
  const auto before = docx_->Canonical();
  Mark({u"Lender"});
  InsertIndexAt(static_cast<word::Position>(docx_->Text().find(u"ays")), 2);
  EXPECT_GT(docx_->Part("word/document.xml").find(" INDEX "), docx_->Part("word/document.xml").find("</w:fldSimple>"));
  RemoveAll();
  ExpectSameParts(before);
}

TEST_F(TermMarkerOnDocx, AnIndexInTheCodeOfASimpleFieldGoesBehindTheField) {
  OpenParagraph(TextRun("A Lender ") + SimpleField(" REF x ", TextRun("pays")) + TextRun("."));
  const auto before = docx_->Canonical();
  Mark({u"Lender"});
  InsertIndexAt(static_cast<word::Position>(docx_->Text().find(u"REF")), 2);
  EXPECT_GT(docx_->Part("word/document.xml").find(" INDEX "), docx_->Part("word/document.xml").find("</w:fldSimple>"));
  RemoveAll();
  ExpectSameParts(before);
}

std::string Link(const std::string& content) { return "<w:hyperlink w:anchor=\"x\">" + content + "</w:hyperlink>"; }

std::string ContentControl(const std::string& content) {
  return "<w:sdt><w:sdtPr><w:id w:val=\"5\"/></w:sdtPr><w:sdtContent>" + content + "</w:sdtContent></w:sdt>";
}

INSTANTIATE_TEST_SUITE_P(
    All, AroundTheIndex,
    testing::Values(TextRun("A Lender pays"), Tracked("ins", TextRun("A Lender pays")),
                    Tracked("ins", TextRun("A Lender", "<w:b/>") + TextRun(" pays")),
                    Tracked("ins", TextRun("A Lender")) + Tracked("ins", TextRun(" pays")),
                    TextRun("A ") + Link(TextRun("Lender p")) + TextRun("ays"),
                    Link(TextRun("A Lender")) + Link(TextRun(" pays")),
                    "<w:smartTag w:element=\"y\"><w:smartTagPr/>" + TextRun("A Lender pays") + "</w:smartTag>",
                    "<w:customXml w:element=\"y\">" + Link(TextRun("A Lender pays")) + TextRun(".") + "</w:customXml>",
                    TextRun("A ") + ContentControl(TextRun("Lender p")) + TextRun("ays"),
                    ContentControl(Link(TextRun("A Lender") + Tracked("ins", TextRun(" p")) + TextRun("ays"))),
                    Link(Tracked("ins", TextRun("A Lender")) + Tracked("ins", TextRun(" pays"))),
                    "<w:bdo w:val=\"ltr\">" + TextRun("A Lender pays") + "</w:bdo>",
                    TextRun("A Lender ") + Field(" REF x ", "pays") + TextRun("."),
                    Field(" TOC ", "A") + TextRun(" Lender ") + EntryField(" XE &quot;x&quot; ") + TextRun("."),
                    Tracked("del", DeletedRun("A ")) + TextRun("Lender") + Tracked("del", DeletedRun(" pays")),
                    Tracked("moveTo", TextRun("A Lender pays")) + Tracked("moveFrom", TextRun("A")),
                    Link("<w:bookmarkStart w:id=\"3\" w:name=\"b\"/>" + TextRun("A Lender") +
                         "<w:bookmarkEnd w:id=\"3\"/>" + TextRun(" pays"))));

}  // namespace
