#include "com/arguments.h"

#include <gtest/gtest.h>

namespace com {
namespace {

using automation::ToInt;
using automation::ToText;
using automation::Variant;

TEST(IdArgument, ComesBackAsANumberOnlyWhenItChanged) {
  Variant id = Variant::Of("12");
  IdArgument unchanged(&id);
  unchanged.Return();
  EXPECT_EQ(V_VT(&id), VT_BSTR);

  IdArgument saved(&id);
  saved.Text() = "13";
  saved.Return();
  EXPECT_EQ(V_VT(&id), VT_I4);
  EXPECT_EQ(ToInt(id), 13);

  IdArgument closed(&id);
  closed.Text() = "CANCEL_AND_CLOSE";
  closed.Return();
  EXPECT_EQ(ToText(id), "CANCEL_AND_CLOSE");
}

TEST(IdArgument, IsEmptyWhereTheHostGaveNone) {
  Variant empty;
  Variant null = automation::ToVariant(session::Value());
  Variant left_out;
  V_VT(&left_out) = VT_ERROR;
  V_ERROR(&left_out) = DISP_E_PARAMNOTFOUND;
  Variant reference;
  V_VT(&reference) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&reference) = &empty;
  for (VARIANT* argument : {static_cast<VARIANT*>(nullptr), static_cast<VARIANT*>(&left_out),
                            static_cast<VARIANT*>(&null), static_cast<VARIANT*>(&reference)}) {
    EXPECT_EQ(IdArgument(argument).Text(), "");
  }
  IdArgument(&reference).Return();
  EXPECT_EQ(V_VT(&empty), VT_EMPTY);
  IdArgument saved(&reference);
  saved.Text() = "13";
  saved.Return();
  EXPECT_EQ(ToInt(empty), 13);
}

TEST(Arguments, ComeBackOnlyWhenTheyChanged) {
  Variant amount = Variant::Of("12.34567");
  Return(&amount, CurrencyOf(&amount), CurrencyOf(&amount));
  EXPECT_EQ(ToText(amount), "12.34567");
  Return(&amount, CurrencyOf(&amount), forms::Currency::FromTenThousandths(50000));
  EXPECT_EQ(V_VT(&amount), VT_CY);
  Variant book = Variant::Of(1);
  Return(&book, true, true);
  EXPECT_EQ(V_VT(&book), VT_I4);
  Return(&book, true, false);
  EXPECT_EQ(V_VT(&book), VT_BOOL);
}

TEST(Arguments, AreNoughtWhereTheHostGaveNone) {
  const Variant null = automation::ToVariant(session::Value());
  EXPECT_EQ(DoubleOf(&null), 0);
  EXPECT_EQ(CurrencyOf(&null), forms::Currency());
  forms::Currency kept = forms::Currency::FromWhole(-1);
  Take(&null, kept);
  Take(nullptr, kept);
  EXPECT_EQ(kept, forms::Currency::FromWhole(-1));
}

}  // namespace
}  // namespace com
