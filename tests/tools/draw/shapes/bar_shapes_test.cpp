// Bars as they are bent: where their hooks point, how they are rounded, how wide they are.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include <tests/tools/drawn_elements.h>
#include <tools/draw/scene/scale_choice.h>
#include <tools/draw/shapes/element_shapes.h>

namespace quorvan::tool {

namespace {

using test::bareShapesOf;
using test::BarParts;
using test::lengthAlong;

constexpr double kExactly = 1e-6;

// The only path that the bar is drawn as.
Path pathOf(const BarParts& parts) {
  const std::vector<Shape> shapes = bareShapesOf(test::barOf(parts));
  EXPECT_EQ(shapes.size(), 1U);
  return shapes.empty() ? Path() : shapes.front().path;
}

void expectPlace(PlanePoint point, double x, double y, const std::string& what = {}) {
  EXPECT_NEAR(point.x, x, kExactly) << what;
  EXPECT_NEAR(point.y, y, kExactly) << what;
}

PlanePoint beginOf(const Path& path) {
  return path.steps().front().to;
}

std::vector<double> radiiOf(const Path& path) {
  std::vector<double> radii;
  PlanePoint at;
  for (const PathStep& step : path.steps()) {
    if (step.kind == PathStep::Kind::kArc) {
      radii.push_back(lengthOf(at - step.center));
    }
    at = step.to;
  }
  return radii;
}

// Every arc begins in the direction of what comes before it, and ends in that of what follows.
void expectSmooth(const Path& path) {
  PlanePoint at;
  PlanePoint before;
  bool hasBefore = false;
  for (const PathStep& step : path.steps()) {
    PlanePoint begin;
    PlanePoint end;
    if (step.kind == PathStep::Kind::kLine) {
      begin = end = directionOf(step.to - at);
      if (lengthOf(step.to - at) < 1e-9) {
        continue;
      }
    } else if (step.kind == PathStep::Kind::kArc) {
      const double side = step.sweep > 0.0 ? 1.0 : -1.0;
      begin = leftOf(directionOf(at - step.center)) * side;
      end = leftOf(directionOf(step.to - step.center)) * side;
    } else {
      at = step.to;
      hasBefore = false;
      continue;
    }
    if (hasBefore) {
      EXPECT_NEAR(lengthOf(begin - before), 0.0, 1e-6) << "at " << at.x << ' ' << at.y;
    }
    before = end;
    hasBefore = true;
    at = step.to;
  }
}

TEST(ToolBarShapes, RunFromEndToEndWithoutHooks) {
  const Path path = pathOf({.points = {{10, 20, 0}, {110, 70, 0}}});
  expectPlace(beginOf(path), 10, 20);
  expectPlace(path.end(), 110, 70);
  EXPECT_TRUE(radiiOf(path).empty());
}

// Whichever way the bar runs, its hooks point up or down on the sheet.
TEST(ToolBarShapes, HaveTheHooksOfStraightBarsUpOrDownAtEveryAngle) {
  for (int degrees = 5; degrees < 360; degrees += 10) {
    if (degrees % 90 == 85 || degrees % 90 == 5) {
      continue;  // nearly upright ones are looked at below
    }
    const double angle = degrees * std::numbers::pi / 180.0;
    const Coordinates end{1000 * std::cos(angle), 1000 * std::sin(angle), 0};
    for (const bool isUp1 : {false, true}) {
      for (const bool isUp2 : {false, true}) {
        const Path path = pathOf({.points = {{0, 0, 0}, end},
                                  .hookLength1 = 100,
                                  .hookLength2 = 120,
                                  .hookAngle1 = 90,
                                  .hookAngle2 = 90,
                                  .isUp1 = isUp1,
                                  .isUp2 = isUp2});
        const std::string what = std::to_string(degrees);
        const PlanePoint first = beginOf(path);
        const PlanePoint last = path.end() - PlanePoint{end.x, end.y};
        EXPECT_EQ(first.y > 0.0, isUp1) << what;
        EXPECT_EQ(last.y > 0.0, isUp2) << what;
        EXPECT_NEAR(lengthOf(first), 100.0, kExactly) << what << ": square to the bar's end";
        EXPECT_NEAR(lengthOf(last), 120.0, kExactly) << what;
        EXPECT_NEAR(first.x * end.x + first.y * end.y, 0.0, 1e-3) << what;
        expectSmooth(path);
      }
    }
  }
}

TEST(ToolBarShapes, HaveTheUpperHooksOfUprightBarsOnTheLeft) {
  for (const double y : {1000.0, -1000.0}) {
    const Path path = pathOf({.points = {{0, 0, 0}, {0, y, 0}},
                              .hookLength1 = 100,
                              .hookLength2 = 100,
                              .hookAngle1 = 90,
                              .hookAngle2 = 90,
                              .isUp1 = true,
                              .isUp2 = false});
    expectPlace(beginOf(path), -100, 0);
    expectPlace(path.end(), 100, y);
  }
}

// Bends around a mandrel of four diameters, of seven above 16 mm; the axis lies half a bar further
// out.
TEST(ToolBarShapes, AreBentOverTheMandrelOfTheirDiameter) {
  const std::pair<double, double> cases[] = {{8, 20},  {10, 25},  {12, 30},  {16, 40},
                                             {20, 80}, {25, 100}, {32, 128}, {16.5, 66}};
  for (const auto& [diameter, radius] : cases) {
    const Path path = pathOf({.className = "LBar",
                              .points = {{0, 0, 0}, {2000, 0, 0}, {2000, 1500, 0}},
                              .diameter = diameter});
    ASSERT_EQ(radiiOf(path).size(), 1U) << diameter;
    EXPECT_NEAR(radiiOf(path)[0], radius, kExactly) << diameter;
    expectSmooth(path);
    EXPECT_NEAR(lengthAlong(path), 3500 - (2 - std::numbers::pi / 2) * radius, kExactly);
  }
}

TEST(ToolBarShapes, OfABarInMetresAreBentByItsDiameterInMillimetres) {
  DrawOptions options = test::atFullSize();
  options.unit = &kLengthUnits[2];
  options.marks = Marks::kNone;
  for (const auto& [diameter, radius] : {std::pair(0.016, 40.0), {0.02, 80.0}}) {
    const Scene scene = test::sceneOf(test::barOf({.className = "LBar",
                                                   .points = {{0, 0, 0}, {2, 0, 0}, {2, 1.5, 0}},
                                                   .diameter = diameter}),
                                      options)
                            .scene;
    const std::vector<Shape> bars = test::shapesOn(scene, Layer::kBars);
    ASSERT_EQ(bars.size(), 1U);
    ASSERT_EQ(radiiOf(bars[0].path).size(), 1U);
    EXPECT_NEAR(radiiOf(bars[0].path)[0], radius, kExactly);
  }
}

// What is drawn is as long as what is cut: one model of the bent bar serves both.
TEST(ToolBarShapes, AreAsLongAsTheBarThatIsCut) {
  const std::vector<BarParts> cases = {
      {.points = {{0, 0, 0}, {900, 300, 0}},
       .hookLength1 = 150,
       .hookLength2 = 90,
       .hookAngle1 = 135,
       .hookAngle2 = 180,
       .diameter = 20},
      {.className = "LBar",
       .points = {{0, 0, 0}, {900, 0, 0}, {900, 120, 0}},
       .hookLength2 = 100,
       .hookAngle2 = 135,
       .diameter = 16},
      {.className = "UBar", .points = {{0, 0, 0}, {500, 0, 0}, {500, 60, 0}}, .diameter = 25},
      {.className = "PolygonBar",
       .points = {{0, 0, 0}, {500, 0, 0}, {560, 40, 0}, {560, 90, 0}, {1600, 400, 0}},
       .hookLength1 = 60,
       .hookAngle1 = -90,
       .side = true,
       .diameter = 12}};
  for (const BarParts& parts : cases) {
    EXPECT_NEAR(lengthAlong(pathOf(parts)), test::centreLineOf(test::barOf(parts)), 1e-6)
        << parts.className;
  }
}

TEST(ToolBarShapes, OfLAndUBarsHaveTheirHooksInside) {
  for (const double side : {1.0, -1.0}) {
    const Path bent = pathOf({.className = "LBar",
                              .points = {{0, 0, 0}, {1000, 0, 0}, {1000, side * 800, 0}},
                              .hookLength1 = 100,
                              .hookLength2 = 150,
                              .hookAngle1 = 90,
                              .hookAngle2 = 90});
    expectPlace(beginOf(bent), 0, side * 100);
    expectPlace(bent.end(), 1000 - 150, side * 800);
    expectSmooth(bent);
    const Path hairpin = pathOf({.className = "UBar",
                                 .points = {{0, 0, 0}, {1000, 0, 0}, {1000, side * 400, 0}},
                                 .hookLength1 = 90,
                                 .hookLength2 = 90,
                                 .hookAngle1 = 90,
                                 .hookAngle2 = 90});
    expectPlace(beginOf(hairpin), 0, side * 90);
    expectPlace(hairpin.end(), 0, side * (400 - 90));
    EXPECT_EQ(radiiOf(hairpin).size(), 4U);
    expectSmooth(hairpin);
  }
}

TEST(ToolBarShapes, OfPinsHaveTheirHooksOnTheLeft) {
  const Path path = pathOf({.className = "Pin",
                            .points = {{0, 0, 0}, {500, 0, 0}},
                            .hookLength1 = 60,
                            .hookLength2 = 80,
                            .hookAngle1 = 90,
                            .hookAngle2 = 90});
  expectPlace(beginOf(path), 0, 60);
  expectPlace(path.end(), 500, 80);
}

TEST(ToolBarShapes, OfPolygonBarsHaveTheirHooksOnTheSideThatIsSaid) {
  for (const bool side : {true, false}) {
    const Path path = pathOf({.className = "PolygonBar",
                              .points = {{0, 0, 0}, {500, 0, 0}, {900, 400, 0}, {1600, 400, 0}},
                              .hookLength1 = 60,
                              .hookLength2 = 80,
                              .hookAngle1 = 90,
                              .hookAngle2 = 90,
                              .side = side});
    expectPlace(beginOf(path), 0, side ? 60 : -60);
    expectPlace(path.end(), 1600, side ? 480 : 320);
    expectSmooth(path);
  }
}

// From the corner into which it is bent a hook is as long as the file says.
TEST(ToolBarShapes, HaveHooksOfTheirLengthAtEveryAngle) {
  for (const double degrees : {15.0, 30.0, 45.0, 60.0, 90.0}) {
    const double angle = degrees * std::numbers::pi / 180.0;
    const Path path =
        pathOf({.points = {{0, 0, 0}, {1000, 0, 0}}, .hookLength2 = 200, .hookAngle2 = degrees});
    expectPlace(path.end(), 1000 + 200 * std::cos(angle), 200 * std::sin(angle),
                std::to_string(degrees));
    expectSmooth(path);
  }
}

TEST(ToolBarShapes, BendHooksBeyondARightAngleBackOverTheBar) {
  for (const double degrees : {100.0, 120.0, 135.0, 150.0, 180.0}) {
    const Path path =
        pathOf({.points = {{0, 0, 0}, {1000, 0, 0}}, .hookLength2 = 200, .hookAngle2 = degrees});
    EXPECT_LT(path.end().x, 1000.0) << degrees;
    EXPECT_GT(path.end().y, 25.0) << degrees;
    double farthest = 0.0;
    for (const PlanePoint point : test::pointsAlong(path)) {
      farthest = std::max(farthest, point.x);
    }
    EXPECT_NEAR(farthest, 1000.0, 0.1) << degrees << ": it ends where the file says";
    expectSmooth(path);
  }
}

TEST(ToolBarShapes, TakeAnglesInTheUnitOfTheDrawing) {
  const std::string bar = test::barOf({.points = {{0, 0, 0}, {1000, 0, 0}},
                                       .hookLength2 = 200,
                                       .hookAngle2 = std::numbers::pi / 2.0});
  expectPlace(bareShapesOf(bar, AngleUnit::kRadians).front().path.end(), 1000, 200);
  EXPECT_LT(bareShapesOf(bar, AngleUnit::kDegrees).front().path.end().y, 10.0);
}

TEST(ToolBarShapes, AreDotsWhereTheyAreSeenEndOn) {
  const std::vector<Shape> point =
      bareShapesOf(test::barOf({.className = "PointBar", .points = {{5, 6, 0}}, .diameter = 20}));
  ASSERT_EQ(point.size(), 1U);
  EXPECT_EQ(point[0].layer, Layer::kEndOn);
  EXPECT_EQ(point[0].kind, Shape::Kind::kCircle);
  EXPECT_TRUE(point[0].style.isFilled);
  expectPlace(point[0].center, 5, 6);
  EXPECT_NEAR(point[0].radius, 10, kExactly);
  const std::vector<Shape> along =
      bareShapesOf(test::barOf({.points = {{5, 6, 0}, {5, 6, 3000}}, .diameter = 20}));
  ASSERT_EQ(along.size(), 1U);
  EXPECT_EQ(along[0].layer, Layer::kEndOn) << "a bar along the view";
  EXPECT_NEAR(along[0].radius, 10, kExactly);
}

TEST(ToolBarShapes, AreNoneWithoutPoints) {
  EXPECT_TRUE(bareShapesOf(test::barOf({.className = "PolygonBar"})).empty());
}

TEST(ToolBarShapes, PassOverPointsThatComeTwice) {
  const Path path =
      pathOf({.className = "PolygonBar",
              .points = {{0, 0, 0}, {0, 0, 0}, {500, 0, 0}, {500, 0, 9}, {500, 400, 0}},
              .hookLength1 = 60,
              .hookAngle1 = 90,
              .side = true});
  expectPlace(beginOf(path), 0, 60);
  expectPlace(path.end(), 500, 400);
  expectSmooth(path);
}

TEST(ToolBarPens, AreTheDiameterWhereTheScaleShowsIt) {
  DrawOptions options;
  options.scale = 10.0;
  const Sheet sheet({{{0, 0}, {1000, 1000}}, {}, 0.0}, options);
  EXPECT_NEAR(penOf(20, sheet), 2.0, kExactly);
  EXPECT_NEAR(penOf(-20, sheet), 2.0, kExactly);
  options.scale = 1.0;
  const Sheet full({{{0, 0}, {1000, 1000}}, {}, 0.0}, options);
  EXPECT_NEAR(penOf(500, full), pen::kThickest, kExactly) << "no bar is so thick";
}

// Formwork < links < bars at every scale: links are the thinner bars.
TEST(ToolBarPens, AreWiderThanFormworkAndGrowWithTheDiameterAtEveryScale) {
  for (double scale = 1.0; scale <= 2000.0; scale = usualScale(scale * 1.01)) {
    DrawOptions options;
    options.scale = scale;
    const Sheet sheet({{{0, 0}, {1000, 1000}}, {}, 0.0}, options);
    double before = pen::kFormwork;
    for (const double diameter : {5.0, 6.0, 8.0, 10.0, 12.0, 14.0, 16.0, 20.0, 25.0, 32.0, 40.0}) {
      const double width = penOf(diameter, sheet);
      EXPECT_GE(width, before + (diameter > 5.0 ? 0.0 : 0.05)) << scale << ' ' << diameter;
      EXPECT_GE(width, diameter / scale * 0.999) << "never thinner than it is";
      before = width;
    }
    EXPECT_LT(penOf(8, sheet), penOf(12, sheet)) << scale;
    EXPECT_LT(penOf(12, sheet), penOf(20, sheet)) << scale;
    EXPECT_LT(penOf(0, sheet), 0.5);
    EXPECT_GE(penOf(0, sheet), 0.35) << "a bar without a diameter is seen all the same";
  }
}

TEST(ToolBarPens, AreTheSameInEveryUnit) {
  for (const double scale : {10.0, 50.0, 200.0}) {
    double expected = 0.0;
    for (const LengthUnit& unit : kLengthUnits) {
      DrawOptions options;
      options.scale = scale;
      options.unit = &unit;
      const double width =
          penOf(unit.ofMillimetres(12), Sheet({{{0, 0}, {1000, 1000}}, {}, 0.0}, options));
      EXPECT_TRUE(expected == 0.0 || std::abs(width - expected) < kExactly) << unit.name;
      expected = width;
    }
  }
}

}  // namespace

}  // namespace quorvan::tool
