#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "hosts/docx/find/Search.h"

namespace docx {
namespace {

std::string Mark(const std::string& type) { return "<w:r><w:fldChar w:fldCharType=\"" + type + "\"/></w:r>"; }
std::string Code(const std::string& text) {
  return "<w:r><w:instrText xml:space=\"preserve\">" + text + "</w:instrText></w:r>";
}
std::string Text(const std::string& text) { return "<w:r><w:t xml:space=\"preserve\">" + text + "</w:t></w:r>"; }
std::string Hidden(const std::string& text) {
  return "<w:r><w:rPr><w:vanish/></w:rPr><w:t xml:space=\"preserve\">" + text + "</w:t></w:r>";
}
std::string Deleted(const std::string& text) {
  return "<w:del w:id=\"1\" w:author=\"a\"><w:r><w:delText xml:space=\"preserve\">" + text +
         "</w:delText></w:r></w:del>";
}
std::string Field(const std::string& code, const std::string& result) {
  return Mark("begin") + Code(code) + Mark("separate") + Text(result) + Mark("end");
}
std::string Entry(const std::string& text) {
  return Mark("begin") + Code(" XE &quot;" + text + "&quot; ") + Mark("end");
}
std::string P(const std::string& content) { return "<w:p>" + content + "</w:p>"; }

std::unique_ptr<Story> Body(const std::string& blocks) {
  auto part = std::make_shared<XmlPart>(
      "word/document.xml",
      "<w:document xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\"><w:body>" + blocks +
          "</w:body></w:document>");
  const docx::XmlNode body = part->Child(part->Root(), Tag::kBody);
  return std::make_unique<Story>(part, 1, std::vector<docx::XmlNode>{body});
}

SearchScope ScopeOf(const Story& story) {
  SearchScope scope;
  const XmlPart* part = &story.Part();
  scope.hidden = [part](docx::XmlNode run) { return !part->Child(part->Child(run, Tag::kRPr), "vanish").Empty(); };
  return scope;
}

std::vector<std::u16string> Found(const Story& story, const SearchScope& scope, const FindSettings& settings) {
  std::vector<std::u16string> found;
  for (const Match& match : SearchAll(story, scope, settings, 0, story.Length())) {
    found.push_back(story.Text(match.start, match.end));
  }
  return found;
}

using Texts = std::vector<std::u16string>;

TEST(StorySearch, FindsAcrossRunsAndBookmarks) {
  const auto story =
      Body(P(Text("Pur") + "<w:bookmarkStart w:id=\"1\" w:name=\"a\"/>" + Text("chase ") +
             "<w:bookmarkEnd w:id=\"1\"/><w:hyperlink>" + Text("Agree") + "</w:hyperlink>" + Text("ment")));
  const auto match = Search(*story, ScopeOf(*story), {.text = u"purchase agreement"}, 0, 0);
  ASSERT_TRUE(match);
  EXPECT_EQ(match->start, 0);
  EXPECT_EQ(match->end, 18);
}

TEST(StorySearch, FindsHiddenTextOnlyWhenItShows) {
  const auto story = Body(P(Text("a ") + Hidden("secret ") + Text("b")));
  SearchScope scope = ScopeOf(*story);
  EXPECT_EQ(Found(*story, scope, {.text = u"secret"}), (Texts{}));
  EXPECT_EQ(Found(*story, scope, {.text = u"a b"}), (Texts{u"a secret b"}));
  scope.showHidden = true;
  EXPECT_EQ(Found(*story, scope, {.text = u"secret"}), (Texts{u"secret"}));
  EXPECT_EQ(Found(*story, scope, {.text = u"a b"}), (Texts{}));
}

TEST(StorySearch, NeverFindsDeletionsAndTakesWhatIsAroundThemAsOne) {
  const auto story = Body(P(Text("the “") + Deleted("Old “") + Text("Buyer”")));
  SearchScope scope = ScopeOf(*story);
  scope.showHidden = true;
  EXPECT_EQ(Found(*story, scope, {.text = u"old"}), (Texts{}));
  EXPECT_EQ(Found(*story, scope, {.text = u"“Buyer"}), (Texts{u"“Old “Buyer"}));
  EXPECT_EQ(Found(*story, scope, {.text = u"\"*\"", .wildcards = true}), (Texts{u"“Old “Buyer”"}));
}

TEST(StorySearch, FindsResultsOrCodesOfFields) {
  const auto story = Body(P(Text("on page ") + Field(" PAGEREF here ", "12") + Text(" of it")));
  SearchScope scope = ScopeOf(*story);
  EXPECT_EQ(Found(*story, scope, {.text = u"pageref"}), (Texts{}));
  EXPECT_EQ(Found(*story, scope, {.text = u"page 12 of"}).size(), 1U);
  EXPECT_EQ(Found(*story, scope, {.text = u"^d"}), (Texts{}));
  scope.showFieldCodes = true;
  EXPECT_EQ(Found(*story, scope, {.text = u"pageref"}), (Texts{u"PAGEREF"}));
  EXPECT_EQ(Found(*story, scope, {.text = u"12"}), (Texts{}));
  EXPECT_EQ(Found(*story, scope, {.text = u"^d pageref here ^21 of"}).size(), 1U);
}

TEST(StorySearch, FindsResultsOrCodesOfSimpleFields) {
  const auto story = Body(P("<w:fldSimple w:instr=\" TITLE \">" + Text("Deed") + "</w:fldSimple>"));
  SearchScope scope = ScopeOf(*story);
  EXPECT_EQ(Found(*story, scope, {.text = u"^?", .wildcards = false}), (Texts{u"D", u"e", u"e", u"d", u"\r"}));
  scope.showFieldCodes = true;
  EXPECT_EQ(Found(*story, scope, {.text = u"^19 title ^21"}).size(), 1U);
  EXPECT_EQ(Found(*story, scope, {.text = u"deed"}), (Texts{}));
}

TEST(StorySearch, AnEntryShowsWithHiddenTextWhateverItsRuns) {
  const auto story = Body(P(Text("the Buyer") + Entry("Buyer") + Text(" pays")));
  SearchScope scope = ScopeOf(*story);
  scope.showFieldCodes = true;
  EXPECT_EQ(Found(*story, scope, {.text = u"buyer"}).size(), 1U);
  scope.showHidden = true;
  EXPECT_EQ(Found(*story, scope, {.text = u"buyer"}).size(), 2U);
}

TEST(StorySearch, AnEntryInsideAPhraseIsPassedOver) {
  const auto story = Body(P(Text("“Purchase") + Entry("Purchase") + Text(" Price” s")));
  EXPECT_EQ(Found(*story, ScopeOf(*story), {.text = u"purchase price"}).size(), 1U);
  EXPECT_EQ(Found(*story, ScopeOf(*story), {.text = u"\"*\"", .wildcards = true}),
            (Texts{u"“Purchase\u0013 XE \"Purchase\" \u0015 Price”"}));
}

TEST(StorySearch, NothingIsFoundInACodeOfAnEnclosingField) {
  const auto story = Body(P(Mark("begin") + Code("IF ") + Field("REF x", "Buyer") + Mark("separate") + Text("Seller") +
                            Mark("end") + Text("Buyer")));
  EXPECT_EQ(Found(*story, ScopeOf(*story), {.text = u"buyer"}).size(), 1U);
  const auto inside = Search(*story, ScopeOf(*story), {.text = u"buyer"}, 14, 14);
  ASSERT_TRUE(inside);
  EXPECT_EQ(inside->end, story->Length() - 1);
}

TEST(StorySearch, ASearchMayBeginInsideAField) {
  const auto story = Body(P(Field("TOC", "Buyer Seller")));
  const auto match = Search(*story, ScopeOf(*story), {.text = u"seller"}, 7, 7);
  ASSERT_TRUE(match);
  EXPECT_EQ(story->Text(match->start, match->end), u"Seller");
  EXPECT_FALSE(Search(*story, ScopeOf(*story), {.text = u"TOC"}, 2, 2));
}

TEST(StorySearch, ABeginWithoutEndHidesNoText) {
  const auto story = Body(P(Mark("begin") + Code("IF ") + Text("Buyer")));
  EXPECT_EQ(Found(*story, ScopeOf(*story), {.text = u"buyer"}).size(), 1U);
  EXPECT_EQ(Found(*story, ScopeOf(*story), {.text = u"if"}).size(), 0U);
}

TEST(StorySearch, NeverCrossesCells) {
  const auto story = Body("<w:tbl><w:tr><w:tc>" + P(Text("“one")) + "</w:tc><w:tc>" + P(Text("two”")) +
                          "</w:tc></w:tr></w:tbl>" + P(Text("“three")) + P(Text("four”")));
  EXPECT_EQ(Found(*story, ScopeOf(*story), {.text = u"\"*\"", .wildcards = true}), (Texts{u"“three\rfour”"}));
}

TEST(StorySearch, TellsTheKindsOfNoteMarks) {
  const auto story = Body(P(Text("a") + "<w:r><w:footnoteReference w:id=\"1\"/></w:r>" + Text("b") +
                            "<w:r><w:endnoteReference w:id=\"1\"/></w:r>"));
  const SearchScope scope = ScopeOf(*story);
  EXPECT_EQ(Search(*story, scope, {.text = u"^f"}, 0, 0)->start, 1);
  EXPECT_EQ(Search(*story, scope, {.text = u"^e"}, 0, 0)->start, 3);
}

TEST(StorySearch, TellsSectionEndsFromPageBreaks) {
  const auto story = Body(P(Text("a") + "<w:r><w:br w:type=\"page\"/></w:r>") + "<w:p><w:pPr><w:sectPr/></w:pPr>" +
                          Text("b") + "</w:p>" + P(Text("c")));
  const SearchScope scope = ScopeOf(*story);
  EXPECT_EQ(Search(*story, scope, {.text = u"^m"}, 0, 0)->start, 1);
  EXPECT_EQ(Search(*story, scope, {.text = u"^b"}, 0, 0)->start, 4);
}

TEST(StorySearch, BackwardsAndForwardsFindTheSame) {
  const auto story =
      Body(P(Text("one ") + Entry("one") + Field("PAGE", "one") + Hidden("one") + Text(" on") + Text("e")));
  const SearchScope scope = ScopeOf(*story);
  std::vector<Position> forward;
  for (const Match& match : SearchAll(*story, scope, {.text = u"one"}, 0, story->Length()))
    forward.push_back(match.start);
  std::vector<Position> backward;
  Position from = story->Length();
  while (const auto match = Search(*story, scope, {.text = u"one", .forward = false}, from, from)) {
    backward.insert(backward.begin(), match->start);
    from = match->start;
  }
  EXPECT_EQ(forward.size(), 3U);
  EXPECT_EQ(forward, backward);
}

TEST(StorySearch, GoesThroughALongStoryInTimeWhileItIsEdited) {
  std::string blocks;
  for (int i = 0; i < 3'000; ++i) blocks += P(Text("Clause with the “Term” in it, and more words for the Term."));
  const auto story = Body(blocks);
  const SearchScope scope = ScopeOf(*story);
  Position from = 0;
  int count = 0;
  while (const auto match =
             Search(*story, scope, {.text = u"Term", .matchCase = true, .wholeWord = true}, from, from)) {
    ++count;
    from = match->end + story->InsertField(match->end, u" XE \"Term\" ");
  }
  EXPECT_EQ(count, 6'000);
}

/// Every stretch of the story, forwards, in the order of their starts.
void ExpectKeptSearchToFindTheSame(const Story& story, const SearchScope& scope, const FindSettings& settings) {
  KeptSearch kept(story, scope, settings, 0);
  for (Position start = 0; start <= story.Length(); ++start) {
    for (Position end = start; end <= story.Length(); ++end) {
      const std::optional<Match> afresh = Search(story, scope, settings, start, end);
      ASSERT_TRUE(kept.Serves(scope, settings, start));
      const std::optional<Match> goingOn = kept.Find(start, end);
      ASSERT_EQ(goingOn.has_value(), afresh.has_value()) << start << "-" << end;
      if (!afresh) continue;
      EXPECT_EQ(goingOn->start, afresh->start) << start << "-" << end;
      EXPECT_EQ(goingOn->end, afresh->end) << start << "-" << end;
    }
  }
}

TEST(StorySearch, NoMatchCrossesADeletedCellMark) {
  const std::string deleted = "<w:pPr><w:rPr><w:del w:id=\"1\" w:author=\"a\"/></w:rPr></w:pPr>";
  const auto story = Body("<w:tbl><w:tr><w:tc>" + P(deleted + Text("Pur")) + "</w:tc><w:tc>" + P(Text("chase")) +
                          "</w:tc></w:tr></w:tbl>");
  EXPECT_EQ(Found(*story, ScopeOf(*story), {.text = u"Purchase"}), Texts());
  EXPECT_EQ(Found(*story, ScopeOf(*story), {.text = u"chase"}), Texts{u"chase"});
}

TEST(StorySearch, GoingOnFindsWhatSearchingAfreshFinds) {
  const auto story = Body(P(Text("a Buy") + Hidden("secret ") + Text("er and ") + Deleted("Seller ") +
                            Field(" REF X ", "Bob") + Text(" \"B\" A")) +
                          P(Text("Cab ") + Entry("Cab") + Text("BB AAB")));
  SearchScope scope = ScopeOf(*story);
  for (const bool showHidden : {false, true}) {
    scope.showHidden = showHidden;
    for (const char16_t* pattern : {u"<[A-Z]*>", u"\"*\"", u"B{1,2}", u"[AB]@", u"a*B", u"e"}) {
      ExpectKeptSearchToFindTheSame(*story, scope, {.text = pattern, .wildcards = true});
    }
    ExpectKeptSearchToFindTheSame(*story, scope, {.text = u"b"});
    ExpectKeptSearchToFindTheSame(*story, scope, {.text = u"cab", .wholeWord = true});
  }
}

TEST(StorySearch, AKeptSearchServesNoOtherSearchAndNoChangedStory) {
  const auto story = Body(P(Text("the Buyer and the Seller")));
  const SearchScope scope = ScopeOf(*story);
  const FindSettings settings{.text = u"<[A-Z]*>", .wildcards = true};
  KeptSearch kept(*story, scope, settings, 4);
  EXPECT_TRUE(kept.Serves(scope, settings, 4));
  EXPECT_FALSE(kept.Serves(scope, settings, 3));
  EXPECT_FALSE(kept.Serves(scope, {.text = u"<[A-Z]*>"}, 4));
  SearchScope shown = scope;
  shown.showHidden = true;
  EXPECT_FALSE(kept.Serves(shown, settings, 4));
  story->InsertText(10, u"x");
  EXPECT_FALSE(kept.Serves(scope, settings, 4));
}

}  // namespace
}  // namespace docx
