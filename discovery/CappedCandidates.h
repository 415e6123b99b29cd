#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "discovery/QuotedTerms.h"
#include "discovery/TextSet.h"
#include "platform/os/Characters.h"

/// What the search for capitalised words and phrases keeps of what it comes across: the tests that a candidate has
/// to pass, and the storing of those that do.
class CappedCandidates {
 public:
  /// Builds the lists of words that are no terms. @param characters, found outlive the object; the candidates go
  /// into found behind what it holds
  CappedCandidates(os::Characters& characters, FoundTerms& found);

  /// Puts a word or phrase to the tests, and stores it when it passes them. Blanks around it do not count.
  void Offer(std::u16string_view candidate);

  /// The storing step by itself: a candidate with a bracket that it does not close, with a separator in it, or one
  /// that is in the array already, is dropped; any other goes into the array's last element, behind which a new one
  /// is made when it is not empty.
  void Store(std::u16string_view candidate);

 private:
  bool PassesTests(std::u16string_view candidate) const;

  os::Characters& characters_;
  FoundTerms& found_;
  const TextSet ignored_;
  const TextSet excluded_;
  const std::vector<std::u16string_view> separators_;
  /// Every candidate that was put to the tests: what they say of it does not change.
  TextSet offered_;
  /// What the array holds.
  TextSet stored_;
};
