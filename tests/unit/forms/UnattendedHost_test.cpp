#include "hosts/unattended/UnattendedHost.h"

#include <gtest/gtest.h>

#include <sstream>

#include "addin/clsProgForm.h"
#include "addin/frmKVXProgressFormKVXPreparing.h"
#include "hosts/json/Json.h"
#include "hosts/unattended/FileAnswers.h"
#include "tests/unit/forms/SampleForm.h"

namespace {

using namespace unattended;
using Json = json::Value;

class Unattended : public ::testing::Test {
 protected:
  void Use(const std::string& answersJson) {
    answers = std::make_unique<FileAnswers>(ParseAnswers("{\"answers\":[" + answersJson + "]}").answers, true);
    host = std::make_unique<UnattendedHost>(*answers, &transcript, nullptr);
  }
  std::vector<Json> Events() const {
    std::vector<Json> events;
    std::istringstream lines(out.str());
    for (std::string line; std::getline(lines, line);) events.push_back(json::Read(line));
    return events;
  }
  /// The kinds of events in order, those of controls with the names that changed.
  std::string Story() const {
    std::string story;
    for (const Json& event : Events()) {
      story += (story.empty() ? "" : " ") + event["event"].get<std::string>();
      if (event["event"] != "controls") continue;
      for (const auto& [name, state] : event["changed"].items()) story += ":" + name;
    }
    return story;
  }

