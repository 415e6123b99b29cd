#pragma once

namespace os {

enum class PaperSize { kA4, kLetter };

class Locale {
 public:
  virtual ~Locale() = default;
  /// The paper that people use where the user is.
  virtual PaperSize Paper() = 0;
};

}  // namespace os
