#include "hosts/com/Library.h"
#include "hosts/com/TermMarkerClient.h"
#include "hosts/com/TermMarkerServer.h"
#include "hosts/win32/UnicodeCharacters.h"
#include "marker/MakeTermMarker.h"

namespace com {

namespace {

IUnknown* MakeTermMarkerObject() {
  // It has no state, so all companions of the library may have the same.
  static win32::UnicodeCharacters characters;
  return ServeTermMarker(MakeTermMarker(characters)).Detach();
}

}  // namespace

const ServedClass kServedClass = {{0x514F3F66, 0x6C6F, 0x42A3, {0xB8, 0xD5, 0x7A, 0xA7, 0x0C, 0x89, 0xCF, 0x19}},
                                  kTermMarkerProgId,
                                  L"Kelvarin TermMarker",
                                  &MakeTermMarkerObject};

}  // namespace com
