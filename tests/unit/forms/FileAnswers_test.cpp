#include "hosts/unattended/FileAnswers.h"

#include <gtest/gtest.h>

#include "tests/unit/forms/SampleForm.h"

namespace {

using namespace unattended;

/// A form by any name with the usual buttons, which hide it.
class ButtonForm : public forms::Form {
 public:
  ButtonForm(forms::FormHost& host, std::string name) : Form(host, std::move(name)) {
    for (forms::Button* button : {&cmdOK, &cmdNo, &cmdCancel}) {
      button->onClick = [this, button] {
        pressed = button->Name();
        Hide();
      };
    }
  }
  forms::Button cmdOK{*this, "cmdOK"};
  forms::Button cmdNo{*this, "cmdNo"};
  forms::Button cmdCancel{*this, "cmdCancel"};
  forms::CheckBox chkBox{*this, "chkBox"};
  std::string pressed;

 protected:
  forms::Layout MakeLayout() override { return {}; }
  void OnQueryUnload(forms::UnloadReason) override { pressed = "closed"; }
};

class FileAnswersTest : public ::testing::Test {
 protected:
  void Use(const std::string& answers, bool strict = false) {
    source = std::make_unique<FileAnswers>(ParseAnswers("{\"answers\":[" + answers + "]}").answers, strict);
  }
  /// Shows a form and lets it be answered. @return the button that ended it, or "closed"
  std::string Answer(const std::string& name, const std::function<void(ButtonForm&)>& prepare = {}) {
    ButtonForm form(host, name);
    host.ShowModeless(form);
    if (prepare) prepare(form);
    source->AnswerForm(form, [this] { ++steps; });
    EXPECT_FALSE(form.Visible());
    return form.pressed;
  }

