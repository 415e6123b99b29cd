#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/TermMarker.h"

namespace forms {
class FormHost;
}

namespace os {
class Characters;
class FileDialogs;
class Files;
class Folders;
class Help;
class Messages;
class Processes;
class Profile;
class Shell;
class UserSettings;
}  // namespace os

/// What the system needs from outside but the word processor itself, which arrives with OnConnection.
/// Everything referred to outlives the add-in object.
struct Host {
  forms::FormHost& forms;
  os::Messages& messages;
  os::Profile& profile;
  os::Files& files;
  os::Folders& folders;
  os::Characters& characters;
  os::Processes& processes;
  os::UserSettings& userSettings;
  os::FileDialogs& fileDialogs;
  os::Shell& shell;
  os::Help& help;
  /// Where the add-in itself lies, with its help and its instructions: a path in Windows form, without a separator at
  /// its end.
  std::u16string addInFolder;
  /// Creates the companion; may throw word::HostError when it is not installed.
  std::function<std::unique_ptr<TermMarker>()> createTermMarker;
};
