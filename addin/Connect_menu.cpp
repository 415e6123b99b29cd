#include "addin/Connect.h"

#include "addin/modCommonErrorMsgs.h"
#include "platform/word/Application.h"
#include "platform/word/HostError.h"

#include <functional>
#include <utility>

namespace {

constexpr std::u16string_view kMenuTag = u"KVXMenu";
/// Word's own command, with and without an accelerator.
constexpr std::u16string_view kComAddIns = u"COM Add-Ins...";
constexpr std::u16string_view kComAddInsWithAccelerator = u"&COM Add-Ins...";
constexpr int kComAddInsId = 3754;

office::CommandBarControlsPtr Tools(const word::ApplicationPtr& application) {
  return application->CommandBars()->Item(u"Tools")->Controls();
}

/// The popup is temporary, but one can be left of a Word that did not end well.
void DeleteMenu(const word::ApplicationPtr& application) {
  const office::CommandBarControlsPtr controls = Tools(application);
  for (int i = controls->Count(); i >= 1; --i) {
    const office::CommandBarControlPtr control = controls->Item(i);
    if (control->Tag() == kMenuTag) control->Delete();
  }
}

/// Word's own command must not take the popup's accelerator, and has to be there.
void FixComAddInsCommand(const word::ApplicationPtr& application) {
  const office::CommandBarControlsPtr controls = Tools(application);
  bool there = false;
  for (int i = 1; i <= controls->Count(); ++i) {
    const office::CommandBarControlPtr control = controls->Item(i);
    if (control->Caption() == kComAddInsWithAccelerator) control->SetCaption(kComAddIns);
    if (control->Caption() == kComAddIns) there = true;
  }
  if (there) return;
  const office::CommandBarControlPtr builtIn = application->CommandBars()->FindControl(kComAddInsId);
  if (builtIn) controls->Add({.Type = builtIn->Type(), .Id = kComAddInsId});
}

}  // namespace

void Connect::AddMenu() {
  DeleteMenu(wordApp_);
  const office::CommandBarControlPtr popup = Tools(wordApp_)->Add({.Type = office::msoControlPopup, .Temporary = true});
  try {
    FillMenu(*popup);
  } catch (...) {
    // Half a menu is none, and without its tag nothing would find it again.
    IgnoreErrors([&popup] { popup->Delete(); });
    ReleaseButtons();
    throw;
  }
  FixComAddInsCommand(wordApp_);
}

void Connect::FillMenu(office::CommandBarControl& popup) {
  popup.SetBeginGroup(true);
  popup.SetCaption(u"&Kelvarin");
  popup.SetTag(kMenuTag);
  popup.SetVisible(true);

  const office::CommandBarControlsPtr commands = popup.Controls();
  const auto add = [&commands](std::u16string_view caption, std::u16string_view tag, std::function<void()> command) {
    office::CommandBarControlPtr button = commands->Add({.Type = office::msoControlButton});
    button->SetCaption(caption);
    button->SetTag(tag);
    button->SetClickHandler([run = std::move(command)](const office::CommandBarControlPtr&, bool&) { run(); });
    return button;
  };
  buttons_.mcbKVXIndexButton = add(u"&Find and index", u"KVXIndexTag", [this] { ShowKVXForm(); });
  buttons_.mcbKVXRemoveIndexButton = add(u"&Remove indexing", u"RemoveIndexTag", [this] { RemoveIndexing(); });
  buttons_.mcbKVXRemoveHighlightButton =
      add(u"Remove &highlighting only", u"RemoveHighlightTag", [this] { RemoveHighlighting(); });
  buttons_.mcbKVXUpdateButton = add(u"&Update index", u"UpdateTag", [this] { UpdateIndexField(); });
}

void Connect::RemoveMenu() {
  DeleteMenu(wordApp_);
  // So that Word does not ask the user about the changed menu.
  const word::CustomizationPtr customization = wordApp_->CustomizationContext();
  customization->Save();
  customization->SetSaved(true);
}

void Connect::ReleaseButtons() {
  for (office::CommandBarControlPtr* button : {&buttons_.mcbKVXIndexButton, &buttons_.mcbKVXRemoveIndexButton,
                                               &buttons_.mcbKVXRemoveHighlightButton, &buttons_.mcbKVXUpdateButton}) {
    if (!*button) continue;
    try {
      (*button)->SetClickHandler({});
    } catch (const word::HostError&) {
      // It has gone with its menu, and its handler with it.
    }
    button->reset();
  }
}
