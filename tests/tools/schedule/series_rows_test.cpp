// What repartitions make of the rows of a bar list, and what is left out of its sums.
#include <tools/schedule/bar_list.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>
#include <random>

#include <tests/tools/drawn_elements.h>
#include <tests/tools/sample.h>
#include <tests/tools/schedule/listed_bars.h>

namespace quorvan::tool {

namespace {

using test::BarParts;
using test::ListedBars;
using test::SeriesParts;

// An upright bar, as the series of uprightBars repeat it.
std::string uprightBar(int index, double length, double hook = 0.0, long mark = 1) {
  BarParts parts;
  parts.points = {{0, 0, 0}, {0, length, 0}};
  parts.hookLength1 = hook;
  parts.hookAngle1 = hook > 0.0 ? 90.0 : 0.0;
  parts.index = index;
  parts.mark = mark;
  return barOf(parts);
}

std::string numberedSeries(int number, const SeriesParts& parts) {
  return test::replaced(test::seriesOf(parts), "index=\"1\"",
                        "index=\"" + std::to_string(number) + '"');
}

SeriesParts ofLengths(const std::vector<double>& lengths) {
  SeriesParts parts = test::uprightBars(0, 0, 1000, static_cast<int>(lengths.size()), 200);
  parts.bottom.assign(lengths.size(), 0.0);
  parts.top = lengths;
  return parts;
}

std::string leftOutText(const BarList& list) {
  std::string text;
  for (const LeftOut& one : list.leftOut) {
    text += std::string(one.element->className()) + " x" + std::to_string(one.number) + ' ' +
            std::to_string(static_cast<int>(one.reason)) +
            (one.item.empty() ? "" : ' ' + one.item) + "; ";
  }
  return text;
}

std::string reasonOf(LeftOutReason reason) {
  return std::to_string(static_cast<int>(reason));
}

TEST(ToolSeriesRows, CountEachBarOfASeriesOfOneLength) {
  const ListedBars bars(uprightBar(1, 1000) +
                        numberedSeries(1, test::uprightBars(0, 0, 1000, 7, 150)));
  ASSERT_EQ(bars.list().rows.size(), 1U);
  EXPECT_EQ(bars.row(0).number, 7U);
  EXPECT_EQ(bars.row(0).drawn, 1U);
  EXPECT_EQ(bars.row(0).repeated, 1U);
  EXPECT_FALSE(bars.row(0).varies());
  EXPECT_DOUBLE_EQ(bars.row(0).totalLength, 7000.0);
}

// Distances that differ by less than what the list shows give one length: that of the bar.
TEST(ToolSeriesRows, AreOfOneLengthWhereItsDistancesDifferByAStepAtMost) {
  const auto rowOf = [](double last) {
    return ListedBars(uprightBar(1, 1000) + numberedSeries(1, ofLengths({1000, 1000, last})))
        .row(0);
  };
  EXPECT_FALSE(rowOf(1000.4).varies());
  EXPECT_FALSE(rowOf(1001.0).varies());
  EXPECT_DOUBLE_EQ(rowOf(1001.0).totalLength, 3000.0);
  EXPECT_TRUE(rowOf(1002.0).varies());
  EXPECT_DOUBLE_EQ(rowOf(1002.0).totalLength, 3002.0);
  EXPECT_TRUE(rowOf(998.0).varies());
}

TEST(ToolSeriesRows, SayTheShortestTheLongestAndTheTrueSum) {
  std::mt19937 random(411);
  for (int round = 0; round < 20; ++round) {
    std::vector<double> lengths(3 + random() % 20);
    for (double& length : lengths) {
      length = 400.0 + static_cast<double>(random() % 2000);
    }
    lengths.front() = 300.0;
    lengths.back() = 2600.0;
    const double sum = std::accumulate(lengths.begin(), lengths.end(), 0.0);
    const std::string elements = uprightBar(1, 2600, 80) + numberedSeries(1, ofLengths(lengths));
    const ListedBars bars(elements);
    ASSERT_EQ(bars.list().rows.size(), 1U);
    const double hooks = 80.0 * static_cast<double>(lengths.size());
    EXPECT_EQ(bars.row(0).number, lengths.size());
    EXPECT_DOUBLE_EQ(bars.row(0).shortest, 380.0);
    EXPECT_DOUBLE_EQ(bars.row(0).longest, 2680.0);
    EXPECT_NEAR(bars.row(0).totalLength, sum + hooks, 1e-6);

    ListOptions options;
    options.byLength = true;
    const ListedBars each(elements, options);
    std::uint64_t number = 0;
    for (const BarRow& row : each.list().rows) {
      number += row.number;
      EXPECT_FALSE(row.varies());
      EXPECT_EQ(row.drawn, 1U);
      EXPECT_EQ(row.series.size(), 1U);
    }
    EXPECT_EQ(number, lengths.size());
    // Rows of lengths a step apart are one, of the shorter.
    EXPECT_LE(each.list().mass, bars.list().mass + 1e-9);
    EXPECT_NEAR(each.list().mass, bars.list().mass, bars.list().mass * 1e-3);
  }
}

// The bar with its series in two views, and hidden: what is said of it is said once.
TEST(ToolSeriesRows, SayOnceWhatTwoLengthsAStepApartShare) {
  ListOptions options;
  options.byLength = true;
  SeriesParts section = ofLengths({1000, 1001, 1003});
  section.view = 3;
  const std::string bar = test::replaced(uprightBar(1, 1003), "<Hidden string=\"False\"/>",
                                         "<Hidden string=\"True\"/>");
  const ListedBars bars(
      bar + numberedSeries(1, ofLengths({1000, 1001, 1003})) + numberedSeries(2, section), options);
  ASSERT_EQ(bars.list().rows.size(), 2U);
  EXPECT_EQ(bars.row(0).number, 4U);
  EXPECT_EQ(bars.row(0).hidden, 1U);
  EXPECT_EQ(bars.row(0).twins.size(), 1U);
  EXPECT_EQ(bars.row(0).series.size(), 2U);
}

// One bar was drawn and one series repeats it, into how many rows whatever.
TEST(ToolSeriesRows, CountABarAndItsSeriesOnceWhereLengthsAStepApartAreOneRow) {
  ListOptions options;
  options.byLength = true;
  const ListedBars bars(uprightBar(1, 1003) + numberedSeries(1, ofLengths({1000, 1001, 1003})),
                        options);
  ASSERT_EQ(bars.list().rows.size(), 2U);
  EXPECT_EQ(bars.row(0).number, 2U);
  EXPECT_EQ(bars.row(0).drawn, 1U);
  EXPECT_EQ(bars.row(0).repeated, 1U);
  ASSERT_EQ(bars.row(0).series.size(), 1U);
  EXPECT_EQ(bars.row(0).series[0].number, 2U);
  EXPECT_EQ(bars.row(1).number, 1U);
}

TEST(ToolSeriesRows, AddUpTheSeriesOfOneBar) {
  const ListedBars bars(uprightBar(1, 1000) +
                        numberedSeries(1, test::uprightBars(0, 0, 1000, 3, 150)) +
                        numberedSeries(2, test::uprightBars(2000, 0, 1000, 4, 250)));
  EXPECT_EQ(bars.row(0).number, 7U);
  EXPECT_EQ(bars.row(0).drawn, 1U);
  ASSERT_EQ(bars.row(0).series.size(), 2U);
  EXPECT_EQ(bars.row(0).series[0].number, 3U);
  EXPECT_EQ(bars.row(0).series[1].number, 4U);
}

TEST(ToolSeriesRows, LeaveOutLengthsThatAreNone) {
  const ListedBars bars(uprightBar(1, 1000) + numberedSeries(1, ofLengths({1000, 0, 500, 0})));
  EXPECT_EQ(bars.row(0).number, 2U);
  EXPECT_DOUBLE_EQ(bars.row(0).totalLength, 1500.0);
  EXPECT_EQ(leftOutText(bars.list()),
            "CKtZantoRepartition x2 " + reasonOf(LeftOutReason::kNoLength) + "; ");
  const ListedBars none(uprightBar(1, 1000) + numberedSeries(1, ofLengths({1e12, 0, 1e11})));
  EXPECT_TRUE(none.list().rows.empty());
  EXPECT_EQ(leftOutText(none.list()),
            "CKtZantoRepartition x3 " + reasonOf(LeftOutReason::kNoLength) + "; ");
}

TEST(ToolSeriesRows, OfNoBarsOrOfABarThatIsNotThereAreLeftOut) {
  SeriesParts empty = test::uprightBars(0, 0, 1000, 2, 150);
  empty.top.clear();
  empty.bottom.clear();
  empty.positions.clear();
  SeriesParts lost = test::uprightBars(0, 0, 1000, 4, 150);
  lost.index = 9;
  SeriesParts ofLines = test::uprightBars(0, 0, 1000, 3, 150);
  ofLines.className = "Line";
  SeriesParts ofNone = test::uprightBars(0, 0, 1000, 5, 150);
  ofNone.index = -1;
  const ListedBars bars(uprightBar(1, 1000) + numberedSeries(1, empty) + numberedSeries(2, lost) +
                        numberedSeries(3, ofLines) + numberedSeries(4, ofNone));
  const std::string notThere = reasonOf(LeftOutReason::kBarNotThere);
  EXPECT_EQ(leftOutText(bars.list()), "CKtZantoRepartition x0 " + reasonOf(LeftOutReason::kNoBars) +
                                          "; CKtZantoRepartition x4 " + notThere +
                                          "; CKtZantoRepartition x3 " + notThere +
                                          "; CKtZantoRepartition x5 " + notThere + "; ");
  EXPECT_EQ(bars.row(0).number, 1U);
}

TEST(ToolSeriesRows, OfTwoViewsCountInTheViewWithTheMostOfThem) {
  const auto inView = [](int view, double x) {
    SeriesParts parts = test::uprightBars(x, 0, 1000, 4, 150);
    parts.view = view;
    return parts;
  };
  const std::string elements = uprightBar(1, 1000) + numberedSeries(1, inView(3, 0)) +
                               numberedSeries(2, inView(2, 2000)) +
                               numberedSeries(3, inView(2, 4000));
  const ListedBars all(elements);
  EXPECT_EQ(all.row(0).number, 12U);
  ASSERT_EQ(all.row(0).twins.size(), 1U);
  EXPECT_EQ(all.row(0).twins[0].size(), 3U);
  ListOptions options;
  options.twins = TwinSeries::kOnce;
  const ListedBars once(elements, options);
  EXPECT_EQ(once.row(0).number, 8U);
  EXPECT_DOUBLE_EQ(once.row(0).totalLength, 8000.0);
  EXPECT_TRUE(once.row(0).twins.empty());
  ASSERT_EQ(once.row(0).series.size(), 3U);
  ASSERT_NE(once.row(0).series[0].sameBars, nullptr);
  EXPECT_EQ(once.file().indexOf(*once.row(0).series[0].sameBars), "2");
  EXPECT_EQ(once.row(0).series[1].sameBars, nullptr);
}

TEST(ToolEndOnBars, StandWithTheRowOfTheirMarkDiameterAndGrade) {
  BarParts point;
  point.className = "PointBar";
  point.points = {{}};
  std::string elements = uprightBar(1, 1000);
  struct Kind {
    double diameter;
    const char* grade;
    long mark;
  };
  const Kind kinds[] = {{10, "B500B", 1}, {12, "B500B", 1}, {10, "B500A", 1}, {10, "B500B", 2}};
  for (const Kind& kind : kinds) {
    ++point.index;
    point.diameter = kind.diameter;
    point.grade = kind.grade;
    point.mark = kind.mark;
    elements += barOf(point);
  }
  const ListedBars bars(elements);
  ASSERT_EQ(bars.list().rows.size(), 4U);
  const std::string endOn = "CKtZantoPointBar x1 " + reasonOf(LeftOutReason::kSeenEndOn) + "; ";
  EXPECT_EQ(leftOutText(bars.list()), endOn + endOn + endOn);
  std::size_t joined = 0;
  for (const BarRow& row : bars.list().rows) {
    joined += row.endOn.size();
    EXPECT_EQ(row.number, 1U);
  }
  EXPECT_EQ(joined, 1U);
  EXPECT_EQ(bars.list().sums.size(), 1U);
}

TEST(ToolEndOnBars, AloneCountTheBarsOfTheirSeries) {
  BarParts point;
  point.className = "PointBar";
  point.points = {{}};
  SeriesParts series = test::uprightBars(0, 0, 1000, 6, 150);
  series.className = "PointBar";
  const ListedBars bars(barOf(point) + numberedSeries(1, series));
  EXPECT_EQ(bars.row(0).number, 6U);
  EXPECT_FALSE(bars.row(0).hasLength);
  EXPECT_EQ(leftOutText(bars.list()),
            "CKtZantoPointBar x6 " + reasonOf(LeftOutReason::kSeenEndOn) + "; ");
}

TEST(ToolReckonable, AreLengthsAboveNothingAndBelowTenThousandKilometres) {
  EXPECT_FALSE(isReckonable(0.0));
  EXPECT_FALSE(isReckonable(-0.0));
  EXPECT_FALSE(isReckonable(-1.0));
  EXPECT_TRUE(isReckonable(std::numeric_limits<double>::denorm_min()));
  EXPECT_TRUE(isReckonable(std::nextafter(1e7, 0.0)));
  EXPECT_FALSE(isReckonable(1e7));
  EXPECT_FALSE(isReckonable(std::numeric_limits<double>::infinity()));
  EXPECT_FALSE(isReckonable(std::numeric_limits<double>::quiet_NaN()));
}

TEST(ToolUnreadItem, IsTheFirstThatTheLengthOrTheDiameterHangsOn) {
  const auto of = [](std::string item, ProblemKind kind = ProblemKind::kMissing) {
    ItemProblem problem{};
    problem.item = std::move(item);
    problem.kind = kind;
    return problem;
  };
  EXPECT_EQ(unreadItem({}), "");
  for (const char* const item : {"Point1", "Point2", "Point17", "NoPoints", "HookLength1",
                                 "HookLength2", "FrameRadius", "RecoverLength", "Diameter"}) {
    EXPECT_EQ(unreadItem({of(item)}), item);
  }
  for (const char* const item :
       {"Reference", "SteelGrade", "Adherence", "Hidden", "HookAngle1", "Side", "Hook1Up", ""}) {
    EXPECT_EQ(unreadItem({of(item)}), "") << item;
  }
  for (const ProblemKind kind : {ProblemKind::kMissing, ProblemKind::kMistyped,
                                 ProblemKind::kNoNumber, ProblemKind::kCountDisagrees}) {
    EXPECT_EQ(unreadItem({of("Diameter", kind)}), "Diameter");
  }
  EXPECT_EQ(unreadItem({of("Reference"), of("Point2"), of("Diameter")}), "Point2");
}

TEST(ToolLeftOutBars, AreThoseWithoutADiameterOrALength) {
  struct Case {
    double diameter;
    double length;
    LeftOutReason reason;
  };
  const Case cases[] = {{0, 1000, LeftOutReason::kNoDiameter},
                        {-8, 1000, LeftOutReason::kNoDiameter},
                        {1e10, 1000, LeftOutReason::kNoDiameter},
                        {8, 0, LeftOutReason::kNoLength},
                        {8, 1e10, LeftOutReason::kNoLength},
                        {8, 0.4, LeftOutReason::kNoLength}};  // 0 in the list
  for (const Case& one : cases) {
    const ListedBars bars(test::barAlongX(1, one.length, one.diameter));
    EXPECT_TRUE(bars.list().rows.empty()) << one.length;
    EXPECT_EQ(leftOutText(bars.list()), "CKtZantoStraightBar x1 " + reasonOf(one.reason) + "; ")
        << one.length;
  }
  EXPECT_EQ(ListedBars(test::barAlongX(1, 0.5, 8)).row(0).longest, 1.0);
}

// A bar whose item is lost takes the bars of its series along.
TEST(ToolLeftOutBars, CountForTheirSeries) {
  const std::string bar = test::replaced(uprightBar(1, 1000), "<Diameter double=\"10\"/>", "");
  const ListedBars bars(bar + numberedSeries(1, test::uprightBars(0, 0, 1000, 8, 150)));
  EXPECT_TRUE(bars.list().rows.empty());
  EXPECT_EQ(leftOutText(bars.list()),
            "CKtZantoStraightBar x8 " + reasonOf(LeftOutReason::kItemUnread) + " Diameter; ");
}

}  // namespace

}  // namespace quorvan::tool
