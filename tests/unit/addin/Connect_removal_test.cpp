#include <gtest/gtest.h>

#include "addin/Connect.h"
#include "tests/fakes/FakeHost.h"

namespace {

class Commands : public testing::Test {
 protected:
  Commands() { connect.OnConnection(host.word.MakeApplication(), ConnectMode::kStartup); }

  fakes::FakeHost host;
  Connect connect{host.Make()};
};

TEST_F(Commands, WithoutADocumentNothingIsTouched) {
  connect.OnStartupComplete();
  host.word.hasDocument = false;
  EXPECT_TRUE(connect.RemoveIndexing());
  EXPECT_TRUE(connect.RemoveHighlighting());
  EXPECT_TRUE(connect.UpdateIndexField());
  EXPECT_TRUE(host.log.calls.empty());
}

TEST_F(Commands, AnAddInThatWasLoadedLaterMakesTheCompanionForThem) {
  EXPECT_TRUE(connect.RemoveIndexing());
  EXPECT_EQ(host.markersMade, 1);
  EXPECT_TRUE(host.log.Contains("RemoveTermHighlighting"));
}

TEST_F(Commands, UpdatingNeedsNoCompanion) {
  host.processes.names = {u"winword.exe", u"winword.exe"};
  host.messages.Expect(u"Update only?", os::Pressed::kYes);
  host.messages.Expect(u"No defined terms index found");
  EXPECT_TRUE(connect.UpdateIndexField());
  EXPECT_EQ(host.markersMade, 0);
}

TEST_F(Commands, WithoutACompanionRemovalShowsAnError) {
  host.processes.names = {u"winword.exe", u"winword.exe"};
  host.messages.Expect(u"Remove indexing");
  EXPECT_FALSE(connect.RemoveIndexing());
  host.messages.Expect(u"Remove highlighting only");
  EXPECT_FALSE(connect.RemoveHighlighting());
}

TEST_F(Commands, TheIndexStartOfAConfirmedRunGoesWithTheIndex) {
  connect.OnStartupComplete();
  host.forms.On("frmKVXOptions", [](fakes::FormDriver& d) { d.Click("cmdOK"); });
  host.forms.On("frmKVX_COM", [](fakes::FormDriver& d) { d.Click("cmdCancel"); });
  connect.ShowKVXForm();
  host.word.bookmarks[u"IndexBKStart"] = {0, 0, 0};
  EXPECT_TRUE(connect.RemoveIndexing());
  EXPECT_EQ(host.word.bookmarks.count(u"IndexBKStart"), 0u);
}

TEST_F(Commands, NoneRunsWhileTermsAreIndexed) {
  connect.OnStartupComplete();
  host.forms.On("frmKVXOptions", [this](fakes::FormDriver& d) {
    host.log.calls.clear();
    EXPECT_FALSE(connect.RemoveIndexing());
    EXPECT_FALSE(connect.RemoveHighlighting());
    EXPECT_FALSE(connect.UpdateIndexField());
    EXPECT_TRUE(host.log.calls.empty());
    d.Click("cmdCancel");
  });
  connect.ShowKVXForm();
}

}  // namespace
