#pragma once

#include <windows.h>

#include <string>
#include <vector>

/// What the screen shows of a window, its frame included, row by row from the top: each pixel's blue, green, red and a
/// byte that means nothing.
std::vector<unsigned char> PixelsOf(HWND window);

/// Writes a window as the screen shows it, its frame included, to a PNG file.
/// @return false when the file cannot be written
bool SavePicture(HWND window, const std::string& file);
