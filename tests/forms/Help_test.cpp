#include "dialogs/modHelpLinks.h"

#include "dialogs/frmKVXChangeQuotes.h"
#include "dialogs/frmKVXFormatInstrux.h"
#include "dialogs/frmKVXRemoveArticles.h"
#include "tests/forms/Dialogs.h"

#include <map>

namespace {

class Help : public Dialogs {
 protected:
  /// The help and open events of the transcript, without what they have in common.
  std::vector<std::string> Opened() const {
    std::vector<std::string> found;
    std::istringstream lines(transcriptText.str());
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with(R"({"event":"help")") || line.starts_with(R"({"event":"open")")) found.push_back(line);
    }
    return found;
  }
  static std::string Topic(int number) {
    return R"({"event":"help","file":"C:\\Kelvarin\\\\Kelvarin3Help.chm","command":15,"data":)" +
           std::to_string(number) + "}";
  }
  static std::string Opening(const std::string& verb, const std::string& path) {
    return R"({"event":"open","verb":")" + verb + R"(","path":")" + path + "\"}";
  }
};

const std::vector<std::pair<std::string, int>> kMenuTopics = {
    {"cmdGettingStarted", 7}, {"cmdCreate", 11}, {"cmdDelete", 12}, {"cmdNoHighlight", 13},
    {"cmdUpdate", 14},        {"cmdLists", 15},  {"cmdOptions", 17}};

std::string MenuSteps() {
  std::string steps;
  for (const auto& [name, topic] : kMenuTopics) steps += R"({"menu":")" + name + R"("},)";
  return steps;
}

std::vector<std::string> TopicsOfMenu(const std::function<std::string(int)>& print) {
  std::vector<std::string> topics;
  for (const auto& [name, topic] : kMenuTopics) topics.push_back(print(topic));
  return topics;
}

TEST_F(Help, TheTermsDialogOpensTheTopicOfEachControl) {
  StepsInTerms({}, MenuSteps() + R"({"click":"cmdFormHelp"},{"tab":2},{"click":"lblHelpClick"},{"f1":"cmdOK"})");
  std::vector<std::string> expected = TopicsOfMenu(&Help::Topic);
  for (int i = 0; i < 3; ++i) expected.push_back(Topic(7));
  EXPECT_EQ(Opened(), expected);
}

TEST_F(Help, TheOptionsDialogOpensTheSameTopics) {
  StepsInOptions(MenuSteps() + R"({"click":"lblHelpClick"},{"f1":"txtCols"},{"click":"cmdCancel"})");
  std::vector<std::string> expected = TopicsOfMenu(&Help::Topic);
  for (int i = 0; i < 2; ++i) expected.push_back(Topic(7));
  EXPECT_EQ(Opened(), expected);
}

TEST_F(Help, FormsAboutQuotesOpenTheTopicAboutFormatting) {
  Answer(R"({"form":"frmKVXChangeQuotes","do":[{"f1":"cmbOpenQuote"}]},
            {"form":"frmKVXFormatInstrux","do":[{"f1":"lblFormatInstrux"}]},
            {"form":"frmKVXRemoveArticles","do":[{"f1":"lstTerms"},{"click":"cmdOK"}]})");
  {
    frmKVXChangeQuotes quotes(*services, ini);
    host->ShowModal(quotes);
    frmKVXFormatInstrux reminder(*services, ini);
    host->ShowModal(reminder);
    frmKVXRemoveArticles articles(*services, {u"the Bank"});
    ShowToItsEnd(articles);
  }
  EXPECT_EQ(Opened(), (std::vector<std::string>{Topic(16), Topic(16), Topic(16)}));
}

TEST_F(Help, ATopicNumberBelowOneOpensTheContents) {
  Answer("");
  frmKVX_COM& dialog = MakeTerms();
  for (const int number : {0, -1}) OpenHelpTopic(*services, kHelpFile, number, dialog);
  OpenHelpTopic(*services, u"\\Other.chm", 1, dialog);
  const std::string contents = R"({"event":"help","file":"C:\\Kelvarin\\\\Kelvarin3Help.chm","command":1,"data":0})";
  EXPECT_EQ(Opened(),
            (std::vector<std::string>{contents, contents,
                                      R"({"event":"help","file":"C:\\Kelvarin\\\\Other.chm","command":15,"data":1})"}));
}

