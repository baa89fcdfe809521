#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

#include <quorvan/geometry/point.h>

namespace {

static_assert(std::is_trivially_copyable_v<CKtPnt3D>);
static_assert(std::is_standard_layout_v<CKtPnt3D>);
static_assert(sizeof(CKtPnt3D) == 3 * sizeof(double));

TEST(Point, IsTheOriginByDefault) {
  const CKtPnt3D point;
  EXPECT_EQ(point.X(), 0.0);
  EXPECT_EQ(point.Y(), 0.0);
  EXPECT_EQ(point.Z(), 0.0);
}

TEST(Point, GivesAndTakesEachCoordinate) {
  CKtPnt3D point(1, 2, 3);
  EXPECT_EQ(point.X(), 1.0);
  EXPECT_EQ(point.Y(), 2.0);
  EXPECT_EQ(point.Z(), 3.0);
  point.Y(5.0);
  EXPECT_EQ(point.X(), 1.0);
  EXPECT_EQ(point.Y(), 5.0);
  EXPECT_EQ(point.Z(), 3.0);
  point.X(4.0);
  point.Z(6.0);
  EXPECT_EQ(point.X(), 4.0);
  EXPECT_EQ(point.Z(), 6.0);
  point.XYZ(7, 8, 9);
  EXPECT_EQ(point.X(), 7.0);
  EXPECT_EQ(point.Y(), 8.0);
  EXPECT_EQ(point.Z(), 9.0);
}

TEST(Point, LiesInMemoryAsItsThreeCoordinates) {
  const CKtPnt3D point(1, 2, 3);
  double memory[3];
  std::memcpy(memory, &point, sizeof memory);
  EXPECT_EQ(memory[0], 1.0);
  EXPECT_EQ(memory[1], 2.0);
  EXPECT_EQ(memory[2], 3.0);
}

TEST(Point, LiesInThePlaneOfAnIntegerPoint) {
  const CKtPnt3D point = CPoint(12, -7);
  EXPECT_EQ(point.X(), 12.0);
  EXPECT_EQ(point.Y(), -7.0);
  EXPECT_EQ(point.Z(), 0.0);
}

TEST(Point, ConvertsToTheHostsPoint) {
  const AcGePoint3d host = CKtPnt3D(1, 2, 3);
  EXPECT_EQ(host.x, 1.0);
  EXPECT_EQ(host.y, 2.0);
  EXPECT_EQ(host.z, 3.0);
}

TEST(Point, EqualsWithinTheHostsTolerance) {
  const CKtPnt3D point(1, 2, 3);
  EXPECT_EQ(point == CKtPnt3D(1, 2, 3), 1);
  EXPECT_EQ(point != CKtPnt3D(1, 2, 3), 0);
  EXPECT_EQ(point == CKtPnt3D(1, 2, 3 + 5e-11), 1);
  EXPECT_EQ(point != CKtPnt3D(1, 2, 3 + 5e-11), 0);
  EXPECT_EQ(point == CKtPnt3D(1, 2, 3 + 2e-10), 0);
  EXPECT_EQ(point != CKtPnt3D(1, 2, 3 + 2e-10), 1);
}

TEST(Point, FollowsTheHostsTolerance) {
  const AcGeTol before = AcGeContext::gTol;
  AcGeContext::gTol.setEqualPoint(1.0);
  const int equal = CKtPnt3D(0, 0, 0) == CKtPnt3D(1, 0, 0);
  AcGeContext::gTol = before;
  EXPECT_EQ(equal, 1);
  EXPECT_EQ(CKtPnt3D(0, 0, 0) == CKtPnt3D(1, 0, 0), 0);
}

}  // namespace
