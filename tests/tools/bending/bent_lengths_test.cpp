// Lengths of bent bars by chance, against the geometry of their bends.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include <tests/tools/bending/sample_bars.h>
#include <tools/bending/bent_bar.h>

namespace quorvan::tool {

namespace {

constexpr double kNearly = 1e-6;

struct RandomShape {
  double diameter = 0.0;
  std::vector<double> legs;
  std::vector<double> turns;  // degrees
};

// Long legs, turns between 5 degrees and a right angle to either side.
RandomShape randomShape(std::mt19937& random) {
  constexpr double kDiameters[] = {6, 8, 10, 12, 14, 16, 20, 25, 32, 40};
  RandomShape shape;
  shape.diameter = kDiameters[random() % 10];
  const std::size_t legs = 2 + random() % 5;
  for (std::size_t i = 0; i < legs; ++i) {
    shape.legs.push_back(700.0 + static_cast<double>(random() % 3000));
  }
  for (std::size_t i = 0; i + 1 < legs; ++i) {
    const double turn = 5.0 + static_cast<double>(random() % 86);
    shape.turns.push_back(random() % 2 == 0 ? turn : -turn);
  }
  return shape;
}

double halfTangent(double degrees) {
  return std::tan(std::abs(degrees) * std::numbers::pi / 360.0);
}

BentBar bentOf(const RandomShape& shape) {
  return test::bent(test::polygonBar(shape.diameter, shape.legs, shape.turns));
}

// Each bend cuts its corner: twice the tangent is not walked, the arc is.
TEST(ToolBentLengths, FollowEveryBendOnItsArc) {
  std::mt19937 random(111);
  for (int round = 0; round < 300; ++round) {
    const RandomShape shape = randomShape(random);
    const BentBar bar = bentOf(shape);
    const double roller = (shape.diameter <= 16 ? 4 : 7) * shape.diameter;
    const double radius = (roller + shape.diameter) / 2.0;
    double axis = 0.0;
    double centre = 0.0;
    for (const double leg : shape.legs) {
      axis += leg;
    }
    centre = axis;
    for (const double turn : shape.turns) {
      centre -= radius * (2.0 * halfTangent(turn) - std::abs(turn) * std::numbers::pi / 180.0);
    }
    EXPECT_NEAR(bar.axisLength(), axis, kNearly) << round;
    EXPECT_NEAR(bar.centreLine(), centre, kNearly) << round;
    EXPECT_LT(bar.centreLine(), bar.axisLength());
    EXPECT_TRUE(bar.fits);
  }
}

// Over everything: at each bend half a bar's width by the tangent of half the angle is added,
// whichever way it goes.
TEST(ToolBentLengths, HaveTheirOutsideDimensionsByTheirAngles) {
  std::mt19937 random(112);
  for (int round = 0; round < 300; ++round) {
    const RandomShape shape = randomShape(random);
    const BentBar bar = bentOf(shape);
    ASSERT_EQ(bar.legs.size(), shape.legs.size());
    for (std::size_t i = 0; i < bar.legs.size(); ++i) {
      double outside = shape.legs[i];
      if (i > 0) {
        outside += shape.diameter / 2.0 * halfTangent(shape.turns[i - 1]);
      }
      if (i < shape.turns.size()) {
        outside += shape.diameter / 2.0 * halfTangent(shape.turns[i]);
      }
      EXPECT_NEAR(bar.legs[i].axis, shape.legs[i], kNearly) << round;
      EXPECT_NEAR(bar.legs[i].outside, outside, kNearly) << round;
    }
  }
}

TEST(ToolBentLengths, AreTheSameFromTheOtherEndAndFromBehind) {
  std::mt19937 random(113);
  for (int round = 0; round < 100; ++round) {
    const RandomShape shape = randomShape(random);
    RandomShape turned = shape;
    std::reverse(turned.legs.begin(), turned.legs.end());
    std::reverse(turned.turns.begin(), turned.turns.end());
    RandomShape mirrored = shape;
    for (double& turn : mirrored.turns) {
      turn = -turn;
    }
    const BentBar bar = bentOf(shape);
    for (const RandomShape& other : {turned, mirrored}) {
      EXPECT_NEAR(bentOf(other).centreLine(), bar.centreLine(), kNearly) << round;
    }
    const BentBar reversed = bentOf(turned);
    for (std::size_t i = 0; i < bar.legs.size(); ++i) {
      EXPECT_NEAR(reversed.legs[bar.legs.size() - 1 - i].outside, bar.legs[i].outside, kNearly);
    }
  }
}

TEST(ToolBentLengths, AreTheSameInEveryUnit) {
  std::mt19937 random(114);
  for (int round = 0; round < 50; ++round) {
    const RandomShape shape = randomShape(random);
    const Bar bar = test::polygonBar(shape.diameter, shape.legs, shape.turns);
    const double expected = bend(bar, kLengthUnits[0], {}).centreLine();
    for (const LengthUnit& unit : kLengthUnits) {
      Bar other = bar;
      other.diameter = unit.ofMillimetres(bar.diameter);
      for (Coordinates& point : other.line) {
        point = {unit.ofMillimetres(point.x), unit.ofMillimetres(point.y),
                 unit.ofMillimetres(point.z)};
      }
      EXPECT_NEAR(bend(other, unit, {}).centreLine(), expected, 1e-5) << unit.name;
    }
  }
}

TEST(ToolBentLengths, OfHooksCountFromTheCornerOrBehindTheBend) {
  for (const double diameter : {8.0, 12.0, 20.0}) {
    Bar bar = test::polygonBar(diameter, {2000}, {});
    bar.shape = BarShape::kStraight;
    bar.hooks = {{{300, 90}, {0, 0}}};
    BendingRules corner;
    BendingRules straight;
    straight.hooks = HookMeaning::kStraight;
    const double radius = ((diameter <= 16 ? 4 : 7) + 1) * diameter / 2.0;
    EXPECT_NEAR(test::bent(bar, corner).legs.front().straight, 300 - radius, kNearly) << diameter;
    EXPECT_NEAR(test::bent(bar, straight).legs.front().straight, 300, kNearly) << diameter;
    EXPECT_NEAR(test::bent(bar, straight).centreLine() - test::bent(bar, corner).centreLine(),
                radius, kNearly);
  }
}

TEST(ToolBentLengths, OfRingsAreTheirTurnAndTheirOverlap) {
  Bar ring;
  ring.shape = BarShape::kFrameCirc;
  ring.diameter = 10;
  ring.line = {{200, 0, 0}};
  ring.radius = 200;
  ring.overlap = 300;
  const double turn = 2.0 * std::numbers::pi;
  EXPECT_NEAR(test::bent(ring).centreLine(), turn * 200 + 300, kNearly);
  BendingRules inner;
  inner.ring = RingRadius::kInner;
  EXPECT_NEAR(test::bent(ring, inner).ringRadius, 205, kNearly);
  EXPECT_NEAR(test::bent(ring, inner).centreLine(), turn * 205 + 300, kNearly);
}

TEST(ToolBentLengths, BendCloserWhereALegHasNoRoom) {
  // The tangent of a right angle of 12 mm on its roller is 30.
  EXPECT_TRUE(bentOf({12, {500, 60, 500}, {90, 90}}).fits);
  const BentBar tight = bentOf({12, {500, 59, 500}, {90, 90}});
  EXPECT_FALSE(tight.fits);
  EXPECT_GE(tight.legs[1].straight, -kNearly);
  EXPECT_TRUE(bentOf({12, {30, 500}, {90}}).fits);
  EXPECT_FALSE(bentOf({12, {29, 500}, {90}}).fits);
}

TEST(ToolRollers, ChangeAboveSixteenMillimetres) {
  EXPECT_EQ(usualRoller(16), 64);
  EXPECT_EQ(usualRoller(16.0000001), 4 * 16.0000001) << "a decimal of another unit";
  EXPECT_EQ(usualRoller(16.001), 7 * 16.001);
  EXPECT_EQ(usualRoller(0), 0);
}

}  // namespace

}  // namespace quorvan::tool
