#include "addin/frmKVXProgressFormKVXPreparing.h"

#include <utility>

frmKVXProgressFormKVXPreparing::frmKVXProgressFormKVXPreparing(forms::FormHost& host, std::function<void()> work)
    : Form(host, "frmKVXProgressFormKVXPreparing"), work_(std::move(work)) {}

forms::Layout frmKVXProgressFormKVXPreparing::MakeLayout() {
  using namespace forms;
  return Column(
      {Item(lblLabel1), Item(lblLabel2), Item(lblLabel3), Stack({Item(lblProgBarTotal), Item(lblProgBarCompleted)})});
}

void frmKVXProgressFormKVXPreparing::OnActivate() {
  try {
    work_();
  } catch (...) {
    Hide();
    throw;
  }
  Hide();
}
