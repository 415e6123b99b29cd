#include "addin/WorkProgressForm.h"

#include <utility>

WorkProgressForm::WorkProgressForm(forms::FormHost& host, std::string name, std::function<void()> work)
    : Form(host, std::move(name)), work_(std::move(work)) {}

forms::Layout WorkProgressForm::MakeLayout() {
  using namespace forms;
  return Column(
      {Item(lblLabel1), Item(lblLabel2), Item(lblLabel3), Stack({Item(lblProgBarTotal), Item(lblProgBarCompleted)})});
}

void WorkProgressForm::OnActivate() {
  try {
    work_();
  } catch (...) {
    Hide();
    throw;
  }
  Hide();
}
