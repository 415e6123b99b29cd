#pragma once

#include <memory>

#include "platform/Host.h"
#include "tests/fakes/FakeFormHost.h"
#include "tests/fakes/FakeServices.h"
#include "tests/fakes/FakeTermMarker.h"
#include "tests/fakes/FakeWord.h"

namespace fakes {

/// All that the add-in needs from outside, with one log for all of it and one document in Word.
class FakeHost {
 public:
  FakeHost() { files.folders.insert(u"C:\\Data"); }

  Host Make() { return Make(forms, messages); }
  /// The same with windows and messages of another host.
  Host Make(forms::FormHost& windows, os::Messages& boxes) {
    return {windows,
            boxes,
            profile,
            files,
            folders,
            characters,
            processes,
            userSettings,
            fileDialogs,
            shell,
            help,
            u"C:\\Kelvarin",
            [this] { return MakeTermMarker(); }};
  }

  CallLog log;
  FakeMessages messages{log};
  FakeFormHost forms{log};
  FakeFiles files;
  FakeProfile profile{files};
  FakeFolders folders;
  FakeCharacters characters;
  FakeProcesses processes;
  FakeUserSettings userSettings;
  FakeFileDialogs fileDialogs;
  FakeShell shell;
  FakeHelp help;
  FakeWord word{log};
  /// Given to each companion that is made.
  std::function<int(std::u16string_view text, int storyType)> found;
  std::function<void(const word::DocumentPtr&)> onInsertIndex;
  int markersMade{0};

 private:
  std::unique_ptr<TermMarker> MakeTermMarker() {
    ++markersMade;
    auto marker = std::make_unique<FakeTermMarker>(log);
    marker->found = found;
    marker->onInsertIndex = onInsertIndex;
    return marker;
  }
};

}  // namespace fakes
