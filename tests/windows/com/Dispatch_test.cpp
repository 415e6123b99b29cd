#include "hosts/com/Dispatch.h"

#include <gtest/gtest.h>

#include "Sample.h"
#include "hosts/com/ComError.h"
#include "hosts/com/Enumeration.h"

namespace {

using com::Kind;
using com::Optional;
using com::Variant;

class Dispatching : public testing::Test {
 protected:
  std::vector<std::u16string> log;
  int width{3};
  const com::Members members{
      {u"Width", DISPATCH_PROPERTYGET, {}, [this](auto&, auto&) { return Variant(width); }},
      {u"Width",
       DISPATCH_PROPERTYPUT,
       {{Kind::kInt}},
       [this](auto&, const com::Received& given) {
         width = given.Int(0);
         return Variant();
       }},
      {u"GoTo",
       DISPATCH_METHOD,
       {{Kind::kInt}, Optional(Kind::kInt), Optional(Kind::kInt), Optional(Kind::kText)},
       [this](auto&, const com::Received& given) {
         log.push_back(std::u16string(given.Has(1) ? u"which " : u"").append(given.Text(3)));
         return Variant(given.Int(0));
       }},
      {u"Nothing", DISPATCH_PROPERTYGET, {}, [](auto&, auto&) { return Variant(static_cast<IDispatch*>(nullptr)); }},
      {u"Fail", DISPATCH_METHOD, {}, [](auto&, auto&) -> Variant { throw word::HostError(5941, u"none", "x"); }},
  };
  com::Dispatch object = Wrapped(new Sample(members));
};

TEST_F(Dispatching, GetsAndPutsByName) {
  object.Put("Sample.Width", 8);
  EXPECT_EQ(width, 8);
  EXPECT_EQ(object.Int("Sample.width"), 8);
}

TEST_F(Dispatching, HandsArgumentsOnInTheirOrder) {
  EXPECT_EQ(object.Call("Sample.GoTo", {-1, Variant::Missing(), Variant::Missing(), u"here"}).ToInt(), -1);
  EXPECT_EQ(object.Call("Sample.GoTo", {1, 1}).ToInt(), 1);
  EXPECT_EQ(log, (std::vector<std::u16string>{u"here", u"which "}));
}

TEST_F(Dispatching, RaisesWhatTheObjectRaises) {
  EXPECT_EQ(ErrorNumberOf([&] { object.Call("Sample.Fail"); }), 5941);
  EXPECT_EQ(ErrorNumberOf([&] { object.Call("Sample.NoSuch"); }), 438);
  EXPECT_EQ(ErrorNumberOf([&] { object.Call("Sample.GoTo", {u"one"}); }), 13);
  EXPECT_EQ(ErrorNumberOf([&] { object.Call("Sample.GoTo"); }), 449);
  EXPECT_EQ(ErrorNumberOf([&] { object.Call("Sample.Fail", {1}); }), 450);
  EXPECT_EQ(ErrorNumberOf([&] { object.Put("Sample.Nothing", 1); }), 438);
}

TEST_F(Dispatching, AnObjectThatIsNoneIsAnErrorWhereOneIsNeeded) {
  EXPECT_TRUE(object.Get("Sample.Nothing").IsNothing());
  EXPECT_EQ(ErrorNumberOf([&] { object.Object("Sample.Nothing"); }), word::kObjectNotSet);
}

TEST_F(Dispatching, CountsCallsAndAsksForANameOnce) {
  for (int i = 0; i < 3; ++i) static_cast<void>(object.Int("Sample.Width"));
  EXPECT_EQ(object.TheSession()->Calls().at("Sample.Width"), 3u);
}

/// Gives numbers as objects with a member of that name.
class Numbers : public com::Counted<IEnumVARIANT> {
 public:
  explicit Numbers(const com::Members& members) : members_(members) {}
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    return Give(id, object, {IID_IUnknown, IID_IEnumVARIANT});
  }
  HRESULT STDMETHODCALLTYPE Next(ULONG, VARIANT* item, ULONG*) override {
    if (given_ == 3) return S_FALSE;
    ++given_;
    *item = MadeObject(new Sample(members_)).Detach();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

 private:
  const com::Members& members_;
  int given_{0};
};

TEST_F(Dispatching, WalksACollectionByItsEnumeration) {
  const com::Members collection{{u"_NewEnum", DISPATCH_PROPERTYGET, {}, [this](auto&, auto&) {
                                   VARIANT raw;
                                   raw.vt = VT_UNKNOWN;
                                   raw.punkVal = new Numbers(members);
                                   Variant value;
                                   *value.Receive() = raw;
                                   return value;
                                 }}};
  const com::Dispatch all = Wrapped(new Sample(collection));
  const std::vector<com::Dispatch> items = com::Enumerate(all, "Sample._NewEnum");
  ASSERT_EQ(items.size(), 3u);
  EXPECT_EQ(items[2].Int("Item.Width"), 3);
}

TEST_F(Dispatching, NothingIsLeftOfObjectsThatAreReleased) {
  const long before = com::LiveObjects();
  {
    const com::Dispatch other = Wrapped(new Sample(members));
    EXPECT_EQ(com::LiveObjects(), before + 1);
    EXPECT_EQ(ErrorNumberOf([&] { other.Call("Sample.Fail"); }), 5941);
  }
  EXPECT_EQ(com::LiveObjects(), before);
}

}  // namespace
