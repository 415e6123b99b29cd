#include "hosts/json/Json.h"

namespace json {

Value Read(std::string_view text) { return Value::parse(text.begin(), text.end()); }

Value ReadOrDiscard(std::string_view text) { return Value::parse(text.begin(), text.end(), nullptr, false); }

std::string Written(const Value& value) { return value.dump(-1, ' ', false, Value::error_handler_t::replace); }

std::string Indented(const Value& value) { return value.dump(2, ' ', false, Value::error_handler_t::replace); }

std::string InAscii(const Value& value) { return value.dump(-1, ' ', true, Value::error_handler_t::replace); }

}  // namespace json
