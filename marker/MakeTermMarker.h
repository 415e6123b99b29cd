#pragma once

#include "platform/TermMarker.h"
#include "platform/os/Characters.h"

#include <memory>

/// When MarkTermInStory's entries and highlights come into the document, at the latest before the run goes on with
/// something else than marking.
enum class EntryWriting {
  kByTerm,      ///< in the call itself: a person who waits sees how far it is
  kByPosition,  ///< those of all terms of a story in one go through its text, which costs much less in a file
};

/// The companion over any host's object model. One instance serves any number of runs and documents, one run
/// at a time.
/// @param characters must outlive what is returned
std::unique_ptr<TermMarker> MakeTermMarker(os::Characters& characters, EntryWriting writing = EntryWriting::kByTerm);
