#include "TermMarkerOnDocx.h"

#include "tests/unit/linux/Environment.h"

#include <regex>

namespace {

constexpr const char* kTracking = "<w:trackRevisions/>";

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
                OurEntry("Lender", 2) + TextRun(", Lender") + OurEntry("Lender", 3));
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

const std::string kHighlight = "<w:highlight w:val=\"green\"/>";

INSTANTIATE_TEST_SUITE_P(
    All, TrackedPlaces,
    testing::Values(TextRun("The Lender pays the Lender\u2019s costs."),
                    Tracked("ins", TextRun("The Lender pays the Lender\u2019s costs.")),
                    Tracked("ins", TextRun("The Len", "<w:b/>") + TextRun("der") + TextRun(" pays.")),
                    // Insertions that say the same and are two nevertheless.
                    Tracked("ins", TextRun("The Lender")) + Tracked("ins", TextRun(" pays the Lender.")),
                    Tracked("ins", TextRun("The Len")) + Tracked("ins", TextRun("der pays.")),
                    // The author's highlights are kept by bookmarks.
                    Tracked("ins", TextRun("the ") + TextRun("Lender", kHighlight) + TextRun(" pays")),
                    Tracked("ins", TextRun("the ") + TextRun("Lender", kHighlight)) + Tracked("ins", TextRun(" pays")),
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

TEST_F(TermMarkerOnDocx, AnInsertionInTheMiddleOfWhichTheIndexWasPutComesBackWhole) {
  for (const char* settings : {"", kTracking}) {
    for (const int columns : {1, 2}) {
      for (const std::string& content : {Tracked("ins", TextRun("The Lender pays")),
                                         Tracked("ins", TextRun("The Lender", "<w:b/>") + TextRun(" pays")),
                                         Tracked("ins", TextRun("The Lender")) + Tracked("ins", TextRun(" pays"))}) {
        Open({.body = Paragraph(content) + Paragraph(Tracked("ins", TextRun("End."))), .settings = settings});
        const auto before = docx_->Canonical();
        const word::DocumentPtr document = docx_->Document();
        document->Bookmarks()->Add(u"IndexBKStart", document->Range(10, 10));
        Mark({u"Lender"});
        marker_->InsertIndex(docx_->Application(), document, columns, u":  \t");
        document->Bookmarks()->Item(u"IndexBKStart")->Delete();
        ASSERT_NE(docx_->Text().find(u"Lender:  \t1"), std::u16string::npos);
        RemoveAll();
        ExpectSameParts(before);
      }
    }
  }
}

}  // namespace
