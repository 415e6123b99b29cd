#include "addin/Connect.h"

#include <gtest/gtest.h>

#include "platform/word/HostError.h"
#include "tests/fakes/FakeHost.h"

namespace {

class CommandMenu : public testing::Test {
 protected:
  void Start(ConnectMode mode = ConnectMode::kStartup) {
    connect->OnConnection(host.word.MakeApplication(), mode);
    connect->OnStartupComplete();
  }
  const std::vector<std::shared_ptr<menus::Item>>& Tools() { return host.word.menus.Tools(); }
  std::vector<std::u16string> Captions() {
    std::vector<std::u16string> captions;
    for (const auto& item : Tools()) captions.push_back(item->caption);
    return captions;
  }
  bool Click(std::size_t button) { return host.word.menus.Click(Tools().back()->items.at(button)); }
  void RunAsSecondWord() { host.processes.names = {u"C:\\Office\\WINWORD.EXE", u"C:\\Office\\WINWORD.EXE"}; }

  fakes::FakeHost host;
  std::unique_ptr<Connect> connect = std::make_unique<Connect>(host.Make());
};

using Texts = std::vector<std::u16string>;

}  // namespace

TEST_F(CommandMenu, ThePopupHasTheFourCommands) {
  Start();
  ASSERT_EQ(Tools().size(), 1U);
  const menus::Item& popup = *Tools()[0];
  EXPECT_EQ(popup.type, office::msoControlPopup);
  EXPECT_EQ(popup.caption, u"&Kelvarin");
  EXPECT_EQ(popup.tag, u"KVXMenu");
  EXPECT_TRUE(popup.beginGroup);
  EXPECT_TRUE(popup.visible);
  EXPECT_TRUE(popup.temporary);
  Texts captions;
  Texts tags;
  for (const auto& button : popup.items) {
    EXPECT_EQ(button->type, office::msoControlButton);
    captions.push_back(button->caption);
    tags.push_back(button->tag);
  }
  EXPECT_EQ(captions, (Texts{u"&Find and index", u"&Remove indexing", u"Remove &highlighting only", u"&Update index"}));
  EXPECT_EQ(tags, (Texts{u"KVXIndexTag", u"RemoveIndexTag", u"RemoveHighlightTag", u"UpdateTag"}));
}

TEST_F(CommandMenu, TheFirstButtonRunsFindAndIndex) {
  Start();
  host.forms.On("frmKVXOptions", [](fakes::FormDriver& d) { d.Click("cmdCancel"); });
  EXPECT_TRUE(Click(0));
  EXPECT_EQ(host.log.Count("show frmKVXOptions"), 1);
}

TEST_F(CommandMenu, TheOtherButtonsRemoveTheIndexRemoveHighlightingAndUpdate) {
  Start();
  EXPECT_TRUE(Click(1));
  EXPECT_EQ(host.log.CountBeginning("RemoveIndexEntries"), 1);
  EXPECT_EQ(host.log.Count("RemoveTermHighlighting"), 1);

  host.messages.Expect(u"Done");
  EXPECT_TRUE(Click(2));
  EXPECT_EQ(host.log.CountBeginning("RemoveIndexEntries"), 1);
  EXPECT_EQ(host.log.Count("RemoveTermHighlighting"), 2);
  EXPECT_EQ(host.messages.shown.back().text, u"Highlighting removed from indexed terms.");

  host.messages.Expect(u"Update only?", os::Pressed::kNo);
  EXPECT_TRUE(Click(3));
}

TEST_F(CommandMenu, AnEarlierPopupIsReplaced) {
  host.word.menus.AddBuiltIn({.type = office::msoControlPopup, .caption = u"Old", .tag = u"KVXMenu"});
  host.word.menus.AddBuiltIn({.caption = u"&Options..."});
  host.word.menus.AddBuiltIn({.type = office::msoControlPopup, .caption = u"Older", .tag = u"KVXMenu"});
  Start();
  EXPECT_EQ(Captions(), (Texts{u"&Options...", u"&Kelvarin"}));
}

TEST_F(CommandMenu, WordsOwnCommandLosesItsAccelerator) {
  host.word.menus.AddBuiltIn({.id = 3754, .caption = u"&COM Add-Ins..."});
  Start();
  EXPECT_EQ(Captions(), (Texts{u"COM Add-Ins...", u"&Kelvarin"}));
}

TEST_F(CommandMenu, WordsOwnCommandIsAddedWhereItIsMissing) {
  host.word.menus.AddElsewhere({.id = 3754, .caption = u"COM Add-Ins..."});
  Start();
  EXPECT_EQ(Captions(), (Texts{u"&Kelvarin", u"COM Add-Ins..."}));
  EXPECT_EQ(Tools()[1]->id, 3754);
}