TEST_F(Help, TheQuestionsAndAnswersAreTheLocalPageWhereThereIsOne) {
  files.files.insert(u"C:\\Kelvarin\\kvxfaq.htm");
  StepsInTerms({}, R"({"menu":"cmdFAQ"},{"tab":2},{"click":"lblFAQClick"})");
  const std::string local = Opening("Open", R"(C:\\Kelvarin\\kvxfaq.htm)");
  EXPECT_EQ(Opened(), (std::vector<std::string>{local, local}));
}

TEST_F(Help, TheQuestionsAndAnswersAreElseTheMakersPage) {
  StepsInOptions(R"({"menu":"cmdFAQ"},{"click":"lblFAQClick"},{"click":"cmdCancel"})");
  const std::string page = Opening("Open", "https://kelvarin.example/faq");
  EXPECT_EQ(Opened(), (std::vector<std::string>{page, page}));
}

TEST_F(Help, EachEntryOpensTheInstructionsForItsPaper) {
  files.files.insert(u"C:\\Kelvarin\\KVX Instructions A4.pdf");
  files.files.insert(u"C:\\Kelvarin\\KVX Instructions LTR.pdf");
  const std::string a4 = Opening("open", R"(C:\\Kelvarin\\KVX Instructions A4.pdf)");
  const std::string letter = Opening("open", R"(C:\\Kelvarin\\KVX Instructions LTR.pdf)");
  StepsInTerms({}, R"({"menu":"cmdInstructionsA4"},{"menu":"cmdInstructionsLetter"})");
  StepsInOptions(R"({"menu":"cmdInstructionsLetter"},{"menu":"cmdInstructionsA4"},{"click":"cmdCancel"})");
  EXPECT_EQ(Opened(), (std::vector<std::string>{a4, letter, letter, a4}));
}

TEST_F(Help, InstructionsThatAreMissingAreReportedWhereTheOthersAreThere) {
  const std::pair<const char16_t*, const char*> cases[] = {
      {u"C:\\Kelvarin\\KVX Instructions LTR.pdf", "cmdInstructionsA4"},
      {u"C:\\Kelvarin\\KVX Instructions A4.pdf", "cmdInstructionsLetter"}};
  for (const auto& [others, entry] : cases) {
    files.files.insert(others);
    StepsInTerms({}, R"({"menu":")" + std::string(entry) + "\"}", R"({"message":"File not found","press":"OK"})");
    files.files.erase(others);
    ASSERT_FALSE(shown.empty());
    EXPECT_TRUE(shown.back().text.starts_with(u"The instructions file could not be found.  "));
    EXPECT_EQ(shown.back().icon, os::Icon::kExclamation);
  }
  EXPECT_EQ(shown.size(), 2U);
  EXPECT_EQ(Opened(), std::vector<std::string>{});
}

TEST_F(Help, WhatNoProgramOpensIsReported) {
  struct NoPrograms : os::Shell {
    bool Open(std::u16string_view, std::u16string_view, std::intptr_t) override { return false; }
  } none;
  Answer(R"({"message":"Cannot open","press":"OK"})");
  frmKVX_COM& dialog = MakeTerms();
  const Host bare{*host,        *host,    profile, files,    folders,         characters, processes,
                  userSettings, *desktop, none,    *desktop, u"C:\\Kelvarin", {}};
  OpenFAQ(bare, dialog);
  EXPECT_EQ(shown.at(0).text, u"https://kelvarin.example/faq\r\n\r\ncould not be opened.");
}

TEST_F(Help, TheAboutBoxIsShownFromBothDialogs) {
  const std::string about = R"({"form":"frmKVXAbout_COM","do":[{"click":"cmdOK"}]})";
  StepsInTerms({}, R"({"menu":"cmdAbout"},{"tab":2},{"click":"imgAbout"})", about + "," + about);
  Answer(R"({"form":"frmKVXOptions","do":[{"menu":"cmdAbout"},{"click":"cmdCancel"}]},)" + about);
  options = std::make_unique<frmKVXOptions>(*services, ini);
  ShowToItsEnd(*options);
}

}  // namespace
