// Sketches of bars for lists: everything in their box, a dimension at each leg.
#include <tools/draw/bar_list/shape_sketch.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include <tests/tools/draw/overlap.h>
#include <tests/tools/drawn_elements.h>
#include <tests/tools/loaded_file.h>
#include <tools/draw/scene/painted_box.h>

namespace quorvan::tool {

namespace {

using test::barOf;
using test::BarParts;

// The sketch of the only row of a list.
class Sketched {
 public:
  explicit Sketched(const BarParts& parts, Schedule schedule = Schedule::kAxis,
                    char decimalMark = '.')
      : m_loaded(test::documentOf(barOf(parts))) {
    ListOptions options;
    options.cutting.schedule = schedule;
    const BarList list = makeBarList({&m_loaded.file()}, options);
    EXPECT_EQ(list.rows.size(), 1U);
    if (!list.rows.empty()) {
      m_scene = sketchOf(list.rows.front(), list, decimalMark);
    }
  }

  [[nodiscard]] const Scene& scene() const { return m_scene; }
  [[nodiscard]] std::vector<std::string> texts() const {
    std::vector<std::string> texts;
    for (const Shape& shape : m_scene.shapes) {
      if (shape.kind == Shape::Kind::kText) {
        texts.push_back(shape.lettering.text);
      }
    }
    return texts;
  }

 private:
  test::LoadedFile m_loaded;
  Scene m_scene;
};

using SketchTexts = std::vector<std::string>;

TEST(ToolSketch, HasADimensionAtEachLeg) {
  EXPECT_EQ(Sketched({.points = {{0, 0, 0}, {4000, 0, 0}}}).texts(), SketchTexts{"4000"});
  EXPECT_EQ(
      Sketched({.className = "LBar", .points = {{0, 0, 0}, {4000, 0, 0}, {4000, 600, 0}}}).texts(),
      (SketchTexts{"4000", "600"}));
  EXPECT_EQ(
      Sketched({.className = "UBar", .points = {{0, 0, 0}, {400, 0, 0}, {400, 800, 0}}}).texts(),
      (SketchTexts{"400", "800", "400"}));
}

TEST(ToolSketch, HasTheLettersOfItsShapeCode) {
  const auto texts =
      Sketched({.className = "LBar", .points = {{0, 0, 0}, {4000, 0, 0}, {4000, 600, 0}}},
               Schedule::kBs8666)
          .texts();
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0].substr(0, 2), "A ");
  EXPECT_EQ(texts[1].substr(0, 2), "B ");
}

TEST(ToolSketch, SaysAnglesThatAreNoRightOnes) {
  const auto texts = Sketched({.points = {{0, 0, 0}, {2000, 0, 0}},
                               .hookLength1 = 100,
                               .hookLength2 = 200,
                               .hookAngle1 = 135,
                               .hookAngle2 = 90})
                         .texts();
  EXPECT_EQ(std::ranges::count(texts, "135\u00B0"), 1);
  EXPECT_EQ(std::ranges::count(texts, "90\u00B0"), 0);
  EXPECT_EQ(texts.size(), 4U) << "two hooks, the bar between them, one angle";
}

TEST(ToolSketch, WritesDecimalsAsItsLanguageDoes) {
  const BarParts parts{
      .points = {{0, 0, 0}, {2000, 0, 0}}, .hookLength1 = 100, .hookAngle1 = 112.5};
  const auto comma = Sketched(parts, Schedule::kAxis, ',').texts();
  EXPECT_EQ(std::ranges::count(comma, "112,5\u00B0"), 1);
  const auto dot = Sketched(parts, Schedule::kAxis, '.').texts();
  EXPECT_EQ(std::ranges::count(dot, "112.5\u00B0"), 1);
}

TEST(ToolSketch, SaysOfStirrupsWhatTheFileDoesNotHave) {
  const auto texts = Sketched({.className = "Stirrup",
                               .points = {{0, 0, 0}, {0, 400, 0}},
                               .hookLength1 = 90,
                               .hookAngle1 = 135})
                         .texts();
  EXPECT_GE(std::ranges::count(texts, "?"), 1);
  EXPECT_GE(std::ranges::count(texts, "400"), 2);
}

TEST(ToolSketch, OfABarSeenEndOnIsAPoint) {
  const Sketched sketch({.className = "PointBar", .points = {{0, 0, 0}}, .diameter = 20});
  ASSERT_EQ(sketch.scene().shapes.size(), 1U);
  EXPECT_EQ(sketch.scene().shapes[0].kind, Shape::Kind::kCircle);
  EXPECT_TRUE(sketch.scene().shapes[0].style.isFilled);
}

