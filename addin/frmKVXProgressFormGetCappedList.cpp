#include "addin/frmKVXProgressFormGetCappedList.h"

#include <utility>

frmKVXProgressFormGetCappedList::frmKVXProgressFormGetCappedList(forms::FormHost& host, std::function<void()> search)
    : frmProgressForm(host, "frmKVXProgressFormGetCappedList"), search_(std::move(search)) {}

void frmKVXProgressFormGetCappedList::OnActivate() {
  try {
    search_();
  } catch (...) {
    Hide();
    throw;
  }
  Hide();
}

void frmKVXProgressFormGetCappedList::OnQueryUnload(forms::UnloadReason reason) {
  closed_ = closed_ || reason == forms::UnloadReason::kControlMenu;
}
