#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include <tools/draw/dxf/bar_outline.h>

namespace {

using quorvan::tool::BulgePath;
using quorvan::tool::BulgeVertex;
using quorvan::tool::BulgeWay;
using quorvan::tool::outlinesOf;
using quorvan::tool::Path;
using quorvan::tool::PlanePoint;
using quorvan::tool::waysOf;

// What a closed outline goes round, arcs with it.
double areaWithin(const BulgePath& outline) {
  double twice = 0.0;
  for (const BulgeWay& way : waysOf(outline)) {
    twice += crossOf(way.from, way.to);
    twice += way.radius * way.radius * (way.sweep - std::sin(way.sweep));
  }
  return std::abs(twice / 2.0);
}

BulgePath bentAxis(const std::vector<PlanePoint>& points, double radius, bool isClosed = false) {
  Path path;
  path.addRounded(points, isClosed, radius);
  return bulgePathsOf(path).front();
}

TEST(ToolBarOutline, IsARectangleAroundAStraightBar) {
  const auto outlines = outlinesOf({{{{0, 0}}, {{100, 0}}}, false}, 10);
  ASSERT_EQ(outlines.size(), 1U);
  EXPECT_TRUE(outlines[0].isClosed);
  EXPECT_EQ(outlines[0].vertices,
            (std::vector<BulgeVertex>{{{0, 5}}, {{100, 5}}, {{100, -5}}, {{0, -5}}}));
}

// Its area is the length of the axis times the width, as long as every bend has an inside.
TEST(ToolBarOutline, FollowsBendsOnBothSides) {
  const BulgePath axis = bentAxis({{0, 0}, {1000, 0}, {1000, 700}, {300, 900}}, 40);
  double length = 0.0;
  for (const BulgeWay& way : waysOf(axis)) {
    length += way.isArc() ? way.radius * std::abs(way.sweep) : lengthOf(way.to - way.from);
  }
  const auto outlines = outlinesOf(axis, 16);
  ASSERT_EQ(outlines.size(), 1U);
  EXPECT_NEAR(areaWithin(outlines[0]), length * 16, 1e-6);
  std::vector<double> radii;
  for (const BulgeWay& way : waysOf(outlines[0])) {
    if (way.isArc()) {
      radii.push_back(std::round(way.radius * 1e6) / 1e6);
    }
  }
  std::ranges::sort(radii);
  EXPECT_EQ(radii, (std::vector<double>{32, 32, 48, 48}));
}

TEST(ToolBarOutline, HasTwoRingsForAClosedBar) {
  const BulgePath axis = bentAxis({{0, 0}, {300, 0}, {300, 500}, {0, 500}}, 20, true);
  const auto outlines = outlinesOf(axis, 8);
  ASSERT_EQ(outlines.size(), 2U);
  EXPECT_TRUE(outlines[0].isClosed && outlines[1].isClosed);
  const double length = 2.0 * (260 + 460) + 2.0 * std::numbers::pi * 20;
  EXPECT_NEAR(std::abs(areaWithin(outlines[0]) - areaWithin(outlines[1])), length * 8, 1e-6);
}

TEST(ToolBarOutline, HasACornerInsideABendThatIsTooClose) {
  const auto outlines = outlinesOf(bentAxis({{0, 0}, {100, 0}, {100, 100}}, 3), 10);
  ASSERT_EQ(outlines.size(), 1U);
  const auto& corners = outlines[0].vertices;
  EXPECT_TRUE(std::ranges::any_of(corners, [](const BulgeVertex& corner) {
    return lengthOf(corner.at - PlanePoint{95, 5}) < 1e-9;
  }));
}

TEST(ToolBarOutline, HasMitresWhereABarHasCorners) {
  const auto outlines = outlinesOf({{{{0, 0}}, {{100, 0}}, {{100, 100}}}, false}, 10);
  EXPECT_NEAR(areaWithin(outlines[0]), 100 * 10 + 100 * 10, 1e-9);
}

}  // namespace
