// The corners of a bar, when two bars are the same shape, and arcs drawn as corners.
#include <tools/bending/corner_line.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include <tests/tools/bending/sample_bars.h>
#include <tools/bending/bent_form.h>
#include <tools/bending/faceted_arc.h>

namespace quorvan::tool {

namespace {

using test::bent;
using test::polygonBar;

constexpr double kDegree = std::numbers::pi / 180.0;

CornerLine lineOfLegs(const std::vector<double>& legs, const std::vector<double>& turns) {
  return cornerLineOf(polygonBar(10, legs, turns), AngleUnit::kDegrees);
}

Bar straightWithHooks(double angle1, double angle2, bool isUp1 = true, bool isUp2 = true) {
  Bar bar;
  bar.line = {{0, 0, 0}, {1000, 0, 0}};
  bar.hooks = {Hook{100, angle1}, Hook{120, angle2}};
  bar.isHookUp = {isUp1, isUp2};
  bar.diameter = 10.0;
  return bar;
}

TEST(CornerLines, HaveHooksForLegsOnTheirSide) {
  const CornerLine both = cornerLineOf(straightWithHooks(90, 135), AngleUnit::kDegrees);
  EXPECT_EQ(both.legs, (std::vector<double>{100, 1000, 120}));
  ASSERT_EQ(both.corners.size(), 2U);
  EXPECT_NEAR(both.corners[0].angle, 90 * kDegree, 1e-12);
  EXPECT_NEAR(both.corners[1].angle, 135 * kDegree, 1e-12);
  EXPECT_TRUE(both.corners[0].isHook && both.corners[1].isHook);
  EXPECT_TRUE(both.corners[0].isLeft && both.corners[1].isLeft);
  EXPECT_TRUE(both.beginsWithHook && both.endsWithHook);
  const CornerLine apart =
      cornerLineOf(straightWithHooks(90, 90, true, false), AngleUnit::kDegrees);
  EXPECT_NE(apart.corners[0].isLeft, apart.corners[1].isLeft);
  // An angle below 0 bends to the other side.
  const CornerLine below = cornerLineOf(straightWithHooks(90, -90), AngleUnit::kDegrees);
  EXPECT_NE(below.corners[0].isLeft, below.corners[1].isLeft);
}

TEST(CornerLines, TakeAnglesInTheUnitOfTheDrawing) {
  const CornerLine degrees = cornerLineOf(straightWithHooks(90, 180), AngleUnit::kDegrees);
  const CornerLine radians = cornerLineOf(
      straightWithHooks(std::numbers::pi / 2.0, std::numbers::pi), AngleUnit::kRadians);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_NEAR(degrees.corners[i].angle, radians.corners[i].angle, 1e-12);
  }
}

TEST(CornerLines, GoOnWhereAHookIsNotBentAndLackOneWithoutLength) {
  const CornerLine lengthened = cornerLineOf(straightWithHooks(0, 0), AngleUnit::kDegrees);
  EXPECT_EQ(lengthened.legs, std::vector<double>{1220});
  EXPECT_FALSE(lengthened.beginsWithHook);
  ASSERT_EQ(lengthened.axis.size(), 2U);
  EXPECT_DOUBLE_EQ(lengthened.axis[0].x, -100.0);
  EXPECT_DOUBLE_EQ(lengthened.axis[1].x, 1120.0);
  Bar bar = straightWithHooks(90, 90);
  bar.hooks[0].length = 0.0;
  bar.hooks[1].length = -5.0;
  EXPECT_EQ(cornerLineOf(bar, AngleUnit::kDegrees).legs, std::vector<double>{1000});
}

// Points twice in one place and points on the way are no corners.
TEST(CornerLines, HaveNoCornerWhereTheBarDoesNotTurn) {
  Bar bar;
  bar.shape = BarShape::kPolygon;
  bar.line = {{0, 0, 0}, {0, 0, 0}, {200, 0, 0}, {500, 0, 0}, {500, 400, 0}, {500, 400, 0}};
  const CornerLine line = cornerLineOf(bar, AngleUnit::kDegrees);
  EXPECT_EQ(line.legs, (std::vector<double>{500, 400}));
  EXPECT_EQ(line.corners.size(), 1U);
  EXPECT_EQ(line.axis.size(), 3U);
  EXPECT_TRUE(line.course.empty());
  bar.line = {{7, 7, 7}};
  EXPECT_EQ(cornerLineOf(bar, AngleUnit::kDegrees).legs, std::vector<double>{0});
}

TEST(CornerLines, AreAlikeFromEitherEndAndSide) {
  const CornerLine line = lineOfLegs({300, 500, 700}, {90, -45});
  EXPECT_TRUE(areAlike(line, line));
  EXPECT_TRUE(areAlike(line, lineOfLegs({700, 500, 300}, {45, -90})));
  EXPECT_TRUE(areAlike(line, lineOfLegs({300, 500, 700}, {-90, 45})));
  EXPECT_FALSE(areAlike(line, lineOfLegs({300, 500, 700}, {90, 45})));
  EXPECT_FALSE(areAlike(line, lineOfLegs({500, 300, 700}, {90, -45})));
  EXPECT_FALSE(areAlike(line, lineOfLegs({300, 500}, {90})));
}

// 2000 of way: legs may differ by 2, turns by a degree.
TEST(CornerLines, AreAlikeWithinAThousandthAndADegree) {
  const CornerLine line = lineOfLegs({800, 1200}, {90});
  EXPECT_TRUE(areAlike(line, lineOfLegs({801.9, 1198.1}, {90})));
  EXPECT_FALSE(areAlike(line, lineOfLegs({802.1, 1197.9}, {90})));
  EXPECT_TRUE(areAlike(line, lineOfLegs({800, 1200}, {90.9})));
  EXPECT_TRUE(areAlike(line, lineOfLegs({800, 1200}, {89.1})));
  EXPECT_FALSE(areAlike(line, lineOfLegs({800, 1200}, {91.1})));
  // A corner of less than a degree does not show.
  EXPECT_TRUE(areAlike(line, lineOfLegs({300, 500, 1200}, {0.9, 90})));
  EXPECT_FALSE(areAlike(line, lineOfLegs({300, 500, 1200}, {1.1, 90})));
}

TEST(CornerLines, AreAlikeToWhicheverSideHooksAreBent) {
  const auto line = [](bool isUp1, bool isUp2) {
    return cornerLineOf(straightWithHooks(90, 90, isUp1, isUp2), AngleUnit::kDegrees);
  };
  EXPECT_TRUE(areAlike(line(true, true), line(true, false)));
  EXPECT_TRUE(areAlike(line(true, true), line(false, false)));
  EXPECT_FALSE(areAlike(line(true, true), lineOfLegs({1000}, {})));
}

TEST(BentForms, AreEqualToTheTenthOfAMillimetreAndOfADegree) {
  const auto form = formOf(bent(polygonBar(10, {500, 800}, {60})));
  EXPECT_EQ(form, (std::vector<std::int64_t>{5000, 8000, 600}));
  EXPECT_EQ(formOf(bent(polygonBar(10, {500.04, 800}, {60.04}))), form);
  EXPECT_NE(formOf(bent(polygonBar(10, {500.06, 800}, {60}))), form);
  EXPECT_NE(formOf(bent(polygonBar(10, {500, 800}, {60.06}))), form);
  EXPECT_EQ(formOf(bent(polygonBar(10, {800, 500}, {-60}))), form);
  // The first bend is to the left, whichever it is; the others are by their side of it.
  EXPECT_EQ(formOf(bent(polygonBar(10, {300, 400, 500}, {-90, 45}))),
            (std::vector<std::int64_t>{3000, 4000, 5000, 900, -450}));
}

std::vector<FacetedArc> arcsIn(const std::vector<double>& legs, const std::vector<double>& turns) {
  return facetedArcsOf(bent(polygonBar(8, legs, turns)));
}

TEST(FacetedArcs, AreThreeBendsAtLeast) {
  EXPECT_TRUE(arcsIn({500, 200, 500}, {20, 20}).empty());
  const auto arcs = arcsIn({500, 200, 200, 500}, {20, 20, 20});
  ASSERT_EQ(arcs.size(), 1U);
  EXPECT_EQ(arcs[0].firstBend, 0U);
  EXPECT_EQ(arcs[0].lastBend, 2U);
  // A chord of 200 for 20 degrees.
  EXPECT_NEAR(arcs[0].radius, 100.0 / std::sin(10 * kDegree), 1e-6);
  EXPECT_TRUE(facetedArcsOf(bent(polygonBar(8, {500}, {}))).empty());
}

TEST(FacetedArcs, TurnByThirtyDegreesAtMostAndToOneSide) {
  EXPECT_EQ(arcsIn({500, 200, 200, 500}, {29.9, 29.9, 29.9}).size(), 1U);
  EXPECT_TRUE(arcsIn({500, 200, 200, 500}, {30.1, 30.1, 30.1}).empty());
  EXPECT_TRUE(arcsIn({500, 200, 200, 500}, {20, -20, 20}).empty());
}

TEST(FacetedArcs, HaveLegsAndTurnsWithinATenth) {
  EXPECT_EQ(arcsIn({500, 200, 181, 500}, {20, 20, 20}).size(), 1U);
  EXPECT_TRUE(arcsIn({500, 200, 179, 500}, {20, 20, 20}).empty());
  EXPECT_EQ(arcsIn({500, 200, 200, 500}, {20, 18.1, 20}).size(), 1U);
  EXPECT_TRUE(arcsIn({500, 200, 200, 500}, {20, 17.9, 20}).empty());
}

// Two arcs with a straight part between them, the second to the other side.
TEST(FacetedArcs, AreEachOfABarWithSeveral) {
  const auto arcs =
      arcsIn({500, 100, 100, 900, 100, 100, 100, 500}, {15, 15, 15, -15, -15, -15, -15});
  ASSERT_EQ(arcs.size(), 2U);
  EXPECT_EQ(arcs[0].lastBend, 2U);
  EXPECT_EQ(arcs[1].firstBend, 3U);
  EXPECT_EQ(arcs[1].lastBend, 6U);
  EXPECT_NEAR(arcs[1].radius, arcs[0].radius, 1e-6);
}

}  // namespace

}  // namespace quorvan::tool
