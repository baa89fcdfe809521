// What callers compile against: the types that the operations of points, vectors, planes and lines
// take and give.

#include <gtest/gtest.h>

#include <concepts>
#include <type_traits>
#include <utility>

#include <quorvan/geometry/plane.h>
#include <quorvan/geometry/plane_geometry.h>
#include <quorvan/geometry/point.h>
#include <quorvan/geometry/transform.h>
#include <quorvan/geometry/vector.h>

namespace {

template <class Value>
concept HasCoordinates = requires(const Value& constant, Value& value, double number) {
  { constant.X() } -> std::same_as<double>;
  { constant.Y() } -> std::same_as<double>;
  { constant.Z() } -> std::same_as<double>;
  { value.X(number) } -> std::same_as<void>;
  { value.Y(number) } -> std::same_as<void>;
  { value.Z(number) } -> std::same_as<void>;
  { value.XYZ(number, number, number) } -> std::same_as<void>;
};

template <class Value>
concept HasCoefficients = requires(const Value& constant, Value& value, double number) {
  { constant.A() } -> std::same_as<double>;
  { constant.B() } -> std::same_as<double>;
  { constant.C() } -> std::same_as<double>;
  { constant.D() } -> std::same_as<double>;
  { value.A(number) } -> std::same_as<void>;
  { value.B(number) } -> std::same_as<void>;
  { value.C(number) } -> std::same_as<void>;
  { value.D(number) } -> std::same_as<void>;
};

// A whole number, 1 or 0, and no bool: what callers keep and pass on as such.
template <class Value>
concept ComparesToAnInt = requires(const Value& a, const Value& b) {
  { a == b } -> std::same_as<int>;
  { a != b } -> std::same_as<int>;
};

TEST(InterfaceTypes, OfPointsAndVectors) {
  EXPECT_TRUE(HasCoordinates<CKtPnt3D>);
  EXPECT_TRUE(HasCoordinates<CKtVect3D>);
  EXPECT_TRUE(ComparesToAnInt<CKtPnt3D>);
  EXPECT_TRUE((std::is_convertible_v<const CKtPnt3D&, AcGePoint3d>));
  EXPECT_TRUE((std::is_convertible_v<const CPoint&, CKtPnt3D>));
  EXPECT_TRUE((std::is_constructible_v<CKtVect3D, const CKtPnt3D&, int>));
  EXPECT_TRUE((std::is_constructible_v<CKtVect3D, const CKtPnt3D&, const CKtPnt3D&, int>));
  EXPECT_TRUE(
      (std::is_constructible_v<CKtVect3D, double, double, double, double, double, double, int>));
}

TEST(InterfaceTypes, OfPlanesAndTransforms) {
  EXPECT_TRUE(HasCoefficients<CKtPlane>);
  EXPECT_TRUE(
      (std::is_same_v<decltype(std::declval<CKtMat&>() = std::declval<const CKtMat&>()), CKtMat&>));
}

TEST(InterfaceTypes, OfLines) {
  using Point = const CKtPnt3D&;
  EXPECT_TRUE(
      (std::is_same_v<decltype(IntersectionLine2D), int(Point, Point, Point, Point, CKtPnt3D&)>));
  EXPECT_TRUE((std::is_same_v<decltype(Distance), double(Point, Point, Point, double)>));
  EXPECT_TRUE(
      (std::is_same_v<decltype(std::declval<const CKtVect3D&>() ^ std::declval<const CKtVect3D&>()),
                      CKtVect3D>));
  EXPECT_TRUE((std::is_same_v<decltype(std::declval<CKtVect3D&>().Normalize()), void>));
}

}  // namespace