  std::ostringstream out;
  Transcript transcript{out};
  std::unique_ptr<FileAnswers> answers;
  std::unique_ptr<UnattendedHost> host;
};

TEST_F(Unattended, AFormIsWrittenWhenShownAfterEachStepAndWhenItEnds) {
  Use(R"({"form":"SampleForm","do":[{"set":"txtName","to":"Buyer"},{"focus":"chkBox"},{"click":"cmdOK"}]})");
  SampleForm form(*host);
  form.cmdOK.onClick = [&] {
    form.SetTag(u"OK");
    form.Hide();
  };
  host->ShowModal(form);
  EXPECT_EQ(Story(), "form controls:txtName formEnd");
  const std::vector<Json> events = Events();
  EXPECT_EQ(events[0]["name"], "SampleForm");
  EXPECT_EQ(events[0]["caption"], "Sample");
  EXPECT_EQ(events[0]["controls"].size(), 17u);
  EXPECT_EQ(events[1]["changed"]["txtName"]["text"], "Buyer");
  EXPECT_EQ(events[2]["result"], "OK");
  EXPECT_EQ(events[2]["controls"]["txtName"]["text"], "Buyer");
  form.Unload();
  EXPECT_EQ(Events().size(), 3u);
}

TEST_F(Unattended, AStepIsLeftAtAStrictMismatchAndItsFormCancelled) {
  Use(R"({"form":"SampleForm","do":[{"click":"cmdOK"}]})");
  SampleForm form(*host);
  bool wentOn = false;
  form.cmdOK.onClick = [&] {
    host->Show(u"Surprise", u"Go on?", os::Icon::kQuestion, os::Buttons::kYesNo);
    wentOn = true;
  };
  host->ShowModal(form);
  EXPECT_FALSE(wentOn);
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(Story(), "form message formEnd");
  EXPECT_EQ(answers->Failure(), "the message box \"Surprise\" came, but no answer was left");
}

TEST_F(Unattended, ARepaintWritesWhatChangedSoFar) {
  Use(R"({"form":"SampleForm","do":[{"click":"cmdOK"}]})");
  SampleForm form(*host);
  form.cmdOK.onClick = [&] {
    form.lblText.SetCaption(u"Please wait");
    form.Repaint();
    form.Repaint();
    form.lblText.SetCaption(u"done");
  };
  host->ShowModal(form);
  EXPECT_EQ(Story(), "form controls:lblText controls:lblText formEnd");
}

TEST_F(Unattended, AMessageWithinAStepIsAnsweredRightThere) {
  Use(R"({"form":"SampleForm","do":[{"click":"chkBox"},{"close":true}]},{"message":"Sure?","press":"No"})");
  SampleForm form(*host);
  os::Pressed pressed = os::Pressed::kOk;
  form.chkBox.onClick = [&] { pressed = host->Show(u"Sure?", u"?", os::Icon::kQuestion, os::Buttons::kYesNo); };
  host->ShowModal(form);
  EXPECT_EQ(pressed, os::Pressed::kNo);
  EXPECT_EQ(Story(), "form message controls:chkBox formEnd");
  EXPECT_EQ(answers->Failure(), "");
}

TEST_F(Unattended, TheStatusBarIsToldEvenWhileTheFormIsNotShown) {
  Use("");
  SampleForm form(*host);
  form.Load();
  form.sbrStatus.SetSimpleText(u"Sorting");
  EXPECT_EQ(out.str(), "{\"event\":\"status\",\"text\":\"Sorting\"}\n");
}

TEST_F(Unattended, ProgressFormsAreToldAsProgress) {
  Use("");
  clsProgForm progress(*host);
  progress.ShowProgress(0);
  progress.UpdateProgress(u"one", u"two", u"", 1, 2, u"Please wait");
  progress.UpdateProgress(u"more", u"two", u"", 5, 0, u"");
  progress.CloseProgress();
  EXPECT_EQ(
      out.str(),
      R"({"event":"progress","caption":"","lines":["","",""],"completed":0,"total":0,"bar":"","shown":true})"
      "\n"
      R"({"event":"progress","caption":"Please wait","lines":["one","two",""],"completed":1,"total":2,"bar":"50% completed"})"
      "\n"
      R"({"event":"progress","caption":"Please wait","lines":["more","two",""],"completed":5,"total":0,"bar":"50% completed"})"
      "\n"
      R"({"event":"progress","caption":"Please wait","lines":["more","two",""],"completed":5,"total":0,"bar":"50% completed","shown":false})"
      "\n");
}

TEST_F(Unattended, AFormThatClosesItselfNeedsNoAnswer) {
  Use("");
  bool worked = false;
  frmKVXProgressFormKVXPreparing form(*host, [&] { worked = true; });
  host->ShowModal(form);
  EXPECT_TRUE(worked);
  EXPECT_EQ(Story(), "form formEnd");
  EXPECT_EQ(answers->Failure(), "");
}

TEST_F(Unattended, TheCloseBoxOfTheShownFormWithACaptionIsTakenAway) {
  Use(R"({"form":"SampleForm","do":[{"focus":"txtName"},{"close":true}]})");
  SampleForm form(*host);
  form.cmdCancel.onClick = [&] { form.Hide(); };
  form.txtName.onGotFocus = [&] {
    EXPECT_EQ(host->RemoveCloseBox(u"Other"), 0);
    EXPECT_NE(host->RemoveCloseBox(u"Sample"), 0);
  };
  host->ShowModal(form);
  EXPECT_FALSE(form.HasCloseBox());
  EXPECT_EQ(answers->Failure(), "SampleForm has no close box");
}

TEST_F(Unattended, AFormIsCancelledToItsEndWhenAStepHasFailed) {
  Use(R"({"form":"SampleForm","do":[{"click":"cmdOK"}]})");
  SampleForm form(*host);
  form.cmdOK.onClick = [&] { host->Show(u"Surprise", u"", os::Icon::kNone, os::Buttons::kOk); };
  form.cmdCancel.onClick = [&] {
    host->Show(u"Bye", u"", os::Icon::kNone, os::Buttons::kOk);
    form.Hide();
  };
  host->ShowModal(form);
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(Story(), "form message message formEnd");
  EXPECT_EQ(answers->Failure(), "the message box \"Surprise\" came, but no answer was left");
}

TEST_F(Unattended, ObserversSeeFormsMessagesAndProgress) {
  class Watcher : public UnattendedObserver {
   public:
    void FormShown(const forms::Form& form) override { seen.push_back("shown " + form.Name()); }
    void FormEnded(const forms::Form& form) override { seen.push_back("ended " + form.Name()); }
    void MessageShown(std::u16string_view title, std::u16string_view, os::Icon, os::Buttons, os::Pressed) override {
      seen.push_back("message " + std::string(title.begin(), title.end()));
    }
    void ProgressShown(const ProgressState& state, Transcript::Phase) override {
      seen.push_back("progress " + std::to_string(state.completed));
    }
    std::vector<std::string> seen;
  };
  Watcher watcher;
  FileAnswers none({}, false);
  UnattendedHost quiet(none, nullptr, &watcher);
  SampleForm form(quiet);
  form.cmdCancel.onClick = [&] {
    quiet.Show(u"Bye", u"", os::Icon::kNone, os::Buttons::kOk);
    form.Hide();
  };
  quiet.ShowModal(form);
  clsProgForm progress(quiet);
  progress.ShowProgress(0);
  progress.UpdateProgress(u"", u"", u"", 3, 4, u"");
  progress.CloseProgress();
  EXPECT_EQ(watcher.seen, (std::vector<std::string>{"shown SampleForm", "message Bye", "ended SampleForm", "progress 0",
                                                    "progress 3", "progress 3"}));
}

}  // namespace
