#include "addin/frmProgressForm.h"

#include "platform/Text.h"

#include <cmath>
#include <utility>

namespace {

constexpr int kBarWidth = 1000;

}  // namespace

frmProgressForm::frmProgressForm(forms::FormHost& host, std::string name) : Form(host, std::move(name)) {
  lblProgBarTotal.SetWidth(kBarWidth);
  lblProgBarTotal.SetVisible(false);
  lblProgBarCompleted.SetVisible(false);
}

void frmProgressForm::SetPosition(std::int32_t completed, std::int32_t total) {
  completed_ = completed;
  total_ = total;
  if (total == 0) return;
  const double percent = std::round(100.0 * completed / total);
  lblProgBarCompleted.SetCaption(Decimal(std::lround(percent)) + u"% completed");
  lblProgBarTotal.SetVisible(true);
  lblProgBarCompleted.SetVisible(true);
  lblProgBarCompleted.SetWidth(static_cast<int>(std::lround(lblProgBarTotal.Width() * percent / 100.0)));
}

std::array<std::u16string, 3> frmProgressForm::Lines() const {
  return {lblLabel1.Caption(), lblLabel2.Caption(), lblLabel3.Caption()};
}

forms::Layout frmProgressForm::MakeLayout() {
  using namespace forms;
  return Column(
      {Item(lblLabel1), Item(lblLabel2), Item(lblLabel3), Stack({Item(lblProgBarTotal), Item(lblProgBarCompleted)})});
}
