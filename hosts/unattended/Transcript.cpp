#include "hosts/unattended/Transcript.h"

#include "hosts/json/Json.h"
#include "hosts/unattended/ControlState.h"
#include "hosts/unattended/Text.h"

namespace unattended {

namespace {

using Json = json::Value;

const char* IconName(os::Icon icon) {
  switch (icon) {
    case os::Icon::kInformation:
      return "information";
    case os::Icon::kExclamation:
      return "exclamation";
    case os::Icon::kQuestion:
      return "question";
    case os::Icon::kCritical:
      return "critical";
    case os::Icon::kNone:
      break;
  }
  return "none";
}

const char* ButtonsName(os::Buttons buttons) {
  switch (buttons) {
    case os::Buttons::kOkCancel:
      return "OKCancel";
    case os::Buttons::kYesNo:
      return "YesNo";
    case os::Buttons::kYesNoCancel:
      return "YesNoCancel";
    case os::Buttons::kOk:
      break;
  }
  return "OK";
}

const char* PressedName(os::Pressed pressed) {
  switch (pressed) {
    case os::Pressed::kCancel:
      return "Cancel";
    case os::Pressed::kYes:
      return "Yes";
    case os::Pressed::kNo:
      return "No";
    case os::Pressed::kOk:
      break;
  }
  return "OK";
}

}  // namespace

void Transcript::Write(const Json& event) { out_ << json::Written(event) << '\n'; }

void Transcript::Message(std::u16string_view title, std::u16string_view text, os::Icon icon, os::Buttons buttons,
                         os::Pressed pressed) {
  Write({{"event", "message"},
         {"title", ToUtf8(title)},
         {"text", ToUtf8(text)},
         {"icon", IconName(icon)},
         {"buttons", ButtonsName(buttons)},
         {"pressed", PressedName(pressed)}});
}

void Transcript::Form(const forms::Form& form) {
  Write({{"event", "form"},
         {"name", form.Name()},
         {"caption", ToUtf8(form.Caption())},
         {"controls", ControlStates(form)}});
}

void Transcript::FormEnd(const forms::Form& form) {
  Write(
      {{"event", "formEnd"}, {"name", form.Name()}, {"result", ToUtf8(form.Tag())}, {"controls", ControlStates(form)}});
}

void Transcript::Controls(const forms::Form& form, const Json& changed) {
  Write({{"event", "controls"}, {"form", form.Name()}, {"changed", changed}});
}

void Transcript::Progress(const ProgressState& state, Phase phase) {
  Json lines = Json::array();
  for (const std::u16string& line : state.lines) lines.push_back(ToUtf8(line));
  Json event = {{"event", "progress"},  {"caption", ToUtf8(state.caption)},
                {"lines", lines},       {"completed", state.completed},
                {"total", state.total}, {"bar", ToUtf8(state.bar)}};
  if (phase != Phase::kUpdate) event["shown"] = phase == Phase::kBegin;
  Write(event);
}

void Transcript::Status(std::u16string_view text) { Write({{"event", "status"}, {"text", ToUtf8(text)}}); }

void Transcript::FileDialog(FileMode mode, std::u16string_view title, std::u16string_view filter,
                            std::u16string_view fileName, std::u16string_view path) {
  Write({{"event", "file"},
         {"mode", mode == FileMode::kOpen ? "open" : "save"},
         {"title", ToUtf8(title)},
         {"filter", ToUtf8(filter)},
         {"fileName", ToUtf8(fileName)},
         {"path", ToUtf8(path)}});
}

void Transcript::Open(std::u16string_view verb, std::u16string_view path) {
  Write({{"event", "open"}, {"verb", ToUtf8(verb)}, {"path", ToUtf8(path)}});
}

void Transcript::Help(std::u16string_view file, int command, int data) {
  Write({{"event", "help"}, {"file", ToUtf8(file)}, {"command", command}, {"data", data}});
}

void Transcript::Menu(MenuAction action, std::u16string_view caption, std::u16string_view tag) {
  Write({{"event", "menu"},
         {"action", action == MenuAction::kAdd ? "add" : "delete"},
         {"caption", ToUtf8(caption)},
         {"tag", ToUtf8(tag)}});
}

void Transcript::State(const Json& members) {
  Json event = {{"event", "state"}};
  for (const auto& [name, value] : members.items()) event[name] = value;
  Write(event);
}

void Transcript::WordPut(std::string_view member, const Json& value) {
  Write({{"event", "word"}, {"member", std::string(member)}, {"value", value}});
}

void Transcript::WordCall(std::string_view member, const Json& value) { WordPut(member, value); }

void Transcript::Marker(std::string_view operation, const Json& arguments, const Json& result) {
  Write({{"event", "marker"}, {"operation", std::string(operation)}, {"arguments", arguments}, {"result", result}});
}

}  // namespace unattended
