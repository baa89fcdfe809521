#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <tests/elements/element_file.h>

namespace quorvan::test {
namespace {

CKtZantoFormwork twoSegments() {
  CKtZantoFormwork formwork;
  formwork.addElement(CKtPnt3D(1, 0, 0), CKtPnt3D(2, 0, 0), CKtVect3D(0, 0, 0.5));
  formwork.addElement(CKtPnt3D(3, 0, 0), CKtPnt3D(4, 0, 0), CKtVect3D(0, 1, 0));
  return formwork;
}

std::string pointsOf(const CKtZantoFormwork& formwork) {
  std::vector<CKtPnt3D> points{CKtPnt3D(-1, -1, -1)};
  formwork.getPoints(points);
  return pointEntries("P", points);
}

std::string bulgesOf(const CKtZantoFormwork& formwork) {
  std::vector<CKtVect3D> bulges{CKtVect3D(-1, -1, -1)};
  formwork.getBulges(bulges);
  std::string entries;
  for (const CKtVect3D& bulge : bulges) {
    entries += vectorItem("B", bulge);
  }
  return entries;
}

TEST(Formwork, ASegmentIsTwoPointsAndABulge) {
  const CKtZantoFormwork formwork = twoSegments();
  EXPECT_EQ(formwork.getNbPoints(), 4U);
  EXPECT_EQ(formwork.getPointAt(0) == CKtPnt3D(1, 0, 0), 1);
  EXPECT_EQ(formwork.getPointAt(3) == CKtPnt3D(4, 0, 0), 1);
  EXPECT_EQ(formwork.getBulgeAt(0).Z(), 0.5);
  EXPECT_EQ(formwork.getBulgeAt(1).Y(), 1.0);
}

TEST(Formwork, FilesPointsAndBulgesSegmentBySegment) {
  EXPECT_EQ(savedAlone(twoSegments()),
            transferFile("<CKtZantoFormwork version=\"1\" index=\"1\"><Vector size=\"4\">"
                         "<Point1 X=\"1.0000000\" Y=\"0.0000000\" Z=\"0.0000000\"/>"
                         "<Point2 X=\"2.0000000\" Y=\"0.0000000\" Z=\"0.0000000\"/>"
                         "<Bulge1 X=\"0\" Y=\"0\" Z=\"0.5\"/>"
                         "<Point3 X=\"3.0000000\" Y=\"0.0000000\" Z=\"0.0000000\"/>"
                         "<Point4 X=\"4.0000000\" Y=\"0.0000000\" Z=\"0.0000000\"/>"
                         "<Bulge2 X=\"0\" Y=\"1\" Z=\"0\"/>"
                         "</Vector></CKtZantoFormwork>"));
}

TEST(Formwork, WithoutSegmentsFilesAnEmptyList) {
  EXPECT_EQ(savedAlone(CKtZantoFormwork()),
            transferFile("<CKtZantoFormwork version=\"1\" index=\"1\"><Vector size=\"0\"/>"
                         "</CKtZantoFormwork>"));
}

TEST(Formwork, SetPointAtReplacesBelowTheCountOnly) {
  CKtZantoFormwork formwork = twoSegments();
  EXPECT_TRUE(formwork.setPointAt(3, CKtPnt3D(9, 9, 9)));
  EXPECT_EQ(formwork.getPointAt(3) == CKtPnt3D(9, 9, 9), 1);
  EXPECT_FALSE(formwork.setPointAt(4, CKtPnt3D(8, 8, 8)));
  formwork.setNbPoints(2);
  EXPECT_FALSE(formwork.setPointAt(2, CKtPnt3D(8, 8, 8)));
  formwork.setNbPoints(100);
  EXPECT_FALSE(formwork.setPointAt(4, CKtPnt3D(8, 8, 8)));  // none is held there
}

TEST(Formwork, SetBulgeAtReplacesBelowHalfTheCountOnly) {
  CKtZantoFormwork formwork = twoSegments();
  EXPECT_TRUE(formwork.setBulgeAt(1, CKtVect3D(7, 7, 7)));
  EXPECT_EQ(formwork.getBulgeAt(1).X(), 7.0);
  EXPECT_FALSE(formwork.setBulgeAt(2, CKtVect3D(8, 8, 8)));
  formwork.setNbPoints(3);
  EXPECT_FALSE(formwork.setBulgeAt(1, CKtVect3D(8, 8, 8)));
  EXPECT_TRUE(formwork.setBulgeAt(0, CKtVect3D(8, 8, 8)));
  formwork.setNbPoints(100);
  EXPECT_FALSE(formwork.setBulgeAt(2, CKtVect3D(8, 8, 8)));  // none is held there
}

TEST(Formwork, SettingTheCountLeavesTheLists) {
  CKtZantoFormwork formwork = twoSegments();
  formwork.setNbPoints(2);
  EXPECT_EQ(formwork.getNbPoints(), 2U);
  EXPECT_EQ(pointsOf(formwork), pointsOf(twoSegments()));
  EXPECT_EQ(bulgesOf(formwork), bulgesOf(twoSegments()));
  EXPECT_EQ(savedAlone(formwork),
            transferFile(classElement(
                "CKtZantoFormwork", 1,
                listItem("Vector", 2,
                         pointItem("Point1", {1, 0, 0}) + pointItem("Point2", {2, 0, 0}) +
                             vectorItem("Bulge1", {0, 0, 0.5})))));
}

TEST(Formwork, ReplacingTheBulgesLeavesTheCount) {
  CKtZantoFormwork formwork = twoSegments();
  formwork.setBulges({{1, 1, 1}});
  EXPECT_EQ(formwork.getNbPoints(), 4U);
  EXPECT_EQ(bulgesOf(formwork), vectorItem("B", {1, 1, 1}));
}

TEST(Formwork, OfFivePointsTheLastIsLeftOut) {
  CKtZantoFormwork formwork = twoSegments();
  formwork.setPoints({{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 0, 0}});
  EXPECT_EQ(formwork.getNbPoints(), 5U);
  EXPECT_EQ(writeAlone(formwork), 1);
  const std::string saved = savedBytes(kFile);
  EXPECT_NE(saved.find("<Vector size=\"5\">"), std::string::npos);
  EXPECT_NE(saved.find("<Bulge2 X=\"0\" Y=\"1\" Z=\"0\"/></Vector>"), std::string::npos);
  EXPECT_EQ(saved.find("Point5"), std::string::npos);
}

TEST(Formwork, OfFivePointsInTheFileFourAreRead) {
  CKtZantoFormwork formwork;
  const std::string entries =
      pointEntries("Point", {{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 0, 0}}) +
      vectorItem("Bulge1", {0, 0, 0.5}) + vectorItem("Bulge2", {0, 1, 0}) +
      vectorItem("Bulge3", {9, 9, 9});
  EXPECT_EQ(readItems(listItem("Vector", 5, entries), formwork), 1);
  EXPECT_EQ(formwork.getNbPoints(), 5U);
  EXPECT_EQ(pointsOf(formwork), pointsOf(twoSegments()));
  EXPECT_EQ(bulgesOf(formwork), bulgesOf(twoSegments()));
}

TEST(Formwork, AMissingEntryIsLeftOutOfItsList) {
  const std::string all[] = {pointItem("Point1", {1, 0, 0}),    pointItem("Point2", {2, 0, 0}),
                             vectorItem("Bulge1", {0, 0, 0.5}), pointItem("Point3", {3, 0, 0}),
                             pointItem("Point4", {4, 0, 0}),    vectorItem("Bulge2", {0, 1, 0})};
  for (std::size_t missing = 0; missing < 6; ++missing) {
    std::string entries;
    std::string points;
    std::string bulges;
    for (std::size_t i = 0; i < 6; ++i) {
      if (i != missing) {
        entries += all[i];
        std::string& list = i % 3 == 2 ? bulges : points;
        list += '<' + std::string(i % 3 == 2 ? "B" : "P") + all[i].substr(all[i].find(' '));
      }
    }
    CKtZantoFormwork formwork;
    EXPECT_EQ(readItems(listItem("Vector", 4, entries), formwork), 0);
    EXPECT_EQ(formwork.getNbPoints(), 4U);
    EXPECT_EQ(bulgesOf(formwork), bulges);
    // Entries are numbered anew by the list they are held in.
    std::vector<CKtPnt3D> held;
    formwork.getPoints(held);
    std::string heldText;
    for (const CKtPnt3D& point : held) {
      heldText += pointItem("P", point);
    }
    EXPECT_EQ(heldText, points);
  }
}

TEST(Formwork, WithoutItsListIsReadWithSuccess) {
  CKtZantoFormwork formwork = twoSegments();
  EXPECT_EQ(readItems("", formwork), 1);
  EXPECT_EQ(formwork.getNbPoints(), 4U);
  EXPECT_EQ(pointsOf(formwork), "");
  EXPECT_EQ(bulgesOf(formwork), "");
}

TEST(Formwork, WithoutItsClassElementLosesItsListsAndKeepsTheCount) {
  CKtZantoFormwork formwork = twoSegments();
  EXPECT_EQ(readFrom("", formwork), 0);
  EXPECT_EQ(formwork.getNbPoints(), 4U);
  EXPECT_EQ(pointsOf(formwork), "");
  EXPECT_EQ(bulgesOf(formwork), "");
}

TEST(Formwork, WritesTheSegmentsThatItHoldsOfACountThatIsTooHigh) {
  CKtZantoFormwork formwork = twoSegments();
  formwork.setNbPoints(12);
  EXPECT_EQ(writeAlone(formwork), 0);
  const std::string saved = savedBytes(kFile);
  EXPECT_NE(saved.find("<Vector size=\"12\">"), std::string::npos);
  EXPECT_NE(saved.find("<Bulge2 X=\"0\" Y=\"1\" Z=\"0\"/></Vector>"), std::string::npos);
}

TEST(Formwork, OfFivePointsWithoutBulgesTheFourAreWritten) {
  CKtZantoFormwork formwork;
  formwork.setPoints({{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 0, 0}});
  EXPECT_EQ(writeAlone(formwork), 0);
  EXPECT_EQ(savedBytes(kFile),
            transferFile(classElement(
                "CKtZantoFormwork", 1,
                listItem("Vector", 5,
                         pointEntries("Point", {{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}})))));
}

TEST(Formwork, WritesTheBulgesOfPointsThatItDoesNotHold) {
  CKtZantoFormwork formwork;
  formwork.setPoints({{1, 0, 0}});
  formwork.setBulges({{0, 0, 1}, {0, 0, 2}, {0, 0, 3}});
  formwork.setNbPoints(4);
  EXPECT_EQ(writeAlone(formwork), 0);
  EXPECT_EQ(savedBytes(kFile),
            transferFile(classElement(
                "CKtZantoFormwork", 1,
                listItem("Vector", 4,
                         pointItem("Point1", {1, 0, 0}) + vectorItem("Bulge1", {0, 0, 1}) +
                             vectorItem("Bulge2", {0, 0, 2})))));
}

}  // namespace
}  // namespace quorvan::test
