#pragma once

// Windows' own header has to come first.
// clang-format off
#include <windows.h>
#include <unknwn.h>
#include <oaidl.h>
#include <ocidl.h>
#include <oleauto.h>
#include <olectl.h>
// clang-format on
