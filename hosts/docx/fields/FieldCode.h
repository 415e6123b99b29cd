#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace docx {

/// A switch of a field code: \ and a character, with the argument that follows it.
struct FieldSwitch {
  char16_t name{0};  ///< in small letters
  std::optional<std::u16string> argument{};
};

/// A field code taken apart. Arguments are as they stand in the code, without the quotes around them: in some fields
/// escapes in them mean something of their own; FieldText() resolves them otherwise.
struct FieldCode {
  std::u16string keyword;  ///< in capitals; empty for an empty code
  std::vector<std::u16string> arguments;
  std::vector<FieldSwitch> switches;

  /// The last switch of that name; nullptr when there is none.
  const FieldSwitch* Switch(char16_t name) const;
  bool Has(char16_t name) const { return Switch(name) != nullptr; }
  /// The argument of that switch, escapes resolved; nothing without switch or argument.
  std::optional<std::u16string> Text(char16_t name) const;
};

/// Takes any text, however broken. Words are parted by blanks and tabs; one in double quotes may hold them, a quote
/// behind a backslash does not end it, and a quote that is missing is thought at the code's end. A curly
/// opening quote ends with a curly closing or a straight one, a straight one only with a straight one. The argument
/// of a switch may follow it without a blank. Which switches take one depends on the keyword; those of fields
/// that are not known take the word that follows.
FieldCode ParseFieldCode(std::u16string_view code);

/// A backslash stands for the character behind it.
std::u16string FieldText(std::u16string_view raw);

/// Word's number (WdFieldType) of the field with that code; wdFieldEmpty (-1) for one that is not known.
int FieldType(std::u16string_view code);
int FieldTypeOfKeyword(std::u16string_view keyword);

}  // namespace docx
