#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "hosts/unattended/RunStateOptions.h"
#include "platform/os/Messages.h"

namespace unattended {

/// An answers file that cannot be used; what() is one sentence that says where and why.
class AnswersError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A control by name; with the number of an array's element, a list's entry, or an up-down control's arrow.
struct ControlName {
  std::string name;
  std::optional<int> index{};
};

/// One thing that a person does in a form.
struct Step {
  enum class Kind { kClick, kSet, kSelect, kFocus, kKey, kTab, kMenu, kHelp, kClose };
  enum class Select { kItems, kAll, kNone };

  Kind kind{Kind::kClick};
  ControlName control{};                       ///< of every kind but kTab and kClose
  std::variant<int, std::u16string> value{0};  ///< of kSet; a flag counts as 0 or 1
  Select select{Select::kItems};               ///< of kSelect, with the next two
  std::vector<std::u16string> items{};
  bool on{true};
  char16_t key{0};  ///< of kKey
  int tab{0};       ///< of kTab, from 0
};

/// The answer to one dialog.
struct Answer {
  enum class Kind { kMessage, kFile, kForm };

  Kind kind{Kind::kMessage};
  std::u16string title{};               ///< of a message or file dialog
  os::Pressed press{os::Pressed::kOk};  ///< of a message
  std::u16string path{};                ///< of a file dialog; empty cancels it
  std::string form{};                   ///< the form's class name
  std::vector<Step> steps{};
};

struct AnswersFile {
  RunStateOptions state{};
  std::vector<Answer> answers{};
};

/// @param json the whole file, UTF-8
/// @throws AnswersError for what is no JSON, and for any member that is unknown, missing or of the wrong type
AnswersFile ParseAnswers(std::string_view json);

/// "the message box "Add term?"" and the like, for sentences about answers.
std::string Describe(const Answer& answer);

}  // namespace unattended
