// The application, its documents and their windows.
#include "platform/word/Application.h"
#include "platform/word/Document.h"
#include "platform/word/Options.h"
#include "platform/word/Range.h"
#include "platform/word/Selection.h"
#include "platform/word/Window.h"
#include "tests/windows/server/ServedObject.h"

namespace server {

namespace {

using com::Kind;
using com::Optional;
using com::Received;

constexpr WORD kGet = DISPATCH_PROPERTYGET;
constexpr WORD kMethod = DISPATCH_METHOD;

const com::Members& ApplicationMembers() {
  using A = word::Application;
  static const com::Members members{Get(u"Documents", &A::Documents),
                                    Get(u"ActiveDocument", &A::ActiveDocument),
                                    Get(u"Selection", &A::Selection),
                                    Get(u"Options", &A::Options),
                                    Get(u"ScreenUpdating", &A::ScreenUpdating),
                                    Put(u"ScreenUpdating", &A::SetScreenUpdating),
                                    Method(u"ScreenRefresh", &A::ScreenRefresh),
                                    Get(u"CommandBars", &A::CommandBars),
                                    Get(u"CustomizationContext", &A::CustomizationContext)};
  return members;
}

const com::Members& DocumentsMembers() {
  using D = word::Documents;
  static const com::Members members{Get(u"Count", &D::Count), Special<D>(u"Item", kMethod | kGet, {{Kind::kText}},
                                                                         [](auto& self, const Received& given) {
                                                                           return self.Inner().Item(given.Text(0));
                                                                         })};
  return members;
}

const com::Members& OptionsMembers() {
  using O = word::Options;
  static const com::Members members{
      Get(u"AutoFormatAsYouTypeReplaceQuotes", &O::AutoFormatAsYouTypeReplaceQuotes),
      Put(u"AutoFormatAsYouTypeReplaceQuotes", &O::SetAutoFormatAsYouTypeReplaceQuotes),
      Get(u"AllowFastSave", &O::AllowFastSave),
      Put(u"AllowFastSave", &O::SetAllowFastSave),
      Get(u"CheckSpellingAsYouType", &O::CheckSpellingAsYouType),
      Put(u"CheckSpellingAsYouType", &O::SetCheckSpellingAsYouType),
      Get(u"CheckGrammarAsYouType", &O::CheckGrammarAsYouType),
      Put(u"CheckGrammarAsYouType", &O::SetCheckGrammarAsYouType),
      Get(u"Pagination", &O::Pagination),
      Put(u"Pagination", &O::SetPagination),
      Special<O>(u"DefaultFilePath", kGet, {{Kind::kInt}},
                 [](auto& self, const Received& given) { return self.Inner().DefaultFilePath(given.Int(0)); })};
  return members;
}

const com::Members& CustomizationMembers() {
  using C = word::Customization;
  static const com::Members members{Get(u"Saved", &C::Saved), Put(u"Saved", &C::SetSaved), Method(u"Save", &C::Save)};
  return members;
}

const com::Members& DocumentMembers() {
  using D = word::Document;
  static const com::Members members{
      Get(u"Name", &D::Name),
      Get(u"Path", &D::Path),
      Get(u"StoryRanges", &D::StoryRanges),
      Get(u"Bookmarks", &D::Bookmarks),
      Get(u"Fields", &D::Fields),
      Get(u"ActiveWindow", &D::ActiveWindow),
      Special<D>(u"Range", kMethod, {Optional(Kind::kInt), Optional(Kind::kInt)},
                 [](auto& self, const Received& given) { return self.Inner().Range(given.Int(0), given.Int(1)); }),
      Get(u"ShowGrammaticalErrors", &D::ShowGrammaticalErrors),
      Put(u"ShowGrammaticalErrors", &D::SetShowGrammaticalErrors),
      Get(u"ShowSpellingErrors", &D::ShowSpellingErrors),
      Put(u"ShowSpellingErrors", &D::SetShowSpellingErrors),
      Method(u"UndoClear", &D::UndoClear),
      Method(u"Save", &D::Save),
      Special<D>(u"SaveAs", kMethod, {Optional(Kind::kText), Optional(Kind::kInt)},
                 [](auto& self, const Received& given) {
                   self.Inner().SaveAs(given.Text(0));
                   return com::Variant();
                 })};
  return members;
}

/// Walks the stories that there are.
class StoryEnumeration : public com::Counted<IEnumVARIANT> {
 public:
  StoryEnumeration(word::StoryRangesPtr stories, ContextPtr context)
      : stories_(std::move(stories)), context_(std::move(context)) {}
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    return com::Counted<IEnumVARIANT>::Give(id, object, {IID_IUnknown, IID_IEnumVARIANT});
  }
  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* items, ULONG* fetched) override {
    return com::AtBoundary(nullptr, [&]() -> HRESULT {
      ULONG count = 0;
      for (; count < wanted && next_ <= stories_->Count(); ++count) {
        items[count] = server::Give(stories_->Item(next_++), context_).Detach();
      }
      if (fetched != nullptr) *fetched = count;
      return count == wanted ? S_OK : S_FALSE;
    });
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    next_ += static_cast<int>(count);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    next_ = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

 private:
  word::StoryRangesPtr stories_;
  ContextPtr context_;
  int next_{1};
};

com::Variant Enumeration(Object<word::StoryRanges>& self) {
  com::Variant value;
  VARIANT* const raw = value.Receive();
  raw->vt = VT_UNKNOWN;
  raw->punkVal = new StoryEnumeration(self.Pointer(), self.TheContext());
  return value;
}

const com::Members& StoryRangesMembers() {
  using S = word::StoryRanges;
  static const com::Members members{
      Special<S>(u"_NewEnum", kGet, {}, [](auto& self, const Received&) { return Enumeration(self); })};
  return members;
}

const com::Members& WindowMembers() {
  using W = word::Window;
  static const com::Members members{Get(u"View", &W::View), Get(u"ActivePane", &W::ActivePane),
                                    Get(u"Selection", &W::Selection), Put(u"SplitVertical", &W::SetSplitVertical)};
  return members;
}

const com::Members& PaneMembers() {
  static const com::Members members{Get(u"View", &word::Pane::View)};
  return members;
}

const com::Members& ViewMembers() {
  using V = word::View;
  static const com::Members members{Get(u"Type", &V::Type),
                                    Put(u"Type", &V::SetType),
                                    Get(u"SplitSpecial", &V::SplitSpecial),
                                    Get(u"ShowAll", &V::ShowAll),
                                    Put(u"ShowAll", &V::SetShowAll),
                                    Get(u"ShowHiddenText", &V::ShowHiddenText),
                                    Put(u"ShowHiddenText", &V::SetShowHiddenText)};
  return members;
}

const com::Members& SelectionMembers() {
  using S = word::Selection;
  static const com::Members members{
      Get(u"Range", &S::Range), Get(u"Tables", &S::Tables),
      Special<S>(u"Collapse", kMethod, {Optional(Kind::kInt)},
                 [](auto& self, const Received& given) {
                   const int direction = given.Has(0) ? given.Int(0) : word::wdCollapseStart;
                   self.Inner().Collapse(static_cast<word::WdCollapseDirection>(direction));
                   return com::Variant();
                 }),
      Special<S>(u"HomeKey", kMethod, {Optional(Kind::kInt), Optional(Kind::kInt)},
                 [](auto& self, const Received& given) {
                   self.Inner().HomeKey(static_cast<word::WdUnits>(given.Int(0)));
                   return com::Variant(0);
                 }),
      Special<S>(u"GoTo", kMethod,
                 {Optional(Kind::kInt), Optional(Kind::kInt), Optional(Kind::kInt), Optional(Kind::kText)},
                 [](auto& self, const Received& given) {
                   self.Inner().GoTo({.What = static_cast<word::WdGoToItem>(given.Int(0)),
                                      .Which = given.Has(1) ? given.Int(1) : 0,
                                      .Name = given.Text(3)});
                   return self.Inner().Range();
                 })};
  return members;
}

const com::Members& TablesMembers() {
  static const com::Members members{Get(u"Count", &word::Tables::Count)};
  return members;
}

}  // namespace

