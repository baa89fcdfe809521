#include <gtest/gtest.h>

#include <limits>

#include <quorvan/platform/host_geometry.h>
#include <quorvan/platform/integer_point.h>

namespace {

TEST(HostGeometry, PointsAreEqualUpToTheTolerance) {
  AcGeTol tolerance;
  tolerance.setEqualPoint(0.5);
  const AcGePoint3d origin;
  EXPECT_TRUE(origin.isEqualTo(AcGePoint3d(0.0, 0.0, 0.5), tolerance));
  EXPECT_TRUE(origin.isEqualTo(AcGePoint3d(0.3, 0.4, 0.0), tolerance));
  EXPECT_FALSE(origin.isEqualTo(AcGePoint3d(0.4, 0.4, 0.0), tolerance));
  EXPECT_FALSE(origin.isEqualTo(AcGePoint3d(0.0, 0.0, 0.51), tolerance));
}

TEST(HostGeometry, GlobalToleranceIsTenToTheMinusTen) {
  EXPECT_EQ(AcGeContext::gTol.equalPoint(), 1e-10);
  EXPECT_TRUE(AcGePoint3d(1, 2, 3).isEqualTo(AcGePoint3d(1, 2, 3)));
  EXPECT_FALSE(AcGePoint3d(0, 0, 0).isEqualTo(AcGePoint3d(2e-10, 0, 0)));
}

TEST(HostGeometry, NothingEqualsWhatIsNotANumber) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const AcGePoint3d point(nan, 0, 0);
  EXPECT_FALSE(point.isEqualTo(point));
}

TEST(IntegerPoint, IsAPairOfWholeNumbers) {
  EXPECT_EQ(CPoint().x, 0);
  EXPECT_EQ(CPoint().y, 0);
  EXPECT_EQ(CPoint(3, -4).x, 3);
  EXPECT_EQ(CPoint(3, -4).y, -4);
  EXPECT_TRUE(CPoint(3, -4) == CPoint(3, -4));
  EXPECT_FALSE(CPoint(3, -4) == CPoint(3, 4));
}

}  // namespace
