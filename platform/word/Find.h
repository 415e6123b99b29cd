#pragma once

#include "platform/word/Constants.h"
#include "platform/word/Types.h"

namespace word {

/// Arguments of Find::Execute by name; what is absent keeps the property's present value.
struct FindArguments {
  int Replace{wdReplaceNone};
};

/// What a replacement puts in the place of a match. Where its text is the searched one with the first character moved
/// on, as when a quotation mark goes past a word, only that character moves, with the style and formatting that it has;
/// where changes are tracked, as one deletion and one insertion.
class Replacement : public Object {
 public:
  virtual void ClearFormatting() = 0;
  virtual std::u16string Text() const = 0;
  virtual void SetText(std::u16string_view value) = 0;
  /// A switch, not a colour: -1 lays Word's highlight colour (yellow) on, 0 takes highlighting away. Once it is set,
  /// the replacement formats; with an empty Text it then keeps what was found.
  virtual int Highlight() const = 0;
  virtual void SetHighlight(int value) = 0;
};

/// A search and its settings. They start as: Forward, Wrap stop, every Match... off, texts empty.
/// The rules of both kinds of search are written down in docs/find.md; three matter to every caller:
///  - a straight double quote in Text finds straight and curly double quotes, plain or wildcard; a curly one only
///  itself;
///  - a range is searched inside itself; an empty range, and one that exactly equals a match, from there to the story's
///  end;
///  - hidden text and field codes are found only while the window shows them; tracked deletions never.
class Find : public Object {
 public:
  /// Drops formatting criteria only; Text, Match..., Forward and Wrap stay. Word's rule.
  virtual void ClearFormatting() = 0;
  virtual std::u16string Text() const = 0;
  /// @throws HostError kStringTooLong beyond 255 characters
  virtual void SetText(std::u16string_view value) = 0;
  virtual bool Forward() const = 0;
  virtual void SetForward(bool value) = 0;
  virtual int Wrap() const = 0;
  virtual void SetWrap(int value) = 0;
  virtual bool Format() const = 0;
  virtual void SetFormat(bool value) = 0;
  virtual bool MatchCase() const = 0;
  virtual void SetMatchCase(bool value) = 0;
  virtual bool MatchWholeWord() const = 0;
  virtual void SetMatchWholeWord(bool value) = 0;
  virtual bool MatchWildcards() const = 0;
  virtual void SetMatchWildcards(bool value) = 0;
  virtual bool MatchSoundsLike() const = 0;
  virtual void SetMatchSoundsLike(bool value) = 0;
  virtual bool MatchAllWordForms() const = 0;
  virtual void SetMatchAllWordForms(bool value) = 0;
  virtual ReplacementPtr Replacement() const = 0;

  /// Searches. A hit moves the range onto the match; without one the range stays as it is.
  /// @return what Found() then says
  /// @throws HostError kBadPattern for a wildcard pattern that is none
  virtual bool Execute(const FindArguments& arguments = {}) = 0;
  virtual bool Found() const = 0;
};

}  // namespace word
