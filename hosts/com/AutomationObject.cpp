#include "hosts/com/AutomationObject.h"

#include <algorithm>
#include <cwctype>

#include "hosts/com/ComError.h"

namespace com {

namespace {

/// Past all references.
VARTYPE TypeOf(const VARIANTARG& value) {
  if (value.vt == (VT_BYREF | VT_VARIANT)) return TypeOf(*value.pvarVal);
  return static_cast<VARTYPE>(value.vt & ~VT_BYREF);
}

bool IsMissing(const VARIANTARG& value) { return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND; }

bool Fits(Kind kind, VARTYPE type) {
  const bool isNumber = type == VT_I2 || type == VT_I4 || type == VT_R4 || type == VT_R8 || type == VT_BOOL;
  switch (kind) {
    case Kind::kInt:
    case Kind::kDouble:
    case Kind::kBool:
      return isNumber;
    case Kind::kText:
      return type == VT_BSTR;
    case Kind::kObject:
      return type == VT_DISPATCH || type == VT_UNKNOWN;
    case Kind::kAny:
      return true;
  }
  return false;
}

std::wstring Folded(std::wstring_view name) {
  std::wstring folded(name);
  std::transform(folded.begin(), folded.end(), folded.begin(), [](wchar_t unit) { return std::towlower(unit); });
  return folded;
}

/// Puts the arguments in the order of the declaration, named ones by their numbers.
/// @param argument the number of the one that is wrong, as the caller counts
HRESULT Arrange(const Member& member, DISPPARAMS& given, std::vector<VARIANTARG*>& values, UINT* argument) {
  values.assign(member.parameters.size(), nullptr);
  for (UINT i = 0; i < given.cArgs; ++i) {
    std::size_t place = given.cArgs - 1 - i;
    if (i < given.cNamedArgs) {
      const DISPID name = given.rgdispidNamedArgs[i];
      // The value of a put is its last argument.
      place = name == DISPID_PROPERTYPUT ? values.size() - 1 : static_cast<std::size_t>(name);
    }
    if (place >= values.size()) return DISP_E_BADPARAMCOUNT;
    VARIANTARG& value = given.rgvarg[i];
    if (IsMissing(value)) continue;
    if (!Fits(member.parameters[place].kind, TypeOf(value))) {
      if (argument != nullptr) *argument = i;
      return DISP_E_TYPEMISMATCH;
    }
    values[place] = &value;
  }
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i] == nullptr && !member.parameters[i].optional) return DISP_E_PARAMNOTOPTIONAL;
  }
  return S_OK;
}

}  // namespace

bool Received::Has(std::size_t index) const { return index < values_.size() && values_[index] != nullptr; }

Variant Received::Get(std::size_t index) const { return Has(index) ? Variant(*values_[index]) : Variant(); }

void Received::Return(std::size_t index, Variant value) const {
  if (!Has(index) || values_[index]->vt != (VT_BYREF | VT_VARIANT)) Check(DISP_E_TYPEMISMATCH, "Argument");
  VariantClear(values_[index]->pvarVal);
  *values_[index]->pvarVal = value.Detach();
}

Members::Members(std::initializer_list<Member> members) : members_(members) {
  DISPID next = 1;
  for (std::size_t i = 0; i < members_.size(); ++i) {
    const auto same = std::find_if(members_.begin(), members_.begin() + static_cast<std::ptrdiff_t>(i),
                                   [&](const Member& member) { return member.name == members_[i].name; });
    if (static_cast<std::size_t>(same - members_.begin()) < i) {
      numbers_.push_back(numbers_[static_cast<std::size_t>(same - members_.begin())]);
    } else if (members_[i].name == u"Item") {
      numbers_.push_back(DISPID_VALUE);
    } else if (members_[i].name == u"_NewEnum") {
      numbers_.push_back(DISPID_NEWENUM);
    } else {
      numbers_.push_back(next++);
    }
  }
}

HRESULT Members::NumberOf(std::wstring_view name, DISPID& number) const {
  const std::wstring asked = Folded(name);
  for (std::size_t i = 0; i < members_.size(); ++i) {
    if (Folded(std::wstring(members_[i].name.begin(), members_[i].name.end())) != asked) continue;
    number = numbers_[i];
    return S_OK;
  }
  number = DISPID_UNKNOWN;
  return DISP_E_UNKNOWNNAME;
}

const Member* Members::Find(DISPID number, WORD kinds) const {
  for (std::size_t i = 0; i < members_.size(); ++i) {
    if (numbers_[i] == number && (members_[i].kind & kinds) != 0) return &members_[i];
  }
  return nullptr;
}

HRESULT AutomationObject::QueryInterface(REFIID id, void** object) {
  return Give(id, object, {IID_IUnknown, IID_IDispatch});
}

HRESULT AutomationObject::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT AutomationObject::GetTypeInfo(UINT, LCID, ITypeInfo**) { return DISP_E_BADINDEX; }

HRESULT AutomationObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* numbers) {
  return AtBoundary(nullptr, [&]() -> HRESULT {
    if (count == 0) return E_INVALIDARG;
    const HRESULT first = members_.NumberOf(names[0], numbers[0]);
    // Arguments have no names here.
    std::fill(numbers + 1, numbers + count, DISPID_UNKNOWN);
    return count == 1 ? first : DISP_E_UNKNOWNNAME;
  });
}

HRESULT AutomationObject::Invoke(DISPID number, REFIID, LCID, WORD kinds, DISPPARAMS* parameters, VARIANT* result,
                                 EXCEPINFO* details, UINT* argument) {
  return AtBoundary(details, [&]() -> HRESULT {
    const Member* const member = members_.Find(number, kinds);
    if (member == nullptr) return DISP_E_MEMBERNOTFOUND;
    std::vector<VARIANTARG*> values;
    const HRESULT arranged = Arrange(*member, *parameters, values, argument);
    if (FAILED(arranged)) return arranged;
    // The call may take the last reference of others away.
    const ComPtr<AutomationObject> self(this);
    BeforeCall(*member);
    Variant value = member->run(*this, Received(std::move(values)));
    if (result != nullptr) *result = value.Detach();
    return S_OK;
  });
}

}  // namespace com
