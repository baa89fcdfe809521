#include <tools/detailing/formwork.h>

#include <gtest/gtest.h>

#include <set>

#include <tools/detailing/bar_body.h>

namespace quorvan::tool {

namespace {

constexpr std::size_t kAnyEffort = 1'000'000;
const LengthUnit& kMillimetres = kLengthUnits[0];

std::vector<Segment> squareOf(double left, double low, double side) {
  const Coordinates corners[] = {
      {left, low, 0}, {left + side, low, 0}, {left + side, low + side, 0}, {left, low + side, 0}};
  std::vector<Segment> segments;
  for (std::size_t i = 0; i < 4; ++i) {
    segments.push_back({corners[i], corners[(i + 1) % 4], {}});
  }
  return segments;
}

std::vector<Segment> both(std::vector<Segment> one, const std::vector<Segment>& other) {
  one.insert(one.end(), other.begin(), other.end());
  return one;
}

TEST(ToolFormwork, IsAroundWhatLiesInAClosedOutline) {
  const Formwork formwork(squareOf(0, 0, 100), kMillimetres, kAnyEffort);
  EXPECT_TRUE(formwork.isAround({50, 50}));
  EXPECT_TRUE(formwork.isAround({0.01, 99.99}));
  EXPECT_FALSE(formwork.isAround({-0.01, 50}));
  EXPECT_FALSE(formwork.isAround({50, 100.01}));
  EXPECT_FALSE(formwork.isAround({1e9, 50}));
}

TEST(ToolFormwork, IsAroundWhatLiesInOneOutlineWithinAnother) {
  const Formwork formwork(both(squareOf(0, 0, 100), squareOf(20, 20, 20)), kMillimetres,
                          kAnyEffort);
  EXPECT_TRUE(formwork.isAround({10, 30}));
  EXPECT_TRUE(formwork.isAround({30, 30}));
}

TEST(ToolFormwork, JoinsSegmentsInAnyOrderAndDirection) {
  std::vector<Segment> segments = squareOf(0, 0, 100);
  std::swap(segments[1], segments[2]);
  std::swap(segments[0].start, segments[0].end);
  segments[3].end.x += 0.01;
  EXPECT_FALSE(Formwork(segments, kMillimetres, kAnyEffort).isAround({150, 50}));
  EXPECT_TRUE(Formwork(segments, kMillimetres, kAnyEffort).isAround({50, 50}));
}

TEST(ToolFormwork, TakesTheBoxOfOutlinesThatAreOpen) {
  std::vector<Segment> segments = squareOf(0, 0, 100);
  segments.pop_back();
  const Formwork formwork(both(segments, squareOf(500, 0, 50)), kMillimetres, kAnyEffort);
  EXPECT_TRUE(formwork.isAround({0, 50}));
  EXPECT_FALSE(formwork.isAround({-1, 50}));
  EXPECT_FALSE(formwork.isAround({300, 50}));
  EXPECT_TRUE(formwork.isAround({520, 20}));
}

// A circle of two arcs of half a turn.
TEST(ToolFormwork, CutsArcsIntoChordsThatHardlyMissThem) {
  const Formwork formwork(
      {{{-100, 0, 0}, {100, 0, 0}, {0, -100, 0}}, {{100, 0, 0}, {-100, 0, 0}, {0, 100, 0}}},
      kMillimetres, kAnyEffort);
  for (int i = 0; i < 50; ++i) {
    const PlanePoint way = turned({1.0, 0.0}, 0.1 + i * 0.125);
    EXPECT_TRUE(formwork.isAround(way * 99.94)) << i;
    EXPECT_FALSE(formwork.isAround(way * 100.01)) << i;
  }
}

TEST(ToolFormwork, ShowsEveryLineThatReachesIntoABoxOnce) {
  std::vector<Segment> segments;
  for (int i = 0; i < 400; ++i) {
    segments.push_back({{10.0 * i, 0, 0}, {10.0 * i, 1000, 0}, {}});
  }
  segments.push_back({{0, 0, 0}, {3990, 1000, 0}, {}});
  const Formwork formwork(segments, kMillimetres, kAnyEffort);
  std::multiset<double> met;
  formwork.visit({{95, 400}, {115, 600}}, [&](const FormworkLine& line) { met.insert(line.to.x); });
  EXPECT_EQ(met.count(100), 1U);
  EXPECT_EQ(met.count(110), 1U);
  EXPECT_LT(met.size(), 60U);
  std::size_t diagonals = 0;
  formwork.visit({{1990, 495}, {2000, 505}},
                 [&](const FormworkLine& line) { diagonals += line.to.x - line.from.x > 5.0; });
  EXPECT_EQ(diagonals, 1U);
}

TEST(ToolFormwork, GivesUpWhenItsEffortIsSpent) {
  const Formwork formwork(squareOf(0, 0, 100), kMillimetres, 20);
  for (int i = 0; i < 10; ++i) {
    static_cast<void>(formwork.isAround({50, 50}));
  }
  EXPECT_TRUE(formwork.isExhausted());
}

TEST(ToolBarBody, KeepsItsDistanceAsWideAsItIsAndFlatAtItsEnds) {
  const LegBody leg{{0, 0}, {100, 0}, 20};
  EXPECT_DOUBLE_EQ(gapBetween(leg, {{-50, 40}, {150, 40}}), 30);
  EXPECT_DOUBLE_EQ(gapBetween(leg, {{130, -50}, {130, 50}}), 30);
  EXPECT_DOUBLE_EQ(gapBetween(leg, {{103, 14}, {200, 14}}), 5);
  EXPECT_DOUBLE_EQ(gapBetween(leg, {{50, -50}, {50, 50}}), 0);
  EXPECT_DOUBLE_EQ(gapBetween(leg, {{20, 5}, {30, 5}}), 0);
}

TEST(ToolBarBody, KeepsTheDistanceOfARingFromBothItsSides) {
  const RingBody ring{{0, 0}, 100, 20};
  EXPECT_DOUBLE_EQ(gapBetween(ring, {{150, -50}, {150, 50}}), 40);
  EXPECT_DOUBLE_EQ(gapBetween(ring, {{0, 0}, {30, 40}}), 40);
  EXPECT_DOUBLE_EQ(gapBetween(ring, {{0, 0}, {200, 0}}), 0);
}

TEST(ToolBarBody, PassesWhatItRunsThrough) {
  const LegBody leg{{0, 0}, {100, 0}, 20};
  EXPECT_TRUE(passes(leg, {{50, -50}, {50, 50}}));
  EXPECT_TRUE(passes(leg, {{50, 0}, {50, 50}})) << "to the end of another";
  EXPECT_FALSE(passes(leg, {{50, 5}, {50, 50}}));
  EXPECT_TRUE(passesDrawnOn(leg, {{50, 5}, {50, 50}}));
  EXPECT_FALSE(passes(leg, {{100, -50}, {100, 50}})) << "it ends there";
  EXPECT_FALSE(passesDrawnOn(leg, {{0, 40}, {100, 40}}));
  EXPECT_TRUE(passes(RingBody{{0, 0}, 100, 20}, {{0, 0}, {200, 0}}));
  EXPECT_FALSE(passes(RingBody{{0, 0}, 100, 20}, {{0, 0}, {50, 0}}));
}

}  // namespace

}  // namespace quorvan::tool
