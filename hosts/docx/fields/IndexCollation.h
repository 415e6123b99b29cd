#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace docx {

/// How an index is ordered: word by word, blanks first, then symbols, digits (one by one, not by number) and letters;
/// hyphens and apostrophes do not count, case and accents only where all else is equal.
class IndexCollation {
 public:
  /// What a text that begins with no letter is listed under.
  static constexpr char16_t kNoLetter = u'#';

  /// @param language a Windows locale (LCID); an unknown one sorts as no language in particular
  explicit IndexCollation(std::optional<int> language);
  ~IndexCollation();
  IndexCollation(const IndexCollation&) = delete;
  IndexCollation& operator=(const IndexCollation&) = delete;

  /// Keys compare by their bytes as the texts do. Texts that differ have different keys.
  std::string Key(std::u16string_view text) const;
  /// The capital that a text is listed under: accented letters under the plain one, unless the language has them as
  /// letters of their own.
  std::u16string Letter(std::u16string_view text) const;

 private:
  struct Collators;
  std::unique_ptr<Collators> collators_;
};

}  // namespace docx
