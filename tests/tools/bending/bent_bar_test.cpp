#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include <tests/tools/bending/sample_bars.h>
#include <tools/bending/bent_form.h>

namespace {

using quorvan::test::bent;
using quorvan::test::polygonBar;
using quorvan::tool::Bar;
using quorvan::tool::BarShape;
using quorvan::tool::BendingRules;
using quorvan::tool::BentBar;
using quorvan::tool::HookMeaning;
using quorvan::tool::Mandrel;
using quorvan::tool::RingRadius;

constexpr double kPi = std::numbers::pi;

Bar barWithHooks(double diameter, double length, double hook1, double angle1, double hook2 = 0.0,
                 double angle2 = 0.0) {
  Bar bar = polygonBar(diameter, {length}, {});
  bar.shape = BarShape::kStraight;
  bar.hooks = {{{hook1, angle1}, {hook2, angle2}}};
  bar.isHookUp = {true, true};
  return bar;
}

Bar linkOf(double diameter, double width, double height, double hook, double angle) {
  Bar bar;
  bar.shape = BarShape::kFrameRect;
  bar.diameter = diameter;
  bar.line = {{0, 0, 0}, {width, 0, 0}, {width, height, 0}, {0, height, 0}};
  bar.isClosed = true;
  bar.hooks = {{{hook, angle}, {hook, angle}}};
  return bar;
}

TEST(BentBar, TakesRollersOfFourDiametersUpToSixteenAndSevenAbove) {
  EXPECT_EQ(bent(polygonBar(8, {500, 500}, {90})).roller, 32.0);
  EXPECT_EQ(bent(polygonBar(16, {500, 500}, {90})).roller, 64.0);
  EXPECT_EQ(bent(polygonBar(20, {500, 500}, {90})).roller, 140.0);
  EXPECT_EQ(bent(polygonBar(25, {500, 500}, {90})).roller, 175.0);
}

TEST(BentBar, TakesTheRollerThatIsGiven) {
  BendingRules rules;
  rules.mandrel = Mandrel{5.0, 0.0};
  EXPECT_EQ(bent(polygonBar(10, {500, 500}, {90}), rules).roller, 50.0);
  rules.mandrel = Mandrel{0.0, 120.0};
  EXPECT_EQ(bent(polygonBar(10, {500, 500}, {90}), rules).roller, 120.0);
}

// 10 mm on a roller of 40: the axis is bent about 25. A quarter takes 50 off the legs and
// adds 39.3.
TEST(BentBar, FollowsTheCentreLineThroughARightAngle) {
  const BentBar bar = bent(polygonBar(10, {395, 806, 395}, {90, 90}));
  EXPECT_NEAR(bar.axisLength(), 1596.0, 1e-9);
  EXPECT_NEAR(bar.centreLine(), 1596.0 - 2.0 * (50.0 - 12.5 * kPi), 1e-9);
  ASSERT_EQ(bar.legs.size(), 3U);
  EXPECT_NEAR(bar.legs[0].outside, 400.0, 1e-9);
  EXPECT_NEAR(bar.legs[1].outside, 816.0, 1e-9);
  EXPECT_NEAR(bar.legs[2].outside, 400.0, 1e-9);
  EXPECT_NEAR(bar.legs[0].straight, 370.0, 1e-9);
  EXPECT_NEAR(bar.legs[1].straight, 756.0, 1e-9);
  EXPECT_TRUE(bar.fits);
}

TEST(BentBar, MeasuresAnObtuseLegToTheOutermostPointOfItsBend) {
  // Of a corner that turns by 120 degrees the bend reaches tan(60) x 25 = 43.3 along the leg, and
  // its outermost point lies 25 + 5 beyond where it begins.
  const BentBar bar = bent(polygonBar(10, {500, 500}, {120}));
  const double reach = 25.0 * std::tan(kPi / 3.0);
  EXPECT_NEAR(bar.legs[0].straight, 500.0 - reach, 1e-9);
  EXPECT_NEAR(bar.legs[0].outside, 500.0 - reach + 30.0, 1e-9);
}

TEST(BentBar, BendsHooksIntoTheCorner) {
  const BentBar right = bent(barWithHooks(20, 4920, 140, 90, 140, 90));
  EXPECT_NEAR(right.legs[0].outside, 150.0, 1e-9);
  EXPECT_NEAR(right.legs[1].outside, 4940.0, 1e-9);
  EXPECT_NEAR(right.legs[0].straight, 60.0, 1e-9);
  // Half a turn touches the line through the end of the bar: its diameter is that of the roller.
  const BentBar half = bent(barWithHooks(10, 1000, 120, 180));
  EXPECT_NEAR(half.legs[0].straight, 95.0, 1e-9);
  EXPECT_NEAR(half.legs[1].straight, 975.0, 1e-9);
  EXPECT_NEAR(half.centreLine(), 95.0 + 975.0 + 25.0 * kPi, 1e-9);
  EXPECT_NEAR(half.legs[1].outside, 1005.0, 1e-9);
}

TEST(BentBar, TakesAHooksLengthForItsStraightPartWhereSaid) {
  BendingRules rules;
  rules.hooks = HookMeaning::kStraight;
  const BentBar bar = bent(barWithHooks(10, 1000, 50, 90), rules);
  EXPECT_NEAR(bar.legs[0].straight, 50.0, 1e-9);
  EXPECT_NEAR(bar.legs[0].axis, 75.0, 1e-9);
  EXPECT_NEAR(bar.axisLength(), 1075.0, 1e-9);
}

TEST(BentBar, LengthensABarByAHookWithoutAngle) {
  const BentBar bar = bent(barWithHooks(10, 1000, 50, 0));
  ASSERT_EQ(bar.legs.size(), 1U);
  EXPECT_NEAR(bar.centreLine(), 1050.0, 1e-9);
}

TEST(BentBar, KnowsOnWhichSideHooksLie) {
  const auto sides = [](bool up1, bool up2) {
    Bar bar = barWithHooks(10, 1000, 100, 90, 100, 90);
    bar.isHookUp = {up1, up2};
    const BentBar result = bent(bar);
    return std::pair(result.bends[0].isLeft, result.bends[1].isLeft);
  };
  EXPECT_EQ(sides(true, true), std::pair(true, true));
  EXPECT_EQ(sides(false, false), std::pair(true, true));
  EXPECT_EQ(sides(true, false), std::pair(true, false));
}

// Three corners of the frame and both hooks in the fourth.
TEST(BentBar, MakesOneBarOfAFrame) {
  const BentBar bar = bent(linkOf(8, 300, 200, 90, 135));
  ASSERT_EQ(bar.legs.size(), 6U);
  ASSERT_EQ(bar.bends.size(), 5U);
  EXPECT_NEAR(bar.axisLength(), 1180.0, 1e-9);
  const double right = 2.0 * 20.0 - kPi / 2.0 * 20.0;
  const double hook = 2.0 * 20.0 - 0.75 * kPi * 20.0;
  EXPECT_NEAR(bar.centreLine(), 1180.0 - 3.0 * right - 2.0 * hook, 1e-9);
}

TEST(BentBar, TakesTheRadiusOfACircularFrameAsSaid) {
  Bar bar;
  bar.shape = BarShape::kFrameCirc;
  bar.diameter = 10;
  bar.radius = 200;
  bar.overlap = 300;
  EXPECT_NEAR(bent(bar).axisLength(), 400.0 * kPi + 300.0, 1e-9);
  BendingRules rules;
  rules.ring = RingRadius::kInner;
  EXPECT_NEAR(bent(bar, rules).axisLength(), 410.0 * kPi + 300.0, 1e-9);
}

TEST(BentBar, GivesAStirrupTheLeastWidth) {
  Bar bar;
  bar.shape = BarShape::kStirrup;
  bar.diameter = 8;
  bar.line = {{0, 0, 0}, {0, 420, 0}};
  const BentBar result = bent(bar);
  EXPECT_TRUE(result.isLowerBound);
  EXPECT_EQ(result.axisLength(), 840.0);
  EXPECT_NEAR(result.centreLine(), 2.0 * 420.0 + 2.0 * 40.0 - 3.0 * (40.0 - kPi * 10.0), 1e-9);
}

TEST(BentBar, BendsCloserWhereALegHasNoRoomAndSaysSo) {
  const BentBar bar = bent(polygonBar(10, {500, 30, 500}, {90, 90}));
  EXPECT_FALSE(bar.fits);
  EXPECT_NEAR(bar.legs[1].straight, 0.0, 1e-9);
  EXPECT_NEAR(bar.bends[0].radius, 15.0, 1e-9);
}

TEST(BentBar, ReadsTheSameFromBothEndsAndBothSides) {
  const auto form = [](const std::vector<double>& legs, const std::vector<double>& turns) {
    return formOf(bent(polygonBar(10, legs, turns)));
  };
  EXPECT_EQ(form({300, 500, 700}, {90, 45}), form({700, 500, 300}, {-45, -90}));
  EXPECT_EQ(form({300, 500, 700}, {90, 45}), form({300, 500, 700}, {-90, -45}));
  EXPECT_NE(form({300, 500, 700}, {90, 45}), form({300, 500, 700}, {90, -45}));
  EXPECT_NE(form({300, 500, 700}, {90, 45}), form({700, 500, 300}, {90, 45}));
}

// In space a bar cannot be turned over into its mirror image.
TEST(BentBar, ReadsTheSameFromBothEndsInSpaceButNotInAMirror) {
  Bar bar = polygonBar(16, {300, 600}, {90});
  bar.line = {{0, 0, 0}, {300, 0, 0}, {300, 600, 0}, {300, 600, 400}, {900, 600, 400}};
  Bar reversed = bar;
  std::ranges::reverse(reversed.line);
  Bar mirrored = bar;
  Bar turned = bar;
  for (std::size_t i = 0; i < bar.line.size(); ++i) {
    mirrored.line[i].z = -bar.line[i].z;
    turned.line[i] = {-bar.line[i].y, bar.line[i].z, -bar.line[i].x};
  }
  EXPECT_EQ(formOf(bent(bar)), formOf(bent(reversed)));
  EXPECT_EQ(formOf(bent(bar)), formOf(bent(turned)));
  EXPECT_NE(formOf(bent(bar)), formOf(bent(mirrored)));
}

TEST(BentBar, KnowsABarThatLiesInNoPlane) {
  Bar bar = polygonBar(16, {292, 584}, {90});
  EXPECT_TRUE(bent(bar).isPlane());
  bar.line.push_back({bar.line[2].x, bar.line[2].y, 292});
  const BentBar spatial = bent(bar);
  EXPECT_FALSE(spatial.isPlane());
  EXPECT_EQ(spatial.course.size(), 4U);
  EXPECT_NEAR(spatial.bends[1].angle, kPi / 2.0, 1e-9);
  EXPECT_NEAR(spatial.legs[1].outside, 600.0, 1e-9);
}

TEST(BentBar, JoinsLegsThatGoOnInTheSameDirection) {
  const BentBar bar = bent(polygonBar(10, {300, 400, 500}, {0, 90}));
  ASSERT_EQ(bar.legs.size(), 2U);
  EXPECT_NEAR(bar.legs[0].axis, 700.0, 1e-9);
}

}  // namespace
