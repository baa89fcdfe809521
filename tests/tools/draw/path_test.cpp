#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include <tools/draw/scene/path.h>
#include <tools/draw/shapes/hooks.h>

namespace {

using quorvan::tool::HookShape;
using quorvan::tool::Path;
using quorvan::tool::PathStep;
using quorvan::tool::PlanePoint;

constexpr double kNear = 1e-9;
constexpr double kPathPi = std::numbers::pi;

void expectPoint(PlanePoint point, double x, double y) {
  EXPECT_NEAR(point.x, x, kNear);
  EXPECT_NEAR(point.y, y, kNear);
}

PathStep arc(PlanePoint from, PlanePoint middle, PlanePoint to) {
  Path path;
  path.moveTo(from);
  path.arcThrough(middle, to);
  return path.steps().back();
}

TEST(ToolPath, GoesOverTheMiddlePointOnItsSide) {
  const PathStep left = arc({0, 0}, {1, 1}, {2, 0});
  EXPECT_EQ(left.kind, PathStep::Kind::kArc);
  expectPoint(left.center, 1, 0);
  EXPECT_NEAR(left.sweep, -kPathPi, kNear);
  EXPECT_NEAR(arc({0, 0}, {1, -1}, {2, 0}).sweep, kPathPi, kNear);
}

TEST(ToolPath, TakesTheLongWayWhereTheMiddleLiesThere) {
  const PathStep step = arc({1, 0}, {-1, 0}, {0, -1});
  expectPoint(step.center, 0, 0);
  EXPECT_NEAR(step.sweep, 1.5 * kPathPi, kNear);
}

TEST(ToolPath, IsALineWhereThePointsLieOnOne) {
  EXPECT_EQ(arc({0, 0}, {1, 0}, {2, 0}).kind, PathStep::Kind::kLine);
  EXPECT_EQ(arc({1, 1}, {1, 1}, {1, 1}).kind, PathStep::Kind::kLine);
}

TEST(ToolPath, IsACircleWhereTheEndIsTheBeginning) {
  const PathStep step = arc({0, 0}, {0, 2}, {0, 0});
  expectPoint(step.center, 0, 1);
  EXPECT_NEAR(step.sweep, 2 * kPathPi, kNear);
}

TEST(ToolPath, RoundsCornersAsFarAsTheLinesAllow) {
  Path path;
  path.addRounded({{0, 0}, {10, 0}, {10, 10}}, false, 2);
  ASSERT_EQ(path.steps().size(), 4U);
  expectPoint(path.steps()[1].to, 8, 0);
  expectPoint(path.steps()[2].center, 8, 2);
  expectPoint(path.steps()[2].to, 10, 2);
  Path tight;
  tight.addRounded({{0, 0}, {10, 0}, {10, 10}}, false, 100);
  expectPoint(tight.steps()[1].to, 5, 0);
  expectPoint(tight.steps()[2].to, 10, 5);
}

TEST(ToolPath, RoundsEveryCornerOfAClosedOne) {
  Path path;
  path.addRounded({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, true, 1);
  int arcs = 0;
  for (const PathStep& step : path.steps()) {
    arcs += step.kind == PathStep::Kind::kArc ? 1 : 0;
  }
  EXPECT_EQ(arcs, 4);
  EXPECT_EQ(path.steps().back().kind, PathStep::Kind::kClose);
}

HookShape hook(double angle, double straight) {
  HookShape shape;
  shape.end = {10, 0};
  shape.direction = {1, 0};
  shape.bend = {angle, true, true, 2.0};
  shape.straight = straight;
  return shape;
}

Path withEndHook(const HookShape& shape) {
  Path path;
  path.moveTo({0, 0});
  path.lineTo(hookBegin(shape));
  endWithHook(path, shape);
  return path;
}

TEST(ToolHooks, BendAndRunOnStraight) {
  expectPoint(withEndHook(hook(kPathPi / 2, 8)).end(), 10, 10);
  expectPoint(withEndHook(hook(kPathPi, 8)).end(), 8 - 8, 4);
  expectPoint(withEndHook(hook(0, 10)).end(), 20, 0);
}

TEST(ToolHooks, BendToTheOtherSide) {
  HookShape shape = hook(kPathPi / 2, 8);
  shape.side = -1;
  expectPoint(withEndHook(shape).end(), 10, -10);
}

TEST(ToolHooks, AreBentIntoTheCornerAtTheEndOfTheBar) {
  expectPoint(hookBegin(hook(kPathPi / 2, 10)), 8, 0);
  expectPoint(hookBegin(hook(kPathPi, 10)), 8, 0);
  expectPoint(hookBegin(hook(kPathPi / 4, 10)), 10 - 2 * std::tan(kPathPi / 8), 0);
  expectPoint(hookBegin(hook(0, 10)), 10, 0);
}

// The same hook drawn from its tip ends at the bar and begins at the tip.
TEST(ToolHooks, BeginAtTheTip) {
  Path path;
  beginWithHook(path, hook(kPathPi / 2, 8));
  expectPoint(path.steps().front().to, 10, 10);
  expectPoint(path.end(), 8, 0);
}

}  // namespace
