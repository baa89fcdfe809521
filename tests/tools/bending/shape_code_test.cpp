// Shape codes, held against the printed table of their lengths.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>
#include <numbers>
#include <random>
#include <sstream>

#include <tests/support/test_data.h>
#include <tests/tools/bending/sample_bars.h>
#include <tools/bending/shape_code.h>

namespace {

using quorvan::test::bent;
using quorvan::test::polygonBar;
using quorvan::tool::Bar;
using quorvan::tool::BarShape;
using quorvan::tool::BendingRules;
using quorvan::tool::BentBar;
using quorvan::tool::Dimension;
using quorvan::tool::Hook;
using quorvan::tool::Mandrel;
using quorvan::tool::ShapeCode;
using quorvan::tool::shapeCodeOf;

// A row of the table, and a bar that it is for: L and R turn by a right angle, H by one and a half,
// U by two. A chair stands in space.
struct Row {
  std::string code;
  std::map<char, double> factors;  // by letter, r and d among them
  std::string legs;
  std::string turns;
};

// "2A+0.57B-0.5r-d".
std::map<char, double> factorsOf(const std::string& formula) {
  std::map<char, double> factors;
  std::string number;
  double sign = 1.0;
  for (const char unit : formula) {
    if (unit == '+' || unit == '-') {
      sign = unit == '-' ? -1.0 : 1.0;
    } else if ((unit >= '0' && unit <= '9') || unit == '.') {
      number += unit;
    } else {
      factors[unit] += sign * (number.empty() ? 1.0 : std::stod(number));
      number.clear();
    }
  }
  return factors;
}

std::vector<Row> table() {
  std::ifstream file(quorvan::test::dataPath("tools/data/shape_lengths.csv"));
  std::vector<Row> rows;
  std::string line;
  std::getline(file, line);
  while (std::getline(file, line)) {
    std::istringstream fields(line);
    Row row;
    std::string formula;
    std::getline(fields, row.code, ',');
    std::getline(fields, formula, ',');
    std::getline(fields, row.legs, ',');
    std::getline(fields, row.turns, ',');
    row.factors = factorsOf(formula);
    rows.push_back(std::move(row));
  }
  EXPECT_EQ(rows.size(), 17U);
  return rows;
}

// The angle of a hook: what turns farther than a corner can is filed as one.
double hookAngleOf(char turn) {
  return turn == 'U' ? 180.0 : turn == 'H' ? 135.0 : 0.0;
}

// Takes a hook from the end of the bar where one is.
Hook hookFrom(std::vector<double>& legs, std::string& turns, bool atStart) {
  const double angle = turns.empty() ? 0.0 : hookAngleOf(atStart ? turns.front() : turns.back());
  if (angle == 0.0) {
    return {};
  }
  const Hook hook{atStart ? legs.front() : legs.back(), angle};
  legs.erase(atStart ? legs.begin() : std::prev(legs.end()));
  turns.erase(atStart ? turns.begin() : std::prev(turns.end()));
  return hook;
}

// Feet to both sides of an upright U.
Bar chairOf(double diameter, const std::vector<double>& legs) {
  Bar bar;
  bar.shape = BarShape::kPolygon;
  bar.diameter = diameter;
  bar.line = {{0, -legs[0], 0},      {0, 0, 0},         {0, 0, legs[1]},
              {legs[2], 0, legs[1]}, {legs[2], 0, 0.0}, {legs[2], legs[4], 0}};
  return bar;
}

Bar barOf(const Row& row, double diameter, std::mt19937& chance) {
  std::uniform_real_distribution<double> length(40.0 * diameter, 200.0 * diameter);
  std::map<char, double> byLetter;
  std::vector<double> legs;
  for (const char letter : row.legs) {
    legs.push_back(byLetter.emplace(letter, length(chance)).first->second);
  }
  if (row.turns == "chair") {
    return chairOf(diameter, legs);
  }
  std::string turns = row.turns;
  const Hook first = hookFrom(legs, turns, true);
  const Hook last = hookFrom(legs, turns, false);
  std::vector<double> angles;
  angles.reserve(turns.size());
  for (const char turn : turns) {
    angles.push_back(turn == 'L' ? 90.0 : -90.0);
  }
  Bar bar = polygonBar(diameter, legs, angles);
  bar.side = true;
  bar.hooks = {first, last};
  return bar;
}

double lengthByTable(const Row& row, const BentBar& bar) {
  std::map<char, double> values{{'r', bar.roller / 2.0}, {'d', bar.diameter}};
  for (std::size_t i = 0; i < row.legs.size(); ++i) {
    values.emplace(row.legs[i], bar.legs[i].outside);
  }
  double length = 0.0;
  for (const auto& [letter, factor] : row.factors) {
    // The letter without a leg is the outer diameter of the semicircle.
    const double semicircle = bar.roller + 2.0 * bar.diameter;
    length += factor * (values.contains(letter) ? values[letter] : semicircle);
  }
  return length;
}

// How far the formula may be from the centre line: by bends of a right angle, and by hooks, whose
// share it rounds to whole diameters.
double toleranceOf(const Row& row, const BentBar& bar) {
  constexpr double kForBend = 1.5;    // mm
  constexpr double kForHooks = 0.45;  // diameters
  const bool hasHooks = row.turns.find('H') != std::string::npos || row.turns.starts_with('U');
  return kForBend * std::max(1.0, static_cast<double>(bar.bends.size())) +
         (hasHooks && row.turns.size() > 1 ? kForHooks * bar.diameter : 0.0);
}

TEST(ShapeCode, FormulasOfRightAnglesAreTheCentreLine) {
  std::mt19937 chance(1);
  for (const Row& row : table()) {
    const bool isLink = row.turns.find('H') != std::string::npos;
    for (const double diameter : {6.0, 8.0, 10.0, 12.0, 16.0, 20.0, 25.0, 32.0, 40.0}) {
      // Hooks of 135 degrees are for links, which are not bent of thicker bars.
      for (int i = 0; i < (isLink && diameter > 16.0 ? 0 : 20); ++i) {
        const BentBar bar = bent(barOf(row, diameter, chance));
        ASSERT_TRUE(bar.fits);
        ASSERT_NEAR(bar.centreLine(), lengthByTable(row, bar), toleranceOf(row, bar))
            << "code " << row.code << ", diameter " << diameter;
      }
    }
  }
}

TEST(ShapeCode, FindsTheCodeOfEachFormAndItsLengthByTheTable) {
  std::mt19937 chance(2);
  for (const Row& row : table()) {
    for (int i = 0; i < 20; ++i) {
      const BentBar bar = bent(barOf(row, 12.0, chance));
      const ShapeCode code = shapeCodeOf(bar, 0.0);
      ASSERT_EQ(code.number, std::stoi(row.code));
      ASSERT_TRUE(code.isByFormula);
      ASSERT_EQ(code.legs, row.legs);
      ASSERT_NEAR(code.length, lengthByTable(row, bar), 1e-6) << row.code;
    }
  }
}

// 01 is 00 in another length; 67 and 77 are arcs of a radius that no element has; 33 is one, too,
// but over the usual roller, where it can be drawn with two corners for each half turn.
TEST(ShapeCode, TakesTheStadiumOverTheUsualRollerForTheLinkOfTheSameLength) {
  const double across = 12.0 * 4.0 + 12.0;
  const BentBar bar =
      bent(polygonBar(12, {250, across, 600, across, 600, across, 250}, {90, 90, 90, 90, 90, 90}));
  EXPECT_EQ(shapeCodeOf(bar, 0.0).number, 63);
  const double outer = across + 12.0;
  const double stadium = 2.0 * 612.0 + 1.7 * outer + 2.0 * 256.0 - 4.0 * 12.0;
  EXPECT_NEAR(shapeCodeOf(bar, 0.0).length, stadium, 0.5 * 12.0);
}

// What is a chair but for one foot, or for a leg, is not one.
TEST(ShapeCode, IsThatOfTheChairWithAFootToEachSideAlone) {
  const Bar chair = chairOf(12, {300, 400, 500, 400, 200});
  EXPECT_EQ(shapeCodeOf(bent(chair), 5.0).number, 98);
  Bar sameSide = chair;
  sameSide.line[5].y = -200;
  EXPECT_EQ(shapeCodeOf(bent(sameSide), 5.0).number, 99);
  Bar uneven = chair;
  uneven.line[4].z = 50;
  uneven.line[5].z = 50;
  EXPECT_EQ(shapeCodeOf(bent(uneven), 5.0).number, 99);
  Bar turned = chair;
  std::ranges::reverse(turned.line);
  EXPECT_EQ(shapeCodeOf(bent(turned), 5.0).number, 98);
}

std::string letters(const ShapeCode& code) {
  std::string text;
  for (const Dimension& dimension : code.dimensions) {
    text += (text.empty() ? "" : " ") + std::string(1, dimension.letter) +
            (dimension.isFree ? "*" : "") + std::to_string(std::lround(dimension.value));
  }
  return text;
}

std::string coded(const BentBar& bar) {
  const ShapeCode code = shapeCodeOf(bar, 5.0);
  return std::to_string(code.number) + ": " + letters(code);
}

TEST(ShapeCode, GivesTheDimensionsOfSlopingLegs) {
  EXPECT_EQ(coded(bent(polygonBar(12, {600, 400, 800}, {30, -30}))),
            "26: A600 B405 C*800 D200 E350");
  EXPECT_EQ(coded(bent(polygonBar(12, {600, 400, 800}, {30, 60}))),
            "24: A600 B405 C*805 D200 E350");
  EXPECT_EQ(coded(bent(polygonBar(12, {600, 900, 700}, {30, 45}))),
            "25: A600 B700 C300 D495 E*905");
  EXPECT_EQ(coded(bent(polygonBar(12, {600, 900, 700}, {30, 90}))),
            "27: A600 B910 C*705 D300 E520");
  EXPECT_EQ(coded(bent(polygonBar(12, {600, 900, 700}, {-30, 90}))),
            "28: A600 B910 C*705 D300 E520");
  EXPECT_EQ(coded(bent(polygonBar(12, {500, 300, 700, 300, 600}, {45, -45, -45, 45}))),
            "46: A500 B305 C705 D215 E*600");
  EXPECT_EQ(coded(bent(polygonBar(12, {500, 300, 700, 400}, {45, -45, -90}))),
            "34: A500 B305 C710 D215 E*405 F215");
  EXPECT_EQ(coded(bent(polygonBar(12, {500, 300, 700, 400}, {45, -45, 90}))),
            "35: A500 B305 C710 D215 E*405 F215");
  EXPECT_EQ(coded(bent(polygonBar(12, {500, 700, 600, 400}, {45, 90, 90}))),
            "36: A500 B710 C610 D*405 E355 F355");
}

// Legs of which one slopes back over the other, and a link with one side that slopes. Beyond a
// right angle a leg goes to the outermost point of its bend, short of the corner.
TEST(ShapeCode, GivesTheDimensionsOfSlopesThatTurnBack) {
  const BentBar back = bent(polygonBar(12, {600, 800, 500}, {120, 60}));
  EXPECT_EQ(coded(back), "29: A585 B790 C*505 D685 E395");
  EXPECT_NEAR(shapeCodeOf(back, 0.0).length, back.centreLine(), 1e-9);
  EXPECT_EQ(coded(bent(polygonBar(12, {600, 800, 500}, {120, 50}))), "99: ");
  const double slope = 500.0 / std::sin(std::numbers::pi / 3.0);
  const double top = 900.0 - 500.0 / std::tan(std::numbers::pi / 3.0);
  const BentBar link =
      bent(polygonBar(12, {144, 900, slope, top, 500, 144}, {90, 120, 60, 90, 90}));
  EXPECT_EQ(coded(link), "56: A890 B510 C620 D*565 E150");
}

TEST(ShapeCode, IsFoundFromBothEndsAndBothSides) {
  EXPECT_EQ(coded(bent(polygonBar(12, {700, 900, 600}, {90, 30}))),
            coded(bent(polygonBar(12, {600, 900, 700}, {-30, -90}))));
  EXPECT_EQ(shapeCodeOf(bent(polygonBar(12, {400, 500, 600, 700}, {-90, 90, 90})), 5.0).number, 32);
}

// The border: at 45 degrees by the formula, above along the centre line.
TEST(ShapeCode, TakesTheCentreLineForAnApproximateCodeAboveFortyFiveDegrees) {
  const BentBar slight = bent(polygonBar(16, {600, 900}, {45}));
  EXPECT_EQ(shapeCodeOf(slight, 0.0).number, 15);
  EXPECT_TRUE(shapeCodeOf(slight, 0.0).isByFormula);
  const BentBar steep = bent(polygonBar(16, {600, 900}, {46}));
  EXPECT_EQ(shapeCodeOf(steep, 0.0).number, 15);
  EXPECT_FALSE(shapeCodeOf(steep, 0.0).isByFormula);
  EXPECT_NEAR(shapeCodeOf(steep, 0.0).length, steep.centreLine(), 1e-9);
  EXPECT_EQ(shapeCodeOf(bent(polygonBar(16, {600, 900}, {120})), 5.0).number, 14);
}

TEST(ShapeCode, IsThatOfTheLargeRadiusForOneRightAngleOverALargerRoller) {
  BendingRules rules;
  rules.mandrel = Mandrel{0.0, 400.0};
  const BentBar bar = bent(polygonBar(16, {600, 900}, {90}), rules);
  EXPECT_EQ(coded(bar), "12: A610 B*910 R200");
  EXPECT_NEAR(shapeCodeOf(bar, 0.0).length, bar.centreLine(), 1.5);
  EXPECT_EQ(shapeCodeOf(bent(polygonBar(16, {600, 900, 600}, {90, 90}), rules), 5.0).number, 99);
}

TEST(ShapeCode, IsAnySketchForWhatFitsNone) {
  EXPECT_EQ(coded(bent(polygonBar(12, {500, 600, 700, 800, 900}, {20, 30, 40, 50}))), "99: ");
  Bar spatial = polygonBar(12, {500, 600}, {90});
  spatial.line.push_back({spatial.line[2].x, spatial.line[2].y, 300});
  EXPECT_EQ(coded(bent(spatial)), "99: ");
}

Bar ring(double overlap) {
  Bar bar;
  bar.shape = BarShape::kFrameCirc;
  bar.diameter = 10;
  bar.radius = 195;
  bar.overlap = overlap;
  return bar;
}

TEST(ShapeCode, IsThatOfTheRingForACircularFrameWithoutHooks) {
  EXPECT_EQ(coded(bent(ring(300))), "75: A400 B*300");
  EXPECT_NEAR(shapeCodeOf(bent(ring(300)), 5.0).length, bent(ring(300)).centreLine(), 1e-6);
  Bar hooked = ring(300);
  hooked.hooks = {{{100, 135}, {100, 135}}};
  EXPECT_EQ(coded(bent(hooked)), "99: ");
}

TEST(ShapeCode, IsThatOfTheLinkByItsHooks) {
  Bar bar;
  bar.shape = BarShape::kFrameRect;
  bar.diameter = 8;
  bar.line = {{0, 0, 0}, {292, 0, 0}, {292, 192, 0}, {0, 192, 0}};
  bar.isClosed = true;
  bar.hooks = {{{91, 135}, {91, 135}}};
  EXPECT_EQ(coded(bent(bar)), "52: A300 B200 C*95");
  // The formula leaves out what the hooks take and add; they even out within 2 mm.
  EXPECT_NEAR(shapeCodeOf(bent(bar), 0.0).length, bent(bar).centreLine(), 4.0);
  bar.hooks = {{{91, 90}, {91, 90}}};
  EXPECT_EQ(coded(bent(bar)), "51: A300 B200 C*95");
}

}  // namespace
