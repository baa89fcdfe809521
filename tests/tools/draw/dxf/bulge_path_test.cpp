#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include <tools/draw/dxf/bulge_path.h>

namespace {

using quorvan::tool::BulgePath;
using quorvan::tool::bulgePathsOf;
using quorvan::tool::BulgeVertex;
using quorvan::tool::BulgeWay;
using quorvan::tool::Path;
using quorvan::tool::PlanePoint;
using quorvan::tool::waysOf;

constexpr double kBulgePi = std::numbers::pi;

BulgePath onlyBulgePath(const Path& path) {
  const std::vector<BulgePath> paths = bulgePathsOf(path);
  EXPECT_EQ(paths.size(), 1U);
  return paths.empty() ? BulgePath() : paths.front();
}

TEST(ToolBulgePath, HasLinesWithoutABulge) {
  Path path;
  path.moveTo({0, 0});
  path.lineTo({10, 0});
  path.lineTo({10, 5});
  const BulgePath result = onlyBulgePath(path);
  EXPECT_EQ(result.vertices, (std::vector<BulgeVertex>{{{0, 0}}, {{10, 0}}, {{10, 5}}}));
  EXPECT_FALSE(result.isClosed);
}

TEST(ToolBulgePath, HasTheTangentOfAQuarterOfTheSweep) {
  Path path;
  path.moveTo({1, 0});
  path.arcTo({0, 0}, kBulgePi / 2.0);
  path.arcTo({0, 0}, -kBulgePi / 2.0);
  const BulgePath result = onlyBulgePath(path);
  ASSERT_EQ(result.vertices.size(), 3U);
  EXPECT_NEAR(result.vertices[0].bulge, std::tan(kBulgePi / 8.0), 1e-12);
  EXPECT_NEAR(result.vertices[1].bulge, -std::tan(kBulgePi / 8.0), 1e-12);
}

TEST(ToolBulgePath, HasAHalfTurnInOne) {
  Path path;
  path.moveTo({1, 0});
  path.arcTo({0, 0}, kBulgePi);
  const BulgePath result = onlyBulgePath(path);
  ASSERT_EQ(result.vertices.size(), 2U);
  EXPECT_NEAR(result.vertices[0].bulge, 1.0, 1e-12);
}

TEST(ToolBulgePath, CutsWhatGoesFurther) {
  Path path;
  path.moveTo({1, 0});
  path.arcTo({0, 0}, 2.0 * kBulgePi);
  const BulgePath result = onlyBulgePath(path);
  ASSERT_EQ(result.vertices.size(), 3U);
  EXPECT_NEAR(result.vertices[1].at.x, -1.0, 1e-12);
  EXPECT_NEAR(result.vertices[0].bulge, 1.0, 1e-12);
  EXPECT_NEAR(result.vertices[1].bulge, 1.0, 1e-12);
}

TEST(ToolBulgePath, ClosesWithoutTheFirstCornerTwice) {
  Path path;
  path.moveTo({0, 0});
  path.lineTo({4, 0});
  path.lineTo({4, 3});
  path.lineTo({0, 0});
  path.close();
  const BulgePath result = onlyBulgePath(path);
  EXPECT_TRUE(result.isClosed);
  EXPECT_EQ(result.vertices.size(), 3U);
}

TEST(ToolBulgePath, LeavesOutWhatGoesNowhere) {
  Path path;
  path.moveTo({1, 1});
  path.lineTo({1, 1});
  path.lineTo({2, 1});
  path.moveTo({7, 7});
  const std::vector<BulgePath> paths = bulgePathsOf(path);
  ASSERT_EQ(paths.size(), 2U);
  EXPECT_EQ(paths[0].vertices.size(), 2U);
  EXPECT_EQ(paths[1].vertices.size(), 1U);
}

TEST(ToolBulgePath, GivesItsArcsBack) {
  Path path;
  path.moveTo({5, 2});
  path.arcTo({2, 2}, -1.25);
  path.lineTo({9, 9});
  const std::vector<BulgeWay> ways = waysOf(onlyBulgePath(path));
  ASSERT_EQ(ways.size(), 2U);
  EXPECT_NEAR(ways[0].center.x, 2.0, 1e-12);
  EXPECT_NEAR(ways[0].center.y, 2.0, 1e-12);
  EXPECT_NEAR(ways[0].radius, 3.0, 1e-12);
  EXPECT_NEAR(ways[0].sweep, -1.25, 1e-12);
  EXPECT_FALSE(ways[1].isArc());
  EXPECT_EQ(ways[1].to, (PlanePoint{9, 9}));
}

TEST(ToolBulgePath, GoesOnFromTheLastCornerOfAClosedOneToTheFirst) {
  const std::vector<BulgeWay> ways = waysOf({{{{0, 0}}, {{2, 0}}, {{2, 2}}}, true});
  ASSERT_EQ(ways.size(), 3U);
  EXPECT_EQ(ways[2].from, (PlanePoint{2, 2}));
  EXPECT_EQ(ways[2].to, (PlanePoint{0, 0}));
}

}  // namespace
