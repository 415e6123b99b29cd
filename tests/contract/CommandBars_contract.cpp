#include <gtest/gtest.h>

#include "hosts/menus/MenuBars.h"
#include "platform/word/HostError.h"
#include "tests/contract/Reach.h"

#include <functional>

namespace {

/// What every host's menus have to do alike, on those in memory.
class CommandBars : public testing::Test, public menus::Observer {
 protected:
  void Added(const menus::Item& item) override { told.push_back(u"+" + item.caption + u"/" + item.tag); }
  void Deleted(const menus::Item& item) override { told.push_back(u"-" + item.caption + u"/" + item.tag); }
  void Changed() override { ++changes; }

  office::CommandBarControlsPtr Tools() { return Bars()->Item(u"Tools")->Controls(); }
  office::CommandBarsPtr Bars() { return reach::CommandBars(bars.CommandBars()); }
  office::CommandBarControlPtr Add(const office::CommandBarControlsPtr& to, office::ControlType type,
                                   std::u16string_view caption, std::u16string_view tag) {
    const office::CommandBarControlPtr control = to->Add({.Type = type});
    control->SetCaption(caption);
    control->SetTag(tag);
    return control;
  }
  static int ErrorOf(const std::function<void()>& work) {
    try {
      work();
    } catch (const word::HostError& error) {
      return error.Number();
    }
    return 0;
  }

