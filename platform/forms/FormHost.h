#pragma once

#include <cstdint>
#include <string_view>

namespace forms {

class Form;

/// Shows forms: as windows, or not at all while a script answers them. The form holds the truth; a host
/// mirrors it and reports a person's actions through the controls' User... members.
class FormHost {
 public:
  virtual ~FormHost() = default;

  /// Loads the form when it is not loaded, raises Activate, shows it and returns when it was hidden or unloaded.
  virtual void ShowModal(Form& form) = 0;
  /// Loads the form when it is not loaded, raises Activate and shows it; returns at once. Ends with Form::Hide or
  /// Form::Unload.
  virtual void ShowModeless(Form& form) = 0;
  /// Called by the form when it is loaded, before its own load event; its layout is there.
  virtual void Loaded(Form& form) { static_cast<void>(form); }
  /// Called by the form after it became invisible or was unloaded: what mirrors it goes away.
  virtual void Hidden(Form& form) = 0;
  virtual void Unloaded(Form& form) = 0;
  /// Draws what changed, now.
  virtual void Repaint(Form& form) = 0;
  /// Lets the word processor and the windows handle what waits.
  virtual void DoEvents() = 0;

  /// The width of a text in the form's font, in pixels.
  virtual int TextWidth(Form& form, std::u16string_view text) = 0;
  /// A list scrolls sideways as far as this. @param width in pixels, of its widest entry
  virtual void SetHorizontalExtent(Form& form, std::string_view list, int width) = 0;
  /// Takes the close box of the window with this caption away. @return the window's handle, 0 when there is none
  virtual std::intptr_t RemoveCloseBox(std::u16string_view caption) = 0;
  /// The form's window, for dialogs that it owns; 0 where there are no windows.
  virtual std::intptr_t WindowHandle(Form& form) = 0;
};

}  // namespace forms
