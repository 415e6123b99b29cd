#pragma once

#include "hosts/com/Automation.h"

#include <memory>
#include <vector>

#include "hosts/com/AutomationObject.h"

/// A button that tells its listeners of clicks as Office's do: through a connection point, with named arguments.
class FakeButton : public com::AutomationObject, public IConnectionPointContainer, public IConnectionPoint {
 public:
  FakeButton();

  /// @return whether a listener cancelled what the button does of its own accord
  bool Click();
  int Listeners() const;
  std::u16string caption{u"B"};

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return AutomationObject::AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return AutomationObject::Release(); }
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override;
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override;
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

 private:
  static const com::Members& Class();
  std::vector<com::ComPtr<IDispatch>> sinks_;
};
