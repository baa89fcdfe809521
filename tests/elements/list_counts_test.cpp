// Counts come from files and may be anything. Whatever they say, reading costs no more than what
// the file holds, and gives what a walk from the first entry to the last announced would give.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <tests/elements/element_file.h>
#include <quorvan/elements/items/list_rows.h>

namespace quorvan::test {
namespace {

/// A count as it stands in the file, and the number it is read as.
struct Count {
  std::string text;
  std::int32_t number;
};

const std::vector<Count>& hostileCounts() {
  constexpr std::int32_t kMax = 2147483647;
  static const std::vector<Count> counts = {{"-1", -1},
                                            {"-2", -2},
                                            {"0", 0},
                                            {"1", 1},
                                            {"2", 2},
                                            {"3", 3},
                                            {"4", 4},
                                            {"32767", 32767},
                                            {"32768", 32768},
                                            {"40000", 40000},
                                            {"65535", 65535},
                                            {"-25536", -25536},
                                            {"1000001", 1000001},
                                            {"2147483646", kMax - 1},
                                            {"2147483647", kMax},
                                            {"2147483648", kMax},
                                            {"4294967295", kMax},
                                            {"-2147483647", -kMax},
                                            {"-2147483648", -kMax - 1},
                                            {"-2147483649", -kMax - 1},
                                            {std::string(400, '9'), kMax},
                                            {'-' + std::string(400, '9'), -kMax - 1},
                                            {std::string(400, '0') + '2', 2},
                                            {"", 0},
                                            {"many", 0},
                                            {" 3", 3},
                                            {"+3", 3},
                                            {"3 points", 3},
                                            {"2.9", 2},
                                            {"0x3", 0},
                                            {"1e3", 1},
                                            {"- 3", 0}};
  return counts;
}

/// Entry numbers, out of order. Those above 2^31 - 1 are printed as negative numbers.
const std::vector<std::int64_t>& entryNumbers() {
  static const std::vector<std::int64_t> numbers = {3, 4294967295, 1, 2147483647, 2147483648LL, 2,
                                                    0, 4294967294};
  return numbers;
}

std::string entryName(const char* stem, std::int64_t number) {
  const std::int64_t wrapped = number > 2147483647 ? number - 4294967296 : number;
  return numbered(stem, wrapped);
}

CKtPnt3D entryPoint(std::int64_t number) {
  return {static_cast<double>(number), 1, 2};
}

std::string pointEntriesOutOfOrder() {
  std::string entries;
  for (const std::int64_t number : entryNumbers()) {
    entries += pointItem(entryName("Point", number), entryPoint(number));
  }
  return entries;
}

std::string rawList(const std::string& name, const std::string& size, const std::string& entries) {
  return '<' + name + " size=\"" + size + "\">" + entries + "</" + name + '>';
}

// The entries from 1 to `count`, in ascending order.
std::vector<std::int64_t> announced(std::int64_t count) {
  std::vector<std::int64_t> numbers;
  for (const std::int64_t number :
       {1LL, 2LL, 3LL, 2147483647LL, 2147483648LL, 4294967294LL, 4294967295LL}) {
    if (number <= count) {
      numbers.push_back(number);
    }
  }
  return numbers;
}

std::string pointTexts(const std::vector<std::int64_t>& numbers) {
  std::string texts;
  for (const std::int64_t number : numbers) {
    texts += pointItem("P", entryPoint(number));
  }
  return texts;
}

std::string pointTexts(const std::vector<CKtPnt3D>& points) {
  std::string texts;
  for (const CKtPnt3D& point : points) {
    texts += pointItem("P", point);
  }
  return texts;
}

/// Calls `check` with every hostile count and an element of the file with `itemsFor` it.
template <class Element, class ItemsFor, class Check>
void readWithEveryCount(const ItemsFor& itemsFor, const Check& check) {
  std::string elements;
  for (const Count& count : hostileCounts()) {
    elements += classElement(ElementModel<Element>::kClassName, 1, itemsFor(count.text));
  }
  writeBytes(kFile, transferFile(elements));
  CKtFiler filer;
  ASSERT_EQ(filer.newFiler(kFileName), 1);
  for (const Count& count : hostileCounts()) {
    SCOPED_TRACE(count.text);
    Element element;
    const int result = element.fileIn(&filer);
    check(element, result, count.number);
  }
}

// The count of a filled polygon is unsigned: a negative size announces billions of points.
TEST(ListCounts, OfAFilledPolygon) {
  readWithEveryCount<CKtFilledPolygon>(
      [](const std::string& size) {
        return rawList("Vector", size, pointEntriesOutOfOrder()) + longItem("Color", 7);
      },
      [](const CKtFilledPolygon& polygon, int result, std::int32_t number) {
        const auto count = static_cast<std::uint32_t>(number);
        EXPECT_EQ(polygon.getNbPoints(), count);
        EXPECT_EQ(result, count <= 3 ? 1 : 0);
        std::vector<CKtPnt3D> points;
        polygon.getPoints(points);
        EXPECT_EQ(pointTexts(points), pointTexts(announced(count)));
        EXPECT_EQ(polygon.GetColor(), 7UL);
      });
}

// That of a mesh is signed: a negative size announces none.
TEST(ListCounts, OfAMesh) {
  const auto items = itemTexts<CKtZantoMesh>(sampleValues<CKtZantoMesh>(0));
  const std::string scalars = joined({items.begin(), items.end() - 1});
  readWithEveryCount<CKtZantoMesh>(
      [&](const std::string& size) {
        return scalars + rawList("Vector", size, pointEntriesOutOfOrder());
      },
      [](const CKtZantoMesh& mesh, int result, std::int32_t number) {
        EXPECT_EQ(result, number <= 3 ? 1 : 0);
        EXPECT_EQ(pointTexts(mesh.GetPoints()), pointTexts(announced(number)));
      });
}

// The points of a formwork are unsigned too, two a segment; so are its bulges, half as many.
TEST(ListCounts, OfAFormwork) {
  std::string entries = pointEntriesOutOfOrder();
  for (const std::int64_t number : {2147483647LL, 2LL, 1LL, 2147483646LL}) {
    entries += vectorItem(entryName("Bulge", number),
                          CKtVect3D(static_cast<double>(number % 7) + 1, 0, 0));
  }
  readWithEveryCount<CKtZantoFormwork>(
      [&](const std::string& size) { return rawList("Vector", size, entries); },
      [](const CKtZantoFormwork& formwork, int result, std::int32_t number) {
        const auto count = static_cast<std::uint32_t>(number);
        const std::int64_t segments = count / 2;
        EXPECT_EQ(formwork.getNbPoints(), count);
        EXPECT_EQ(result, segments <= 1 ? 1 : 0);
        std::vector<CKtPnt3D> points;
        formwork.getPoints(points);
        EXPECT_EQ(pointTexts(points), pointTexts(announced(2 * segments)));
        std::vector<double> bulges;
        for (const std::int64_t bulge : {1LL, 2LL, 2147483646LL, 2147483647LL}) {
          if (bulge <= segments) {
            bulges.push_back(static_cast<double>(bulge % 7) + 1);
          }
        }
        std::vector<CKtVect3D> held;
        formwork.getBulges(held);
        ASSERT_EQ(held.size(), bulges.size());
        for (std::size_t i = 0; i < held.size(); ++i) {
          EXPECT_EQ(held[i].X(), bulges[i]);
        }
      });
}

// A polygon bar holds as many points as announced, missing ones included, up to its limit.
TEST(ListCounts, OfAPolygonBar) {
  auto items = itemTexts<CKtZantoPolygonBar>(sampleValues<CKtZantoPolygonBar>(0));
  items.erase(items.begin());
  readWithEveryCount<CKtZantoPolygonBar>(
      [&](const std::string& count) {
        return rawItem("NoPoints", "long=\"" + count + '"') + pointEntriesOutOfOrder() +
               joined(items);
      },
      [&](const CKtZantoPolygonBar& bar, int result, std::int32_t number) {
        const bool refused = number > CKtFiler::kMissingEntries;
        const long held = refused || number < 0 ? 0 : number;
        ASSERT_EQ(bar.getNoPoints(), held);
        EXPECT_EQ(result, number <= 3 ? 1 : 0);
        for (int i = 0; i < held; i = i < 4 ? i + 1 : i * 2) {
          EXPECT_EQ(bar.getPoint(i) == (i < 3 ? entryPoint(i + 1) : CKtPnt3D()), 1) << i;
        }
        auto read = describe(bar);
        read.erase(read.begin());
        EXPECT_EQ(read, items);
      });
}

// A repartition's lists repeat the value before a missing one, up to the limit.
TEST(ListCounts, OfARepartition) {
  auto items = itemTexts<CKtZantoRepartition>(sampleValues<CKtZantoRepartition>(0));
  std::string entries;
  for (const std::int64_t number : entryNumbers()) {
    entries += doubleItem(entryName("DistanceTop", number), static_cast<double>(number));
  }
  readWithEveryCount<CKtZantoRepartition>(
      [&](const std::string& size) {
        auto withList = items;
        withList[5] = rawList("AxisDistancesTop", size, entries);
        return joined(withList);
      },
      [&](const CKtZantoRepartition& repartition, int result, std::int32_t number) {
        const bool refused = number > CKtFiler::kMissingEntries;
        const std::int32_t held = refused || number < 0 ? 0 : number;
        std::vector<double> expected;
        for (std::int32_t i = 1; i <= held; ++i) {
          expected.push_back(i < 3 ? i : 3);
        }
        std::vector<double> values;
        repartition.getAxisDistancesTop(values);
        EXPECT_TRUE(values == expected) << values.size();
        EXPECT_EQ(result, number <= 3 ? 1 : 0);
        auto read = describe(repartition);
        read[5] = items[5];
        EXPECT_EQ(read, items);
      });
}

// --- the limits ---------------------------------------------------------------------------------

std::string polygonBar(long count, const std::vector<CKtPnt3D>& points) {
  auto items = itemTexts<CKtZantoPolygonBar>(sampleValues<CKtZantoPolygonBar>(0));
  items[0] = longItem("NoPoints", count) + pointEntries("Point", points);
  return classElement("CKtZantoPolygonBar", 1, joined(items));
}

std::string repartition(long count, const std::vector<double>& distances) {
  auto items = itemTexts<CKtZantoRepartition>(sampleValues<CKtZantoRepartition>(0));
  items[6] = listItem("AxisDistancesBottom", count, doubleEntries("DistanceBottom", distances));
  return classElement("CKtZantoRepartition", 1, joined(items));
}

CKtFiler opened(const std::string& elements) {
  writeBytes(kFile, transferFile(elements));
  CKtFiler filer;
  EXPECT_EQ(filer.newFiler(kFileName), 1);
  return filer;
}

// How many points each of the polygon bars is read with, in their order.
std::vector<long> pointsOfBars(CKtFiler& filer, std::size_t bars) {
  std::vector<long> counts;
  for (std::size_t i = 0; i < bars; ++i) {
    CKtZantoPolygonBar bar;
    bar.addPoint(CKtPnt3D(5, 5, 5));
    static_cast<void>(bar.fileIn(&filer));
    counts.push_back(bar.getNoPoints());
  }
  return counts;
}

constexpr long kLimit = CKtFiler::kMissingEntries;

// As many as there are may be missing without further ado: here two.
TEST(ListLimits, APolygonBarHoldsMissingPointsUpToTheLimit) {
  for (const long beyond : {-1L, 0L, 1L}) {
    const long count = kLimit + 4 + beyond;
    CKtFiler filer = opened(polygonBar(count, {{1, 1, 1}, {2, 2, 2}}));
    CKtZantoPolygonBar bar;
    EXPECT_EQ(bar.fileIn(&filer), 0);
    EXPECT_EQ(bar.getNoPoints(), beyond <= 0 ? count : 0);
    if (beyond <= 0) {
      EXPECT_EQ(bar.getPoint(1) == CKtPnt3D(2, 2, 2), 1);
      EXPECT_EQ(bar.getPoint(static_cast<int>(count) - 1) == CKtPnt3D(), 1);
    }
    EXPECT_EQ(bar.getHidden(), true);
  }
}

TEST(ListLimits, ARepartitionHoldsMissingEntriesUpToTheLimit) {
  const auto items = itemTexts<CKtZantoRepartition>(sampleValues<CKtZantoRepartition>(0));
  for (const long beyond : {-1L, 0L, 1L}) {
    const long count = kLimit + 4 + beyond;
    CKtFiler filer = opened(repartition(count, {4, 5}));
    CKtZantoRepartition read;
    EXPECT_EQ(read.fileIn(&filer), 0);
    std::vector<double> values;
    read.getAxisDistancesBottom(values);
    if (beyond <= 0) {
      ASSERT_EQ(values.size(), static_cast<std::size_t>(count));
      EXPECT_EQ(values.front(), 4.0);
      EXPECT_EQ(values.back(), 5.0);
    } else {
      EXPECT_TRUE(values.empty());
    }
    // The lists before and after it are read all the same.
    read.setAxisDistancesBottom({});
    const auto others = describe(read);
    EXPECT_EQ(others[5], items[5]);
    EXPECT_EQ(others[7], items[7]);
    EXPECT_EQ(read.getHidden(), true);
  }
}

TEST(ListLimits, WhatIsTakenOnTrustIsBoundedForAllElementsOfAClassTogether) {
  const std::string half = polygonBar(kLimit / 2, {});
  const std::string one = polygonBar(1, {});
  CKtFiler filer =
      opened(half + half + one + half + polygonBar(6, {{1, 1, 1}, {2, 2, 2}, {3, 3, 3}}));
  const std::vector<long> expected = {kLimit / 2, kLimit / 2, 0, 0, 6};
  EXPECT_EQ(pointsOfBars(filer, 5), expected);
}

TEST(ListLimits, AnotherWalkOverTheElementsReadsTheSame) {
  const std::string half = polygonBar(kLimit / 2, {});
  CKtFiler filer = opened(half + half + half + repartition(kLimit, {}));
  const std::vector<long> expected = {kLimit / 2, kLimit / 2, 0};
  EXPECT_EQ(pointsOfBars(filer, 3), expected);
  CKtZantoRepartition read;
  EXPECT_EQ(read.fileIn(&filer), 0);
  std::vector<double> values;
  read.getAxisDistancesBottom(values);
  EXPECT_EQ(values.size(), static_cast<std::size_t>(kLimit));
  CKtFiler again;
  EXPECT_EQ(again.newFiler(kFileName), 1);
  EXPECT_EQ(pointsOfBars(again, 3), expected);
}

// As many as are there may be missing.
TEST(ListLimits, WhatTheFileHoldsIsReadWhateverTheLimit) {
  std::string points;
  constexpr long kHeld = kLimit + 1000;
  for (long i = 1; i <= kHeld; ++i) {
    points += "<Point" + std::to_string(i) + " X=\"1\" Y=\"2\" Z=\"3\"/>";
  }
  auto items = itemTexts<CKtZantoPolygonBar>(sampleValues<CKtZantoPolygonBar>(0));
  for (const long count : {kHeld, 2 * kHeld}) {
    items[0] = longItem("NoPoints", count) + points;
    CKtFiler filer = opened(classElement("CKtZantoPolygonBar", 1, joined(items)));
    CKtZantoPolygonBar bar;
    EXPECT_EQ(bar.fileIn(&filer), count == kHeld ? 1 : 0);
    EXPECT_EQ(bar.getNoPoints(), count);
  }
}

// A file of a hundred thousand such elements costs no more than its size and the limit.
TEST(ListLimits, ManyElementsThatAnnounceMuchAreReadSoon) {
  const std::string bar = "<CKtZantoPolygonBar><NoPoints long=\"262144\"/></CKtZantoPolygonBar>";
  std::string bars;
  for (int i = 0; i < 20'000; ++i) {
    bars += bar;
  }
  CKtFiler filer = opened(bars);
  long points = 0;
  for (const long count : pointsOfBars(filer, 20'000)) {
    points += count;
  }
  EXPECT_EQ(points, kLimit);
}

}  // namespace
}  // namespace quorvan::test
