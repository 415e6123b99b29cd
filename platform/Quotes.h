#pragma once

/// Whether a code unit is a double quotation mark: straight, curly, low or an angle. Those are the kinds that come in
/// pairs around a term.
inline bool IsDoubleQuote(char16_t unit) {
  switch (unit) {
    case u'"':
    case u'\u201C':
    case u'\u201D':
    case u'\u201E':
    case u'\u201F':
    case u'\u00AB':
    case u'\u00BB':
      return true;
    default:
      return false;
  }
}
