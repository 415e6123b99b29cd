#include "hosts/com/AutomationObject.h"

#include <gtest/gtest.h>

#include "Sample.h"

namespace {

using com::Kind;
using com::Variant;

std::u16string joined;
const com::Members kMembers{{u"Join",
                             DISPATCH_METHOD,
                             {{Kind::kText}, com::Optional(Kind::kText)},
                             [](auto&, const com::Received& given) {
                               joined = given.Text(0) + u"," + given.Text(1);
                               return Variant();
                             }},
                            {u"Item",
                             DISPATCH_PROPERTYGET,
                             {{Kind::kInt}},
                             [](auto&, const com::Received& given) { return Variant(given.Int(0) * 2); }},
                            {u"Fill", DISPATCH_METHOD, {{Kind::kAny}}, [](auto&, const com::Received& given) {
                               given.Return(0, u"filled");
                               return Variant();
                             }}};

TEST(AutomationObject, TakesNamedArgumentsInAnyOrder) {
  const auto object = com::ComPtr<IDispatch>::Adopt(new Sample(kMembers));
  Variant second(u"b");
  Variant first(u"a");
  // Named ones stand first.
  VARIANTARG values[] = {first.Get(), second.Get()};
  DISPID names[] = {0, 1};
  DISPPARAMS parameters{values, names, 2, 2};
  wchar_t name[] = L"JOIN";
  LPOLESTR asked = name;
  DISPID number = 0;
  ASSERT_EQ(object->GetIDsOfNames(IID_NULL, &asked, 1, 0, &number), S_OK);
  ASSERT_EQ(object->Invoke(number, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(joined, u"a,b");
}

TEST(AutomationObject, HasItsItemAsTheMemberWithoutAName) {
  const auto object = com::ComPtr<IDispatch>::Adopt(new Sample(kMembers));
  Variant index(21);
  VARIANTARG values[] = {index.Get()};
  DISPPARAMS parameters{values, nullptr, 1, 0};
  Variant result;
  ASSERT_EQ(object->Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_PROPERTYGET | DISPATCH_METHOD, &parameters,
                           result.Receive(), nullptr, nullptr),
            S_OK);
  EXPECT_EQ(result.ToInt(), 42);
}

TEST(AutomationObject, GivesAValueBackThroughAReferenceOnly) {
  const com::Dispatch object = Wrapped(new Sample(kMembers));
  Variant value;
  EXPECT_EQ(ErrorNumberOf([&] { object.Call("Sample.Fill", {1}); }), 13);
  object.Call("Sample.Fill", {Variant::Reference(value)});
  EXPECT_EQ(value.ToText(), u"filled");
}

TEST(AutomationObject, SaysWhichArgumentIsOfTheWrongKind) {
  const auto object = com::ComPtr<IDispatch>::Adopt(new Sample(kMembers));
  Variant number(5);
  Variant text(u"a");
  VARIANTARG values[] = {number.Get(), text.Get()};
  DISPPARAMS parameters{values, nullptr, 2, 0};
  UINT wrong = 9;
  EXPECT_EQ(object->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, &wrong),
            DISP_E_TYPEMISMATCH);
  EXPECT_EQ(wrong, 0u);
}

}  // namespace
