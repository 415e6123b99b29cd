#include "hosts/com/Objects.h"

#include <gtest/gtest.h>

#include "Sample.h"
#include "hosts/com/WordProcessor.h"
#include "platform/word/Application.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Fields.h"
#include "platform/word/Options.h"
#include "platform/word/Range.h"
#include "platform/word/Selection.h"

namespace {

using com::Kind;
using com::Optional;
using com::Variant;

TEST(ComRange, IsHandedToWordAsTheObjectBehindIt) {
  const com::Members rangeMembers{{u"Start", DISPATCH_PROPERTYGET, {}, [](auto&, auto&) { return Variant(12); }}};
  int given = 0;
  const com::Members bookmarksMembers{
      {u"Add", DISPATCH_METHOD, {{Kind::kText}, Optional(Kind::kObject)}, [&](auto&, const com::Received& received) {
         given = com::Dispatch(received.Object(1), std::make_shared<com::Session>()).Int("Range.Start");
         return MadeObject(new Sample(rangeMembers));
       }}};
  const word::BookmarksPtr bookmarks = com::MakeBookmarks(Wrapped(new Sample(bookmarksMembers)));
  bookmarks->Add(u"Here", com::MakeRange(Wrapped(new Sample(rangeMembers))));
  EXPECT_EQ(given, 12);
}

TEST(ComRange, HasNoNextStoryWhereWordHasNothing) {
  const com::Members members{{u"NextStoryRange", DISPATCH_PROPERTYGET, {}, [](auto&, auto&) {
                                return Variant(static_cast<IDispatch*>(nullptr));
                              }}};
  EXPECT_EQ(com::MakeRange(Wrapped(new Sample(members)))->NextStoryRange(), nullptr);
}

TEST(ComRange, IsAskedForItsStoryOnceItsDuplicatesIncluded) {
  int asked = 0;
  const com::Members duplicate{};
  const com::Members members{
      {u"StoryType", DISPATCH_PROPERTYGET, {}, [&](auto&, auto&) { return Variant(++asked + 1); }},
      {u"Duplicate", DISPATCH_PROPERTYGET, {}, [&](auto&, auto&) { return MadeObject(new Sample(duplicate)); }}};
  const word::RangePtr range = com::MakeRange(Wrapped(new Sample(members)));
  EXPECT_EQ(range->StoryType(), word::wdFootnotesStory);
  EXPECT_EQ(range->StoryType(), word::wdFootnotesStory);
  EXPECT_EQ(range->Duplicate()->StoryType(), word::wdFootnotesStory);
  EXPECT_EQ(asked, 1);
}

TEST(ComField, OfAnEntryHasNoResultAndIsNotAskedForOne) {
  const com::Members field{{u"Type", DISPATCH_PROPERTYGET, {}, [](auto&, auto&) { return Variant(4); }}};
  const com::Members fields{
      {u"Item", DISPATCH_PROPERTYGET, {{Kind::kInt}}, [&](auto&, auto&) { return MadeObject(new Sample(field)); }}};
  EXPECT_EQ(com::MakeFields(Wrapped(new Sample(fields)))->Item(1)->Result(), nullptr);
}

TEST(ComSelection, GoesToAPlaceWithWhatIsKnownOfIt) {
  std::vector<std::u16string> gone;
  const com::Members members{{u"GoTo",
                              DISPATCH_METHOD,
                              {Optional(Kind::kInt), Optional(Kind::kInt), Optional(Kind::kInt), Optional(Kind::kText)},
                              [&](auto&, const com::Received& given) {
                                std::u16string text = given.Get(0).ToText();
                                text += given.Has(1) ? u" which " + given.Get(1).ToText() : u"";
                                text += given.Has(2) ? u" count" : u"";
                                gone.push_back(text + (given.Has(3) ? u" name " + given.Text(3) : u""));
                                return Variant();
                              }}};
  const word::SelectionPtr selection = com::MakeSelection(Wrapped(new Sample(members)));
  selection->GoTo({.What = word::wdGoToBookmark, .Name = u"Index"});
  selection->GoTo({.What = word::wdGoToPage, .Which = word::wdGoToFirst});
  EXPECT_EQ(gone, (std::vector<std::u16string>{u"-1 name Index", u"1 which 1"}));
}

TEST(ComApplication, ReadsAPropertyThatHasAnArgument) {
  const com::Members options{{u"DefaultFilePath", DISPATCH_PROPERTYGET, {{Kind::kInt}}, [](auto&, const auto& given) {
                                return Variant(given.Int(0) == 8 ? u"C:\\Startup" : u"");
                              }}};
  const com::Members application{
      {u"Options", DISPATCH_PROPERTYGET, {}, [&](auto&, auto&) { return MadeObject(new Sample(options)); }}};
  const auto owner = com::ComPtr<IDispatch>::Adopt(new Sample(application));
  EXPECT_EQ(com::WrapApplication(owner.Get())->Options()->DefaultFilePath(8), u"C:\\Startup");
}

}  // namespace
