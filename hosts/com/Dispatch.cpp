#include "hosts/com/Dispatch.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "hosts/com/ComError.h"

namespace com {

namespace {

/// Of which the objects are of different classes with numbers of their own: a template or a document, a button or a
/// popup.
constexpr std::string_view kMixed[] = {"CustomizationContext.", "CommandBarControl."};

DISPID AskNumber(IDispatch& object, std::string_view member) {
  const std::string_view name = member.substr(member.rfind('.') + 1);
  std::wstring wide(name.begin(), name.end());
  LPOLESTR names[] = {wide.data()};
  DISPID number = DISPID_UNKNOWN;
  Check(object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &number), member);
  return number;
}

}  // namespace

DISPID Session::NumberOf(IDispatch& object, std::string_view member) {
  if (std::any_of(std::begin(kMixed), std::end(kMixed), [member](auto prefix) { return member.starts_with(prefix); })) {
    return AskNumber(object, member);
  }
  const auto known = numbers_.find(member);
  if (known != numbers_.end()) return known->second;
  return numbers_[member] = AskNumber(object, member);
}

// Which of the two a member is, a client without its type library does not know, so Visual Basic asks for both.
Variant Dispatch::Get(std::string_view member, Arguments arguments) const {
  return Invoke(session_->NumberOf(*object_.Get(), member), DISPATCH_PROPERTYGET | DISPATCH_METHOD, member, arguments);
}

Variant Dispatch::GetNumbered(DISPID number, std::string_view member) const {
  return Invoke(number, DISPATCH_PROPERTYGET | DISPATCH_METHOD, member, {});
}

void Dispatch::Put(std::string_view member, const Variant& value) const {
  Invoke(session_->NumberOf(*object_.Get(), member), DISPATCH_PROPERTYPUT, member, {value});
}

Variant Dispatch::Call(std::string_view member, Arguments arguments) const {
  return Invoke(session_->NumberOf(*object_.Get(), member), DISPATCH_METHOD, member, arguments);
}

Dispatch Dispatch::Wrap(const Variant& value, std::string_view member) const {
  ComPtr<IDispatch> object = value.ToObject();
  if (!object) Check(E_POINTER, member);
  return {std::move(object), session_};
}

Variant Dispatch::Invoke(DISPID number, WORD kind, std::string_view member, Arguments arguments) const {
  // They travel from right to left, as plain copies of what the list owns.
  std::vector<VARIANT> values;
  values.reserve(arguments.size());
  for (const Variant& argument : arguments) values.push_back(argument.Get());
  std::reverse(values.begin(), values.end());
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{};
  parameters.rgvarg = values.data();
  parameters.cArgs = static_cast<UINT>(values.size());
  const bool isPut = kind == DISPATCH_PROPERTYPUT;
  if (isPut) {
    parameters.rgdispidNamedArgs = &put;
    parameters.cNamedArgs = 1;
  }
  Variant result;
  EXCEPINFO details{};
  session_->CountCall(member);
  const HRESULT outcome = object_->Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                          isPut ? nullptr : result.Receive(), &details, nullptr);
  if (FAILED(outcome)) throw ErrorOf(outcome, details, member);
  return result;
}

}  // namespace com
