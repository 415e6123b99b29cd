#include "tests/contract/Reach.h"

#include "hosts/win32/UnicodeCharacters.h"
#include "marker/MakeTermMarker.h"

namespace reach {

os::Characters& Characters() {
  static win32::UnicodeCharacters characters;
  return characters;
}

std::unique_ptr<TermMarker> Marker() { return MakeTermMarker(Characters(), EntryWriting::kByPosition); }

word::ApplicationPtr Application(const word::ApplicationPtr& application) { return application; }

office::CommandBarsPtr CommandBars(const office::CommandBarsPtr& bars) { return bars; }

}  // namespace reach
