#pragma once

#include "hosts/com/Library.h"

namespace com {

/// Where classes are registered: for the user who is there, which needs no right, or for all.
enum class RegistrationScope { kUser, kMachine };

/// Enters the class with the library's file, in place of what was entered before.
/// @return a failure's code; nothing of the class is then left
HRESULT Register(const ServedClass& served, HMODULE library, RegistrationScope scope);
/// Takes all of it away; what is not there is no failure.
HRESULT Unregister(const ServedClass& served, RegistrationScope scope);

}  // namespace com
