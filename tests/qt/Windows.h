#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>

#include "addin/clsProgForm.h"
#include "dialogs/frmKVXOptions.h"
#include "dialogs/frmKVX_COM.h"
#include "engine/modKVX.h"
#include "hosts/qt/QtMessages.h"
#include "hosts/qt/forms/QtFormHost.h"
#include "settings/OptionSettings.h"
#include "tests/fakes/FakeHost.h"
#include "tests/qt/Person.h"
#include "tests/qt/ShownForm.h"

/// The dialogs in real windows, over a Word and a system in memory.
class Windows : public ::testing::Test {
 protected:
  Windows() { ini.IniFilePath = u"C:\\Data\\kvx.ini"; }

  frmKVXOptions& MakeOptions() {
    options = std::make_unique<frmKVXOptions>(services, ini);
    options->Load();
    EXPECT_TRUE(LoadSettingsIntoDialog(ini, messages, options->Options()));
    return *options;
  }

  frmKVX_COM& MakeTerms(const std::vector<std::u16string>& found = {}) {
    terms = std::make_unique<frmKVX_COM>(services, ini);
    EXPECT_TRUE(LoadSettingsIntoDialog(ini, messages, terms->Options()));
    terms->Load();
    for (const std::u16string& term : found) {
      terms->lstTermsInDoc.AddItem(term);
      terms->lstTermsInDoc.SetSelected(terms->lstTermsInDoc.ListCount() - 1, true);
    }
    terms->SetHorizontalExtent(terms->lstTermsInDoc);
    return *terms;
  }

  /// Shows a form modally while the person works in it.
  void Show(forms::Form& form, Person::Answer answer) {
    person.Expect([&form, answer = std::move(answer)](QWidget& window) {
      EXPECT_EQ(window.objectName().toStdString(), form.Name());
      answer(window);
      if (form.Visible()) form.Hide();
    });
    windows.ShowModal(form);
  }

  fakes::FakeHost fake;
  qt::QtFormHost windows;
  qt::QtMessages messages{windows};
  Host services{fake.Make(windows, messages)};
  modIniFile ini{fake.profile, fake.files};
  Person person;
  std::unique_ptr<frmKVXOptions> options;
  std::unique_ptr<frmKVX_COM> terms;
};
