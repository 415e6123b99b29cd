#pragma once

#include "hosts/com/Automation.h"

#include <utility>

namespace com {

/// Owns one reference to a COM object; empty where there is none.
template <class Interface>
class ComPtr {
 public:
  ComPtr() = default;
  /// Takes a reference of its own.
  explicit ComPtr(Interface* object) : object_(object) {
    if (object_ != nullptr) object_->AddRef();
  }
  /// Takes over a reference that the caller has.
  static ComPtr Adopt(Interface* object) {
    ComPtr owner;
    owner.object_ = object;
    return owner;
  }
  ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() {
    if (object_ != nullptr) object_->Release();
  }

  Interface* Get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  /// For a function that gives an object back through a pointer to a pointer; what was owned is released.
  Interface** Receive() {
    *this = ComPtr();
    return &object_;
  }
  /// Hands the reference over.
  Interface* Detach() { return std::exchange(object_, nullptr); }

 private:
  Interface* object_{nullptr};
};

/// Another interface of an object; empty when it has none of that kind.
template <class Interface>
ComPtr<Interface> Ask(IUnknown* object, const IID& id) {
  void* found = nullptr;
  if (object == nullptr || FAILED(object->QueryInterface(id, &found))) return {};
  return ComPtr<Interface>::Adopt(static_cast<Interface*>(found));
}

}  // namespace com
