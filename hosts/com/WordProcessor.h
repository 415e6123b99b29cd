#pragma once

#include "hosts/com/Automation.h"

#include "hosts/com/Dispatch.h"
#include "platform/word/Types.h"

namespace com {

/// The object model of a running word processor, reached through automation alone. Objects may be used on the thread
/// that they came to, and after its end not at all.
word::ApplicationPtr WrapApplication(IDispatch* application, SessionPtr session = std::make_shared<Session>());

/// Objects of that word processor which another component hands over.
word::DocumentPtr WrapDocument(IDispatch* document, SessionPtr session);
word::RangePtr WrapRange(IDispatch* range, SessionPtr session);

/// The automation object behind what the functions above and its members gave; owned by it.
/// @throws std::bad_cast for an object of another host
IDispatch* Unwrap(const word::ApplicationPtr& application);
IDispatch* Unwrap(const word::DocumentPtr& document);
IDispatch* Unwrap(const word::RangePtr& range);

}  // namespace com
