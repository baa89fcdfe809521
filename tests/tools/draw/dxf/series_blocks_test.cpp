#include <gtest/gtest.h>

#include <tools/draw/dxf/series_blocks.h>

namespace {

using quorvan::tool::alikeBarsOf;
using quorvan::tool::BulgePath;
using quorvan::tool::PlanePoint;

BulgePath straightBetween(PlanePoint from, PlanePoint to) {
  return {{{from}, {to}}, false};
}

TEST(ToolSeriesBlocks, JoinBarsThatAreAlike) {
  const auto found =
      alikeBarsOf({straightBetween({0, 0}, {0, 50}), straightBetween({10, 0}, {10, 60}),
                   straightBetween({20, 0.1}, {20, 50.1}), straightBetween({30, 0}, {30, 60})});
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].way, (PlanePoint{0, 50}));
  EXPECT_EQ(found[0].places, (std::vector<PlanePoint>{{0, 0}, {20, 0.1}}));
  EXPECT_EQ(found[1].places, (std::vector<PlanePoint>{{10, 0}, {30, 0}}));
}

TEST(ToolSeriesBlocks, TellTheDirectionsApart) {
  EXPECT_EQ(
      alikeBarsOf({straightBetween({0, 0}, {0, 50}), straightBetween({0, 50}, {0, 0})}).size(), 2U);
}

// Nine digits before the point leave seven behind it.
TEST(ToolSeriesBlocks, CountAsAlikeWhatFarCoordinatesCannotTellApart) {
  const double far = 5812345678.1;
  EXPECT_EQ(alikeBarsOf({straightBetween({far, 0}, {far + 0.1, 50}),
                         straightBetween({far + 1000.3, 0}, {far + 1000.4, 50})})
                .size(),
            1U);
}

// Wherever the grid of their lengths has a line, and whatever bar comes between them.
TEST(ToolSeriesBlocks, JoinBarsWhoseLengthsDifferByRoundingAlone) {
  for (const double length : {50.0, 50.0000005, 50.000001}) {
    const auto found = alikeBarsOf(
        {straightBetween({0, 0}, {0, length - 1e-9}), straightBetween({10, 0}, {10, length + 1e-9}),
         straightBetween({20, 0}, {20, 60}), straightBetween({30, 0}, {30, length + 1e-9})});
    ASSERT_EQ(found.size(), 2U) << length;
    EXPECT_EQ(found[0].places.size(), 3U) << length;
  }
}

TEST(ToolSeriesBlocks, LeaveOutABarWithoutLength) {
  EXPECT_TRUE(alikeBarsOf({{{{{1, 1}}}, false}}).empty());
}

}  // namespace
