// Where shapes put their ink, measured against points along them.
#include <tools/draw/scene/painted_box.h>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include <tests/tools/drawn_elements.h>
#include <tools/draw/scene/lettering_metrics.h>
#include <tools/draw/scene/text_width.h>

namespace quorvan::tool {

namespace {

constexpr double kTiny = 1e-9;
constexpr double kHalfTurn = std::numbers::pi;

SheetBox boxAround(const std::vector<PlanePoint>& points) {
  SheetBox box = SheetBox::none();
  for (const PlanePoint point : points) {
    box.include(point);
  }
  return box;
}

void expectBox(const SheetBox& box, double left, double low, double right, double high) {
  EXPECT_NEAR(box.least.x, left, kTiny);
  EXPECT_NEAR(box.least.y, low, kTiny);
  EXPECT_NEAR(box.most.x, right, kTiny);
  EXPECT_NEAR(box.most.y, high, kTiny);
}

TEST(ToolPaintedBox, OfAnArcReachesWhereTheArcDoes) {
  const auto arc = [](double begin, double sweep) {
    Path path;
    path.moveTo(turned({10, 0}, begin));
    path.arcTo({0, 0}, sweep);
    return boxOf(path);
  };
  expectBox(arc(0, kHalfTurn / 2), 0, 0, 10, 10);
  expectBox(arc(0, kHalfTurn), -10, 0, 10, 10);
  expectBox(arc(0, -kHalfTurn), -10, -10, 10, 0);
  expectBox(arc(0, 2 * kHalfTurn), -10, -10, 10, 10);
  const double half = 10 * std::sqrt(0.5);
  expectBox(arc(kHalfTurn / 4, kHalfTurn / 2), -half, half, half, 10);
  expectBox(arc(-kHalfTurn / 4, kHalfTurn / 2), half, -half, 10, half);
}

TEST(ToolPaintedBox, HoldsEveryPointOfRandomPathsAndNoMoreThanThem) {
  std::mt19937 random(74);
  const auto number = [&] { return static_cast<double>(random() % 20001) / 100.0 - 100.0; };
  for (int round = 0; round < 300; ++round) {
    Path path;
    path.moveTo({number(), number()});
    double largest = 0.0;
    for (int i = 0; i < 6; ++i) {
      if (random() % 2 == 0) {
        path.lineTo({number(), number()});
      } else {
        const PlanePoint center{number(), number()};
        largest = std::max(largest, lengthOf(path.end() - center));
        path.arcTo(center, number() / 20.0);
      }
    }
    const SheetBox box = boxOf(path);
    const SheetBox points = boxAround(test::pointsAlong(path));
    // An arc rises over the chord of a fiftieth of a turn by less than 0.002 of its radius.
    const double most = 0.002 * largest + kTiny;
    EXPECT_LE(box.least.x, points.least.x + kTiny);
    EXPECT_GE(box.least.x, points.least.x - most);
    EXPECT_LE(box.least.y, points.least.y + kTiny);
    EXPECT_GE(box.least.y, points.least.y - most);
    EXPECT_GE(box.most.x, points.most.x - kTiny);
    EXPECT_LE(box.most.x, points.most.x + most);
    EXPECT_GE(box.most.y, points.most.y - kTiny);
    EXPECT_LE(box.most.y, points.most.y + most);
  }
}

TEST(ToolPaintedBox, AddsHalfTheWidthOfTheStroke) {
  Shape shape{};
  shape.kind = Shape::Kind::kPath;
  shape.style.width = 3.0;
  shape.path.moveTo({0, 5});
  shape.path.lineTo({20, 5});
  expectBox(paintedBox(shape), -1.5, 3.5, 21.5, 6.5);
  shape.kind = Shape::Kind::kCircle;
  shape.center = {4, 4};
  shape.radius = 2.0;
  expectBox(paintedBox(shape), 0.5, 0.5, 7.5, 7.5);
}

TEST(ToolPaintedBox, OfNothingIsEmpty) {
  Shape shape{};
  shape.kind = Shape::Kind::kPath;
  shape.style.width = 3.0;
  EXPECT_TRUE(paintedBox(shape).isEmpty());
  EXPECT_TRUE(boxOf(Path()).isEmpty());
}

Lettering letters(AlignX alignX, AlignY alignY, double angle = 0.0) {
  return {"Htx", {100, 50}, 10.0, angle, alignX, alignY};
}

TEST(ToolTextCorners, LieByTheJustification) {
  const double width = textWidth("Htx", 10.0);
  const auto at = [](const Lettering& text) { return cornersOf(text).corners[0]; };
  const auto expectAt = [](PlanePoint found, double x, double y) {
    EXPECT_NEAR(found.x, x, kTiny);
    EXPECT_NEAR(found.y, y, kTiny);
  };
  expectAt(at(letters(AlignX::kLeft, AlignY::kBase)), 100, 50);
  expectAt(at(letters(AlignX::kCentre, AlignY::kBase)), 100 - width / 2, 50);
  expectAt(at(letters(AlignX::kRight, AlignY::kBase)), 100 - width, 50);
  expectAt(at(letters(AlignX::kLeft, AlignY::kMiddle)), 100, 45);
  expectAt(at(letters(AlignX::kLeft, AlignY::kTop)), 100, 40);
  // Upright, the letters climb: their height goes to the left.
  expectAt(at(letters(AlignX::kLeft, AlignY::kTop, kHalfTurn / 2)), 110, 50);
  expectAt(at(letters(AlignX::kRight, AlignY::kBase, kHalfTurn / 2)), 100, 50 - width);
}

TEST(ToolTextCorners, RunRoundAgainstTheClock) {
  for (const double angle : {0.0, 0.7, 2.0, -3.0}) {
    const TextCorners text = cornersOf(letters(AlignX::kCentre, AlignY::kTop, angle));
    for (int i = 0; i < 4; ++i) {
      const PlanePoint side = text.corners[(i + 1) % 4] - text.corners[i];
      const PlanePoint next = text.corners[(i + 2) % 4] - text.corners[(i + 1) % 4];
      EXPECT_GT(crossOf(side, next), 0.0) << angle;
    }
    EXPECT_NEAR(lengthOf(text.corners[3] - text.corners[0]), 10.0, kTiny);
    EXPECT_NEAR(lengthOf(text.corners[1] - text.corners[0]), textWidth("Htx", 10.0), kTiny);
  }
}

TEST(ToolPaintedBox, OfATextHoldsAccentsAndWhatHangsDown) {
  Shape shape{};
  shape.kind = Shape::Kind::kText;
  shape.lettering = letters(AlignX::kLeft, AlignY::kBase);
  const SheetBox box = paintedBox(shape);
  EXPECT_LT(box.least.y, 50.0 - 2.0);
  EXPECT_GT(box.most.y, 60.0 + 2.0);
  EXPECT_NEAR(box.least.x, 100.0, kTiny);
  EXPECT_NEAR(box.most.x, 100.0 + textWidth("Htx", 10.0), kTiny);
}

}  // namespace

}  // namespace quorvan::tool
