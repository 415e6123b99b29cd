#include <windows.h>

/// A program that does nothing, to be run under another's name; somebody ends it.
int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  Sleep(60'000);
  return 0;
}
