// Menus, and the events of their buttons.
#include <array>

#include "tests/windows/server/ServedObject.h"

namespace server {

namespace {

using com::Kind;
using com::Optional;
using com::Received;

constexpr WORD kGet = DISPATCH_PROPERTYGET;
constexpr WORD kMethod = DISPATCH_METHOD;

/// _CommandBarButtonEvents.
constexpr IID kButtonEvents = {0x000C0351, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

/// Those who listen to the clicks of one button.
class ClickPoint : public com::Counted<IConnectionPoint> {
 public:
  ClickPoint(office::CommandBarControlPtr button, ContextPtr context)
      : button_(std::move(button)), context_(std::move(context)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    return com::Counted<IConnectionPoint>::Give(id, object, {IID_IUnknown, IID_IConnectionPoint});
  }
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override {
    *id = kButtonEvents;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override {
    return com::AtBoundary(nullptr, [&]() -> HRESULT {
      com::ComPtr<IDispatch> events = com::Ask<IDispatch>(sink, kButtonEvents);
      if (!events) return CONNECT_E_CANNOTCONNECT;
      // Who listens keeps the button's object, as the word processor's own bar keeps its controls.
      button_->SetClickHandler([events, context = context_](const office::CommandBarControlPtr& clicked, bool& cancel) {
        Tell(*events.Get(), server::Give(clicked, context), cancel);
      });
      *cookie = kCookie;
      return S_OK;
    });
  }
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
    if (cookie != kCookie) return CONNECT_E_NOCONNECTION;
    return com::AtBoundary(nullptr, [&] {
      button_->SetClickHandler({});
      return S_OK;
    });
  }

 private:
  static constexpr DWORD kCookie = 1;

  /// With its arguments named, as Office has them.
  static void Tell(IDispatch& events, const com::Variant& control, bool& cancel) {
    VARIANT_BOOL cancelled = VARIANT_FALSE;
    std::array<VARIANTARG, 2> values{};
    values[0] = control.Get();
    values[1].vt = VT_BOOL | VT_BYREF;
    values[1].pboolVal = &cancelled;
    std::array<DISPID, 2> names = {0, 1};
    DISPPARAMS parameters{values.data(), names.data(), 2, 2};
    events.Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
    cancel = cancelled != VARIANT_FALSE;
  }

  office::CommandBarControlPtr button_;
  ContextPtr context_;
};

/// A control that tells of clicks.
class ControlObject : public Object<office::CommandBarControl>, public IConnectionPointContainer {
 public:
  using Object::Object;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (!IsEqualIID(id, IID_IConnectionPointContainer)) return AutomationObject::QueryInterface(id, object);
    *object = static_cast<IConnectionPointContainer*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return AutomationObject::AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return AutomationObject::Release(); }
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override {
    return com::AtBoundary(nullptr, [&]() -> HRESULT {
      *point = nullptr;
      if (!IsEqualIID(id, kButtonEvents) || Inner().Type() != office::msoControlButton) return CONNECT_E_NOCONNECTION;
      *point = new ClickPoint(Pointer(), TheContext());
      return S_OK;
    });
  }
};

const com::Members& ControlMembers() {
  using C = office::CommandBarControl;
  static const com::Members members{
      Get(u"Type", &C::Type),
      Get(u"Id", &C::Id),
      Get(u"Caption", &C::Caption),
      Put(u"Caption", &C::SetCaption),
      Get(u"Tag", &C::Tag),
      Put(u"Tag", &C::SetTag),
      Get(u"BeginGroup", &C::BeginGroup),
      Put(u"BeginGroup", &C::SetBeginGroup),
      Get(u"Visible", &C::Visible),
      Put(u"Visible", &C::SetVisible),
      Get(u"Controls", &C::Controls),
      Special<C>(u"Delete", kMethod, {Optional(Kind::kBool)}, [](auto& self, const Received&) {
        self.Inner().Delete();
        return com::Variant();
      })};
  return members;
}

const com::Members& ControlsMembers() {
  using C = office::CommandBarControls;
  static const com::Members members{Get(u"Count", &C::Count), ItemByNumber(&C::Item),
                                    Special<C>(u"Add", kMethod,
                                               {Optional(Kind::kInt), Optional(Kind::kInt), Optional(Kind::kText),
                                                Optional(Kind::kInt), Optional(Kind::kBool)},
                                               [](auto& self, const Received& given) {
                                                 // Neither is asked for, and the host has neither.
                                                 if (given.Has(2) || given.Has(3))
                                                   com::Check(E_NOTIMPL, "CommandBarControls.Add");
                                                 office::CommandBarControls::AddArguments arguments;
                                                 if (given.Has(0))
                                                   arguments.Type = static_cast<office::ControlType>(given.Int(0));
                                                 if (given.Has(1)) arguments.Id = given.Int(1);
                                                 arguments.Temporary = given.Bool(4);
                                                 return self.Inner().Add(arguments);
                                               })};
  return members;
}

const com::Members& BarMembers() {
  static const com::Members members{Get(u"Controls", &office::CommandBar::Controls)};
  return members;
}

const com::Members& BarsMembers() {
  using B = office::CommandBars;
  static const com::Members members{
      Special<B>(u"Item", kMethod | kGet, {{Kind::kText}},
                 [](auto& self, const Received& given) { return self.Inner().Item(given.Text(0)); }),
      Special<B>(u"FindControl", kMethod,
                 {Optional(Kind::kInt), Optional(Kind::kInt), Optional(Kind::kText), Optional(Kind::kBool)},
                 [](auto& self, const Received& given) {
                   if (given.Has(0) || !given.Has(1)) com::Check(E_NOTIMPL, "CommandBars.FindControl");
                   return self.Inner().FindControl(given.Int(1));
                 })};
  return members;
}

}  // namespace

com::Variant Give(const office::CommandBarsPtr& inner, const ContextPtr& context) {
  return MakeObject(BarsMembers(), inner, context);
}
com::Variant Give(const office::CommandBarPtr& inner, const ContextPtr& context) {
  return MakeObject(BarMembers(), inner, context);
}
com::Variant Give(const office::CommandBarControlsPtr& inner, const ContextPtr& context) {
  return MakeObject(ControlsMembers(), inner, context);
}
com::Variant Give(const office::CommandBarControlPtr& inner, const ContextPtr& context) {
  if (!inner) return com::Variant(static_cast<IDispatch*>(nullptr));
  auto* const made = new ControlObject(ControlMembers(), inner, context);
  const auto owner = com::ComPtr<IDispatch>::Adopt(static_cast<com::AutomationObject*>(made));
  return com::Variant(owner.Get());
}

}  // namespace server
