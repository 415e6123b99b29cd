#include "FakeDocument.h"

#include "hosts/linux/IcuCharacters.h"
#include "marker/MakeTermMarker.h"
#include "platform/word/HostError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace {

using Terms = std::vector<std::u16string>;

struct Options {
  bool matchCase{false};
  bool allCaps{false};
  std::u16string what{u"IndexAll"};
};

std::u16string Entry(std::u16string_view text, std::u16string_view more = {}) {
  return std::u16string(u"\u0013 XE \"")
      .append(text)
      .append(u"\" \\f \"DefinedTermsIndex\" ")
      .append(more)
      .append(u"\u0015");
}

class TermMarkerTest : public testing::Test {
 protected:
  void Open(std::u16string_view text) { document_ = std::make_shared<fake::Document>(text); }

  /// A run's calls for the stories given, as the add-in makes them.
  TermTable Mark(const Terms& chosen, const Options& options = {}, bool end = true) {
    marker_->BeginIndexing(document_);
    TermTable table = marker_->BuildTermTable({}, document_, chosen, options.matchCase);
    const word::StoryRangesPtr stories = document_->StoryRanges();
    for (int index = 1; index <= stories->Count(); ++index) {
      const word::RangePtr story = stories->Item(index);
      for (TermRow& row : table) {
        row.count = marker_->MarkTermInStory(document_, story, row.term, row.count, story->StoryType(),
                                             options.matchCase, options.allCaps, options.what, u"");
        const std::u16string upper = characters_.ToUpper(row.term);
        if (!options.allCaps || upper == row.term) continue;
        row.count = marker_->MarkTermInStory(document_, story, upper, row.count, story->StoryType(), true,
                                             options.allCaps, options.what, row.term);
      }
    }
    lists_ = marker_->GetUnusedAndMissing(table);
    if (end) marker_->EndIndexing(document_);
    return table;
  }

  void RemoveAll() {
    marker_->RemoveIndexEntries({}, document_, false);
    marker_->RemoveIndex({}, document_, true);
    marker_->RemoveTermHighlighting(document_);
  }

  os::IcuCharacters characters_;
  std::unique_ptr<TermMarker> marker_ = MakeTermMarker(characters_);
  std::shared_ptr<fake::Document> document_;
  std::vector<std::u16string> lists_;
};

TEST_F(TermMarkerTest, AddTermFillsTheLastElementAndAddsAnEmptyOne) {
  Open(u"Lender Buyer");
  Terms terms{u""};
  marker_->AddTerm(document_->Range(0, 6), terms);
  marker_->AddTerm(document_->Range(7, 12), terms);
  EXPECT_EQ(terms, (Terms{u"Lender", u"Buyer", u""}));
}

TEST_F(TermMarkerTest, AddTermLeavesOutATextThatStandsThereAlready) {
  Open(u"Lender Lender lender");
  Terms terms{u""};
  marker_->AddTerm(document_->Range(0, 6), terms);
  marker_->AddTerm(document_->Range(7, 13), terms);
  marker_->AddTerm(document_->Range(14, 20), terms);
  EXPECT_EQ(terms, (Terms{u"Lender", u"lender", u""}));
}

TEST_F(TermMarkerTest, AddTermGoesByTheArrayThatItIsGiven) {
  Open(u"Lender Buyer Note");
  const word::RangePtr lender = document_->Range(0, 6);
  const word::RangePtr buyer = document_->Range(7, 12);
  Terms first{u""};
  marker_->AddTerm(lender, first);
  marker_->AddTerm(buyer, first);
  Terms second{u"Note", u""};
  marker_->AddTerm(buyer, second);
  marker_->AddTerm(lender, second);
  EXPECT_EQ(second, (Terms{u"Note", u"Buyer", u"Lender", u""}));
  marker_->AddTerm(document_->Range(13, 17), first);
  marker_->AddTerm(lender, first);
  EXPECT_EQ(first, (Terms{u"Lender", u"Buyer", u"Note", u""}));
}

TEST_F(TermMarkerTest, AddTermLeavesOutAnEmptyText) {
  Open(u"\"\"");
  Terms terms{u""};
  marker_->AddTerm(document_->Range(1, 1), terms);
  EXPECT_EQ(terms, Terms{u""});
}

