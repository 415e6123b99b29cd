#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "platform/forms/Form.h"

/// What a window shows of its form, read from the windows in it, in the words of forms::Dump. Only names come from the
/// form, and which button Escape presses, which no window shows.
std::u16string ShownForm(const forms::Form& form, HWND window);

/// Each control that the layout places, with its window.
void InEachControl(const forms::Form& form, HWND window,
                   const std::function<void(const forms::Control& control, HWND child)>& work);
