#include <tools/draw/scene/plane_point.h>

#include <gtest/gtest.h>

#include <limits>
#include <numbers>
#include <random>

namespace {

using quorvan::tool::crossOf;
using quorvan::tool::directionOf;
using quorvan::tool::leftOf;
using quorvan::tool::lengthOf;
using quorvan::tool::PlanePoint;
using quorvan::tool::turned;

constexpr double kExact = 1e-12;

TEST(ToolPlanePoint, AddsAndScalesByCoordinate) {
  EXPECT_EQ((PlanePoint{1, 2} + PlanePoint{10, 20}), (PlanePoint{11, 22}));
  EXPECT_EQ((PlanePoint{1, 2} - PlanePoint{10, 20}), (PlanePoint{-9, -18}));
  EXPECT_EQ((PlanePoint{1, 2} * -3), (PlanePoint{-3, -6}));
}

TEST(ToolPlanePoint, KnowsLeftFromRight) {
  EXPECT_GT(crossOf({1, 0}, {0, 1}), 0);
  EXPECT_LT(crossOf({1, 0}, {0, -1}), 0);
  EXPECT_EQ(crossOf({2, 1}, {4, 2}), 0);
  EXPECT_EQ(leftOf({1, 0}), (PlanePoint{0, 1}));
  EXPECT_EQ(leftOf({0, 1}), (PlanePoint{-1, 0}));
}

TEST(ToolPlanePoint, HasADirectionAlsoWithoutLength) {
  EXPECT_EQ(directionOf({0, 0}), (PlanePoint{1, 0}));
  EXPECT_EQ(directionOf({0, -5}), (PlanePoint{0, -1}));
  EXPECT_EQ(directionOf({3, 4}), (PlanePoint{0.6, 0.8}));
  EXPECT_NEAR(lengthOf(directionOf({1e200, 1e200})), 1, kExact);
}

TEST(ToolPlanePoint, IsTurnedToTheLeft) {
  const PlanePoint quarter = turned({2, 0}, std::numbers::pi / 2);
  EXPECT_NEAR(quarter.x, 0, kExact);
  EXPECT_NEAR(quarter.y, 2, kExact);
  EXPECT_EQ(turned({2, 3}, 0), (PlanePoint{2, 3}));
}

TEST(ToolPlanePoint, KeepsItsLengthWhenItIsTurned) {
  std::mt19937 random(44);
  const auto number = [&random] { return static_cast<double>(random() % 20001) / 100.0 - 100.0; };
  for (int round = 0; round < 500; ++round) {
    const PlanePoint point{number(), number()};
    const double angle = number();
    EXPECT_NEAR(lengthOf(turned(point, angle)), lengthOf(point), 1e-9);
    const PlanePoint back = turned(turned(point, angle), -angle);
    EXPECT_NEAR(lengthOf(back - point), 0, 1e-9);
    EXPECT_GE(crossOf(point, leftOf(point)), 0);
  }
}

TEST(ToolPlanePoint, IsFiniteInBothCoordinates) {
  const double infinite = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(isFinite(PlanePoint{1e300, -1e300}));
  EXPECT_FALSE(isFinite(PlanePoint{infinite, 0}));
  EXPECT_FALSE(isFinite(PlanePoint{0, std::numeric_limits<double>::quiet_NaN()}));
}

}  // namespace
