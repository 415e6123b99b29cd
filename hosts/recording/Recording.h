#pragma once

#include <memory>

#include "hosts/recording/CallObserver.h"
#include "platform/TermMarker.h"
#include "platform/word/Types.h"

namespace recording {

/// Forwards every call to another host's objects and tells the observer. Whatever is reached through the result is
/// recorded too. Objects that come back as arguments are handed on as the inner host's own. The observer outlives
/// every object reached.
word::ApplicationPtr Record(word::ApplicationPtr inner, CallObserver& observer);

/// The same for the companion. It receives the inner host's objects, so what it does with them is not told.
std::unique_ptr<TermMarker> Record(std::unique_ptr<TermMarker> inner, CallObserver& observer);

}  // namespace recording
