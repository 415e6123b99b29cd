#include "addin/frmKVXProgressFormGetCappedList.h"

#include "addin/modCommonErrorMsgs.h"
#include "dialogs/modHelpLinks.h"

#include <utility>

frmKVXProgressFormGetCappedList::frmKVXProgressFormGetCappedList(const Host& host, std::function<void()> search)
    : frmProgressForm(host.forms, "frmKVXProgressFormGetCappedList"), host_(host), search_(std::move(search)) {}

void frmKVXProgressFormGetCappedList::OnActivate() {
  try {
    search_();
  } catch (...) {
    Hide();
    throw;
  }
  Hide();
}

void frmKVXProgressFormGetCappedList::OnHelp(forms::Control&) {
  TrapErrors(host_.messages, u"Error showing help",
             [this] { OpenHelpTopic(host_, kHelpFile, kHelpCreateIndex, *this); });
}

void frmKVXProgressFormGetCappedList::OnQueryUnload(forms::UnloadReason reason) {
  closed_ = closed_ || reason == forms::UnloadReason::kControlMenu;
}
