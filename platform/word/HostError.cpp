#include "platform/word/HostError.h"

#include <utility>

namespace word {

namespace {

/// what() is for logs only, so what lies outside ASCII may be lost there; Description() keeps all of it.
std::string Plain(int number, std::u16string_view description, std::string_view member) {
  std::string text(member);
  text += ": " + std::to_string(number) + " ";
  for (const char16_t unit : description) text += unit < 128 ? static_cast<char>(unit) : '?';
  return text;
}

}  // namespace

HostError::HostError(int number, std::u16string description, std::string_view member)
    : std::runtime_error(Plain(number, description, member)),
      number_(number),
      description_(std::move(description)),
      member_(member) {}

}  // namespace word
