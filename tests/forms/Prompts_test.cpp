#include "dialogs/FirstRunPrompts.h"

#include "dialogs/frmKVXAbout_COM.h"
#include "dialogs/frmKVXFormatInstrux.h"
#include "dialogs/frmKVXSearchChooser.h"
#include "dialogs/frmKVXShowHelp.h"
#include "tests/forms/Dialogs.h"
#include "tests/forms/Golden.h"

namespace {

using Keys = std::vector<std::u16string>;

const std::string kIniProblem = R"({"message":"Ini file problem","press":"OK"})";

class Prompts : public Dialogs {
 protected:
  Prompts() {
    profile.Write(u"Defaults", u"SearchType", u"SearchFlagged", ini.IniFilePath);
    profile.written.clear();
  }

  template <class Form>
  Form& Show(const std::string& name, const std::string& steps, const std::string& more = "") {
    kept_.reset();
    Answer(R"({"form":")" + name + R"(","do":[)" + steps + "]}" + (more.empty() ? "" : "," + more));
    auto form = std::make_unique<Form>(*services, ini);
    Form& shownForm = *form;
    kept_ = std::move(form);
    ShowToItsEnd(shownForm);
    return shownForm;
  }
  frmKVXSearchChooser& Choose(const std::string& steps, const std::string& more = "") {
    return Show<frmKVXSearchChooser>("frmKVXSearchChooser", steps, more);
  }

  /// What is shown when all settings are as given; the forms' names in their order.
  std::vector<std::string> FormsOf(const std::string& answersJson) {
    transcriptText.str("");
    Answer(answersJson);
    choiceShown = ShowFirstRunPrompts(*services, ini);
    std::vector<std::string> names;
    std::istringstream lines(transcriptText.str());
    for (std::string line; std::getline(lines, line);) {
      const std::string start = R"({"event":"form","name":")";
      if (line.starts_with(start))
        names.push_back(line.substr(start.size(), line.find('"', start.size()) - start.size()));
    }
    return names;
  }
  void SetAll(std::u16string_view value) {
    for (const char16_t* key : {u"ShowFormatReminder", u"ShowSearchChooser", u"ShowHelp"}) profile[key] = value;
  }

  bool choiceShown{false};

 private:
  std::unique_ptr<forms::Form> kept_;
};

TEST_F(Prompts, TheChooserWritesTheChosenSearchType) {
  const frmKVXSearchChooser& form = Choose(R"({"set":"optSearchType","to":1},{"click":"cmdOK"})");
  EXPECT_EQ(form.Tag(), u"OK");
  EXPECT_EQ(profile[u"SearchType"], u"SearchInitCaps");
  EXPECT_EQ(profile.written, (Keys{u"SearchType"}));
}

TEST_F(Prompts, TheChooserShowsTheSavedSearchType) {
  EXPECT_TRUE(Choose(R"({"click":"cmdOK"})").optSearchType[0].Value());
  EXPECT_EQ(profile[u"SearchType"], u"SearchFlagged");
  profile[u"SearchType"] = u"SearchInitCaps";
  EXPECT_TRUE(Choose(R"({"click":"cmdCancel"})").optSearchType[1].Value());
}

TEST_F(Prompts, WithoutAChoiceNoSearchTypeIsWritten) {
  profile[u"SearchType"] = u"Anything";
  Choose(R"({"set":"chkDontShow","to":1},{"click":"cmdOK"})");
  EXPECT_EQ(profile.written, (Keys{u"ShowSearchChooser"}));
  EXPECT_EQ(profile[u"ShowSearchChooser"], u"False");
}

TEST_F(Prompts, CancellingOrClosingTheChooserWritesNothing) {
  for (const char* end : {R"({"click":"cmdCancel"})", R"({"close":true})"}) {
    const frmKVXSearchChooser& form =
        Choose(std::string(R"({"set":"chkDontShow","to":1},{"set":"optSearchType","to":1},)") + end);
    EXPECT_EQ(form.Tag(), u"Cancel");
  }
  EXPECT_EQ(profile.written, Keys{});
}

TEST_F(Prompts, EachWriteOfTheChooserThatFailsIsReportedAndTheFormClosesAllTheSame) {
  profile.failing = {u"ShowSearchChooser", u"SearchType"};
  const frmKVXSearchChooser& form =
      Choose(R"({"set":"chkDontShow","to":1},{"click":"cmdOK"})", kIniProblem + "," + kIniProblem);
  EXPECT_EQ(form.Tag(), u"OK");
  EXPECT_EQ(shown.at(0).text, u"There is a problem with the ini file. Please reinstall to try to fix the problem.");
  EXPECT_EQ(shown.at(0).icon, os::Icon::kExclamation);
}

