#include "hosts/unattended/Transcript.h"

#include <gtest/gtest.h>

#include <sstream>

#include "hosts/json/Json.h"
#include "hosts/unattended/ControlState.h"
#include "tests/unit/forms/SampleForm.h"

namespace {

using unattended::Transcript;

class TranscriptTest : public ::testing::Test {
 protected:
  std::ostringstream out;
  Transcript transcript{out};
};

TEST_F(TranscriptTest, AMessageKeepsItsLineEnds) {
  transcript.Message(u"Add term?", u"one\r\n\u201Ctwo\u201D", os::Icon::kQuestion, os::Buttons::kYesNo,
                     os::Pressed::kNo);
  EXPECT_EQ(
      out.str(),
      R"({"event":"message","title":"Add term?","text":"one\r\n“two”","icon":"question","buttons":"YesNo","pressed":"No"})"
      "\n");
}

TEST_F(TranscriptTest, IconsButtonsAndPressesHaveTheirNames) {
  transcript.Message(u"", u"", os::Icon::kNone, os::Buttons::kOk, os::Pressed::kOk);
  transcript.Message(u"", u"", os::Icon::kInformation, os::Buttons::kOkCancel, os::Pressed::kCancel);
  transcript.Message(u"", u"", os::Icon::kExclamation, os::Buttons::kYesNoCancel, os::Pressed::kYes);
  transcript.Message(u"", u"", os::Icon::kCritical, os::Buttons::kOk, os::Pressed::kOk);
  EXPECT_EQ(out.str(),
            R"({"event":"message","title":"","text":"","icon":"none","buttons":"OK","pressed":"OK"})"
            "\n"
            R"({"event":"message","title":"","text":"","icon":"information","buttons":"OKCancel","pressed":"Cancel"})"
            "\n"
            R"({"event":"message","title":"","text":"","icon":"exclamation","buttons":"YesNoCancel","pressed":"Yes"})"
            "\n"
            R"({"event":"message","title":"","text":"","icon":"critical","buttons":"OK","pressed":"OK"})"
            "\n");
}

TEST_F(TranscriptTest, ProgressSaysShownAtItsBeginningAndEndOnly) {
  transcript.Progress({u"", {}, 0, 0, u""}, Transcript::Phase::kBegin);
  transcript.Progress({u"Please wait", {u"one", u"", u""}, 9, 20, u"45% completed"}, Transcript::Phase::kUpdate);
  transcript.Progress({u"Please wait", {u"one", u"", u""}, 9, 20, u"45% completed"}, Transcript::Phase::kEnd);
  EXPECT_EQ(
      out.str(),
      R"({"event":"progress","caption":"","lines":["","",""],"completed":0,"total":0,"bar":"","shown":true})"
      "\n"
      R"({"event":"progress","caption":"Please wait","lines":["one","",""],"completed":9,"total":20,"bar":"45% completed"})"
      "\n"
      R"({"event":"progress","caption":"Please wait","lines":["one","",""],"completed":9,"total":20,"bar":"45% completed","shown":false})"
      "\n");
}

TEST_F(TranscriptTest, CallsAndTheirArgumentsStandAsTheyAre) {
  transcript.WordPut("Options.AllowFastSave", false);
  transcript.WordCall("UndoClear", nullptr);
  transcript.Marker("EndIndexing", json::Value::array({"a.docx"}), nullptr);
  EXPECT_EQ(out.str(), R"({"event":"word","member":"Options.AllowFastSave","value":false})"
                       "\n"
                       R"({"event":"word","member":"UndoClear","value":null})"
                       "\n"
                       R"({"event":"marker","operation":"EndIndexing","arguments":["a.docx"],"result":null})"
                       "\n");
}

TEST_F(TranscriptTest, TheOtherEvents) {
  transcript.Status(u"Sorting");
  transcript.FileDialog(Transcript::FileMode::kSave, u"Save terms list", u"*.txt", u"", u"C:\\a.txt");
  transcript.Open(u"Open", u"C:\\kvxfaq.htm");
  transcript.Help(u"C:\\help.chm", 15, 7);
  transcript.Menu(Transcript::MenuAction::kAdd, u"&Find and index", u"KVXIndexTag");
  transcript.State({{"noDocument", true}, {"displayOnConnect", "1"}});
  EXPECT_EQ(
      out.str(),
      R"({"event":"status","text":"Sorting"})"
      "\n"
      R"({"event":"file","mode":"save","title":"Save terms list","filter":"*.txt","fileName":"","path":"C:\\a.txt"})"
      "\n"
      R"({"event":"open","verb":"Open","path":"C:\\kvxfaq.htm"})"
      "\n"
      R"({"event":"help","file":"C:\\help.chm","command":15,"data":7})"
      "\n"
      R"({"event":"menu","action":"add","caption":"&Find and index","tag":"KVXIndexTag"})"
      "\n"
      R"({"event":"state","noDocument":true,"displayOnConnect":"1"})"
      "\n");
}

TEST(ControlState, EachKindHasItsMembers) {
  ShownSample sample;
  sample.form.lstItems.AddItem(u"a");
  sample.form.lstItems.AddItem(u"b");
  sample.form.lstItems.SetSelected(1, true);
  sample.form.cmbCode.AddItem(u"\u201C", 147);
  sample.form.cmbCode.SetListIndex(0);
  sample.form.chkBox.SetToolTip(u"tip");
  const auto state = [](const forms::Control& control) { return json::Written(unattended::ControlState(control)); };
  EXPECT_EQ(state(sample.form.chkBox),
            R"({"kind":"CheckBox","caption":"&Box","value":0,"enabled":true,"visible":true,"toolTip":"tip"})");
  EXPECT_EQ(state(sample.form.optKind[0]),
            R"({"kind":"OptionButton","caption":"","value":false,"enabled":true,"visible":true,"toolTip":""})");
  EXPECT_EQ(
      state(sample.form.lstItems),
      R"({"kind":"ListBox","enabled":true,"visible":true,"toolTip":"","items":["a","b"],"selected":[1],"listIndex":-1})");
  EXPECT_EQ(
      state(sample.form.cmbCode),
      R"({"kind":"ComboBox","enabled":true,"visible":true,"toolTip":"","text":"“","items":["“"],"listIndex":0,"itemData":[147]})");
  EXPECT_EQ(state(sample.form.txtName), R"({"kind":"TextBox","enabled":true,"visible":true,"toolTip":"","text":""})");
  EXPECT_EQ(state(sample.form.tbcPages),
            R"({"kind":"TabStrip","value":0,"enabled":true,"visible":true,"toolTip":"","items":["First","Second"]})");
  EXPECT_EQ(state(sample.form.sbrStatus),
            R"({"kind":"StatusBar","enabled":true,"visible":true,"toolTip":"","text":""})");
  EXPECT_EQ(state(sample.form.mnuItem), R"({"kind":"MenuItem","caption":"","enabled":true,"visible":true})");
}

TEST(ControlState, OneElementStandsForItsWholeArray) {
  ShownSample sample;
  const json::Value states = unattended::ControlStates(sample.form, {&sample.form.cmdOK, &sample.form.optKind[1]});
  ASSERT_EQ(states.size(), 2u);
  EXPECT_EQ(states.begin().key(), "optKind");
  EXPECT_EQ(states["optKind"].size(), 2u);
  EXPECT_EQ(states["cmdOK"]["kind"], "Button");
}

}  // namespace
