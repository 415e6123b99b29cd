#pragma once

#include "hosts/com/Automation.h"

#include <cstdint>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "hosts/com/Variant.h"

namespace com {

/// What the objects of one word processor share: the numbers of members that were asked for, and how often the word
/// processor was called.
class Session {
 public:
  /// Keeps the number that a member has on all objects of its class. @param member such as "Range.Start"
  DISPID NumberOf(IDispatch& object, std::string_view member);

  void CountCall(std::string_view member) { ++calls_[member]; }
  /// Calls of each member since the session began; looking for a member's number is none.
  const std::map<std::string_view, std::uint64_t>& Calls() const { return calls_; }

 private:
  std::map<std::string_view, DISPID> numbers_;
  std::map<std::string_view, std::uint64_t> calls_;
};
using SessionPtr = std::shared_ptr<Session>;

/// An automation object whose members are called by name.
///
/// Members are named with their class, "Range.Start", in texts that last as long as the program; what stands behind the
/// dot is asked of the object, all of it is the member of an error. Arguments are listed in the order of the object's
/// documentation; those at the end that are optional can be left off. Every member
/// throws word::HostError with the number and description of the word processor.
class Dispatch {
 public:
  using Arguments = std::initializer_list<Variant>;

  Dispatch(ComPtr<IDispatch> object, SessionPtr session) : object_(std::move(object)), session_(std::move(session)) {}

  IDispatch* Object() const { return object_.Get(); }
  const SessionPtr& TheSession() const { return session_; }

  Variant Get(std::string_view member, Arguments arguments = {}) const;
  void Put(std::string_view member, const Variant& value) const;
  Variant Call(std::string_view member, Arguments arguments = {}) const;

  /// Gets a member by its number, for those that have no name to ask for; member names it in errors.
  Variant GetNumbered(DISPID number, std::string_view member) const;

  int Int(std::string_view member) const { return Get(member).ToInt(); }
  bool Bool(std::string_view member) const { return Get(member).ToBool(); }
  double Double(std::string_view member) const { return Get(member).ToDouble(); }
  std::u16string Text(std::string_view member) const { return Get(member).ToText(); }

  /// What a member gave back, as an object of the same session. @throws word::HostError kObjectNotSet for nothing
  Dispatch Wrap(const Variant& value, std::string_view member) const;
  Dispatch Object(std::string_view member, Arguments arguments = {}) const {
    return Wrap(Get(member, arguments), member);
  }

 private:
  Variant Invoke(DISPID number, WORD kind, std::string_view member, Arguments arguments) const;

  ComPtr<IDispatch> object_;
  SessionPtr session_;
};

}  // namespace com
