#include "automation/variant.h"

#include <gtest/gtest.h>

namespace automation {
namespace {

using session::Value;

Value ThereAndBack(const Value& value) {
  return ToValue(ToVariant(value));
}

forms::DateTime At(const char* iso) {
  return *forms::ParseIso(iso);
}

TEST(Variant, KeepsEveryKindOfValue) {
  std::string hostile = "'; DROP TABLE \xF0\x9F\xA6\xB7 100% \r\n";
  hostile += '\0';
  hostile.append(10000, 'x');
  for (const Value& value :
       {Value(), Value(std::int64_t{-2147483648LL}), Value(std::int64_t{9007199254740993}), Value(0.1), Value(hostile),
        Value(std::string()), Value(forms::Currency::FromTenThousandths(-9223372036854775807)),
        Value(At("1752-09-14 23:59:59")), Value(At("1899-12-29 06:00:01")), Value(At("1899-12-30 00:00:00")),
        Value(At("9999-12-31 23:59:59")), Value(session::Blob()),
        Value(session::Blob{std::byte{0}, std::byte{255}, std::byte{39}})}) {
    EXPECT_EQ(ThereAndBack(value), value) << session::ToText(value);
  }
}

TEST(Variant, ReadsDatesBeforeTheFirstDay) {
  Variant date;
  V_VT(&date) = VT_DATE;
  V_DATE(&date) = -1.25;  // six in the morning of the day before the first
  EXPECT_EQ(ToText(date), "1899-12-29 06:00:00");
}

TEST(Variant, ReadsDecimalsWithoutRounding) {
  Variant decimal;
  V_DECIMAL(&decimal).Lo64 = 12345;
  V_DECIMAL(&decimal).scale = 2;
  V_DECIMAL(&decimal).sign = DECIMAL_NEG;
  V_VT(&decimal) = VT_DECIMAL;
  EXPECT_EQ(ToValue(decimal), Value(forms::Currency::FromTenThousandths(-1234500)));
  V_DECIMAL(&decimal).scale = 0;
  EXPECT_EQ(ToValue(decimal), Value(std::int64_t{-12345}));
  V_DECIMAL(&decimal).scale = 5;
  EXPECT_EQ(ToValue(decimal), Value(-0.12345));
}

TEST(Variant, ReadsThroughReferences) {
  Variant inner = Variant::Of("text");
  Variant outer;
  V_VT(&outer) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&outer) = &inner;
  EXPECT_EQ(ToText(outer), "text");
}

TEST(Variant, RefusesWhatIsNoSingleValue) {
  Variant array;
  V_ARRAY(&array) = SafeArrayCreateVector(VT_VARIANT, 0, 2);
  V_VT(&array) = VT_ARRAY | VT_VARIANT;
  EXPECT_THROW(ToValue(array), ComError);
}

TEST(Assign, WritesWhatTheHostPassed) {
  Variant plain = Variant::Of("NEW");
  Assign(&plain, Variant::Of(17));
  EXPECT_EQ(V_VT(&plain), VT_I4);

  Variant behind = Variant::Of("NEW");
  Variant reference;
  V_VT(&reference) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&reference) = &behind;
  Assign(&reference, Variant::Of(18));
  EXPECT_EQ(V_VT(&behind), VT_I4);
  EXPECT_EQ(ToInt(behind), 18);

  LONG number = 3;
  V_VT(&reference) = VT_BYREF | VT_I4;
  V_I4REF(&reference) = &number;
  Assign(&reference, Variant::Of("19"));
  EXPECT_EQ(number, 19);
  EXPECT_THROW(Assign(&reference, Variant::Of("CANCEL_AND_CLOSE")), ComError);
  EXPECT_EQ(number, 19);

  VARIANT_BOOL truth = VARIANT_FALSE;
  V_VT(&reference) = VT_BYREF | VT_BOOL;
  V_BOOLREF(&reference) = &truth;
  Assign(&reference, Variant::Of(true));
  EXPECT_EQ(truth, VARIANT_TRUE);

  BSTR text = ToBstr("NEW");
  V_VT(&reference) = VT_BYREF | VT_BSTR;
  V_BSTRREF(&reference) = &text;
  Assign(&reference, Variant::Of(20));
  EXPECT_EQ(FromBstr(text), "20");
  SysFreeString(text);
}

TEST(Assign, LeavesWhatWasLeftOut) {
  Variant missing;
  V_VT(&missing) = VT_ERROR;
  V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
  Assign(&missing, Variant::Of(1));
  EXPECT_EQ(V_VT(&missing), VT_ERROR);
  Assign(nullptr, Variant::Of(1));
}

}  // namespace
}  // namespace automation