TEST_F(CommandMenu, ASecondWordAddsNoMenuAndLeavesTheFirstOnesAlone) {
  Start();
  RunAsSecondWord();
  Connect second(host.Make());
  second.OnConnection(host.word.MakeApplication(), ConnectMode::kStartup);
  second.OnStartupComplete();
  EXPECT_EQ(Tools().size(), 1U);
  second.OnDisconnection(DisconnectMode::kHostShutdown);
  EXPECT_EQ(Tools().size(), 1U);
  EXPECT_FALSE(host.log.Contains("CustomizationContext.Save"));
  EXPECT_EQ(host.userSettings.Read(u"Settings", u"DisplayOnConnect", u"missing"), u"missing");
}

TEST_F(CommandMenu, WordThatIsDrivenFromOutsideGetsNoMenu) {
  Start(ConnectMode::kExternal);
  EXPECT_TRUE(Tools().empty());
}

TEST_F(CommandMenu, LoadedLaterOrFromTheCommandLineItAddsItsMenuToo) {
  for (const ConnectMode mode : {ConnectMode::kAfterStartup, ConnectMode::kCommandLine}) {
    connect->OnConnection(host.word.MakeApplication(), mode);
    EXPECT_EQ(Tools().size(), 1U);
    connect->OnDisconnection(DisconnectMode::kUserClosed);
  }
}

TEST_F(CommandMenu, DisconnectingTakesTheMenuAwayAndWordIsNotToAskAboutIt) {
  host.word.menus.AddBuiltIn({.caption = u"&Options..."});
  Start();
  connect->OnDisconnection(DisconnectMode::kHostShutdown);
  EXPECT_EQ(Captions(), (Texts{u"&Options..."}));
  const auto& calls = host.log.calls;
  ASSERT_GE(calls.size(), 2U);
  EXPECT_EQ(calls[calls.size() - 2], "CustomizationContext.Save");
  EXPECT_EQ(calls[calls.size() - 1], "CustomizationContext.Saved = True");
}

TEST_F(CommandMenu, AButtonThatOutlivesTheAddInDoesNothing) {
  Start();
  RunAsSecondWord();
  connect->OnDisconnection(DisconnectMode::kUserClosed);
  EXPECT_FALSE(Click(0));
  host.processes.names.pop_back();
  Start();
  connect.reset();
  EXPECT_FALSE(Click(0));
}

TEST_F(CommandMenu, AMenuThatCannotBeMadeIsReportedAndCommandsStillRun) {
  host.word.hasMenus = false;
  host.messages.Expect(u"Connecting to Word");
  Start();
  EXPECT_TRUE(host.messages.shown.at(0).text.starts_with(u"Error: 4605 "));
  host.forms.On("frmKVXOptions", [](fakes::FormDriver& d) { d.Click("cmdCancel"); });
  connect->ShowKVXForm();
}

TEST_F(CommandMenu, IsThereWholeOrNotAtAllWhicheverOfItsCallsFails) {
  int calls = 0;
  int all = 0;
  int without = 0;
  const auto start = [&](int failing) {
    fakes::FakeHost other;
    // Word's own command, which is to be added too.
    other.word.menus.AddElsewhere({.id = 3754, .caption = u"COM Add-Ins..."});
    other.word.onMenuCall = [&calls, failing] {
      if (++calls == failing)
        throw word::HostError(word::kMethodNotAvailable, u"This method is not available.", "Menu");
    };
    if (failing > 0) other.messages.Expect(u"Connecting to Word");
    calls = 0;
    Connect addIn(other.Make());
    addIn.OnConnection(other.word.MakeApplication(), ConnectMode::kStartup);
    all = calls;
    const auto& tools = other.word.menus.Tools();
    if (tools.empty()) {
      ++without;
      return;
    }
    EXPECT_EQ(tools[0]->tag, u"KVXMenu") << failing;
    EXPECT_TRUE(tools[0]->visible) << failing;
    ASSERT_EQ(tools[0]->items.size(), 4U) << failing;
    for (const auto& button : tools[0]->items) EXPECT_TRUE(button->onClick) << failing;
  };
  start(0);
  EXPECT_EQ(without, 0);
  const int last = all;
  for (int failing = 1; failing <= last; ++failing) start(failing);
  // Six calls make the popup, and four each of its buttons.
  EXPECT_GE(without, 6 + 4 * 4);
  EXPECT_LT(without, last);
}