  QuietHost host;
  std::unique_ptr<FileAnswers> source;
  int steps{0};
};

TEST_F(FileAnswersTest, MessagesGetTheirAffirmativeButtonByDefault) {
  Use("");
  EXPECT_EQ(source->AnswerMessage(u"x", os::Buttons::kOk), os::Pressed::kOk);
  EXPECT_EQ(source->AnswerMessage(u"x", os::Buttons::kOkCancel), os::Pressed::kOk);
  EXPECT_EQ(source->AnswerMessage(u"x", os::Buttons::kYesNo), os::Pressed::kYes);
  EXPECT_EQ(source->AnswerMessage(u"x", os::Buttons::kYesNoCancel), os::Pressed::kYes);
  EXPECT_EQ(source->AnswerMessage(u"Mis-matched double quotes", os::Buttons::kYesNo), os::Pressed::kNo);
  EXPECT_EQ(source->Failure(), "");
}

TEST_F(FileAnswersTest, FormsGetTheirDefaultButton) {
  Use("");
  EXPECT_EQ(Answer("frmKVXOptions"), "cmdOK");
  EXPECT_EQ(Answer("frmKVX_COM"), "cmdOK");
  EXPECT_EQ(Answer("frmKVXFormatInstrux"), "cmdOK");
  EXPECT_EQ(Answer("frmKVXAbout_COM"), "cmdOK");
  EXPECT_EQ(Answer("frmKVXShowHelp"), "cmdNo");
  EXPECT_EQ(Answer("frmKVXRemoveArticles"), "cmdCancel");
  EXPECT_EQ(source->Failure(), "");
}

TEST_F(FileAnswersTest, AnswersAreTakenInOrder) {
  Use(R"({"message":"a","press":"No"},{"message":"a","press":"Yes"})", true);
  EXPECT_EQ(source->AnswerMessage(u"a", os::Buttons::kYesNo), os::Pressed::kNo);
  EXPECT_EQ(source->AnswerMessage(u"a", os::Buttons::kYesNo), os::Pressed::kYes);
  source->Finish();
  EXPECT_EQ(source->Failure(), "");
}

TEST_F(FileAnswersTest, ADialogThatTheNextAnswerDoesNotFitLeavesItForTheNext) {
  Use(R"({"message":"b","press":"No"})");
  EXPECT_EQ(source->AnswerMessage(u"a", os::Buttons::kYesNo), os::Pressed::kYes);
  EXPECT_EQ(Answer("frmKVX_COM"), "cmdOK");
  EXPECT_EQ(source->AnswerMessage(u"b", os::Buttons::kYesNo), os::Pressed::kNo);
  EXPECT_EQ(source->Failure(), "");
}

TEST_F(FileAnswersTest, StepsAreDoneInOrderAndReported) {
  Use(R"({"form":"F","do":[{"set":"chkBox","to":1},{"click":"cmdNo"}]})");
  EXPECT_EQ(Answer("F"), "cmdNo");
  EXPECT_EQ(steps, 2);
}

TEST_F(FileAnswersTest, AFormStillVisibleAfterItsStepsIsCancelled) {
  Use(R"({"form":"F","do":[{"set":"chkBox","to":1}]})");
  EXPECT_EQ(Answer("F"), "cmdCancel");
  EXPECT_EQ(source->Failure(), "");
}

TEST_F(FileAnswersTest, AFormWhoseCancelButtonCannotBeUsedIsClosed) {
  Use("");
  EXPECT_EQ(Answer("F", [](ButtonForm& form) { form.cmdCancel.SetEnabled(false); }), "closed");
}

TEST_F(FileAnswersTest, AFormThatCannotBeEndedIsAFailure) {
  Use("");
  Answer("F", [](ButtonForm& form) {
    form.cmdCancel.SetEnabled(false);
    form.TakeCloseBoxAway();
  });
  EXPECT_EQ(source->Failure(), "F was left open and cannot be ended");
}

TEST_F(FileAnswersTest, InStrictModeTheWrongDialogIsAFailureThatSaysWhatCame) {
  Use(R"({"form":"frmKVX_COM","do":[]})", true);
  EXPECT_EQ(source->AnswerMessage(u"Add term?", os::Buttons::kYesNo), os::Pressed::kNo);
  EXPECT_EQ(source->Failure(), "the message box \"Add term?\" came, but the form frmKVX_COM was expected");
}

TEST_F(FileAnswersTest, InStrictModeADialogBeyondTheLastAnswerIsAFailure) {
  Use("", true);
  EXPECT_EQ(Answer("frmKVX_COM"), "cmdCancel");
  EXPECT_EQ(source->Failure(), "the form frmKVX_COM came, but no answer was left");
}

TEST_F(FileAnswersTest, InStrictModeAnswersLeftOverAreAFailure) {
  Use(R"({"message":"a","press":"OK"},{"form":"F","do":[]})", true);
  source->Finish();
  EXPECT_EQ(source->Failure(), "2 answer(s) left over; the message box \"a\" never came");
}

TEST_F(FileAnswersTest, WithoutStrictModeAnswersLeftOverAreNone) {
  Use(R"({"message":"a","press":"OK"})");
  source->Finish();
  EXPECT_EQ(source->Failure(), "");
}

TEST_F(FileAnswersTest, AfterAFailureEveryDialogIsDeclined) {
  Use(R"({"form":"F","do":[{"click":"cmdNothing"},{"click":"cmdOK"}]},{"form":"frmKVX_COM","do":[{"click":"cmdOK"}]})");
  EXPECT_EQ(Answer("F"), "cmdCancel");
  EXPECT_EQ(source->Failure(), "cmdNothing of F: there is no such control");
  EXPECT_EQ(Answer("frmKVX_COM"), "cmdCancel");
  EXPECT_EQ(source->AnswerMessage(u"x", os::Buttons::kYesNo), os::Pressed::kNo);
  EXPECT_EQ(source->AnswerMessage(u"x", os::Buttons::kYesNoCancel), os::Pressed::kCancel);
  EXPECT_EQ(source->AnswerMessage(u"x", os::Buttons::kOk), os::Pressed::kOk);
}

TEST_F(FileAnswersTest, AnAnswerWithAButtonThatTheBoxDoesNotHaveDoesNotFit) {
  Use(R"({"message":"a","press":"Cancel"})");
  EXPECT_EQ(source->AnswerMessage(u"a", os::Buttons::kYesNo), os::Pressed::kYes);
  EXPECT_EQ(source->AnswerMessage(u"a", os::Buttons::kOkCancel), os::Pressed::kCancel);
  EXPECT_EQ(source->Failure(), "");
  Use(R"({"message":"a","press":"Cancel"})", true);
  EXPECT_EQ(source->AnswerMessage(u"a", os::Buttons::kYesNo), os::Pressed::kNo);
  EXPECT_EQ(source->Failure(), "the message box \"a\" came, but one with another button was expected");
}

TEST_F(FileAnswersTest, StepsBehindTheFormsEndAreAFailure) {
  Use(R"({"form":"F","do":[{"click":"cmdOK"},{"click":"cmdOK"}]})");
  EXPECT_EQ(Answer("F"), "cmdOK");
  EXPECT_EQ(source->Failure(), "the form F ended before the last of its steps");
}

TEST_F(FileAnswersTest, ADialogWithinAStepTakesItsAnswerFromTheList) {
  Use(R"({"form":"F","do":[{"click":"chkBox"},{"click":"cmdNo"}]},{"message":"Sure?","press":"No"})", true);
  os::Pressed pressed = os::Pressed::kOk;
  EXPECT_EQ(Answer("F",
                   [&](ButtonForm& form) {
                     form.chkBox.onClick = [&] { pressed = source->AnswerMessage(u"Sure?", os::Buttons::kYesNo); };
                   }),
            "cmdNo");
  EXPECT_EQ(pressed, os::Pressed::kNo);
  source->Finish();
  EXPECT_EQ(source->Failure(), "");
}

}  // namespace
