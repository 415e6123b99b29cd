#include "hosts/unattended/Answers.h"

#include <gtest/gtest.h>

namespace {

using namespace unattended;

Step ParseStep(const std::string& json) {
  const AnswersFile file = ParseAnswers(R"({"answers":[{"form":"F","do":[)" + json + "]}]}");
  return file.answers.at(0).steps.at(0);
}

std::string Problem(const std::string& json) {
  try {
    ParseAnswers(json);
  } catch (const AnswersError& error) {
    return error.what();
  }
  return "accepted";
}

std::string StepProblem(const std::string& json) {
  return Problem(R"({"answers":[{"form":"F","do":[{"tab":0},)" + json + "]}]}");
}

TEST(Answers, EachKindOfAnswerIsRead) {
  const AnswersFile file = ParseAnswers(R"({"answers":[
      {"message":"Add term?","press":"Yes"}, {"file":"Open","path":"C:\\list.txt"}, {"form":"frmKVX_COM","do":[]}]})");
  ASSERT_EQ(file.answers.size(), 3u);
  EXPECT_EQ(file.answers[0].kind, Answer::Kind::kMessage);
  EXPECT_EQ(file.answers[0].title, u"Add term?");
  EXPECT_EQ(file.answers[0].press, os::Pressed::kYes);
  EXPECT_EQ(file.answers[1].kind, Answer::Kind::kFile);
  EXPECT_EQ(file.answers[1].title, u"Open");
  EXPECT_EQ(file.answers[1].path, u"C:\\list.txt");
  EXPECT_EQ(file.answers[2].kind, Answer::Kind::kForm);
  EXPECT_EQ(file.answers[2].form, "frmKVX_COM");
  EXPECT_TRUE(file.answers[2].steps.empty());
}

TEST(Answers, AClickNamesAControlOrAnElement) {
  EXPECT_EQ(ParseStep(R"({"click":"cmdOK"})").control.name, "cmdOK");
  EXPECT_FALSE(ParseStep(R"({"click":"cmdOK"})").control.index.has_value());
  const Step step = ParseStep(R"({"click":["updownCols",1]})");
  EXPECT_EQ(step.kind, Step::Kind::kClick);
  EXPECT_EQ(step.control.name, "updownCols");
  EXPECT_EQ(step.control.index, 1);
}

TEST(Answers, ValuesToSetAreNumbersFlagsOrTexts) {
  EXPECT_EQ(std::get<int>(ParseStep(R"({"set":"chkBold","to":1})").value), 1);
  EXPECT_EQ(std::get<int>(ParseStep(R"({"set":"chkBold","to":true})").value), 1);
  EXPECT_EQ(std::get<std::u16string>(ParseStep(R"({"set":"txtSep","to":"\u201c"})").value), u"\u201C");
}

TEST(Answers, ASelectionIsTextsOrAllOrNone) {
  const Step texts = ParseStep(R"({"select":"lstTermsInDoc","items":["Buyer","Seller"],"on":false})");
  EXPECT_EQ(texts.select, Step::Select::kItems);
  EXPECT_EQ(texts.items, (std::vector<std::u16string>{u"Buyer", u"Seller"}));
  EXPECT_FALSE(texts.on);
  EXPECT_EQ(ParseStep(R"({"select":"l","items":"all"})").select, Step::Select::kAll);
  EXPECT_TRUE(ParseStep(R"({"select":"l","items":"all"})").on);
  EXPECT_EQ(ParseStep(R"({"select":"l","items":"none"})").select, Step::Select::kNone);
}

