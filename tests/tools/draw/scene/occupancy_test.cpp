// What covers the sheet, asked for from all sides.
#include <tools/draw/scene/occupancy.h>

#include <gtest/gtest.h>

#include <limits>
#include <numbers>
#include <random>

namespace quorvan::tool {

namespace {

using Kind = Occupancy::Kind;

SheetBox spot(double x, double y, double half = 0.4) {
  return {{x - half, y - half}, {x + half, y + half}};
}

bool isFreeAt(const Occupancy& taken, double x, double y) {
  return taken.cost(spot(x, y)) == 0.0;
}

TEST(ToolOccupancy, IsFreeUntilSomethingIsThere) {
  const Occupancy taken(100, 50);
  EXPECT_EQ(taken.cost(SheetBox{{1, 1}, {99, 49}}), 0.0);
  EXPECT_EQ(taken.cost(PlanePoint{1, 1}, PlanePoint{99, 49}), 0.0);
  EXPECT_EQ(taken.cost(Lettering{"text", {20, 20}, 3.0, 0.4, AlignX::kLeft, AlignY::kBase}), 0.0);
}

TEST(ToolOccupancy, CountsTextsMostThenLinesThenConcrete) {
  const auto costOf = [](Kind kind) {
    Occupancy taken(100, 50);
    taken.take(SheetBox{{20, 20}, {30, 30}}, kind);
    return taken.cost(spot(25, 25));
  };
  EXPECT_GT(costOf(Kind::kText), costOf(Kind::kLine));
  EXPECT_GT(costOf(Kind::kLine), costOf(Kind::kConcrete));
  EXPECT_GT(costOf(Kind::kConcrete), 0.0);
}

TEST(ToolOccupancy, CountsEveryKindAtOnePlaceOnce) {
  const SheetBox box{{20, 20}, {30, 30}};
  Occupancy taken(100, 50);
  taken.take(box, Kind::kLine);
  const double line = taken.cost(box);
  taken.take(box, Kind::kLine);
  EXPECT_EQ(taken.cost(box), line);
  taken.take(box, Kind::kConcrete);
  EXPECT_GT(taken.cost(box), line);
}

// Cells are counted several at a time; none of them twice, and none beside the box.
TEST(ToolOccupancy, CostsOfABoxWhatItsCellsCost) {
  std::mt19937 random(3);
  Occupancy taken(60, 30);
  for (int i = 0; i < 400; ++i) {
    const double x = 0.5 * static_cast<double>(random() % 120) + 0.25;
    const double y = 0.5 * static_cast<double>(random() % 60) + 0.25;
    const Kind kinds[] = {Kind::kText, Kind::kLine, Kind::kConcrete};
    taken.take(spot(x, y, 0.1), kinds[random() % 3]);
  }
  for (int width = 1; width <= 40; ++width) {
    const double left = 0.5 * static_cast<double>(random() % 80);
    double sum = 0.0;
    for (int x = 0; x < width; ++x) {
      for (int y = 20; y < 25; ++y) {
        sum += taken.cost(spot(left + 0.5 * x + 0.25, 0.5 * y + 0.25, 0.1));
      }
    }
    const SheetBox box{{left + 0.1, 10.1}, {left + 0.5 * width - 0.1, 12.4}};
    EXPECT_EQ(taken.cost(box), sum) << width;
  }
}

TEST(ToolOccupancy, CostsMoreTheMoreIsCovered) {
  Occupancy taken(100, 50);
  taken.take(SheetBox{{20, 20}, {30, 30}}, Kind::kLine);
  const double quarter = taken.cost(SheetBox{{10, 10}, {24.9, 24.9}});
  const double all = taken.cost(SheetBox{{10, 10}, {40, 40}});
  EXPECT_GT(quarter, 0.0);
  EXPECT_GT(all, 3.0 * quarter);
}

TEST(ToolOccupancy, CostsMostBesideTheSheet) {
  Occupancy taken(100, 50);
  taken.take(SheetBox{{0, 0}, {100, 50}}, Kind::kText);
  const double covered = taken.cost(SheetBox{{10, 10}, {20, 20}});
  for (const PlanePoint by :
       {PlanePoint{200, 0}, PlanePoint{-200, 0}, PlanePoint{0, 200}, PlanePoint{0, -200}}) {
    const double beside = taken.cost(SheetBox{PlanePoint{10, 10} + by, PlanePoint{20, 20} + by});
    EXPECT_GT(beside, 0.0);
  }
  EXPECT_GT(taken.cost(SheetBox{{95, 10}, {105, 20}}), covered);
  const Lettering inside{"text", {20, 20}, 3.0, 0.0, AlignX::kLeft, AlignY::kBase};
  Lettering outside = inside;
  outside.at = {99, 20};
  EXPECT_GT(taken.cost(outside), taken.cost(inside));
}

TEST(ToolOccupancy, FollowsLinesAndArcs) {
  Occupancy taken(200, 200);
  Path path;
  path.moveTo({20, 20});
  path.lineTo({120, 20});
  path.arcTo({120, 60}, std::numbers::pi);  // over (160, 60) to (120, 100)
  taken.take(path, Kind::kLine);
  EXPECT_FALSE(isFreeAt(taken, 70, 20));
  EXPECT_FALSE(isFreeAt(taken, 160, 60));
  EXPECT_FALSE(isFreeAt(taken, 120, 100));
  EXPECT_TRUE(isFreeAt(taken, 120, 60)) << "the centre";
  EXPECT_TRUE(isFreeAt(taken, 70, 24));
  EXPECT_TRUE(isFreeAt(taken, 20, 60));
}

TEST(ToolOccupancy, IsTakenAsWideAsThePenOfAPath) {
  for (const double angle : {0.0, 0.3, 0.8, std::numbers::pi / 2.0}) {
    Path path;
    path.moveTo({100, 75});
    path.lineTo(PlanePoint{100, 75} + turned({60, 0}, angle));
    Occupancy taken(200, 150);
    taken.take(path, Kind::kLine, 12.0);
    for (double along = 0.0; along <= 58.0; along += 0.7) {
      for (const double beside : {-5.0, -2.0, 0.0, 3.0, 5.0}) {
        const PlanePoint at = PlanePoint{100, 75} + turned({along, beside}, angle);
        EXPECT_FALSE(isFreeAt(taken, at.x, at.y)) << angle << ' ' << along << ' ' << beside;
      }
      const PlanePoint off = PlanePoint{100, 75} + turned({along, 10.5}, angle);
      EXPECT_TRUE(isFreeAt(taken, off.x, off.y)) << angle << ' ' << along;
    }
  }
}

TEST(ToolOccupancy, TakesPensOfNoWidthThatIsANumberForThinOnes) {
  Path path;
  path.moveTo({10, 25});
  path.lineTo({90, 25});
  for (const double width : {0.0, -5.0, 0.4, std::numeric_limits<double>::quiet_NaN()}) {
    Occupancy taken(100, 50);
    taken.take(path, Kind::kLine, width);
    EXPECT_FALSE(isFreeAt(taken, 50, 25));
    EXPECT_TRUE(isFreeAt(taken, 50, 27)) << width;
  }
  Occupancy taken(100, 50);
  taken.take(path, Kind::kLine, std::numeric_limits<double>::infinity());
  EXPECT_FALSE(isFreeAt(taken, 50, 27));
}

TEST(ToolOccupancy, FollowsAClosedPathBackToItsBeginning) {
  Occupancy taken(100, 100);
  Path path;
  path.moveTo({20, 20});
  path.lineTo({80, 20});
  path.lineTo({80, 80});
  taken.take(path, Kind::kLine);
  EXPECT_TRUE(isFreeAt(taken, 50, 50));
  path.close();
  taken.take(path, Kind::kLine);
  EXPECT_FALSE(isFreeAt(taken, 50, 50));
}

// A move between two lines leaves no trace.
TEST(ToolOccupancy, DoesNotFollowMoves) {
  Occupancy taken(100, 100);
  Path path;
  path.moveTo({10, 10});
  path.lineTo({20, 10});
  path.moveTo({80, 90});
  path.lineTo({90, 90});
  taken.take(path, Kind::kLine);
  EXPECT_TRUE(isFreeAt(taken, 50, 50));
  EXPECT_FALSE(isFreeAt(taken, 85, 90));
}

TEST(ToolOccupancy, TakesTextsAsTheyLie) {
  for (const double angle : {0.0, 0.6, std::numbers::pi / 2, 2.5}) {
    Occupancy taken(200, 200);
    taken.take(Lettering{"NNNNNNNN", {100, 100}, 6.0, angle, AlignX::kLeft, AlignY::kMiddle});
    const auto along = [&](double distance) {
      return PlanePoint{100, 100} + turned({distance, 0}, angle);
    };
    for (const double distance : {1.0, 10.0, 30.0}) {
      EXPECT_FALSE(isFreeAt(taken, along(distance).x, along(distance).y)) << angle;
    }
    EXPECT_TRUE(isFreeAt(taken, along(-5).x, along(-5).y)) << angle;
    const PlanePoint above = along(10) + turned({0, 8}, angle);
    EXPECT_TRUE(isFreeAt(taken, above.x, above.y)) << angle;
  }
}

TEST(ToolOccupancy, FillsTheInsideOfAnOutlineAndNotItsBays) {
  Occupancy taken(200, 200);
  // An L: the upper right quarter is open.
  taken.fill({{20, 20}, {120, 20}, {120, 70}, {70, 70}, {70, 120}, {20, 120}}, Kind::kConcrete);
  EXPECT_FALSE(isFreeAt(taken, 30, 30));
  EXPECT_FALSE(isFreeAt(taken, 100, 40));
  EXPECT_FALSE(isFreeAt(taken, 40, 100));
  EXPECT_TRUE(isFreeAt(taken, 100, 100));
  EXPECT_TRUE(isFreeAt(taken, 10, 60));
}

TEST(ToolOccupancy, LeavesOutWhatHasNoPlace) {
  const double endless = std::numeric_limits<double>::infinity();
  Occupancy taken(100, 100);
  Path path;
  path.moveTo({10, 10});
  path.lineTo({endless, 10});
  taken.take(path, Kind::kLine);
  taken.fill({{0, 0}, {endless, 0}, {0, 50}}, Kind::kConcrete);
  taken.take(SheetBox::none(), Kind::kText);
  taken.take(Lettering{"x", {endless, 0}, 3.0, 0.0, AlignX::kLeft, AlignY::kBase});
  taken.take(Lettering{"x", {50, 50}, 0.0, 0.0, AlignX::kLeft, AlignY::kBase});
  EXPECT_EQ(taken.cost(SheetBox{{1, 1}, {99, 99}}), 0.0);
}

// Lines that reach a million sheets beyond cost no time and cover what they cross.
TEST(ToolOccupancy, WalksOverTheSheetOnly) {
  Occupancy taken(100, 100);
  Path path;
  path.moveTo({-1e8, -1e8});
  path.lineTo({1e8, 1e8});
  path.moveTo({-1e8, 30});
  path.lineTo({1e8, 30});
  taken.take(path, Kind::kLine);
  EXPECT_FALSE(isFreeAt(taken, 50, 50));
  EXPECT_FALSE(isFreeAt(taken, 90, 30));
  EXPECT_TRUE(isFreeAt(taken, 20, 80));
}

TEST(ToolOccupancy, OfSheetsOfAnySizeAnswersWithinIt) {
  for (const PlanePoint size : {PlanePoint{0, 0}, PlanePoint{1, 1e5}, PlanePoint{20000, 20000},
                                PlanePoint{-5, 7}, PlanePoint{1e300, 1e300}}) {
    Occupancy taken(size.x, size.y);
    taken.take(SheetBox{{-1e9, -1e9}, {1e9, 1e9}}, Kind::kLine);
    EXPECT_GT(taken.cost(spot(0.5, 0.5)), 0.0) << size.x;
  }
}

// A label's cost along a line is none exactly where the line meets nothing.
TEST(ToolOccupancy, TellsWhetherALineMeetsABox) {
  std::mt19937 random(75);
  const auto number = [&] { return 5.0 + static_cast<double>(random() % 9000) / 100.0; };
  Occupancy taken(100, 100);
  taken.take(SheetBox{{40, 40}, {60, 60}}, Kind::kText);
  int met = 0;
  for (int round = 0; round < 500; ++round) {
    const PlanePoint from{number(), number()};
    const PlanePoint to{number(), number()};
    bool hits = false;
    bool isNear = false;
    for (int i = 0; i <= 1000; ++i) {
      const PlanePoint at = from + (to - from) * (i / 1000.0);
      hits = hits || (at.x > 41 && at.x < 59 && at.y > 41 && at.y < 59);
      isNear = isNear || (at.x > 39 && at.x < 61 && at.y > 39 && at.y < 61);
    }
    met += hits ? 1 : 0;
    EXPECT_TRUE(!hits || taken.cost(from, to) > 0.0) << from.x << ' ' << from.y;
    EXPECT_TRUE(isNear || taken.cost(from, to) == 0.0) << from.x << ' ' << from.y;
  }
  EXPECT_GT(met, 50);
}

}  // namespace

}  // namespace quorvan::tool