TEST_F(TermMarkerTest, TheTableHasARowForEachTermAndNoCounts) {
  Open(u"Lender");
  const TermTable table = marker_->BuildTermTable({}, document_, {u"Lender", u"Buyer"}, true);
  ASSERT_EQ(table.size(), 2U);
  EXPECT_EQ(table[0].term, u"Lender");
  EXPECT_EQ(table[0].count, 0);
  EXPECT_EQ(table[1].term, u"Buyer");
}

TEST_F(TermMarkerTest, EachOccurrenceIsCountedAndGetsAnEntryBehindIt) {
  Open(u"The Lender, a lender.");
  EXPECT_EQ(Mark({u"Lender"})[0].count, 2);
  EXPECT_EQ(document_->Text(), u"The Lender" + Entry(u"Lender") + u", a lender" + Entry(u"Lender") + u".\r");
}

TEST_F(TermMarkerTest, TermsMarkedInAnyOrderLandInTheirPlaces) {
  Open(u"Buyer Lender Buyer Note Lender");
  Mark({u"Note", u"Lender", u"Buyer"});
  EXPECT_EQ(document_->Text(), u"Buyer" + Entry(u"Buyer") + u" Lender" + Entry(u"Lender") + u" Buyer" +
                                   Entry(u"Buyer") + u" Note" + Entry(u"Note") + u" Lender" + Entry(u"Lender") + u"\r");
}

TEST_F(TermMarkerTest, TheEntryOfAPossessiveGoesBehindTheWord) {
  Open(u"the Buyer\u2019s duty");
  Mark({u"Buyer"});
  EXPECT_EQ(document_->Text(), u"the Buyer\u2019s" + Entry(u"Buyer") + u" duty\r");
  EXPECT_EQ(document_->Highlights().substr(0, 11), "00007777700");
}

TEST_F(TermMarkerTest, TheEntryItselfIsNotHighlighted) {
  Open(u"Buyer.");
  Mark({u"Buyer"});
  const std::string highlights = document_->Highlights();
  EXPECT_EQ(highlights.substr(0, 5), "77777");
  EXPECT_EQ(std::count(highlights.begin(), highlights.end(), '7'), 5);
}

TEST_F(TermMarkerTest, AWordSplitByADeletionIsMarkedAroundIt) {
  Open(u"Lexxnder.");
  document_->Format(u"xx", [](fake::Character& one) { one.deleted = true; });
  EXPECT_EQ(Mark({u"Lender"})[0].count, 1);
  EXPECT_EQ(document_->Text(), u"Lexxnder" + Entry(u"Lender") + u".\r");
  EXPECT_EQ(document_->Highlights().substr(0, 8), "77007777");
}

TEST_F(TermMarkerTest, DeletedAndHiddenOccurrencesAreNotMarked) {
  Open(u"Lender a Lender b lender");
  document_->Format(u"Lender a", [](fake::Character& one) { one.deleted = true; });
  document_->Format(u"Lender b", [](fake::Character& one) { one.hidden = true; });
  EXPECT_EQ(Mark({u"Lender"})[0].count, 1);
  EXPECT_EQ(document_->Text(), u"Lender a Lender b lender" + Entry(u"Lender") + u"\r");
}

TEST_F(TermMarkerTest, ATermRunsAcrossTheAuthorsEntry) {
  Open(u"Stock \u0013 XE \"Stock\" \u0015Purchase");
  EXPECT_EQ(Mark({u"Stock Purchase"})[0].count, 1);
  EXPECT_EQ(document_->Text(), u"Stock \u0013 XE \"Stock\" \u0015Purchase" + Entry(u"Stock Purchase") + u"\r");
  EXPECT_EQ(document_->Highlights().substr(0, 28), "7777770000000000000077777777");
}

TEST_F(TermMarkerTest, FootnotesAreMarkedByThemselves) {
  Open(u"Lender");
  document_->AddStory(word::wdFootnotesStory, u"\u0002 Lender");
  EXPECT_EQ(Mark({u"Lender"})[0].count, 2);
  EXPECT_EQ(document_->Text(word::wdFootnotesStory), u"\u0002 Lender" + Entry(u"Lender") + u"\r");
}

