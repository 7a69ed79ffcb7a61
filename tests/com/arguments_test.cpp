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
  EXPECT_EQ(IdArgument(nullptr).Text(), "NEW");
}

}  // namespace
}  // namespace com
