#pragma once

#include "hosts/com/Automation.h"

#include <string_view>

#include "platform/word/HostError.h"

namespace com {

/// @throws word::HostError when result is a failure, with the number and text that Visual Basic has for it
void Check(HRESULT result, std::string_view member);

/// A failed call's error. @param details filled in by the call; its texts are freed
word::HostError ErrorOf(HRESULT result, EXCEPINFO& details, std::string_view member);

/// The reverse, for calls that come in: what a host's error looks like to an automation client.
/// @param details may be nullptr @return DISP_E_EXCEPTION
HRESULT ReportError(const word::HostError& error, EXCEPINFO* details);

/// Runs an entry point that is called through COM, which no exception may leave.
/// @param details may be nullptr
template <class Work>
HRESULT AtBoundary(EXCEPINFO* details, const Work& work);

/// What AtBoundary does with the exception that is being handled.
HRESULT ReportPresentException(EXCEPINFO* details);

template <class Work>
HRESULT AtBoundary(EXCEPINFO* details, const Work& work) {
  try {
    return work();
  } catch (...) {
    return ReportPresentException(details);
  }
}

}  // namespace com
