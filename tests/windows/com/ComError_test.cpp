#include "hosts/com/ComError.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "hosts/com/Variant.h"

namespace {

TEST(ComError, TakesWordsNumberOutOfItsCode) {
  EXCEPINFO details{};
  details.scode = static_cast<SCODE>(0x800A1735);
  details.bstrDescription = com::MakeBstr(u"The requested member of the collection does not exist.");
  const word::HostError error = com::ErrorOf(DISP_E_EXCEPTION, details, "Bookmarks.Item");
  EXPECT_EQ(error.Number(), 5941);
  EXPECT_EQ(error.Description(), u"The requested member of the collection does not exist.");
  EXPECT_EQ(error.Member(), "Bookmarks.Item");
}

TEST(ComError, TakesTheShortNumberWhereThereIsOne) {
  EXCEPINFO details{};
  details.wCode = 1004;
  EXPECT_EQ(com::ErrorOf(DISP_E_EXCEPTION, details, "x").Number(), 1004);
}

TEST(ComError, LetsTheServerFillInWhatItDeferred) {
  EXCEPINFO details{};
  details.pfnDeferredFillIn = [](EXCEPINFO* into) -> HRESULT {
    into->wCode = 4605;
    into->bstrDescription = com::MakeBstr(u"later");
    return S_OK;
  };
  const word::HostError error = com::ErrorOf(DISP_E_EXCEPTION, details, "x");
  EXPECT_EQ(error.Number(), 4605);
  EXPECT_EQ(error.Description(), u"later");
}

TEST(ComError, HasVisualBasicsNumbersForPlainFailures) {
  const std::pair<HRESULT, int> known[] = {{DISP_E_UNKNOWNNAME, 438},      {DISP_E_MEMBERNOTFOUND, 438},
                                           {DISP_E_TYPEMISMATCH, 13},      {DISP_E_BADPARAMCOUNT, 450},
                                           {DISP_E_PARAMNOTOPTIONAL, 449}, {REGDB_E_CLASSNOTREG, 429},
                                           {E_ACCESSDENIED, 70},           {E_OUTOFMEMORY, 7}};
  for (const auto& [result, number] : known) {
    EXCEPINFO details{};
    EXPECT_EQ(com::ErrorOf(result, details, "x").Number(), number);
  }
  EXCEPINFO details{};
  EXPECT_EQ(com::ErrorOf(RPC_E_DISCONNECTED, details, "x").Number(), static_cast<int>(RPC_E_DISCONNECTED));
}

TEST(ComError, IsTheSameOnBothSidesOfACall) {
  EXCEPINFO details{};
  ASSERT_EQ(com::ReportError({5941, u"no member \u2013 none", "x"}, &details), DISP_E_EXCEPTION);
  const word::HostError error = com::ErrorOf(DISP_E_EXCEPTION, details, "x");
  EXPECT_EQ(error.Number(), 5941);
  EXPECT_EQ(error.Description(), u"no member \u2013 none");
}

TEST(ComError, NoExceptionLeavesAnEntryPoint) {
  EXPECT_EQ(com::AtBoundary(nullptr, []() -> HRESULT { throw std::runtime_error("x"); }), E_UNEXPECTED);
  EXPECT_EQ(com::AtBoundary(nullptr, []() -> HRESULT { throw std::bad_alloc(); }), E_OUTOFMEMORY);
  EXPECT_EQ(com::AtBoundary(nullptr, []() -> HRESULT { throw word::HostError(5, u"", "x"); }), DISP_E_EXCEPTION);
}

}  // namespace