TEST_F(TermMarkerTest, ADefinitionsEntryIsBoldInAFullIndex) {
  Open(u"\"Lender\" the Lender");
  EXPECT_EQ(Mark({u"Lender"})[0].count, 2);
  EXPECT_EQ(document_->Text(), u"\"Lender" + Entry(u"Lender", u"\\b ") + u"\" the Lender" + Entry(u"Lender") + u"\r");
}

TEST_F(TermMarkerTest, DefinitionsOnlyMarksNothingElseAndNeedsNoBold) {
  Open(u"(the \u201CLender\u201D) Lender");
  EXPECT_EQ(Mark({u"Lender"}, {.what = u"IndexDefs"})[0].count, 1);
  EXPECT_EQ(document_->Text(), u"(the \u201CLender" + Entry(u"Lender") + u"\u201D) Lender\r");
}

TEST_F(TermMarkerTest, TheUpperCaseFormIsIndexedUnderItsTerm) {
  Open(u"Lender LENDER lender");
  EXPECT_EQ(Mark({u"Lender"}, {.matchCase = true, .allCaps = true})[0].count, 2);
  EXPECT_EQ(document_->Text(), u"Lender" + Entry(u"Lender") + u" LENDER" + Entry(u"Lender") + u" lender\r");
}

TEST_F(TermMarkerTest, TheUpperCaseFormIsCountedOnceThoughCaseIsNotMatched) {
  Open(u"Lender LENDER lender");
  EXPECT_EQ(Mark({u"Lender"}, {.matchCase = false, .allCaps = true})[0].count, 3);
}

TEST_F(TermMarkerTest, AChosenTermInCapitalsKeepsItsOccurrences) {
  Open(u"NOTE Note");
  const TermTable table = Mark({u"Note", u"NOTE"}, {.matchCase = true, .allCaps = true});
  EXPECT_EQ(table[0].count, 1);
  EXPECT_EQ(table[1].count, 1);
  EXPECT_EQ(document_->Text(), u"NOTE" + Entry(u"NOTE") + u" Note" + Entry(u"Note") + u"\r");
}

TEST_F(TermMarkerTest, ALongUpperCaseFormTakesItsPlaceFromAShorterTerm) {
  Open(u"PURCHASE PRICE");
  const TermTable table = Mark({u"PRICE", u"Purchase Price"}, {.matchCase = true, .allCaps = true});
  EXPECT_EQ(table[0].count, 0);
  EXPECT_EQ(table[1].count, 1);
}

TEST_F(TermMarkerTest, ATextBetweenRunsIsMarkedByItself) {
  Open(u"Lender");
  EXPECT_EQ(marker_->MarkTermInStory(document_, document_->Story(), u"Lender", 3, 1, true, false, u"IndexAll", u""), 4);
}

TEST_F(TermMarkerTest, AChangeOfTheStoryDuringARunIsSeen) {
  Open(u"Lender Buyer");
  marker_->BeginIndexing(document_);
  marker_->BuildTermTable({}, document_, {u"Lender", u"Buyer"}, true);
  const auto mark = [&](std::u16string_view term) {
    return marker_->MarkTermInStory(document_, document_->Story(), term, 0, 1, true, false, u"IndexAll", u"");
  };
  EXPECT_EQ(mark(u"Lender"), 1);
  document_->InsertAt(0, u"Buyer, ");
  EXPECT_EQ(mark(u"Buyer"), 2);
  EXPECT_EQ(document_->Text(),
            u"Buyer" + Entry(u"Buyer") + u", Lender" + Entry(u"Lender") + u" Buyer" + Entry(u"Buyer") + u"\r");
}

TEST_F(TermMarkerTest, TheListsTellWhatWasFoundOnceAndNotAtAll) {
  Open(u"Lender Buyer Buyer Note");
  Mark({u"Lender", u"Gone", u"Buyer", u"Note", u"Missing"});
  EXPECT_EQ(lists_, (Terms{u"Lender\r\nNote", u"Gone\r\nMissing"}));
}

TEST_F(TermMarkerTest, TheListsGoByAllOccurrencesWhereOnlyDefinitionsAreMarked) {
  Open(u"\"Lender\" Lender Buyer \"Note\"");
  const TermTable table = Mark({u"Lender", u"Buyer", u"Note", u"Gone"}, {.what = u"IndexDefs"});
  EXPECT_EQ(table[1].count, 0);
  EXPECT_EQ(lists_, (Terms{u"Buyer\r\nNote", u"Gone"}));
}

