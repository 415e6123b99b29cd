#include "hosts/com/Served.h"

namespace com {

namespace {

std::atomic<long> liveObjects{0};

}  // namespace

long LiveObjects() { return liveObjects; }

void KeepModule(bool keep) { liveObjects += keep ? 1 : -1; }

}  // namespace com
