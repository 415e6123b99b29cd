#include "apps/KVXDLLCOM/AddIn.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <string>

#include "hosts/com/ComError.h"
#include "hosts/com/Library.h"
#include "hosts/com/TermMarkerClient.h"
#include "hosts/com/WordProcessor.h"
#include "hosts/win32/Wide.h"

namespace {

/// Their numbers are their places, from 1.
constexpr std::array<const wchar_t*, 5> kEvents = {L"OnConnection", L"OnDisconnection", L"OnAddInsUpdate",
                                                   L"OnStartupComplete", L"OnBeginShutdown"};

/// An argument by its number, whether it comes by place or by name; empty when it is absent or of another kind.
com::Variant ArgumentOf(DISPPARAMS& parameters, UINT number, VARTYPE type) {
  com::Variant argument;
  UINT wrong = 0;
  if (FAILED(DispGetParam(&parameters, number, type, argument.Receive(), &wrong))) return {};
  return argument;
}

std::u16string FolderOf(HMODULE library) {
  std::wstring file(32768, L'\0');
  file.resize(GetModuleFileNameW(library, file.data(), static_cast<DWORD>(file.size())));
  return win32::FromWide(file.substr(0, file.rfind(L'\\')));
}

}  // namespace

AddIn::AddIn() : connect_(services_.Services(FolderOf(com::ThisModule()), &com::CreateTermMarker)) {}

HRESULT AddIn::QueryInterface(REFIID id, void** object) {
  return Give(id, object, {IID_IUnknown, IID_IDispatch, kExtensibility});
}

HRESULT AddIn::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT AddIn::GetTypeInfo(UINT, LCID, ITypeInfo**) { return DISP_E_BADINDEX; }

HRESULT AddIn::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* numbers) {
  if (count != 1) return DISP_E_UNKNOWNNAME;
  const auto* const event = std::find_if(kEvents.begin(), kEvents.end(),
                                         [names](const wchar_t* one) { return _wcsicmp(one, names[0]) == 0; });
  numbers[0] = event == kEvents.end() ? DISPID_UNKNOWN : static_cast<DISPID>(event - kEvents.begin()) + 1;
  return event == kEvents.end() ? DISP_E_UNKNOWNNAME : S_OK;
}

HRESULT AddIn::Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO* details, UINT*) {
  return com::AtBoundary(details, [&]() -> HRESULT {
    switch (number) {
      case 1: {
        const com::ComPtr<IDispatch> application = ArgumentOf(*parameters, 0, VT_DISPATCH).ToObject();
        if (!application) return DISP_E_TYPEMISMATCH;
        return OnConnection(application.Get(), ArgumentOf(*parameters, 1, VT_I4).ToInt(), nullptr, nullptr);
      }
      case 2:
        return OnDisconnection(ArgumentOf(*parameters, 0, VT_I4).ToInt(), nullptr);
      case 3:
        return OnAddInsUpdate(nullptr);
      case 4:
        return OnStartupComplete(nullptr);
      case 5:
        return OnBeginShutdown(nullptr);
      default:
        return DISP_E_MEMBERNOTFOUND;
    }
  });
}

HRESULT AddIn::OnConnection(IDispatch* application, int connectMode, IDispatch*, SAFEARRAY**) {
  if (application == nullptr) return E_POINTER;
  return com::AtBoundary(nullptr, [&] {
    connect_.OnConnection(com::WrapApplication(application), static_cast<ConnectMode>(connectMode));
    return S_OK;
  });
}

HRESULT AddIn::OnDisconnection(int removeMode, SAFEARRAY**) {
  return com::AtBoundary(nullptr, [&] {
    connect_.OnDisconnection(static_cast<DisconnectMode>(removeMode));
    return S_OK;
  });
}

HRESULT AddIn::OnAddInsUpdate(SAFEARRAY**) { return S_OK; }

HRESULT AddIn::OnStartupComplete(SAFEARRAY**) {
  return com::AtBoundary(nullptr, [&] {
    connect_.OnStartupComplete();
    return S_OK;
  });
}

HRESULT AddIn::OnBeginShutdown(SAFEARRAY**) { return S_OK; }
