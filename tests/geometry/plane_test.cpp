#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

#include <quorvan/geometry/plane.h>

namespace {

static_assert(std::is_trivially_copyable_v<CKtPlane>);
static_assert(std::is_standard_layout_v<CKtPlane>);
static_assert(sizeof(CKtPlane) == 4 * sizeof(double));

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

TEST(Plane, LiesInMemoryFromTheLastCoefficientToTheFirst) {
  CKtPlane plane;
  plane.A(1.0);
  plane.B(2.0);
  plane.C(3.0);
  plane.D(4.0);
  double memory[4];
  std::memcpy(memory, &plane, sizeof memory);
  EXPECT_EQ(memory[0], 4.0);
  EXPECT_EQ(memory[1], 3.0);
  EXPECT_EQ(memory[2], 2.0);
  EXPECT_EQ(memory[3], 1.0);
}

}  // namespace
