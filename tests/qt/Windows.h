#pragma once

#include <utility>

#include "addin/clsProgForm.h"
#include "engine/modKVX.h"
#include "hosts/qt/QtMessages.h"
#include "hosts/qt/forms/QtFormHost.h"
#include "tests/forms/ShownDialogs.h"
#include "tests/qt/Person.h"
#include "tests/qt/ShownForm.h"

/// Qt's windows and a person before them.
struct QtWindows {
  qt::QtFormHost windows;
  qt::QtMessages messages{windows};
  Person person;
};

/// The dialogs in Qt's windows.
class Windows : protected QtWindows, public ShownDialogs {
 protected:
  Windows() : ShownDialogs(QtWindows::windows, QtWindows::messages) {}

  void ShowFor(forms::Form& form, const std::function<void()>& work) override {
    Show(form, [&](QWidget&) { work(); });
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

  /// With the window of each form.
  void InEachWindow(const std::function<void(forms::Form& form, const std::string& name, QWidget& window)>& look) {
    InEachForm([&](forms::Form& form, const std::string& name) {
      QWidget* window = FindWindow(QString::fromStdString(form.Name()));
      ASSERT_NE(window, nullptr) << form.Name() << " is not there";
      look(form, name, *window);
    });
  }
};
