// What a library with a class has to have. Each library compiles it with a kServedClass of its own.
#include "hosts/com/ComError.h"
#include "hosts/com/ComPtr.h"
#include "hosts/com/Library.h"
#include "hosts/com/Registration.h"
#include "hosts/com/Served.h"

#include <cwchar>

namespace com {

namespace {

HMODULE thisModule = nullptr;

class Factory : public Counted<IClassFactory> {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    return Give(id, object, {IID_IUnknown, IID_IClassFactory});
  }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return AtBoundary(nullptr, [&] {
      const auto made = ComPtr<IUnknown>::Adopt(kServedClass.make());
      return made->QueryInterface(id, object);
    });
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    KeepModule(lock != FALSE);
    return S_OK;
  }
};

/// What regsvr32 hands on: "machine" for all users, anything else for the one who is there.
RegistrationScope ScopeOf(const wchar_t* commandLine) {
  const bool machine = commandLine != nullptr && std::wcscmp(commandLine, L"machine") == 0;
  return machine ? RegistrationScope::kMachine : RegistrationScope::kUser;
}

}  // namespace

HMODULE ThisModule() { return thisModule; }

}  // namespace com

extern "C" {

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) {
    com::thisModule = module;
    DisableThreadLibraryCalls(module);
  }
  return TRUE;
}

HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (!IsEqualCLSID(classId, com::kServedClass.id)) return CLASS_E_CLASSNOTAVAILABLE;
  return com::AtBoundary(nullptr, [&] {
    const auto factory = com::ComPtr<com::Factory>::Adopt(new com::Factory);
    return factory->QueryInterface(id, object);
  });
}

HRESULT STDAPICALLTYPE DllCanUnloadNow() { return com::LiveObjects() == 0 ? S_OK : S_FALSE; }

HRESULT STDAPICALLTYPE DllInstall(BOOL install, LPCWSTR commandLine) {
  return com::AtBoundary(nullptr, [&] {
    const com::RegistrationScope scope = com::ScopeOf(commandLine);
    return install != FALSE ? com::Register(com::kServedClass, com::ThisModule(), scope)
                            : com::Unregister(com::kServedClass, scope);
  });
}

HRESULT STDAPICALLTYPE DllRegisterServer() { return DllInstall(TRUE, nullptr); }

HRESULT STDAPICALLTYPE DllUnregisterServer() { return DllInstall(FALSE, nullptr); }

}  // extern "C"
