#include <tools/model/series_layout.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include <tools/model/series_spans.h>

namespace {

using quorvan::tool::Bar;
using quorvan::tool::Coordinates;
using quorvan::tool::layOut;
using quorvan::tool::Repartition;
using quorvan::tool::SeriesBar;
using quorvan::tool::SeriesLayout;
using quorvan::tool::seriesSpans;
using quorvan::tool::statedSpacings;

constexpr double kClose = 1e-6;

void expectAt(const Coordinates& found, const Coordinates& expected) {
  EXPECT_NEAR(found.x, expected.x, kClose);
  EXPECT_NEAR(found.y, expected.y, kClose);
  EXPECT_NEAR(found.z, expected.z, kClose);
}

// Bars of 400 along y, each a step further along x, about a base line from (0, 0).
Repartition uprightBars(const std::vector<double>& steps) {
  Repartition series;
  series.positions = steps;
  series.top.assign(steps.size() + 1, -200.0);
  series.bottom.assign(steps.size() + 1, 200.0);
  for (const double step : steps) {
    series.end.x += step;
  }
  series.axis = {1, 0, 0};
  series.className = "CKtZantoStraightBar";
  return series;
}

TEST(ToolSeriesLayout, IsEmptyForASeriesWithoutALine) {
  for (const std::size_t bars : {0U, 1U, 5U}) {
    Repartition series;
    series.positions = {100, 100, 100};
    series.top.assign(bars, 0.0);
    series.bottom.assign(bars, 0.0);
    const SeriesLayout layout = layOut(series, nullptr);
    EXPECT_TRUE(layout.bars.empty() && layout.crossings.empty() && layout.spacings.empty()) << bars;
  }
}

TEST(ToolSeriesLayout, PutsEachBarAStepFurther) {
  const SeriesLayout layout = layOut(uprightBars({200, 150, 300}), nullptr);
  ASSERT_EQ(layout.bars.size(), 4U);
  const double places[] = {0, 200, 350, 650};
  for (std::size_t i = 0; i < 4; ++i) {
    expectAt(layout.bars[i].first, {places[i], -200, 0});
    expectAt(layout.bars[i].last, {places[i], 200, 0});
    expectAt(layout.crossings[i], {places[i], 0, 0});
  }
  EXPECT_EQ(layout.spacings, (std::vector<double>{200, 150, 300}));
}

TEST(ToolSeriesLayout, LiesAlongYWhereItsBaseLineDoes) {
  Repartition series = uprightBars({100, 100});
  series.start = {50, 60, 7};
  series.end = {50, 260, 7};
  series.axis = {0, 1, 0};
  const SeriesLayout layout = layOut(series, nullptr);
  ASSERT_EQ(layout.bars.size(), 3U);
  expectAt(layout.bars[2].first, {250, 260, 7});
  expectAt(layout.bars[2].last, {-150, 260, 7});
  expectAt(layout.crossings[2], {50, 260, 7});
}

TEST(ToolSeriesLayout, GoesBackwardsAlongAnAxisThatDoes) {
  Repartition series = uprightBars({100, 100});
  series.end = {-200, 0, 0};
  series.axis = {-1, 0, 0};
  const SeriesLayout layout = layOut(series, nullptr);
  ASSERT_EQ(layout.bars.size(), 3U);
  expectAt(layout.crossings[2], {-200, 0, 0});
  EXPECT_NEAR(layout.spacings[1], 100, kClose);
}

TEST(ToolSeriesLayout, HasOneBarWithoutSteps) {
  const SeriesLayout layout = layOut(uprightBars({}), nullptr);
  EXPECT_EQ(layout.bars.size(), 1U);
  EXPECT_EQ(layout.crossings.size(), 1U);
  EXPECT_TRUE(layout.spacings.empty());
}

TEST(ToolSeriesLayout, StopsAfterAsManyBarsAsAreWanted) {
  const Repartition series = uprightBars(std::vector<double>(50, 10.0));
  for (const std::size_t most : {0U, 1U, 7U, 51U, 1000U}) {
    const SeriesLayout layout = layOut(series, nullptr, most);
    const std::size_t expected = std::min<std::size_t>(most, 51);
    EXPECT_EQ(layout.bars.size(), expected);
    EXPECT_EQ(layout.crossings.size(), expected);
    EXPECT_EQ(layout.spacings.size(), expected == 0 ? 0 : expected - 1);
  }
}

TEST(ToolSeriesLayout, EndsWithTheShorterOfItsLists) {
  Repartition series = uprightBars({100, 100, 100});
  series.bottom.resize(2);
  EXPECT_EQ(layOut(series, nullptr).bars.size(), 2U);
}

// The picture and the bar list measure from the same line, whatever a host files as the axis.
TEST(ToolSeriesLayout, LaysBarsOutAsLongAsTheyAreListed) {
  for (const double angle : {0.0, 0.2, -0.7, 1.2}) {
    Bar bar;
    bar.line = {{0, 0, 0}, {400 * std::sin(angle), 400 * std::cos(angle), 0}};
    Repartition series = uprightBars({100, 150});
    series.axis = {10 * std::cos(0.3), 10 * std::sin(0.3), 0};
    series.viewPoint = 2;
    for (std::size_t i = 0; i < 3; ++i) {
      series.top[i] = -200 * std::cos(angle);
      series.bottom[i] = 200 * std::cos(angle);
    }
    const SeriesLayout layout = layOut(series, &bar);
    const std::vector<double> spans = seriesSpans(series, bar);
    ASSERT_EQ(spans.size(), 3U);
    ASSERT_EQ(layout.bars.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
      EXPECT_NEAR(spans[i], 400, kClose) << angle;
      EXPECT_NEAR(distance(layout.bars[i].first, layout.bars[i].last), spans[i], kClose) << angle;
    }
  }
}

// Bars at 45 degrees, 100 apart along the base line, the first point of each moved up with it:
// where they begin differs, so the file itself tells the angle.
TEST(ToolSeriesLayout, FollowsBarsAtAnAngle) {
  Repartition series;
  series.axis = {1, 0, 0};
  series.top = {-100, -50};
  series.bottom = {100, 150};
  // Steps of the first points; the last bar crosses the base line at 50.
  series.positions = {100};
  series.end = {50, 0, 0};
  const SeriesLayout layout = layOut(series, nullptr);
  ASSERT_EQ(layout.bars.size(), 2U);
  for (const SeriesBar& bar : layout.bars) {
    EXPECT_NEAR(bar.last.x - bar.first.x, 200, kClose);
    EXPECT_NEAR(bar.last.y - bar.first.y, 200, kClose);
  }
  EXPECT_NEAR(layout.spacings[0], 50 / std::sqrt(2.0), kClose);
}

TEST(ToolSeriesLayout, TakesTheAngleOfTheRepeatedBarWhereAllBeginAlike) {
  const Repartition series = uprightBars({100, 100});
  Bar repeated;
  repeated.line = {{0, 0, 0}, {400, 400, 0}};
  const SeriesLayout layout = layOut(series, &repeated);
  ASSERT_EQ(layout.bars.size(), 3U);
  for (const SeriesBar& bar : layout.bars) {
    EXPECT_NEAR(bar.last.x - bar.first.x, 400, kClose);
  }
  EXPECT_NEAR(layout.spacings[0], 100 / std::sqrt(2.0), kClose);
}

TEST(ToolSeriesLayout, TakesNoAngleOfABarThatIsNotOfTheSeries) {
  const Repartition series = uprightBars({100, 100});
  const auto spacingWith = [&series](Bar bar) { return layOut(series, &bar).spacings.at(0); };
  Bar longer;
  longer.line = {{0, 0, 0}, {900, 900, 0}};
  EXPECT_NEAR(spacingWith(longer), 100, kClose);
  Bar bent;
  bent.line = {{0, 0, 0}, {400, 400, 0}, {500, 400, 0}};
  EXPECT_NEAR(spacingWith(bent), 100, kClose);
  Bar along;
  along.line = {{0, 0, 0}, {400, 0, 0}};
  EXPECT_NEAR(spacingWith(along), 100, kClose);
  Bar link;
  link.shape = quorvan::tool::BarShape::kStirrup;
  link.line = {{0, 0, 0}, {400, 400, 0}};
  EXPECT_NEAR(spacingWith(link), 100, kClose);
  EXPECT_NEAR(spacingWith(Bar()), 100, kClose);
}

TEST(ToolSeriesLayout, IsTheSameWhereverTheSeriesLies) {
  std::mt19937 random(38);
  const auto number = [&random] { return static_cast<double>(random() % 2000) / 4.0 - 250.0; };
  for (int round = 0; round < 200; ++round) {
    Repartition series;
    series.start = {number(), number(), number()};
    series.end = {series.start.x + 300, series.start.y, series.start.z};
    series.axis = {1, 0, 0};
    for (auto count = 1 + random() % 6; count > 0; --count) {
      series.top.push_back(number());
      series.bottom.push_back(number());
      series.positions.push_back(std::abs(number()));
    }
    series.positions.pop_back();
    Repartition moved = series;
    for (Coordinates* const point : {&moved.start, &moved.end}) {
      *point = {point->x + 1000, point->y - 500, point->z + 5};
    }
    const SeriesLayout here = layOut(series, nullptr);
    const SeriesLayout there = layOut(moved, nullptr);
    ASSERT_EQ(here.bars.size(), series.top.size());
    for (std::size_t i = 0; i < here.bars.size(); ++i) {
      const Coordinates& first = here.bars[i].first;
      EXPECT_NEAR(there.bars[i].first.x, first.x + 1000, kClose);
      EXPECT_NEAR(there.bars[i].first.y, first.y - 500, kClose);
      EXPECT_NEAR(there.bars[i].last.y, here.bars[i].last.y - 500, kClose);
    }
    for (std::size_t i = 0; i < here.spacings.size(); ++i) {
      EXPECT_NEAR(there.spacings[i], here.spacings[i], kClose);
      EXPECT_LE(here.spacings[i],
                series.positions[i] + std::abs(series.top[i + 1] - series.top[i]) + kClose);
    }
  }
}

TEST(ToolSeriesLayout, SurvivesNumbersBeyondReckoning) {
  const double infinite = std::numeric_limits<double>::infinity();
  Repartition series = uprightBars({100, infinite, 100});
  series.top[1] = -infinite;
  series.end.x = infinite;
  EXPECT_EQ(layOut(series, nullptr).bars.size(), 4U);
}

TEST(ToolStatedSpacings, AreSquareToTheBarsOrAsFiled) {
  EXPECT_EQ(statedSpacings(uprightBars({200, 150}), nullptr), (std::vector<double>{200, 150}));
  Repartition without;
  without.positions = {200, 150, 150};
  EXPECT_EQ(statedSpacings(without, nullptr), (std::vector<double>{200, 150}));
  EXPECT_TRUE(statedSpacings(Repartition(), nullptr).empty());
}

}  // namespace
