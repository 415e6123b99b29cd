#include "hosts/com/Enumeration.h"

#include "hosts/com/ComError.h"

namespace com {

std::vector<Dispatch> Enumerate(const Dispatch& collection, std::string_view member) {
  const Variant given = collection.GetNumbered(DISPID_NEWENUM, member);
  if (given.Type() != VT_UNKNOWN && given.Type() != VT_DISPATCH) Check(DISP_E_TYPEMISMATCH, member);
  const ComPtr<IEnumVARIANT> enumeration = Ask<IEnumVARIANT>(given.Get().punkVal, IID_IEnumVARIANT);
  if (!enumeration) Check(E_NOINTERFACE, member);
  std::vector<Dispatch> items;
  for (;;) {
    Variant item;
    const HRESULT outcome = enumeration->Next(1, item.Receive(), nullptr);
    Check(outcome, member);
    if (outcome != S_OK) return items;
    items.push_back(collection.Wrap(item, member));
  }
}

}  // namespace com
