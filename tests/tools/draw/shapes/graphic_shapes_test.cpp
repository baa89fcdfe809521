// Plain graphics, formwork and meshes as they lie on the sheet.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include <tests/tools/drawn_elements.h>
#include <tools/draw/scene/painted_box.h>
#include <tools/draw/shapes/shape_sink.h>

namespace quorvan::tool {

namespace {

using test::bareShapesOf;
using test::sceneOf;
using test::shapesOn;

constexpr double kSamePlace = 1e-6;

TEST(ToolGraphicShapes, AreLinesAndCirclesOfTheirColour) {
  const std::vector<Shape> shapes =
      bareShapesOf(test::lineOf({1, 2, 0}, {30, 4, 0}, 1) + test::circleOf({50, 60, 0}, -7, 3));
  ASSERT_EQ(shapes.size(), 2U);
  EXPECT_EQ(shapes[0].layer, Layer::kLines);
  EXPECT_EQ(shapes[0].style.color, (Color{255, 0, 0}));
  EXPECT_EQ(shapes[0].path.steps().front().to, (PlanePoint{1, 2}));
  EXPECT_EQ(shapes[0].path.end(), (PlanePoint{30, 4}));
  EXPECT_EQ(shapes[0].element, 0U);
  EXPECT_EQ(shapes[1].layer, Layer::kCircles);
  EXPECT_EQ(shapes[1].center, (PlanePoint{50, 60}));
  EXPECT_EQ(shapes[1].radius, 7) << "whatever its sign";
  EXPECT_EQ(shapes[1].element, 1U);
  EXPECT_FALSE(shapes[1].style.isFilled);
}

TEST(ToolGraphicShapes, AlignTextsAsTheyAreJustified) {
  const auto letteringOf = [](int across, int upwards) {
    return bareShapesOf(
               test::textOf(
                   {.contents = "A", .at = {5, 6, 0}, .across = across, .upwards = upwards}))
        .front()
        .lettering;
  };
  const AlignX expectedX[] = {AlignX::kLeft, AlignX::kCentre, AlignX::kRight, AlignX::kLeft};
  const AlignY expectedY[] = {AlignY::kBase, AlignY::kMiddle, AlignY::kTop, AlignY::kBase};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(letteringOf(i, 0).alignX, expectedX[i]) << i;
    EXPECT_EQ(letteringOf(0, i).alignY, expectedY[i]) << i;
    EXPECT_EQ(letteringOf(i, i).at, (PlanePoint{5, 6}));
  }
  EXPECT_EQ(letteringOf(-1, -1).alignX, AlignX::kLeft);
}

TEST(ToolGraphicShapes, TurnTextsAgainstTheClock) {
  const std::string text =
      test::textOf({.contents = "A", .at = {0, 0, 0}, .height = 4, .angle = 90});
  const Shape shape = bareShapesOf(text).front();
  EXPECT_NEAR(shape.lettering.angle, std::numbers::pi / 2, kSamePlace);
  EXPECT_EQ(shape.lettering.height, 4);
  const TextCorners corners = cornersOf(shape.lettering);
  EXPECT_GT(corners.corners[1].y, 1.0) << "it runs upwards";
  EXPECT_LT(corners.corners[3].x, -1.0) << "and its letters stand to the left";
}

TEST(ToolGraphicShapes, FillPolygonsWithoutAnOutline) {
  const std::vector<Shape> shapes =
      bareShapesOf(test::fillOf({{0, 0, 0}, {10, 0, 0}, {10, 20, 0}}, 1));
  ASSERT_EQ(shapes.size(), 1U);
  EXPECT_EQ(shapes[0].layer, Layer::kFills);
  EXPECT_TRUE(shapes[0].style.isFilled);
  EXPECT_EQ(shapes[0].style.width, 0.0);
  EXPECT_EQ(shapes[0].path.steps().back().kind, PathStep::Kind::kClose);
  EXPECT_EQ(shapes[0].path.steps().size(), 4U);
  EXPECT_TRUE(bareShapesOf(test::fillOf({})).empty());
}

// White fills stay as they are: they are no lines that could not be seen, and hide what is below.
TEST(ToolGraphicShapes, DarkenLinesAndTextsButNoFills) {
  const auto triangleOf = [](long color) {
    return test::fillOf({{0, 0, 0}, {10, 0, 0}, {10, 20, 0}}, color);
  };
  const SceneResult filled = sceneOf(triangleOf(0xF0F0F0) + triangleOf(0xFFFFFF));
  EXPECT_EQ(filled.darkened, 0U);
  const std::vector<Shape> fills = shapesOn(filled.scene, Layer::kFills);
  EXPECT_EQ(fills.at(0).style.color, (Color{0xF0, 0xF0, 0xF0}));
  EXPECT_EQ(fills.at(1).style.color, (Color{0xFF, 0xFF, 0xFF}));
  const SceneResult lined = sceneOf(
      triangleOf(0xF0F0F0) + test::lineOf({0, 0, 0}, {9, 9, 0}, 0xF0F0F0) +
      test::circleOf({0, 0, 0}, 9, 0x00FFFF) + test::textOf({.contents = "x", .color = 0xFFFFF0}) +
      test::textOf({.contents = "y", .color = 0xFFFFFF}));
  EXPECT_EQ(lined.darkened, 4U);
  for (const Layer layer : {Layer::kLines, Layer::kCircles, Layer::kTexts}) {
    const Color color = shapesOn(lined.scene, layer).at(0).style.color;
    EXPECT_LT(0.299 * color.red + 0.587 * color.green + 0.114 * color.blue, 140.0);
  }
}

TEST(ToolLegibleColours, KeepTheirHueAndStayAsTheyAreWhereTheyCanBeSeen) {
  EXPECT_EQ(legibleOnPaper({190, 190, 190}), (Color{190, 190, 190})) << "the brightest";
  EXPECT_EQ(legibleOnPaper({191, 191, 191}), (Color{130, 130, 130})) << "no longer";
  EXPECT_EQ(legibleOnPaper({0, 0, 255}), (Color{0, 0, 255}));
  EXPECT_EQ(legibleOnPaper({255, 0, 0}), (Color{255, 0, 0}));
  const Color yellow = legibleOnPaper({255, 255, 0});
  EXPECT_EQ(yellow.red, yellow.green);
  EXPECT_EQ(yellow.blue, 0);
  EXPECT_LT(yellow.red, 160);
  for (int i = 0; i < 256; ++i) {
    const Color color = legibleOnPaper(colorOf(i, ColorScheme::kIndex));
    EXPECT_LE(0.299 * color.red + 0.587 * color.green + 0.114 * color.blue, 190.0) << i;
  }
}

TEST(ToolFormworkShapes, ArePathsOfTheSegmentsThatJoin) {
  const std::vector<Shape> joined = bareShapesOf(test::concreteOf(0, 0, 300, 200));
  ASSERT_EQ(joined.size(), 1U);
  EXPECT_EQ(joined[0].layer, Layer::kFormwork);
  EXPECT_EQ(std::ranges::count(joined[0].path.steps(), PathStep::Kind::kMove, &PathStep::kind), 1);
  EXPECT_EQ(joined[0].path.end(), (PlanePoint{0, 0}));
  EXPECT_EQ(joined[0].style.width, pen::kFormwork);
  const std::vector<Shape> apart =
      bareShapesOf(test::formworkOf({{{0, 0, 0}, {10, 0, 0}, {}}, {{20, 0, 0}, {30, 0, 0}, {}}}));
  ASSERT_EQ(apart.size(), 1U);
  EXPECT_EQ(std::ranges::count(apart[0].path.steps(), PathStep::Kind::kMove, &PathStep::kind), 2);
}

// The bulge goes from the middle of the chord to the crown of the arc, whatever their directions.
TEST(ToolFormworkShapes, RiseToTheCrownOfTheirBulge) {
  for (const double turn : {0.0, 1.0, 2.5, 4.0}) {
    for (const double rise : {-300.0, -40.0, 15.0, 99.0, 101.0, 250.0}) {
      const PlanePoint end = turned({200, 0}, turn);
      const PlanePoint bulge = turned({0, rise}, turn);
      const std::vector<Shape> shapes =
          bareShapesOf(test::formworkOf({{{0, 0, 0}, {end.x, end.y, 0}, {bulge.x, bulge.y, 0}}}));
      ASSERT_EQ(shapes.size(), 1U);
      const Path& path = shapes[0].path;
      EXPECT_NEAR(lengthOf(path.end() - end), 0.0, kSamePlace);
      EXPECT_LT(test::distanceTo(path, end * 0.5 + bulge), 0.02) << turn << ' ' << rise;
      // Half the chord squared plus the rise squared, by twice the rise.
      const double radius = (100.0 * 100.0 + rise * rise) / (2.0 * std::abs(rise));
      const PathStep& arc = path.steps().back();
      EXPECT_NEAR(lengthOf(arc.to - arc.center), radius, kSamePlace);
      EXPECT_EQ(std::abs(arc.sweep) > std::numbers::pi, std::abs(rise) > 100.0);
    }
  }
}

// Two halves of a circle, each with a bulge of the radius: a round column.
TEST(ToolFormworkShapes, MakeRoundColumnsOfTwoHalves) {
  const std::vector<Shape> shapes = bareShapesOf(test::formworkOf(
      {{{-200, 0, 0}, {200, 0, 0}, {0, -200, 0}}, {{200, 0, 0}, {-200, 0, 0}, {0, 200, 0}}}));
  ASSERT_EQ(shapes.size(), 1U);
  for (int i = 0; i < 24; ++i) {
    EXPECT_LT(test::distanceTo(shapes[0].path, turned({200, 0}, i * std::numbers::pi / 12)), 0.02);
  }
}

TEST(ToolMeshShapes, AreAnOutlineAndADiagonalWithTheNameOnIt) {
  const std::string mesh =
      test::meshOf("T1", "ST 25 C", {{0, 0, 0}, {240, 0, 0}, {240, 120, 0}, {0, 120, 0}});
  const std::vector<Shape> bare = bareShapesOf(mesh);
  ASSERT_EQ(bare.size(), 2U) << "no name while it is measured";
  EXPECT_EQ(bare[0].path.steps().back().kind, PathStep::Kind::kClose);
  EXPECT_EQ(bare[1].path.steps().front().to, (PlanePoint{0, 0}));
  EXPECT_EQ(bare[1].path.end(), (PlanePoint{240, 120}));
  const Scene scene = sceneOf(mesh, test::atFullSize()).scene;
  const std::vector<Shape> names = shapesOn(scene, Layer::kMeshes, Shape::Kind::kText);
  ASSERT_EQ(names.size(), 1U);
  EXPECT_EQ(names[0].lettering.text, "T1 \u2013 ST 25 C");
  EXPECT_NEAR(names[0].lettering.angle, std::atan2(120, 240), kSamePlace);
  const Path diagonal = shapesOn(scene, Layer::kMeshes, Shape::Kind::kPath).at(1).path;
  EXPECT_LT(test::distanceTo(diagonal, names[0].lettering.at), 2.0);
}

TEST(ToolMeshShapes, AreNamedByWhatTheyHave) {
  const auto nameOf = [](const std::string& reference, const std::string& type) {
    const auto names = test::textsOn(
        sceneOf(test::meshOf(reference, type, {{0, 0, 0}, {240, 0, 0}, {240, 120, 0}})).scene,
        Layer::kMeshes);
    return names.empty() ? "none" : names.front();
  };
  EXPECT_EQ(nameOf("T1", ""), "T1");
  EXPECT_EQ(nameOf("", "ST 25 C"), "ST 25 C");
  EXPECT_EQ(nameOf("", ""), "none");
}

TEST(ToolMeshShapes, ReadFromBelowWhateverTheirDirection) {
  for (const Coordinates& across :
       {Coordinates{-240, 120, 0}, Coordinates{-240, -120, 0}, Coordinates{240, -120, 0}}) {
    const std::string mesh =
        test::meshOf("T1", "", {{0, 0, 0}, {across.x, 0, 0}, across, {0, across.y, 0}});
    const std::vector<Shape> names =
        shapesOn(sceneOf(mesh, test::atFullSize()).scene, Layer::kMeshes, Shape::Kind::kText);
    ASSERT_EQ(names.size(), 1U);
    EXPECT_LE(std::abs(names[0].lettering.angle), std::numbers::pi / 2);
  }
}

TEST(ToolMeshShapes, AreNoneWithoutPoints) {
  EXPECT_TRUE(bareShapesOf(test::meshOf("T1", "ST", {})).empty());
}

TEST(ToolGraphicShapes, OfUnknownClassesAreNone) {
  EXPECT_TRUE(bareShapesOf("<Arrow><Point1 X=\"0\" Y=\"0\" Z=\"0\"/></Arrow>").empty());
  EXPECT_TRUE(bareShapesOf(test::controlOf("D")).empty());
}

TEST(ToolGraphicShapes, BeyondAnySheetAreCutOffThereOrLeftOutAndCounted) {
  const SceneResult result =
      sceneOf(test::lineOf({0, 0, 0}, {100, 0, 0}) + test::lineOf({0, 0, 0}, {1e200, 0, 0}) +
              test::circleOf({0, 0, 0}, 1e200));
  EXPECT_EQ(result.leftOut, 1U);
  EXPECT_EQ(shapesOn(result.scene, Layer::kLines).size(), 2U);
  EXPECT_TRUE(shapesOn(result.scene, Layer::kCircles).empty());
}

}  // namespace

}  // namespace quorvan::tool
