// What is said about a row: where it comes from, how its number came about, and what to mind.
#include <tools/schedule/row_texts.h>

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
using test::ListedBars;
using Remarks = std::vector<std::string>;

std::string pointAt(int index) {
  BarParts parts;
  parts.className = "PointBar";
  parts.points = {{}};
  parts.index = index;
  return barOf(parts);
}

// Bars of the first class element, `count` of them, in that view.
std::string seriesOfFirst(int index, int count, int view) {
  test::SeriesParts parts = test::uprightBars(1000.0 * index, 0, 1000, count, 150);
  parts.view = view;
  return test::replaced(test::seriesOf(parts), "index=\"1\"",
                        "index=\"" + std::to_string(index) + '"');
}

std::string uprightThousand() {
  BarParts parts;
  parts.points = {{}, {0, 1000, 0}};
  return barOf(parts);
}

std::string sourceOf(const ListedBars& bars, const ListWording& words = kEnglishList) {
  return sourceText(bars.file(), bars.row(0), words);
}

std::string explained(const ListedBars& bars, const ListWording& words = kEnglishList) {
  return explanationOf(bars.file(), bars.row(0), words);
}

TEST(ToolRowSources, AreRunsOfIndexesByClass) {
  std::string bars;
  for (const int index : {7, 1, 3, 2, 4}) {
    bars += barAlongX(index, 1000);
  }
  EXPECT_EQ(sourceOf(ListedBars(barAlongX(5, 1000))), "StraightBar 5");
  EXPECT_EQ(sourceOf(ListedBars(bars)), "StraightBar 1-4, 7");
  EXPECT_EQ(sourceOf(ListedBars(bars + pointAt(3) + seriesOfFirst(2, 4, 1))),
            "StraightBar 1-4, 7; Repartition 2; end-on PointBar 3");
  EXPECT_EQ(sourceOf(ListedBars(bars + pointAt(3)), kFrenchList),
            "StraightBar 1-4, 7; en bout PointBar 3");
}

TEST(ToolRowSources, AreSortedByNumberWhateverTheirOrder) {
  std::string bars;
  for (const int index : {100, 20, 3, 1000, 4, 5}) {
    bars += barAlongX(index, 1000);
  }
  EXPECT_EQ(sourceOf(ListedBars(bars)), "StraightBar 3-5, 20, 100, 1000");
}

TEST(ToolRowExplanation, CountsTheDrawnAndTheRepeated) {
  EXPECT_EQ(explained(ListedBars(barAlongX(1, 1000))), "1 drawn: 1");
  EXPECT_EQ(explained(ListedBars(barAlongX(1, 1000) + barAlongX(2, 1000))), "2 drawn: 2");
  const ListedBars two(uprightThousand() + seriesOfFirst(1, 4, 2) + seriesOfFirst(2, 3, 2));
  EXPECT_EQ(explained(two),
            "1 drawn, 1 of them repeated by Repartition 1 (4 bars), Repartition 2 (3 bars): 7");
  EXPECT_EQ(explained(two, kFrenchList),
            "1 dessin\u00e9e(s), dont 1 r\u00e9p\u00e9t\u00e9e(s) par Repartition 1 (4 barres), "
            "Repartition 2 (3 barres)\u00a0: 7");
}

TEST(ToolRowExplanation, NamesTheSeriesThatShowsTheSameBars) {
  const std::string elements = uprightThousand() + seriesOfFirst(1, 4, 2) + seriesOfFirst(2, 4, 3);
  const ListedBars all(elements);
  EXPECT_EQ(explained(all),
            "1 drawn, 1 of them repeated by Repartition 1 (4 bars), Repartition 2 (4 bars): 8");
  EXPECT_EQ(remarksOn(all.file(), all.row(0), kEnglishList),
            (Remarks{"Repartition 1, 2 look like the same bars in several views: all of them "
                     "count"}));
  EXPECT_EQ(remarksOn(all.file(), all.row(0), kFrenchList),
            (Remarks{"Repartition 1, 2 semblent \u00eatre les m\u00eames barres en plusieurs "
                     "vues\u00a0: toutes sont compt\u00e9es"}));
  ListOptions options;
  options.twins = TwinSeries::kOnce;
  const ListedBars once(elements, options);
  EXPECT_EQ(explained(once),
            "1 drawn, 1 of them repeated by Repartition 1 (4 bars); Repartition 2 shows the bars "
            "of Repartition 1 in another view: 4");
  EXPECT_EQ(remarksOn(once.file(), once.row(0), kEnglishList),
            (Remarks{"Repartition 2 shows the bars of Repartition 1 in another view"}));
  EXPECT_EQ(remarksOn(once.file(), once.row(0), kFrenchList),
            (Remarks{"Repartition 2 montre les barres de Repartition 1 dans une autre vue"}));
}

TEST(ToolRowRemarks, AreNoneForAnOrdinaryBar) {
  const ListedBars bars(barAlongX(1, 1000), test::bySchedule(Schedule::kBs8666));
  EXPECT_TRUE(remarksOn(bars.file(), bars.row(0), kEnglishList).empty());
}

// Both at once, in their order: the length is a minimum, and a leg is short.
TEST(ToolRowRemarks, SayThatALengthIsAMinimumAndALegTooShort) {
  BarParts parts;
  parts.className = "Stirrup";
  parts.points = {{}, {30, 0, 0}};
  parts.hookLength1 = 20;
  parts.hookAngle1 = 135;
  const std::string stirrup = barOf(parts);
  const ListedBars drawn(stirrup);
  EXPECT_EQ(remarksOn(drawn.file(), drawn.row(0), kEnglishList),
            (Remarks{"at least: its width is not in the file"}));
  const ListedBars cut(stirrup, test::bySchedule(Schedule::kIso3766));
  EXPECT_EQ(
      remarksOn(cut.file(), cut.row(0), kEnglishList),
      (Remarks{"at least: its width is not in the file", "a leg is too short for its bends"}));
  EXPECT_EQ(remarksOn(cut.file(), cut.row(0), kFrenchList),
            (Remarks{"au moins\u00a0: sa largeur n'est pas dans le fichier",
                     "une branche est trop courte pour ses coudes"}));
}

}  // namespace

}  // namespace quorvan::tool
