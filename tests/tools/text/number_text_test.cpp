#include <gtest/gtest.h>

#include <limits>

#include <tools/text/number_text.h>

namespace {

TEST(ToolNumbers, AreRoundedWithoutLocaleAndWithoutNegativeZero) {
  EXPECT_EQ(quorvan::tool::fixed(12.345, 2), "12.35");
  EXPECT_EQ(quorvan::tool::fixed(-0.001, 2), "0.00");
  EXPECT_EQ(quorvan::tool::rounded(1250.0, 3), "1250");
  EXPECT_EQ(quorvan::tool::rounded(12.5, 3), "12.5");
  EXPECT_EQ(quorvan::tool::rounded(-0.0001, 3), "0");
  EXPECT_EQ(quorvan::tool::rounded(100.0, 0), "100");
  EXPECT_EQ(quorvan::tool::fixed(std::numeric_limits<double>::max(), 7).size(), 317U);
}

}  // namespace
