#include "hosts/unattended/FormScript.h"

#include <gtest/gtest.h>

#include "tests/unit/forms/SampleForm.h"

namespace {

using namespace unattended;

class FormScript : public ::testing::Test {
 protected:
  FormScript() {
    for (const char16_t* text : {u"a", u"b", u"a"}) sample.form.lstItems.AddItem(text);
    sample.form.cmbCode.AddItem(u"x", 147);
    sample.form.cmbCode.AddItem(u"y", 148);
  }

  /// Does the step, given as JSON. @return what was wrong with it; empty: nothing
  std::string Do(const std::string& json) {
    const AnswersFile file = ParseAnswers(R"({"answers":[{"form":"F","do":[)" + json + "]}]}");
    try {
      DoStep(sample.form, file.answers.at(0).steps.at(0));
    } catch (const StepError& error) {
      return error.what();
    }
    return "";
  }

  ShownSample sample;
};

TEST_F(FormScript, ClicksGiveTheFocusFirst) {
  EXPECT_EQ(Do(R"({"click":"cmdOK"})"), "");
  EXPECT_EQ(sample.form.Take(), "lost txtName to cmdOK; got cmdOK; click cmdOK");
  EXPECT_EQ(Do(R"({"click":"chkBox"})"), "");
  EXPECT_EQ(sample.form.chkBox.Value(), 1);
}

TEST_F(FormScript, ClicksReachElementsEntriesArrowsAndTabs) {
  EXPECT_EQ(Do(R"({"click":["optKind",1]})"), "");
  EXPECT_EQ(sample.form.optKind.Selected(), 1);
  EXPECT_EQ(Do(R"({"click":["lstItems",2]})"), "");
  EXPECT_TRUE(sample.form.lstItems.Selected(2));
  EXPECT_EQ(Do(R"({"click":["cmbCode",1]})"), "");
  EXPECT_EQ(sample.form.cmbCode.ListIndex(), 1);
  sample.form.txtNumber.SetText(u"2");
  EXPECT_EQ(Do(R"({"click":["updNumber",1]})"), "");
  EXPECT_EQ(sample.form.txtNumber.Text(), u"3");
  EXPECT_EQ(Do(R"({"click":["updNumber",0]})"), "");
  EXPECT_EQ(sample.form.txtNumber.Text(), u"2");
  EXPECT_EQ(Do(R"({"click":["tbcPages",1]})"), "");
  EXPECT_EQ(sample.form.tbcPages.SelectedTab(), 1);
}

TEST_F(FormScript, ValuesAreSetByKind) {
  EXPECT_EQ(Do(R"({"set":"chkBox","to":1})"), "");
  EXPECT_EQ(sample.form.chkBox.Value(), 1);
  EXPECT_EQ(Do(R"({"set":"cmbCode","to":1})"), "");
  EXPECT_EQ(sample.form.cmbCode.ListIndex(), 1);
  EXPECT_EQ(Do(R"({"set":"optKind","to":1})"), "");
  EXPECT_EQ(sample.form.optKind.Selected(), 1);
  EXPECT_EQ(Do(R"({"set":"txtName","to":"Seller"})"), "");
  EXPECT_EQ(sample.form.txtName.Text(), u"Seller");
}

TEST_F(FormScript, SettingTheChosenOptionRaisesNothingButTheFocus) {
  sample.form.optKind[0].SetValue(true);
  sample.form.Take();
  EXPECT_EQ(Do(R"({"set":"optKind","to":0})"), "");
  EXPECT_EQ(sample.form.Take(), "lost txtName to optKind; got optKind(0)");
}

TEST_F(FormScript, SelectionsTakeEveryEntryOfAText) {
  EXPECT_EQ(Do(R"({"select":"lstItems","items":["a"]})"), "");
  EXPECT_TRUE(sample.form.lstItems.Selected(0));
  EXPECT_FALSE(sample.form.lstItems.Selected(1));
  EXPECT_TRUE(sample.form.lstItems.Selected(2));
  EXPECT_EQ(sample.form.ActiveControl(), &sample.form.lstItems);
  EXPECT_EQ(Do(R"({"select":"lstItems","items":["a"],"on":false})"), "");
  EXPECT_EQ(sample.form.lstItems.SelCount(), 0);
  EXPECT_EQ(Do(R"({"select":"lstItems","items":"all"})"), "");
  EXPECT_EQ(sample.form.lstItems.SelCount(), 3);
  EXPECT_EQ(Do(R"({"select":"lstItems","items":"none"})"), "");
  EXPECT_EQ(sample.form.lstItems.SelCount(), 0);
}

TEST_F(FormScript, FocusKeysTabsMenusHelpAndTheCloseBox) {
  EXPECT_EQ(Do(R"({"focus":"chkBox"})"), "");
  EXPECT_EQ(sample.form.ActiveControl(), &sample.form.chkBox);
  EXPECT_EQ(Do(R"({"key":"txtName","char":"x"})"), "");
  EXPECT_EQ(sample.form.txtName.Text(), u"x");
  EXPECT_EQ(Do(R"({"key":"txtName","code":8})"), "");
  EXPECT_EQ(sample.form.txtName.Text(), u"");
  EXPECT_EQ(Do(R"({"tab":1})"), "");
  EXPECT_EQ(sample.form.tbcPages.SelectedTab(), 1);
  sample.form.Take();
  EXPECT_EQ(Do(R"({"menu":"mnuItem"})"), "");
  EXPECT_EQ(Do(R"({"f1":"lblText"})"), "");
  EXPECT_EQ(sample.form.Take(), "click mnuItem; help lblText");
  EXPECT_EQ(Do(R"({"close":true})"), "");
  EXPECT_FALSE(sample.form.Visible());
}

TEST_F(FormScript, ADisabledOrHiddenControlCannotBeUsed) {
  sample.form.fraOuter.SetVisible(false);
  sample.form.cmdOK.SetEnabled(false);
  EXPECT_EQ(Do(R"({"click":"cmdOK"})"), "cmdOK of SampleForm: it is disabled or hidden");
  EXPECT_EQ(Do(R"({"click":["optKind",1]})"), "optKind(1) of SampleForm: it is disabled or hidden");
  EXPECT_EQ(Do(R"({"set":"txtName","to":"x"})"), "txtName of SampleForm: it is disabled or hidden");
  EXPECT_EQ(Do(R"({"key":"txtName","char":"x"})"), "txtName of SampleForm: it is disabled or hidden");
  EXPECT_EQ(Do(R"({"focus":"chkBox"})"), "chkBox of SampleForm: it is disabled or hidden");
  sample.form.lstItems.SetEnabled(false);
  EXPECT_EQ(Do(R"({"select":"lstItems","items":"all"})"), "lstItems of SampleForm: it is disabled or hidden");
}

TEST_F(FormScript, WhatAControlDoesNotHaveIsNamed) {
  EXPECT_EQ(Do(R"({"click":"cmdNothing"})"), "cmdNothing of SampleForm: there is no such control");
  EXPECT_EQ(Do(R"({"click":"optKind"})"), "optKind of SampleForm: it is an array: name an element");
  EXPECT_EQ(Do(R"({"click":["optKind",2]})"), "optKind(2) of SampleForm: there is no such control");
  EXPECT_EQ(Do(R"({"click":["cmdOK",0]})"), "cmdOK(0) of SampleForm: it has no entries");
  EXPECT_EQ(Do(R"({"click":["lstItems",3]})"), "lstItems(3) of SampleForm: there is no such entry");
  EXPECT_EQ(Do(R"({"click":["updNumber",2]})"), "updNumber(2) of SampleForm: there is no such entry");
  EXPECT_EQ(Do(R"({"set":"cmbCode","to":2})"), "cmbCode of SampleForm: there is no such entry");
  EXPECT_EQ(Do(R"({"set":"optKind","to":2})"), "optKind of SampleForm: there is no such element");
  EXPECT_EQ(Do(R"({"set":"chkBox","to":2})"), "chkBox of SampleForm: a check box takes 0 or 1");
  EXPECT_EQ(Do(R"({"set":"chkBox","to":"on"})"), "chkBox of SampleForm: a number is needed");
  EXPECT_EQ(Do(R"({"set":"txtName","to":1})"), "txtName of SampleForm: a text is needed");
  EXPECT_EQ(Do(R"({"set":"txtFixed","to":"x"})"), "txtFixed of SampleForm: its text cannot be edited");
  EXPECT_EQ(Do(R"({"set":"cmdOK","to":1})"), "cmdOK of SampleForm: it has no value to set");
  EXPECT_EQ(Do(R"({"select":"cmbCode","items":"all"})"), "cmbCode of SampleForm: it is no list");
  EXPECT_EQ(Do(R"({"select":"lstItems","items":["z"]})"), "lstItems of SampleForm: there is no entry \"z\"");
  EXPECT_EQ(Do(R"({"focus":"lblText"})"), "lblText of SampleForm: it never has the focus");
  EXPECT_EQ(Do(R"({"key":"lblText","char":"x"})"), "lblText of SampleForm: it takes no keys");
  EXPECT_EQ(Do(R"({"menu":"cmdOK"})"), "cmdOK of SampleForm: it is no entry of a menu");
  EXPECT_EQ(Do(R"({"tab":2})"), "SampleForm has no tab 2");
}

TEST_F(FormScript, ACloseBoxThatWasTakenAwayCannotBeUsed) {
  sample.form.TakeCloseBoxAway();
  EXPECT_EQ(Do(R"({"close":true})"), "SampleForm has no close box");
}

}  // namespace
