#pragma once

#include <functional>
#include <memory>

#include "platform/TermMarker.h"

namespace forms {
class FormHost;
}

namespace os {
class Characters;
class Files;
class Folders;
class Messages;
class Processes;
class Profile;
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
  /// Creates the companion; may throw word::HostError when it is not installed.
  std::function<std::unique_ptr<TermMarker>()> createTermMarker;
};
