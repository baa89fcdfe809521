#include <gtest/gtest.h>

#include <vector>

#include <tests/elements/element_file.h>

namespace quorvan::test {
namespace {

CKtFilledPolygon triangle() {
  CKtFilledPolygon polygon;
  polygon.addPoint(CKtPnt3D(1, 2, 3));
  polygon.addPoint(CKtPnt3D(4, 5, 6));
  polygon.addPoint(CKtPnt3D(7, 8, 9));
  polygon.SetColor(2);
  return polygon;
}

std::vector<CKtPnt3D> pointsOf(const CKtFilledPolygon& polygon) {
  std::vector<CKtPnt3D> points{CKtPnt3D(-1, -1, -1)};
  polygon.getPoints(points);
  return points;
}

TEST(FilledPolygon, AddPointCounts) {
  EXPECT_EQ(CKtFilledPolygon().getNbPoints(), 0U);
  const CKtFilledPolygon polygon = triangle();
  EXPECT_EQ(polygon.getNbPoints(), 3U);
  EXPECT_EQ(polygon.getPointAt(0) == CKtPnt3D(1, 2, 3), 1);
  EXPECT_EQ(polygon.getPointAt(2) == CKtPnt3D(7, 8, 9), 1);
}

TEST(FilledPolygon, SetPointAtReplacesBelowTheCountOnly) {
  CKtFilledPolygon polygon = triangle();
  EXPECT_TRUE(polygon.setPointAt(1, CKtPnt3D(0, 0, 1)));
  EXPECT_EQ(polygon.getPointAt(1) == CKtPnt3D(0, 0, 1), 1);
  EXPECT_FALSE(polygon.setPointAt(3, CKtPnt3D(9, 9, 9)));
  EXPECT_FALSE(polygon.setPointAt(0xFFFFFFFFU, CKtPnt3D(9, 9, 9)));
  EXPECT_EQ(pointEntries("P", pointsOf(polygon)),
            pointEntries("P", {{1, 2, 3}, {0, 0, 1}, {7, 8, 9}}));
}

TEST(FilledPolygon, SetPointsReplacesAllAndCounts) {
  CKtFilledPolygon polygon = triangle();
  polygon.setPoints({{5, 5, 5}});
  EXPECT_EQ(polygon.getNbPoints(), 1U);
  EXPECT_EQ(pointEntries("P", pointsOf(polygon)), pointEntries("P", {{5, 5, 5}}));
  polygon.setPoints({});
  EXPECT_EQ(polygon.getNbPoints(), 0U);
}

TEST(FilledPolygon, WithoutPointsFilesAnEmptyList) {
  CKtFilledPolygon polygon;
  polygon.SetColor(7);
  EXPECT_EQ(savedAlone(polygon),
            transferFile("<CKtFilledPolygon version=\"1\" index=\"1\"><Vector size=\"0\"/>"
                         "<Color long=\"7\"/></CKtFilledPolygon>"));
}

TEST(FilledPolygon, FilesItsPointsInTheOrderOfInsertion) {
  EXPECT_EQ(savedAlone(triangle()),
            transferFile("<CKtFilledPolygon version=\"1\" index=\"1\"><Vector size=\"3\">"
                         "<Point1 X=\"1.0000000\" Y=\"2.0000000\" Z=\"3.0000000\"/>"
                         "<Point2 X=\"4.0000000\" Y=\"5.0000000\" Z=\"6.0000000\"/>"
                         "<Point3 X=\"7.0000000\" Y=\"8.0000000\" Z=\"9.0000000\"/>"
                         "</Vector><Color long=\"2\"/></CKtFilledPolygon>"));
}

TEST(FilledPolygon, KeepsTheCountOfTheFileWhenPointsAreMissing) {
  CKtFilledPolygon polygon = triangle();
  EXPECT_EQ(readItems(listItem("Vector", 4,
                               pointItem("Point1", {1, 1, 1}) + pointItem("Point4", {4, 4, 4})) +
                          longItem("Color", 6),
                      polygon),
            0);
  EXPECT_EQ(polygon.getNbPoints(), 4U);
  EXPECT_EQ(pointEntries("P", pointsOf(polygon)), pointEntries("P", {{1, 1, 1}, {4, 4, 4}}));
  EXPECT_EQ(polygon.GetColor(), 6UL);
  EXPECT_TRUE(polygon.setPointAt(1, CKtPnt3D(2, 2, 2)));
  // Below the count, but no such point is held.
  EXPECT_FALSE(polygon.setPointAt(3, CKtPnt3D(2, 2, 2)));
  EXPECT_FALSE(polygon.setPointAt(4, CKtPnt3D(2, 2, 2)));
}

TEST(FilledPolygon, AnIncompletePointIsNotHeld) {
  CKtFilledPolygon polygon;
  EXPECT_EQ(
      readItems(listItem("Vector", 2,
                         rawItem("Point1", "X=\"1\" Y=\"1\"") + pointItem("Point2", {2, 2, 2})) +
                    longItem("Color", 6),
                polygon),
      0);
  EXPECT_EQ(polygon.getNbPoints(), 2U);
  EXPECT_EQ(pointEntries("P", pointsOf(polygon)), pointEntries("P", {{2, 2, 2}}));
}

TEST(FilledPolygon, WritesWhatItHoldsOfACountThatIsTooHigh) {
  CKtFilledPolygon polygon;
  readItems(listItem("Vector", 3, pointItem("Point2", {2, 2, 2})) + longItem("Color", 6), polygon);
  EXPECT_EQ(writeAlone(polygon), 0);
  EXPECT_EQ(savedBytes(kFile),
            transferFile(classElement(
                "CKtFilledPolygon", 1,
                listItem("Vector", 3, pointItem("Point1", {2, 2, 2})) + longItem("Color", 6))));
}

TEST(FilledPolygon, WithoutItsListReadsTheColorAndKeepsTheCount) {
  CKtFilledPolygon polygon = triangle();
  EXPECT_EQ(readItems(longItem("Color", 9), polygon), 1);
  EXPECT_EQ(polygon.GetColor(), 9UL);
  EXPECT_EQ(polygon.getNbPoints(), 3U);
  EXPECT_TRUE(pointsOf(polygon).empty());
}

TEST(FilledPolygon, AListWithoutSizeCountsAsMissing) {
  CKtFilledPolygon polygon = triangle();
  EXPECT_EQ(
      readItems("<Vector>" + pointItem("Point1", {1, 1, 1}) + "</Vector>" + longItem("Color", 9),
                polygon),
      1);
  EXPECT_EQ(polygon.GetColor(), 9UL);
  EXPECT_EQ(polygon.getNbPoints(), 3U);
  EXPECT_TRUE(pointsOf(polygon).empty());
}

TEST(FilledPolygon, WithoutItsClassElementLosesItsPointsAndKeepsTheCount) {
  CKtFilledPolygon polygon = triangle();
  EXPECT_EQ(readFrom("", polygon), 0);
  EXPECT_EQ(polygon.getNbPoints(), 3U);
  EXPECT_TRUE(pointsOf(polygon).empty());
  EXPECT_EQ(polygon.GetColor(), 2UL);
}

TEST(FilledPolygon, ItemsOfTheListAreNotThoseOfTheElement) {
  CKtFilledPolygon polygon;
  EXPECT_EQ(
      readItems(pointItem("Point1", {5, 5, 5}) +
                    listItem("Vector", 1, pointItem("Point1", {1, 1, 1}) + longItem("Color", 8)),
                polygon),
      0);
  EXPECT_EQ(pointEntries("P", pointsOf(polygon)), pointEntries("P", {{1, 1, 1}}));
  EXPECT_EQ(polygon.GetColor(), 0UL);
}

}  // namespace
}  // namespace quorvan::test