TEST(Answers, TheOtherStepsAreRead) {
  EXPECT_EQ(ParseStep(R"({"focus":"txtCols"})").kind, Step::Kind::kFocus);
  EXPECT_EQ(ParseStep(R"({"key":"txtCols","char":"5"})").key, u'5');
  EXPECT_EQ(ParseStep(R"({"key":"txtCols","code":8})").key, 8);
  EXPECT_EQ(ParseStep(R"({"tab":2})").tab, 2);
  EXPECT_EQ(ParseStep(R"({"menu":"cmdFAQ"})").kind, Step::Kind::kMenu);
  EXPECT_EQ(ParseStep(R"({"f1":"cmdOK"})").kind, Step::Kind::kHelp);
  EXPECT_EQ(ParseStep(R"({"close":true})").kind, Step::Kind::kClose);
}

TEST(Answers, TheStateIsRead) {
  const RunStateOptions state = ParseAnswers(R"({"state":{"new":true,"attributes":33,
      "cursor":{"story":2,"start":3,"end":5},
      "view":{"type":1,"splitSpecial":7,"showHiddenText":true,"showAll":false},
      "options":{"Pagination":false,"DefaultTab":3,"UserName":"x"},
      "wordProcesses":2,"connectMode":2,"addInFolder":"C:\\KVX","appData":"C:\\Data"},"answers":[]})")
                                    .state;
  EXPECT_FALSE(state.noDocument);
  EXPECT_TRUE(state.newDocument);
  EXPECT_EQ(state.attributes, 33);
  ASSERT_TRUE(state.cursor.has_value());
  EXPECT_EQ(state.cursor->story, 2);
  EXPECT_EQ(state.cursor->start, 3);
  EXPECT_EQ(state.cursor->end, 5);
  EXPECT_EQ(state.viewType, 1);
  EXPECT_EQ(state.viewSplitSpecial, 7);
  EXPECT_EQ(state.viewShowHiddenText, true);
  EXPECT_EQ(state.viewShowAll, false);
  ASSERT_EQ(state.options.size(), 3u);
  EXPECT_EQ(state.options[0].first, "Pagination");
  EXPECT_FALSE(std::get<bool>(state.options[0].second));
  EXPECT_EQ(std::get<int>(state.options[1].second), 3);
  EXPECT_EQ(std::get<std::string>(state.options[2].second), "x");
  EXPECT_EQ(state.wordProcesses, 2);
  EXPECT_EQ(state.connectMode, 2);
  EXPECT_EQ(state.addInFolder, "C:\\KVX");
  EXPECT_EQ(state.appData, "C:\\Data");
}

TEST(Answers, WithoutAStateEverythingStaysAsItIs) {
  const RunStateOptions state = ParseAnswers(R"({"answers":[]})").state;
  EXPECT_FALSE(state.noDocument || state.newDocument || state.cursor || state.viewType || state.wordProcesses);
  EXPECT_TRUE(state.options.empty());
  EXPECT_TRUE(ParseAnswers(R"({"state":{"noDocument":true},"answers":[]})").state.noDocument);
}

TEST(Answers, TheStateLineOfATranscriptIsAState) {
  const RunStateOptions state = ParseAnswers(R"({"state":{"event":"state","noDocument":true,
      "options":{"Pagination":false},"wordProcesses":1,"connectMode":1,"addInFolder":"/usr/bin","appData":"/data",
      "displayOnConnect":"0"},"answers":[]})")
                                    .state;
  EXPECT_TRUE(state.noDocument);
  EXPECT_EQ(state.connectMode, 1);
  EXPECT_EQ(state.appData, "/data");
}

TEST(Answers, WhatIsNoJsonIsRefusedWithItsPlace) {
  EXPECT_EQ(Problem(""), "no JSON: unexpected text at byte 1");
  EXPECT_EQ(Problem("{\"answers\":[}"), "no JSON: unexpected text at byte 13");
  EXPECT_EQ(Problem("{\"answers\":[\"\xFF\"]}").substr(0, 24), "no JSON: unexpected text");
  EXPECT_EQ(Problem(R"({"answers":[],"state":{"attributes":1e999}})"), "a number is out of range");
  EXPECT_EQ(Problem(std::string(100000, '[')).substr(0, 24), "no JSON: unexpected text");
}

