#include "hosts/unattended/Answers.h"

#include "hosts/json/Json.h"
#include "hosts/unattended/Text.h"

#include <initializer_list>
#include <limits>

namespace unattended {

namespace {

using Json = json::Value;

/// A value of the file and where it stands, such as "answers[2].do[0]".
class Place {
 public:
  Place(const Json& value, std::string path) : value_(value), path_(std::move(path)) {}

  [[noreturn]] void Fail(const std::string& problem) const {
    throw AnswersError(path_.empty() ? problem : path_ + ": " + problem);
  }

  const Json& Value() const { return value_; }
  bool Has(const char* key) const { return value_.contains(key); }
  Place At(const char* key) const {
    if (!Has(key)) Fail(std::string("\"") + key + "\" is missing");
    return {value_.at(key), path_.empty() ? std::string(key) : path_ + "." + key};
  }

  /// A member that the caller found itself, whatever its name.
  Place Member(const std::string& key, const Json& member) const { return {member, path_ + "." + key}; }

  const Place& Object(std::initializer_list<std::string_view> keys) const {
    if (!value_.is_object()) Fail("an object is expected");
    for (const auto& [key, member] : value_.items()) {
      bool known = false;
      for (const std::string_view expected : keys) known = known || key == expected;
      if (!known) Fail("unknown member \"" + key + "\"");
    }
    return *this;
  }
  std::vector<Place> Array() const {
    if (!value_.is_array()) Fail("an array is expected");
    std::vector<Place> elements;
    for (std::size_t i = 0; i < value_.size(); ++i) {
      elements.emplace_back(value_[i], path_ + "[" + std::to_string(i) + "]");
    }
    return elements;
  }
  bool Flag() const {
    if (!value_.is_boolean()) Fail("true or false is expected");
    return value_.get<bool>();
  }
  int Number(int smallest = std::numeric_limits<int>::min(), int largest = std::numeric_limits<int>::max()) const {
    if (!value_.is_number_integer()) Fail("a whole number is expected");
    const bool tooLarge = value_.is_number_unsigned() &&
                          value_.get<std::uint64_t>() > static_cast<std::uint64_t>(std::numeric_limits<int>::max());
    const std::int64_t number = tooLarge ? std::numeric_limits<std::int64_t>::max() : value_.get<std::int64_t>();
    if (number < smallest || number > largest) Fail("the number is out of range");
    return static_cast<int>(number);
  }
  std::string Text() const {
    if (!value_.is_string()) Fail("a text is expected");
    return value_.get<std::string>();
  }

