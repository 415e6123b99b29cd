#include "addin/Connect.h"

#include <gtest/gtest.h>

#include "tests/fakes/FakeHost.h"

namespace {

class AddIn : public testing::Test {
 protected:
  void Start() {
    connect.OnConnection(host.word.MakeApplication(), ConnectMode::kStartup);
    connect.OnStartupComplete();
  }
  std::u16string DisplayOnConnect() { return host.userSettings.Read(u"Settings", u"DisplayOnConnect", u"missing"); }
  /// A run in which the user cancels the terms dialog.
  void OpenTermsDialog() {
    host.forms.On("frmKVXOptions", [](fakes::FormDriver& d) { d.Click("cmdOK"); });
    host.forms.On("frmKVX_COM", [](fakes::FormDriver& d) { d.Click("cmdCancel"); });
    connect.ShowKVXForm();
  }

  fakes::FakeHost host;
  Connect connect{host.Make()};
};

}  // namespace

TEST_F(AddIn, TheCompanionIsMadeWhenWordHasStarted) {
  connect.OnConnection(host.word.MakeApplication(), ConnectMode::kStartup);
  EXPECT_EQ(host.markersMade, 0);
  connect.OnStartupComplete();
  EXPECT_EQ(host.markersMade, 1);
}

TEST_F(AddIn, ASecondWordProcessMakesNoCompanionAndWritesNothing) {
  host.processes.names = {u"C:\\Office\\WINWORD.EXE", u"C:\\Office\\winword.exe"};
  Start();
  EXPECT_EQ(host.markersMade, 0);
  connect.OnDisconnection(DisconnectMode::kHostShutdown);
  EXPECT_EQ(DisplayOnConnect(), u"missing");
}

TEST_F(AddIn, OnlyProgramsOfThatVeryNameCountAsWord) {
  host.processes.names = {u"C:\\Office\\WinWord.exe", u"C:\\winword.exe\\other.exe", u"C:\\notwinword.exe", u"",
                          u"winword.exe"};
  EXPECT_EQ(connect.CountWinwordProcesses(), 2);
}

TEST_F(AddIn, ClosingWordWithoutTheTermsDialogWritesZero) {
  Start();
  connect.OnDisconnection(DisconnectMode::kHostShutdown);
  EXPECT_EQ(DisplayOnConnect(), u"0");
}

TEST_F(AddIn, ClosingWordAfterTheTermsDialogWasOpenedWritesOne) {
  Start();
  OpenTermsDialog();
  connect.OnDisconnection(DisconnectMode::kUserClosed);
  EXPECT_EQ(DisplayOnConnect(), u"1");
}

TEST_F(AddIn, TheFlagIsClearedWhenItHasBeenWritten) {
  Start();
  OpenTermsDialog();
  connect.OnDisconnection(DisconnectMode::kUserClosed);
  Start();
  connect.OnDisconnection(DisconnectMode::kUserClosed);
  EXPECT_EQ(DisplayOnConnect(), u"0");
}

TEST_F(AddIn, StartupReadsWhetherTheDialogWasOpened) {
  Start();
  EXPECT_FALSE(connect.DialogOpenedLastTime());
  host.userSettings.Write(u"Settings", u"DisplayOnConnect", u"1");
  connect.OnStartupComplete();
  EXPECT_TRUE(connect.DialogOpenedLastTime());
}

TEST_F(AddIn, TheStartupFolderEndsInASeparator) {
  Start();
  EXPECT_EQ(connect.StartupFolder(), u"C:\\Word\\Startup\\");
}

TEST_F(AddIn, ACompanionThatCannotBeMadeIsReported) {
  Host broken = host.Make();
  broken.createTermMarker = []() -> std::unique_ptr<TermMarker> {
    throw word::HostError(429, u"ActiveX component can't create object", "TermMarker");
  };
  Connect other(broken);
  host.messages.Expect(u"Completing startup");
  other.OnConnection(host.word.MakeApplication(), ConnectMode::kStartup);
  other.OnStartupComplete();
  EXPECT_EQ(host.messages.shown.at(0).text, u"Error: 429 ActiveX component can't create object");
}

TEST_F(AddIn, LoadedLaterItMakesTheCompanionForItsFirstRun) {
  connect.OnConnection(host.word.MakeApplication(), ConnectMode::kAfterStartup);
  OpenTermsDialog();
  EXPECT_EQ(host.markersMade, 1);
}

TEST_F(AddIn, ARunInASecondWordProcessGoesAsFarAsItsSearch) {
  host.processes.names = {u"C:\\Office\\WINWORD.EXE", u"C:\\Office\\WINWORD.EXE"};
  Start();
  host.forms.On("frmKVXOptions", [](fakes::FormDriver& d) { d.Click("cmdOK"); });
  host.messages.Expect(u"Find and index");
  connect.ShowKVXForm();
  EXPECT_EQ(host.messages.shown.at(0).text, u"Error: 91 Object variable or With block variable not set");
  EXPECT_EQ(host.markersMade, 0);
  EXPECT_EQ(host.log.CountBeginning("Options."), 0);
  EXPECT_EQ(host.log.Count("show frmKVX_COM"), 0);
  EXPECT_TRUE(host.word.bookmarks.empty());
}

TEST_F(AddIn, InASecondWordProcessTheOptionsCanBeCancelled) {
  host.processes.names = {u"C:\\Office\\WINWORD.EXE", u"C:\\Office\\WINWORD.EXE"};
  Start();
  host.forms.On("frmKVXOptions", [](fakes::FormDriver& d) { d.Click("cmdCancel"); });
  connect.ShowKVXForm();
  EXPECT_TRUE(host.messages.shown.empty());
  EXPECT_EQ(host.markersMade, 0);
}

TEST_F(AddIn, InASecondWordProcessATermsDialogWithoutASearchIsNotShownEither) {
  host.processes.names = {u"C:\\Office\\WINWORD.EXE", u"C:\\Office\\WINWORD.EXE"};
  Start();
  host.profile.Write(u"Defaults", u"SearchType", u"Anything", u"C:\\Data\\Brantholt\\Kelvarin\\kvx.ini");
  host.forms.On("frmKVXOptions", [](fakes::FormDriver& d) { d.Click("cmdOK"); });
  host.messages.Expect(u"Find and index");
  connect.ShowKVXForm();
  EXPECT_EQ(host.log.Count("show frmKVX_COM"), 0);
  EXPECT_TRUE(host.word.bookmarks.empty());
}
