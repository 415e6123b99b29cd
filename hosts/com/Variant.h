#pragma once

#include "hosts/com/Automation.h"

#include <string>
#include <string_view>
#include <vector>

#include "hosts/com/ComPtr.h"

namespace com {

/// A BSTR with this text, which the caller frees or hands on; an empty text is a string too. @throws std::bad_alloc
BSTR MakeBstr(std::u16string_view text);
/// A BSTR's text; nullptr is the empty one.
std::u16string FromBstr(BSTR text);

/// Owns a VARIANT. It converts from what an argument can be, so that calls list their arguments as they are.
class Variant {
 public:
  Variant() noexcept { VariantInit(&value_); }
  Variant(bool value) : Variant() { Set(VT_BOOL).boolVal = value ? VARIANT_TRUE : VARIANT_FALSE; }
  Variant(int value) : Variant() { Set(VT_I4).lVal = value; }
  Variant(double value) : Variant() { Set(VT_R8).dblVal = value; }
  Variant(std::u16string_view value) : Variant() { Set(VT_BSTR).bstrVal = MakeBstr(value); }
  Variant(const std::u16string& value) : Variant(std::u16string_view(value)) {}
  Variant(const char16_t* value) : Variant(std::u16string_view(value)) {}
  /// Takes a reference of its own; nullptr is "nothing".
  Variant(IDispatch* value);
  explicit Variant(const VARIANT& value);
  /// An array of strings, numbered from 0.
  explicit Variant(const std::vector<std::u16string>& value);
  Variant(const Variant& other);
  Variant(Variant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
  Variant& operator=(Variant other) noexcept;
  ~Variant() { VariantClear(&value_); }

  /// An optional argument that is left out.
  static Variant Missing();
  /// An argument through which the callee gives a value back; value outlives it.
  static Variant Reference(Variant& value);

  VARTYPE Type() const { return value_.vt; }
  /// Nothing in it: empty, null, or an object that is none.
  bool IsNothing() const;

  // @throws word::HostError 13 where the value is of no kind that becomes such a one
  int ToInt() const;
  bool ToBool() const;
  double ToDouble() const;
  /// Nothing is the empty text.
  std::u16string ToText() const;
  /// Empty for nothing.
  ComPtr<IDispatch> ToObject() const;
  /// Of an array of strings or of variants in one dimension.
  std::vector<std::u16string> ToTexts() const;

  const VARIANT& Get() const { return value_; }
  VARIANT* Receive();
  /// Hands the value over.
  VARIANT Detach();

 private:
  VARIANT& Set(VARTYPE type) {
    value_.vt = type;
    return value_;
  }
  Variant ChangedTo(VARTYPE type) const;

  VARIANT value_;
};

}  // namespace com