 private:
  const Json& value_;
  std::string path_;
};

ControlName ReadControl(const Place& place) {
  if (place.Value().is_string()) return {place.Text()};
  const std::string expected = "a control's name, or [name, index], is expected";
  if (!place.Value().is_array()) place.Fail(expected);
  const std::vector<Place> parts = place.Array();
  if (parts.size() != 2) place.Fail(expected);
  return {parts[0].Text(), parts[1].Number(0)};
}

Step ReadSet(const Place& place) {
  place.Object({"set", "to"});
  Step step;
  step.kind = Step::Kind::kSet;
  step.control = ReadControl(place.At("set"));
  const Place to = place.At("to");
  if (to.Value().is_string()) {
    step.value = FromUtf8(to.Text());
  } else if (to.Value().is_boolean()) {
    step.value = to.Flag() ? 1 : 0;
  } else if (to.Value().is_number_integer()) {
    step.value = to.Number();
  } else {
    to.Fail("a whole number or a text is expected");
  }
  return step;
}

Step ReadSelect(const Place& place) {
  place.Object({"select", "items", "on"});
  Step step;
  step.kind = Step::Kind::kSelect;
  step.control = ReadControl(place.At("select"));
  if (place.Has("on")) step.on = place.At("on").Flag();
  const Place items = place.At("items");
  if (items.Value().is_string()) {
    const std::string word = items.Text();
    if (word != "all" && word != "none") items.Fail("\"all\", \"none\" or an array of texts is expected");
    step.select = word == "all" ? Step::Select::kAll : Step::Select::kNone;
  } else {
    for (const Place& item : items.Array()) step.items.push_back(FromUtf8(item.Text()));
  }
  return step;
}

Step ReadKey(const Place& place) {
  place.Object({"key", "char", "code"});
  Step step;
  step.kind = Step::Kind::kKey;
  step.control = ReadControl(place.At("key"));
  if (place.Has("char") == place.Has("code")) place.Fail("one of \"char\" and \"code\" is expected");
  if (place.Has("code")) {
    step.key = static_cast<char16_t>(place.At("code").Number(1, 0xFFFF));
  } else {
    const Place character = place.At("char");
    const std::u16string text = FromUtf8(character.Text());
    if (text.size() != 1) character.Fail("one character is expected");
    step.key = text.front();
  }
  return step;
}

Step ReadSimple(const Place& place, const char* key, Step::Kind kind) {
  place.Object({key});
  Step step;
  step.kind = kind;
  step.control = ReadControl(place.At(key));
  return step;
}

Step ReadStep(const Place& place) {
  if (!place.Value().is_object()) place.Fail("an object is expected");
  if (place.Has("click")) return ReadSimple(place, "click", Step::Kind::kClick);
  if (place.Has("set")) return ReadSet(place);
  if (place.Has("select")) return ReadSelect(place);
  if (place.Has("focus")) return ReadSimple(place, "focus", Step::Kind::kFocus);
  if (place.Has("key")) return ReadKey(place);
  if (place.Has("menu")) return ReadSimple(place, "menu", Step::Kind::kMenu);
  if (place.Has("f1")) return ReadSimple(place, "f1", Step::Kind::kHelp);
  Step step;
  if (place.Has("tab")) {
    place.Object({"tab"});
    step.kind = Step::Kind::kTab;
    step.tab = place.At("tab").Number(0);
    return step;
  }
  if (place.Has("close")) {
    place.Object({"close"});
    if (!place.At("close").Flag()) place.At("close").Fail("true is expected");
    step.kind = Step::Kind::kClose;
    return step;
  }
  place.Fail("no step; one of click, set, select, focus, key, tab, menu, f1 and close is expected");
}

os::Pressed ReadPressed(const Place& place) {
  const std::string text = place.Text();
  if (text == "OK") return os::Pressed::kOk;
  if (text == "Cancel") return os::Pressed::kCancel;
  if (text == "Yes") return os::Pressed::kYes;
  if (text == "No") return os::Pressed::kNo;
  place.Fail("\"OK\", \"Cancel\", \"Yes\" or \"No\" is expected");
}

Answer ReadAnswer(const Place& place) {
  if (!place.Value().is_object()) place.Fail("an object is expected");
  Answer answer;
  if (place.Has("message")) {
    place.Object({"message", "press"});
    answer.kind = Answer::Kind::kMessage;
    answer.title = FromUtf8(place.At("message").Text());
    answer.press = ReadPressed(place.At("press"));
  } else if (place.Has("file")) {
    place.Object({"file", "path"});
    answer.kind = Answer::Kind::kFile;
    answer.title = FromUtf8(place.At("file").Text());
    answer.path = FromUtf8(place.At("path").Text());
  } else if (place.Has("form")) {
    place.Object({"form", "do"});
    answer.kind = Answer::Kind::kForm;
    answer.form = place.At("form").Text();
    for (const Place& step : place.At("do").Array()) answer.steps.push_back(ReadStep(step));
  } else {
    place.Fail("no answer; one of message, file and form is expected");
  }
  return answer;
}

void ReadView(const Place& place, RunStateOptions& state) {
  place.Object({"type", "splitSpecial", "showHiddenText", "showAll"});
  if (place.Has("type")) state.viewType = place.At("type").Number();
  if (place.Has("splitSpecial")) state.viewSplitSpecial = place.At("splitSpecial").Number();
  if (place.Has("showHiddenText")) state.viewShowHiddenText = place.At("showHiddenText").Flag();
  if (place.Has("showAll")) state.viewShowAll = place.At("showAll").Flag();
}

void ReadOptions(const Place& place, RunStateOptions& state) {
  if (!place.Value().is_object()) place.Fail("an object is expected");
  for (const auto& [name, member] : place.Value().items()) {
    const Place value = place.Member(name, member);
    if (member.is_boolean()) {
      state.options.emplace_back(name, value.Flag());
    } else if (member.is_number_integer()) {
      state.options.emplace_back(name, value.Number());
    } else if (member.is_string()) {
      state.options.emplace_back(name, value.Text());
    } else {
      value.Fail("true, false, a whole number or a text is expected");
    }
  }
}

RunStateOptions ReadState(const Place& place) {
  // The state line of a transcript can be given as it is: its other two members say nothing here.
  place.Object({"noDocument", "new", "attributes", "cursor", "view", "options", "wordProcesses", "connectMode",
                "addInFolder", "appData", "event", "displayOnConnect"});
  RunStateOptions state;
  if (place.Has("noDocument")) state.noDocument = place.At("noDocument").Flag();
  for (const char* ofDocument : {"new", "attributes", "cursor", "view"}) {
    if (!state.noDocument || !place.Has(ofDocument)) continue;
    place.Fail(std::string("\"noDocument\" leaves no room for \"") + ofDocument + "\"");
  }
  if (place.Has("new")) state.newDocument = place.At("new").Flag();
  if (place.Has("attributes")) state.attributes = place.At("attributes").Number(0);
  if (place.Has("cursor")) {
    const Place cursor = place.At("cursor").Object({"story", "start", "end"});
    RunStateOptions::Cursor read;
    read.story = cursor.At("story").Number(1);
    read.start = cursor.At("start").Number(0);
    read.end = cursor.At("end").Number(read.start);
    state.cursor = read;
  }
  if (place.Has("view")) ReadView(place.At("view"), state);
  if (place.Has("options")) ReadOptions(place.At("options"), state);
  if (place.Has("wordProcesses")) state.wordProcesses = place.At("wordProcesses").Number(0);
  if (place.Has("connectMode")) state.connectMode = place.At("connectMode").Number(0);
  if (place.Has("addInFolder")) state.addInFolder = place.At("addInFolder").Text();
  if (place.Has("appData")) state.appData = place.At("appData").Text();
  return state;
}

Json ParseJson(std::string_view json) {
  try {
    return json::Read(json);
  } catch (const Json::parse_error& error) {
    throw AnswersError("no JSON: unexpected text at byte " + std::to_string(error.byte));
  } catch (const Json::exception&) {
    throw AnswersError("a number is out of range");
  }
}

}  // namespace

AnswersFile ParseAnswers(std::string_view json) {
  const Json document = ParseJson(json);
  const Place root(document, "");
  root.Object({"state", "answers"});
  AnswersFile file;
  if (root.Has("state")) file.state = ReadState(root.At("state"));
  for (const Place& answer : root.At("answers").Array()) file.answers.push_back(ReadAnswer(answer));
  return file;
}

std::string Describe(const Answer& answer) {
  switch (answer.kind) {
    case Answer::Kind::kMessage:
      return "the message box \"" + ToUtf8(answer.title) + "\"";
    case Answer::Kind::kFile:
      return "the file dialog \"" + ToUtf8(answer.title) + "\"";
    case Answer::Kind::kForm:
      return "the form " + answer.form;
  }
  return {};
}

}  // namespace unattended
