// Long lists come back, whatever order their entries stand in, and at a cost that grows with their
// length and not with its square.

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <string>
#include <vector>

#include <tests/elements/element_file.h>

namespace quorvan::test {
namespace {

constexpr int kMany = 30000;

CKtPnt3D pointNumber(int i) {
  return {i + 0.5, -1.0 * i, 7};
}

std::vector<CKtPnt3D> manyPoints() {
  std::vector<CKtPnt3D> points;
  for (int i = 0; i < kMany; ++i) {
    points.push_back(pointNumber(i));
  }
  return points;
}

template <class Element>
void expectThroughFile(Element& element) {
  ASSERT_EQ(writeAlone(element), 1);
  Element read;
  CKtFiler filer;
  filer.newFiler(kFileName);
  EXPECT_EQ(read.fileIn(&filer), 1);
  EXPECT_TRUE(describe(read) == describe(element));
}

TEST(LongLists, OfPointsComeBack) {
  CKtFilledPolygon polygon;
  polygon.setPoints(manyPoints());
  expectThroughFile(polygon);
  CKtZantoMesh mesh;
  mesh.SetPoints(manyPoints());
  expectThroughFile(mesh);
  CKtZantoPolygonBar bar;
  for (const CKtPnt3D& point : manyPoints()) {
    bar.addPoint(point);
  }
  expectThroughFile(bar);
}

TEST(LongLists, OfSegmentsComeBack) {
  CKtZantoFormwork formwork;
  for (int k = 0; k < kMany / 2; ++k) {
    formwork.addElement(pointNumber(2 * k), pointNumber(2 * k + 1), CKtVect3D(0, 0, k % 100));
  }
  expectThroughFile(formwork);
}

TEST(LongLists, OfDistancesComeBack) {
  CKtZantoRepartition repartition;
  for (int i = 0; i < kMany; ++i) {
    repartition.insertDistanceTop(i);
    repartition.insertDistanceBottom(-i);
    repartition.insertPosition(i * 0.5);
  }
  expectThroughFile(repartition);
}

// --- the 16 bits of a size ----------------------------------------------------------------------

// A size above 32767 is filed as a negative number. The polygon takes that for billions of points
// and finds its own among them.
TEST(LongLists, BeyondSixteenBitsAFilledPolygonComesBackWithAnotherCount) {
  CKtFilledPolygon polygon;
  std::vector<CKtPnt3D> points(40000);
  points.back() = CKtPnt3D(1, 2, 3);
  polygon.setPoints(points);
  EXPECT_EQ(writeAlone(polygon), 1);
  EXPECT_NE(savedBytes(kFile).find("<Vector size=\"-25536\">"), std::string::npos);
  CKtFiler filer;
  filer.newFiler(kFileName);
  CKtFilledPolygon read;
  EXPECT_EQ(read.fileIn(&filer), 0);
  EXPECT_EQ(read.getNbPoints(), 4294967296U - 25536U);
  std::vector<CKtPnt3D> held;
  read.getPoints(held);
  ASSERT_EQ(held.size(), 40000U);
  EXPECT_EQ(held.back() == CKtPnt3D(1, 2, 3), 1);
}

TEST(LongLists, BeyondSixteenBitsAFormworkComesBackWithAnotherCount) {
  CKtZantoFormwork formwork;
  for (int k = 0; k < 20000; ++k) {
    formwork.addElement(CKtPnt3D(), CKtPnt3D(), CKtVect3D(0, 0, k));
  }
  EXPECT_EQ(writeAlone(formwork), 1);
  EXPECT_NE(savedBytes(kFile).find("<Vector size=\"-25536\">"), std::string::npos);
  CKtFiler filer;
  filer.newFiler(kFileName);
  CKtZantoFormwork read;
  EXPECT_EQ(read.fileIn(&filer), 0);
  EXPECT_EQ(read.getNbPoints(), 4294967296U - 25536U);
  std::vector<CKtPnt3D> points;
  read.getPoints(points);
  EXPECT_EQ(points.size(), 40000U);
  std::vector<CKtVect3D> bulges;
  read.getBulges(bulges);
  ASSERT_EQ(bulges.size(), 20000U);
  EXPECT_EQ(bulges.back().Z(), 19999.0);
}

TEST(LongLists, BeyondSixteenBitsAMeshComesBackWithoutPoints) {
  CKtZantoMesh mesh;
  mesh.SetPoints(std::vector<CKtPnt3D>(32768));
  EXPECT_EQ(writeAlone(mesh), 1);
  EXPECT_NE(savedBytes(kFile).find("<Vector size=\"-32768\">"), std::string::npos);
  CKtFiler filer;
  filer.newFiler(kFileName);
  CKtZantoMesh read;
  EXPECT_EQ(read.fileIn(&filer), 1);
  EXPECT_EQ(read.GetNbPoints(), 0);
}

TEST(LongLists, BeyondSixteenBitsARepartitionComesBackShort) {
  CKtZantoRepartition repartition;
  repartition.setPositions(std::vector<double>(65537, 4.0));
  EXPECT_EQ(writeAlone(repartition), 1);
  EXPECT_NE(savedBytes(kFile).find("<Positions size=\"1\">"), std::string::npos);
  CKtFiler filer;
  filer.newFiler(kFileName);
  EXPECT_EQ(repartition.fileIn(&filer), 1);
  std::vector<double> positions;
  repartition.getPositions(positions);
  EXPECT_EQ(positions, std::vector<double>{4.0});
}

// The number of a polygon bar's points has 32 bits.
TEST(LongLists, APolygonBarComesBackBeyondSixteenBits) {
  CKtZantoPolygonBar bar;
  for (int i = 0; i < 40000; ++i) {
    bar.addPoint(pointNumber(i));
  }
  expectThroughFile(bar);
}

// --- growth -------------------------------------------------------------------------------------

// Processor seconds to read the element of the file.
template <class Element>
double timeToRead() {
  CKtFiler filer;
  filer.newFiler(kFileName);
  Element element;
  const std::clock_t start = std::clock();
  element.fileIn(&filer);
  const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  filer.newFiler(L"");  // nothing to save
  return seconds;
}

// A list 32 times as long takes some 32 times as long; with the square of the length it would be
// a thousand times. Other work on the machine may make one run longer, not each.
template <class Element, class Items>
void expectLinear(const Items& itemsOf) {
  constexpr int kRuns = 3;
  const auto write = [&](int count) {
    writeBytes(kFile,
               transferFile(classElement(ElementModel<Element>::kClassName, 1, itemsOf(count))));
  };
  write(2000);
  double few = 1e9;
  for (int run = 0; run < kRuns; ++run) {
    few = std::min(few, timeToRead<Element>());
  }
  const double most = 200 * few + 0.2;
  write(64000);
  double many = timeToRead<Element>();
  for (int run = 1; run < kRuns && many >= most; ++run) {
    many = timeToRead<Element>();
  }
  EXPECT_LT(many, most) << few;
}

std::string backwards(const char* stem, int count) {
  std::string entries;
  for (int i = count; i > 0; --i) {
    entries += pointItem(numbered(stem, i), pointNumber(i));
  }
  return entries;
}

TEST(LongLists, OfAPolygonBarCostTheirLengthInAnyOrder) {
  expectLinear<CKtZantoPolygonBar>(
      [](int count) { return longItem("NoPoints", count) + backwards("Point", count); });
  expectLinear<CKtZantoPolygonBar>([](int count) {
    return longItem("NoPoints", count / 2 * 2) + backwards("Point", count / 2);
  });
}

TEST(LongLists, OfAFilledPolygonCostTheirLengthInAnyOrder) {
  expectLinear<CKtFilledPolygon>(
      [](int count) { return listItem("Vector", count, backwards("Point", count)); });
  expectLinear<CKtFilledPolygon>(
      [](int count) { return listItem("Vector", -1, backwards("Point", count)); });
}

TEST(LongLists, OfAMeshCostTheirLengthInAnyOrder) {
  expectLinear<CKtZantoMesh>(
      [](int count) { return listItem("Vector", count, backwards("Point", count)); });
}

TEST(LongLists, OfAFormworkCostTheirLengthInAnyOrder) {
  expectLinear<CKtZantoFormwork>([](int count) {
    std::string bulges;
    for (int k = count / 2; k > 0; --k) {
      bulges += vectorItem(numbered("Bulge", k), CKtVect3D());
    }
    return listItem("Vector", count, backwards("Point", count) + bulges);
  });
}

TEST(LongLists, OfARepartitionCostTheirLengthInAnyOrder) {
  expectLinear<CKtZantoRepartition>([](int count) {
    std::string entries;
    for (int i = count; i > 0; --i) {
      entries += doubleItem(numbered("Positions", i), i);
    }
    return listItem("Positions", count, entries);
  });
}

}  // namespace
}  // namespace quorvan::test
