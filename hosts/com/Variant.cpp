#include "hosts/com/Variant.h"

#include <algorithm>
#include <memory>
#include <new>
#include <utility>

#include "hosts/com/ComError.h"

namespace com {

namespace {

/// Keeps an array's elements in memory while they are looked at.
template <class Element>
class ArrayData {
 public:
  explicit ArrayData(SAFEARRAY* array) : array_(array) {
    void* data = nullptr;
    Check(SafeArrayAccessData(array_, &data), "Array");
    data_ = static_cast<Element*>(data);
  }
  ~ArrayData() { SafeArrayUnaccessData(array_); }
  ArrayData(const ArrayData&) = delete;
  ArrayData& operator=(const ArrayData&) = delete;
  Element& operator[](std::size_t index) { return data_[index]; }

 private:
  SAFEARRAY* array_;
  Element* data_{nullptr};
};

std::size_t LengthOf(SAFEARRAY* array) {
  LONG lower = 0;
  LONG upper = -1;
  Check(SafeArrayGetLBound(array, 1, &lower), "Array");
  Check(SafeArrayGetUBound(array, 1, &upper), "Array");
  return static_cast<std::size_t>(upper - lower + 1);
}

}  // namespace

BSTR MakeBstr(std::u16string_view text) {
  const BSTR made = SysAllocStringLen(nullptr, static_cast<UINT>(text.size()));
  if (made == nullptr) throw std::bad_alloc();
  std::copy(text.begin(), text.end(), made);
  return made;
}

std::u16string FromBstr(BSTR text) {
  if (text == nullptr) return {};
  return {text, text + SysStringLen(text)};
}

Variant::Variant(IDispatch* value) : Variant() {
  Set(VT_DISPATCH).pdispVal = value;
  if (value != nullptr) value->AddRef();
}

Variant::Variant(const VARIANT& value) : Variant() {
  // A value behind a reference is copied out of it.
  Check(VariantCopyInd(&value_, const_cast<VARIANT*>(&value)), "Variant");
}

Variant::Variant(const Variant& other) : Variant() {
  Check(VariantCopy(&value_, const_cast<VARIANT*>(&other.value_)), "Variant");
}

Variant::Variant(const std::vector<std::u16string>& value) : Variant() {
  SAFEARRAY* const array = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(value.size()));
  if (array == nullptr) throw std::bad_alloc();
  Set(VT_ARRAY | VT_BSTR).parray = array;
  ArrayData<BSTR> data(array);
  for (std::size_t i = 0; i < value.size(); ++i) data[i] = MakeBstr(value[i]);
}

Variant& Variant::operator=(Variant other) noexcept {
  std::swap(value_, other.value_);
  return *this;
}

Variant Variant::Missing() {
  Variant missing;
  missing.Set(VT_ERROR).scode = DISP_E_PARAMNOTFOUND;
  return missing;
}

Variant Variant::Reference(Variant& value) {
  Variant reference;
  reference.Set(VT_BYREF | VT_VARIANT).pvarVal = &value.value_;
  return reference;
}

bool Variant::IsNothing() const {
  if (Type() == VT_DISPATCH) return value_.pdispVal == nullptr;
  if (Type() == VT_UNKNOWN) return value_.punkVal == nullptr;
  return Type() == VT_EMPTY || Type() == VT_NULL;
}

Variant Variant::ChangedTo(VARTYPE type) const {
  Variant changed;
  Check(VariantChangeType(&changed.value_, const_cast<VARIANT*>(&value_), 0, type), "Variant");
  return changed;
}

int Variant::ToInt() const { return Type() == VT_I4 ? value_.lVal : ChangedTo(VT_I4).value_.lVal; }

bool Variant::ToBool() const { return ChangedTo(VT_BOOL).value_.boolVal != VARIANT_FALSE; }

double Variant::ToDouble() const { return ChangedTo(VT_R8).value_.dblVal; }

std::u16string Variant::ToText() const {
  if (IsNothing()) return {};
  return Type() == VT_BSTR ? FromBstr(value_.bstrVal) : FromBstr(ChangedTo(VT_BSTR).value_.bstrVal);
}

ComPtr<IDispatch> Variant::ToObject() const {
  if (IsNothing()) return {};
  if (Type() != VT_DISPATCH && Type() != VT_UNKNOWN) Check(DISP_E_TYPEMISMATCH, "Variant");
  ComPtr<IDispatch> object = Ask<IDispatch>(value_.punkVal, IID_IDispatch);
  if (!object) Check(E_NOINTERFACE, "Variant");
  return object;
}

std::vector<std::u16string> Variant::ToTexts() const {
  const bool strings = Type() == (VT_ARRAY | VT_BSTR);
  if ((!strings && Type() != (VT_ARRAY | VT_VARIANT)) || SafeArrayGetDim(value_.parray) != 1) {
    Check(DISP_E_TYPEMISMATCH, "Variant");
  }
  std::vector<std::u16string> texts(LengthOf(value_.parray));
  if (strings) {
    ArrayData<BSTR> data(value_.parray);
    for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = FromBstr(data[i]);
  } else {
    ArrayData<VARIANT> data(value_.parray);
    for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = Variant(data[i]).ToText();
  }
  return texts;
}

VARIANT* Variant::Receive() {
  VariantClear(&value_);
  return &value_;
}

VARIANT Variant::Detach() {
  const VARIANT value = value_;
  VariantInit(&value_);
  return value;
}

}  // namespace com