TEST_F(TermMarkerTest, TheListsAddUpStoriesAndUpperCaseForms) {
  Open(u"Lender Buyer");
  document_->AddStory(word::wdFootnotesStory, u"LENDER");
  Mark({u"Lender", u"Buyer"}, {.matchCase = true, .allCaps = true});
  EXPECT_EQ(lists_, (Terms{u"Buyer", u""}));
}

TEST_F(TermMarkerTest, TermsThatReadAlikeAreFoundTogether) {
  Open(u"Closing Date, Closing\u00A0Date, Buyer, Gone");
  Mark({u"Closing Date", u"Closing\u00A0Date", u"Buyer", u" Buyer", u"Lost", u"Lost "});
  EXPECT_EQ(lists_, (Terms{u"Buyer\r\nBuyer", u"Lost\r\nLost"}));
}

TEST_F(TermMarkerTest, TheListsSpellHyphensAndBlanksAsEntriesDo) {
  Open(u"Non\u001ECompete\u00A0Period, Liefer\u001Fvertrag");
  Mark({u"Non\u001ECompete\u00A0Period", u"Kauf\u001Fvertrag"});
  EXPECT_EQ(lists_, (Terms{u"Non-Compete Period", u"Kaufvertrag"}));
}

TEST_F(TermMarkerTest, RemovingGivesTheDocumentBack) {
  const std::u16string text =
      u"\"Lender\" and Lender's, LENDER\r\u0013 XE \"Lender\" \u0015\u0013 INDEX \u0014old\u0015";
  Open(text);
  document_->AddStory(word::wdEndnotesStory, u"\u0002 Lender");
  Mark({u"Lender"}, {.allCaps = true});
  RemoveAll();
  EXPECT_EQ(document_->Text(), text + u"\r");
  EXPECT_EQ(document_->Text(word::wdEndnotesStory), u"\u0002 Lender\r");
  EXPECT_EQ(document_->Highlights().find_first_not_of('0'), std::string::npos);
  EXPECT_EQ(document_->Highlights(word::wdEndnotesStory).find_first_not_of('0'), std::string::npos);
  EXPECT_TRUE(document_->BookmarkNames().empty());
}

TEST_F(TermMarkerTest, RemovingGivesTheAuthorsHighlightsBack) {
  Open(u"see the Lender and the Buyer or Note");
  document_->Format(u"the Lender", [](fake::Character& one) { one.highlight = 4; });
  document_->Format(u"Buy", [](fake::Character& one) { one.highlight = 5; });
  document_->Format(u"Note", [](fake::Character& one) { one.highlight = 7; });
  const std::string before = document_->Highlights();
  Mark({u"Lender", u"Buyer", u"Note"});
  EXPECT_NE(document_->Highlights(), before);
  RemoveAll();
  EXPECT_EQ(document_->Highlights(), before);
  EXPECT_TRUE(document_->BookmarkNames().empty());
}

TEST_F(TermMarkerTest, RemovingHighlightsOnlyKeepsTheEntries) {
  Open(u"the Lender\u2019s Buyer");
  document_->Format(u"Buy", [](fake::Character& one) { one.highlight = 5; });
  Mark({u"Lender", u"Buyer"});
  const std::u16string marked = document_->Text();
  marker_->RemoveTermHighlighting(document_);
  EXPECT_EQ(document_->Text(), marked);
  EXPECT_EQ(document_->Highlights().substr(0, 12), "000000000000");
  EXPECT_EQ(document_->Highlights().find("555"), marked.find(u"Buyer"));
  EXPECT_TRUE(document_->BookmarkNames().empty());
}

