#include "forms/color.h"

#include <gtest/gtest.h>

namespace {

using forms::Color;

TEST(Color, IsKeptAsRedAnd256GreenAnd65536Blue) {
  EXPECT_EQ(forms::NumberOf({1, 2, 3}), 1 + 256 * 2 + 65536 * 3);
  EXPECT_EQ(forms::ColorOfNumber(0xFF8001), (Color{0x01, 0x80, 0xFF}));
  EXPECT_EQ(forms::ColorOfNumber(-1), std::nullopt);
  EXPECT_EQ(forms::ColorOfNumber(0x1000000), std::nullopt);
}

TEST(Color, OfATextCanBeReadOnEveryGround) {
  EXPECT_NEAR(forms::Contrast(forms::kWhite, forms::kBlack), 21, 0.01);
  EXPECT_EQ(forms::ReadableOn(forms::kWhite, {0, 0, 128}), (Color{0, 0, 128}));
  for (int part = 0; part < 256; part += 15) {
    for (const Color back : {Color{static_cast<std::uint8_t>(part), 128, 128},
                             Color{128, static_cast<std::uint8_t>(part), static_cast<std::uint8_t>(255 - part)}}) {
      EXPECT_GE(forms::Contrast(back, forms::ReadableOn(back, back)), forms::kReadableContrast);
    }
  }
}

}  // namespace
