#pragma once

#include <string_view>

#include "hosts/json/Json.h"

namespace recording {

/// Told of the calls that pass through recorded objects. A transcript lists what the first three say; a test that
/// plays a failing host throws word::HostError from BeforeCall.
///
/// Values: flags are true or false, numbers numbers, texts UTF-8 (a lone surrogate becomes U+FFFD), a range
/// {"story","start","end"} as it stood before the call, a document its name, the application "Application", a table of
/// terms [[term, count], ...], a missing object or value null.
class CallObserver {
 public:
  virtual ~CallObserver() = default;

  /// Before every member of every recorded object, gets included.
  /// @param member class and member, such as "Range.Start" or "TermMarker.InsertIndex"
  virtual void BeforeCall(std::string_view member) { static_cast<void>(member); }

  /// A property of Word is put, whether or not that then succeeds. @param member such as "Options.AllowFastSave"
  virtual void WordPut(std::string_view member, const json::Value& value) = 0;

  /// A method of Word that changes something is called, whether or not that then succeeds.
  /// @param member UndoClear, ScreenRefresh, Save and SaveAs bare; every other with its class
  /// @param value the argument, an object of named arguments, or null
  virtual void WordCall(std::string_view member, const json::Value& value) = 0;

  /// The companion was called and came back. @param arguments an array in the order of the interface
  /// @param result null for an operation without one; {"error": number, "description"} when it threw
  virtual void Marker(std::string_view operation, const json::Value& arguments, const json::Value& result) = 0;
};

}  // namespace recording
