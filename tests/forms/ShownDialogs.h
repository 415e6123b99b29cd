#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "addin/WorkProgressForm.h"
#include "dialogs/frmKVXOptions.h"
#include "dialogs/frmKVX_COM.h"
#include "platform/os/Messages.h"
#include "settings/OptionSettings.h"
#include "tests/fakes/FakeHost.h"

/// The dialogs in the windows of a host, over a Word and a system in memory.
class ShownDialogs : public ::testing::Test {
 protected:
  /// @param forms, boxes outlive this
  ShownDialogs(forms::FormHost& forms, os::Messages& boxes);

  frmKVXOptions& MakeOptions();
  frmKVX_COM& MakeTerms(const std::vector<std::u16string>& found = {});
  /// Something of every kind that code changes in a form. @param form with three terms found
  static void ChangeByCode(frmKVX_COM& form);

  /// Shows a form modally, works while it is there, and hides it.
  virtual void ShowFor(forms::Form& form, const std::function<void()>& work) = 0;

  /// @param name tells apart what one form shows at different times
  using Look = std::function<void(forms::Form& form, const std::string& name)>;
  /// Shows every form that there is, with something in it, and looks at it.
  void InEachForm(const Look& look);
  /// How often it looks.
  static constexpr int kLooks = 15;

  /// A message as the system shows it.
  struct Message {
    std::string name;
    os::Icon icon;
    os::Buttons buttons;
    std::u16string title;
    std::u16string text;
  };
  /// One with each icon.
  static const std::vector<Message>& Messages();

  fakes::FakeHost fake;
  Host services;
  modIniFile ini{fake.profile, fake.files};
  std::unique_ptr<frmKVXOptions> options;
  std::unique_ptr<frmKVX_COM> terms;

 private:
  void ShowPrompts(const Look& look);
  void ShowProgress(const Look& look);
  void ShowAtWork(WorkProgressForm& form, std::u16string_view task);
};
