#include "hosts/com/ComError.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <new>
#include <string>

#include "hosts/com/Variant.h"

namespace com {

namespace {

/// Visual Basic's number and text of a failure that says no more than its code.
struct PlainError {
  HRESULT result;
  int number;
  std::u16string_view text;
};

constexpr std::u16string_view kNoSuchMember = u"Object doesn't support this property or method";

constexpr PlainError kPlainErrors[] = {
    {DISP_E_MEMBERNOTFOUND, 438, kNoSuchMember},
    {DISP_E_UNKNOWNNAME, 438, kNoSuchMember},
    {DISP_E_TYPEMISMATCH, 13, u"Type mismatch"},
    {DISP_E_BADPARAMCOUNT, 450, u"Wrong number of arguments or invalid property assignment"},
    {DISP_E_PARAMNOTOPTIONAL, 449, u"Argument not optional"},
    {DISP_E_OVERFLOW, 6, u"Overflow"},
    {DISP_E_BADINDEX, 9, u"Subscript out of range"},
    {E_OUTOFMEMORY, word::kOutOfMemory, u"Out of memory"},
    {E_INVALIDARG, word::kInvalidCall, u"Invalid procedure call or argument"},
    {REGDB_E_CLASSNOTREG, 429, u"ActiveX component can't create object"},
    {CO_E_CLASSSTRING, 429, u"ActiveX component can't create object"},
    {E_NOINTERFACE, 430, u"Class does not support Automation or does not support expected interface"},
    {E_ACCESSDENIED, word::kPermissionDenied, u"Permission denied"},
    {E_POINTER, word::kObjectNotSet, u"Object variable or With block variable not set"},
};

word::HostError PlainErrorOf(HRESULT result, std::string_view member) {
  const auto* const known = std::find_if(std::begin(kPlainErrors), std::end(kPlainErrors),
                                         [result](const PlainError& error) { return error.result == result; });
  if (known != std::end(kPlainErrors)) return {known->number, std::u16string(known->text), member};
  return {static_cast<int>(result), u"Automation error", member};
}

/// Errors with a number of their own come as codes of this facility.
bool HasNumber(SCODE code) { return HRESULT_FACILITY(code) == FACILITY_CONTROL; }

SCODE CodeOfNumber(int number) { return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number); }

bool FitsCode(int number) { return number > 0 && number <= 0xFFFF; }

}  // namespace

void Check(HRESULT result, std::string_view member) {
  if (FAILED(result)) throw PlainErrorOf(result, member);
}

word::HostError ErrorOf(HRESULT result, EXCEPINFO& details, std::string_view member) {
  if (result != DISP_E_EXCEPTION) return PlainErrorOf(result, member);
  if (details.pfnDeferredFillIn != nullptr) details.pfnDeferredFillIn(&details);
  std::u16string text = FromBstr(details.bstrDescription);
  SysFreeString(details.bstrSource);
  SysFreeString(details.bstrDescription);
  SysFreeString(details.bstrHelpFile);
  if (details.wCode == 0 && !HasNumber(details.scode)) {
    const word::HostError plain = PlainErrorOf(details.scode, member);
    return {plain.Number(), text.empty() ? plain.Description() : text, member};
  }
  const int number = details.wCode != 0 ? details.wCode : HRESULT_CODE(details.scode);
  return {number, text.empty() ? u"Application-defined or object-defined error" : text, member};
}

HRESULT ReportError(const word::HostError& error, EXCEPINFO* details) {
  if (details == nullptr) return DISP_E_EXCEPTION;
  *details = {};
  details->scode = FitsCode(error.Number()) ? CodeOfNumber(error.Number()) : static_cast<SCODE>(error.Number());
  details->bstrSource = MakeBstr(u"Kelvarin");
  details->bstrDescription = MakeBstr(error.Description());
  return DISP_E_EXCEPTION;
}

HRESULT ReportPresentException(EXCEPINFO* details) {
  try {
    throw;
  } catch (const word::HostError& error) {
    try {
      return ReportError(error, details);
    } catch (const std::bad_alloc&) {
      return E_OUTOFMEMORY;
    }
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace com
