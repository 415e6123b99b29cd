#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include "hosts/com/AutomationObject.h"
#include "hosts/com/ComError.h"
#include "platform/office/CommandBars.h"
#include "platform/word/Types.h"

/// A Word to test with: the object model of a host, given out through automation as Word gives out its own.
namespace server {

/// What all objects of one word processor share.
struct Context {
  /// Of each member; a property that is put ends in "=".
  std::map<std::u16string, std::uint64_t> calls;
  std::uint64_t count{0};
  /// The call with this number, from 1, fails; 0: none does.
  std::uint64_t failing{0};
  /// The member whose call failed so.
  std::u16string failed;
  /// Objects that are held.
  long live{0};
  /// The document last given out, in which the ranges are.
  word::DocumentPtr document;
};
using ContextPtr = std::shared_ptr<Context>;

/// An object of the host under the members that its class has in Word.
template <class Interface>
class Object : public com::AutomationObject {
 public:
  Object(const com::Members& members, std::shared_ptr<Interface> inner, ContextPtr context)
      : AutomationObject(members), inner_(std::move(inner)), context_(std::move(context)) {
    ++context_->live;
  }
  ~Object() override { --context_->live; }

  Interface& Inner() const { return *inner_; }
  const std::shared_ptr<Interface>& Pointer() const { return inner_; }
  const ContextPtr& TheContext() const { return context_; }
  static Object& Of(com::AutomationObject& object) { return static_cast<Object&>(object); }

 protected:
  void BeforeCall(const com::Member& member) override {
    ++context_->calls[std::u16string(member.name) + (member.kind == DISPATCH_PROPERTYPUT ? u"=" : u"")];
    if (++context_->count == context_->failing) {
      context_->failed = member.name;
      throw word::HostError(word::kCommandFailed, u"This call was to fail.", "server");
    }
  }

