#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/json/Json.h"
#include "platform/TermMarker.h"
#include "platform/word/Types.h"

/// How arguments and results look to an observer; CallObserver.h has the rules.
namespace recording {

using json::Value;

std::string Utf8(std::u16string_view text);

inline Value ToValue(bool flag) { return flag; }
inline Value ToValue(int number) { return number; }
inline Value ToValue(double number) { return number; }
inline Value ToValue(std::u16string_view text) { return Utf8(text); }
Value ToValue(const std::vector<std::u16string>& texts);
Value ToValue(const TermTable& table);
/// The pointers are the inner host's.
Value ToValue(const word::ApplicationPtr& application);
Value ToValue(const word::DocumentPtr& document);
Value ToValue(const word::RangePtr& range);

}  // namespace recording
