#pragma once

#include <functional>
#include <string>
#include <vector>

#include "hosts/qt/document/DocumentSource.h"

namespace qt {

/// What the document window asks of the program behind it. Paths are those of the system, UTF-8.
class DesktopProgram {
 public:
  DesktopProgram() = default;
  virtual ~DesktopProgram() = default;
  DesktopProgram(const DesktopProgram&) = delete;
  DesktopProgram& operator=(const DesktopProgram&) = delete;

  /// Opens a document in the place of the one that is open. @throws std::exception why it cannot; nothing has changed
  /// then
  virtual void Open(const std::string& path) = 0;
  /// nullptr while no document is open.
  virtual DocumentSource* Document() = 0;
  /// Of the document's file; empty while none is open.
  virtual std::string Path() const = 0;
  /// Whether it differs from its file.
  virtual bool Modified() const = 0;
  /// Whether another program has changed the file since it was read or saved here.
  virtual bool ChangedOutside() const = 0;
  /// @throws std::exception why it cannot be saved; the file is then what it was before
  virtual void Save() = 0;
  virtual void SaveAs(const std::string& path) = 0;

  /// The documents opened last, the newest first.
  virtual std::vector<std::string> Recent() const = 0;

  struct Command {
    std::u16string caption;  ///< "&" stands before the accelerator; empty for a line between commands
    std::function<void()> run;
    std::vector<Command> commands{};  ///< of a menu
  };
  /// What stands in the menu "Tools".
  virtual std::vector<Command> Tools() = 0;
  /// What stands in the menu "Help"; the first of them is also what F1 does.
  virtual std::vector<Command> Help() = 0;
};

}  // namespace qt