TEST_F(TermMarkerTest, AnEntryHoldsNoControlCharacterAndIsRecognisedNevertheless) {
  const std::u16string text = u"the Net\tIncome, the Net\vLoss\u2019s and a\u0002 Note";
  for (const bool highlightsOnly : {false, true}) {
    Open(text);
    EXPECT_EQ(Mark({u"Net\tIncome", u" \tNet\vLoss", u"a\u0002 Note"})[1].count, 1);
    EXPECT_NE(document_->Text().find(u"Net\tIncome" + Entry(u"Net Income")), std::u16string::npos);
    EXPECT_NE(document_->Text().find(u"Net\vLoss\u2019s" + Entry(u"Net Loss")), std::u16string::npos);
    EXPECT_NE(document_->Text().find(Entry(u"a  Note")), std::u16string::npos);
    if (highlightsOnly) {
      marker_->RemoveTermHighlighting(document_);
    } else {
      RemoveAll();
      EXPECT_EQ(document_->Text(), text + u"\r");
    }
    EXPECT_EQ(document_->Highlights().find('7'), std::string::npos);
  }
}

TEST_F(TermMarkerTest, ATermOverTwoParagraphsIsNotFoundAndOneLineOfTheList) {
  const std::u16string text = u"heading 2/>\r  <w";
  Open(text);
  EXPECT_EQ(Mark({text})[0].count, 0);
  EXPECT_EQ(document_->Text(), text + u"\r");
  EXPECT_EQ(lists_[1], u"heading 2/>   <w");
}

TEST_F(TermMarkerTest, AnOccurrenceLongerThanItsEntryLosesItsWholeHighlight) {
  const std::u16string term = u"A" + std::u16string(300, u'b') + u" C";
  Open(u"x " + term + u"\u2019s y");
  EXPECT_EQ(Mark({term})[0].count, 1);
  RemoveAll();
  EXPECT_EQ(document_->Text(), u"x " + term + u"\u2019s y\r");
  EXPECT_EQ(document_->Highlights().find('7'), std::string::npos);
}

TEST_F(TermMarkerTest, WhatTheAuthorHighlightsAfterOursAreGoneStays) {
  Open(u"the Lender");
  Mark({u"Lender"});
  marker_->RemoveTermHighlighting(document_);
  document_->Format(u"Lender", [](fake::Character& one) { one.highlight = 7; });
  RemoveAll();
  EXPECT_EQ(document_->Highlights(), "00007777770");
}

TEST_F(TermMarkerTest, AnotherColourLaidOverOursStays) {
  Open(u"the Lender");
  Mark({u"Lender"});
  document_->Format(u"Lender", [](fake::Character& one) { one.highlight = 3; });
  RemoveAll();
  EXPECT_EQ(document_->Highlights(), "00003333330");
}

TEST_F(TermMarkerTest, TheRecordOutlivesTheEntries) {
  Open(u"the Lender and the Lender");
  Mark({u"Lender"});
  marker_->RemoveIndexEntries({}, document_, false);
  EXPECT_EQ(document_->Text(), u"the Lender and the Lender\r");
  EXPECT_NE(document_->Highlights().find('7'), std::string::npos);
  document_->InsertAt(0, u"Now ");
  MakeTermMarker(characters_)->RemoveTermHighlighting(document_);
  EXPECT_EQ(document_->Highlights().find('7'), std::string::npos);
  EXPECT_TRUE(document_->BookmarkNames().empty());
}

TEST_F(TermMarkerTest, AnOccurrenceEditedSinceLosesItsHighlightToo) {
  Open(u"the Lender pays");
  Mark({u"Lender"});
  document_->Format(u"d", [](fake::Character& one) { one.unit = u't'; });
  RemoveAll();
  EXPECT_EQ(document_->Highlights().find('7'), std::string::npos);
}

TEST_F(TermMarkerTest, AHighlightedDeletionInsideAnOccurrenceKeepsItsHighlight) {
  Open(u"Lexxnder.");
  document_->Format(u"xx", [](fake::Character& one) {
    one.deleted = true;
    one.highlight = 7;
  });
  Mark({u"Lender"});
  RemoveAll();
  EXPECT_EQ(document_->Highlights(), "0077000000");
}

TEST_F(TermMarkerTest, RemovingFromADocumentNeverMarkedChangesNothing) {
  Open(u"Lender\u0013 XE \"Lender\" \u0015 x");
  document_->Format(u"Lender", [](fake::Character& one) { one.highlight = 7; });
  const std::u16string text = document_->Text();
  RemoveAll();
  EXPECT_EQ(document_->Text(), text);
  EXPECT_EQ(document_->Highlights().substr(0, 6), "777777");
  EXPECT_EQ(document_->Calls("SetHighlightColorIndex"), 0);
}

