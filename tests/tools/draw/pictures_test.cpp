// Whole pictures, measured: what is drawn lies on the sheet, labels cover nothing, lines have their
// weights.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <random>

#include <tests/tools/draw/overlap.h>
#include <tests/tools/drawn_elements.h>
#include <tests/tools/picture.h>
#include <tests/tools/tool_run.h>
#include <tools/draw/scene/painted_box.h>
#include <tools/draw/shapes/shape_sink.h>

namespace quorvan::tool {

namespace {

using test::barOf;
using test::BarParts;
using test::sceneOf;
using test::shapesOn;

// A drawing by chance of about that size, with bars and links of every class.
class RandomDrawing {
 public:
  RandomDrawing(unsigned seed, double size) : m_random(seed), m_size(size) {}

  std::string elements() {
    std::string all = test::concreteOf(0, 0, m_size, m_size / 4.0);
    const int count = 2 + below(6);
    for (int i = 1; i <= count; ++i) {
      all += bar(i);
      if (below(3) == 0) {
        all += test::textOf({.contents = "Note " + std::to_string(i) + " \u00E9t\u00E9",
                             .at = place(),
                             .height = m_size / 80.0,
                             .angle = 15.0 * below(24),
                             .across = below(3),
                             .upwards = below(3)});
      }
      if (below(4) == 0) {
        all += test::circleOf(place(), m_size * number() / 8.0, below(256));
      }
      if (below(4) == 0) {
        all += test::meshOf("T" + std::to_string(i), "ST 25 C", {place(), place(), place()});
      }
    }
    return all;
  }

 private:
  int below(int most) { return static_cast<int>(m_random() % static_cast<unsigned>(most)); }
  double number() { return static_cast<double>(m_random() % 10001) / 10000.0; }
  Coordinates place() { return {m_size * number(), m_size * number() / 2.0, m_size * number()}; }

  std::string bar(int mark) {
    static const char* const kClasses[] = {"StraightBar", "LBar",      "UBar",
                                           "Pin",         "PointBar",  "PolygonBar",
                                           "FrameRect",   "FrameCirc", "Stirrup"};
    const double angles[] = {0, 45, 90, 135, 180};
    BarParts parts;
    parts.className = kClasses[below(9)];
    const int points = parts.className == "PolygonBar" ? 3 + below(4)
                       : parts.className == "PointBar" ? 1
                                                       : 3;
    for (int i = 0; i < points; ++i) {
      parts.points.push_back(place());
    }
    parts.hookLength1 = m_size * number() / 10.0;
    parts.hookLength2 = m_size * number() / 10.0;
    parts.hookAngle1 = angles[below(5)];
    parts.hookAngle2 = angles[below(5)];
    parts.isUp1 = below(2) == 0;
    parts.radius = m_size * number() / 4.0;
    parts.overlap = parts.radius * number();
    parts.diameter = 6.0 + below(34);
    parts.mark = mark;
    parts.index = mark;
    parts.isHidden = below(4) == 0;
    std::string text = barOf(parts);
    if (parts.className == "StraightBar" && below(2) == 0) {
      const double low = m_size * number() / 3.0;
      test::SeriesParts series = test::uprightBars(m_size * number(), low, low + m_size * number(),
                                                   2 + below(8), m_size / 30.0);
      series.index = mark;
      text += test::seriesOf(series);
    }
    return text;
  }