TEST(Answers, MembersThatAreUnknownMissingOrWrongAreNamed) {
  EXPECT_EQ(Problem("[]"), "an object is expected");
  EXPECT_EQ(Problem("{}"), "\"answers\" is missing");
  EXPECT_EQ(Problem(R"({"answers":{}})"), "answers: an array is expected");
  EXPECT_EQ(Problem(R"({"answers":[],"strict":true})"), "unknown member \"strict\"");
  EXPECT_EQ(Problem(R"({"answers":[{"massage":"x"}]})"),
            "answers[0]: no answer; one of message, file and form is expected");
  EXPECT_EQ(Problem(R"({"answers":[{"message":"x"}]})"), "answers[0]: \"press\" is missing");
  EXPECT_EQ(Problem(R"({"answers":[{"message":"x","press":"Maybe"}]})"),
            "answers[0].press: \"OK\", \"Cancel\", \"Yes\" or \"No\" is expected");
  EXPECT_EQ(Problem(R"({"answers":[{"message":1,"press":"OK"}]})"), "answers[0].message: a text is expected");
  EXPECT_EQ(Problem(R"({"answers":[{"form":"F","do":{}}]})"), "answers[0].do: an array is expected");
}

TEST(Answers, StepsThatMakeNoSenseAreNamed) {
  EXPECT_EQ(StepProblem(R"({"clic":"x"})"),
            "answers[0].do[1]: no step; one of click, set, select, focus, key, tab, menu, f1 and close is expected");
  EXPECT_EQ(StepProblem(R"("x")"), "answers[0].do[1]: an object is expected");
  EXPECT_EQ(StepProblem(R"({"click":["x"]})"),
            "answers[0].do[1].click: a control's name, or [name, index], is expected");
  EXPECT_EQ(StepProblem(R"({"click":["x",-1]})"), "answers[0].do[1].click[1]: the number is out of range");
  EXPECT_EQ(StepProblem(R"({"click":["x",18446744073709551615]})"),
            "answers[0].do[1].click[1]: the number is out of range");
  EXPECT_EQ(StepProblem(R"({"click":"x","set":"y"})"), "answers[0].do[1]: unknown member \"set\"");
  EXPECT_EQ(StepProblem(R"({"set":"x"})"), "answers[0].do[1]: \"to\" is missing");
  EXPECT_EQ(StepProblem(R"({"set":"x","to":1.5})"), "answers[0].do[1].to: a whole number or a text is expected");
  EXPECT_EQ(StepProblem(R"({"select":"x","items":"some"})"),
            "answers[0].do[1].items: \"all\", \"none\" or an array of texts is expected");
  EXPECT_EQ(StepProblem(R"({"key":"x"})"), "answers[0].do[1]: one of \"char\" and \"code\" is expected");
  EXPECT_EQ(StepProblem(R"({"key":"x","char":"ab"})"), "answers[0].do[1].char: one character is expected");
  EXPECT_EQ(StepProblem(R"({"close":false})"), "answers[0].do[1].close: true is expected");
}

TEST(Answers, AStateThatMakesNoSenseIsNamed) {
  EXPECT_EQ(Problem(R"({"state":{"noDocument":true,"new":true},"answers":[]})"),
            "state: \"noDocument\" leaves no room for \"new\"");
  EXPECT_EQ(Problem(R"({"state":{"cursor":{"story":1,"start":5,"end":4}},"answers":[]})"),
            "state.cursor.end: the number is out of range");
  EXPECT_EQ(Problem(R"({"state":{"options":{"A":null}},"answers":[]})"),
            "state.options.A: true, false, a whole number or a text is expected");
  EXPECT_EQ(Problem(R"({"state":{"options":{"A\u0000":null}},"answers":[]})").substr(0, 15), "state.options.A");
}

}  // namespace
