#include "addin/Connect.h"

#include <gtest/gtest.h>

#include "tests/fakes/FakeHost.h"

namespace {

class FirstRun : public testing::Test {
 protected:
  FirstRun() {
    connect.OnConnection(host.word.MakeApplication(), ConnectMode::kStartup);
    connect.OnStartupComplete();
  }
  void CancelOptions(const fakes::FakeFormHost::Script& look = {}) {
    host.forms.On("frmKVXOptions", [look](fakes::FormDriver& d) {
      if (look) look(d);
      d.Click("cmdCancel");
    });
  }
  /// The forms that were shown, in their order.
  std::vector<std::string> Shown() const {
    std::vector<std::string> names;
    for (const std::string& call : host.log.calls) {
      if (call.starts_with("show ")) names.push_back(call.substr(5));
    }
    return names;
  }

  fakes::FakeHost host;
  Connect connect{host.Make()};
};

}  // namespace

TEST_F(FirstRun, ThePromptsComeAfterTheSettingsAreCompleteAndBeforeTheOptions) {
  host.forms.On("frmKVXSearchChooser", [this](fakes::FormDriver& d) {
    EXPECT_EQ(host.profile.written.size(), 16U);
    d.Click("cmdCancel");
  });
  host.forms.On("frmKVXFormatInstrux", [](fakes::FormDriver& d) { d.Click("cmdOK"); });
  host.forms.On("frmKVXShowHelp", [](fakes::FormDriver& d) { d.Click("cmdNo"); });
  CancelOptions();
  connect.ShowKVXForm();
  EXPECT_EQ(Shown(), (std::vector<std::string>{"frmKVXSearchChooser", "frmKVXFormatInstrux", "frmKVXShowHelp",
                                               "frmKVXOptions"}));
}

TEST_F(FirstRun, TheChosenSearchTypeShowsInTheOptions) {
  host.forms.On("frmKVXSearchChooser", [](fakes::FormDriver& d) {
    d.Click("optSearchType", 1);
    d.Click("cmdOK");
  });
  CancelOptions([](fakes::FormDriver& d) {
    EXPECT_TRUE(d.At<forms::OptionButton>("optSearchType", 1).Value());
    EXPECT_FALSE(d.At("cmbOpenQuote").Enabled());
  });
  connect.ShowKVXForm();
}

TEST_F(FirstRun, APromptThatWasSwitchedOffDoesNotComeAgain) {
  host.forms.On("frmKVXSearchChooser", [](fakes::FormDriver& d) {
    d.Tick("chkDontShow", 1);
    d.Click("cmdOK");
  });
  host.forms.On("frmKVXFormatInstrux", [](fakes::FormDriver& d) {
    d.Tick("chkDontShow", 1);
    d.Click("cmdOK");
  });
  host.forms.On("frmKVXShowHelp", [](fakes::FormDriver& d) {
    d.Tick("chkDontShow", 1);
    d.Click("cmdYes");
  });
  CancelOptions();
  connect.ShowKVXForm();
  ASSERT_EQ(host.help.shown.size(), 1U);
  EXPECT_EQ(host.help.shown[0].file, u"C:\\Kelvarin\\\\Kelvarin3Help.chm");
  EXPECT_EQ(host.help.shown[0].command, 15);
  EXPECT_EQ(host.help.shown[0].data, 7);
  EXPECT_EQ(host.help.shown[0].owner, fakes::FakeFormHost::kWindow);

  host.log.calls.clear();
  for (const char* name : {"frmKVXSearchChooser", "frmKVXFormatInstrux", "frmKVXShowHelp"}) {
    host.forms.passOver.erase(name);
  }
  CancelOptions();
  connect.ShowKVXForm();
  EXPECT_EQ(Shown(), (std::vector<std::string>{"frmKVXOptions"}));
}

TEST_F(FirstRun, WithoutUsableSettingsNoPromptComes) {
  host.forms.passOver.clear();
  host.folders.applicationData = u"Z:\\Nowhere";
  host.messages.Expect(u"Find and index");
  connect.ShowKVXForm();
  EXPECT_EQ(Shown(), std::vector<std::string>{});
}

TEST_F(FirstRun, SettingsThatCannotBeReadAfterThePromptsEndTheRun) {
  host.forms.On("frmKVXSearchChooser", [](fakes::FormDriver& d) {
    d.Click("optSearchType", 1);
    d.Click("cmdOK");
  });
  host.forms.On("frmKVXShowHelp", [this](fakes::FormDriver& d) {
    d.Click("cmdNo");
    host.files.unreadable.insert(u"C:\\Data\\Brantholt\\Kelvarin\\kvx.ini");
  });
  host.messages.Expect(u"Ini file problem");
  connect.ShowKVXForm();
  EXPECT_EQ(Shown(), (std::vector<std::string>{"frmKVXSearchChooser", "frmKVXShowHelp"}));
  EXPECT_EQ(host.log.Count("unload frmKVXOptions"), 1);
  EXPECT_TRUE(host.word.bookmarks.empty());
}

TEST_F(FirstRun, CancellingTheChooserGoesOn) {
  host.forms.On("frmKVXSearchChooser", [](fakes::FormDriver& d) { d.Click("cmdCancel"); });
  CancelOptions([](fakes::FormDriver& d) { EXPECT_TRUE(d.At<forms::OptionButton>("optSearchType", 0).Value()); });
  connect.ShowKVXForm();
}
