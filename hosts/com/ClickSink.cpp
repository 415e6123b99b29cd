#include "hosts/com/ClickSink.h"

#include <utility>

#include "hosts/com/ComError.h"
#include "hosts/com/Served.h"
#include "hosts/com/Variant.h"

namespace com {

namespace {

/// _CommandBarButtonEvents, Office's events of a button.
constexpr IID kButtonEvents = {0x000C0351, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
constexpr DISPID kClick = 1;

/// Office names the arguments of its events by their numbers, which puts them into another order.
VARIANTARG* Argument(DISPPARAMS& parameters, DISPID number) {
  for (UINT i = 0; i < parameters.cNamedArgs; ++i) {
    if (parameters.rgdispidNamedArgs[i] == number) return &parameters.rgvarg[i];
  }
  const UINT positional = parameters.cArgs - parameters.cNamedArgs;
  const auto position = static_cast<UINT>(number);
  return position < positional ? &parameters.rgvarg[parameters.cArgs - 1 - position] : nullptr;
}

}  // namespace

class ClickConnection::Sink : public Counted<IDispatch> {
 public:
  Sink(office::ClickHandler handler, std::function<office::CommandBarControlPtr(IDispatch*)> makeControl)
      : handler_(std::move(handler)), makeControl_(std::move(makeControl)) {}

  void Stop() { handler_ = {}; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    return Give(id, object, {IID_IUnknown, IID_IDispatch, kButtonEvents});
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                   EXCEPINFO* details, UINT*) override {
    if (member != kClick) return DISP_E_MEMBERNOTFOUND;
    return AtBoundary(details, [&] {
      VARIANTARG* const control = Argument(*parameters, 0);
      VARIANTARG* const cancel = Argument(*parameters, 1);
      if (control == nullptr || !handler_) return S_OK;
      // The handler may have the button deleted, and with it this.
      const ComPtr<Sink> self(this);
      const office::ClickHandler handler = handler_;
      bool cancelDefault = false;
      handler(makeControl_(Variant(*control).ToObject().Get()), cancelDefault);
      if (cancelDefault && cancel != nullptr && cancel->vt == (VT_BOOL | VT_BYREF)) *cancel->pboolVal = VARIANT_TRUE;
      return S_OK;
    });
  }

 private:
  office::ClickHandler handler_;
  std::function<office::CommandBarControlPtr(IDispatch*)> makeControl_;
};

ClickConnection::ClickConnection(IDispatch* button, office::ClickHandler handler,
                                 std::function<office::CommandBarControlPtr(IDispatch*)> makeControl) {
  constexpr std::string_view kMember = "CommandBarButton.Click";
  const auto container = Ask<IConnectionPointContainer>(button, IID_IConnectionPointContainer);
  if (!container) Check(E_NOINTERFACE, kMember);
  Check(container->FindConnectionPoint(kButtonEvents, point_.Receive()), kMember);
  sink_ = ComPtr<Sink>::Adopt(new Sink(std::move(handler), std::move(makeControl)));
  Check(point_->Advise(sink_.Get(), &cookie_), kMember);
}

ClickConnection::~ClickConnection() {
  sink_->Stop();
  point_->Unadvise(cookie_);
}

}  // namespace com
