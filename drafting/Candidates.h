#pragma once

#include <string>
#include <vector>

#include "platform/TermMarker.h"
#include "platform/forms/FormHost.h"
#include "platform/os/Characters.h"

namespace drafting {

/// What the two searches of "Find and index" offer.
struct Candidates {
  std::vector<std::u16string> quoted;       ///< the texts in quotes that can be terms, in the order of the document
  std::vector<std::u16string> capitalised;  ///< words and phrases, in the order of the document
};

struct CandidateSources {
  word::ApplicationPtr application;
  word::DocumentPtr document;
  TermMarker& marker;
  forms::FormHost& forms;
  os::Characters& characters;
};

/// @throws word::HostError
Candidates FindCandidates(const CandidateSources& sources);

/// The term without the article that it begins with.
std::u16string_view WithoutArticle(std::u16string_view term, os::Characters& characters);

}  // namespace drafting
