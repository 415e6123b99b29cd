#pragma once

#include "hosts/com/Automation.h"

#include <atomic>
#include <initializer_list>

namespace com {

/// How many objects of this module others hold; a library may be unloaded when there is none.
long LiveObjects();
/// Counts something that keeps the module loaded without being an object of it.
void KeepModule(bool keep);

/// The lifetime of an object that is given out through COM: made with one reference, gone with the last.
template <class Interface>
class Counted : public Interface {
 public:
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  Counted() { KeepModule(true); }
  virtual ~Counted() { KeepModule(false); }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

  /// What QueryInterface does. @param known the interfaces that Interface is
  HRESULT Give(REFIID id, void** object, std::initializer_list<IID> known) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    for (const IID& one : known) {
      if (!IsEqualIID(one, id)) continue;
      *object = static_cast<Interface*>(this);
      AddRef();
      return S_OK;
    }
    return E_NOINTERFACE;
  }

 private:
  std::atomic<ULONG> references_{1};
};

}  // namespace com
