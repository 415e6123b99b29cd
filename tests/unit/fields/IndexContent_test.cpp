#include "hosts/docx/fields/IndexContent.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace docx {
namespace {

/// A page counts as its label unless the test says otherwise.
struct Entry {
  std::u16string code;
  int page{1};
  int lastPage{0};
};

std::u16string Number(int number) {
  const std::string text = std::to_string(number);
  return {text.begin(), text.end()};
}

std::shared_ptr<const IndexMark> MarkOf(const std::u16string& code) {
  return std::make_shared<const IndexMark>(ParseIndexEntry(code));
}

std::vector<IndexEntry> Entries(const std::vector<Entry>& entries) {
  std::vector<IndexEntry> result;
  for (const Entry& entry : entries) {
    IndexEntry made{MarkOf(u"XE " + entry.code), entry.page, Number(entry.page)};
    if (entry.lastPage != 0) {
      made.lastPage = entry.lastPage;
      made.lastLabel = Number(entry.lastPage);
    }
    result.push_back(made);
  }
  return result;
}

/// One line a paragraph: two blanks for each level below the first, "== " before a heading, bold in *, italic in _.
std::vector<std::u16string> Lines(const std::vector<IndexParagraph>& paragraphs) {
  std::vector<std::u16string> lines;
  for (const IndexParagraph& paragraph : paragraphs) {
    std::u16string line(2 * static_cast<std::size_t>(paragraph.level - 1), u' ');
    if (paragraph.heading) line += u"== ";
    for (const IndexRun& run : paragraph.runs) {
      if (run.bold) line += u'*';
      if (run.italic) line += u'_';
      line += run.text;
      if (run.italic) line += u'_';
      if (run.bold) line += u'*';
    }
    lines.push_back(line);
  }
  return lines;
}

std::vector<std::u16string> Index(std::u16string_view options, const std::vector<Entry>& entries) {
  return Lines(BuildIndexContent(Entries(entries), ParseIndexOptions(u"INDEX " + std::u16string(options))));
}

using Texts = std::vector<std::u16string>;

TEST(IndexContent, MergesEntriesAndSortsPages) {
  EXPECT_EQ(Index(u"", {{u"Buyer", 7}, {u"Agreement", 2}, {u"Buyer", 3}, {u"Buyer", 7}}),
            (Texts{u"Agreement, 2", u"Buyer, 3, 7"}));
}

TEST(IndexContent, PutsTheSeparatorBetweenEntryAndFirstPage) {
  EXPECT_EQ(Index(u"\\e \":  \t\" \\l \"/\"", {{u"Buyer", 1}, {u"Buyer", 2}}), (Texts{u"Buyer:  \t1/2"}));
}

TEST(IndexContent, NeverMergesConsecutivePages) {
  EXPECT_EQ(Index(u"", {{u"a", 2}, {u"a", 3}, {u"a", 4}}), (Texts{u"a, 2, 3, 4"}));
}

TEST(IndexContent, TheFirstEntryOnAPageDecidesItsLook) {
  EXPECT_EQ(Index(u"", {{u"a \\b", 2}, {u"a", 2}, {u"a", 3}, {u"a \\b \\i", 3}, {u"a \\i", 4}}),
            (Texts{u"a, *2*, 3, _4_"}));
}

TEST(IndexContent, TakesOnlyItsOwnType) {
  const std::vector<Entry> entries{{u"a \\f \"DefinedTermsIndex\"", 1}, {u"b", 2}, {u"c \\f i", 3}, {u"d \\f d", 4}};
  EXPECT_EQ(Index(u"", entries), (Texts{u"b, 2", u"c, 3"}));
  EXPECT_EQ(Index(u"\\f \"D\"", entries), (Texts{u"a, 1", u"d, 4"}));
}

TEST(IndexContent, SaysSoWhenThereIsNothing) {
  EXPECT_EQ(Index(u"", {}), (Texts{u"No index entries found."}));
  EXPECT_EQ(Index(u"", {{u"\"\"", 1}}), (Texts{u"No index entries found."}));
}

TEST(IndexContent, OrdersWordByWordSymbolsFirstThenDigitsThenLetters) {
  EXPECT_EQ(
      Index(u"", {{u"\"Newark\""}, {u"\"New York\""}, {u"apple"}, {u"9"}, {u"10"}, {u"§1"}, {u"Zebra"}, {u"Apple"}}),
      (Texts{u"§1, 1", u"10, 1", u"9, 1", u"apple, 1", u"Apple, 1", u"New York, 1", u"Newark, 1", u"Zebra, 1"}));
}

TEST(IndexContent, HyphensAndApostrophesDoNotCountInTheOrder) {
  EXPECT_EQ(Index(u"", {{u"coop"}, {u"co-operation"}, {u"cook"}, {u"\"co's\""}, {u"\"co’t\""}}),
            (Texts{u"cook, 1", u"coop, 1", u"co-operation, 1", u"co's, 1", u"co’t, 1"}));
}

TEST(IndexContent, AccentsCountLessThanLetters) {
  EXPECT_EQ(Index(u"", {{u"etz"}, {u"été"}, {u"ete"}, {u"eta"}}), (Texts{u"eta, 1", u"ete, 1", u"été, 1", u"etz, 1"}));
}

TEST(IndexContent, SortsByTheLanguageAskedFor) {
  EXPECT_EQ(Index(u"\\z 1053", {{u"Ål"}, {u"Zebra"}}), (Texts{u"Zebra, 1", u"Ål, 1"}));
  EXPECT_EQ(Index(u"\\z 1033", {{u"Ål"}, {u"Zebra"}}), (Texts{u"Ål, 1", u"Zebra, 1"}));
}

TEST(IndexContent, EntriesThatDifferInCaseStandSideBySide) {
  EXPECT_EQ(Index(u"", {{u"Buyer", 1}, {u"Buyers", 1}, {u"buyer", 2}, {u"BUYER", 3}}),
            (Texts{u"buyer, 2", u"Buyer, 1", u"BUYER, 3", u"Buyers, 1"}));
}

TEST(IndexContent, SortsByTheKeyThatAnEntryStates) {
  EXPECT_EQ(Index(u"", {{u"\"St. John;Saint John\"", 1}, {u"Sale", 2}, {u"Stock", 3}}),
            (Texts{u"St. John, 1", u"Sale, 2", u"Stock, 3"}));
}

TEST(IndexContent, SubentriesFollowAndAParentWithoutPageStandsAlone) {
  EXPECT_EQ(Index(u"", {{u"\"Shares:sale of\"", 4}, {u"\"Shares:purchase of:by us\"", 2}, {u"Price", 1}}),
            (Texts{u"Price, 1", u"Shares", u"  purchase of", u"    by us, 2", u"  sale of, 4"}));
  EXPECT_EQ(Index(u"\\e \"\t\"", {{u"\"a:b\"", 4}}), (Texts{u"a", u"  b\t4"}));
}

TEST(IndexContent, RunsSubentriesIn) {
  EXPECT_EQ(Index(u"\\r", {{u"\"a:b\"", 2}, {u"\"a:c\"", 3}, {u"a", 1}}), (Texts{u"a, 1: b, 2; c, 3"}));
}

TEST(IndexContent, CrossReferencesTakeThePlaceOfPages) {
  EXPECT_EQ(Index(u"", {{u"Vendor \\t \"See Seller\""}}), (Texts{u"Vendor. See Seller"}));
  EXPECT_EQ(Index(u"\\e \":\t\"", {{u"Vendor \\t \"See Seller\""}}), (Texts{u"Vendor:\tSee Seller"}));
  EXPECT_EQ(Index(u"\\e \":\t\" \\k \" - \"", {{u"Vendor \\t \"See Seller\""}}), (Texts{u"Vendor - See Seller"}));
  EXPECT_EQ(Index(u"", {{u"Vendor \\t one", 1}, {u"Vendor \\t two", 2}}), (Texts{u"Vendor. two, one"}));
  EXPECT_EQ(Index(u"", {{u"Vendor \\t \"See also Seller\""}, {u"Vendor", 3}}), (Texts{u"Vendor, 3. See also Seller"}));
}

TEST(IndexContent, RangesAbsorbAnEntryBeforeThemOnTheirFirstPage) {
  EXPECT_EQ(Index(u"", {{u"a", 10}, {u"a \\b \\r x", 10, 12}}), (Texts{u"a, *10*–*12*"}));
  EXPECT_EQ(Index(u"", {{u"a \\r x", 10, 12}, {u"a", 10}}), (Texts{u"a, 10–12, 10"}));
  EXPECT_EQ(Index(u"", {{u"a \\r x", 10, 10}}), (Texts{u"a, 10"}));
}

TEST(IndexContent, HeadsLetters) {
  const std::vector<Entry> entries{{u"apple"}, {u"Été"}, {u"east"}, {u"1st"}};
  EXPECT_EQ(Index(u"\\h A", entries),
            (Texts{u"== #", u"1st, 1", u"== A", u"apple, 1", u"== E", u"east, 1", u"Été, 1"}));
  EXPECT_EQ(Index(u"\\h \"-a-\"", {{u"b"}}), (Texts{u"== -B-", u"b, 1"}));
  EXPECT_EQ(Index(u"\\h \" \"", {{u"b"}}), (Texts{u"== ", u"b, 1"}));
  EXPECT_EQ(Index(u"\\h Heading", {{u"b"}}), (Texts{u"== ", u"b, 1"}));
}

TEST(IndexContent, TakesOnlyTheLettersAskedFor) {
  const std::vector<Entry> entries{{u"apple"}, {u"mole"}, {u"zebra"}, {u"§5"}};
  EXPECT_EQ(Index(u"\\p a--m", entries), (Texts{u"apple, 1", u"mole, 1"}));
  EXPECT_EQ(Index(u"\\p z", entries), (Texts{u"zebra, 1"}));
  EXPECT_EQ(Index(u"\\p !--a", entries), (Texts{u"§5, 1", u"apple, 1"}));
}

TEST(IndexContent, PrintsTheLabelsAndOrdersByThePage) {
  const std::shared_ptr<const IndexMark> mark = MarkOf(u"XE a");
  const std::vector<IndexEntry> entries{{mark, 3, u"1"}, {mark, 2, u"ii"}, {mark, 4, u"2"}};
  EXPECT_EQ(Lines(BuildIndexContent(entries, {})), (Texts{u"a, ii, 1, 2"}));
}

TEST(IndexContent, PrefixesTheSequenceNumber) {
  const std::shared_ptr<const IndexMark> mark = MarkOf(u"XE a");
  const std::vector<IndexEntry> entries{{mark, 3, u"5", 0, u"", u"2"}};
  EXPECT_EQ(Lines(BuildIndexContent(entries, ParseIndexOptions(u"INDEX \\s chapter \\d :"))), (Texts{u"a, 2:5"}));
  EXPECT_EQ(Lines(BuildIndexContent(entries, ParseIndexOptions(u"INDEX"))), (Texts{u"a, 5"}));
}

TEST(IndexContent, TextsThatAgreeInTheirFirstCharactersAreOne) {
  const std::u16string longText(259, u'x');
  EXPECT_EQ(Index(u"", {{longText + u"1", 1}, {longText + u"2", 2}}).size(), 1U);
  EXPECT_EQ(Index(u"", {{longText.substr(1) + u"1", 1}, {longText.substr(1) + u"2", 2}}).size(), 2U);
}

TEST(IndexContent, TakesFiftyThousandEntries) {
  std::vector<IndexEntry> entries;
  for (int i = 0; i < 50'000; ++i) {
    entries.push_back({MarkOf(u"XE \"Term " + Number(i % 400) + u"\" \\f D"), i / 50 + 1, Number(i / 50 + 1)});
  }
  const std::vector<IndexParagraph> content = BuildIndexContent(entries, ParseIndexOptions(u"INDEX \\f D"));
  EXPECT_EQ(content.size(), 400U);
}

}  // namespace
}  // namespace docx