TEST_F(TermMarkerTest, OneColumnAtTheStartOfAParagraphNeedsNoSection) {
  Open(u"one\rtwo");
  document_->SetBookmark(u"IndexBKStart", 4, 4);
  marker_->InsertIndex({}, document_, 1, u":  \t");
  EXPECT_EQ(document_->Text(),
            u"one\r\u0013 INDEX \\f \"DefinedTermsIndex\" \\e \":  \t\" \u0014No entries\u0015two\r");
}

TEST_F(TermMarkerTest, OneColumnBehindTextSaysItsColumn) {
  Open(u"one two");
  document_->SetBookmark(u"IndexBKStart", 4, 7);
  marker_->InsertIndex({}, document_, 1, u", ");
  EXPECT_NE(document_->Text().find(u"one \u0013 INDEX \\f \"DefinedTermsIndex\" \\e \", \" \\c \"1\" \u0014"),
            std::u16string::npos);
  EXPECT_NE(document_->Text().find(u"two\r"), std::u16string::npos);
}

TEST_F(TermMarkerTest, ColumnsAreBroughtIntoOneToFour) {
  for (const auto& [columns, expected] : {std::pair{9, u"\\c \"4\""}, {3, u"\\c \"3\""}, {-2, u"\\c \"1\""}}) {
    Open(u"one");
    document_->SetBookmark(u"IndexBKStart", 3, 3);
    marker_->InsertIndex({}, document_, columns, u", ");
    EXPECT_NE(document_->Text().find(expected), std::u16string::npos);
  }
}

TEST_F(TermMarkerTest, TheIndexIsCoveredFromItsBeginMarkToBehindItsEndMark) {
  Open(u"one\rtwo");
  document_->SetBookmark(u"IndexBKStart", 4, 4);
  marker_->InsertIndex({}, document_, 2, u", ");
  const word::RangePtr covered = document_->Bookmarks()->Item(u"DefinedTermsIndex")->Range();
  const std::u16string text = document_->Text();
  EXPECT_EQ(covered->Start(), 4);
  EXPECT_EQ(text[static_cast<std::size_t>(covered->End()) - 1], word::kFieldEnd);
  EXPECT_EQ(document_->SelectionSpan().begin, covered->End());
  EXPECT_EQ(document_->SelectionSpan().end, covered->End());
}

TEST_F(TermMarkerTest, DeletingAnIndexAtTheStartByHandKeepsTheRecordOfHighlights) {
  Open(u"the Lender");
  Mark({u"Lender"});
  document_->SetBookmark(u"IndexBKStart", 0, 0);
  marker_->InsertIndex({}, document_, 1, u", ");
  document_->Bookmarks()->Item(u"DefinedTermsIndex")->Range()->Delete();
  marker_->RemoveTermHighlighting(document_);
  EXPECT_EQ(document_->Highlights().find('7'), std::string::npos);
}

TEST_F(TermMarkerTest, TheIndexDoesNotComeBetweenAWordAndItsEntry) {
  Open(u"the Lender pays");
  document_->SetBookmark(u"IndexBKStart", 10, 10);
  Mark({u"Lender"});
  marker_->InsertIndex({}, document_, 1, u", ");
  EXPECT_EQ(document_->Text().find(u"the Lender" + Entry(u"Lender") + u"\u0013 INDEX "), 0U);
  marker_->RemoveTermHighlighting(document_);
  EXPECT_EQ(document_->Highlights().find('7'), std::string::npos);
}

TEST_F(TermMarkerTest, ATermThatTheIndexWillTearApartIsNotMarked) {
  Open(u"Stock Purchase Stock Purchase");
  document_->SetBookmark(u"IndexBKStart", 6, 6);
  EXPECT_EQ(Mark({u"Stock Purchase"})[0].count, 1);
}

TEST_F(TermMarkerTest, WithoutThePlaceThereIsNoIndex) {
  Open(u"one");
  EXPECT_THROW(marker_->InsertIndex({}, document_, 2, u", "), word::HostError);
  EXPECT_EQ(document_->Text(), u"one\r");
}