  std::vector<std::u16string> told;
  int changes{0};
  menus::MenuBars bars{this};
};

TEST_F(CommandBars, ThereIsABarOfTools) {
  EXPECT_EQ(Tools()->Count(), 0);
  EXPECT_EQ(ErrorOf([&] { Bars()->Item(u"Nothing"); }), word::kMemberDoesNotExist);
}

TEST_F(CommandBars, ControlsAreAddedAtTheEndAndCountedFromOne) {
  Add(Tools(), office::msoControlButton, u"&One", u"1");
  Add(Tools(), office::msoControlPopup, u"&Two", u"2");
  ASSERT_EQ(Tools()->Count(), 2);
  EXPECT_EQ(Tools()->Item(1)->Caption(), u"&One");
  EXPECT_EQ(Tools()->Item(1)->Type(), office::msoControlButton);
  EXPECT_EQ(Tools()->Item(2)->Caption(), u"&Two");
  EXPECT_EQ(Tools()->Item(2)->Type(), office::msoControlPopup);
  for (const int index : {0, 3, -1}) EXPECT_EQ(ErrorOf([&] { Tools()->Item(index); }), word::kMemberDoesNotExist);
}

TEST_F(CommandBars, WhatIsPutReadsBackThroughEveryProxy) {
  const office::CommandBarControlPtr control = Tools()->Add({});
  EXPECT_TRUE(control->Visible());
  EXPECT_FALSE(control->BeginGroup());
  EXPECT_EQ(control->Id(), 1);
  control->SetBeginGroup(true);
  control->SetVisible(false);
  control->SetTag(u"Tag");
  const office::CommandBarControlPtr other = Tools()->Item(1);
  EXPECT_TRUE(other->BeginGroup());
  EXPECT_FALSE(other->Visible());
  EXPECT_EQ(other->Tag(), u"Tag");
}

TEST_F(CommandBars, OnlyAPopupHasControls) {
  const office::CommandBarControlPtr popup = Add(Tools(), office::msoControlPopup, u"P", u"p");
  Add(popup->Controls(), office::msoControlButton, u"B", u"b");
  EXPECT_EQ(Tools()->Item(1)->Controls()->Item(1)->Caption(), u"B");
  EXPECT_EQ(ErrorOf([&] { popup->Controls()->Item(1)->Controls(); }), word::kMethodNotAvailable);
}

TEST_F(CommandBars, ADeletedControlIsGoneWithAllThatIsInIt) {
  const office::CommandBarControlPtr popup = Add(Tools(), office::msoControlPopup, u"P", u"p");
  const office::CommandBarControlPtr button = Add(popup->Controls(), office::msoControlButton, u"B", u"b");
  const office::CommandBarControlsPtr controls = popup->Controls();
  popup->Delete();
  EXPECT_EQ(Tools()->Count(), 0);
  EXPECT_EQ(ErrorOf([&] { popup->Caption(); }), word::kObjectDeleted);
  EXPECT_EQ(ErrorOf([&] { button->SetCaption(u"x"); }), word::kObjectDeleted);
  EXPECT_EQ(ErrorOf([&] { popup->Delete(); }), word::kObjectDeleted);
  EXPECT_EQ(ErrorOf([&] { controls->Count(); }), word::kObjectDeleted);
}

TEST_F(CommandBars, ABuiltInControlIsFoundByItsNumberOnAnyBar) {
  EXPECT_EQ(Bars()->FindControl(3754), nullptr);
  bars.AddElsewhere({.id = 3754, .caption = u"COM Add-Ins..."});
  EXPECT_EQ(Bars()->FindControl(3754)->Caption(), u"COM Add-Ins...");
  EXPECT_EQ(Tools()->Count(), 0);
  EXPECT_EQ(Tools()->Add({.Id = 3754})->Caption(), u"COM Add-Ins...");
  EXPECT_EQ(Tools()->Count(), 1);
}

TEST_F(CommandBars, AClickReachesTheHandlerWithItsControl) {
  const office::CommandBarControlPtr button = Add(Tools(), office::msoControlButton, u"B", u"b");
  EXPECT_FALSE(bars.Click(bars.Tools()[0]));
  std::u16string clicked;
  button->SetClickHandler(
      [&](const office::CommandBarControlPtr& control, bool&) { clicked = control->Caption() + control->Tag(); });
  EXPECT_TRUE(bars.Click(bars.Tools()[0]));
  EXPECT_EQ(clicked, u"Bb");
  button->SetVisible(false);
  EXPECT_FALSE(bars.Click(bars.Tools()[0]));
  button->SetVisible(true);
  button->SetClickHandler({});
  EXPECT_FALSE(bars.Click(bars.Tools()[0]));
}

TEST_F(CommandBars, AHandlerMayDeleteItsButton) {
  const office::CommandBarControlPtr button = Add(Tools(), office::msoControlButton, u"B", u"b");
  button->SetClickHandler([](const office::CommandBarControlPtr& control, bool&) { control->Delete(); });
  const std::shared_ptr<menus::Item> item = bars.Tools()[0];
  EXPECT_TRUE(bars.Click(item));
  EXPECT_EQ(Tools()->Count(), 0);
  EXPECT_FALSE(bars.Click(item));
}

TEST_F(CommandBars, WhoWatchesIsToldOfControlsWithCaptionAndTagAndOfEveryChange) {
  const office::CommandBarControlPtr popup = Tools()->Add({.Type = office::msoControlPopup});
  EXPECT_EQ(changes, 1);
  popup->SetTag(u"p");
  EXPECT_TRUE(told.empty());
  popup->SetCaption(u"P");
  popup->SetCaption(u"Q");
  popup->Delete();
  EXPECT_EQ(told, (std::vector<std::u16string>{u"+P/p", u"-Q/p"}));
  EXPECT_EQ(changes, 5);
}

TEST_F(CommandBars, MenusThatAreGoneHaveNoMembersLeft) {
  office::CommandBarsPtr kept;
  office::CommandBarControlPtr button;
  {
    menus::MenuBars shortLived;
    kept = reach::CommandBars(shortLived.CommandBars());
    button = kept->Item(u"Tools")->Controls()->Add({});
  }
  EXPECT_EQ(ErrorOf([&] { kept->Item(u"Tools")->Controls()->Count(); }), word::kObjectDeleted);
  EXPECT_EQ(ErrorOf([&] { button->Caption(); }), word::kObjectDeleted);
}

}  // namespace
