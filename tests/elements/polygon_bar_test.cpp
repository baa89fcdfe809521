#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include <tests/elements/element_file.h>

namespace quorvan::test {
namespace {

CKtZantoPolygonBar fourPoints() {
  CKtZantoPolygonBar bar;
  for (const double x : {1.0, 2.0, 3.0, 4.0}) {
    bar.addPoint(CKtPnt3D(x, -x, 0));
  }
  return bar;
}

std::string pointsOf(const CKtZantoPolygonBar& bar) {
  std::vector<CKtPnt3D> points;
  for (int i = 0; i < bar.getNoPoints(); ++i) {
    points.push_back(bar.getPoint(i));
  }
  return pointEntries("P", points);
}

std::string barWith(const std::string& points, const std::string& side) {
  return points + doubleItem("HookLength1", 1) + doubleItem("HookLength2", 2) + side +
         doubleItem("HookAngle1", 3) + doubleItem("HookAngle2", 4) + textItem("SteelGrade", L"S") +
         textItem("Adherence", L"A") + doubleItem("Diameter", 8) + longItem("Reference", 1) +
         flagItem("Hidden", false);
}

const std::string kSide = longItem("Side", 1);

TEST(PolygonBar, GivesTheOriginOutOfRange) {
  const CKtZantoPolygonBar bar = fourPoints();
  EXPECT_EQ(bar.getNoPoints(), 4);
  for (const int i : {-1, 4, 2147483647, -2147483647 - 1}) {
    const CKtPnt3D point = bar.getPoint(i);
    EXPECT_EQ(point.X(), 0.0);
    EXPECT_EQ(point.Y(), 0.0);
    EXPECT_EQ(point.Z(), 0.0);
  }
  EXPECT_EQ(bar.getPoint(3) == CKtPnt3D(4, -4, 0), 1);
}

TEST(PolygonBar, SetPointOutOfRangeDoesNothing) {
  CKtZantoPolygonBar bar = fourPoints();
  bar.setPoint(-1, CKtPnt3D(9, 9, 9));
  bar.setPoint(4, CKtPnt3D(9, 9, 9));
  EXPECT_EQ(pointsOf(bar), pointsOf(fourPoints()));
  bar.setPoint(3, CKtPnt3D(9, 9, 9));
  EXPECT_EQ(bar.getPoint(3) == CKtPnt3D(9, 9, 9), 1);
}

TEST(PolygonBar, DeletePointsLeavesNone) {
  CKtZantoPolygonBar bar = fourPoints();
  bar.deletePoints();
  EXPECT_EQ(bar.getNoPoints(), 0);
}

TEST(PolygonBar, SideGetterGivesTheFlagAsADouble) {
  CKtZantoPolygonBar bar;
  EXPECT_EQ(bar.getSide(), 0.0);
  bar.setSide(true);
  EXPECT_EQ(bar.getSide(), 1.0);
  static_assert(std::is_same_v<decltype(bar.getSide()), double>);
}

TEST(PolygonBar, FilesItsPointsInTheClassElementItself) {
  const std::string saved = savedAlone(fourPoints());
  EXPECT_NE(saved.find("index=\"1\"><NoPoints long=\"4\"/>"
                       "<Point1 X=\"1.0000000\" Y=\"-1.0000000\" Z=\"0.0000000\"/>"
                       "<Point2 X=\"2.0000000\" Y=\"-2.0000000\" Z=\"0.0000000\"/>"
                       "<Point3 X=\"3.0000000\" Y=\"-3.0000000\" Z=\"0.0000000\"/>"
                       "<Point4 X=\"4.0000000\" Y=\"-4.0000000\" Z=\"0.0000000\"/>"
                       "<HookLength1 "),
            std::string::npos)
      << saved;
  EXPECT_NE(savedAlone(CKtZantoPolygonBar()).find("<NoPoints long=\"0\"/><HookLength1 "),
            std::string::npos);
}

TEST(PolygonBar, AnySideButZeroIsSet) {
  const std::string points = longItem("NoPoints", 0);
  for (const auto& [side, expected] :
       {std::pair(5L, 1.0), std::pair(-1L, 1.0), std::pair(0L, 0.0), std::pair(1L, 1.0)}) {
    CKtZantoPolygonBar bar;
    bar.setSide(expected == 0.0);
    EXPECT_EQ(readItems(barWith(points, longItem("Side", side)), bar), 1);
    EXPECT_EQ(bar.getSide(), expected);
  }
}

TEST(PolygonBar, ASetSideIsFiledAsOne) {
  CKtZantoPolygonBar bar;
  readItems(barWith(longItem("NoPoints", 0), longItem("Side", 5)), bar);
  EXPECT_NE(savedAlone(bar).find("<Side long=\"1\"/>"), std::string::npos);
  bar.setSide(false);
  EXPECT_NE(savedAlone(bar).find("<Side long=\"0\"/>"), std::string::npos);
}

TEST(PolygonBar, AMissingPointBecomesADefaultPoint) {
  for (int missing = 1; missing <= 3; ++missing) {
    std::string items = longItem("NoPoints", 3);
    std::vector<CKtPnt3D> expected;
    for (int i = 1; i <= 3; ++i) {
      const CKtPnt3D point(i, i, i);
      items += i == missing ? "" : pointItem(numbered("Point", i), point);
      expected.push_back(i == missing ? CKtPnt3D() : point);
    }
    CKtZantoPolygonBar bar = fourPoints();
    EXPECT_EQ(readItems(barWith(items, kSide), bar), 0);
    EXPECT_EQ(pointsOf(bar), pointEntries("P", expected));
    EXPECT_EQ(bar.getDiameter(), 8.0);
    EXPECT_EQ(bar.getSide(), 1.0);
  }
}

TEST(PolygonBar, AnIncompletePointKeepsTheCoordinatesBeforeTheMissingOne) {
  CKtZantoPolygonBar bar;
  EXPECT_EQ(readItems(barWith(longItem("NoPoints", 3) + rawItem("Point1", "X=\"1\" Y=\"2\"") +
                                  rawItem("Point2", "X=\"3\" Z=\"4\"") +
                                  rawItem("Point3", "double=\"5\""),
                              kSide),
                      bar),
            0);
  EXPECT_EQ(pointsOf(bar), pointEntries("P", {{1, 2, 0}, {3, 0, 0}, {0, 0, 0}}));
}

TEST(PolygonBar, PointsBeyondTheNumberAreNotRead) {
  CKtZantoPolygonBar bar;
  const std::string points = pointEntries("Point", {{1, 1, 1}, {2, 2, 2}, {3, 3, 3}});
  EXPECT_EQ(readItems(barWith(longItem("NoPoints", 2) + points, kSide), bar), 1);
  EXPECT_EQ(pointsOf(bar), pointEntries("P", {{1, 1, 1}, {2, 2, 2}}));
  EXPECT_EQ(readItems(barWith(longItem("NoPoints", 0) + points, kSide), bar), 1);
  EXPECT_EQ(bar.getNoPoints(), 0);
}

TEST(PolygonBar, WithoutTheNumberHoldsNoPoints) {
  CKtZantoPolygonBar bar = fourPoints();
  EXPECT_EQ(readItems(barWith(pointEntries("Point", {{1, 1, 1}}), kSide), bar), 0);
  EXPECT_EQ(bar.getNoPoints(), 0);
  EXPECT_EQ(bar.getHookAngle2(), 4.0);
}

TEST(PolygonBar, WithoutItsClassElementKeepsItsPoints) {
  CKtZantoPolygonBar bar = fourPoints();
  EXPECT_EQ(readFrom("", bar), 0);
  EXPECT_EQ(pointsOf(bar), pointsOf(fourPoints()));
}

}  // namespace
}  // namespace quorvan::test
