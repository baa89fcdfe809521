#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include <quorvan/geometry/plane_geometry.h>

namespace {

void expectPoint(const CKtPnt3D& point, double x, double y, double z) {
  EXPECT_EQ(point.X(), x);
  EXPECT_EQ(point.Y(), y);
  EXPECT_EQ(point.Z(), z);
}

TEST(IntersectionLine2D, MeetsInThePlaneOfXAndY) {
  CKtPnt3D result(7, 8, 9);
  EXPECT_NE(IntersectionLine2D({0, 0, 5}, {4, 0, 6}, {1, -1, 7}, {1, 3, 8}, result), 0);
  expectPoint(result, 1, 0, 0);
}

TEST(IntersectionLine2D, TakesTheLinesAsInfinite) {
  CKtPnt3D result;
  EXPECT_NE(IntersectionLine2D({0, 0, 0}, {1, 1, 0}, {10, 0, 0}, {9, 1, 0}, result), 0);
  expectPoint(result, 5, 5, 0);
}

TEST(IntersectionLine2D, ResultMayBeOneOfThePoints) {
  CKtPnt3D a1(0, 0, 0);
  EXPECT_NE(IntersectionLine2D(a1, {1, 0, 0}, {3, 1, 0}, {3, 2, 0}, a1), 0);
  expectPoint(a1, 3, 0, 0);
}

TEST(IntersectionLine2D, ParallelLinesLeaveTheResult) {
  CKtPnt3D result(7, 8, 9);
  EXPECT_EQ(IntersectionLine2D({0, 0, 0}, {1, 1, 0}, {0, 1, 0}, {1, 2, 0}, result), 0);
  EXPECT_EQ(IntersectionLine2D({0, 0, 0}, {1, 1, 0}, {2, 2, 0}, {5, 5, 0}, result), 0);
  EXPECT_EQ(IntersectionLine2D({0, 0, 0}, {1, 1, 0}, {1, 2, 0}, {0, 1, 0}, result), 0);
  expectPoint(result, 7, 8, 9);
}

TEST(IntersectionLine2D, LinesParallelUpToRoundingCountAsParallel) {
  CKtPnt3D result(7, 8, 9);
  const double x = 1000 * std::cos(0.7);
  const double y = 1000 * std::sin(0.7);
  EXPECT_EQ(IntersectionLine2D({0, 0, 0}, {x, y, 0}, {5, 0, 0},
                               {5 + 3 * x, std::nextafter(3 * y, 1e9), 0}, result),
            0);
  expectPoint(result, 7, 8, 9);
  EXPECT_NE(IntersectionLine2D({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1e6, 1 + 1e-4, 0}, result), 0);
  EXPECT_NEAR(result.X(), -1e10, 1e3);
}

TEST(IntersectionLine2D, ALineOfOnePointMeetsNothing) {
  CKtPnt3D result(7, 8, 9);
  EXPECT_EQ(IntersectionLine2D({1, 1, 0}, {1, 1, 5}, {0, 0, 0}, {1, 0, 0}, result), 0);
  EXPECT_EQ(IntersectionLine2D({0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {1, 1, 0}, result), 0);
  expectPoint(result, 7, 8, 9);
}

TEST(IntersectionLine2D, WhatIsNotANumberMeetsNothing) {
  CKtPnt3D result(7, 8, 9);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(IntersectionLine2D({nan, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 2, 0}, result), 0);
  EXPECT_EQ(IntersectionLine2D({0, 0, 0}, {infinity, 0, 0}, {0, 1, 0}, {0, 2, 0}, result), 0);
  expectPoint(result, 7, 8, 9);
}

TEST(Distance, IsMeasuredSquareToTheInfiniteLine) {
  EXPECT_EQ(Distance({0, 5, 0}, {0, 0, 0}, {1, 0, 0}, 0.0), 5.0);
  EXPECT_EQ(Distance({100, 5, 0}, {0, 0, 0}, {1, 0, 0}, 0.0), 5.0);
  EXPECT_EQ(Distance({-100, 0, -5}, {0, 0, 0}, {1, 0, 0}, 0.0), 5.0);
  EXPECT_EQ(Distance({0, 3, 4}, {7, 0, 0}, {9, 0, 0}, 0.0), 5.0);
  EXPECT_DOUBLE_EQ(Distance({0, 2, 0}, {0, 0, 0}, {1, 1, 0}, 0.0), std::sqrt(2.0));
}

TEST(Distance, HasNoSign) {
  EXPECT_EQ(Distance({0, -5, 0}, {0, 0, 0}, {1, 0, 0}, 0.0), 5.0);
  EXPECT_EQ(Distance({0, 5, 0}, {1, 0, 0}, {0, 0, 0}, 0.0), 5.0);
}

TEST(Distance, IsZeroOnTheLine) {
  EXPECT_EQ(Distance({3, 6, 9}, {1, 2, 3}, {2, 4, 6}, 0.0), 0.0);
}

TEST(Distance, OfALineOfOnePointIsTheDistanceToIt) {
  EXPECT_EQ(Distance({4, 5, 0}, {1, 1, 0}, {1, 1, 0}, 0.0), 5.0);
}

TEST(Distance, ToleranceDecidesWhatIsALine) {
  const CKtPnt3D p(10, 5, 0);
  const CKtPnt3D a(0, 5, 0);
  const CKtPnt3D b(0, 5.001, 0);
  EXPECT_EQ(Distance(p, a, b, 0.0), 10.0);
  EXPECT_EQ(Distance({0, 9, 0}, a, b, 0.0), 0.0);
  EXPECT_EQ(Distance({0, 9, 0}, a, b, 0.01), 4.0);
}

}  // namespace
