#pragma once

#include "hosts/com/Automation.h"

#include <functional>
#include <string>

#include "hosts/com/AutomationObject.h"
#include "hosts/com/Dispatch.h"
#include "platform/word/HostError.h"

/// An automation object whose members a test gives.
class Sample : public com::AutomationObject {
 public:
  explicit Sample(const com::Members& members) : AutomationObject(members) {}
};

/// It is wrapped and released with what wraps it.
inline com::Dispatch Wrapped(com::AutomationObject* object) {
  return {com::ComPtr<IDispatch>::Adopt(object), std::make_shared<com::Session>()};
}

inline com::Variant MadeObject(com::AutomationObject* object) {
  const auto owner = com::ComPtr<IDispatch>::Adopt(object);
  return com::Variant(owner.Get());
}

inline int ErrorNumberOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const word::HostError& error) {
    return error.Number();
  }
  return 0;
}
