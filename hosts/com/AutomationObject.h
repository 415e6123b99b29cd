#pragma once

#include "hosts/com/Automation.h"

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/com/Served.h"
#include "hosts/com/Variant.h"

namespace com {

/// What an argument has to be. Numbers may be of any size; a text is no number and a number no text.
enum class Kind { kInt, kDouble, kBool, kText, kObject, kAny };

struct Parameter {
  Kind kind;
  bool optional{false};
};
/// One that can be left out.
constexpr Parameter Optional(Kind kind) { return {kind, true}; }

/// The arguments of a call that came in, numbered from 0 in the order of the declaration.
class Received {
 public:
  /// @param values from right to left, as they travel; they outlive this
  explicit Received(std::vector<VARIANTARG*> values) : values_(std::move(values)) {}

  bool Has(std::size_t index) const;
  Variant Get(std::size_t index) const;
  int Int(std::size_t index) const { return Get(index).ToInt(); }
  bool Bool(std::size_t index) const { return Get(index).ToBool(); }
  double Double(std::size_t index) const { return Get(index).ToDouble(); }
  std::u16string Text(std::size_t index) const { return Get(index).ToText(); }
  ComPtr<IDispatch> Object(std::size_t index) const { return Get(index).ToObject(); }
  /// Gives a value back through an argument. @throws word::HostError 13 for one that was not passed by reference
  void Return(std::size_t index, Variant value) const;

 private:
  std::vector<VARIANTARG*> values_;
};

class AutomationObject;

/// A member of a class of objects: a method, or one direction of a property.
struct Member {
  std::u16string_view name;
  WORD kind;  ///< one of DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT
  std::vector<Parameter> parameters;
  std::function<Variant(AutomationObject&, const Received&)> run;
};

/// The members of a class. Their numbers are those of their names, in the order of first use; "Item" is the one without
/// a name, and "_NewEnum" has the number that automation gave it.
class Members {
 public:
  Members(std::initializer_list<Member> members);
  HRESULT NumberOf(std::wstring_view name, DISPID& number) const;
  /// nullptr when there is none of that kind. @param kinds as a caller asks, several at a time
  const Member* Find(DISPID number, WORD kinds) const;

 private:
  std::vector<Member> members_;
  std::vector<DISPID> numbers_;
};

/// An object that is reached by the names of its members, as Word's are. Unknown names, arguments of the wrong kind and
/// a wrong number of them are errors; no exception leaves a call.
class AutomationObject : public Counted<IDispatch> {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* numbers) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD kinds, DISPPARAMS* parameters, VARIANT* result,
                                   EXCEPINFO* details, UINT* argument) override;

 protected:
  /// @param members outlive the object
  explicit AutomationObject(const Members& members) : members_(members) {}
  /// Around each call, for those that count them or let some fail.
  virtual void BeforeCall(const Member& member) { static_cast<void>(member); }

 private:
  const Members& members_;
};

}  // namespace com
