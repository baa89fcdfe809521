// Rows, sums and masses of a bar list.
#include <tools/schedule/bar_list.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <tuple>

#include <tests/tools/drawn_elements.h>
#include <tests/tools/schedule/listed_bars.h>

namespace quorvan::tool {

namespace {

using test::barAlongX;
using test::BarParts;
using test::ListedBars;

// What the tables of the trade give, in kg/m.
TEST(ToolBarMass, IsThatOfTheTablesOfTheTrade) {
  const std::pair<double, double> table[] = {{6, 0.222},  {8, 0.395},  {10, 0.617}, {12, 0.888},
                                             {14, 1.208}, {16, 1.578}, {20, 2.466}, {25, 3.853},
                                             {28, 4.834}, {32, 6.313}, {40, 9.865}};
  for (const auto& [diameter, mass] : table) {
    EXPECT_NEAR(massOf(diameter, 1.0), mass, 0.0006) << diameter;
    EXPECT_NEAR(massOf(diameter, 250.0), 250.0 * massOf(diameter, 1.0), 1e-9) << diameter;
  }
  EXPECT_EQ(massOf(12.0, 0.0), 0.0);
}

TEST(ToolBarMass, IsTheSameInEveryUnit) {
  for (const LengthUnit& unit : kLengthUnits) {
    BarRow row;
    row.diameter = 20.0;
    row.totalLength = 12.0 / unit.inMetres;
    EXPECT_NEAR(massOf(row, unit), 12.0 * 2.4661, 0.001) << unit.name;
    MeshRow mesh;
    mesh.width = 6.0 / unit.inMetres;
    mesh.height = 2.4 / unit.inMetres;
    EXPECT_NEAR(areaOf(mesh, unit), 14.4, 1e-9) << unit.name;
  }
}

std::string lengthsOf(const BarList& list) {
  std::string text;
  for (const BarRow& row : list.rows) {
    text += (text.empty() ? "" : " ") + std::to_string(row.number) + 'x' +
            std::to_string(std::lround(row.longest));
  }
  return text;
}

// Bars that differ by a step of the list, a millimetre or a tenth of a centimetre, are rounded
// apart and one row; by two steps they are two.
TEST(ToolBarRows, AreOneWithinAStepOfTheList) {
  struct Case {
    const LengthUnit& unit;
    double step;
  };
  const Case cases[] = {{kLengthUnits[0], 1.0}, {kLengthUnits[1], 0.1}, {kLengthUnits[2], 0.001}};
  for (const Case& one : cases) {
    const auto rowsOf = [&one](const std::vector<int>& steps) {
      std::string elements;
      int index = 0;
      for (const int step : steps) {
        elements += barAlongX(++index, (1000.0 + step) * one.step, 0.01 / one.unit.inMetres);
      }
      const ListedBars bars(elements, test::inUnit(one.unit));
      std::string text;
      for (const BarRow& row : bars.list().rows) {
        text += std::to_string(row.number) + " of " +
                std::to_string(std::lround(row.longest / one.step)) + "; ";
        EXPECT_DOUBLE_EQ(row.totalLength, static_cast<double>(row.number) * row.longest);
        EXPECT_EQ(row.drawn, row.number);
      }
      return text;
    };
    EXPECT_EQ(rowsOf({0, 1}), "2 of 1000; ") << one.unit.name;
    EXPECT_EQ(rowsOf({1, 0}), "2 of 1000; ") << one.unit.name;
    EXPECT_EQ(rowsOf({0, 2}), "1 of 1000; 1 of 1002; ") << one.unit.name;
    EXPECT_EQ(rowsOf({2, 0, 1}), "2 of 1000; 1 of 1002; ") << one.unit.name;
    EXPECT_EQ(rowsOf({7}), "1 of 1007; ") << one.unit.name;
  }
}

// Cut from a schedule, two bars of one length may be bent otherwise.
TEST(ToolBarRows, OfAScheduleAreApartByTheirForm) {
  const std::string bars = barAlongX(1, 1000) + barAlongX(2, 1001) + barAlongX(3, 1001);
  EXPECT_EQ(lengthsOf(ListedBars(bars).list()), "3x1000");
  EXPECT_EQ(lengthsOf(ListedBars(bars, test::bySchedule(Schedule::kIso3766)).list()),
            "1x1000 2x1000");
}

TEST(ToolBarRows, StandByMarkDiameterGradeAdherenceShapeAndLength) {
  std::mt19937 random(401);
  std::string elements;
  std::map<std::string, int> indexes;
  for (int i = 0; i < 120; ++i) {
    BarParts parts;
    parts.className = random() % 2 == 0 ? "StraightBar" : "Pin";
    parts.points = {{}, {500.0 + 100.0 * static_cast<double>(random() % 3), 0, 0}};
    parts.diameter = random() % 2 == 0 ? 8.0 : 10.0;
    parts.mark = 10 - static_cast<long>(random() % 3) * 8;
    parts.grade = random() % 2 == 0 ? "B500A" : "B500B";
    parts.adherence = random() % 2 == 0 ? "Ha" : "Ad";
    parts.index = ++indexes[parts.className];
    elements += barOf(parts);
  }
  const ListedBars bars(elements);
  const auto keyOf = [](const BarRow& row) {
    return std::tuple(row.mark, row.diameter, row.grade, row.adherence, row.shape, row.longest);
  };
  std::uint64_t number = 0;
  const std::vector<BarRow>& rows = bars.list().rows;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    number += rows[i].number;
    if (i > 0) {
      EXPECT_LT(keyOf(rows[i - 1]), keyOf(rows[i]));
    }
  }
  EXPECT_EQ(number, 120U);
  EXPECT_EQ(rows.front().mark, -6);
}

TEST(ToolBarRows, OfEveryClassHaveTheirShape) {
  const std::pair<const char*, BarShape> classes[] = {
      {"StraightBar", BarShape::kStraight},
      {"LBar", BarShape::kL},
      {"UBar", BarShape::kU},
      {"Pin", BarShape::kPin},
      {"PolygonBar", BarShape::kPolygon},
      {"FrameRect", BarShape::kFrameRect},
      {"FrameCirc", BarShape::kFrameCirc},
      {"Stirrup", BarShape::kStirrup},
  };
  for (const auto& [name, shape] : classes) {
    BarParts parts;
    parts.className = name;
    parts.radius = 300.0;
    parts.points = {{0, 0, 0}, {600, 0, 0}, {600, 400, 0}};
    const ListedBars bars(barOf(parts));
    ASSERT_EQ(bars.list().rows.size(), 1U) << name;
    EXPECT_EQ(bars.row(0).shape, shape) << name;
    EXPECT_TRUE(bars.row(0).hasLength) << name;
    EXPECT_EQ(bars.row(0).isLowerBound, shape == BarShape::kStirrup) << name;
    EXPECT_EQ(bars.list().leftOut.size(), shape == BarShape::kStirrup ? 1U : 0U) << name;
  }
}

// In metres 0.012 is no number of a binary computer; the list says 12 mm all the same.
TEST(ToolBarRows, HaveTheirDiameterInMillimetres) {
  for (const double diameter : {6.0, 8.0, 10.0, 12.0, 14.0, 16.0, 20.0, 25.0, 28.0, 32.0, 40.0}) {
    for (const LengthUnit& unit : kLengthUnits) {
      const double scale = 0.001 / unit.inMetres;
      const ListedBars bars(barAlongX(1, 3000.0 * scale, diameter * scale), test::inUnit(unit));
      EXPECT_EQ(bars.row(0).diameter, diameter) << unit.name;
      EXPECT_NEAR(bars.list().mass, massOf(diameter, 3.0), 1e-6) << unit.name;
    }
  }
}

TEST(ToolBarRows, CountHiddenBarsWithTheOthers) {
  BarParts parts;
  parts.points = {{}, {900, 0, 0}};
  std::string elements;
  for (int i = 1; i <= 5; ++i) {
    parts.index = i;
    parts.isHidden = i % 2 == 0;
    elements += barOf(parts);
  }
  const ListedBars bars(elements);
  EXPECT_EQ(bars.row(0).number, 5U);
  EXPECT_EQ(bars.row(0).hidden, 2U);
  EXPECT_EQ(bars.row(0).sources.front().elements.size(), 5U);
}

TEST(ToolBarList, OfNoFilesAndOfAnEmptyFileIsEmpty) {
  const BarList none = makeBarList({}, {});
  EXPECT_TRUE(none.drawings.empty());
  EXPECT_TRUE(none.rows.empty());
  const ListedBars empty(test::lineOf({}, {1, 0, 0}));
  EXPECT_EQ(empty.list().drawings.size(), 1U);
  EXPECT_TRUE(empty.list().rows.empty());
  EXPECT_TRUE(empty.list().sums.empty());
  EXPECT_TRUE(empty.list().leftOut.empty());
  EXPECT_EQ(empty.list().mass, 0.0);
}

TEST(ToolBarList, HasTheNameInTheLastRecord) {
  EXPECT_EQ(ListedBars(barAlongX(1, 500)).list().drawings[0].name, "");
  const std::string second = test::controlOf("B2");
  const ListedBars bars(test::controlOf("B1") + barAlongX(1, 500) + second);
  EXPECT_EQ(bars.list().drawings[0].name, "B2");
  EXPECT_EQ(drawingName(bars.file()), "B2");
}

TEST(ToolBarList, KeepsDrawingsApartAndSumsThemTogether) {
  const test::LoadedFile first(
      test::documentOf(barAlongX(1, 1000) + barAlongX(2, 2000, 16) + test::controlOf("A")));
  const test::LoadedFile second(test::documentOf(barAlongX(1, 1000) + test::controlOf("B")));
  const BarList list = makeBarList({&first.file(), &second.file()}, {});
  ASSERT_EQ(list.rows.size(), 3U);
  EXPECT_EQ(list.rows[0].drawing, 0U);
  EXPECT_EQ(list.rows[2].drawing, 1U);
  ASSERT_EQ(list.sums.size(), 2U);
  EXPECT_EQ(list.sums[0].diameter, 10.0);
  EXPECT_EQ(list.sums[0].number, 2U);
  EXPECT_DOUBLE_EQ(list.sums[0].length, 2.0);
  EXPECT_DOUBLE_EQ(list.drawings[0].sum.length, 3.0);
  EXPECT_DOUBLE_EQ(list.drawings[1].sum.length, 1.0);
  EXPECT_DOUBLE_EQ(list.drawings[0].sum.mass + list.drawings[1].sum.mass, list.mass);
}

// Whatever the drawing: each length counts once, and all sums tell the same steel.
TEST(ToolBarList, AddsUpBySteelByDrawingAndBarByBar) {
  std::mt19937 random(402);
  const double diameters[] = {8, 12, 20};
  for (int round = 0; round < 20; ++round) {
    std::string elements;
    double length = 0.0;
    std::map<std::pair<double, std::string>, double> bySteel;
    for (int i = 1; i <= 30; ++i) {
      BarParts parts;
      parts.points = {{}, {5.0 * static_cast<double>(40 + random() % 400), 0, 0}};
      parts.diameter = diameters[random() % 3];
      parts.grade = random() % 3 == 0 ? "B500A" : "B500B";
      parts.mark = static_cast<long>(random() % 6);
      parts.index = i;
      elements += barOf(parts);
      length += parts.points[1].x / 1000.0;
      bySteel[{parts.diameter, parts.grade}] += parts.points[1].x / 1000.0;
    }
    const ListedBars bars(elements);
    const BarList& list = bars.list();
    ASSERT_EQ(list.sums.size(), bySteel.size());
    double mass = 0.0;
    auto expected = bySteel.begin();
    for (const BarSum& sum : list.sums) {
      EXPECT_EQ(std::pair(sum.diameter, sum.grade), expected->first);
      EXPECT_NEAR(sum.length, expected->second, 1e-9);
      EXPECT_NEAR(sum.mass, massOf(sum.diameter, expected->second), 1e-9);
      mass += sum.mass;
      ++expected;
    }
    EXPECT_NEAR(list.mass, mass, 1e-9);
    EXPECT_NEAR(list.drawings[0].sum.length, length, 1e-9);
    EXPECT_NEAR(list.drawings[0].sum.mass, mass, 1e-9);
    EXPECT_EQ(list.drawings[0].sum.number, 30U);
  }
}

TEST(ToolBarList, GathersMeshesByReferenceTypeAndSize) {
  const auto mesh = [](int index, const std::string& reference, const std::string& type, int x,
                       int y) {
    const std::string bytes = test::meshOf(reference, type, {});
    std::string sized = bytes;
    const auto set = [&sized](const std::string& from, const std::string& to) {
      sized.replace(sized.find(from), from.size(), to);
    };
    set("index=\"1\"", "index=\"" + std::to_string(index) + '"');
    set("ExtensionX double=\"0\"", "ExtensionX double=\"" + std::to_string(x) + '"');
    set("ExtensionY double=\"0\"", "ExtensionY double=\"" + std::to_string(y) + '"');
    return sized;
  };
  const ListedBars bars(mesh(1, "T2", "ST 25", 6000, 2400) + mesh(2, "T1", "ST 25", 6000, 2400) +
                        mesh(3, "T1", "ST 20", 6000, 2400) + mesh(4, "T1", "ST 25", 6000, 2400) +
                        mesh(5, "T1", "ST 25", 3000, 2400) + mesh(6, "T1", "ST 25", 0, 2400));
  std::string text;
  for (const MeshRow& row : bars.list().meshes) {
    text += row.reference + ' ' + row.type + ' ' + std::to_string(std::lround(row.width)) + " x" +
            std::to_string(row.number) + "; ";
  }
  EXPECT_EQ(text, "T1 ST 20 6000 x1; T1 ST 25 3000 x1; T1 ST 25 6000 x2; T2 ST 25 6000 x1; ");
  ASSERT_EQ(bars.list().leftOut.size(), 6U);
  EXPECT_EQ(bars.list().leftOut[4].reason, LeftOutReason::kMesh);
  EXPECT_EQ(bars.list().leftOut[5].reason, LeftOutReason::kNoLength);
}

}  // namespace

}  // namespace quorvan::tool
