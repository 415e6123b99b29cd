#pragma once

#include "addin/Connect.h"
#include "apps/KVXDLLCOM/AddInServices.h"
#include "apps/KVXDLLCOM/Extensibility.h"
#include "hosts/com/Served.h"

/// The object that Word creates: hands the five events on to Connect. No error leaves it.
class AddIn : public com::Counted<IDTExtensibility2> {
 public:
  AddIn();

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* numbers) override;
  /// The same five events, for a caller that knows them by number only.
  HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                                   UINT*) override;

  HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, int connectMode, IDispatch* addIn,
                                         SAFEARRAY** custom) override;
  HRESULT STDMETHODCALLTYPE OnDisconnection(int removeMode, SAFEARRAY** custom) override;
  HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) override;
  HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) override;
  HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) override;

 private:
  AddInServices services_;
  Connect connect_;
};