 private:
  std::shared_ptr<Interface> inner_;
  ContextPtr context_;
};

// Each class' object around a host's.
com::Variant Give(const word::ApplicationPtr& inner, const ContextPtr& context);
com::Variant Give(const word::BookmarkPtr& inner, const ContextPtr& context);
com::Variant Give(const word::BookmarksPtr& inner, const ContextPtr& context);
com::Variant Give(const word::CharactersPtr& inner, const ContextPtr& context);
com::Variant Give(const word::CustomizationPtr& inner, const ContextPtr& context);
com::Variant Give(const word::DocumentPtr& inner, const ContextPtr& context);
com::Variant Give(const word::DocumentsPtr& inner, const ContextPtr& context);
com::Variant Give(const word::FieldPtr& inner, const ContextPtr& context);
com::Variant Give(const word::FieldsPtr& inner, const ContextPtr& context);
com::Variant Give(const word::FindPtr& inner, const ContextPtr& context);
com::Variant Give(const word::FontPtr& inner, const ContextPtr& context);
com::Variant Give(const word::OptionsPtr& inner, const ContextPtr& context);
com::Variant Give(const word::PanePtr& inner, const ContextPtr& context);
com::Variant Give(const word::ParagraphFormatPtr& inner, const ContextPtr& context);
com::Variant Give(const word::RangePtr& inner, const ContextPtr& context);
com::Variant Give(const word::ReplacementPtr& inner, const ContextPtr& context);
com::Variant Give(const word::RevisionPtr& inner, const ContextPtr& context);
com::Variant Give(const word::RevisionsPtr& inner, const ContextPtr& context);
com::Variant Give(const word::SelectionPtr& inner, const ContextPtr& context);
com::Variant Give(const word::StoryRangesPtr& inner, const ContextPtr& context);
com::Variant Give(const word::TablesPtr& inner, const ContextPtr& context);
com::Variant Give(const word::TextRetrievalModePtr& inner, const ContextPtr& context);
com::Variant Give(const word::ViewPtr& inner, const ContextPtr& context);
com::Variant Give(const word::WindowPtr& inner, const ContextPtr& context);
com::Variant Give(const office::CommandBarPtr& inner, const ContextPtr& context);
com::Variant Give(const office::CommandBarsPtr& inner, const ContextPtr& context);
com::Variant Give(const office::CommandBarControlPtr& inner, const ContextPtr& context);
com::Variant Give(const office::CommandBarControlsPtr& inner, const ContextPtr& context);

template <class Value>
com::Variant ToVariant(const Value& value, const ContextPtr& context) {
  if constexpr (std::is_enum_v<Value>) {
    return com::Variant(static_cast<int>(value));
  } else if constexpr (std::is_constructible_v<com::Variant, const Value&>) {
    return com::Variant(value);
  } else {
    return Give(value, context);
  }
}

/// An argument as a host wants it.
template <class Value>
Value Argument(const com::Received& given, std::size_t index) {
  if constexpr (std::is_same_v<Value, bool>) {
    return given.Bool(index);
  } else if constexpr (std::is_same_v<Value, double>) {
    return given.Double(index);
  } else if constexpr (std::is_enum_v<Value>) {
    return static_cast<Value>(given.Int(index));
  } else {
    return given.Int(index);
  }
}

template <class Value>
constexpr com::Parameter ParameterOf() {
  if constexpr (std::is_same_v<Value, bool>) {
    return {com::Kind::kBool};
  } else if constexpr (std::is_same_v<Value, double>) {
    return {com::Kind::kDouble};
  } else if constexpr (std::is_same_v<Value, std::u16string_view>) {
    return {com::Kind::kText};
  } else {
    return {com::Kind::kInt};
  }
}

/// Calls a member of the host with arguments that came in; a text is its only one.
template <class Interface, class Result, class... Arguments, std::size_t... Index>
com::Variant CallInner(Object<Interface>& self, Result (Interface::*member)(Arguments...), const com::Received& given,
                       std::index_sequence<Index...>) {
  const auto call = [&]() -> Result {
    if constexpr ((std::is_same_v<Arguments, std::u16string_view> || ...)) {
      return (self.Inner().*member)(given.Text(0));
    } else {
      return (self.Inner().*member)(Argument<Arguments>(given, Index)...);
    }
  };
  if constexpr (std::is_void_v<Result>) {
    call();
    return {};
  } else {
    return ToVariant(call(), self.TheContext());
  }
}

template <class Interface, class Result>
com::Member Get(std::u16string_view name, Result (Interface::*member)() const) {
  return {name, DISPATCH_PROPERTYGET, {}, [member](com::AutomationObject& object, const com::Received&) {
            auto& self = Object<Interface>::Of(object);
            return ToVariant((self.Inner().*member)(), self.TheContext());
          }};
}

template <class Interface, class Value>
com::Member Put(std::u16string_view name, void (Interface::*member)(Value)) {
  return {name,
          DISPATCH_PROPERTYPUT,
          {ParameterOf<Value>()},
          [member](com::AutomationObject& object, const com::Received& given) {
            return CallInner(Object<Interface>::Of(object), member, given, std::index_sequence_for<Value>());
          }};
}

template <class Interface, class Result, class... Arguments>
com::Member Method(std::u16string_view name, Result (Interface::*member)(Arguments...)) {
  return {name,
          DISPATCH_METHOD,
          {ParameterOf<Arguments>()...},
          [member](com::AutomationObject& object, const com::Received& given) {
            return CallInner(Object<Interface>::Of(object), member, given, std::index_sequence_for<Arguments...>());
          }};
}

/// A member that is written out. @param work takes the object and what it is given, and gives back a value of the host
template <class Interface, class Work>
com::Member Special(std::u16string_view name, WORD kind, std::vector<com::Parameter> parameters, Work work) {
  return {name, kind, std::move(parameters), [work](com::AutomationObject& object, const com::Received& given) {
            auto& self = Object<Interface>::Of(object);
            return ToVariant(work(self, given), self.TheContext());
          }};
}

/// An item of a collection by its number.
template <class Interface, class Item>
com::Member ItemByNumber(Item (Interface::*item)(int) const) {
  return Special<Interface>(
      u"Item", DISPATCH_METHOD | DISPATCH_PROPERTYGET, {{com::Kind::kInt}},
      [item](auto& self, const com::Received& given) { return (self.Inner().*item)(given.Int(0)); });
}

template <class Interface>
com::Variant MakeObject(const com::Members& members, const std::shared_ptr<Interface>& inner,
                        const ContextPtr& context) {
  if (!inner) return com::Variant(static_cast<IDispatch*>(nullptr));
  const auto made = com::ComPtr<IDispatch>::Adopt(new Object<Interface>(members, inner, context));
  return com::Variant(made.Get());
}

/// The host's object behind one of this word processor's. @throws word::HostError 13 for another
template <class Interface>
std::shared_ptr<Interface> InnerOf(const com::Received& given, std::size_t index) {
  const com::ComPtr<IDispatch> object = given.Object(index);
  auto* const known = dynamic_cast<Object<Interface>*>(object.Get());
  if (known == nullptr) com::Check(DISP_E_TYPEMISMATCH, "server");
  return known->Pointer();
}

}  // namespace server