com::Variant Give(const word::ApplicationPtr& inner, const ContextPtr& context) {
  return MakeObject(ApplicationMembers(), inner, context);
}
com::Variant Give(const word::DocumentsPtr& inner, const ContextPtr& context) {
  return MakeObject(DocumentsMembers(), inner, context);
}
com::Variant Give(const word::OptionsPtr& inner, const ContextPtr& context) {
  return MakeObject(OptionsMembers(), inner, context);
}
com::Variant Give(const word::CustomizationPtr& inner, const ContextPtr& context) {
  return MakeObject(CustomizationMembers(), inner, context);
}
com::Variant Give(const word::DocumentPtr& inner, const ContextPtr& context) {
  context->document = inner;
  return MakeObject(DocumentMembers(), inner, context);
}
com::Variant Give(const word::StoryRangesPtr& inner, const ContextPtr& context) {
  return MakeObject(StoryRangesMembers(), inner, context);
}
com::Variant Give(const word::WindowPtr& inner, const ContextPtr& context) {
  return MakeObject(WindowMembers(), inner, context);
}
com::Variant Give(const word::PanePtr& inner, const ContextPtr& context) {
  return MakeObject(PaneMembers(), inner, context);
}
com::Variant Give(const word::ViewPtr& inner, const ContextPtr& context) {
  return MakeObject(ViewMembers(), inner, context);
}
com::Variant Give(const word::SelectionPtr& inner, const ContextPtr& context) {
  return MakeObject(SelectionMembers(), inner, context);
}
com::Variant Give(const word::TablesPtr& inner, const ContextPtr& context) {
  return MakeObject(TablesMembers(), inner, context);
}

}  // namespace server
