// To which length bars are cut: steps from both sides, deductions, and what the schedules round.
#include <tools/schedule/cutting.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include <tests/tools/bending/sample_bars.h>

namespace quorvan::tool {

namespace {

TEST(ToolRounding, GoesToTheNearestStepOrTheNextOneUp) {
  struct Step {
    double value;
    double step;
    double nearest;
    double up;
  };
  const Step cases[] = {{1234, 0, 1234, 1234},  {1234.56, 0, 1234.56, 1234.56},
                        {1234, 10, 1230, 1240}, {1235, 10, 1240, 1240},
                        {1230, 10, 1230, 1230}, {1230.001, 10, 1230, 1240},
                        {1234, 25, 1225, 1250}, {1237.5, 25, 1250, 1250},
                        {1250, 25, 1250, 1250}, {1.2, 0.5, 1.0, 1.5},
                        {0, 25, 0, 0},          {3, 25, 0, 25}};
  for (const Step& one : cases) {
    EXPECT_DOUBLE_EQ(roundedTo(one.value, one.step, Rounding::kNearest), one.nearest) << one.value;
    EXPECT_DOUBLE_EQ(roundedTo(one.value, one.step, Rounding::kUp), one.up) << one.value;
  }
}

// Noise of the file is no reason for the next step.
TEST(ToolRounding, UpLeavesAStepWithNoiseAlone) {
  EXPECT_DOUBLE_EQ(roundedTo(1250.0 + 1e-9, 25, Rounding::kUp), 1250);
  EXPECT_DOUBLE_EQ(roundedTo(1250.0 - 1e-9, 25, Rounding::kUp), 1250);
}

TEST(ToolRounding, StaysWithinAStepOfTheValueAndOnTheGrid) {
  std::mt19937 random(121);
  for (int round = 0; round < 500; ++round) {
    const double value = static_cast<double>(random() % 2000000) / 100.0;
    for (const double step : {1.0, 5.0, 10.0, 25.0}) {
      const double nearest = roundedTo(value, step, Rounding::kNearest);
      const double up = roundedTo(value, step, Rounding::kUp);
      EXPECT_LE(std::abs(nearest - value), step / 2.0 + 1e-6);
      EXPECT_GE(up, value - 1e-3);
      EXPECT_LT(up, value + step);
      EXPECT_NEAR(std::remainder(nearest, step), 0.0, 1e-6);
      EXPECT_NEAR(std::remainder(up, step), 0.0, 1e-6);
    }
  }
}

TEST(ToolCutting, RoundsByItsSchedule) {
  // 12 mm with one right angle: the centre line is 3033 less the corner, 3033 - 12.88.
  const BentBar bar = test::bent(test::polygonBar(12, {2033, 1000}, {90}));
  EXPECT_NEAR(cut(bar, usualRules(Schedule::kAxis)).length, 3033, 1e-6);
  EXPECT_NEAR(cut(bar, usualRules(Schedule::kIso3766)).length, 3020, 1e-6);
  EXPECT_NEAR(cut(bar, usualRules(Schedule::kBs8666)).length, 3025, 1e-6);
  EXPECT_TRUE(cut(bar, usualRules(Schedule::kAxis)).dimensions.empty());
  const Cutting legs = cut(bar, usualRules(Schedule::kIso3766));
  ASSERT_EQ(legs.dimensions.size(), 2U);
  EXPECT_FALSE(legs.code.has_value());
  EXPECT_EQ(cut(bar, usualRules(Schedule::kBs8666)).code, 11);
}

TEST(ToolCutting, DeductsForEachBend) {
  // Half a width more at each bend: 1006, 812 and 1006 outside.
  const BentBar bar = test::bent(test::polygonBar(12, {1000, 800, 1000}, {90, 90}));
  CuttingRules rules{Schedule::kIso3766, 0.0, 0.0, Rounding::kNearest, Deduction{2.0, 0.0}};
  EXPECT_NEAR(cut(bar, rules).length, 1006 + 812 + 1006 - 2 * 24, 1e-6);
  rules.deduction = Deduction{0.0, 25.0};
  EXPECT_NEAR(cut(bar, rules).length, 1006 + 812 + 1006 - 2 * 25, 1e-6);
  rules.deduction = Deduction{};
  EXPECT_NEAR(cut(bar, rules).length, 1006 + 812 + 1006, 1e-6);
}

}  // namespace

}  // namespace quorvan::tool
