#pragma once

#include "hosts/menus/MenuBars.h"
#include "hosts/unattended/Transcript.h"

/// Writes what becomes of the command menu to the transcript.
class MenuLog : public menus::Observer {
 public:
  /// @param transcript outlives the log; nullptr: none
  explicit MenuLog(unattended::Transcript* transcript) : transcript_(transcript) {}

  void Added(const menus::Item& item) override { Tell(unattended::Transcript::MenuAction::kAdd, item); }
  void Deleted(const menus::Item& item) override { Tell(unattended::Transcript::MenuAction::kDelete, item); }

 private:
  void Tell(unattended::Transcript::MenuAction action, const menus::Item& item) {
    if (transcript_ != nullptr) transcript_->Menu(action, item.caption, item.tag);
  }

  unattended::Transcript* transcript_;
};
