#include <tools/diff/candidates.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace quorvan::tool {

namespace {

// The places that a look-up visits, none of them taken.
std::vector<std::uint32_t> visited(Candidates& candidates, const std::string& text,
                                   const Coordinates& point) {
  std::vector<std::uint32_t> places;
  candidates.visit(
      text, point, [](std::uint32_t) { return true; },
      [&](std::uint32_t place) {
        places.push_back(place);
        return false;
      });
  return places;
}

TEST(ToolDiffCandidates, AreFoundWithinTheToleranceOnEverySideOfEveryCell) {
  std::mt19937 random(61);
  const auto between = [&](double least, double most) {
    return least + (most - least) * static_cast<double>(random() % 1000001) / 1e6;
  };
  for (const double tolerance : {0.001, 0.5, 25.0}) {
    for (int round = 0; round < 400; ++round) {
      // Near a multiple of any cell, so that neighbours often lie in different ones.
      const auto coordinate = [&] {
        return 16.0 * tolerance * static_cast<double>(random() % 200) - 1600.0 * tolerance +
               between(-tolerance, tolerance);
      };
      const Coordinates point{coordinate(), coordinate(), coordinate()};
      const auto near = [&] { return 0.999 * between(-tolerance, tolerance); };
      Candidates candidates(tolerance);
      candidates.add("bar", point, 7);
      const Coordinates other{point.x + near(), point.y + near(), point.z + near()};
      ASSERT_EQ(visited(candidates, "bar", other), std::vector<std::uint32_t>{7})
          << tolerance << ": " << point.x << ' ' << point.y << ' ' << point.z;
    }
  }
}

TEST(ToolDiffCandidates, AreFoundAtTheSamePointWithoutATolerance) {
  Candidates candidates(0.0);
  candidates.add("bar", {0.0, -5.5, 1e9}, 1);
  EXPECT_EQ(visited(candidates, "bar", {-0.0, -5.5, 1e9}), std::vector<std::uint32_t>{1});
  EXPECT_TRUE(visited(candidates, "bar", {0.001, -5.5, 1e9}).empty());
}

TEST(ToolDiffCandidates, AreNotLookedForFarAway) {
  Candidates candidates(0.5);
  candidates.add("bar", {0, 0, 0}, 1);
  for (const Coordinates& away : {Coordinates{20, 0, 0}, Coordinates{0, -20, 0},
                                  Coordinates{0, 0, 20}, Coordinates{1e6, 1e6, 1e6}}) {
    EXPECT_TRUE(visited(candidates, "bar", away).empty()) << away.x << ' ' << away.y;
  }
}

TEST(ToolDiffCandidates, OfAnotherTextAreNone) {
  Candidates candidates(0.5);
  candidates.add("bar", {1, 2, 3}, 1);
  candidates.add("", {1, 2, 3}, 2);
  EXPECT_EQ(visited(candidates, "bar", {1, 2, 3}), std::vector<std::uint32_t>{1});
  EXPECT_EQ(visited(candidates, "", {1, 2, 3}), std::vector<std::uint32_t>{2});
  EXPECT_TRUE(visited(candidates, "ba", {1, 2, 3}).empty());
}

TEST(ToolDiffCandidates, ComeInTheOrderInWhichTheyWereAddedAndOnceEach) {
  Candidates candidates(0.5);
  for (const std::uint32_t place : {5U, 3U, 9U, 3U}) {
    candidates.add("bar", {0, 0, 0}, place);
  }
  EXPECT_EQ(visited(candidates, "bar", {0.1, -0.1, 0.1}), (std::vector<std::uint32_t>{5, 3, 9, 3}));
}

TEST(ToolDiffCandidates, AreLookedAtUntilOneWillDo) {
  Candidates candidates(0.5);
  for (std::uint32_t place = 0; place < 5; ++place) {
    candidates.add("bar", {0, 0, 0}, place);
  }
  std::vector<std::uint32_t> looked;
  candidates.visit(
      "bar", {0, 0, 0}, [](std::uint32_t) { return true; },
      [&](std::uint32_t place) {
        looked.push_back(place);
        return place == 2;
      });
  EXPECT_EQ(looked, (std::vector<std::uint32_t>{0, 1, 2}));
}

TEST(ToolDiffCandidates, ThatAreTakenArePassedOverWhereverTheyStand) {
  Candidates candidates(0.5);
  for (std::uint32_t place = 0; place < 6; ++place) {
    candidates.add("bar", {0, 0, 0}, place);
  }
  const auto isFree = [](std::uint32_t place) { return place != 0 && place != 1 && place != 4; };
  for (int again = 0; again < 2; ++again) {
    std::vector<std::uint32_t> looked;
    candidates.visit("bar", {0, 0, 0}, isFree, [&](std::uint32_t place) {
      looked.push_back(place);
      return false;
    });
    EXPECT_EQ(looked, (std::vector<std::uint32_t>{2, 3, 5}));
  }
}

TEST(ToolDiffCandidates, AreLookedAtSoManyAndNoMore) {
  Candidates candidates(0.5);
  const auto most = static_cast<std::uint32_t>(Candidates::kMostLooks);
  for (std::uint32_t place = 0; place < 3 * most; ++place) {
    candidates.add("bar", {0, 0, 0}, place);
  }
  EXPECT_EQ(visited(candidates, "bar", {0, 0, 0}).size(), Candidates::kMostLooks);
  // Those that are taken do not count, wherever they stand.
  std::vector<std::uint32_t> looked;
  candidates.visit(
      "bar", {0, 0, 0}, [](std::uint32_t place) { return place % 2 == 1; },
      [&](std::uint32_t place) {
        looked.push_back(place);
        return false;
      });
  EXPECT_EQ(looked.size(), Candidates::kMostLooks);
  EXPECT_EQ(looked.back(), 2 * most - 1);
}

}  // namespace

}  // namespace quorvan::tool
