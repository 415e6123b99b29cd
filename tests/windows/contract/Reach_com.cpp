#include "tests/contract/Reach.h"

#include "hosts/com/Objects.h"
#include "hosts/com/TermMarkerClient.h"
#include "hosts/com/TermMarkerServer.h"
#include "hosts/com/WordProcessor.h"
#include "hosts/win32/UnicodeCharacters.h"
#include "marker/MakeTermMarker.h"
#include "tests/windows/server/ServedObject.h"

namespace reach {

namespace {

server::ContextPtr NewContext() { return std::make_shared<server::Context>(); }

}  // namespace

os::Characters& Characters() {
  static win32::UnicodeCharacters characters;
  return characters;
}

std::unique_ptr<TermMarker> Marker() { return com::WrapTermMarker(com::ServeTermMarker(MakeTermMarker(Characters()))); }

word::ApplicationPtr Application(const word::ApplicationPtr& application) {
  return com::WrapApplication(server::Give(application, NewContext()).ToObject().Get());
}

office::CommandBarsPtr CommandBars(const office::CommandBarsPtr& bars) {
  return com::MakeCommandBars({server::Give(bars, NewContext()).ToObject(), std::make_shared<com::Session>()});
}

}  // namespace reach
