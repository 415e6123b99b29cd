#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "addin/Connect.h"
#include "dialogs/frmKVX_COM.h"
#include "settings/Defaults.h"
#include "tests/fakes/FakeHost.h"

using Calls = std::vector<std::string>;

/// An add-in whose search for capitalised words answers as a test says, where it says so.
class TestConnect : public Connect {
 public:
  using Connect::Connect;
  std::optional<SearchResult> cappedResult{SearchResult::kGoOn};

 protected:
  SearchResult SearchCappedTerms(const word::DocumentPtr& document, frmKVX_COM& dialog) override {
    if (!cappedResult) return Connect::SearchCappedTerms(document, dialog);
    dialog.lstTermsInDoc.AddItem(u"Seller");
    return *cappedResult;
  }
};

class IndexerRun : public testing::Test {
 protected:
  IndexerRun() {
    host.word.stories[0].text = u"The \u201CSeller\u201D sells to the \u201CBuyer\u201D.\r";
    host.word.selection = {0, 4, 9};
    host.word.paneViewType = word::wdWebView;
    host.onInsertIndex = [this](const word::DocumentPtr&) { host.word.bookmarks[u"DefinedTermsIndex"] = {0, 4, 6}; };
  }
  void Run() {
    connect.OnConnection(host.word.MakeApplication(), ConnectMode::kStartup);
    connect.OnStartupComplete();
    host.log.calls.clear();
    connect.ShowKVXForm();
  }
  void AcceptOptions() {
    host.forms.On("frmKVXOptions", [](fakes::FormDriver& d) { d.Click("cmdOK"); });
  }
  void CancelOptions() {
    host.forms.On("frmKVXOptions", [](fakes::FormDriver& d) { d.Click("cmdCancel"); });
  }
  void InTermsDialog(fakes::FakeFormHost::Script script) { host.forms.On("frmKVX_COM", std::move(script)); }
  void AcceptTerms() {
    InTermsDialog([](fakes::FormDriver& d) { d.Click("cmdOK"); });
  }
  void CancelTerms() {
    InTermsDialog([](fakes::FormDriver& d) { d.Click("cmdCancel"); });
  }
  /// A settings file that holds the defaults but for what was set.
  void Set(std::u16string_view key, std::u16string_view value) {
    for (const SettingDefault& setting : kSettingDefaults) {
      const bool isSet = host.profile.values.contains({u"Defaults", std::u16string(setting.key)});
      if (!isSet) host.profile.Write(u"Defaults", setting.key, setting.value, kIni);
    }
    host.profile.Write(u"Defaults", key, value, kIni);
  }
  void HaveIndexAt(fakes::Place place) { host.word.bookmarks[u"DefinedTermsIndex"] = place; }
  /// The index goes where no cursor and no bookmark of the run stands.
  void InsertIndexBehindTheCursor() {
    host.onInsertIndex = [this](const word::DocumentPtr&) { HaveIndexAt({0, 12, 14}); };
  }
  bool Has(std::u16string_view bookmark) { return host.word.bookmarks.count(std::u16string(bookmark)) != 0; }
  void ExpectOnlyTheIndexBookmark() {
    EXPECT_EQ(host.word.bookmarks.size(), 1u);
    EXPECT_TRUE(Has(u"DefinedTermsIndex"));
  }
  void ExpectCursorAt(word::Position start) {
    EXPECT_EQ(host.word.selection.start, start);
    EXPECT_EQ(host.word.selection.end, start);
  }
  /// The log from the first entry that equals this on.
  Calls From(std::string_view first) {
    return {std::find(host.log.calls.begin(), host.log.calls.end(), first), host.log.calls.end()};
  }
  Calls Without(const Calls& calls, std::string_view beginning) {
    Calls rest;
    for (const std::string& call : calls) {
      if (!call.starts_with(beginning)) rest.push_back(call);
    }
    return rest;
  }

  static constexpr std::u16string_view kIni = u"C:\\Data\\Brantholt\\Kelvarin\\kvx.ini";
  fakes::FakeHost host;
  TestConnect connect{host.Make()};
};
