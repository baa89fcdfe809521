// The tables of a bar list: their columns for people and for programs, and what their cells say.
#include <tools/schedule/list_tables.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <tests/tools/drawn_elements.h>
#include <tests/tools/sample.h>
#include <tests/tools/schedule/listed_bars.h>

namespace quorvan::tool {

namespace {

using test::barAlongX;
using test::BarParts;
using test::cellsOf;
using test::ListedBars;
using test::titlesOf;
using CellTexts = std::vector<std::string>;

constexpr TableOptions kPeople{Audience::kPeople};
constexpr TableOptions kPrograms{Audience::kPrograms};

std::string barOfPoints(const std::string& name, const std::vector<Coordinates>& points,
                        double hook = 0.0) {
  BarParts parts;
  parts.className = name;
  parts.points = points;
  parts.hookLength1 = parts.hookLength2 = hook;
  parts.hookAngle1 = parts.hookAngle2 = hook > 0.0 ? 90.0 : 0.0;
  return barOf(parts);
}

TEST(ToolListCells, AreTextsOrNumbersWithTheirDecimals) {
  EXPECT_EQ(cellText(textCell("a.b"), ','), "a.b");
  EXPECT_EQ(cellText(numberCell(12.345, 2), '.'), "12.35");
  EXPECT_EQ(cellText(numberCell(12.345, 2), ','), "12,35");
  EXPECT_EQ(cellText(numberCell(12.0, 2), '.'), "12.00");
  EXPECT_EQ(cellText(numberCell(-0.001, 2), '.'), "0.00");
  EXPECT_EQ(cellText(numberCell(1250.4, 0), '.'), "1250");
  EXPECT_EQ(cellText(wholeCell(18446744073709), '.'), "18446744073709");
  EXPECT_FALSE(textCell("12").isNumber());
  EXPECT_TRUE(wholeCell(0).isNumber());
  Cell cell = numberCell(3.5, 1);
  cell.before = "(";
  cell.after = ")";
  EXPECT_EQ(cellText(cell, ','), "(3,5)");
}

TEST(ToolBarTable, OfBarsAsDrawnHasTheColumnsOfItsReaders) {
  const ListedBars bars(barAlongX(1, 1000));
  EXPECT_EQ(titlesOf(barTable(bars.list(), kEnglishList, kPeople)),
            (CellTexts{"mark", "shape", "grade", "adherence", "diameter [mm]", "number",
                       "length [mm]", "total [m]", "mass [kg]", "elements"}));
  EXPECT_EQ(titlesOf(barTable(bars.list(), kEnglishList, kPrograms)),
            (CellTexts{"drawing", "mark", "shape", "grade", "adherence", "diameter [mm]", "number",
                       "length [mm]", "length to [mm]", "total length [m]", "mass [kg]", "elements",
                       "remarks"}));
  EXPECT_EQ(titlesOf(barTable(bars.list(), kEnglishList, {Audience::kPrograms, true})).back(),
            "explanation");
  EXPECT_EQ(titlesOf(barTable(bars.list(), kEnglishList, {Audience::kPeople, true})).back(),
            "elements");
  EXPECT_EQ(cellsOf(barTable(bars.list(), kEnglishList, kPrograms), 0),
            (CellTexts{"loaded.xml", "1", "straight bar", "B500B", "Ha", "10", "1", "1000", "",
                       "1.00", "0.62", "StraightBar 1", ""}));
}

TEST(ToolBarTable, OfAScheduleHasRollersCodesAndDimensions) {
  const std::string bar = barOfPoints("LBar", {{0, 500, 0}, {0, 0, 0}, {800, 0, 0}});
  const ListedBars iso(bar, test::bySchedule(Schedule::kIso3766));
  const ListTable table = barTable(iso.list(), kEnglishList, kPeople);
  EXPECT_EQ(titlesOf(table), (CellTexts{"mark", "shape", "grade", "adherence", "diameter [mm]",
                                        "roller [mm]", "number", "length [mm]", "total [m]",
                                        "mass [kg]", "dimensions", "elements"}));
  EXPECT_EQ(cellsOf(table, 0)[5], "40");
  EXPECT_EQ(cellsOf(table, 0)[10], "505 / 805");
  const ListedBars british(bar, test::bySchedule(Schedule::kBs8666));
  const ListTable codes = barTable(british.list(), kEnglishList, kPeople);
  EXPECT_EQ(titlesOf(codes), (CellTexts{"mark", "code", "shape", "grade", "adherence",
                                        "diameter [mm]", "roller [mm]", "number", "length [mm]",
                                        "total [m]", "mass [kg]", "A [mm]", "B [mm]", "elements"}));
  EXPECT_EQ(cellsOf(codes, 0)[1], "11");
  EXPECT_EQ(cellsOf(codes, 0)[11], "505");
  EXPECT_EQ(cellsOf(codes, 0)[12], "(805)");
  const ListTable all = barTable(british.list(), kEnglishList, kPrograms);
  EXPECT_EQ(titlesOf(all),
            (CellTexts{"drawing",    "mark",        "code",           "shape",
                       "grade",      "adherence",   "diameter [mm]",  "roller [mm]",
                       "number",     "length [mm]", "length to [mm]", "total length [m]",
                       "mass [kg]",  "A [mm]",      "B [mm]",         "C [mm]",
                       "D [mm]",     "E [mm]",      "F [mm]",         "R [mm]",
                       "dimensions", "elements",    "remarks"}));
  EXPECT_EQ(cellsOf(all, 0)[14], "805");  // no parentheses for programs
  EXPECT_EQ(cellsOf(all, 0)[15], "");
}

// A straight bar has code 00, of two digits, and no bend for a roller.
TEST(ToolBarTable, HasNoRollerForAStraightBar) {
  const ListedBars bars(barAlongX(1, 1000), test::bySchedule(Schedule::kBs8666));
  const CellTexts cells = cellsOf(barTable(bars.list(), kEnglishList, kPeople), 0);
  EXPECT_EQ(cells[1], "00");
  EXPECT_EQ(cells[6], "-");
  EXPECT_EQ(cellsOf(barTable(bars.list(), kEnglishList, kPrograms), 0)[7], "");
}

TEST(ToolBarTable, HasTheLegsOfWhatFitsNoCode) {
  const std::vector<Coordinates> zigzag{{0, 0, 0},      {500, 0, 0},    {500, 400, 0},
                                        {900, 400, 0},  {900, 0, 0},    {1300, 0, 0},
                                        {1300, 400, 0}, {1700, 400, 0}, {1700, 0, 0}};
  const ListedBars bars(barOfPoints("PolygonBar", zigzag), test::bySchedule(Schedule::kBs8666));
  const ListTable table = barTable(bars.list(), kEnglishList, kPeople);
  EXPECT_EQ(titlesOf(table)[11], "dimensions");
  EXPECT_EQ(cellsOf(table, 0)[1], "99");
  EXPECT_EQ(cellsOf(table, 0)[11], "505 / 410 / 410 / 410 / 410 / 410 / 410 / 405");
}

TEST(ToolBarTable, HasAQuestionMarkForTheWidthOfAStirrup) {
  const std::string stirrup = barOfPoints("Stirrup", {{0, 0, 0}, {500, 0, 0}}, 90);
  const ListedBars bars(stirrup, test::bySchedule(Schedule::kIso3766));
  const ListTable table = barTable(bars.list(), kEnglishList, kPeople);
  const CellTexts titles = titlesOf(table);
  const CellTexts cells = cellsOf(table, 0);
  EXPECT_EQ(cells[7].substr(0, 4), "\u2265 ");
  EXPECT_NE(cells[10].find(" / ? / "), std::string::npos) << cells[10];
  EXPECT_EQ(titles.back(), "remarks");
  EXPECT_NE(cells.back().find("at least: its width is not in the file"), std::string::npos);
  const CellTexts forPrograms = cellsOf(barTable(bars.list(), kEnglishList, kPrograms), 0);
  EXPECT_EQ(forPrograms[8].find('\xE2'), std::string::npos);
}

TEST(ToolBarTable, HasLengthsFromAndToTogetherForPeople) {
  BarParts parts;
  parts.points = {{0, 0, 0}, {0, 1000, 0}};
  test::SeriesParts series = test::uprightBars(0, 0, 1000, 3, 200);
  series.top = {100, 300, 500};
  const ListedBars bars(barOf(parts) + seriesOf(series));
  const CellTexts people = cellsOf(barTable(bars.list(), kEnglishList, kPeople), 0);
  EXPECT_EQ(people[6], "600 to 1000");
  const CellTexts programs = cellsOf(barTable(bars.list(), kEnglishList, kPrograms), 0);
  EXPECT_EQ(programs[7], "600");
  EXPECT_EQ(programs[8], "1000");
  EXPECT_EQ(cellsOf(barTable(bars.list(), kFrenchList, kPeople), 0)[6], "600 \u00e0 1000");
}

TEST(ToolBarTable, HasNoLengthForABarSeenEndOn) {
  const ListedBars bars(barOfPoints("PointBar", {{}}), test::bySchedule(Schedule::kBs8666));
  const CellTexts people = cellsOf(barTable(bars.list(), kEnglishList, kPeople), 0);
  EXPECT_EQ(people[1], "");
  for (const std::size_t column : {8U, 9U, 10U}) {
    EXPECT_EQ(people[column], "-") << column;
  }
  const CellTexts programs = cellsOf(barTable(bars.list(), kEnglishList, kPrograms), 0);
  for (const std::size_t column : {9U, 10U, 11U, 12U}) {
    EXPECT_EQ(programs[column], "") << column;
  }
}

TEST(ToolBarTable, CountsHiddenBarsForPeople) {
  const std::string hidden =
      test::replaced(barAlongX(2, 1000), "string=\"False\"/></", "string=\"True\"/></");
  const ListedBars bars(barAlongX(1, 1000) + hidden);
  EXPECT_EQ(cellsOf(barTable(bars.list(), kEnglishList, kPeople), 0).back(),
            "StraightBar 1, 2 (1 hidden)");
  EXPECT_EQ(cellsOf(barTable(bars.list(), kFrenchList, kPeople), 0).back(),
            "StraightBar 1, 2 (1 cach\u00e9(s))");
  EXPECT_EQ(cellsOf(barTable(bars.list(), kEnglishList, kPrograms), 0)[11], "StraightBar 1, 2");
}

TEST(ToolSumTable, HasDiametersAsShortAsTheyGo) {
  const ListedBars bars(barAlongX(1, 1000, 8) + barAlongX(2, 1000, 12.5) +
                        barAlongX(3, 1000, 9.525));
  const ListTable table = sumTable(bars.list(), kEnglishList);
  EXPECT_EQ(titlesOf(table),
            (CellTexts{"diameter [mm]", "grade", "number", "total [m]", "mass [kg]"}));
  ASSERT_EQ(table.rows.size(), 3U);
  EXPECT_EQ(cellsOf(table, 0), (CellTexts{"8", "B500B", "1", "1.00", "0.39"}));
  EXPECT_EQ(cellsOf(table, 1)[0], "9.53");
  EXPECT_EQ(cellsOf(table, 2)[0], "12.5");
}

TEST(ToolListTables, NameTheDrawingWhereThereAreSeveral) {
  const std::string mesh = test::replaced(
      test::meshOf("T1", "ST 25", {}), "ExtensionX double=\"0\"/><ExtensionY double=\"0\"",
      "ExtensionX double=\"6000\"/><ExtensionY double=\"2400\"");
  const test::LoadedFile first(test::documentOf(barAlongX(1, 1000) + mesh + test::controlOf("A")));
  const test::LoadedFile second(test::documentOf(barAlongX(1, 2000) + mesh));
  const BarList one = makeBarList({&first.file()}, {});
  const BarList two = makeBarList({&first.file(), &second.file()}, {});
  EXPECT_EQ(titlesOf(barTable(one, kEnglishList, kPeople))[0], "mark");
  EXPECT_EQ(titlesOf(barTable(two, kEnglishList, kPeople))[0], "drawing");
  EXPECT_EQ(cellsOf(barTable(two, kEnglishList, kPeople), 1)[0], "loaded.xml");
  EXPECT_EQ(titlesOf(meshTable(one, kEnglishList, Audience::kPeople)),
            (CellTexts{"reference", "type", "pieces", "along X [mm]", "along Y [mm]", "area [m2]",
                       "total area [m2]"}));
  EXPECT_EQ(cellsOf(meshTable(two, kEnglishList, Audience::kPeople), 0),
            (CellTexts{"A", "T1", "ST 25", "1", "6000", "2400", "14.40", "14.40"}));
  EXPECT_EQ(titlesOf(leftOutTable(one, kEnglishList, Audience::kPeople)),
            (CellTexts{"class", "index", "number", "reason"}));
  EXPECT_EQ(titlesOf(leftOutTable(one, kEnglishList, Audience::kPrograms))[0], "drawing");
  EXPECT_EQ(titlesOf(explanationTable(one, kEnglishList)),
            (CellTexts{"mark", "shape", "explanation"}));
  EXPECT_EQ(cellsOf(explanationTable(two, kEnglishList), 1),
            (CellTexts{"loaded.xml", "1", "straight bar", "1 drawn: 1"}));
  EXPECT_EQ(titlesOf(drawingTable(two, kEnglishList)),
            (CellTexts{"drawing", "file", "number", "total [m]", "mass [kg]"}));
  EXPECT_EQ(cellsOf(drawingTable(two, kEnglishList), 0),
            (CellTexts{"A", "loaded.xml", "1", "1.00", "0.62"}));
}

// Twenty thousand bars without a diameter are one line, not twenty thousand.
TEST(ToolLeftOutTable, GathersElementsOfOneClassAndReason) {
  std::string elements;
  for (const int index : {1, 2, 3, 5}) {
    elements += barAlongX(index, 1000, 0);
  }
  elements += barAlongX(4, 0) + barOfPoints("Pin", {{}, {}});
  const ListedBars bars(elements);
  const ListTable table = leftOutTable(bars.list(), kEnglishList, Audience::kPeople);
  ASSERT_EQ(table.rows.size(), 3U);
  EXPECT_EQ(cellsOf(table, 0),
            (CellTexts{"StraightBar", "1-3, 5", "4", "no diameter that can be reckoned with"}));
  EXPECT_EQ(cellsOf(table, 1),
            (CellTexts{"StraightBar", "4", "1", "no length that can be reckoned with"}));
  EXPECT_EQ(cellsOf(table, 2)[0], "Pin");
}

TEST(ToolListRows, AreMadeWhenAskedFor) {
  ListRows rows(3);
  int asked = 0;
  rows.addColumn([&asked](std::size_t row) {
    ++asked;
    return wholeCell(row * 10);
  });
  rows.addColumn([](std::size_t) { return textCell("x"); });
  EXPECT_EQ(asked, 0);
  EXPECT_FALSE(rows.empty());
  EXPECT_TRUE(ListRows().empty());
  std::string text;
  for (const std::vector<Cell>& row : rows) {
    text += cellText(row.at(0), '.') + cellText(row.at(1), '.') + ' ';
  }
  EXPECT_EQ(text, "0x 10x 20x ");
  EXPECT_EQ(asked, 3);
}

}  // namespace

}  // namespace quorvan::tool
