#pragma once

#include <memory>

#include "hosts/com/ComPtr.h"
#include "platform/TermMarker.h"

namespace com {

/// The companion's class, as it is registered.
inline constexpr wchar_t kTermMarkerProgId[] = L"TermMarker.TermMarker";

/// A companion reached through automation. Objects of the word processor that it is given are those of this host.
std::unique_ptr<TermMarker> WrapTermMarker(ComPtr<IDispatch> marker);

/// A new companion of the registered class.
/// @throws word::HostError 429 when there is none
std::unique_ptr<TermMarker> CreateTermMarker();

}  // namespace com
