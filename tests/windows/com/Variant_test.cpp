#include "hosts/com/Variant.h"

#include <gtest/gtest.h>

#include "platform/word/HostError.h"

namespace {

using com::Variant;

int ErrorOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const word::HostError& error) {
    return error.Number();
  }
  return 0;
}

TEST(Variant, HoldsEachKindAsAutomationHasIt) {
  EXPECT_EQ(Variant(true).Get().boolVal, VARIANT_TRUE);
  EXPECT_EQ(Variant(7).Type(), VT_I4);
  EXPECT_EQ(Variant(1.5).Type(), VT_R8);
  EXPECT_EQ(Variant(u"text").Type(), VT_BSTR);
  EXPECT_EQ(Variant::Missing().Get().scode, DISP_E_PARAMNOTFOUND);
}

TEST(Variant, GivesATextBackWhateverIsInIt) {
  const std::u16string text = u"a\u201C\U0001F600\0b";
  EXPECT_EQ(Variant(text).ToText(), text);
  EXPECT_EQ(Variant(std::u16string(3, u'\0')).ToText().size(), 3u);
  EXPECT_EQ(Variant().ToText(), u"");
}

TEST(Variant, BecomesANumberWhereItCan) {
  EXPECT_EQ(Variant(u"12").ToInt(), 12);
  EXPECT_EQ(Variant(true).ToInt(), -1);
  EXPECT_TRUE(Variant(5).ToBool());
  EXPECT_DOUBLE_EQ(Variant(3).ToDouble(), 3.0);
  EXPECT_EQ(ErrorOf([] { Variant(u"twelve").ToInt(); }), 13);
  EXPECT_EQ(ErrorOf([] { Variant(5).ToObject(); }), 13);
}

TEST(Variant, CopiesOutOfAReference) {
  LONG number = 9;
  VARIANT reference;
  VariantInit(&reference);
  reference.vt = VT_I4 | VT_BYREF;
  reference.plVal = &number;
  EXPECT_EQ(Variant(reference).Type(), VT_I4);
  EXPECT_EQ(Variant(reference).ToInt(), 9);
}

TEST(Variant, HoldsArraysOfTexts) {
  const std::vector<std::u16string> texts = {u"one", u"", u"three"};
  EXPECT_EQ(Variant(texts).ToTexts(), texts);
  EXPECT_TRUE(Variant(std::vector<std::u16string>{}).ToTexts().empty());
  EXPECT_EQ(ErrorOf([] { Variant(u"one").ToTexts(); }), 13);
}

TEST(Variant, AnObjectThatIsNoneIsNothing) {
  EXPECT_TRUE(Variant(static_cast<IDispatch*>(nullptr)).IsNothing());
  EXPECT_FALSE(Variant(static_cast<IDispatch*>(nullptr)).ToObject());
  EXPECT_FALSE(Variant(0).IsNothing());
}

}  // namespace
