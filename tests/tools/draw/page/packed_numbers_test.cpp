#include <gtest/gtest.h>

#include <tools/draw/page/packed_numbers.h>

namespace {

using quorvan::tool::base64;
using quorvan::tool::PackedNumbers;

TEST(PackedNumbers, TakeSevenBitsAByteTheLowestFirst) {
  PackedNumbers numbers;
  for (const std::uint64_t number : {0ULL, 127ULL, 128ULL, 300ULL, ~0ULL}) {
    numbers.add(number);
  }
  EXPECT_EQ(numbers.bytes(),
            std::string("\0\x7F\x80\x01\xAC\x02\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"
                        "\x01",
                        16));
}

TEST(PackedNumbers, FoldSignsIntoTheLowestBit) {
  PackedNumbers numbers;
  for (const std::int64_t number : {0, -1, 1, -2, 64, -64}) {
    numbers.addSigned(number);
  }
  EXPECT_EQ(numbers.bytes(), std::string("\0\x01\x02\x03\x80\x01\x7F", 7));
}

TEST(Base64, PadsWhatDoesNotComeOut) {
  EXPECT_EQ(base64(""), "");
  EXPECT_EQ(base64("f"), "Zg==");
  EXPECT_EQ(base64("fo"), "Zm8=");
  EXPECT_EQ(base64("foo"), "Zm9v");
  EXPECT_EQ(base64("\xFF\xFE\xFD\xFC"), "//79/A==");
}

}  // namespace
