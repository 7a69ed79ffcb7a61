#include "recall/text_message_length.h"

#include <string>

namespace recall {
namespace {

std::string Times(std::size_t count, std::string_view text) {
  std::string all;
  for (; count > 0; --count) {
    all += text;
  }
  return all;
}

TEST(TextMessageLength, CountsTheSevenBitAlphabet) {
  EXPECT_EQ(LengthOfTextMessage(""), (TextMessageLength{0, 0, 160, false}));
  EXPECT_EQ(LengthOfTextMessage("@£ñ\r\nà\n{€}"), (TextMessageLength{12, 1, 148, false}));
  EXPECT_EQ(LengthOfTextMessage(Times(160, "a")), (TextMessageLength{160, 1, 0, false}));
  EXPECT_EQ(LengthOfTextMessage(Times(161, "a")), (TextMessageLength{161, 2, 145, false}));
  EXPECT_EQ(LengthOfTextMessage(Times(306, "a")), (TextMessageLength{306, 2, 0, false}));
  // An escaped character is not cut in two: the first part has room for 76 of them.
  EXPECT_EQ(LengthOfTextMessage(Times(81, "€")), (TextMessageLength{162, 2, 143, false}));
  EXPECT_EQ(LengthOfTextMessage(Times(153, "€")), (TextMessageLength{306, 3, 151, false}));
}

TEST(TextMessageLength, CountsWhatTheAlphabetLacksInUtf16) {
  EXPECT_EQ(LengthOfTextMessage("í"), (TextMessageLength{1, 1, 69, true}));
  EXPECT_EQ(LengthOfTextMessage(Times(70, "í")), (TextMessageLength{70, 1, 0, true}));
  EXPECT_EQ(LengthOfTextMessage(Times(71, "í")), (TextMessageLength{71, 2, 63, true}));
  EXPECT_EQ(LengthOfTextMessage("😀a"), (TextMessageLength{3, 1, 67, true}));
  EXPECT_EQ(LengthOfTextMessage(Times(67, "😀")), (TextMessageLength{134, 3, 65, true}));
}

}  // namespace
}  // namespace recall
