#include "apps/kelvarin/AddInCommand.h"

#include "apps/kelvarin/FileRun.h"

bool GiveCommand(Options::Command command, Session& session) {
  bool finished = true;
  session.Run([&](Connect& addIn) {
    if (command == Options::Command::kRemove) {
      finished = addIn.RemoveIndexing();
    } else if (command == Options::Command::kUnhighlight) {
      finished = addIn.RemoveHighlighting();
    } else if (command == Options::Command::kUpdate) {
      finished = addIn.UpdateIndexField();
    } else {
      addIn.ShowKVXForm();
    }
  });
  return finished;
}

Status CommandStatus(Options::Command command, bool finished, const Session& session, const std::string& failure) {
  if (command == Options::Command::kIndex) return IndexingStatus(session, failure);
  return finished && failure.empty() ? kDone : kStopped;
}