TEST_F(Prompts, TheReminderIsSwitchedOffOnlyWhenItsBoxIsTicked) {
  Show<frmKVXFormatInstrux>("frmKVXFormatInstrux", R"({"click":"cmdOK"})");
  EXPECT_EQ(profile.written, Keys{});
  Show<frmKVXFormatInstrux>("frmKVXFormatInstrux", R"({"set":"chkDontShow","to":1},{"click":"cmdOK"})");
  EXPECT_EQ(profile[u"ShowFormatReminder"], u"False");
}

TEST_F(Prompts, AWriteOfTheReminderThatFailsIsReported) {
  profile.failing = {u"ShowFormatReminder"};
  const auto& form = Show<frmKVXFormatInstrux>("frmKVXFormatInstrux",
                                               R"({"set":"chkDontShow","to":1},{"click":"cmdOK"})", kIniProblem);
  EXPECT_FALSE(form.Visible());
}

TEST_F(Prompts, TickingTheBoxOfTheHelpOfferCountsAtOnceAndSoDoesClearingIt) {
  Show<frmKVXShowHelp>("frmKVXShowHelp", R"({"set":"chkDontShow","to":1},{"close":true})");
  EXPECT_EQ(profile[u"ShowHelp"], u"False");
  Show<frmKVXShowHelp>("frmKVXShowHelp",
                       R"({"set":"chkDontShow","to":1},{"set":"chkDontShow","to":0},{"click":"cmdNo"})");
  EXPECT_EQ(profile[u"ShowHelp"], u"True");
  EXPECT_EQ(profile.written, (Keys{u"ShowHelp", u"ShowHelp", u"ShowHelp"}));
}

TEST_F(Prompts, TheHelpOfferTellsTheAnswer) {
  EXPECT_EQ(Show<frmKVXShowHelp>("frmKVXShowHelp", R"({"click":"cmdYes"})").Tag(), u"Yes");
  EXPECT_EQ(Show<frmKVXShowHelp>("frmKVXShowHelp", R"({"click":"cmdNo"})").Tag(), u"No");
  EXPECT_EQ(Show<frmKVXShowHelp>("frmKVXShowHelp", R"({"close":true})").Tag(), u"No");
}

TEST_F(Prompts, AllAreShownInTheirOrderWhenTheSettingsSaySo) {
  SetAll(u"True");
  EXPECT_EQ(FormsOf(R"({"form":"frmKVXSearchChooser","do":[]},{"form":"frmKVXFormatInstrux","do":[]},
                       {"form":"frmKVXShowHelp","do":[]})"),
            (std::vector<std::string>{"frmKVXSearchChooser", "frmKVXFormatInstrux", "frmKVXShowHelp"}));
  EXPECT_TRUE(choiceShown);
}

TEST_F(Prompts, OnlyTheVeryWordTrueShowsThem) {
  for (const char16_t* value : {u"False", u"true", u"", u"1"}) {
    SetAll(value);
    EXPECT_EQ(FormsOf(""), std::vector<std::string>{});
    EXPECT_FALSE(choiceShown);
  }
  files.files.clear();
  EXPECT_EQ(FormsOf(""), std::vector<std::string>{});
}

TEST_F(Prompts, EachHasASettingOfItsOwn) {
  SetAll(u"False");
  profile[u"ShowHelp"] = u"True";
  EXPECT_EQ(FormsOf(R"({"form":"frmKVXShowHelp","do":[]})"), (std::vector<std::string>{"frmKVXShowHelp"}));
  profile[u"ShowHelp"] = u"False";
  profile[u"ShowFormatReminder"] = u"True";
  EXPECT_EQ(FormsOf(R"({"form":"frmKVXFormatInstrux","do":[]})"), (std::vector<std::string>{"frmKVXFormatInstrux"}));
}

TEST_F(Prompts, WhoWantsHelpIsShownHowToGetStarted) {
  SetAll(u"False");
  profile[u"ShowHelp"] = u"True";
  FormsOf(R"({"form":"frmKVXShowHelp","do":[{"click":"cmdNo"}]})");
  EXPECT_EQ(transcriptText.str().find(R"("event":"help")"), std::string::npos);
  FormsOf(R"({"form":"frmKVXShowHelp","do":[{"click":"cmdYes"}]})");
  EXPECT_NE(
      transcriptText.str().find(R"({"event":"help","file":"C:\\Kelvarin\\\\Kelvarin3Help.chm","command":15,"data":7})"),
      std::string::npos);
}

TEST_F(Prompts, TheFormsAreWorded) {
  Answer("");
  frmKVXSearchChooser chooser(*services, ini);
  frmKVXFormatInstrux reminder(*services, ini);
  frmKVXShowHelp offer(*services, ini);
  frmKVXAbout_COM about(*services);
  for (forms::Form* form : std::initializer_list<forms::Form*>{&chooser, &reminder, &offer, &about}) {
    form->Load();
    ExpectGolden(form->Name() + ".txt", *form);
    form->Unload();
  }
}

}  // namespace
