#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include <tools/draw/dxf/fill_pieces.h>

namespace {

using quorvan::tool::FillCutter;
using quorvan::tool::FillPiece;
using quorvan::tool::PlanePoint;

std::vector<FillPiece> cutWhole(const std::vector<PlanePoint>& outline) {
  bool isWhole = false;
  std::vector<FillPiece> pieces = FillCutter().cut(outline, isWhole);
  EXPECT_TRUE(isWhole);
  return pieces;
}

double twiceAreaOf(const PlanePoint* corners, std::size_t count) {
  double twice = 0.0;
  for (std::size_t i = 0; i < count; ++i) {
    twice += crossOf(corners[i], corners[(i + 1) % count]);
  }
  return twice;
}

double coveredBy(const std::vector<FillPiece>& pieces) {
  double area = 0.0;
  for (const FillPiece& piece : pieces) {
    area += std::abs(twiceAreaOf(piece.data(), piece.size())) / 2.0;
  }
  return area;
}

TEST(ToolFillPieces, AreOneForATriangleAndForAConvexQuadrangle) {
  EXPECT_EQ(cutWhole({{0, 0}, {4, 0}, {0, 3}}),
            (std::vector<FillPiece>{{{{0, 0}, {4, 0}, {0, 3}, {0, 3}}}}));
  EXPECT_EQ(cutWhole({{0, 0}, {4, 0}, {4, 3}, {0, 3}, {0, 0}}),
            (std::vector<FillPiece>{{{{0, 0}, {4, 0}, {4, 3}, {0, 3}}}}));
}

TEST(ToolFillPieces, AreNoneWhereNothingIsEnclosed) {
  EXPECT_TRUE(cutWhole({}).empty());
  EXPECT_TRUE(cutWhole({{1, 1}, {2, 2}}).empty());
  EXPECT_TRUE(cutWhole({{1, 1}, {1, 1}, {1, 1}, {1, 1}}).empty());
  EXPECT_NEAR(coveredBy(cutWhole({{0, 0}, {1, 1}, {2, 2}, {3, 3}, {1, 1}})), 0.0, 1e-12);
}

TEST(ToolFillPieces, CoverAnOutlineThatBendsInwards) {
  const std::vector<PlanePoint> arrow = {{0, 0}, {4, 2}, {0, 4}, {1, 2}};
  EXPECT_NEAR(coveredBy(cutWhole(arrow)), 6.0, 1e-12);
  EXPECT_EQ(cutWhole(arrow).size(), 2U);
}

TEST(ToolFillPieces, AreOfOutlinesOfWhichItIsKnownWhetherTheyCrossThemselves) {
  EXPECT_TRUE(FillCutter().crossesItself({{0, 0}, {2, 2}, {2, 0}, {0, 2}}));
  EXPECT_FALSE(FillCutter().crossesItself({{0, 0}, {4, 2}, {0, 4}, {1, 2}}));
  EXPECT_FALSE(FillCutter().crossesItself({{0, 0}, {2, 2}, {2, 0}}));
}

TEST(ToolFillPieces, CoverOnceWhatAnOutlineCrossesItselfAround) {
  // Two triangles that meet where the sides cross.
  EXPECT_NEAR(coveredBy(cutWhole({{0, 0}, {2, 2}, {2, 0}, {0, 2}})), 2.0, 1e-9);
  // A star of five points in one go: its middle is gone round twice, and filled.
  std::vector<PlanePoint> star;
  for (int i = 0; i < 5; ++i) {
    const double angle = i * 2 * 2 * std::numbers::pi / 5;
    star.push_back({std::cos(angle), std::sin(angle)});
  }
  EXPECT_NEAR(coveredBy(cutWhole(star)), 1.12256994, 1e-6);
}

// Corners round a middle, each at a distance of its own.
TEST(ToolFillPieces, CoverOutlinesMadeByChance) {
  std::mt19937 chance(7);
  std::uniform_real_distribution<double> reach(0.1, 10.0);
  for (int round = 0; round < 200; ++round) {
    std::vector<PlanePoint> outline;
    const int count = 3 + round % 40;
    for (int i = 0; i < count; ++i) {
      const double angle = i * 2 * std::numbers::pi / count;
      outline.push_back(PlanePoint{std::cos(angle), std::sin(angle)} * reach(chance));
    }
    const double area = std::abs(twiceAreaOf(outline.data(), outline.size())) / 2.0;
    EXPECT_NEAR(coveredBy(cutWhole(outline)), area, 1e-6) << round;
  }
}

// As many corners as an outline of a file can have.
TEST(ToolFillPieces, CostLittleForALongRoundOutline) {
  std::vector<PlanePoint> outline;
  for (int i = 0; i < 32767; ++i) {
    const double angle = i * 2 * std::numbers::pi / 32767;
    outline.push_back({1000 * std::cos(angle), 1000 * std::sin(angle)});
  }
  EXPECT_EQ(cutWhole(outline).size(), 32765U);
}

TEST(ToolFillPieces, GiveUpWhatIsTooIntricate) {
  // A comb whose teeth turn in a spiral: nearly every corner points inwards.
  std::vector<PlanePoint> comb;
  for (int i = 0; i < 16000; ++i) {
    comb.push_back({static_cast<double>(i), i % 2 == 0 ? 0.0 : 1000.0});
  }
  for (int i = 16000; i-- > 0;) {
    comb.push_back({i + 0.25, i % 2 == 0 ? 0.5 : 1000.5});
  }
  FillCutter cutter;
  bool isWhole = true;
  for (int i = 0; i < 40 && isWhole; ++i) {
    static_cast<void>(cutter.cut(comb, isWhole));
  }
  EXPECT_FALSE(isWhole);
}

}  // namespace
