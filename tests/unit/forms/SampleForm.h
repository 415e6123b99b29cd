#pragma once

#include <string>
#include <vector>

#include "platform/forms/Control.h"
#include "platform/forms/Form.h"
#include "platform/forms/FormHost.h"

/// Shows forms nowhere and remembers what it was told.
class QuietHost : public forms::FormHost {
 public:
  void ShowModal(forms::Form& form) override { ShowModeless(form); }
  void ShowModeless(forms::Form& form) override {
    form.Load();
    form.Shown();
  }
  void Loaded(forms::Form& form) override { told.push_back("loaded " + form.Name()); }
  void Hidden(forms::Form& form) override { told.push_back("hidden " + form.Name()); }
  void Unloaded(forms::Form& form) override { told.push_back("unloaded " + form.Name()); }
  void Repaint(forms::Form& form) override { told.push_back("repaint " + form.Name()); }
  void DoEvents() override { ++events; }
  int TextWidth(forms::Form&, std::u16string_view text) override { return static_cast<int>(text.size()); }
  void SetHorizontalExtent(forms::Form&, std::string_view, int) override {}
  std::intptr_t RemoveCloseBox(std::u16string_view) override { return 0; }
  std::intptr_t WindowHandle(forms::Form&) override { return 0; }

  std::vector<std::string> told;
  int events{0};
};

/// One control of each kind, with a log of their events.
class SampleForm : public forms::Form {
 public:
  explicit SampleForm(forms::FormHost& host) : Form(host, "SampleForm") {
    for (forms::Control* control : Controls()) Watch(*control);
  }

  forms::Frame fraOuter{*this, "fraOuter"};
  forms::TextBox txtName{*this, "txtName"};
  forms::TextBox txtFixed{*this, "txtFixed", true};
  forms::CheckBox chkBox{*this, "chkBox"};
  forms::OptionButtons<2> optKind{*this, "optKind"};
  forms::ComboBox cmbCode{*this, "cmbCode"};
  forms::ListBox lstItems{*this, "lstItems"};
  forms::TextBox txtNumber{*this, "txtNumber"};
  forms::UpDown updNumber{*this, "updNumber", txtNumber, 1, 4};
  forms::TabStrip tbcPages{*this, "tbcPages", {u"First", u"Second"}};
  forms::Label lblText{*this, "lblText"};
  forms::LinkLabel lblLink{*this, "lblLink"};
  forms::Button cmdOK{*this, "cmdOK"};
  forms::Button cmdCancel{*this, "cmdCancel"};
  forms::StatusBar sbrStatus{*this, "sbrStatus"};
  forms::Menu mnuMain{*this, "mnuMain"};
  forms::MenuItem mnuItem{*this, "mnuItem", mnuMain};

  std::vector<std::string> events;
  std::string Take() {
    std::string all;
    for (const std::string& event : events) all += (all.empty() ? "" : "; ") + event;
    events.clear();
    return all;
  }

 protected:
  forms::Layout MakeLayout() override {
    using namespace forms;
    SetCaption(u"Sample");
    chkBox.SetCaption(u"&Box");
    SetDefaultButton(&cmdOK);
    SetCancelButton(&cmdCancel);
    return Column({Framed(fraOuter, {Item(txtName), Row({Item(chkBox), Item(optKind[0]), Item(optKind[1])})}),
                   Item(txtFixed), Item(cmbCode), Item(lstItems), Item(txtNumber), Item(updNumber), Item(tbcPages),
                   Item(lblText), Item(lblLink), Buttons({Item(cmdOK), Item(cmdCancel)}), Item(sbrStatus)});
  }
  void OnLoad() override { events.emplace_back("load"); }
  void OnActivate() override { events.emplace_back("activate"); }
  void OnQueryUnload(forms::UnloadReason reason) override {
    events.emplace_back(reason == forms::UnloadReason::kCode ? "unload by code" : "unload by control menu");
  }
  void OnHelp(forms::Control& control) override { events.push_back("help " + control.Name()); }

 private:
  void Watch(forms::Control& control) {
    const std::string name =
        control.Index() < 0 ? control.Name() : control.Name() + "(" + std::to_string(control.Index()) + ")";
    control.onClick = [this, name] { events.push_back("click " + name); };
    control.onChange = [this, name] { events.push_back("change " + name); };
    control.onGotFocus = [this, name] { events.push_back("got " + name); };
    control.onLostFocus = [this, name] { events.push_back("lost " + name + " to " + ActiveControl()->Name()); };
  }
};

/// A sample form that is shown, its events so far forgotten. The focus is on txtName.
struct ShownSample {
  ShownSample() {
    host.ShowModeless(form);
    form.events.clear();
  }
  QuietHost host;
  SampleForm form{host};
};
