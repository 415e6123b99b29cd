#include "addin/clsProgForm.h"

#include <gtest/gtest.h>

#include "addin/frmKVXProgressFormKVXPreparing.h"
#include "addin/frmProgressForm.h"
#include "platform/word/HostError.h"
#include "tests/unit/forms/SampleForm.h"

namespace {

using Told = std::vector<std::string>;

class Progress : public ::testing::Test {
 protected:
  QuietHost host;
  clsProgForm progress{host};
};

TEST_F(Progress, MayBeClosedByWhatItsHidingSetsOff) {
  class ClosingHost : public QuietHost {
   public:
    void Hidden(forms::Form& form) override {
      QuietHost::Hidden(form);
      progress->CloseProgress();
    }
    clsProgForm* progress{nullptr};
  };
  ClosingHost closing;
  clsProgForm shown(closing);
  closing.progress = &shown;
  shown.ShowProgress(0);
  closing.told.clear();
  shown.CloseProgress();
  EXPECT_EQ(closing.told, (Told{"hidden frmProgressForm", "unloaded frmProgressForm"}));
  EXPECT_EQ(shown.Current(), nullptr);
}

TEST_F(Progress, AnUpdateSetsLinesCaptionAndBar) {
  progress.ShowProgress(0);
  progress.UpdateProgress(u"one", u"two", u"three", 9, 20, u"Please wait");
  const frmProgressForm& form = *progress.Current();
  EXPECT_EQ(form.Caption(), u"Please wait");
  EXPECT_EQ(form.lblLabel1.Caption(), u"one");
  EXPECT_EQ(form.lblLabel2.Caption(), u"two");
  EXPECT_EQ(form.lblLabel3.Caption(), u"three");
  EXPECT_EQ(form.lblProgBarCompleted.Caption(), u"45% completed");
  EXPECT_EQ(form.lblProgBarCompleted.Width() * 100, form.lblProgBarTotal.Width() * 45);
  EXPECT_TRUE(form.lblProgBarCompleted.Visible());
  EXPECT_TRUE(form.lblProgBarTotal.Visible());
}

TEST_F(Progress, ATotalOfZeroChangesOnlyTheTextLines) {
  progress.ShowProgress(0);
  progress.UpdateProgress(u"one", u"", u"", 1, 2, u"Please wait");
  const frmProgressForm& form = *progress.Current();
  const int width = form.lblProgBarCompleted.Width();
  progress.UpdateProgress(u"other", u"", u"", 7, 0, u"");
  EXPECT_EQ(form.lblLabel1.Caption(), u"other");
  EXPECT_EQ(form.Caption(), u"Please wait");
  EXPECT_EQ(form.lblProgBarCompleted.Caption(), u"50% completed");
  EXPECT_EQ(form.lblProgBarCompleted.Width(), width);
}

TEST_F(Progress, TheBarIsHiddenUntilAShareIsKnown) {
  progress.ShowProgress(0);
  progress.UpdateProgress(u"one", u"", u"", 0, 0, u"");
  EXPECT_FALSE(progress.Current()->lblProgBarTotal.Visible());
  EXPECT_FALSE(progress.Current()->lblProgBarCompleted.Visible());
  EXPECT_EQ(progress.Current()->BarText(), u"");
}

TEST_F(Progress, CompletedEqualToTotalFillsTheBar) {
  progress.ShowProgress(0);
  progress.UpdateProgress(u"", u"", u"", 3, 3, u"");
  EXPECT_EQ(progress.Current()->BarText(), u"100% completed");
  EXPECT_EQ(progress.Current()->lblProgBarCompleted.Width(), progress.Current()->lblProgBarTotal.Width());
}

TEST_F(Progress, SharesAreRoundedToWholePercents) {
  progress.ShowProgress(0);
  progress.UpdateProgress(u"", u"", u"", 1, 3, u"");
  EXPECT_EQ(progress.Current()->BarText(), u"33% completed");
  progress.UpdateProgress(u"", u"", u"", 2, 3, u"");
  EXPECT_EQ(progress.Current()->BarText(), u"67% completed");
}

TEST_F(Progress, EachUpdateIsDrawnAndLetsEventsThrough) {
  progress.ShowProgress(0);
  host.told.clear();
  progress.UpdateProgress(u"", u"", u"", 1, 3, u"");
  EXPECT_EQ(host.told, (Told{"repaint frmProgressForm"}));
  EXPECT_EQ(host.events, 1);
}

TEST_F(Progress, ClosingHidesUnloadsAndForgetsTheForm) {
  progress.ShowProgress(0);
  host.told.clear();
  progress.CloseProgress();
  EXPECT_EQ(host.told, (Told{"hidden frmProgressForm", "unloaded frmProgressForm"}));
  EXPECT_EQ(progress.Current(), nullptr);
}

TEST_F(Progress, ClosingAndUpdatingWithoutAFormDoNothing) {
  progress.CloseProgress();
  progress.UpdateProgress(u"one", u"", u"", 1, 3, u"");
  EXPECT_TRUE(host.told.empty());
}

TEST_F(Progress, ShowingASecondTimeReplacesTheForm) {
  progress.ShowProgress(0);
  progress.UpdateProgress(u"first", u"", u"", 1, 2, u"");
  progress.ShowProgress(0);
  EXPECT_EQ(progress.Current()->lblLabel1.Caption(), u"");
  EXPECT_TRUE(progress.Current()->Visible());
}

TEST(Preparing, TheFormWorksWhenActivatedAndClosesItself) {
  QuietHost host;
  bool visible = false;
  frmKVXProgressFormKVXPreparing* shown = nullptr;
  frmKVXProgressFormKVXPreparing form(host, [&] { visible = shown->Visible(); });
  shown = &form;
  host.ShowModal(form);
  EXPECT_TRUE(visible);
  EXPECT_FALSE(form.Visible());
}

TEST(Preparing, AnErrorOfTheWorkLeavesThroughTheShowAndTheFormIsClosed) {
  QuietHost host;
  frmKVXProgressFormKVXPreparing form(host, [] { throw word::HostError(word::kCommandFailed, u"no", "x"); });
  EXPECT_THROW(host.ShowModal(form), word::HostError);
  EXPECT_FALSE(form.Visible());
}

}  // namespace
