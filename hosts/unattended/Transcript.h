#pragma once

#include <array>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

#include "hosts/json/Json.h"
#include "hosts/recording/CallObserver.h"
#include "platform/forms/Form.h"
#include "platform/os/Messages.h"

namespace unattended {

/// What a progress form shows.
struct ProgressState {
  std::u16string caption;
  std::array<std::u16string, 3> lines;
  std::int32_t completed{0};
  std::int32_t total{0};  ///< 0: the update did not say how far the step is
  std::u16string bar;     ///< such as "45% completed"; empty while there is no bar
};

/// Writes what happens in a run, one JSON object a line, with "event" first and the other members in a fixed order.
class Transcript : public recording::CallObserver {
 public:
  /// The stream outlives the transcript. Its errors are the owner's to look at.
  explicit Transcript(std::ostream& out) : out_(out) {}

  void Message(std::u16string_view title, std::u16string_view text, os::Icon icon, os::Buttons buttons,
               os::Pressed pressed);
  void Form(const forms::Form& form);
  void FormEnd(const forms::Form& form);
  /// @param changed the control states, by name
  void Controls(const forms::Form& form, const json::Value& changed);
  enum class Phase { kBegin, kUpdate, kEnd };
  void Progress(const ProgressState& state, Phase phase);
  void Status(std::u16string_view text);
  enum class FileMode { kOpen, kSave };
  /// @param path what was chosen; empty: cancelled
  void FileDialog(FileMode mode, std::u16string_view title, std::u16string_view filter, std::u16string_view fileName,
                  std::u16string_view path);
  /// A document or page was opened with its program.
  void Open(std::u16string_view verb, std::u16string_view path);
  void Help(std::u16string_view file, int command, int data);
  enum class MenuAction { kAdd, kDelete };
  void Menu(MenuAction action, std::u16string_view caption, std::u16string_view tag);
  /// The last line. @param members of the state at the end
  void State(const json::Value& members);

  void WordPut(std::string_view member, const json::Value& value) override;
  void WordCall(std::string_view member, const json::Value& value) override;
  void Marker(std::string_view operation, const json::Value& arguments, const json::Value& result) override;

 private:
  void Write(const json::Value& event);

  std::ostream& out_;
};

}  // namespace unattended