TEST_F(TermMarkerTest, OnlyTheFirstIndexOfOursIsUpdated) {
  Open(
      u"\u0013 INDEX \u0014a\u0015\u0013 INDEX \\f \"DefinedTermsIndex\" \u0014b\u0015\u0013 INDEX \\f "
      u"\"DefinedTermsIndex\" "
      u"\u0014c\u0015");
  marker_->UpdateIndex(document_);
  EXPECT_EQ(document_->Calls("Update"), 1);
}

TEST_F(TermMarkerTest, RemovingTheIndexTakesTheListsAlongAndNothingOfTheAuthors) {
  Open(
      u"mine \rDEFINED BUT NOT USED / USED ONLY ONCE (see Index above for page number)\rBuyer\r\r\rNOT "
      u"FOUND\rGone\r\rafter");
  const std::u16string text = document_->Text();
  const auto end = static_cast<word::Position>(text.find(u"after"));
  const auto split = static_cast<word::Position>(text.find(u"\rNOT FOUND"));
  document_->SetBookmark(u"DefinedTermsIndexNotUsedList", 0, split);
  document_->SetBookmark(u"DefinedTermsIndexNotFoundList", split, end);
  document_->SetBookmark(u"IndexBKStart", 5, 5);
  marker_->InsertIndex({}, document_, 2, u", ");
  document_->Bookmarks()->Item(u"IndexBKStart")->Delete();
  marker_->RemoveIndex({}, document_, true);
  EXPECT_EQ(document_->Text(), u"mine after\r");
  EXPECT_TRUE(document_->BookmarkNames().empty());
}

TEST_F(TermMarkerTest, TheReturnPointGoesWhenThereIsAnIndex) {
  Open(u"one");
  document_->SetBookmark(u"ReturnHereBK", 1, 1);
  marker_->FinishDocument(document_);
  EXPECT_EQ(document_->BookmarkNames(), Terms{u"ReturnHereBK"});
  document_->SetBookmark(u"DefinedTermsIndex", 0, 1);
  marker_->FinishDocument(document_);
  EXPECT_EQ(document_->BookmarkNames(), Terms{u"DefinedTermsIndex"});
}

/// Calls into the document for a run over `repeats` copies of a clause.
int CallsOfRun(TermMarker& marker, int repeats, bool remove) {
  std::u16string text;
  for (int index = 0; index < repeats; ++index) text += u"The Lender pays the Buyer\u2019s costs under the Note.\r";
  const auto document = std::make_shared<fake::Document>(text);
  marker.BeginIndexing(document);
  marker.BuildTermTable({}, document, {u"Lender", u"Buyer", u"Note"}, true);
  const word::RangePtr story = document->Story();
  for (const char16_t* term : {u"Lender", u"Buyer", u"Note"}) {
    EXPECT_EQ(marker.MarkTermInStory(document, story, term, 0, 1, true, false, u"IndexAll", u""), repeats);
  }
  marker.EndIndexing(document);
  if (remove) {
    marker.RemoveIndexEntries({}, document, false);
    marker.RemoveTermHighlighting(document);
  }
  return document->AllCalls();
}

TEST_F(TermMarkerTest, MarkingCostsACertainNumberOfCallsForEachOccurrence) {
  const int few = CallsOfRun(*marker_, 50, false);
  const int many = CallsOfRun(*marker_, 100, false);
  EXPECT_LE(many - few, 50 * 3 * 4);
  EXPECT_EQ(CallsOfRun(*marker_, 150, false) - many, many - few);
}

TEST_F(TermMarkerTest, RemovingCostsACertainNumberOfCallsForEachOccurrence) {
  const int few = CallsOfRun(*marker_, 50, true);
  const int many = CallsOfRun(*marker_, 100, true);
  EXPECT_LE(many - few, 50 * 3 * (4 + 15));
  EXPECT_EQ(CallsOfRun(*marker_, 150, true) - many, many - few);
}

TEST_F(TermMarkerTest, TheTextOfAStoryIsReadOnceForAllTerms) {
  Open(u"Lender Buyer Note");
  const int before = document_->Calls("Text");
  Mark({u"Lender", u"Buyer", u"Note"}, {.allCaps = true});
  EXPECT_EQ(document_->Calls("Text") - before, 1);
}

}  // namespace
