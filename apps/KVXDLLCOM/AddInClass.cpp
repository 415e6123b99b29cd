#include "apps/KVXDLLCOM/AddIn.h"
#include "hosts/com/Library.h"

namespace com {

const ServedClass kServedClass = {{0x9451FABB, 0xFB0B, 0x41BE, {0xBF, 0x8A, 0xFD, 0xE9, 0x32, 0x06, 0x27, 0x29}},
                                  L"KVXDLLCOM.Connect",
                                  L"Kelvarin for Word",
                                  []() -> IUnknown* { return new AddIn; }};

}  // namespace com
