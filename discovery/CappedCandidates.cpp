#include "discovery/CappedCandidates.h"

#include <algorithm>

#include "discovery/Like.h"
#include "discovery/LineText.h"
#include "platform/Text.h"

namespace {

/// What no term holds: codes 13, 11, 10, 9 and 8.
constexpr std::u16string_view kControls = u"\r\v\n\t\b";

}  // namespace

CappedCandidates::CappedCandidates(os::Characters& characters, FoundTerms& found)
    : characters_(characters),
      found_(found),
      ignored_{u"the", u"this", u"and", u"for", u"if", u"in", u"at", u"as"},
      excluded_{u"a", u"and", u"as", u"between", u"of", u"the", u"in"},
      separators_{u". ", u";", u":"},
      stored_(found.begin(), found.end()) {}

void CappedCandidates::Offer(std::u16string_view candidate) {
  candidate = TrimBlanks(candidate);
  if (offered_.find(candidate) != offered_.end()) return;
  offered_.emplace(candidate);
  if (PassesTests(candidate)) Store(candidate);
}

bool CappedCandidates::PassesTests(std::u16string_view candidate) const {
  if (ignored_.count(characters_.ToLower(candidate)) != 0) return false;
  if (excluded_.find(candidate) != excluded_.end()) return false;
  if (!Like(candidate, u"*[A-Z]*") && !Like(candidate, u"*[a-z]*")) return false;
  if (candidate.find_first_of(kControls) != std::u16string_view::npos) return false;
  return Like(candidate, u"[A-Z]*");
}

void CappedCandidates::Store(std::u16string_view candidate) {
  if (OpensBracketOnly(candidate)) return;
  const auto isInside = [candidate](std::u16string_view separator) {
    return candidate.find(separator) != std::u16string_view::npos;
  };
  if (std::any_of(separators_.begin(), separators_.end(), isInside)) return;
  if (!stored_.emplace(candidate).second) return;
  if (!found_.back().empty()) found_.emplace_back();
  found_.back() = candidate;
}
