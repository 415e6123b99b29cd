#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "addin/clsProgForm.h"
#include "dialogs/KVXAddIn.h"
#include "dialogs/frmKVXOptions.h"
#include "dialogs/frmKVX_COM.h"
#include "engine/modKVX.h"
#include "hosts/unattended/FileAnswers.h"
#include "hosts/unattended/Transcript.h"
#include "hosts/unattended/UnattendedHost.h"
#include "hosts/unattended/UnattendedServices.h"
#include "settings/OptionSettings.h"
#include "tests/fakes/FakeServices.h"
#include "tests/fakes/FakeTermMarker.h"
#include "tests/fakes/FakeWord.h"

/// The add-in object as a dialog sees it, in the middle of a run.
class FakeAddIn : public KVXAddIn {
 public:
  FakeAddIn(fakes::FakeWord& word, TermMarker& marker, modKVX& engine, clsProgForm& progress)
      : word_(word), marker_(marker), engine_(engine), progress_(progress) {}
  word::ApplicationPtr WordApp() const override { return word_.MakeApplication(); }
  word::DocumentPtr ActiveIndexDocument() const override { return word_.MakeDocument(); }
  TermMarker& Marker() override { return marker_; }
  modKVX& Engine() override { return engine_; }
  clsProgForm& Progress() override { return progress_; }
  bool OptionsAccepted() const override { return optionsAccepted; }
  bool IndexStartMarked() const override { return indexStartMarked; }
  bool SavedReplaceQuotes() const override { return true; }

  bool optionsAccepted{true};
  bool indexStartMarked{true};

 private:
  fakes::FakeWord& word_;
  TermMarker& marker_;
  modKVX& engine_;
  clsProgForm& progress_;
};

/// Remembers how far lists scroll; a character is ten pixels wide.
class MeasuringHost : public unattended::UnattendedHost {
 public:
  using UnattendedHost::UnattendedHost;
  int TextWidth(forms::Form&, std::u16string_view text) override { return 10 * static_cast<int>(text.size()); }
  void SetHorizontalExtent(forms::Form&, std::string_view list, int width) override {
    extents.emplace_back(list, width);
  }
  /// In the order in which they were set.
  std::vector<std::pair<std::string, int>> extents;
};

/// Dialogs that a script answers, over a Word and a system in memory. A step that cannot be done, and a dialog that
/// comes out of turn or not at all, fail the test.
class Dialogs : public ::testing::Test, public unattended::UnattendedObserver {
 protected:
  struct Message {
    std::u16string title;
    std::u16string text;
    os::Icon icon;
  };

  Dialogs() { ini.IniFilePath = u"C:\\Data\\kvx.ini"; }

  /// Paths in answers and transcripts have the system's own form.
  static unattended::PathNames AsTheyAre() {
    const auto same = [](std::u16string_view path) { return std::u16string(path); };
    return {.toSystem = same, .toMachine = same};
  }

  /// @param answers the elements of the list of answers, as JSON
  void Answer(const std::string& answersJson) {
    answers = std::make_unique<unattended::FileAnswers>(
        unattended::ParseAnswers("{\"answers\":[" + answersJson + "]}").answers, true);
    AnswerWith(*answers);
  }

  void AnswerWith(unattended::DialogAnswers& source) {
    // Forms tell their host when they go.
    terms.reset();
    options.reset();
    addIn.reset();
    engine.reset();
    progress.reset();
    host = std::make_unique<MeasuringHost>(source, &transcript, this);
    desktop = std::make_unique<unattended::UnattendedServices>(source, &transcript, AsTheyAre());
    services.emplace(Host{*host,
                          *host,
                          profile,
                          files,
                          folders,
                          characters,
                          processes,
                          userSettings,
                          *desktop,
                          *desktop,
                          *desktop,
                          u"C:\\Kelvarin",
                          {}});
    progress = std::make_unique<clsProgForm>(*host);
    engine = std::make_unique<modKVX>(marker, *progress, characters, *host);
    addIn = std::make_unique<FakeAddIn>(word, marker, *engine, *progress);
  }

  /// The terms dialog as the run command hands it over, with these terms found. Needs Answer first.
  frmKVX_COM& MakeTerms(const std::vector<std::u16string>& found = {}) {
    terms = std::make_unique<frmKVX_COM>(*services, ini);
    EXPECT_TRUE(LoadSettingsIntoDialog(ini, *host, terms->Options()));
    terms->KVXAddIn = addIn.get();
    terms->Load();
    for (const std::u16string& term : found) {
      terms->lstTermsInDoc.AddItem(term);
      terms->lstTermsInDoc.SetSelected(terms->lstTermsInDoc.ListCount() - 1, true);
    }
    log.calls.clear();
    profile.written.clear();
    return *terms;
  }

  /// Answers and shows the terms dialog.
  frmKVX_COM& RunTerms(const std::vector<std::u16string>& found, const std::string& answersJson) {
    Answer(answersJson);
    frmKVX_COM& dialog = MakeTerms(found);
    ShowToItsEnd(dialog);
    return dialog;
  }

  /// Steps in the terms dialog, the first answer, then the others.
  frmKVX_COM& StepsInTerms(const std::vector<std::u16string>& found, const std::string& steps,
                           const std::string& otherAnswers = "") {
    return RunTerms(found,
                    R"({"form":"frmKVX_COM","do":[)" + steps + "]}" + (otherAnswers.empty() ? "" : "," + otherAnswers));
  }

  frmKVXOptions& StepsInOptions(const std::string& steps) {
    Answer(R"({"form":"frmKVXOptions","do":[)" + steps + "]}");
    options = std::make_unique<frmKVXOptions>(*services, ini);
    EXPECT_TRUE(LoadSettingsIntoDialog(ini, *host, options->Options()));
    profile.written.clear();
    ShowToItsEnd(*options);
    return *options;
  }

  void ShowToItsEnd(forms::Form& form) {
    host->ShowModal(form);
    if (!answers) return;
    answers->Finish();
    EXPECT_EQ(answers->Failure(), "");
  }

  std::vector<std::u16string> Entries(const forms::ListBox& list) const {
    std::vector<std::u16string> entries;
    for (int i = 0; i < list.ListCount(); ++i) entries.push_back((list.Selected(i) ? u"*" : u"") + list.List(i));
    return entries;
  }

  void MessageShown(std::u16string_view title, std::u16string_view text, os::Icon icon, os::Buttons,
                    os::Pressed) override {
    shown.push_back({std::u16string(title), std::u16string(text), icon});
  }

  using Extents = std::vector<std::pair<std::string, int>>;

  fakes::CallLog log;
  fakes::FakeWord word{log};
  fakes::FakeTermMarker marker{log};
  fakes::FakeFiles files;
  fakes::FakeProfile profile{files};
  fakes::FakeFolders folders;
  fakes::FakeCharacters characters;
  fakes::FakeProcesses processes;
  fakes::FakeUserSettings userSettings;
  modIniFile ini{profile, files};
  std::ostringstream transcriptText;
  unattended::Transcript transcript{transcriptText};
  std::vector<Message> shown;

  std::unique_ptr<unattended::FileAnswers> answers;
  std::unique_ptr<MeasuringHost> host;
  std::unique_ptr<unattended::UnattendedServices> desktop;
  std::optional<Host> services;
  std::unique_ptr<clsProgForm> progress;
  std::unique_ptr<modKVX> engine;
  std::unique_ptr<FakeAddIn> addIn;
  std::unique_ptr<frmKVX_COM> terms;
  std::unique_ptr<frmKVXOptions> options;
};
