#include "FakeButton.h"
#include "hosts/com/Automation.h"

#include <algorithm>

namespace {

constexpr IID kButtonEvents = {0x000C0351, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

}  // namespace

const com::Members& FakeButton::Class() {
  static const com::Members members{{u"Caption", DISPATCH_PROPERTYGET, {}, [](com::AutomationObject& self, auto&) {
                                       return com::Variant(static_cast<FakeButton&>(self).caption);
                                     }}};
  return members;
}

FakeButton::FakeButton() : AutomationObject(Class()) {}

bool FakeButton::Click() {
  VARIANT_BOOL cancel = VARIANT_FALSE;
  VARIANTARG values[2];
  VariantInit(&values[0]);
  VariantInit(&values[1]);
  values[0].vt = VT_DISPATCH;
  values[0].pdispVal = static_cast<AutomationObject*>(this);
  values[1].vt = VT_BOOL | VT_BYREF;
  values[1].pboolVal = &cancel;
  DISPID names[] = {0, 1};
  DISPPARAMS parameters{values, names, 2, 2};
  const auto sinks = sinks_;
  for (const com::ComPtr<IDispatch>& sink : sinks) {
    if (sink) sink->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
  }
  return cancel != VARIANT_FALSE;
}

int FakeButton::Listeners() const {
  return static_cast<int>(std::count_if(sinks_.begin(), sinks_.end(), [](const auto& sink) { return bool(sink); }));
}

HRESULT FakeButton::QueryInterface(REFIID id, void** object) {
  if (IsEqualIID(id, IID_IConnectionPointContainer)) {
    *object = static_cast<IConnectionPointContainer*>(this);
    AddRef();
    return S_OK;
  }
  return AutomationObject::QueryInterface(id, object);
}

HRESULT FakeButton::FindConnectionPoint(REFIID id, IConnectionPoint** point) {
  if (!IsEqualIID(id, kButtonEvents)) return CONNECT_E_NOCONNECTION;
  *point = this;
  AddRef();
  return S_OK;
}

HRESULT FakeButton::GetConnectionInterface(IID* id) {
  *id = kButtonEvents;
  return S_OK;
}

HRESULT FakeButton::Advise(IUnknown* sink, DWORD* cookie) {
  void* events = nullptr;
  if (FAILED(sink->QueryInterface(kButtonEvents, &events))) return CONNECT_E_CANNOTCONNECT;
  sinks_.push_back(com::ComPtr<IDispatch>::Adopt(static_cast<IDispatch*>(events)));
  *cookie = static_cast<DWORD>(sinks_.size());
  return S_OK;
}

HRESULT FakeButton::Unadvise(DWORD cookie) {
  if (cookie == 0 || cookie > sinks_.size() || !sinks_[cookie - 1]) return CONNECT_E_NOCONNECTION;
  sinks_[cookie - 1] = {};
  return S_OK;
}