TEST(ToolSketch, OfARingSaysItsDiameterAndOverlap) {
  const auto texts = Sketched({.className = "FrameCirc",
                               .points = {{0, 0, 0}, {200, 0, 0}},
                               .hookLength1 = 80,
                               .hookAngle1 = 135,
                               .radius = 200,
                               .overlap = 300,
                               .diameter = 10})
                         .texts();
  EXPECT_EQ(std::ranges::count(texts, "\u00D8 410"), 1) << "over the bar";
  EXPECT_EQ(std::ranges::count(texts, "+ 300"), 1);
}

// The longest leg lies level, so that its dimension is read from below.
TEST(ToolSketch, LaysTheLongestLegLevel) {
  for (const Coordinates& end :
       {Coordinates{0, 4000, 0}, Coordinates{3000, -3000, 0}, Coordinates{-1000, 2000, 0}}) {
    const Sketched sketch(
        {.className = "PolygonBar", .points = {{300, -300, 0}, {0, 0, 0}, end}, .side = true});
    double longest = 0.0;
    double angle = 1.0;
    for (const Shape& shape : sketch.scene().shapes) {
      if (shape.kind == Shape::Kind::kText &&
          shape.lettering.text.find("\u00B0") == std::string::npos &&
          std::stod(shape.lettering.text) > longest) {
        longest = std::stod(shape.lettering.text);
        angle = shape.lettering.angle;
      }
    }
    EXPECT_NEAR(std::remainder(angle, 3.14159265358979), 0.0, 1e-6) << end.x << ' ' << end.y;
  }
}

BarParts randomBar(std::mt19937& random) {
  const auto number = [&](double most) {
    return std::round(static_cast<double>(random() % 10001) / 10000.0 * most);
  };
  const char* const names[] = {"StraightBar", "LBar",      "UBar",    "Pin",
                               "PolygonBar",  "FrameRect", "Stirrup", "FrameCirc"};
  BarParts parts;
  parts.className = names[random() % 8];
  const bool isSpatial = parts.className == "PolygonBar" && random() % 3 == 0;
  for (std::size_t i = 0; i < (parts.className == "PolygonBar" ? 3 + random() % 4 : 3); ++i) {
    parts.points.push_back({number(5000), number(3000), isSpatial ? number(2000) : 0.0});
  }
  const double angles[] = {30, 45, 90, 112.5, 135, 180};
  parts.hookLength1 = number(300);
  parts.hookLength2 = number(300);
  parts.hookAngle1 = angles[random() % 6];
  parts.hookAngle2 = angles[random() % 6];
  parts.isUp1 = random() % 2 == 0;
  parts.isUp2 = random() % 2 == 0;
  parts.side = random() % 2 == 0;
  parts.radius = 100 + number(900);
  parts.overlap = number(500);
  parts.diameter = 6 + number(34);
  return parts;
}

TEST(ToolSketch, KeepsEveryBarInItsBox) {
  std::mt19937 random(91);
  for (int round = 0; round < 120; ++round) {
    const BarParts parts = randomBar(random);
    const Sketched sketch(parts);
    EXPECT_EQ(sketch.scene().width, kSketchWidth);
    EXPECT_EQ(sketch.scene().height, kSketchHeight);
    for (const Shape& shape : sketch.scene().shapes) {
      const SheetBox box = shape.kind == Shape::Kind::kPath
                               ? paintedBox(shape)
                               : SheetBox{shape.lettering.at, shape.lettering.at};
      if (shape.kind == Shape::Kind::kCircle) {
        continue;
      }
      EXPECT_GE(box.least.x, 0.0) << round << ' ' << parts.className;
      EXPECT_GE(box.least.y, 0.0) << round << ' ' << parts.className;
      EXPECT_LE(box.most.x, kSketchWidth) << round << ' ' << parts.className;
      EXPECT_LE(box.most.y, kSketchHeight) << round << ' ' << parts.className;
    }
  }
}

// Links that go round twice, chairs, hats: what is drawn there can be read.
BarParts legsInTurn(const std::vector<double>& legs, const std::vector<double>& turns) {
  BarParts parts{.className = "PolygonBar", .points = {{0, 0, 0}}, .diameter = 12};
  double angle = 0.0;
  for (std::size_t i = 0; i < legs.size(); ++i) {
    const Coordinates at = parts.points.back();
    parts.points.push_back(
        {at.x + legs[i] * std::cos(angle), at.y + legs[i] * std::sin(angle), 0.0});
    angle += i < turns.size() ? turns[i] : 0.0;
  }
  return parts;
}

