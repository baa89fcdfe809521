// The repartitions that the library makes of the series in the example drawings, against values
// worked out by hand.

#include <gtest/gtest.h>
#include <quorvan/quorvan.h>
#include <quorvan/text/utf8.h>

#include <string>
#include <utility>
#include <vector>

#include <tests/examples/drawing_files.h>

namespace quorvan::test {
namespace {

struct Repartition {
  std::string barClass;
  int index;
  int view;
  std::pair<double, double> start;
  std::pair<double, double> end;
  std::pair<double, double> axis;
  std::vector<double> top;
  std::vector<double> bottom;
  std::vector<double> positions;
  bool hidden = false;

  bool operator==(const Repartition&) const = default;
};

void PrintTo(const Repartition& r, std::ostream* out) {
  *out << r.barClass << " no. " << r.index << ", view " << r.view << ", from "
       << testing::PrintToString(r.start) << " to " << testing::PrintToString(r.end) << ", axis "
       << testing::PrintToString(r.axis) << ", top " << testing::PrintToString(r.top) << ", bottom "
       << testing::PrintToString(r.bottom) << ", positions " << testing::PrintToString(r.positions);
}

std::vector<double> times(std::size_t count, double value) {
  return std::vector<double>(count, value);
}

// Values one after the other: {{10, 200}, {7, 250}} is ten times 200 and seven times 250.
std::vector<double> runs(const std::vector<std::pair<std::size_t, double>>& parts) {
  std::vector<double> all;
  for (const auto& [count, value] : parts) {
    all.insert(all.end(), count, value);
  }
  return all;
}

std::vector<Repartition> repartitionsOf(const std::string& drawing) {
  CKtFiler filer;
  filer.newFiler(writeExample(drawing).c_str());
  std::vector<Repartition> all;
  CKtZantoRepartition element;
  while (element.fileIn(&filer) != 0) {
    Repartition r;
    r.barClass = toUtf8(element.getDefClassName().view());
    r.index = element.getIndex();
    r.view = element.getViewPoint();
    r.start = {element.getPoint1().X(), element.getPoint1().Y()};
    r.end = {element.getPoint2().X(), element.getPoint2().Y()};
    r.axis = {element.getAxis().X(), element.getAxis().Y()};
    r.hidden = element.getHidden();
    element.getAxisDistancesTop(r.top);
    element.getAxisDistancesBottom(r.bottom);
    element.getPositions(r.positions);
    all.push_back(r);
  }
  return all;
}

// The frames stand on y = 34 and reach 466: their middle is at 250, the ends 216 away from it, the
// lower end on the negative side.
TEST(ExampleRepartitions, BeamLinksRunAlongTheBeam) {
  const auto all = repartitionsOf("beam-b12");
  ASSERT_EQ(all.size(), 9U);
  EXPECT_EQ(all[0], (Repartition{"CKtZantoFrameRect",
                                 1,
                                 2,
                                 {200, 250},
                                 {5750, 250},
                                 {1, 0},
                                 times(27, -216),
                                 times(27, 216),
                                 runs({{10, 200}, {7, 250}, {9, 200}})}));
  EXPECT_EQ(all[1], (Repartition{"CKtZantoFrameRect",
                                 2,
                                 2,
                                 {6250, 250},
                                 {11800, 250},
                                 {1, 0},
                                 times(27, -216),
                                 times(27, 216),
                                 runs({{9, 200}, {7, 250}, {10, 200}})}));
  EXPECT_EQ(all[2], (Repartition{"CKtZantoStirrup",
                                 1,
                                 2,
                                 {4150, 250},
                                 {5750, 250},
                                 {1, 0},
                                 times(9, -216),
                                 times(9, 216),
                                 times(8, 200)}));
  EXPECT_EQ(all[3], (Repartition{"CKtZantoStirrup",
                                 1,
                                 2,
                                 {6250, 250},
                                 {7850, 250},
                                 {1, 0},
                                 times(9, -216),
                                 times(9, 216),
                                 times(8, 200)}));
}

// Starter bars from -900 to 1400: the middle is at 250 again. The three in front are seen, the
// three behind them are hidden; both series repeat the one bar that was exported.
TEST(ExampleRepartitions, StartersOfTheColumnAreSpreadAcrossIt) {
  const auto all = repartitionsOf("beam-b12");
  ASSERT_EQ(all.size(), 9U);
  Repartition expected{
      "CKtZantoStraightBar", 11,           2, {-104, 250}, {104, 250}, {10, 0}, times(3, -1150),
      times(3, 1150),        times(2, 104)};
  EXPECT_EQ(all[4], expected);
  expected.hidden = true;
  EXPECT_EQ(all[5], expected);
}

// Seen from the side a circular link is a horizontal line: the series runs upwards.
TEST(ExampleRepartitions, CircularLinksRunUpTheColumn) {
  const auto beam = repartitionsOf("beam-b12");
  ASSERT_EQ(beam.size(), 9U);
  EXPECT_EQ(beam[6], (Repartition{"CKtZantoFrameCirc",
                                  1,
                                  2,
                                  {6000, -900},
                                  {6000, -60},
                                  {0, 1},
                                  times(8, 166),
                                  times(8, -166),
                                  times(7, 120)}));
  EXPECT_EQ(beam[7], (Repartition{"CKtZantoFrameCirc",
                                  1,
                                  2,
                                  {6000, 560},
                                  {6000, 1400},
                                  {0, 1},
                                  times(8, 166),
                                  times(8, -166),
                                  times(7, 120)}));
  const auto column = repartitionsOf("column-c3");
  ASSERT_EQ(column.size(), 3U);
  EXPECT_EQ(column[0], (Repartition{"CKtZantoFrameCirc",
                                    1,
                                    2,
                                    {0, -240},
                                    {0, 1600},
                                    {0, 1},
                                    times(13, 166),
                                    times(13, -166),
                                    runs({{7, 120}, {5, 200}})}));
}

// Seen end-on, straight bars are filed with the values as they were given.
TEST(ExampleRepartitions, BarsOfASectionKeepTheirDistances) {
  const auto beam = repartitionsOf("beam-b12");
  ASSERT_EQ(beam.size(), 9U);
  EXPECT_EQ(beam[8], (Repartition{"CKtZantoStraightBar",
                                  7,
                                  1,
                                  {0, 0},
                                  {0, 0},
                                  {0, 0},
                                  times(2, 50.5),
                                  times(2, 449.5),
                                  times(2, 199)}));
  const auto column = repartitionsOf("column-c3");
  ASSERT_EQ(column.size(), 3U);
  EXPECT_EQ(column[1], (Repartition{"CKtZantoStraightBar",
                                    1,
                                    1,
                                    {0, 0},
                                    {0, 0},
                                    {0, 0},
                                    times(10, 444),
                                    times(10, 56),
                                    times(10, 150)}));
  EXPECT_EQ(column[2], (Repartition{"CKtZantoStraightBar",
                                    1,
                                    1,
                                    {0, 0},
                                    {0, 0},
                                    {0, 0},
                                    times(10, 432),
                                    times(10, 68),
                                    times(10, 150)}));
}

TEST(ExampleRepartitions, SlabBarsAreSpreadInBothDirections) {
  const auto all = repartitionsOf("slab-d2");
  ASSERT_EQ(all.size(), 4U);
  EXPECT_EQ(all[0], (Repartition{"CKtZantoStraightBar",
                                 1,
                                 3,
                                 {250, 0},
                                 {5650, 0},
                                 {10, 0},
                                 times(28, -1200),
                                 times(28, 1200),
                                 times(27, 200)}));
  EXPECT_EQ(all[1], (Repartition{"CKtZantoUBar",
                                 1,
                                 3,
                                 {240, 250},
                                 {240, 4250},
                                 {0, 1},
                                 times(21, 350),
                                 times(21, -350),
                                 times(20, 200)}));
  EXPECT_EQ(all[2], (Repartition{"CKtZantoPolygonBar",
                                 1,
                                 3,
                                 {575, 500},
                                 {575, 3500},
                                 {0, 1},
                                 times(4, 225),
                                 times(4, -225),
                                 times(3, 1000)}));
  EXPECT_EQ(all[3], (Repartition{"CKtZantoPolygonBar",
                                 1,
                                 3,
                                 {400, 725},
                                 {5650, 725},
                                 {1, 0},
                                 times(8, -225),
                                 times(8, 225),
                                 times(7, 750)}));
}

TEST(ExampleRepartitions, EachNamesABarOfItsReference) {
  CKtFiler filer;
  filer.newFiler(writeExample("beam-b12").c_str());
  std::vector<long> references;
  CKtZantoStraightBar bar;
  while (bar.fileIn(&filer) != 0) {
    references.push_back(bar.getReference());
  }
  EXPECT_EQ(references.at(11 - 1), 12);
  EXPECT_EQ(references.at(7 - 1), 3);
}

}  // namespace
}  // namespace quorvan::test
