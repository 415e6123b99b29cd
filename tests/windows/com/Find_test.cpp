#include "platform/word/Find.h"

#include <gtest/gtest.h>

#include "Sample.h"
#include "hosts/com/Objects.h"
#include "platform/word/Range.h"

namespace {

using com::Kind;
using com::Optional;
using com::Variant;

/// A range whose search notes what it is told.
class Searching : public testing::Test {
 protected:
  std::vector<std::u16string> texts;
  std::vector<int> replaces;
  bool wildcards{false};
  bool finds{true};

  std::uint64_t Calls(std::string_view member) const {
    const auto& calls = word.TheSession()->Calls();
    return calls.contains(member) ? calls.at(member) : 0;
  }

  const com::Members find{
      {u"Text",
       DISPATCH_PROPERTYPUT,
       {{Kind::kText}},
       [this](auto&, const com::Received& given) {
         texts.push_back(given.Text(0));
         return Variant();
       }},
      {u"Text", DISPATCH_PROPERTYGET, {}, [](auto&, auto&) { return Variant(u"of Word"); }},
      {u"MatchWildcards",
       DISPATCH_PROPERTYPUT,
       {{Kind::kBool}},
       [this](auto&, const com::Received& given) {
         wildcards = given.Bool(0);
         return Variant();
       }},
      {u"MatchAllWordForms", DISPATCH_PROPERTYPUT, {{Kind::kBool}}, [](auto&, auto&) { return Variant(); }},
      {u"ClearFormatting", DISPATCH_METHOD, {}, [](auto&, auto&) { return Variant(); }},
      {u"Found", DISPATCH_PROPERTYGET, {}, [](auto&, auto&) { return Variant(true); }},
      {u"Execute",
       DISPATCH_METHOD,
       {Optional(Kind::kText), Optional(Kind::kBool), Optional(Kind::kBool), Optional(Kind::kBool),
        Optional(Kind::kBool), Optional(Kind::kBool), Optional(Kind::kBool), Optional(Kind::kInt),
        Optional(Kind::kBool), Optional(Kind::kText), Optional(Kind::kInt)},
       [this](auto&, const com::Received& given) {
         for (std::size_t i = 0; i < 10; ++i) EXPECT_FALSE(given.Has(i));
         replaces.push_back(given.Has(10) ? given.Int(10) : -1);
         return Variant(finds);
       }}};
  const com::Members range{
      {u"Find", DISPATCH_PROPERTYGET, {}, [this](auto&, auto&) { return MadeObject(new Sample(find)); }}};
  com::Dispatch word = Wrapped(new Sample(range));
  word::RangePtr searched = com::MakeRange(word);
};

TEST_F(Searching, WordIsToldTheTextInItsOwnWayOnceBothSettingsAreKnown) {
  const word::FindPtr search = searched->Find();
  search->SetText(u"\"*\"");
  search->SetMatchWildcards(true);
  EXPECT_TRUE(texts.empty());
  EXPECT_TRUE(search->Execute());
  EXPECT_EQ(texts, (std::vector<std::u16string>{u"[^034^0147^0148]*[^034^0147^0148]"}));
  EXPECT_EQ(search->Text(), u"\"*\"");
}

TEST_F(Searching, TheTextIsToldAgainOnlyWhenItIsAnother) {
  const word::FindPtr search = searched->Find();
  search->SetText(u"\u201C");
  search->Execute();
  search->Execute();
  EXPECT_EQ(texts, (std::vector<std::u16string>{u"^0147"}));
  search->SetMatchWildcards(true);
  search->Execute();
  EXPECT_EQ(texts.back(), u"\u201C");
}

TEST_F(Searching, ARangeHasOneSearchHoweverOftenItIsAsked) {
  searched->Find()->SetText(u"a");
  searched->Find()->Execute();
  EXPECT_EQ(texts, (std::vector<std::u16string>{u"a"}));
  EXPECT_EQ(word.TheSession()->Calls().at("Range.Find"), 1u);
}

TEST_F(Searching, SettingsAreToldAgainOnlyWhenTheyAreOthers) {
  const word::FindPtr search = searched->Find();
  for (int i = 0; i < 3; ++i) {
    search->ClearFormatting();
    search->SetMatchWildcards(true);
    search->SetMatchAllWordForms(false);
    search->Execute();
  }
  EXPECT_EQ(Calls("Find.ClearFormatting"), 1u);
  EXPECT_EQ(Calls("Find.MatchWildcards"), 1u);
  EXPECT_EQ(Calls("Find.MatchAllWordForms"), 1u);
  search->SetMatchWildcards(false);
  EXPECT_FALSE(wildcards);
}

TEST_F(Searching, WhatWordSwitchesOffWithAnotherKindOfSearchIsToldAgain) {
  const word::FindPtr search = searched->Find();
  search->SetMatchWildcards(true);
  search->SetMatchAllWordForms(true);
  search->SetMatchWildcards(true);
  EXPECT_EQ(Calls("Find.MatchWildcards"), 2u);
}

TEST_F(Searching, WhetherItFoundSomethingIsKnownFromTheSearch) {
  const word::FindPtr search = searched->Find();
  EXPECT_TRUE(search->Found());
  EXPECT_EQ(Calls("Find.Found"), 1u);
  search->Execute();
  EXPECT_TRUE(search->Found());
  finds = false;
  search->Execute();
  EXPECT_FALSE(search->Found());
  EXPECT_EQ(Calls("Find.Found"), 1u);
  search->Execute({.Replace = word::wdReplaceAll});
  EXPECT_TRUE(search->Found());
  EXPECT_EQ(Calls("Find.Found"), 2u);
}

TEST_F(Searching, ASearchThatIsToldNothingHasWordsText) { EXPECT_EQ(searched->Find()->Text(), u"of Word"); }

TEST_F(Searching, ReplacingIsTheEleventhArgument) {
  searched->Find()->SetText(u"a");
  searched->Find()->Execute({.Replace = word::wdReplaceAll});
  searched->Find()->Execute();
  EXPECT_EQ(replaces, (std::vector<int>{2, -1}));
}

TEST_F(Searching, ATextThatWordRefusesIsRefusedWhenItIsPut) {
  EXPECT_EQ(ErrorNumberOf([&] { searched->Find()->SetText(std::u16string(256, u'a')); }), word::kStringTooLong);
  searched->Find()->SetText(std::u16string(255, u'a'));
}

}  // namespace
