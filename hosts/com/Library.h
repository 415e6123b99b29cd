#pragma once

#include "hosts/com/Automation.h"

namespace com {

/// The one class that a library has to give out.
struct ServedClass {
  CLSID id;
  const wchar_t* progId;
  const wchar_t* name;
  /// A new object, with one reference. May throw.
  IUnknown* (*make)();
};

/// Each library defines its own.
extern const ServedClass kServedClass;

/// This library.
HMODULE ThisModule();

}  // namespace com