// Whether the letters come closer to the path than half its pen.
bool covers(const Lettering& text, const Path& path) {
  const TextCorners box = cornersOf(text);
  const PlanePoint along = box.corners[1] - box.corners[0];
  const PlanePoint up = box.corners[3] - box.corners[0];
  for (double x = 0.0; x <= 1.0; x += 0.05) {
    for (const double y : {0.0, 0.25, 0.5, 0.75, 1.0}) {
      if (test::distanceTo(path, box.corners[0] + along * x + up * y) < 0.4) {
        return true;
      }
    }
  }
  return false;
}

TEST(ToolSketch, CoversNeitherLineNorTextWithADimension) {
  constexpr double kQuarter = 1.5707963267948966;
  const std::vector<BarParts> bars = {
      legsInTurn({200, 400, 600, 400, 200}, {kQuarter, -kQuarter, -kQuarter, kQuarter}),
      legsInTurn({100, 400, 600, 400, 600, 400, 100}, std::vector<double>(6, kQuarter)),
      legsInTurn({120, 400, 300, 400, 300, 400, 120}, std::vector<double>(6, kQuarter)),
      legsInTurn({110, 110, 400, 600, 400, 600, 400}, std::vector<double>(6, kQuarter)),
      legsInTurn({200, 600, 400, 600, 400, 150}, std::vector<double>(5, kQuarter)),
      {.className = "PolygonBar",
       .points = {{0, 200, 0}, {0, 0, 0}, {0, 0, 300}, {500, 0, 300}, {500, 0, 0}, {500, -200, 0}},
       .diameter = 12},
      {.className = "PolygonBar",
       .points = {{0, 300, 0}, {0, 0, 0}, {0, 0, 150}, {800, 0, 150}, {800, 0, 0}, {800, 250, 0}},
       .diameter = 12},
      {.className = "FrameRect",
       .points = {{0, 0, 0}, {300, 0, 0}, {300, 500, 0}},
       .hookLength1 = 90,
       .hookAngle1 = 90,
       .diameter = 8}};
  for (std::size_t which = 0; which < bars.size(); ++which) {
    const Sketched sketch(bars[which], Schedule::kBs8666);
    const std::vector<Shape>& shapes = sketch.scene().shapes;
    for (std::size_t i = 0; i < shapes.size(); ++i) {
      for (std::size_t k = 0; shapes[i].kind == Shape::Kind::kText && k < shapes.size(); ++k) {
        const std::string& text = shapes[i].lettering.text;
        if (shapes[k].kind == Shape::Kind::kPath) {
          EXPECT_FALSE(covers(shapes[i].lettering, shapes[k].path)) << which << ": " << text;
        } else if (k > i) {
          SheetBox one = SheetBox::none();
          SheetBox other = SheetBox::none();
          for (std::size_t c = 0; c < 4; ++c) {
            one.include(cornersOf(shapes[i].lettering).corners[c]);
            other.include(cornersOf(shapes[k].lettering).corners[c]);
          }
          const bool isLevel = std::abs(std::sin(2.0 * shapes[i].lettering.angle)) < 1e-6 &&
                               std::abs(std::sin(2.0 * shapes[k].lettering.angle)) < 1e-6;
          EXPECT_FALSE(isLevel && overlap(one, other)) << which << ": " << text;
        }
      }
    }
  }
}

// A link that goes round twice is drawn side by side, not on itself.
TEST(ToolSketch, DrawsLegsThatLieOnEachOtherApart) {
  const Sketched sketch(
      legsInTurn({100, 400, 600, 400, 600, 400, 100}, std::vector<double>(6, 1.5707963267948966)));
  const std::vector<PlanePoint> points = test::pointsAlong(sketch.scene().shapes.front().path);
  std::vector<double> lefts;
  const double middle = kSketchHeight / 2.0;
  PlanePoint last = points.front();
  for (const PlanePoint point : points) {
    if ((last.y < middle) != (point.y < middle)) {
      lefts.push_back(point.x);
    }
    last = point;
  }
  std::ranges::sort(lefts);
  ASSERT_EQ(lefts.size(), 3U) << "three legs of 400";
  for (std::size_t i = 1; i < lefts.size(); ++i) {
    EXPECT_GT(lefts[i] - lefts[i - 1], 1.2);
  }
}

}  // namespace

}  // namespace quorvan::tool
