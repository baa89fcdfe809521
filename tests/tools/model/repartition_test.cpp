#include <gtest/gtest.h>

#include <tools/model/repartition.h>

namespace {

TEST(ToolSpacing, IsToldInRuns) {
  EXPECT_EQ(quorvan::tool::spacingText({}), "");
  EXPECT_EQ(quorvan::tool::spacingText({200, 200, 200}), "200");
  EXPECT_EQ(quorvan::tool::spacingText({100, 200, 200, 150.5}), "100, 2 x 200, 150.5");
  EXPECT_EQ(quorvan::tool::spacingText({1, 2, 3, 4, 5, 6, 7}), "1, 2, 3, 4, 5, 6, ...");
}

}  // namespace
