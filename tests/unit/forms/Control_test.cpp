#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/unit/forms/SampleForm.h"

namespace {

TEST(Control, SettingAValueFromCodeRaisesItsEventAsAClickDoes) {
  ShownSample sample;
  sample.form.chkBox.SetValue(1);
  sample.form.txtName.SetText(u"Buyer");
  sample.form.cmbCode.AddItem(u"a", 147);
  sample.form.cmbCode.SetListIndex(0);
  sample.form.tbcPages.SetSelectedTab(1);
  EXPECT_EQ(sample.form.Take(), "click chkBox; change txtName; click cmbCode; click tbcPages");
}

TEST(Control, SettingTheValueThatIsThereRaisesNothing) {
  ShownSample sample;
  sample.form.chkBox.SetValue(0);
  sample.form.txtName.SetText(u"");
  sample.form.cmbCode.SetListIndex(-1);
  sample.form.tbcPages.SetSelectedTab(0);
  EXPECT_EQ(sample.form.Take(), "");
}

TEST(Control, CodeSetsDisabledAndHiddenControlsToo) {
  ShownSample sample;
  sample.form.chkBox.SetEnabled(false);
  sample.form.chkBox.SetVisible(false);
  sample.form.chkBox.SetValue(1);
  EXPECT_EQ(sample.form.chkBox.Value(), 1);
  EXPECT_EQ(sample.form.Take(), "click chkBox");
}

TEST(Control, APersonCannotUseADisabledControl) {
  ShownSample sample;
  sample.form.chkBox.SetEnabled(false);
  EXPECT_FALSE(sample.form.chkBox.UserClick());
  EXPECT_FALSE(sample.form.chkBox.UserFocus());
  EXPECT_EQ(sample.form.chkBox.Value(), 0);
  EXPECT_EQ(sample.form.Take(), "");
}

TEST(Control, APersonCannotUseAControlInAHiddenOrDisabledFrame) {
  ShownSample sample;
  sample.form.fraOuter.SetVisible(false);
  EXPECT_FALSE(sample.form.chkBox.UserSetValue(1));
  sample.form.fraOuter.SetVisible(true);
  sample.form.fraOuter.SetEnabled(false);
  EXPECT_FALSE(sample.form.txtName.UserSetText(u"x"));
  sample.form.fraOuter.SetEnabled(true);
  EXPECT_TRUE(sample.form.chkBox.UserSetValue(1));
}

TEST(Control, APersonCannotUseAFormThatIsNotShown) {
  QuietHost host;
  SampleForm form(host);
  form.Load();
  EXPECT_FALSE(form.cmdOK.UserClick());
  form.Shown();
  EXPECT_TRUE(form.cmdOK.UserClick());
  form.Hide();
  EXPECT_FALSE(form.cmdOK.UserClick());
}

TEST(Control, APersonsClickMovesTheFocusFirst) {
  ShownSample sample;
  EXPECT_TRUE(sample.form.cmdOK.UserClick());
  EXPECT_EQ(sample.form.Take(), "lost txtName to cmdOK; got cmdOK; click cmdOK");
  EXPECT_EQ(sample.form.ActiveControl(), &sample.form.cmdOK);
}

TEST(Control, LabelsLinksAndMenuEntriesAreClickedWithoutTheFocus) {
  ShownSample sample;
  EXPECT_TRUE(sample.form.lblLink.UserClick());
  EXPECT_TRUE(sample.form.mnuItem.UserClick());
  EXPECT_EQ(sample.form.Take(), "click lblLink; click mnuItem");
  EXPECT_EQ(sample.form.ActiveControl(), &sample.form.txtName);
}

TEST(Control, AMenuEntryOfADisabledMenuCannotBeUsed) {
  ShownSample sample;
  sample.form.mnuMain.SetEnabled(false);
  EXPECT_FALSE(sample.form.mnuItem.UserClick());
}

TEST(Control, AnEntryThatTheFocusChangeTakesAwayIsNotSelected) {
  ShownSample sample;
  sample.form.lstItems.AddItem(u"a");
  sample.form.txtName.onLostFocus = [&] { sample.form.lstItems.Clear(); };
  EXPECT_TRUE(sample.form.lstItems.UserSetSelected(0, true));
  EXPECT_EQ(sample.form.lstItems.ListCount(), 0);
}

TEST(Control, WhatTheFocusChangeDisablesIsNotClicked) {
  ShownSample sample;
  sample.form.txtName.onLostFocus = [&] { sample.form.cmdOK.SetEnabled(false); };
  EXPECT_TRUE(sample.form.cmdOK.UserClick());
  EXPECT_EQ(sample.form.Take(), "got cmdOK");
}

TEST(CheckBox, AClickTurnsItOver) {
  ShownSample sample;
  EXPECT_TRUE(sample.form.chkBox.UserClick());
  EXPECT_EQ(sample.form.chkBox.Value(), 1);
  EXPECT_TRUE(sample.form.chkBox.UserClick());
  EXPECT_EQ(sample.form.chkBox.Value(), 0);
}

TEST(OptionButton, ChoosingOneClearsTheOthersAndOnlyItIsClicked) {
  ShownSample sample;
  sample.form.optKind[0].SetValue(true);
  sample.form.optKind[1].SetValue(true);
  EXPECT_EQ(sample.form.optKind.Selected(), 1);
  EXPECT_FALSE(sample.form.optKind[0].Value());
  EXPECT_EQ(sample.form.Take(), "click optKind(0); click optKind(1)");
}

TEST(OptionButton, ChoosingTheOneThatIsChosenRaisesNothing) {
  ShownSample sample;
  sample.form.optKind[1].SetValue(true);
  sample.form.optKind[1].SetFocus();
  sample.form.Take();
  EXPECT_TRUE(sample.form.optKind[1].UserClick());
  sample.form.optKind[1].SetValue(true);
  EXPECT_EQ(sample.form.Take(), "");
}

TEST(OptionButton, ClearingItFromCodeLeavesNoneChosenAndRaisesNothing) {
  ShownSample sample;
  sample.form.optKind[0].SetValue(true);
  sample.form.Take();
  sample.form.optKind[0].SetValue(false);
  EXPECT_EQ(sample.form.optKind.Selected(), -1);
  EXPECT_EQ(sample.form.Take(), "");
}

TEST(ComboBox, APersonChoosesOnlyEntriesThatExist) {
  ShownSample sample;
  sample.form.cmbCode.AddItem(u"a", 147);
  sample.form.cmbCode.AddItem(u"b", 148);
  EXPECT_FALSE(sample.form.cmbCode.UserSetListIndex(2));
  EXPECT_FALSE(sample.form.cmbCode.UserSetListIndex(-1));
  EXPECT_TRUE(sample.form.cmbCode.UserSetListIndex(1));
  EXPECT_EQ(sample.form.cmbCode.ItemData(sample.form.cmbCode.ListIndex()), 148);
  EXPECT_THROW(sample.form.cmbCode.SetListIndex(2), std::out_of_range);
}

TEST(ComboBox, ClearingItTakesTheChoiceAway) {
  ShownSample sample;
  sample.form.cmbCode.AddItem(u"a");
  sample.form.cmbCode.SetListIndex(0);
  sample.form.cmbCode.Clear();
  EXPECT_EQ(sample.form.cmbCode.ListIndex(), -1);
  EXPECT_EQ(sample.form.cmbCode.ListCount(), 0);
}

TEST(ListBox, AClickOnAnEntryMakesItCurrentAndTurnsItsSelectionOver) {
  ShownSample sample;
  for (const char16_t* text : {u"a", u"b", u"c"}) sample.form.lstItems.AddItem(text);
  EXPECT_TRUE(sample.form.lstItems.UserClickItem(1));
  EXPECT_TRUE(sample.form.lstItems.Selected(1));
  EXPECT_EQ(sample.form.lstItems.ListIndex(), 1);
  EXPECT_TRUE(sample.form.lstItems.UserClickItem(1));
  EXPECT_EQ(sample.form.lstItems.SelCount(), 0);
  EXPECT_FALSE(sample.form.lstItems.UserClickItem(3));
}

TEST(ListBox, ABlankTurnsTheCurrentEntrysSelectionOver) {
  ShownSample sample;
  for (const char16_t* text : {u"a", u"b", u"c"}) sample.form.lstItems.AddItem(text);
  sample.form.lstItems.SetListIndex(1);
  sample.form.lstItems.SetFocus();
  sample.form.Take();
  EXPECT_TRUE(sample.form.lstItems.UserKey(u' '));
  EXPECT_TRUE(sample.form.lstItems.Selected(1));
  EXPECT_EQ(sample.form.lstItems.SelCount(), 1);
  EXPECT_EQ(sample.form.lstItems.ListIndex(), 1);
  EXPECT_EQ(sample.form.Take(), "click lstItems");
  EXPECT_TRUE(sample.form.lstItems.UserKey(u' '));
  EXPECT_EQ(sample.form.lstItems.SelCount(), 0);
}

TEST(ListBox, WithoutACurrentEntryABlankDoesNothing) {
  ShownSample sample;
  sample.form.lstItems.AddItem(u"a");
  sample.form.lstItems.SetFocus();
  sample.form.Take();
  EXPECT_TRUE(sample.form.lstItems.UserKey(u' '));
  EXPECT_EQ(sample.form.lstItems.SelCount(), 0);
  EXPECT_EQ(sample.form.Take(), "");
}

TEST(ListBox, RemovingEntriesKeepsTheCurrentOneOrLeavesNone) {
  ShownSample sample;
  for (const char16_t* text : {u"a", u"b", u"c"}) sample.form.lstItems.AddItem(text);
  sample.form.lstItems.SetListIndex(2);
  sample.form.lstItems.RemoveItem(0);
  EXPECT_EQ(sample.form.lstItems.ListIndex(), 1);
  EXPECT_EQ(sample.form.lstItems.List(1), u"c");
  sample.form.lstItems.RemoveItem(1);
  EXPECT_EQ(sample.form.lstItems.ListIndex(), -1);
  EXPECT_THROW(sample.form.lstItems.RemoveItem(1), std::out_of_range);
}

TEST(TextBox, KeysThatTheHandlerDiscardsDoNotReachTheText) {
  ShownSample sample;
  sample.form.txtName.onKeyPress = [](char16_t key) { return key == u'1' || key == 8; };
  for (const char16_t key : std::u16string(u"12x1")) EXPECT_TRUE(sample.form.txtName.UserKey(key));
  EXPECT_EQ(sample.form.txtName.Text(), u"11");
  EXPECT_TRUE(sample.form.txtName.UserKey(8));
  EXPECT_EQ(sample.form.txtName.Text(), u"1");
  EXPECT_EQ(sample.form.Take(), "change txtName; change txtName; change txtName");
}

TEST(TextBox, AReadOnlyOneRefusesText) {
  ShownSample sample;
  EXPECT_FALSE(sample.form.txtFixed.UserSetText(u"x"));
  EXPECT_TRUE(sample.form.txtFixed.UserKey(u'x'));
  EXPECT_EQ(sample.form.txtFixed.Text(), u"");
  sample.form.txtFixed.SetText(u"from code");
  EXPECT_EQ(sample.form.txtFixed.Text(), u"from code");
}

TEST(UpDown, ItStepsTheNumberInItsTextBoxWithinItsRange) {
  ShownSample sample;
  forms::UpDown& arrows = sample.form.updNumber;
  sample.form.txtNumber.SetText(u"3");
  EXPECT_TRUE(arrows.UserStep(1));
  EXPECT_EQ(sample.form.txtNumber.Text(), u"4");
  EXPECT_TRUE(arrows.UserStep(1));
  EXPECT_EQ(sample.form.txtNumber.Text(), u"4");
  sample.form.txtNumber.SetText(u"1");
  EXPECT_TRUE(arrows.UserStep(0));
  EXPECT_EQ(sample.form.txtNumber.Text(), u"1");
  EXPECT_FALSE(arrows.UserStep(2));
}

TEST(UpDown, ATextThatIsNoNumberBecomesTheMinimum) {
  ShownSample sample;
  for (const char16_t* text : {u"", u"two", u"99999999999"}) {
    sample.form.txtNumber.SetText(text);
    EXPECT_TRUE(sample.form.updNumber.UserStep(1));
    EXPECT_EQ(sample.form.txtNumber.Text(), u"1");
  }
}

TEST(UpDown, AStepGivesTheFocusToTheTextBox) {
  ShownSample sample;
  EXPECT_TRUE(sample.form.updNumber.UserStep(1));
  EXPECT_EQ(sample.form.ActiveControl(), &sample.form.txtNumber);
}

TEST(Key, EnterPressesTheDefaultButtonOrTheOneThatHasTheFocus) {
  ShownSample sample;
  EXPECT_TRUE(sample.form.txtName.UserKey(13));
  EXPECT_EQ(sample.form.Take(), "click cmdOK");
  EXPECT_TRUE(sample.form.cmdCancel.UserKey(13));
  EXPECT_EQ(sample.form.Take(), "lost txtName to cmdCancel; got cmdCancel; click cmdCancel");
}

TEST(Key, EnterDoesNothingWhileTheDefaultButtonIsDisabled) {
  ShownSample sample;
  sample.form.cmdOK.SetEnabled(false);
  EXPECT_TRUE(sample.form.txtName.UserKey(13));
  EXPECT_EQ(sample.form.Take(), "");
}

TEST(Key, EscapePressesTheCancelButtonAndABlankTurnsABoxOver) {
  ShownSample sample;
  EXPECT_TRUE(sample.form.txtName.UserKey(27));
  EXPECT_EQ(sample.form.Take(), "click cmdCancel");
  EXPECT_TRUE(sample.form.chkBox.UserKey(u' '));
  EXPECT_EQ(sample.form.chkBox.Value(), 1);
}

TEST(Key, ALabelTakesNone) {
  ShownSample sample;
  EXPECT_FALSE(sample.form.lblText.UserKey(u'x'));
}

}  // namespace
