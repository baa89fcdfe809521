// The geometry of the three kinds of series, by examples worked out by hand.
//
// M is the middle of the first frame's two points. The base line runs from M to B, which is M with
// 10 added to x when the first frame runs along y, and with 10 added to y otherwise. A point's
// distance from the base line counts positive when (M to point) x sign vector points down, else
// negative.

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include <tests/export/series_filing.h>
#include <tests/support/saved_file.h>

namespace quorvan::test {
namespace {

using Numbers = std::vector<double>;
using SeriesGeometry = SeriesFiling;

Frame reversed(const Frame& frame) {
  Frame result = frame;
  result.first = CKtPnt3D(frame.second.X(), frame.second.Y(), frame.first.Z());
  result.second = CKtPnt3D(frame.first.X(), frame.first.Y(), frame.second.Z());
  return result;
}

// --- straight bars seen in view 1 ---------------------------------------------------------------

// The host has measured already: value 1, 2 and 3 are top distance, bottom distance and position.
TEST_F(SeriesGeometry, ASimpleSeriesHoldsTheValuesAsPushed) {
  std::vector<Frame> frames(3);
  frames[0].first = CKtPnt3D(30, -5.5, 700);
  frames[1].first = CKtPnt3D(10, -6.5, 700);
  frames[2].first = CKtPnt3D(20, -7.5, 700);
  for (Frame& frame : frames) {
    frame.second = CKtPnt3D(1, 2, 3);
  }
  const CKtZantoRepartition repartition = repartitionOf(frames);
  EXPECT_EQ(topOf(repartition), (Numbers{30, 10, 20}));
  EXPECT_EQ(bottomOf(repartition), (Numbers{-5.5, -6.5, -7.5}));
  EXPECT_EQ(positionsOf(repartition), (Numbers{700, 700, 700}));
}

TEST_F(SeriesGeometry, ASimpleSeriesHasNoPointsAxisOrBulge) {
  Frame frame;
  frame.first = CKtPnt3D(1, 2, 3);
  frame.second = CKtPnt3D(4, 5, 6);
  const CKtZantoRepartition repartition = repartitionOf({frame});
  expectPoint(repartition.getPoint1(), {0, 0, 0});
  expectPoint(repartition.getPoint2(), {0, 0, 0});
  expectVector(repartition.getAxis(), {0, 0, 0});
  expectVector(repartition.getBulge(), {0, 0, 0});
  EXPECT_EQ(topOf(repartition), Numbers{1});
}

// --- stirrups and all other classes -------------------------------------------------------------

// M = (0, 250, 0). The frames run along y, so B = (10, 250, 0) and the series runs along x. The
// direction from first point to first point is (200, 0, 0), at unit length (1, 0, 0).
// First points: (M to P) = (0, -250, 0), and (0 * 0 - (-250) * 1) = 250 is not below zero: -250.
// Second points: (0, 250, 0) gives -250, below zero: +250.
// The line through M and B meets the last frame, x = 200, in (200, 250).
TEST_F(SeriesGeometry, AStirrupSeriesAlongABeam) {
  const CKtZantoRepartition repartition = repartitionOf(
      {stirrupFrame({0, 0, 0}, {0, 500, 0}), stirrupFrame({200, 0, 0}, {200, 500, 0})});
  EXPECT_EQ(topOf(repartition), (Numbers{-250, -250}));
  EXPECT_EQ(bottomOf(repartition), (Numbers{250, 250}));
  EXPECT_EQ(positionsOf(repartition), (Numbers{200}));
  expectPoint(repartition.getPoint1(), {0, 250, 0});
  expectPoint(repartition.getPoint2(), {200, 250, 0});
  expectVector(repartition.getAxis(), {1, 0, 0});
  expectVector(repartition.getBulge(), {0, 0, 0});
}

// The same pushed from right to left: the direction is (-1, 0, 0), and both signs change.
TEST_F(SeriesGeometry, AStirrupSeriesKeepsTheOrderOfThePushes) {
  const CKtZantoRepartition repartition =
      repartitionOf({stirrupFrame({200, 0, 0}, {200, 500, 0}), stirrupFrame({0, 0, 0}, {0, 500, 0}),
                     stirrupFrame({350, 0, 0}, {350, 500, 0})});
  EXPECT_EQ(topOf(repartition), (Numbers{250, 250, 250}));
  EXPECT_EQ(bottomOf(repartition), (Numbers{-250, -250, -250}));
  EXPECT_EQ(positionsOf(repartition), (Numbers{200, 350}));
  expectPoint(repartition.getPoint1(), {200, 250, 0});
  expectPoint(repartition.getPoint2(), {350, 250, 0});
  expectVector(repartition.getAxis(), {-1, 0, 0});
}

// Stirrups up a column. M = (150, 0, 0); the frames do not run along y, so B = (150, 10, 0), and
// positions are measured in y. Direction (0, 1, 0).
// First point: (-150, 0, 0) gives -150 * 1 - 0 * 0 = -150, below zero: +150. Second: -150.
TEST_F(SeriesGeometry, AStirrupSeriesUpAColumn) {
  const CKtZantoRepartition repartition =
      repartitionOf({stirrupFrame({0, 0, 0}, {300, 0, 0}), stirrupFrame({0, 125, 0}, {300, 125, 0}),
                     stirrupFrame({0, 300, 0}, {300, 300, 0})});
  EXPECT_EQ(topOf(repartition), (Numbers{150, 150, 150}));
  EXPECT_EQ(bottomOf(repartition), (Numbers{-150, -150, -150}));
  EXPECT_EQ(positionsOf(repartition), (Numbers{125, 175}));
  expectPoint(repartition.getPoint1(), {150, 0, 0});
  expectPoint(repartition.getPoint2(), {150, 300, 0});
  expectVector(repartition.getAxis(), {0, 1, 0});
}

// Frames on a slope. Direction (30, 40, 0) at unit length (0.6, 0.8, 0). M = (0, 50, 0), B = M +
// (10, 0, 0). First points P = (0, 0), (30, 40): v = (0, -50) gives 0 * 0.8 + 50 * 0.6 = 30: -50;
// v = (30, -10) gives 30 * 0.8 + 10 * 0.6 = 30: -10. Second points (0, 100), (30, 140): v = (0, 50)
// gives -30: +50; v = (30, 90) gives 24 - 54 = -30: +90. Positions are measured in x: 30.
// y = 50 meets x = 30 in (30, 50).
TEST_F(SeriesGeometry, AStirrupSeriesOnASlope) {
  const CKtZantoRepartition repartition = repartitionOf(
      {stirrupFrame({0, 0, 0}, {0, 100, 0}), stirrupFrame({30, 40, 0}, {30, 140, 0})});
  EXPECT_EQ(topOf(repartition), (Numbers{-50, -10}));
  EXPECT_EQ(bottomOf(repartition), (Numbers{50, 90}));
  EXPECT_EQ(positionsOf(repartition), (Numbers{30}));
  expectPoint(repartition.getPoint2(), {30, 50, 0});
  expectVector(repartition.getAxis(), {0.6, 0.8, 0});
}

// A last frame that leans: (200, 0) to (260, 300). The line y = 250 of the first frame's middle
// meets it at five sixths of its height: x = 250.
TEST_F(SeriesGeometry, TheSecondPointLiesOnTheLastFrame) {
  const CKtZantoRepartition repartition = repartitionOf(
      {stirrupFrame({0, 0, 0}, {0, 500, 0}), stirrupFrame({200, 0, 0}, {260, 300, 0})});
  expectPoint(repartition.getPoint2(), {250, 250, 0});
}

// The last frame runs along the base line: there is no such point, and x and y stay 0. The height
// is M's: (40 + 60) / 2.
TEST_F(SeriesGeometry, WithALastFrameAlongTheBaseLineTheSecondPointKeepsItsDefault) {
  const CKtZantoRepartition repartition = repartitionOf(
      {stirrupFrame({100, 0, 40}, {100, 500, 60}), stirrupFrame({300, 0, 40}, {400, 0, 60})});
  expectPoint(repartition.getPoint1(), {100, 250, 50});
  expectPoint(repartition.getPoint2(), {0, 0, 50});
}

// Heights count in distances. M = (0, 250, 15): the first point is 250 away in y and 15 in z, and
// sqrt(250^2 + 15^2) = 250.4495957.
TEST_F(SeriesGeometry, DistancesAreThoseInSpace) {
  const CKtZantoRepartition repartition = repartitionOf(
      {stirrupFrame({0, 0, 0}, {0, 500, 30}), stirrupFrame({200, 0, 0}, {200, 500, 30})});
  EXPECT_EQ(topOf(repartition), (Numbers{-250.4495957, -250.4495957}));
  EXPECT_EQ(bottomOf(repartition), (Numbers{250.4495957, 250.4495957}));
  expectPoint(repartition.getPoint1(), {0, 250, 15});
  expectPoint(repartition.getPoint2(), {200, 250, 15});
}

// How far a frame may lean and still run along y: the square of the difference in x is at most
// 1e-20. As numbers go, the square of 1e-10 is above that and the square of the number before it is
// not.
TEST_F(SeriesGeometry, AFrameRunsAlongYUpToATenthOfABillionth) {
  const double limit = std::nextafter(1e-10, 0.0);
  const CKtZantoRepartition within = repartitionOf(
      {stirrupFrame({limit, 0, 0}, {0, 500, 0}), stirrupFrame({200, 7, 0}, {200, 507, 0})});
  EXPECT_EQ(positionsOf(within), (Numbers{200}));
  std::filesystem::remove(kDrawing);
  start();
  const CKtZantoRepartition beyond = repartitionOf(
      {stirrupFrame({1e-10, 0, 0}, {0, 500, 0}), stirrupFrame({200, 7, 0}, {200, 507, 0})});
  EXPECT_EQ(positionsOf(beyond), (Numbers{7}));
}

// A point on the base line has the distance zero, which counts negative.
TEST_F(SeriesGeometry, AZeroDistanceIsFiledAsMinusZero) {
  repartitionOf({stirrupFrame({5, 5, 0}, {5, 5, 0}), stirrupFrame({25, 5, 0}, {25, 8, 0})});
  const std::string saved = savedBytes(kDrawing);
  EXPECT_NE(saved.find("<AxisDistancesTop size=\"2\"><DistanceTop1 double=\"-0.0000000\"/>"
                       "<DistanceTop2 double=\"-0.0000000\"/></AxisDistancesTop>"
                       "<AxisDistancesBottom size=\"2\"><DistanceBottom1 double=\"-0.0000000\"/>"
                       "<DistanceBottom2 double=\"3.0000000\"/>"),
            std::string::npos)
      << saved;
}

// First points on top of each other have no direction: the sign vector stays zero, no product is
// below zero, and every distance counts negative.
TEST_F(SeriesGeometry, FramesOnTopOfEachOtherHaveNoDirection) {
  const CKtZantoRepartition repartition =
      repartitionOf({stirrupFrame({1, 0, 0}, {1, 10, 0}), stirrupFrame({1, 0, 0}, {1, 10, 0})});
  EXPECT_EQ(topOf(repartition), (Numbers{-5, -5}));
  EXPECT_EQ(bottomOf(repartition), (Numbers{-5, -5}));
  EXPECT_EQ(positionsOf(repartition), (Numbers{0}));
  expectVector(repartition.getAxis(), {0, 0, 0});
}

TEST_F(SeriesGeometry, ASeriesOfAnyOtherClassIsMeasuredTheSameWay) {
  Frame first = stirrupFrame({0, 0, 0}, {0, 500, 0});
  Frame second = stirrupFrame({200, 0, 0}, {200, 500, 0});
  for (const wchar_t* const className :
       {L"CKtZantoFrameRect", L"CKtZantoPin", L"AnyOther", L"cktzantostraightbar"}) {
    std::filesystem::remove(kDrawing);
    start();
    first.className = second.className = className;
    const CKtZantoRepartition repartition = repartitionOf({first, second});
    EXPECT_EQ(topOf(repartition), (Numbers{-250, -250}));
    EXPECT_EQ(repartition.getDefClassName(), className);
  }
}

// --- straight bars seen in another view ---------------------------------------------------------

// Bars along x, pushed out of order: y = 0, 300, 150. The direction is (0, 300, 0); the products
// 0, 90000 and 45000 put them in the order 0, 150, 300. M = (500, 0, 0), B = (500, 10, 0), and the
// sign vector is (0, 10, 0). First point: v = (-500, 0, 0) gives -5000, below zero: +500. The
// others: v = (-500, 150), the same. Second points: -500.
// x = 500 meets the last bar, y = 300, in (500, 300).
TEST_F(SeriesGeometry, BarsAreSortedAlongTheirSeries) {
  const CKtZantoRepartition repartition =
      repartitionOf({barFrame({0, 0, 0}, {1000, 0, 0}), barFrame({0, 300, 0}, {1000, 300, 0}),
                     barFrame({0, 150, 0}, {1000, 150, 0})});
  EXPECT_EQ(topOf(repartition), (Numbers{500, 500, 500}));
  EXPECT_EQ(bottomOf(repartition), (Numbers{-500, -500, -500}));
  EXPECT_EQ(positionsOf(repartition), (Numbers{150, 150}));
  expectPoint(repartition.getPoint1(), {500, 0, 0});
  expectPoint(repartition.getPoint2(), {500, 300, 0});
  expectVector(repartition.getAxis(), {0, 10, 0});
  expectVector(repartition.getBulge(), {0, 0, 0});
}

// Bars along y at x = 0, -200 and 100. The direction is (-200, 0, 0): the products 0, 40000 and
// -20000 put the last one first. M = (100, 50, 0), B = (110, 50, 0), sign vector (10, 0, 0).
// First points: v = (0, -50) gives 0 * 0 + 50 * 10 = 500, not below zero: -50. Second points: +50.
TEST_F(SeriesGeometry, BarsAreMeasuredFromTheFirstInTheirOrder) {
  const CKtZantoRepartition repartition =
      repartitionOf({barFrame({0, 0, 0}, {0, 100, 0}), barFrame({-200, 0, 0}, {-200, 100, 0}),
                     barFrame({100, 0, 0}, {100, 100, 0})});
  EXPECT_EQ(topOf(repartition), (Numbers{-50, -50, -50}));
  EXPECT_EQ(bottomOf(repartition), (Numbers{50, 50, 50}));
  EXPECT_EQ(positionsOf(repartition), (Numbers{100, 200}));
  expectPoint(repartition.getPoint1(), {100, 50, 0});
  expectPoint(repartition.getPoint2(), {-200, 50, 0});
  expectVector(repartition.getAxis(), {10, 0, 0});
}

// Bars of different lengths about x = 0, 100, 200: the middle of the first, (0, 50), is the base.
TEST_F(SeriesGeometry, BarsOfDifferentLengthsHaveDistancesOfTheirOwn) {
  const CKtZantoRepartition repartition =
      repartitionOf({barFrame({0, 0, 0}, {0, 100, 0}), barFrame({100, -20, 0}, {100, 130, 0}),
                     barFrame({200, 60, 0}, {200, 70, 0})});
  EXPECT_EQ(topOf(repartition), (Numbers{-50, -70, 10}));
  EXPECT_EQ(bottomOf(repartition), (Numbers{50, 80, 20}));
  EXPECT_EQ(positionsOf(repartition), (Numbers{100, 100}));
}

// Equal first points: the order of the pushes remains, as the lengths show.
TEST_F(SeriesGeometry, SortingIsStable) {
  std::vector<Frame> frames{barFrame({0, 0, 0}, {0, 100, 0}), barFrame({50, 0, 0}, {50, 101, 0})};
  for (const double length : {107.0, 103.0, 105.0, 104.0}) {
    frames.push_back(barFrame({20, 0, 0}, {20, length, 0}));
  }
  frames.push_back(barFrame({50, 0, 0}, {50, 102, 0}));
  frames.push_back(barFrame({0, 0, 0}, {0, 99, 0}));
  const CKtZantoRepartition repartition = repartitionOf(frames);
  EXPECT_EQ(bottomOf(repartition), (Numbers{50, 49, 57, 53, 55, 54, 51, 52}));
  EXPECT_EQ(positionsOf(repartition), (Numbers{0, 20, 0, 0, 0, 30, 0}));
}

// Bars at x = 0, 50, nowhere, 20 and 10: the last two are exchanged, but nothing is with a bar that
// is neither before nor behind another. The lengths show the order.
TEST_F(SeriesGeometry, ABarAtNoPlaceStaysWhereItIsAndNonePassesIt) {
  const double none = std::numeric_limits<double>::quiet_NaN();
  std::vector<Frame> frames;
  for (const double x : {0.0, 50.0, none, 20.0, 10.0}) {
    const double length = 100 + static_cast<double>(frames.size());
    frames.push_back(barFrame({x, 0, 0}, {7, length, 0}));
  }
  frames[0].second.X(0);
  EXPECT_EQ(bottomOf(repartitionOf(frames)), (Numbers{50, 51, 52, 54, 53}));
}

// Bars so far apart that the direction is infinite: the first one is at 0 all the same, between the
// one before it and the one behind. The second points show the order.
TEST_F(SeriesGeometry, TheFirstBarIsAtZeroHoweverFarTheOthersAre) {
  const double farthest = std::numeric_limits<double>::max();
  const CKtZantoRepartition repartition = repartitionOf(
      {barFrame({-farthest / 2, 0, 0}, {1, 0, 0}), barFrame({farthest, 0, 0}, {2, 0, 0}),
       barFrame({-farthest, 0, 0}, {farthest, 0, 0})});
  const Numbers bottom = bottomOf(repartition);
  ASSERT_EQ(bottom.size(), 3U);
  EXPECT_EQ(bottom[1], -1.0);
  EXPECT_EQ(bottom[2], -2.0);
}

// The first two bars are the same: no direction, all products zero, no change of order.
TEST_F(SeriesGeometry, BarsOnTopOfEachOtherAreNotSorted) {
  const CKtZantoRepartition repartition =
      repartitionOf({barFrame({50, 0, 0}, {50, 100, 0}), barFrame({50, 0, 0}, {50, 100, 0}),
                     barFrame({20, 0, 0}, {20, 100, 0}), barFrame({90, 0, 0}, {90, 100, 0})});
  EXPECT_EQ(positionsOf(repartition), (Numbers{0, 30, 70}));
}

// What is taken from "the first frame" is taken after sorting: here the second one pushed.
TEST_F(SeriesGeometry, TheFirstFrameIsTheFirstAfterSorting) {
  std::vector<Frame> frames{barFrame({100, 0, 0}, {100, 100, 0}),
                            barFrame({200, 0, 0}, {200, 100, 0}), barFrame({0, 0, 0}, {0, 100, 0})};
  frames[2].className = L"CKtZantoPin";
  frames[2].steelGrade = L"Pin steel";
  exportPin(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"S", L"A", 1, 8, false);
  exportPin(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Pin steel", L"A", 1, 8, false);
  const CKtZantoRepartition repartition = repartitionOf(frames);
  EXPECT_EQ(repartition.getDefClassName(), L"CKtZantoPin");
  EXPECT_EQ(repartition.getIndex(), 2);
  expectPoint(repartition.getPoint1(), {0, 50, 0});
}

// View 1 alone makes a series simple.
TEST_F(SeriesGeometry, BarsOfAnyOtherViewAreMeasured) {
  for (const int view : {0, 2, -1, 65537, 2147483647}) {
    std::filesystem::remove(kDrawing);
    start();
    Frame first = barFrame({0, 0, 0}, {0, 100, 0});
    Frame second = barFrame({10, 0, 0}, {10, 100, 0});
    first.viewPoint = second.viewPoint = view;
    const CKtZantoRepartition repartition = repartitionOf({first, second});
    EXPECT_EQ(positionsOf(repartition), (Numbers{10}));
    EXPECT_EQ(repartition.getViewPoint(), view);
  }
}

// Seen in view 1, other classes are measured all the same.
TEST_F(SeriesGeometry, OtherClassesAreMeasuredInView1Too) {
  const CKtZantoRepartition repartition = repartitionOf(
      {stirrupFrame({0, 0, 0}, {0, 500, 0}), stirrupFrame({200, 0, 0}, {200, 500, 0})});
  EXPECT_EQ(repartition.getViewPoint(), 1);
  EXPECT_EQ(positionsOf(repartition), (Numbers{200}));
}

// Exchanging the ends of all frames exchanges top and bottom.
TEST_F(SeriesGeometry, ExchangingTheEndsExchangesTopAndBottom) {
  const std::vector<Frame> frames{barFrame({0, 0, 0}, {0, 100, 0}),
                                  barFrame({100, -20, 0}, {100, 130, 0})};
  const CKtZantoRepartition one = repartitionOf(frames);
  std::filesystem::remove(kDrawing);
  start();
  const CKtZantoRepartition other = repartitionOf({reversed(frames[0]), reversed(frames[1])});
  EXPECT_EQ(topOf(one), bottomOf(other));
  EXPECT_EQ(bottomOf(one), topOf(other));
}

}  // namespace
}  // namespace quorvan::test
