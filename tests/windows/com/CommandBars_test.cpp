#include "platform/office/CommandBars.h"

#include <gtest/gtest.h>

#include "FakeButton.h"
#include "Sample.h"
#include "hosts/com/Objects.h"

namespace {

using com::Kind;
using com::Optional;
using com::Variant;

/// Command bars with one button on each bar.
class Bars : public testing::Test {
 protected:
  FakeButton* button = new FakeButton;
  com::ComPtr<IDispatch> owner = com::ComPtr<IDispatch>::Adopt(static_cast<com::AutomationObject*>(button));
  std::vector<int> added;

  const com::Members controls{
      {u"Count", DISPATCH_PROPERTYGET, {}, [](auto&, auto&) { return Variant(1); }},
      {u"Item", DISPATCH_PROPERTYGET, {{Kind::kAny}}, [this](auto&, auto&) { return Variant(owner.Get()); }},
      {u"Add",
       DISPATCH_METHOD,
       {Optional(Kind::kInt), Optional(Kind::kInt), Optional(Kind::kText), Optional(Kind::kInt), Optional(Kind::kBool)},
       [this](auto&, const com::Received& given) {
         added = {given.Int(0), given.Int(1), given.Has(2), given.Has(3), given.Bool(4)};
         return Variant(owner.Get());
       }}};
  const com::Members bar{
      {u"Controls", DISPATCH_PROPERTYGET, {}, [this](auto&, auto&) { return MadeObject(new Sample(controls)); }}};
  const com::Members bars{
      {u"Item", DISPATCH_PROPERTYGET, {{Kind::kText}}, [this](auto&, auto&) { return MadeObject(new Sample(bar)); }},
      {u"FindControl",
       DISPATCH_METHOD,
       {Optional(Kind::kInt), {Kind::kInt}},
       [this](auto&, const com::Received& given) {
         return given.Int(1) == 3754 ? Variant(owner.Get()) : Variant(static_cast<IDispatch*>(nullptr));
       }}};
  office::CommandBarsPtr commandBars = com::MakeCommandBars(Wrapped(new Sample(bars)));
  office::CommandBarControlPtr Button() { return commandBars->Item(u"Tools")->Controls()->Item(1); }
};

TEST_F(Bars, AControlIsAddedWithItsKindItsNumberAndHowLongItStays) {
  commandBars->Item(u"Tools")->Controls()->Add({.Type = office::msoControlPopup, .Temporary = true});
  EXPECT_EQ(added, (std::vector<int>{10, 1, 0, 0, 1}));
}

TEST_F(Bars, AControlThatIsNotThereIsNone) {
  EXPECT_EQ(commandBars->FindControl(1), nullptr);
  EXPECT_EQ(commandBars->FindControl(3754)->Caption(), u"B");
}

TEST_F(Bars, AClickReachesTheHandlerWithItsControl) {
  const office::CommandBarControlPtr control = Button();
  std::u16string clicked;
  control->SetClickHandler([&](const office::CommandBarControlPtr& from, bool& cancel) {
    clicked = from->Caption();
    cancel = true;
  });
  EXPECT_EQ(button->Listeners(), 1);
  EXPECT_TRUE(button->Click());
  EXPECT_EQ(clicked, u"B");
}

TEST_F(Bars, NobodyListensAnyMoreWhenTheHandlerOrItsControlGoes) {
  office::CommandBarControlPtr control = Button();
  control->SetClickHandler([](const auto&, bool&) { FAIL(); });
  control->SetClickHandler({});
  EXPECT_EQ(button->Listeners(), 0);
  control->SetClickHandler([](const auto&, bool&) { FAIL(); });
  control.reset();
  EXPECT_EQ(button->Listeners(), 0);
  EXPECT_FALSE(button->Click());
}

TEST_F(Bars, AHandlerMayEndItselfWhileItRuns) {
  const office::CommandBarControlPtr control = Button();
  int clicks = 0;
  control->SetClickHandler([&](const auto&, bool&) {
    control->SetClickHandler({});
    ++clicks;
  });
  button->Click();
  button->Click();
  EXPECT_EQ(clicks, 1);
}

TEST_F(Bars, WhatAHandlerThrowsDoesNotReachTheWordProcessor) {
  const office::CommandBarControlPtr control = Button();
  control->SetClickHandler([](const auto&, bool&) { throw word::HostError(5, u"x", "x"); });
  EXPECT_FALSE(button->Click());
}

}  // namespace
