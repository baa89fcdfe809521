#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <tests/elements/element_file.h>

namespace quorvan::test {
namespace {

using Distances = std::vector<double>;

Distances topOf(const CKtZantoRepartition& repartition) {
  Distances values{-99};
  repartition.getAxisDistancesTop(values);
  return values;
}

Distances bottomOf(const CKtZantoRepartition& repartition) {
  Distances values{-99};
  repartition.getAxisDistancesBottom(values);
  return values;
}

Distances positionsOf(const CKtZantoRepartition& repartition) {
  Distances values{-99};
  repartition.getPositions(values);
  return values;
}

// A complete repartition around these lists.
std::string repartitionWith(const std::string& lists) {
  return pointItem("Point1", {1, 2, 3}) + pointItem("Point2", {4, 5, 6}) +
         vectorItem("Bulge", {0, 0, 1}) + longItem("ViewPoint", 2) + vectorItem("Axis", {1, 0, 0}) +
         lists + textItem("DefClassName", L"CKtZantoFrameRect") + longItem("Index", 4) +
         flagItem("Hidden", true);
}

TEST(Repartition, FilesEmptyListsByDefault) {
  EXPECT_EQ(savedAlone(CKtZantoRepartition()),
            transferFile("<CKtZantoRepartition version=\"1\" index=\"1\">"
                         "<Point1 X=\"0.0000000\" Y=\"0.0000000\" Z=\"0.0000000\"/>"
                         "<Point2 X=\"0.0000000\" Y=\"0.0000000\" Z=\"0.0000000\"/>"
                         "<Bulge X=\"0\" Y=\"0\" Z=\"0\"/><ViewPoint long=\"0\"/>"
                         "<Axis X=\"0\" Y=\"0\" Z=\"0\"/><AxisDistancesTop size=\"0\"/>"
                         "<AxisDistancesBottom size=\"0\"/><Positions size=\"0\"/>"
                         "<DefClassName string=\"\"/><Index long=\"0\"/>"
                         "<Hidden string=\"False\"/></CKtZantoRepartition>"));
}

TEST(Repartition, FilesEachListUnderItsOwnNames) {
  CKtZantoRepartition repartition;
  repartition.insertDistanceTop(1);
  repartition.insertDistanceTop(2);
  repartition.insertDistanceBottom(-3);
  repartition.insertPosition(4);
  repartition.insertPosition(5);
  repartition.insertPosition(6);
  EXPECT_NE(savedAlone(repartition)
                .find("<AxisDistancesTop size=\"2\"><DistanceTop1 double=\"1.0000000\"/>"
                      "<DistanceTop2 double=\"2.0000000\"/></AxisDistancesTop>"
                      "<AxisDistancesBottom size=\"1\"><DistanceBottom1 double=\"-3.0000000\"/>"
                      "</AxisDistancesBottom>"
                      "<Positions size=\"3\"><Positions1 double=\"4.0000000\"/>"
                      "<Positions2 double=\"5.0000000\"/><Positions3 double=\"6.0000000\"/>"
                      "</Positions>"),
            std::string::npos);
}

TEST(Repartition, InsertingAppendsAndSettingReplaces) {
  CKtZantoRepartition repartition;
  repartition.insertDistanceTop(1);
  repartition.insertDistanceTop(2);
  repartition.insertDistanceBottom(3);
  repartition.insertPosition(4);
  EXPECT_EQ(topOf(repartition), (Distances{1, 2}));
  EXPECT_EQ(bottomOf(repartition), (Distances{3}));
  EXPECT_EQ(positionsOf(repartition), (Distances{4}));
  repartition.setAxisDistancesTop({7});
  repartition.setAxisDistancesBottom({});
  repartition.setPositions({8, 9});
  repartition.insertPosition(10);
  EXPECT_EQ(topOf(repartition), (Distances{7}));
  EXPECT_EQ(bottomOf(repartition), Distances());
  EXPECT_EQ(positionsOf(repartition), (Distances{8, 9, 10}));
}

TEST(Repartition, ListsComeBackIndependentOfEachOthersSizes) {
  CKtZantoRepartition written;
  written.setAxisDistancesTop({1, 2, 3});
  written.setPositions({-4.5});
  writeAlone(written);
  CKtZantoRepartition read;
  read.setAxisDistancesBottom({5, 6});
  CKtFiler filer;
  filer.newFiler(kFileName);
  EXPECT_EQ(read.fileIn(&filer), 1);
  EXPECT_EQ(topOf(read), (Distances{1, 2, 3}));
  EXPECT_EQ(bottomOf(read), Distances());
  EXPECT_EQ(positionsOf(read), (Distances{-4.5}));
}

TEST(Repartition, WithoutAxisAndViewPointIsComplete) {
  CKtZantoRepartition repartition;
  repartition.setAxis(CKtVect3D(7, 8, 9));
  repartition.setViewPoint(static_cast<CKtZantoRepartition::eViewPoint>(3));
  EXPECT_EQ(readItems(pointItem("Point1", {1, 2, 3}) + pointItem("Point2", {4, 5, 6}) +
                          vectorItem("Bulge", {0, 0, 1}) + textItem("DefClassName", L"C") +
                          longItem("Index", 4),
                      repartition),
            1);
  EXPECT_EQ(repartition.getAxis().Y(), 8.0);
  EXPECT_EQ(repartition.getViewPoint(), 3);
  EXPECT_EQ(repartition.getIndex(), 4);
}

TEST(Repartition, AMissingEntryRepeatsTheOneBeforeIt) {
  CKtZantoRepartition repartition;
  EXPECT_EQ(readItems(repartitionWith(listItem(
                          "AxisDistancesTop", 3,
                          doubleItem("DistanceTop1", 12) + doubleItem("DistanceTop3", 34))),
                      repartition),
            0);
  EXPECT_EQ(topOf(repartition), (Distances{12, 12, 34}));
  EXPECT_EQ(repartition.getIndex(), 4);
  EXPECT_TRUE(repartition.getHidden());
}

TEST(Repartition, AMissingFirstEntryRepeatsTheListBefore) {
  CKtZantoRepartition repartition;
  EXPECT_EQ(
      readItems(repartitionWith(listItem("Positions", 2, doubleItem("Positions2", 5)) +
                                listItem("AxisDistancesBottom", 1, "") +
                                listItem("AxisDistancesTop", 3, doubleItem("DistanceTop2", 8))),
                repartition),
      0);
  // Read in the order top, bottom, positions, wherever they stand.
  EXPECT_EQ(topOf(repartition), (Distances{0, 8, 8}));
  EXPECT_EQ(bottomOf(repartition), (Distances{8}));
  EXPECT_EQ(positionsOf(repartition), (Distances{8, 5}));
}

TEST(Repartition, TheValueRepeatedDoesNotOutlastTheCall) {
  CKtZantoRepartition repartition;
  const std::string list = listItem("Positions", 1, doubleItem("Positions1", 5));
  EXPECT_EQ(readItems(repartitionWith(list), repartition), 1);
  EXPECT_EQ(readItems(repartitionWith(listItem("Positions", 1, "")), repartition), 0);
  EXPECT_EQ(positionsOf(repartition), (Distances{0}));
}

TEST(Repartition, AnEntryOfAnotherKindRepeatsTheOneBeforeIt) {
  CKtZantoRepartition repartition;
  EXPECT_EQ(
      readItems(repartitionWith(listItem("Positions", 3,
                                         doubleItem("Positions1", 5) + longItem("Positions2", 6) +
                                             rawItem("Positions3", "double=\"mm\""))),
                repartition),
      0);
  EXPECT_EQ(positionsOf(repartition), (Distances{5, 5, 0}));
}

TEST(Repartition, AMissingListIsEmptyAndDoesNotLowerTheResult) {
  CKtZantoRepartition repartition;
  repartition.setPositions({1, 2});
  EXPECT_EQ(
      readItems(repartitionWith(listItem("AxisDistancesTop", 1, doubleItem("DistanceTop1", 3))),
                repartition),
      1);
  EXPECT_EQ(topOf(repartition), (Distances{3}));
  EXPECT_EQ(positionsOf(repartition), Distances());
}

TEST(Repartition, AListWithoutSizeIsSkipped) {
  CKtZantoRepartition repartition;
  EXPECT_EQ(readItems(repartitionWith("<AxisDistancesTop>" + doubleItem("DistanceTop1", 3) +
                                      "</AxisDistancesTop>" +
                                      listItem("Positions", 1, doubleItem("Positions1", 4))),
                      repartition),
            1);
  EXPECT_EQ(topOf(repartition), Distances());
  EXPECT_EQ(positionsOf(repartition), (Distances{4}));
}

TEST(Repartition, WithoutItsClassElementOnlyTheListsAreEmptied) {
  CKtZantoRepartition repartition;
  repartition.setPositions({1, 2});
  repartition.setIndex(7);
  EXPECT_EQ(readFrom("", repartition), 0);
  EXPECT_EQ(positionsOf(repartition), Distances());
  EXPECT_EQ(repartition.getIndex(), 7);
}

TEST(Repartition, IndexAndViewPointAreFiledUnchanged) {
  CKtZantoRepartition repartition;
  repartition.setIndex(-1);
  repartition.setViewPoint(static_cast<CKtZantoRepartition::eViewPoint>(-2147483647 - 1));
  writeAlone(repartition);
  CKtFiler filer;
  filer.newFiler(kFileName);
  CKtZantoRepartition read;
  EXPECT_EQ(read.fileIn(&filer), 1);
  EXPECT_EQ(read.getIndex(), -1);
  EXPECT_EQ(read.getViewPoint(), -2147483647 - 1);
}

}  // namespace
}  // namespace quorvan::test