  std::mt19937 m_random;
  double m_size;
};

void expectOnPaper(const Scene& scene) {
  for (const Shape& shape : scene.shapes) {
    const SheetBox box = paintedBox(shape);
    if (box.isEmpty()) {
      continue;
    }
    EXPECT_GE(box.least.x, 0.0) << layerName(shape.layer) << ' ' << shape.lettering.text;
    EXPECT_GE(box.least.y, 0.0) << layerName(shape.layer) << ' ' << shape.lettering.text;
    EXPECT_LE(box.most.x, scene.width) << layerName(shape.layer) << ' ' << shape.lettering.text;
    EXPECT_LE(box.most.y, scene.height) << layerName(shape.layer) << ' ' << shape.lettering.text;
  }
}

TEST(ToolPictures, LieOnTheirPaperWithEveryChoiceOfSheet) {
  for (unsigned seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE(seed);
    const std::string elements =
        RandomDrawing(seed, std::pow(10.0, 2.5 + seed % 5 * 0.5)).elements();
    DrawOptions options;
    options.isWhole = true;
    options.plane = static_cast<Plane>(seed % 3);
    options.marks = static_cast<Marks>(seed / 3 % 3);
    options.title = seed % 2 == 0 ? Title::kStrip : Title::kNone;
    options.language = seed % 4 < 2 ? Language::kEnglish : Language::kFrench;
    expectOnPaper(sceneOf(elements, options).scene);
    options.scale = 50.0;
    expectOnPaper(sceneOf(elements, options).scene);
  }
}

// The strip below the drawing is never drawn over.
TEST(ToolPictures, LeaveTheTitleBlockAlone) {
  for (unsigned seed = 101; seed <= 120; ++seed) {
    DrawOptions options;
    options.isWhole = true;
    const Scene scene = sceneOf(RandomDrawing(seed, 5000).elements(), options).scene;
    double top = 0.0;
    for (const Shape& shape : shapesOn(scene, Layer::kTitle)) {
      top = std::max(top, paintedBox(shape).most.y);
    }
    for (const Shape& shape : scene.shapes) {
      const SheetBox box = paintedBox(shape);
      EXPECT_TRUE(shape.layer == Layer::kTitle || box.isEmpty() || box.least.y >= top)
          << seed << ": " << layerName(shape.layer) << ' ' << box.least.y << " below " << top;
    }
  }
}

// The same drawing with every number a hundredth, in tenths of metres for millimetres, is the same
// picture.
TEST(ToolPictures, AreTheSameInEveryUnit) {
  const auto inUnit = [](double u, const LengthUnit& unit) {
    const std::string elements =
        test::concreteOf(0, 0, 4000 * u, 500 * u) +
        barOf({.points = {{40 * u, 40 * u, 0}, {3960 * u, 40 * u, 0}},
               .hookLength1 = 200 * u,
               .hookAngle1 = 90,
               .diameter = 16 * u}) +
        barOf({.className = "FrameRect",
               .points = {{100 * u, 40 * u, 0}, {400 * u, 40 * u, 0}, {400 * u, 460 * u, 0}},
               .hookLength1 = 90 * u,
               .hookAngle1 = 135,
               .diameter = 8 * u,
               .mark = 2}) +
        test::textOf({.contents = "Section", .at = {0, 700 * u, 0}, .height = 62.5 * u});
    DrawOptions options;
    options.unit = &unit;
    options.layers = ~0U & ~(1U << static_cast<unsigned>(Layer::kTitle));
    return sceneOf(elements, options).scene;
  };
  const Scene millimetres = inUnit(1.0, kLengthUnits[0]);
  for (const auto& [factor, unit] :
       {std::pair(0.1, &kLengthUnits[1]), std::pair(0.001, &kLengthUnits[2])}) {
    const Scene other = inUnit(factor, *unit);
    EXPECT_EQ(other.width, millimetres.width);
    EXPECT_EQ(other.height, millimetres.height);
    ASSERT_EQ(other.shapes.size(), millimetres.shapes.size());
    for (std::size_t i = 0; i < other.shapes.size(); ++i) {
      const SheetBox a = paintedBox(other.shapes[i]);
      const SheetBox b = paintedBox(millimetres.shapes[i]);
      EXPECT_NEAR(a.least.x, b.least.x, 1e-5) << unit->name << ' ' << i;
      EXPECT_NEAR(a.most.y, b.most.y, 1e-5) << unit->name << ' ' << i;
      EXPECT_EQ(other.shapes[i].lettering.text, millimetres.shapes[i].lettering.text);
    }
  }
}

// Where the drawing lies in its coordinates does not show.
TEST(ToolPictures, AreTheSameWhereverTheDrawingLies) {
  const auto at = [](double x, double y) {
    const auto p = [&](double dx, double dy) { return Coordinates{x + dx, y + dy, 0}; };
    return sceneOf(test::concreteOf(x, y, x + 3000, y + 400) +
                   barOf({.points = {p(40, 40), p(2960, 40)}, .diameter = 16}) +
                   barOf({.className = "Stirrup", .points = {p(500, 40), p(500, 360)}, .mark = 2}) +
                   test::textOf({.contents = "Beam", .at = p(0, 500), .height = 62.5}))
        .scene;
  };
  const Scene here = at(0, 0);
  for (const auto& [x, y] : {std::pair(1e6, -5e5), std::pair(-123456.0, 7890.0)}) {
    const Scene there = at(x, y);
    ASSERT_EQ(there.shapes.size(), here.shapes.size());
    EXPECT_EQ(there.width, here.width);
    for (std::size_t i = 0; i < here.shapes.size(); ++i) {
      EXPECT_NEAR(paintedBox(there.shapes[i]).least.x, paintedBox(here.shapes[i]).least.x, 1e-4);
      EXPECT_NEAR(paintedBox(there.shapes[i]).least.y, paintedBox(here.shapes[i]).least.y, 1e-4);
    }
  }
}

// A beam with bars of several marks, none of them named, its lettering and a series.
std::string beamOf(unsigned seed) {
  std::mt19937 random(seed);
  const auto number = [&](double least, double most) {
    return least + (most - least) * static_cast<double>(random() % 1001) / 1000.0;
  };
  std::string all = test::concreteOf(0, 0, 6000, 600);
  const int count = 2 + static_cast<int>(random() % 5);
  for (int i = 1; i <= count; ++i) {
    const double y = 40.0 + 520.0 * i / (count + 1);
    const double x = number(40, 2500);
    all += barOf({.points = {{x, y, 0}, {x + number(1500, 3400), y, 0}},
                  .hookLength1 = random() % 2 == 0 ? 150.0 : 0.0,
                  .hookAngle1 = 90,
                  .diameter = 8.0 + 2.0 * i,
                  .mark = i,
                  .index = i});
  }
  all += barOf({.className = "FrameRect",
                .points = {{6800, 40, 0}, {7100, 40, 0}, {7100, 560, 0}},
                .hookLength1 = 90,
                .hookAngle1 = 135,
                .diameter = 8,
                .mark = count + 1});
  all += test::textOf({.contents = "ELEVATION", .at = {0, 900, 0}, .height = 87.5});
  for (int i = 0; i < 4; ++i) {
    all += test::lineOf({1500.0 * i, -400, 0}, {1500.0 * (i + 1), -400, 0}, 3) +
           test::textOf({.contents = "1500",
                         .at = {1500.0 * i + 750, -380, 0},
                         .height = 62.5,
                         .across = 1,
                         .color = 3});
  }
  return all;
}

// The letters of a text from the base line to the height of capitals.
SheetBox lettersOf(const Shape& text) {
  SheetBox box = SheetBox::none();
  for (const PlanePoint corner : cornersOf(text.lettering).corners) {
    box.include(corner);
  }
  return box;
}

// Whether ink of the path lies in the box.
bool crosses(const SheetBox& box, const Path& path) {
  PlanePoint at;
  for (const PlanePoint point : test::pointsAlong(path)) {
    for (int i = 0; i <= 200; ++i) {
      const PlanePoint on = at + (point - at) * (i / 200.0);
      if (on.x > box.least.x && on.x < box.most.x && on.y > box.least.y && on.y < box.most.y &&
          test::distanceTo(path, on) < 1e-6) {
        return true;
      }
    }
    at = point;
  }
  return false;
}

TEST(ToolPictures, PutLabelsOverNothingAndOutsideTheConcrete) {
  for (unsigned seed = 201; seed <= 212; ++seed) {
    SCOPED_TRACE(seed);
    const Scene scene = sceneOf(beamOf(seed)).scene;
    const std::vector<Shape> labels = shapesOn(scene, Layer::kMarks, Shape::Kind::kText);
    EXPECT_GE(labels.size(), 6U);
    const SheetBox concrete = boxOf(shapesOn(scene, Layer::kFormwork).at(0).path);
    for (std::size_t i = 0; i < labels.size(); ++i) {
      const SheetBox box = lettersOf(labels[i]);
      const std::string& text = labels[i].lettering.text;
      EXPECT_FALSE(overlap(box, concrete)) << text << " in the concrete";
      for (std::size_t k = 0; k < i; ++k) {
        EXPECT_FALSE(overlap(box, lettersOf(labels[k])))
            << text << " over " << labels[k].lettering.text;
      }
      for (const Shape& other : scene.shapes) {
        if (other.kind == Shape::Kind::kText && other.layer == Layer::kTexts) {
          EXPECT_FALSE(overlap(box, lettersOf(other))) << text << " over " << other.lettering.text;
        }
        if (other.kind == Shape::Kind::kPath && other.layer != Layer::kMarks) {
          EXPECT_FALSE(crosses(box, other.path)) << text << " over " << layerName(other.layer);
        }
      }
    }
  }
}

// Twenty bars side by side: their leaders pass between the labels.
TEST(ToolPictures, DrawNoLeaderThroughALabel) {
  std::string all = test::concreteOf(0, 0, 4000, 600) +
                    test::textOf({.contents = "SECTION", .at = {0, 700, 0}, .height = 50});
  for (int i = 0; i < 20; ++i) {
    all += barOf({.points = {{40, 40 + 26.0 * i, 0}, {3960, 40 + 26.0 * i, 0}},
                  .diameter = 12,
                  .mark = i + 1,
                  .index = i + 1});
  }
  const Scene scene = sceneOf(all).scene;
  const std::vector<Shape> labels = shapesOn(scene, Layer::kMarks, Shape::Kind::kText);
  EXPECT_EQ(labels.size(), 40U);
  for (const Shape& leader : shapesOn(scene, Layer::kMarks, Shape::Kind::kPath)) {
    for (const Shape& label : labels) {
      EXPECT_FALSE(crosses(lettersOf(label), leader.path))
          << leader.element << " through " << label.lettering.text;
    }
  }
}

TEST(ToolPictures, HaveLineWeightsInOrderAtEveryScale) {
  for (const double scale : {10.0, 20.0, 25.0, 50.0, 100.0}) {
    DrawOptions options;
    options.scale = scale;
    const Scene scene = sceneOf(beamOf(300), options).scene;
    double formwork = 0.0;
    double links = 0.0;
    double leastBar = 1e9;
    for (const Shape& shape : scene.shapes) {
      if (shape.layer == Layer::kFormwork) {
        formwork = std::max(formwork, shape.style.width);
      } else if (shape.layer == Layer::kLinks) {
        links = std::max(links, shape.style.width);
      } else if (shape.layer == Layer::kBars) {
        leastBar = std::min(leastBar, shape.style.width);
      } else if (shape.layer == Layer::kLines) {
        EXPECT_LE(shape.style.width, pen::kFormwork) << "dimensions are thin";
      }
    }
    EXPECT_GT(formwork, 0.0);
    EXPECT_LT(formwork, links) << scale;
    EXPECT_LT(links, leastBar) << scale;
  }
}

// A diameter has one weight in the whole drawing: by itself, in a series, and the dot of its end as
// wide as its line.
TEST(ToolPictures, HaveOneWeightForADiameterEverywhere) {
  for (const double scale : {1.0, 20.0, 100.0}) {
    DrawOptions options;
    options.scale = scale;
    std::map<double, double> widths;
    for (const double diameter : {8.0, 12.0, 25.0}) {
      const std::string drawing =
          barOf({.points = {{0, -500, 0}, {0, 500, 0}}, .diameter = diameter}) +
          barOf({.className = "LBar",
                 .points = {{0, 0, 0}, {900, 0, 0}, {900, 900, 0}},
                 .diameter = diameter}) +
          barOf({.className = "PointBar", .points = {{2000, 0, 0}}, .diameter = diameter}) +
          barOf({.className = "FrameRect",
                 .points = {{3000, 0, 0}, {3600, 0, 0}, {3600, 600, 0}},
                 .diameter = diameter}) +
          test::seriesOf(test::uprightBars(1000, -500, 500, 3, 200));
      const Scene scene = sceneOf(drawing, options).scene;
      const double width = shapesOn(scene, Layer::kBars).at(0).style.width;
      for (const Shape& shape : shapesOn(scene, Layer::kBars)) {
        EXPECT_EQ(shape.style.width, width);
      }
      EXPECT_EQ(shapesOn(scene, Layer::kLinks).at(0).style.width, width);
      EXPECT_EQ(shapesOn(scene, Layer::kRepartitions).at(0).style.width, width);
      EXPECT_NEAR(2.0 * shapesOn(scene, Layer::kEndOn).at(0).radius, width, 1e-9);
      widths[diameter] = width;
    }
    EXPECT_LT(widths[8.0], widths[12.0]);
    EXPECT_LT(widths[12.0], widths[25.0]);
  }
}

TEST(ToolPictures, HaveTheirShapesInTheOrderOfTheirLayers) {
  for (unsigned seed = 400; seed < 410; ++seed) {
    const Scene scene = sceneOf(RandomDrawing(seed, 4000).elements()).scene;
    EXPECT_TRUE(std::ranges::is_sorted(scene.shapes, {}, &Shape::layer)) << seed;
  }
}

// What is chosen by layer is what the whole picture has on those layers.
TEST(ToolPictures, HaveTheLayersThatAreChosenAndNoOthers) {
  const std::string elements = beamOf(301);
  DrawOptions options;
  options.scale = 25;
  const Scene whole = sceneOf(elements, options).scene;
  for (std::size_t i = 0; i < kLayers; ++i) {
    const auto layer = static_cast<Layer>(i);
    options.layers = 1U << i;
    const Scene one = sceneOf(elements, options).scene;
    EXPECT_EQ(one.shapes.size(), shapesOn(one, layer).size()) << layerName(layer);
    if (layer != Layer::kMarks && layer != Layer::kTitle) {
      EXPECT_EQ(one.shapes.size(), shapesOn(whole, layer).size()) << layerName(layer);
    }
    options.layers = ~(1U << i);
    const Scene rest = sceneOf(elements, options).scene;
    EXPECT_TRUE(shapesOn(rest, layer).empty()) << layerName(layer);
    for (std::size_t k = 0; k < static_cast<std::size_t>(Layer::kMarks); ++k) {
      if (k != i) {
        EXPECT_EQ(shapesOn(rest, static_cast<Layer>(k)).size(),
                  shapesOn(whole, static_cast<Layer>(k)).size())
            << layerName(layer) << ' ' << k;
      }
    }
  }
}

// Between the dashes of a hidden bar paper shows, also on a visible bar that lies below it.
TEST(ToolPictures, ShowTheGapsOfHiddenBarsOnVisibleOnes) {
  const auto bar = [](bool isHidden) {
    return barOf({.points = {{0, 0, 0}, {3000, 0, 0}}, .diameter = 8, .isHidden = isHidden});
  };
  for (const std::string& elements : {bar(false) + bar(true), bar(true) + bar(false)}) {
    const std::vector<Shape> bars = shapesOn(sceneOf(elements).scene, Layer::kBars);
    ASSERT_EQ(bars.size(), 3U);
    EXPECT_FALSE(bars[0].isHidden) << "visible ones lie below";
    EXPECT_EQ(bars[1].style.color, (Color{255, 255, 255}));
    EXPECT_FALSE(bars[1].style.isDashed);
    EXPECT_LT(bars[1].style.width, 0.6 * bars[0].style.width) << "the edges of the bar below go on";
    EXPECT_GT(bars[1].style.width, 0.4 * bars[0].style.width);
    EXPECT_TRUE(bars[2].style.isDashed);
    EXPECT_EQ(bars[2].style.width, bars[0].style.width);
  }
  DrawOptions solid;
  solid.hidden = HiddenBars::kSolid;
  EXPECT_EQ(shapesOn(sceneOf(bar(true), solid).scene, Layer::kBars).size(), 1U);
}

// A mark whose bar is not drawn would point at nothing.
TEST(ToolPictures, MarkOnlyTheBarsThatTheyShow) {
  const std::string elements =
      test::concreteOf(-500, -500, 3500, 1500) +
      barOf({.points = {{0, 0, 0}, {3000, 0, 0}}, .mark = 1}) +
      barOf({.className = "Stirrup", .points = {{500, 0, 0}, {500, 900, 0}}, .mark = 2}) +
      barOf({.className = "PointBar", .points = {{900, 500, 0}}, .mark = 3});
  const auto marksWith = [&](std::initializer_list<Layer> layers) {
    DrawOptions options;
    options.scale = 25;
    options.layers = 0;
    for (const Layer layer : layers) {
      options.layers |= 1U << static_cast<unsigned>(layer);
    }
    std::string marks;
    const Scene scene = sceneOf(elements, options).scene;
    for (const Shape& shape : shapesOn(scene, Layer::kMarks, Shape::Kind::kText)) {
      marks += shape.lettering.text.size() == 1 ? shape.lettering.text : "";
    }
    return marks;
  };
  using enum Layer;
  EXPECT_EQ(marksWith({kFormwork, kMarks, kBars, kLinks, kEndOn}), "123");
  EXPECT_EQ(marksWith({kFormwork, kMarks, kBars, kEndOn}), "13");
  EXPECT_EQ(marksWith({kFormwork, kMarks, kLinks}), "2");
  EXPECT_EQ(marksWith({kFormwork, kMarks, kEndOn}), "3");
  EXPECT_EQ(marksWith({kFormwork, kMarks}), "");
  EXPECT_EQ(marksWith({kMarks}), "123") << "all that is wanted";
}

TEST(ToolWindow, ShowsWhatMeetsItAndNothingElse) {
  DrawOptions options;
  options.window = SheetBox{{0, 0}, {1000, 500}};
  options.scale = 10;
  const SceneResult result = sceneOf(
      test::lineOf({10, 10, 0}, {20, 20, 0}) + test::lineOf({-500, 100, 0}, {3000, 100, 0}) +
          test::lineOf({1001, 0, 0}, {2000, 0, 0}) + test::lineOf({0, 501, 0}, {0, 900, 0}) +
          test::lineOf({1000, 500, 0}, {2000, 900, 0}),
      options);
  ASSERT_EQ(shapesOn(result.scene, Layer::kLines).size(), 3U);
  ASSERT_TRUE(result.scene.window.has_value());
  EXPECT_NEAR(result.scene.window->width(), 100, 1e-9);
  EXPECT_NEAR(result.scene.window->height(), 50, 1e-9);
  // The window's lower left corner is the drawing's origin.
  const PlanePoint begin = shapesOn(result.scene, Layer::kLines)[0].path.steps().front().to;
  EXPECT_NEAR(begin.x - result.scene.window->least.x, 1.0, 1e-9);
  EXPECT_NEAR(begin.y - result.scene.window->least.y, 1.0, 1e-9);
}

TEST(ToolWindow, IsInTheUnitOfTheDrawing) {
  DrawOptions options;
  options.window = SheetBox{{0, 0}, {10, 5}};
  options.unit = &kLengthUnits[2];
  options.scale = 100;
  const Scene scene = sceneOf(test::lineOf({1, 1, 0}, {2, 2, 0}), options).scene;
  ASSERT_TRUE(scene.window.has_value());
  EXPECT_NEAR(scene.window->width(), 100, 1e-9);
  EXPECT_NEAR(scene.window->height(), 50, 1e-9);
}

// Small drawings as they are drawn, line by line.
struct PinnedDrawing {
  const char* name;
  std::string elements;
  std::vector<std::string> options;
};

std::vector<PinnedDrawing> pinnedDrawings() {
  const std::string section =
      test::concreteOf(0, 0, 300, 500) +
      barOf({.className = "FrameRect",
             .points = {{34, 34, 0}, {266, 34, 0}, {266, 466, 0}},
             .hookLength1 = 90,
             .hookAngle1 = 135,
             .diameter = 8,
             .mark = 6}) +
      barOf({.className = "PointBar", .points = {{50, 50, 0}}, .diameter = 20, .mark = 1}) +
      barOf({.className = "PointBar", .points = {{250, 50, 0}}, .diameter = 20, .mark = 1}) +
      barOf({.className = "PointBar", .points = {{50, 450, 0}}, .diameter = 12, .mark = 2}) +
      test::textOf({.contents = "SECTION A-A", .at = {0, 600, 0}, .height = 25}) +
      test::textOf({.contents = "(1)", .at = {40, -40, 0}, .height = 25});
  const std::string column =
      test::formworkOf(
          {{{-250, 0, 0}, {250, 0, 0}, {0, -250, 0}}, {{250, 0, 0}, {-250, 0, 0}, {0, 250, 0}}}) +
      barOf({.className = "FrameCirc",
             .points = {{0, 0, 0}, {0, 210, 0}},
             .hookLength1 = 80,
             .hookAngle1 = 135,
             .radius = 210,
             .overlap = 300,
             .diameter = 10,
             .mark = 7}) +
      test::textOf({.contents = "Poteau C3", .at = {-250, 320, 0}, .height = 25});
  const double c = std::cos(std::numbers::pi / 6.0);
  const std::string hidden =
      barOf({.points = {{0, 0, 0}, {2000, 0, 0}}, .diameter = 20, .mark = 1}) +
      barOf({.points = {{500, 0, 0}, {2500, 0, 0}}, .diameter = 12, .mark = 2, .isHidden = true}) +
      barOf({.points = {{0, 300, 0}, {2000 * c, 1300, 0}}, .diameter = 12, .mark = 3});
  return {{"section", section, {}},
          {"column", column, {}},
          {"hidden", hidden, {"--scale", "20", "--language", "fr"}},
          {"hidden-solid", hidden, {"--scale", "20", "--hidden", "solid", "--title", "none"}}};
}

TEST(ToolPictures, OfSmallDrawingsAreAsPinned) {
  for (const PinnedDrawing& one : pinnedDrawings()) {
    std::string messages;
    const std::string svg = test::drawFile(test::documentOf(one.elements), one.options, &messages);
    EXPECT_EQ(messages, "") << one.name;
    test::expectGolden(std::string("pictures/") + one.name + ".svg", svg);
  }
}

}  // namespace

}  // namespace quorvan::tool
