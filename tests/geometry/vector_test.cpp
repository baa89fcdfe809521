#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

#include <quorvan/geometry/vector.h>

namespace {

static_assert(std::is_trivially_copyable_v<CKtVect3D>);
static_assert(std::is_standard_layout_v<CKtVect3D>);
static_assert(sizeof(CKtVect3D) == 3 * sizeof(double));

void expectComponents(const CKtVect3D& vector, double x, double y, double z) {
  EXPECT_EQ(vector.X(), x);
  EXPECT_EQ(vector.Y(), y);
  EXPECT_EQ(vector.Z(), z);
}

CKtVect3D normalized(double x, double y, double z) {
  CKtVect3D vector(x, y, z);
  vector.Normalize();
  return vector;
}

TEST(Vector, IsZeroByDefault) {
  expectComponents(CKtVect3D(), 0, 0, 0);
}

TEST(Vector, GivesAndTakesEachComponent) {
  CKtVect3D vector(1, 2, 3);
  expectComponents(vector, 1, 2, 3);
  vector.Z(6.0);
  expectComponents(vector, 1, 2, 6);
  vector.X(4.0);
  vector.Y(5.0);
  expectComponents(vector, 4, 5, 6);
  vector.XYZ(7, 8, 9);
  expectComponents(vector, 7, 8, 9);
}

TEST(Vector, LiesInMemoryAsItsThreeComponents) {
  const CKtVect3D vector(1, 2, 3);
  double memory[3];
  std::memcpy(memory, &vector, sizeof memory);
  EXPECT_EQ(memory[0], 1.0);
  EXPECT_EQ(memory[1], 2.0);
  EXPECT_EQ(memory[2], 3.0);
}

TEST(Vector, LeadsToAPointAndFromOneToAnother) {
  const CKtPnt3D from(1, 2, 3);
  const CKtPnt3D to(5, 7, 11);
  expectComponents(CKtVect3D(to, 0), 5, 7, 11);
  expectComponents(CKtVect3D(from, to, 0), 4, 5, 8);
  expectComponents(CKtVect3D(1, 2, 3, 5, 7, 11, 0), 4, 5, 8);
}

TEST(Vector, HasLengthOneForAnyOtherFlag) {
  expectComponents(CKtVect3D(CKtPnt3D(0, 3, 4), 1), 0, 0.6, 0.8);
  expectComponents(CKtVect3D(CKtPnt3D(1, 1, 1), CKtPnt3D(1, 4, 5), -1), 0, 0.6, 0.8);
  expectComponents(CKtVect3D(1, 1, 1, 1, 4, 5, 2), 0, 0.6, 0.8);
}

TEST(Vector, NormalizesToLengthOne) {
  expectComponents(normalized(3, 4, 0), 0.6, 0.8, 0);
  expectComponents(normalized(0, -7, 0), 0, -1, 0);
  expectComponents(normalized(0.1, 0, 0), 1, 0, 0);
  const CKtVect3D diagonal = normalized(1, 1, 1);
  EXPECT_DOUBLE_EQ(diagonal.X(), 1 / std::sqrt(3.0));
  EXPECT_EQ(diagonal.X(), diagonal.Y());
  EXPECT_EQ(diagonal.Y(), diagonal.Z());
}

TEST(Vector, NormalizesAtTheEndsOfTheRange) {
  const double most = std::numeric_limits<double>::max();
  const double least = std::numeric_limits<double>::denorm_min();
  expectComponents(normalized(most, 0, 0), 1, 0, 0);
  EXPECT_DOUBLE_EQ(normalized(most, most, 0).X(), std::sqrt(0.5));
  expectComponents(normalized(0, 0, -least), 0, 0, -1);
  EXPECT_DOUBLE_EQ(normalized(least, 0, least).Z(), std::sqrt(0.5));
  expectComponents(normalized(1e200, 1, 0), 1, 1e-200, 0);
}

TEST(Vector, NormalizingLeavesZeroAndWhatHasNoLength) {
  expectComponents(normalized(0, 0, 0), 0, 0, 0);
  const double infinity = std::numeric_limits<double>::infinity();
  expectComponents(normalized(infinity, 2, 3), infinity, 2, 3);
  const CKtVect3D vector = normalized(1, std::numeric_limits<double>::quiet_NaN(), 3);
  EXPECT_EQ(vector.X(), 1.0);
  EXPECT_TRUE(std::isnan(vector.Y()));
  EXPECT_EQ(vector.Z(), 3.0);
}

TEST(Vector, CrossProductIsRightHanded) {
  const CKtVect3D x(1, 0, 0);
  const CKtVect3D y(0, 1, 0);
  const CKtVect3D z(0, 0, 1);
  expectComponents(x ^ y, 0, 0, 1);
  expectComponents(y ^ z, 1, 0, 0);
  expectComponents(z ^ x, 0, 1, 0);
  expectComponents(y ^ x, 0, 0, -1);
  expectComponents(x ^ x, 0, 0, 0);  // NOLINT(misc-redundant-expression)
  expectComponents(CKtVect3D(1, 2, 3) ^ CKtVect3D(4, 5, 6), -3, 6, -3);
}

}  // namespace
