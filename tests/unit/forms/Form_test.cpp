#include <gtest/gtest.h>

#include <memory>

#include "tests/unit/forms/SampleForm.h"

namespace {

using Told = std::vector<std::string>;

TEST(Form, LoadingShowingHidingAndUnloadingAreSeparateSteps) {
  QuietHost host;
  SampleForm form(host);
  form.Load();
  EXPECT_TRUE(form.Loaded());
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(form.Take(), "load");
  form.Shown();
  EXPECT_TRUE(form.Visible());
  form.Hide();
  EXPECT_TRUE(form.Loaded());
  form.Unload();
  EXPECT_FALSE(form.Loaded());
  EXPECT_EQ(host.told, (Told{"loaded SampleForm", "hidden SampleForm", "unloaded SampleForm"}));
}

TEST(Form, LoadingTwiceAndHidingTwiceHappenOnce) {
  QuietHost host;
  SampleForm form(host);
  form.Load();
  form.Load();
  EXPECT_EQ(form.Take(), "load");
  form.Shown();
  form.Hide();
  form.Hide();
  EXPECT_EQ(host.told, (Told{"loaded SampleForm", "hidden SampleForm"}));
}

TEST(Form, ControlsKeepTheirValuesWhenTheFormIsUnloaded) {
  ShownSample sample;
  sample.form.txtName.SetText(u"Buyer");
  sample.form.Unload();
  EXPECT_EQ(sample.form.txtName.Text(), u"Buyer");
}

TEST(Form, UnloadingByCodeSaysSoAndHidesFirst) {
  ShownSample sample;
  sample.host.told.clear();
  sample.form.Unload();
  EXPECT_EQ(sample.form.Take(), "unload by code");
  EXPECT_EQ(sample.host.told, (Told{"hidden SampleForm", "unloaded SampleForm"}));
}

TEST(Form, TheCloseBoxUnloadsByControlMenuUnlessItWasTakenAway) {
  ShownSample sample;
  sample.form.TakeCloseBoxAway();
  EXPECT_FALSE(sample.form.UserClose());
  EXPECT_TRUE(sample.form.Visible());

  ShownSample other;
  EXPECT_TRUE(other.form.UserClose());
  EXPECT_EQ(other.form.Take(), "unload by control menu");
  EXPECT_FALSE(other.form.Loaded());
  EXPECT_FALSE(other.form.UserClose());
}

TEST(Form, AFormThatIsDestroyedShowsItsHostNoControlsAnyMore) {
  class LateHost : public QuietHost {
   public:
    void Unloaded(forms::Form& form) override {
      QuietHost::Unloaded(form);
      const bool any =
          form.ActiveControl() != nullptr || form.DefaultButton() != nullptr || form.CancelButton() != nullptr;
      told.push_back(any || !form.Controls().empty() ? "with controls" : "without controls");
    }
  };
  LateHost host;
  {
    SampleForm form(host);
    host.ShowModeless(form);
  }
  EXPECT_EQ(host.told.back(), "without controls");
}

TEST(Form, AFormThatIsDestroyedWhileLoadedTellsItsHost) {
  QuietHost host;
  auto form = std::make_unique<SampleForm>(host);
  host.ShowModeless(*form);
  host.told.clear();
  form.reset();
  EXPECT_EQ(host.told, (Told{"unloaded SampleForm"}));
}

TEST(Form, TheFirstControlInLayoutOrderGetsTheFocusAfterActivation) {
  QuietHost host;
  SampleForm form(host);
  host.ShowModeless(form);
  EXPECT_EQ(form.Take(), "load; activate; got txtName");
}

TEST(Form, TabFollowsTheLayoutAndSkipsWhatCannotBeUsed) {
  ShownSample sample;
  sample.form.chkBox.SetEnabled(false);
  sample.form.optKind[1].SetValue(true);
  sample.form.txtName.UserKey(9);
  EXPECT_EQ(sample.form.ActiveControl(), &sample.form.optKind[1]);
  sample.form.UserTab(1);
  EXPECT_EQ(sample.form.ActiveControl(), &sample.form.txtFixed);
  sample.form.UserTab(-1);
  EXPECT_EQ(sample.form.ActiveControl(), &sample.form.optKind[1]);
  sample.form.UserTab(-1);
  sample.form.UserTab(-1);
  EXPECT_EQ(sample.form.ActiveControl(), &sample.form.cmdCancel);
  sample.form.UserTab(1);
  EXPECT_EQ(sample.form.ActiveControl(), &sample.form.txtName);
}

TEST(Form, AllOptionsOfAGroupAreTabStopsWhileNoneIsChosen) {
  ShownSample sample;
  sample.form.chkBox.SetFocus();
  sample.form.UserTab(1);
  EXPECT_EQ(sample.form.ActiveControl(), &sample.form.optKind[0]);
  sample.form.UserTab(1);
  EXPECT_EQ(sample.form.ActiveControl(), &sample.form.optKind[1]);
}

TEST(Form, AHandlerThatSendsTheFocusElsewhereWins) {
  ShownSample sample;
  sample.form.chkBox.onGotFocus = [&] { sample.form.cmdOK.SetFocus(); };
  EXPECT_TRUE(sample.form.chkBox.UserFocus());
  EXPECT_EQ(sample.form.ActiveControl(), &sample.form.cmdOK);
}

TEST(Form, AControlThatTheFocusPassesByIsNotToldThatItHasIt) {
  ShownSample sample;
  sample.form.txtName.onLostFocus = [&] { sample.form.cmdOK.SetFocus(); };
  EXPECT_TRUE(sample.form.chkBox.UserFocus());
  EXPECT_EQ(sample.form.ActiveControl(), &sample.form.cmdOK);
  EXPECT_EQ(sample.form.Take(), "lost chkBox to cmdOK; got cmdOK");
}

TEST(Form, HelpOnAControlGivesItTheFocus) {
  ShownSample sample;
  EXPECT_TRUE(sample.form.UserHelp(sample.form.chkBox));
  EXPECT_EQ(sample.form.Take(), "lost txtName to chkBox; got chkBox; help chkBox");
  sample.form.chkBox.SetVisible(false);
  EXPECT_FALSE(sample.form.UserHelp(sample.form.chkBox));
}

TEST(Form, TheListenerHearsOfEveryChangeOfStateAndOfNothingElse) {
  class Ear : public forms::Form::Listener {
   public:
    void Changed(forms::Form&, forms::Control* control) override {
      heard.push_back(control == nullptr ? "form" : control->Name());
    }
    std::vector<std::string> heard;
  };
  ShownSample sample;
  Ear ear;
  sample.form.SetListener(&ear);
  sample.form.SetCaption(u"Other");
  sample.form.chkBox.SetEnabled(false);
  sample.form.chkBox.SetEnabled(false);
  sample.form.lblText.SetCaption(u"text");
  sample.form.lblText.SetWidth(5);
  sample.form.sbrStatus.SetSimpleText(u"busy");
  sample.form.lstItems.AddItem(u"a");
  sample.form.optKind[0].SetValue(true);
  sample.form.optKind[1].SetValue(true);
  EXPECT_EQ(ear.heard, (std::vector<std::string>{"form", "chkBox", "lblText", "lblText", "sbrStatus", "lstItems",
                                                 "optKind", "optKind", "optKind"}));
  sample.form.SetListener(nullptr);
}

TEST(Form, FindKnowsElementsOfArraysByTheirNumber) {
  ShownSample sample;
  EXPECT_EQ(sample.form.Find("optKind", 1), &sample.form.optKind[1]);
  EXPECT_EQ(sample.form.Find("optKind"), nullptr);
  EXPECT_EQ(sample.form.Find("chkBox"), &sample.form.chkBox);
  EXPECT_EQ(sample.form.Find("nothing"), nullptr);
}

TEST(Layout, FramesBecomeTheParentsOfWhatStandsInThem) {
  ShownSample sample;
  EXPECT_EQ(sample.form.chkBox.Parent(), &sample.form.fraOuter);
  EXPECT_EQ(sample.form.optKind[0].Parent(), &sample.form.fraOuter);
  EXPECT_EQ(sample.form.cmdOK.Parent(), nullptr);
}

TEST(Layout, TheInnerFrameIsTheParentOfWhatStandsInIt) {
  QuietHost host;
  SampleForm form(host);
  forms::Frame inner(form, "inner");
  const forms::LayoutNode node = forms::Framed(form.fraOuter, {forms::Framed(inner, {forms::Item(form.chkBox)})});
  EXPECT_EQ(form.chkBox.Parent(), &inner);
  EXPECT_EQ(inner.Parent(), &form.fraOuter);
  EXPECT_EQ(node.control, &form.fraOuter);
}

}  // namespace
