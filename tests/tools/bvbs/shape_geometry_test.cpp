// The geometry of bending data: written from a bar, and read as a shape again.
#include <tools/bvbs/writing/shape_geometry.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <random>
#include <string>

#include <tests/tools/bending/sample_bars.h>
#include <tests/tools/bvbs/sealed_records.h>
#include <tools/bvbs/bent_shape.h>
#include <tools/bvbs/writing/series_groups.h>

namespace quorvan::tool::bvbs {

namespace {

std::string recordAround(const ShapeGeometry& geometry) {
  return (geometry.isSpatial ? "BF3D@Hj@" : "BF2D@Hj@") + geometry.block + "C0@";
}

std::string blockOf(const Bar& bar, ObtuseLegs obtuse = ObtuseLegs::kOutermost) {
  return geometryOf(test::bent(bar), obtuse).block;
}

Bar turnedRound(const Bar& bar) {
  Bar result = bar;
  std::ranges::reverse(result.line);
  std::swap(result.hooks[0], result.hooks[1]);
  return result;
}

Bar mirrored(const Bar& bar) {
  Bar result = bar;
  for (Coordinates& point : result.line) {
    point.y = -point.y;
  }
  return result;
}

TEST(BendingGeometry, HasEachLegAndTheBendBehindIt) {
  EXPECT_EQ(blockOf(test::polygonBar(12, {1000}, {})), "Gl1000@w0@");
  // Half a diameter more at each right angle.
  EXPECT_EQ(blockOf(test::polygonBar(12, {594, 1194}, {90})), "Gl600@w90@l1200@w0@");
  EXPECT_EQ(blockOf(test::polygonBar(10, {395, 806, 395}, {90, 90})),
            "Gl400@w90@l816@w90@l400@w0@");
  EXPECT_EQ(blockOf(test::polygonBar(10, {395, 806, 395}, {90, -90})),
            "Gl400@w90@l816@w-90@l400@w0@");
  // 5 times the tangent of 22.5 degrees is 2.07.
  EXPECT_EQ(blockOf(test::polygonBar(10, {498, 998}, {45})), "Gl500@w45@l1000@w0@");
  EXPECT_EQ(blockOf(test::polygonBar(10, {500, 1000}, {29.99})), "Gl501@w29.99@l1001@w0@");
}

TEST(BendingGeometry, BeginsWithTheEndThatReadsLowerAndTurnsToThePositiveSide) {
  const std::string expected = "Gl305@w90@l510@w-45@l702@w0@";
  const Bar bar = test::polygonBar(10, {300, 502.93, 700}, {90, -45});
  for (const Bar& one : {bar, turnedRound(bar), mirrored(bar), mirrored(turnedRound(bar))}) {
    EXPECT_EQ(blockOf(one), expected);
  }
}

TEST(BendingGeometry, TakesObtuseLegsToTheOutermostPointOrToTheCornerOfTheAxis) {
  const Bar bar = test::polygonBar(10, {300, 800}, {135});
  const std::string corner = blockOf(bar, ObtuseLegs::kAxis);
  EXPECT_EQ(corner, "Gl300@w135@l800@w0@");
  EXPECT_NE(blockOf(bar), corner);
  EXPECT_TRUE(geometryOf(test::bent(bar), ObtuseLegs::kAxis).hasObtuse);
  const Bar right = test::polygonBar(10, {300, 800}, {90});
  EXPECT_FALSE(geometryOf(test::bent(right), ObtuseLegs::kAxis).hasObtuse);
  EXPECT_EQ(blockOf(right, ObtuseLegs::kAxis), blockOf(right));
}

TEST(BendingGeometry, OpensARingByItsTurnAndItsOverlap) {
  Bar ring;
  ring.shape = BarShape::kFrameCirc;
  ring.line = {{200, 0, 0}};
  ring.radius = 200.0;
  ring.overlap = 400.0;
  ring.diameter = 10.0;
  // 360 and 400 / 200 in degrees.
  EXPECT_EQ(blockOf(ring), "Gr200@w474.59@w0@");
  ring.overlap = 0.0;
  EXPECT_EQ(blockOf(ring), "Gr200@w360@w0@");
  EXPECT_NEAR(geometryOf(test::bent(ring), ObtuseLegs::kOutermost).legSum,
              2.0 * std::numbers::pi * 200.0, 1e-6);
}

// Shapes by chance: what is written is a shape, its legs are as long and its bends as wide as those
// of the bar, and from whichever side and end it is filed it is the same record.
TEST(BendingGeometry, IsTheBarAgainHoweverItLies) {
  std::mt19937 random(461);
  for (int round = 0; round < 300; ++round) {
    std::vector<double> legs;
    std::vector<double> turns;
    for (std::size_t count = 1 + random() % 6; legs.size() < count;) {
      legs.push_back(300.0 + static_cast<double>(random() % 900));
      if (legs.size() < count) {
        const double turn = 15.0 * static_cast<double>(1 + random() % 6);
        turns.push_back(random() % 2 == 0 ? turn : -turn);
      }
    }
    const Bar bar = test::polygonBar(10, legs, turns);
    const BentBar bent = test::bent(bar);
    const ShapeGeometry geometry = geometryOf(bent, ObtuseLegs::kOutermost);
    ASSERT_FALSE(geometry.isSpatial);
    for (const Bar& one : {turnedRound(bar), mirrored(bar), mirrored(turnedRound(bar))}) {
      EXPECT_EQ(blockOf(one), geometry.block);
    }
    const std::string line = recordAround(geometry);
    const Record record = readRecord(line);
    const BentShape shape = readShape(record, *record.find('G'));
    EXPECT_TRUE(shape.faults.empty()) << line;
    ASSERT_EQ(shape.legs.size(), legs.size()) << line;
    EXPECT_DOUBLE_EQ(shape.legSum(), geometry.legSum) << line;
    EXPECT_NEAR(shape.centreLine(10, bent.roller), bent.centreLine(),
                0.5 * static_cast<double>(legs.size()) + 0.01)
        << line;
    double turned = 0.0;
    double drawn = 0.0;
    for (const ShapeLeg& leg : shape.legs) {
      turned += leg.bend;
    }
    for (const double turn : turns) {
      drawn += turn;
    }
    EXPECT_NEAR(std::abs(turned), std::abs(drawn), 0.01 * static_cast<double>(legs.size())) << line;
    if (!turns.empty()) {
      EXPECT_GT(shape.legs.front().bend, 0.0) << line;
    }
  }
}

// A bar in space, turned about any axis, from either end.
TEST(BendingGeometry, OfABarInSpaceIsTheSameHoweverItIsTurned) {
  std::mt19937 random(462);
  for (int round = 0; round < 60; ++round) {
    Bar bar;
    bar.shape = BarShape::kPolygon;
    bar.diameter = 16.0;
    const auto length = [&random] { return 300.0 + static_cast<double>(random() % 500); };
    const double first = length();
    const double second = length();
    const double third = first + 100.0;
    bar.line = {{0, 0, 0}, {first, 0, 0}, {first, second, 0}, {first, second, third}};
    const ShapeGeometry geometry = geometryOf(test::bent(bar), ObtuseLegs::kOutermost);
    ASSERT_TRUE(geometry.isSpatial);
    const double turn = static_cast<double>(random() % 628) / 100.0;
    Bar turned = bar;
    for (Coordinates& point : turned.line) {
      const Coordinates about{point.x * std::cos(turn) - point.y * std::sin(turn),
                              point.x * std::sin(turn) + point.y * std::cos(turn), point.z};
      point = {about.x, about.y * 0.6 - about.z * 0.8, about.y * 0.8 + about.z * 0.6};
    }
    EXPECT_EQ(blockOf(turned), geometry.block);
    EXPECT_EQ(blockOf(turnedRound(turned)), geometry.block);
    // Half a diameter more where a leg ends in a right angle.
    const std::string a = std::to_string(std::lround(first + 8));
    const std::string b = std::to_string(std::lround(second + 16));
    const std::string c = std::to_string(std::lround(third + 8));
    EXPECT_EQ(geometry.block, "Gx" + a + "@y0@z0@x0@y" + b + "@z0@x0@y0@z" + c + '@');
    EXPECT_DOUBLE_EQ(geometry.legSum, first + second + third + 32);
  }
}

std::string faultsIn(const std::string& geometry, const std::string& kind = "BF2D") {
  const std::string line = kind + "@Hj@" + geometry + "C0@";
  const Record record = readRecord(line);
  std::string text;
  for (const ShapeFault& fault : readShape(record, *record.find('G')).faults) {
    text += (text.empty() ? "" : ", ") + std::to_string(static_cast<int>(fault.kind)) + ' ' +
            line.substr(fault.at, line.find('@', fault.at) - fault.at);
    EXPECT_EQ(line[fault.at], fault.letter);
  }
  return text;
}

std::string faultText(ShapeFaultKind kind, const std::string& field) {
  return std::to_string(static_cast<int>(kind)) + ' ' + field;
}

TEST(BendingShapeReading, NamesWhatIsWrongWithLegsAndArcs) {
  using enum ShapeFaultKind;
  const std::pair<const char*, std::string> cases[] = {
      {"Gl600@w0@", ""},
      {"Gr100@w90@w0@", ""},
      {"Gr100@w90@w45@l300@w0@", ""},
      {"Gl600@", faultText(kNoAngle, "l600")},
      {"Gr100@", faultText(kNoAngle, "r100")},
      {"Gl600@l300@w0@", faultText(kNoAngle, "l600")},
      {"Gw90@", faultText(kStrangeField, "w90")},
      {"Gl600@w0@w0@", faultText(kStrangeField, "w0")},
      {"Gr100@w90@w0@w0@", faultText(kStrangeField, "w0")},
      {"Gl600@w90@", faultText(kBendAtEnd, "w90")},
      {"Gr100@w90@w30@", faultText(kBendAtEnd, "w30")},
      {"Gl0@w0@", faultText(kNoLength, "l0")},
      {"Gl-5@w0@", faultText(kNoLength, "l-5")},
      {"Glx@w0@", faultText(kNoNumber, "lx")},
      {"Gl600@wx@l1@w0@", faultText(kNoNumber, "wx")},
      {"Gl600@n3@w0@", faultText(kStrangeField, "n3")},
      {"Gx1@y0@z0@", faultText(kStrangeField, "x1") + ", " + faultText(kStrangeField, "y0") + ", " +
                         faultText(kStrangeField, "z0")},
  };
  for (const auto& [geometry, expected] : cases) {
    EXPECT_EQ(faultsIn(geometry), expected) << geometry;
  }
  // A helix: the shape of a turn, then its turns and pitches.
  EXPECT_EQ(faultsIn("Gr300@w360@w0@n24@g150@n2@g50@", "BFWE"), "");
  EXPECT_EQ(faultsIn("Gr300@w360@w0@nx@g150@", "BFWE"), faultText(kNoNumber, "nx"));
  EXPECT_EQ(faultsIn("Gr300@w360@w0@n2@l5@", "BFWE"), faultText(kStrangeField, "l5"));
}

TEST(BendingShapeReading, NamesWhatIsWrongWithPointsInSpace) {
  using enum ShapeFaultKind;
  const std::pair<const char*, std::string> cases[] = {
      {"Gx1@y0@z0@", ""},
      {"Gx1@y0@", faultText(kNoAngle, "y0")},
      {"Gx1@z0@y0@", faultText(kStrangeField, "z0")},
      {"Gx0@y0@z0@", faultText(kNoLength, "x0")},
      {"Gx1@yy@z0@", faultText(kNoNumber, "yy")},
      {"Gl5@w0@", faultText(kStrangeField, "l5")},
  };
  for (const auto& [geometry, expected] : cases) {
    EXPECT_EQ(faultsIn(geometry, "BF3D"), expected) << geometry;
  }
}

BarRow rowSharing(std::int64_t mark, const std::vector<const Element*>& series) {
  BarRow row;
  row.mark = mark;
  for (const Element* const one : series) {
    row.series.push_back({one, 1, nullptr});
  }
  return row;
}

std::string placesText(const std::vector<BarRow>& rows) {
  std::string text;
  for (const SeriesPlace& place : seriesPlaces(rows)) {
    text += std::to_string(place.group) + '.' + std::to_string(place.member) + ' ';
  }
  return text;
}

TEST(BendingGroups, JoinRowsThatShareASeries) {
  const std::array<Element, 3> series{};
  const Element* const a = &series[0];
  const Element* const b = &series[1];
  const Element* const c = &series[2];
  EXPECT_EQ(placesText({}), "");
  EXPECT_EQ(placesText({rowSharing(1, {}), rowSharing(1, {a})}), "0.0 0.0 ");
  EXPECT_EQ(placesText({rowSharing(1, {a}), rowSharing(1, {a}), rowSharing(2, {b})}),
            "1.1 1.2 0.0 ");
  EXPECT_EQ(placesText({rowSharing(1, {a}), rowSharing(1, {}), rowSharing(1, {a}),
                        rowSharing(2, {b}), rowSharing(2, {b})}),
            "1.1 0.0 1.2 2.1 2.2 ");
  // The row in the middle has bars of both series.
  EXPECT_EQ(placesText({rowSharing(1, {a}), rowSharing(1, {a, b}), rowSharing(1, {b})}),
            "1.1 1.2 1.3 ");
  EXPECT_EQ(placesText({rowSharing(1, {a}), rowSharing(1, {b}), rowSharing(1, {c, b}),
                        rowSharing(1, {c, a})}),
            "1.1 1.2 1.3 1.4 ");
  EXPECT_EQ(
      placesText({rowSharing(1, {a}), rowSharing(1, {b}), rowSharing(1, {a}), rowSharing(1, {b})}),
      "1.1 2.2 1.3 2.4 ");
}

}  // namespace

}  // namespace quorvan::tool::bvbs
