#include "hosts/com/TermTables.h"

#include <array>
#include <new>

#include "hosts/com/ComError.h"

namespace com {

namespace {

constexpr std::string_view kMember = "TermTable";
constexpr LONG kText = 0;
constexpr LONG kCount = 1;

Variant ElementOf(SAFEARRAY* array, LONG row, LONG column) {
  std::array<LONG, 2> place = {row, column};
  Variant element;
  Check(SafeArrayGetElement(array, place.data(), element.Receive()), kMember);
  return element;
}

void PutElement(SAFEARRAY* array, LONG row, LONG column, const Variant& value) {
  std::array<LONG, 2> place = {row, column};
  Check(SafeArrayPutElement(array, place.data(), const_cast<VARIANT*>(&value.Get())), kMember);
}

}  // namespace

Variant FromTermTable(const TermTable& table) {
  std::array<SAFEARRAYBOUND, 2> bounds = {{{static_cast<ULONG>(table.size()), 0}, {2, 0}}};
  SAFEARRAY* const array = SafeArrayCreate(VT_VARIANT, 2, bounds.data());
  if (array == nullptr) throw std::bad_alloc();
  Variant owner;
  VARIANT* const value = owner.Receive();
  value->vt = VT_ARRAY | VT_VARIANT;
  value->parray = array;
  LONG row = 0;
  for (const TermRow& term : table) {
    PutElement(array, row, kText, term.term);
    PutElement(array, row++, kCount, term.count);
  }
  return owner;
}

TermTable ToTermTable(const Variant& value) {
  SAFEARRAY* const array = value.Get().parray;
  if (value.Type() != (VT_ARRAY | VT_VARIANT) || SafeArrayGetDim(array) != 2) Check(DISP_E_TYPEMISMATCH, kMember);
  LONG first = 0;
  LONG last = -1;
  Check(SafeArrayGetLBound(array, 1, &first), kMember);
  Check(SafeArrayGetUBound(array, 1, &last), kMember);
  TermTable table;
  for (LONG row = first; row <= last; ++row) {
    table.push_back({ElementOf(array, row, kText).ToText(), ElementOf(array, row, kCount).ToInt()});
  }
  return table;
}

}  // namespace com
