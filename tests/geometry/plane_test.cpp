#include <gtest/gtest.h>

#include <quorvan/geometry/plane.h>

namespace {

TEST(Plane, HasZeroCoefficientsByDefault) {
  const CKtPlane plane;
  EXPECT_EQ(plane.A(), 0.0);
  EXPECT_EQ(plane.B(), 0.0);
  EXPECT_EQ(plane.C(), 0.0);
  EXPECT_EQ(plane.D(), 0.0);
}

TEST(Plane, SettingOneCoefficientLeavesTheOthers) {
  CKtPlane plane;
  plane.A(1.0);
  plane.B(2.0);
  plane.C(3.0);
  plane.D(4.0);
  plane.A(5.0);
  EXPECT_EQ(plane.A(), 5.0);
  EXPECT_EQ(plane.B(), 2.0);
  EXPECT_EQ(plane.C(), 3.0);
  EXPECT_EQ(plane.D(), 4.0);
  plane.D(8.0);
  EXPECT_EQ(plane.A(), 5.0);
  EXPECT_EQ(plane.D(), 8.0);
}

}  // namespace
