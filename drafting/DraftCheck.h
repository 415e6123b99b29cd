#pragma once

#include "drafting/Candidates.h"
#include "drafting/Findings.h"

namespace drafting {

/// Looks for what a drafter may have got wrong with the defined terms of a document, by the rules of docs/check.md.
/// Nothing in the document is changed.
/// @throws word::HostError
Result CheckDraft(const CandidateSources& sources);

}  // namespace drafting
