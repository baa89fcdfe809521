// Series of bars: their bars, the line across them and what is written on it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include <tests/tools/drawn_elements.h>
#include <tools/draw/shapes/shape_sink.h>

namespace quorvan::tool {

namespace {

using test::atFullSize;
using test::bareShapesOf;
using test::barOf;
using test::BarParts;
using test::sceneOf;
using test::SeriesParts;
using test::shapesOn;
using test::uprightBars;

// The first and the last point of each line.
std::vector<std::pair<PlanePoint, PlanePoint>> linesOf(const Path& path) {
  std::vector<std::pair<PlanePoint, PlanePoint>> lines;
  PlanePoint at;
  for (const PathStep& step : path.steps()) {
    if (step.kind == PathStep::Kind::kLine) {
      lines.emplace_back(at, step.to);
    }
    at = step.to;
  }
  return lines;
}

// An upright bar of 1000.
BarParts upright(double diameter = 10.0, long mark = 3) {
  return {.points = {{0, -500, 0}, {0, 500, 0}}, .diameter = diameter, .mark = mark};
}

std::string labelOf(const std::string& elements, Language language, const LengthUnit& unit) {
  DrawOptions options;
  options.language = language;
  options.unit = &unit;
  options.marks = Marks::kNone;
  const auto texts = test::textsOn(sceneOf(elements, options).scene, Layer::kRepartitions);
  return texts.size() == 1 ? texts.front() : std::to_string(texts.size()) + " texts";
}

TEST(ToolSeriesShapes, AreTheirBarsALineAcrossThemAndAStrokeAtEach) {
  const std::vector<Shape> shapes =
      bareShapesOf(barOf(upright()) + test::seriesOf(uprightBars(100, -500, 500, 5, 200)));
  ASSERT_EQ(shapes.size(), 4U);
  const auto bars = linesOf(shapes[1].path);
  ASSERT_EQ(bars.size(), 5U);
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_NEAR(bars[i].first.x, 100.0 + 200.0 * static_cast<double>(i), 1e-6);
    EXPECT_NEAR(bars[i].first.x, bars[i].second.x, 1e-6);
    EXPECT_NEAR(std::abs(bars[i].first.y - bars[i].second.y), 1000.0, 1e-6);
  }
  const auto line = linesOf(shapes[2].path);
  ASSERT_EQ(line.size(), 1U);
  EXPECT_NEAR(line[0].first.x, 100, 1e-6);
  EXPECT_NEAR(line[0].second.x, 900, 1e-6);
  EXPECT_NEAR(line[0].first.y, line[0].second.y, 1e-6);
  EXPECT_EQ(linesOf(shapes[3].path).size(), 5U);
  for (std::size_t i = 1; i < 4; ++i) {
    EXPECT_EQ(shapes[i].layer, Layer::kRepartitions);
    EXPECT_EQ(shapes[i].element, 1U);
  }
}

// The same bar has the same weight and colour by itself and in its series, at any scale.
TEST(ToolSeriesShapes, AreAsWideAsTheirBarAtEveryScale) {
  for (const double scale : {1.0, 10.0, 25.0, 50.0, 200.0}) {
    for (const double diameter : {6.0, 8.0, 12.0, 20.0, 32.0}) {
      DrawOptions options;
      options.scale = scale;
      const Scene scene =
          sceneOf(barOf(upright(diameter)) + test::seriesOf(uprightBars(100, -500, 500, 5, 200)),
                  options)
              .scene;
      const Shape bar = shapesOn(scene, Layer::kBars).at(0);
      const Shape series = shapesOn(scene, Layer::kRepartitions).at(0);
      EXPECT_EQ(bar.style.width, series.style.width) << scale << ' ' << diameter;
      EXPECT_EQ(bar.style.color, series.style.color);
    }
  }
}

TEST(ToolSeriesShapes, OfLinksHaveTheColourOfLinks) {
  const std::string link = barOf({.className = "FrameRect",
                                  .points = {{0, 0, 0}, {200, 0, 0}, {200, 1000, 0}},
                                  .diameter = 8});
  SeriesParts parts = uprightBars(300, 0, 1000, 4, 150);
  parts.className = "FrameRect";
  const Scene scene = sceneOf(link + test::seriesOf(parts), atFullSize()).scene;
  EXPECT_EQ(shapesOn(scene, Layer::kRepartitions).at(0).style.color,
            shapesOn(scene, Layer::kLinks).at(0).style.color);
  EXPECT_EQ(shapesOn(scene, Layer::kRepartitions).at(0).style.width,
            shapesOn(scene, Layer::kLinks).at(0).style.width);
}

TEST(ToolSeriesShapes, OfABarThatIsNotThereAreDrawnAllTheSame) {
  SeriesParts parts = uprightBars(100, -500, 500, 5, 200);
  parts.index = 9;
  const std::vector<Shape> shapes = bareShapesOf(barOf(upright()) + test::seriesOf(parts));
  ASSERT_EQ(shapes.size(), 4U);
  EXPECT_EQ(linesOf(shapes[1].path).size(), 5U);
  EXPECT_EQ(labelOf(barOf(upright()) + test::seriesOf(parts), Language::kFrench, kLengthUnits[0]),
            "5 e=20");
}

TEST(ToolSeriesShapes, SayNumberDiameterMarkSpacingAndLength) {
  const std::string drawing =
      barOf(upright(12, 3)) + test::seriesOf(uprightBars(100, -500, 500, 5, 200));
  EXPECT_EQ(labelOf(drawing, Language::kEnglish, kLengthUnits[0]), "5 H12-03-200");
  EXPECT_EQ(labelOf(drawing, Language::kFrench, kLengthUnits[0]), "(3) 5 HA12 e=20 L=1.00");
}

TEST(ToolSeriesShapes, SayFromWhichLengthToWhichTheirBarsGo) {
  SeriesParts parts = uprightBars(100, -500, 500, 5, 200);
  parts.top = {500, 1000, 1500, 2000, 3350};
  const std::string bar = barOf(upright(12, 3));
  EXPECT_EQ(labelOf(bar + test::seriesOf(parts), Language::kFrench, kLengthUnits[0]),
            "(3) 5 HA12 e=20 L=1.00 \u00E0 3.85");
  EXPECT_EQ(labelOf(bar + test::seriesOf(parts), Language::kEnglish, kLengthUnits[0]),
            "5 H12-03-200");
  parts.top = {1500, 1500, 1500, 1500, 1500};
  EXPECT_EQ(labelOf(bar + test::seriesOf(parts), Language::kFrench, kLengthUnits[0]),
            "(3) 5 HA12 e=20 L=1.00")
      << "as the bar list has it";
}

TEST(ToolSeriesShapes, SaySpacingAndLengthTheSameInEveryUnit) {
  for (const LengthUnit& unit : kLengthUnits) {
    const double u = 1.0 / unit.millimetres(1.0);
    const std::string drawing =
        barOf({.points = {{0, -500 * u, 0}, {0, 500 * u, 0}}, .diameter = 12 * u, .mark = 3}) +
        test::seriesOf(uprightBars(100 * u, -500 * u, 500 * u, 5, 200 * u));
    EXPECT_EQ(labelOf(drawing, Language::kFrench, unit), "(3) 5 HA12 e=20 L=1.00") << unit.name;
    EXPECT_EQ(labelOf(drawing, Language::kEnglish, unit), "5 H12-03-200") << unit.name;
  }
}

TEST(ToolSeriesShapes, SayEachRunOfUnequalSpacings) {
  SeriesParts parts = uprightBars(100, -500, 500, 5, 200);
  parts.positions = {150, 200, 200, 75};
  EXPECT_EQ(labelOf(barOf(upright()) + test::seriesOf(parts), Language::kEnglish, kLengthUnits[0]),
            "5 H10-03-150, 2 x 200, 75");
}

// Straight bars seen in view 1 have no line of their own: a ring at the bar, and their words.
TEST(ToolSeriesShapes, WithoutALineAreNamedAtTheirBar) {
  SeriesParts parts;
  parts.top = {40, 40};
  parts.bottom = {30, 30};
  parts.positions = {200, 200};
  parts.view = 1;
  const Scene scene = sceneOf(barOf(upright()) + test::seriesOf(parts), atFullSize()).scene;
  const auto rings = shapesOn(scene, Layer::kRepartitions, Shape::Kind::kCircle);
  ASSERT_EQ(rings.size(), 1U);
  const Path bar = shapesOn(scene, Layer::kBars).at(0).path;
  EXPECT_LT(test::distanceTo(bar, rings[0].center), 1e-6) << "on the bar";
  EXPECT_EQ(test::textsOn(scene, Layer::kRepartitions), std::vector<std::string>{"2 H10-03-200"});
  parts.index = 9;
  EXPECT_TRUE(
      shapesOn(sceneOf(barOf(upright()) + test::seriesOf(parts)).scene, Layer::kRepartitions)
          .empty());
}

TEST(ToolSeriesShapes, ThatAreHiddenAreDashedSolidOrOff) {
  SeriesParts parts = uprightBars(100, -500, 500, 5, 200);
  parts.isHidden = true;
  const std::string drawing = barOf(upright()) + test::seriesOf(parts);
  DrawOptions options = atFullSize();
  const std::vector<Shape> dashed =
      shapesOn(sceneOf(drawing, options).scene, Layer::kRepartitions, Shape::Kind::kPath);
  ASSERT_GE(dashed.size(), 2U);
  EXPECT_EQ(dashed[0].style.color, ink::kPaper) << "shows between the dashes of the one above it";
  EXPECT_TRUE(dashed[1].style.isDashed);
  options.hidden = HiddenBars::kSolid;
  EXPECT_FALSE(
      shapesOn(sceneOf(drawing, options).scene, Layer::kRepartitions).at(0).style.isDashed);
  options.hidden = HiddenBars::kOff;
  EXPECT_TRUE(shapesOn(sceneOf(drawing, options).scene, Layer::kRepartitions).empty());
}

TEST(ToolSeriesShapes, AreNotLabelledWhereATextNamesThem) {
  const std::string drawing =
      barOf(upright(12, 3)) + test::seriesOf(uprightBars(100, -500, 500, 5, 200));
  DrawOptions options;
  options.scale = 25;
  const auto texts = [&](const std::string& more) {
    return test::textsOn(sceneOf(drawing + more, options).scene, Layer::kRepartitions).size();
  };
  EXPECT_EQ(texts(""), 1U);
  EXPECT_EQ(texts(test::textOf({.contents = "(3) 5 HA12 e=20", .at = {500, 60, 0}})), 0U);
  EXPECT_EQ(texts(test::textOf({.contents = "(4) 5 HA12 e=20", .at = {500, 60, 0}})), 1U);
  EXPECT_EQ(texts(test::textOf({.contents = "(3)", .at = {500, 9000, 0}})), 1U) << "far away";
}

// Each stroke stands where its bar crosses the line.
TEST(ToolSeriesShapes, HaveTheirStrokesOnTheirBars) {
  SeriesParts parts = uprightBars(100, -500, 500, 6, 200);
  parts.positions = {100, 150, 200, 250, 300};
  const Scene scene = sceneOf(barOf(upright()) + test::seriesOf(parts), atFullSize()).scene;
  const std::vector<Shape> shapes = shapesOn(scene, Layer::kRepartitions, Shape::Kind::kPath);
  const auto bars = linesOf(shapes.at(0).path);
  const auto strokes = linesOf(shapes.at(2).path);
  ASSERT_EQ(bars.size(), strokes.size());
  for (std::size_t i = 0; i < bars.size(); ++i) {
    const PlanePoint middle = (strokes[i].first + strokes[i].second) * 0.5;
    EXPECT_NEAR(middle.x, bars[i].first.x, 1e-6);
    EXPECT_NEAR(lengthOf(strokes[i].first - strokes[i].second), 2.4, 1e-6);
    EXPECT_LT(test::distanceTo(shapes[1].path, middle), 1e-6);
  }
}

TEST(ToolSeriesShapes, AreNoneWithoutBars) {
  SeriesParts parts;
  EXPECT_TRUE(bareShapesOf(test::seriesOf(parts)).empty());
  parts.top = {5};
  parts.bottom = {};
  EXPECT_TRUE(bareShapesOf(test::seriesOf(parts)).empty());
}

}  // namespace

}  // namespace quorvan::tool
