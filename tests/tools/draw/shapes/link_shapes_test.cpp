// Links as they are bent: closed, with both hooks attached and inside.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include <tests/tools/drawn_elements.h>
#include <tools/draw/scene/painted_box.h>
#include <tools/draw/shapes/shape_sink.h>

namespace quorvan::tool {

namespace {

using test::bareShapesOf;
using test::BarParts;
using test::distanceTo;
using test::lengthAlong;

constexpr double kMeets = 0.02;
constexpr double kStraightAngle = std::numbers::pi;

std::vector<Shape> linkShapes(const BarParts& parts) {
  std::vector<Shape> shapes = bareShapesOf(test::barOf(parts));
  for (const Shape& shape : shapes) {
    EXPECT_EQ(shape.layer, Layer::kLinks);
    EXPECT_NEAR(shape.style.width, parts.diameter, 1e-9);
  }
  return shapes;
}

BarParts frameWithHooks(double angle, double length = 100.0) {
  return {.className = "FrameRect",
          .points = {{0, 0, 0}, {300, 0, 0}, {300, 500, 0}},
          .hookLength1 = length,
          .hookAngle1 = angle,
          .diameter = 8};
}

// The same frame turned, moved and mirrored.
BarParts placed(BarParts parts, double angle, double x, double y, bool isMirrored) {
  for (Coordinates& point : parts.points) {
    const PlanePoint at = turned({isMirrored ? -point.x : point.x, point.y}, angle);
    point = {at.x + x, at.y + y, 0};
  }
  return parts;
}

// Whether the point lies inside the corners, by `margin` at the least.
bool isInside(const std::vector<Coordinates>& corners, PlanePoint point, double margin) {
  const PlanePoint origin{corners[1].x, corners[1].y};
  const PlanePoint one = PlanePoint{corners[0].x, corners[0].y} - origin;
  const PlanePoint two = PlanePoint{corners[2].x, corners[2].y} - origin;
  const PlanePoint out = point - origin;
  const auto share = [&](PlanePoint side) {
    return (out.x * side.x + out.y * side.y) / lengthOf(side);
  };
  return share(one) >= margin && share(one) <= lengthOf(one) - margin && share(two) >= margin &&
         share(two) <= lengthOf(two) - margin;
}

TEST(ToolFrameShapes, AreClosedAndRoundedInEveryCorner) {
  const std::vector<Shape> shapes = linkShapes(frameWithHooks(0, 0));
  ASSERT_EQ(shapes.size(), 1U);
  const Path& path = shapes[0].path;
  EXPECT_EQ(path.steps().back().kind, PathStep::Kind::kClose);
  EXPECT_EQ(std::ranges::count(path.steps(), PathStep::Kind::kArc, &PathStep::kind), 4);
  const SheetBox box = boxOf(path);
  EXPECT_NEAR(box.width(), 300, 1e-6);
  EXPECT_NEAR(box.height(), 500, 1e-6);
  const double cut = 20 * (std::sqrt(2.0) - 1.0);
  EXPECT_NEAR(distanceTo(path, {0, 0}), cut, kMeets) << "2.5 diameters of 8 on the axis";
  EXPECT_NEAR(distanceTo(path, {300, 500}), cut, kMeets);
  EXPECT_NEAR(distanceTo(path, {0, 500}), cut, kMeets) << "the fourth corner follows";
}

TEST(ToolFrameShapes, HaveTwoHooksThatBeginOnTheFrameAndEndInside) {
  std::mt19937 random(81);
  for (const double hook : {90.0, 100.0, 120.0, 135.0, 150.0, 180.0}) {
    for (int round = 0; round < 8; ++round) {
      const double turn = static_cast<double>(random() % 628) / 100.0;
      const BarParts parts =
          placed(frameWithHooks(hook), turn, 1000.0 * round, -500.0, round % 2 == 1);
      const std::vector<Shape> shapes = linkShapes(parts);
      ASSERT_EQ(shapes.size(), 3U) << hook;
      for (std::size_t i = 1; i < 3; ++i) {
        const Path& tail = shapes[i].path;
        EXPECT_LT(distanceTo(shapes[0].path, tail.steps().front().to), kMeets)
            << hook << " detached";
        EXPECT_TRUE(isInside(parts.points, tail.end(), 4.0)) << hook << " ends outside";
        for (const PlanePoint point : test::pointsAlong(tail)) {
          EXPECT_TRUE(isInside(parts.points, point, -kMeets)) << hook << " leaves the frame";
        }
      }
      // They are two, side by side; more sharply bent ones cross.
      EXPECT_TRUE(hook > 140.0 || lengthOf(shapes[1].path.end() - shapes[2].path.end()) > 8.0)
          << hook;
    }
  }
}

// A right-angled hook lies along its side, and not on it.
TEST(ToolFrameShapes, ShowRightAngledHooksBesideTheLegs) {
  const std::vector<Shape> shapes = linkShapes(frameWithHooks(90));
  ASSERT_EQ(shapes.size(), 3U);
  for (std::size_t i = 1; i < 3; ++i) {
    EXPECT_GE(distanceTo(shapes[0].path, shapes[i].path.end()), 8.0);
    EXPECT_LE(distanceTo(shapes[0].path, shapes[i].path.end()), 16.0);
  }
}

TEST(ToolFrameShapes, RunStraightOnBeyondTheirFirstCornerWithHooksThatAreNotBent) {
  const std::vector<Shape> shapes = linkShapes(frameWithHooks(0));
  ASSERT_EQ(shapes.size(), 3U);
  EXPECT_NEAR(lengthOf(shapes[1].path.end() - PlanePoint{-100, 0}), 0.0, 1e-6);
  EXPECT_NEAR(lengthOf(shapes[2].path.end() - PlanePoint{0, -100}), 0.0, 1e-6);
}

// On paper a thin line is wider than its bar: there the hooks lie as far off as it needs.
TEST(ToolFrameShapes, ShowRightAngledHooksOnPaper) {
  DrawOptions options;
  options.scale = 50;
  options.marks = Marks::kNone;
  const std::vector<Shape> shapes =
      test::shapesOn(test::sceneOf(test::barOf(frameWithHooks(90)), options).scene, Layer::kLinks);
  ASSERT_EQ(shapes.size(), 3U);
  for (std::size_t i = 1; i < 3; ++i) {
    EXPECT_GE(distanceTo(shapes[0].path, shapes[i].path.end()), 1.9 * shapes[0].style.width);
  }
}

TEST(ToolFrameShapes, HaveNoHooksWithoutLength) {
  EXPECT_EQ(linkShapes(frameWithHooks(135, 0)).size(), 1U);
  EXPECT_EQ(linkShapes(frameWithHooks(135, -50)).size(), 1U);
}

BarParts ringWithHooks(double overlap, double length, double angle = 135.0) {
  return {.className = "FrameCirc",
          .points = {{1000, 500, 0}, {1000 + 200, 500, 0}},
          .hookLength1 = length,
          .hookAngle1 = angle,
          .radius = 200,
          .overlap = overlap,
          .diameter = 8};
}

TEST(ToolRingShapes, AreCirclesWithoutOverlapAndHooks) {
  const std::vector<Shape> shapes = linkShapes(ringWithHooks(0, 0));
  ASSERT_EQ(shapes.size(), 1U);
  EXPECT_EQ(shapes[0].kind, Shape::Kind::kCircle);
  EXPECT_NEAR(shapes[0].radius, 200, 1e-9);
  EXPECT_NEAR(shapes[0].center.x, 1000, 1e-9);
}

TEST(ToolRingShapes, LieWithinTheirRadius) {
  for (const double overlap : {0.0, 50.0, 300.0, 700.0}) {
    for (const double angle : {0.0, 45.0, 90.0, 135.0, 180.0}) {
      for (const Shape& shape : linkShapes(ringWithHooks(overlap, 80, angle))) {
        for (const PlanePoint point : test::pointsAlong(shape.path)) {
          // A straight end alone leaves the circle.
          if (angle > 0.0) {
            EXPECT_LE(lengthOf(point - PlanePoint{1000, 500}), 200 + kMeets)
                << overlap << ' ' << angle;
          }
        }
      }
    }
  }
}

TEST(ToolRingShapes, HaveTheirOverlapBesideTheRing) {
  const std::vector<Shape> shapes = linkShapes(ringWithHooks(300, 0));
  ASSERT_EQ(shapes.size(), 1U);
  const Path& ring = shapes[0].path;
  const double inner = lengthOf(ring.end() - PlanePoint{1000, 500});
  EXPECT_LT(inner, 200 - 8.0) << "beside the bar that it laps";
  EXPECT_GT(inner, 200 - 16.0);
  double sweep = 0.0;
  for (const PathStep& step : ring.steps()) {
    sweep += step.sweep;
  }
  EXPECT_NEAR((sweep - 2 * kStraightAngle) * inner, 300, 1e-6) << "as long as the file says";
}

// Of the points along the path, which lies farthest back or on along the ring from its start,
// square to the line from the centre.
double leastAside(const Path& path) {
  double least = 1e9;
  for (const PlanePoint point : test::pointsAlong(path)) {
    if (point.x > 1100) {
      least = std::min(least, point.y - 500);
    }
  }
  return least;
}

TEST(ToolRingShapes, AreOneBarFromTipToTip) {
  for (const double overlap : {0.0, 1.0, 30.0}) {
    for (const double angle : {120.0, 135.0, 180.0}) {
      const BarParts parts = ringWithHooks(overlap, 80, angle);
      const std::vector<Shape> shapes = linkShapes(parts);
      ASSERT_EQ(shapes.size(), 1U) << overlap;
      const Path& ring = shapes[0].path;
      EXPECT_NEAR(lengthAlong(ring), test::centreLineOf(test::barOf(parts)), 1e-6)
          << "no piece more than is bent: " << overlap << ' ' << angle;
      for (const PlanePoint tip : {ring.steps().front().to, ring.end()}) {
        EXPECT_LT(lengthOf(tip - PlanePoint{1000, 500}), 200 - 20.0) << "the tip lies inside";
      }
    }
  }
}

// Both hooks go round their bends where the ring begins; none reaches beyond by more than the ring
// is round there.
TEST(ToolRingShapes, HaveBothHooksAtTheirStartPoint) {
  const Path ring = linkShapes(ringWithHooks(0, 80))[0].path;
  const std::vector<PathStep>& steps = ring.steps();
  Path first;
  first.moveTo(steps[0].to);
  first.lineTo(steps[1].to);
  first.arcTo(steps[2].center, steps[2].sweep);
  EXPECT_NEAR(leastAside(first), 0.0, 2.5);
}

// Right-angled hooks lie side by side.
TEST(ToolRingShapes, ShowBothRightAngledHooks) {
  const Path ring = linkShapes(ringWithHooks(0, 80, 90))[0].path;
  const double apart = lengthOf(ring.steps().front().to - ring.end());
  EXPECT_GT(apart, 8.0);
  EXPECT_LT(apart, 16.0);
}

TEST(ToolRingShapes, BeginAtTheirStartPoint) {
  BarParts parts = ringWithHooks(100, 0);
  for (const double angle : {0.5, 2.0, 4.0}) {
    const PlanePoint out = turned({350, 0}, angle);
    parts.points[1] = {1000 + out.x, 500 + out.y, 0};
    const PlanePoint begin = linkShapes(parts)[0].path.steps().front().to;
    EXPECT_NEAR(lengthOf(begin - PlanePoint{1000, 500}), 200, 1e-6) << "on the circle";
    EXPECT_NEAR(crossOf(begin - PlanePoint{1000, 500}, out), 0.0, 1e-3) << "in its direction";
  }
}

TEST(ToolRingShapes, LapOnceRoundAtTheMost) {
  const Path ring = linkShapes(ringWithHooks(1e6, 0))[0].path;
  double sweep = 0.0;
  for (const PathStep& step : ring.steps()) {
    sweep += step.sweep;
  }
  EXPECT_NEAR(sweep, 4 * kStraightAngle, 1e-6);
}

BarParts stirrupWithHooks(double angle, double length = 90.0) {
  return {.className = "Stirrup",
          .points = {{0, 0, 0}, {0, 400, 0}},
          .hookLength1 = length,
          .hookAngle1 = angle,
          .diameter = 8};
}

TEST(ToolStirrupShapes, OfThickBarsAreAsWideAsTheirRoller) {
  BarParts parts = stirrupWithHooks(135, 0);
  parts.diameter = 20;
  EXPECT_NEAR(boxOf(linkShapes(parts)[0].path).width(), 160, 1e-6) << "seven diameters and one";
}

TEST(ToolStirrupShapes, RunRoundTheirAxisAsNarrowAsTheyCanBeBent) {
  for (const double turn : {0.0, 0.4, 1.6, 3.0}) {
    const BarParts parts = placed(stirrupWithHooks(135, 0), turn, 50, 70, false);
    const std::vector<Shape> shapes = linkShapes(parts);
    ASSERT_EQ(shapes.size(), 1U);
    const Path& path = shapes[0].path;
    EXPECT_EQ(path.steps().back().kind, PathStep::Kind::kClose);
    const PlanePoint a{parts.points[0].x, parts.points[0].y};
    const PlanePoint b{parts.points[1].x, parts.points[1].y};
    EXPECT_LT(distanceTo(path, a), kMeets) << "the ends of the axis are on it";
    EXPECT_LT(distanceTo(path, b), kMeets);
    EXPECT_NEAR(distanceTo(path, (a + b) * 0.5), 20, kMeets) << "half of five diameters";
  }
}

TEST(ToolStirrupShapes, HaveHooksThatBeginOnTheLegsAndStayBetweenThem) {
  for (const double angle : {90.0, 120.0, 135.0, 180.0}) {
    for (const double length : {30.0, 90.0, 300.0}) {
      const std::vector<Shape> shapes = linkShapes(stirrupWithHooks(angle, length));
      ASSERT_EQ(shapes.size(), 3U) << angle;
      for (std::size_t i = 1; i < 3; ++i) {
        EXPECT_LT(distanceTo(shapes[0].path, shapes[i].path.steps().front().to), 4.0)
            << angle << ": within the width of the leg";
        for (const PlanePoint point : test::pointsAlong(shapes[i].path)) {
          EXPECT_LE(std::abs(point.x), 20 + 0.2) << angle << ' ' << length;
          EXPECT_LE(point.y, 400 + kMeets);
        }
      }
    }
  }
}

TEST(ToolStirrupShapes, OfNoHeightAreDrawnAllTheSame) {
  BarParts parts = stirrupWithHooks(135);
  parts.points[1] = parts.points[0];
  for (const Shape& shape : linkShapes(parts)) {
    EXPECT_TRUE(shape.path.isFinite());
  }
}

// What a host may put in: no length is below zero on the sheet, and nothing is lost.
TEST(ToolLinkShapes, StayFiniteForAnyHooksAndSizes) {
  for (const char* const name : {"FrameRect", "FrameCirc", "Stirrup"}) {
    for (const double size : {0.0, 1e-9, 5.0, 1e7}) {
      for (const double hook : {-1e6, 0.0, 1e-9, 1e6}) {
        for (const double angle : {-270.0, -1e-9, 0.0, 1e-9, 179.999999, 360.0, 1e9}) {
          const BarParts parts{.className = name,
                               .points = {{0, 0, 0}, {size, 0, 0}, {size, size, 0}},
                               .hookLength1 = hook,
                               .hookAngle1 = angle,
                               .radius = size,
                               .overlap = hook,
                               .diameter = 8};
          for (const Shape& shape : bareShapesOf(test::barOf(parts))) {
            EXPECT_TRUE(shape.path.isFinite())
                << name << ' ' << size << ' ' << hook << ' ' << angle;
            EXPECT_GE(shape.radius, 0.0);
          }
        }
      }
    }
  }
}

}  // namespace

}  // namespace quorvan::tool
