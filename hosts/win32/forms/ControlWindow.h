#pragma once

#include <windows.h>

#include "platform/forms/Control.h"

#include <optional>

namespace win32 {

/// The font of a form and the lengths that come of it, in pixels of the screen that it is shown on.
class FormFont {
 public:
  FormFont();
  ~FormFont();
  FormFont(const FormFont&) = delete;
  FormFont& operator=(const FormFont&) = delete;

  HFONT Handle() const { return font_; }
  /// Of the widest line, "&" being no character.
  SIZE TextSize(std::u16string_view text) const;
  /// Of a text on one line as an entry of a list shows it, where "&" is a character.
  int EntryWidth(std::u16string_view text) const;
  /// As it breaks into lines of at most this width.
  SIZE WrappedSize(std::u16string_view text, int width) const;
  int LineHeight() const { return lineHeight_; }
  /// Of an average character.
  int CharWidth() const { return charWidth_; }
  /// A length that is given for a screen of 96 dots an inch.
  int Scaled(int length) const { return MulDiv(length, dpi_, 96); }

 private:
  HFONT font_;
  int dpi_;
  int lineHeight_;
  int charWidth_;
};

/// The window of one control: made and mirrored here; what a person does to it comes to its form's window.
class ControlWindow {
 public:
  /// @param font outlives the window @param id of its messages
  ControlWindow(forms::Control& control, HWND form, const FormFont& font, int id);

  forms::Control& Of() const { return control_; }
  HWND Handle() const { return window_; }
  /// What changed for those around it.
  struct Change {
    bool labelText{false};
    bool visibility{false};
  };
  /// Brings the window to the control's state.
  Change Mirror();
  /// The least that shows all of it.
  SIZE Wanted() const;
  void Place(const RECT& place);
  /// A list scrolls sideways as far as this from now on, whatever its entries. @param width in pixels
  void SetHorizontalExtent(int width);
  /// It is drawn as a part of a bar, as wide as its control says; its form draws it.
  void MakeBarPart();
  bool IsBarPart() const { return isBarPart_; }
  /// Draws an entry of a list with check boxes.
  void DrawEntry(const DRAWITEMSTRUCT& entry) const;
  /// What its window holds now, told to the control as a person's doing.
  void TakeSelection();
  void TakeText();

  /// It changed since it was mirrored.
  bool stale{true};

 private:
  bool MirrorText(std::u16string_view text);
  void MirrorList();
  void MirrorCombo();
  int ExtentOfEntries() const;
  /// Of the box of an entry.
  int BoxSide(int lineHeight) const;
  /// Where the text of an entry begins beside its box.
  int BesideBox(int side) const;
  bool ShowsUp() const;
  SIZE WantedOfLabel() const;

  forms::Control& control_;
  const FormFont& font_;
  HWND window_;
  bool isBarPart_{false};
  /// Empty: a list scrolls as far as its entries ask.
  std::optional<int> extent_;
  /// As wide as it was placed.
  int width_{0};
};

}  // namespace win32
