// Which bars get a mark, what it says and where it stands.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include <tests/tools/drawn_elements.h>
#include <tools/draw/scene/painted_box.h>

namespace quorvan::tool {

namespace {

using test::barOf;
using test::BarParts;
using test::sceneOf;
using test::shapesOn;
using test::textsOn;

using MarkedTexts = std::vector<std::string>;

BarParts level(double y, double length, long mark) {
  return {.points = {{0, y, 0}, {length, y, 0}}, .diameter = 12, .mark = mark};
}

MarkedTexts marksOf(const std::string& elements, Marks marks = Marks::kAuto,
                    Language language = Language::kFrench) {
  DrawOptions options;
  options.scale = 20;
  options.marks = marks;
  options.language = language;
  return textsOn(sceneOf(elements, options).scene, Layer::kMarks);
}

TEST(ToolMarkLabels, SayTheMarkInABubbleAndWhatTheListSaysOfIt) {
  EXPECT_EQ(marksOf(barOf(level(0, 3000, 5))), (MarkedTexts{"5", "1 HA12 L=3.00"}));
  EXPECT_EQ(marksOf(barOf(level(0, 3000, 5)), Marks::kAuto, Language::kEnglish),
            (MarkedTexts{"5", "1 H12-05"}));
}

// Bars of another steel under the mark are others, and those of other lengths are not as long.
TEST(ToolMarkLabels, SayNumberAndLengthsOfTheBarsOfTheirSteel) {
  BarParts thick = level(400, 1920, 1);
  thick.diameter = 20;
  const std::string bars = barOf(level(0, 2920, 1)) + barOf(level(200, 2920, 1)) + barOf(thick);
  EXPECT_EQ(marksOf(bars), (MarkedTexts{"1", "2 HA12 L=2.92", "1", "1 HA20 L=1.92"}));
  EXPECT_EQ(marksOf(bars, Marks::kAll),
            (MarkedTexts{"1", "2 HA12 L=2.92", "1", "2 HA12 L=2.92", "1", "1 HA20 L=1.92"}));
  EXPECT_EQ(marksOf(bars, Marks::kAuto, Language::kEnglish),
            (MarkedTexts{"1", "2 H12-01", "1", "1 H20-01"}));
  EXPECT_EQ(marksOf(barOf(level(0, 1460, 2)) + barOf(level(200, 2460, 2))),
            (MarkedTexts{"2", "2 HA12 L=1.46 \u00E0 2.46"}));
  BarParts smooth = level(200, 1000, 2);
  smooth.adherence = "Dx";
  EXPECT_EQ(marksOf(barOf(level(0, 1460, 2)) + barOf(smooth)),
            (MarkedTexts{"2", "1 HA12 L=1.46", "2", "1 Dx12 L=1.00"}));
}

TEST(ToolMarkLabels, SayOfAStirrupThatItIsAtLeastSoLong) {
  EXPECT_EQ(marksOf(barOf({.className = "Stirrup",
                           .points = {{0, 0, 0}, {0, 500, 0}},
                           .hookLength1 = 100,
                           .diameter = 8,
                           .mark = 4})),
            (MarkedTexts{"4", "1 HA8 L\u22651.20"}));
}

// A bar seen end-on counts among the bars of its mark that are seen along, and is as long as they.
TEST(ToolMarkLabels, OfBarsSeenEndOnSayWhatTheListHasOfTheOthers) {
  const std::string bars =
      barOf({.className = "PointBar", .points = {{0, 0, 0}}, .diameter = 12, .mark = 2}) +
      barOf(level(500, 2000, 2));
  EXPECT_EQ(marksOf(bars, Marks::kAll), (MarkedTexts{"2", "1 HA12 L=2.00", "2", "1 HA12 L=2.00"}));
}

TEST(ToolMarkLabels, AreNotTakenForTheNumberOfBarsOfAnotherMark) {
  const std::string bars = barOf(level(0, 3000, 1)) + barOf(level(300, 3000, 3));
  for (const char* const text : {"3 HA12 (1)", "3 HA12 rep. 1", "3 H12-01-200", "3HA12 rep.1",
                                 "8 HA12 rep. 1", "8 HA12 (1)", "8 H12-01-200"}) {
    EXPECT_EQ(marksOf(bars + test::textOf({.contents = text, .at = {500, 100, 0}})),
              (MarkedTexts{"3", "1 HA12 L=3.00"}))
        << text;
  }
}

// What the program wrote on one drawing names the bar on the next.
TEST(ToolMarkLabels, AreLeftOutWhereTheProgramsOwnLabelStands) {
  for (const long mark : {1, 12, 123, 1234}) {
    const std::string series = test::seriesOf(test::uprightBars(100, -500, 500, 7, 200));
    const std::string bar =
        barOf({.points = {{100, -500, 0}, {100, 500, 0}}, .diameter = 12, .mark = mark});
    for (const Language language : {Language::kEnglish, Language::kFrench}) {
      DrawOptions options;
      options.scale = 20;
      options.language = language;
      const std::string written =
          textsOn(sceneOf(bar + series, options).scene, Layer::kRepartitions).at(0);
      const Scene again =
          sceneOf(bar + series + test::textOf({.contents = written, .at = {300, 100, 0}}), options)
              .scene;
      EXPECT_TRUE(textsOn(again, Layer::kRepartitions).empty()) << written;
      EXPECT_TRUE(textsOn(again, Layer::kMarks).empty()) << written;
    }
    const std::string own = marksOf(bar, Marks::kAuto, Language::kEnglish).at(1);
    EXPECT_TRUE(marksOf(bar + test::textOf({.contents = own, .at = {300, 100, 0}})).empty()) << own;
  }
}

TEST(ToolMarkLabels, AreLeftOutInEveryUnitWhereATextSaysTheDiameter) {
  for (const LengthUnit& unit : kLengthUnits) {
    const double u = 1.0 / unit.millimetres(1.0);
    DrawOptions options;
    options.scale = 20;
    options.unit = &unit;
    const std::string bar =
        barOf({.points = {{0, 0, 0}, {3000 * u, 0, 0}}, .diameter = 12 * u, .mark = 5});
    const std::string text =
        test::textOf({.contents = "5 HA12", .at = {500 * u, 100 * u, 0}, .height = 50 * u});
    EXPECT_TRUE(textsOn(sceneOf(bar + text, options).scene, Layer::kMarks).empty()) << unit.name;
  }
}

TEST(ToolMarkLabels, StandAtTheLongestBarOfTheMark) {
  const std::string bars =
      barOf(level(0, 1000, 5)) + barOf(level(500, 3000, 5)) + barOf(level(900, 2000, 5));
  EXPECT_EQ(marksOf(bars), (MarkedTexts{"5", "3 HA12 L=1.00 \u00E0 3.00"}));
  DrawOptions options;
  options.scale = 20;
  const Shape label = shapesOn(sceneOf(bars, options).scene, Layer::kMarks).at(0);
  EXPECT_EQ(label.element, 1U);
}

TEST(ToolMarkLabels, PreferABarThatIsSeen) {
  BarParts hidden = level(0, 3000, 5);
  hidden.isHidden = true;
  for (const std::string& bars :
       {barOf(hidden) + barOf(level(500, 1000, 5)), barOf(level(500, 1000, 5)) + barOf(hidden)}) {
    EXPECT_EQ(marksOf(bars).at(1), "2 HA12 L=1.00 \u00E0 3.00");
    DrawOptions options;
    options.scale = 20;
    EXPECT_FALSE(shapesOn(sceneOf(bars, options).scene, Layer::kMarks).at(0).isHidden);
  }
  EXPECT_EQ(marksOf(barOf(hidden)).at(1), "1 HA12 L=3.00");
}

TEST(ToolMarkLabels, CountTheBarsOfSeries) {
  const std::string bars =
      barOf({.points = {{0, -500, 0}, {0, 500, 0}}, .diameter = 12, .mark = 5}) +
      test::seriesOf(test::uprightBars(100, -500, 500, 7, 200));
  EXPECT_EQ(marksOf(bars, Marks::kAll), (MarkedTexts{"5", "7 HA12 L=1.00"}));
}

// What the label of the series says is not said again in a bubble, unless it is not all, or the bar
// is drawn in another place.
TEST(ToolMarkLabels, AreLeftOutWhereTheLabelOfASeriesSaysTheSame) {
  const std::string bar =
      barOf({.points = {{100, -500, 0}, {100, 500, 0}}, .diameter = 12, .mark = 5});
  const std::string series = test::seriesOf(test::uprightBars(100, -500, 500, 7, 200));
  const std::string other =
      barOf({.points = {{9000, -500, 0}, {9000, 500, 0}}, .diameter = 12, .mark = 5, .index = 2});
  EXPECT_EQ(marksOf(bar + series), MarkedTexts{});
  EXPECT_EQ(marksOf(bar + series, Marks::kAll), (MarkedTexts{"5", "7 HA12 L=1.00"}));
  EXPECT_EQ(marksOf(bar + other + series), (MarkedTexts{"5", "8 HA12 L=1.00"}));
  const std::string away =
      barOf({.points = {{4000, -500, 0}, {4000, 500, 0}}, .diameter = 12, .mark = 5});
  EXPECT_EQ(marksOf(away + series), (MarkedTexts{"5", "7 HA12 L=1.00"})) << "in another view";
  DrawOptions options;
  options.scale = 20;
  options.language = Language::kFrench;
  EXPECT_EQ(textsOn(sceneOf(bar + series, options).scene, Layer::kRepartitions),
            MarkedTexts{"(5) 7 HA12 e=20 L=1.00"});
}

// What names a bar is of no use where its layer is not drawn.
TEST(ToolMarkLabels, StandWhereTheTextOrSeriesThatNamesThemIsNotShown) {
  const std::string bar =
      barOf({.points = {{100, -500, 0}, {100, 500, 0}}, .diameter = 12, .mark = 5});
  const std::string series = test::seriesOf(test::uprightBars(100, -500, 500, 7, 200));
  const std::string text = test::textOf({.contents = "(5)", .at = {150, 0, 0}});
  for (const auto& [elements, layer] :
       {std::pair(bar + series, Layer::kRepartitions), {bar + text, Layer::kTexts}}) {
    EXPECT_EQ(marksOf(elements), MarkedTexts{});
    DrawOptions options;
    options.scale = 20;
    options.layers &= ~(1U << static_cast<unsigned>(layer));
    EXPECT_EQ(textsOn(sceneOf(elements, options).scene, Layer::kMarks).at(0), "5");
  }
}

TEST(ToolMarkLabels, SayNoLengthOfABarSeenEndOn) {
  EXPECT_EQ(
      marksOf(barOf({.className = "PointBar", .points = {{0, 0, 0}}, .diameter = 20, .mark = 2}) +
              test::lineOf({-500, 0, 0}, {500, 0, 0})),
      (MarkedTexts{"2", "1 HA20"}));
}

TEST(ToolMarkLabels, AreOneForEachMarkOrForEachBarOrNone) {
  const std::string bars =
      barOf(level(0, 3000, 1)) + barOf(level(500, 3000, 1)) + barOf(level(900, 3000, 2));
  EXPECT_EQ(marksOf(bars).size(), 2U * 2U);
  EXPECT_EQ(marksOf(bars, Marks::kAll).size(), 3U * 2U);
  EXPECT_TRUE(marksOf(bars, Marks::kNone).empty());
}

TEST(ToolMarkLabels, AreLeftOutWhereATextNamesAnyBarOfTheMark) {
  const std::string bars = barOf(level(0, 3000, 1)) + barOf(level(9000, 5000, 1));
  EXPECT_TRUE(marksOf(bars + test::textOf({.contents = "(1)", .at = {100, 50, 0}})).empty());
  EXPECT_TRUE(marksOf(bars + test::textOf({.contents = "(1)", .at = {100, 9050, 0}})).empty());
  EXPECT_EQ(
      marksOf(bars + test::textOf({.contents = "(1)", .at = {100, 50, 0}}), Marks::kAll).size(), 4U)
      << "asked for, they are all there";
}

// At its true size a bar is as wide as several lines of letters.
TEST(ToolMarkLabels, StandBesideAWideBarAndNotOnIt) {
  DrawOptions options;
  options.scale = 1;
  BarParts bar = level(0, 400, 5);
  bar.diameter = 16;
  const Scene scene = sceneOf(barOf(bar), options).scene;
  const SheetBox wide = paintedBox(shapesOn(scene, Layer::kBars).at(0));
  EXPECT_GT(wide.height(), 15.0);
  for (const Shape& text : shapesOn(scene, Layer::kMarks, Shape::Kind::kText)) {
    EXPECT_FALSE(paintedBox(text).meets(wide)) << text.lettering.text;
  }
}

// On a sheet made around the drawing as well as on a usual one.
TEST(ToolMarkLabels, HaveRoomAroundTheDrawingAtAGivenScale) {
  DrawOptions options;
  options.scale = 20;
  const double labelled = sceneOf(barOf(level(0, 3000, 5)), options).scene.width;
  options.marks = Marks::kNone;
  EXPECT_NEAR(labelled - sceneOf(barOf(level(0, 3000, 5)), options).scene.width, 24.0, 1e-9);
}

TEST(ToolMarkLabels, HaveWholeLeadersOfHiddenBarsToo) {
  BarParts bar = level(0, 3000, 5);
  bar.isHidden = true;
  const Scene scene = sceneOf(barOf(bar)).scene;
  EXPECT_TRUE(shapesOn(scene, Layer::kBars).back().style.isDashed);
  for (const Shape& shape : shapesOn(scene, Layer::kMarks)) {
    EXPECT_TRUE(shape.isHidden);
    EXPECT_FALSE(shape.style.isDashed);
  }
}

// The leader goes from the bar to the bubble, and the words stand beside it.
TEST(ToolMarkLabels, HaveALeaderFromTheirBarToTheirBubble) {
  DrawOptions options;
  options.scale = 20;
  const Scene scene = sceneOf(barOf(level(0, 3000, 5)), options).scene;
  const auto leaders = shapesOn(scene, Layer::kMarks, Shape::Kind::kPath);
  const auto bubbles = shapesOn(scene, Layer::kMarks, Shape::Kind::kCircle);
  const auto texts = shapesOn(scene, Layer::kMarks, Shape::Kind::kText);
  ASSERT_EQ(leaders.size(), 1U);
  ASSERT_EQ(bubbles.size(), 1U);
  ASSERT_EQ(texts.size(), 2U);
  const Path bar = shapesOn(scene, Layer::kBars).at(0).path;
  EXPECT_LT(test::distanceTo(bar, leaders[0].path.steps().front().to), 1e-6);
  EXPECT_NEAR(lengthOf(leaders[0].path.end() - bubbles[0].center), bubbles[0].radius, 1e-6);
  EXPECT_EQ(texts[0].lettering.at, bubbles[0].center);
  const SheetBox mark = paintedBox(texts[0]);
  EXPECT_LT(mark.width() / 2.0, bubbles[0].radius) << "the mark has room in its bubble";
  EXPECT_GT(paintedBox(texts[1]).least.x, bubbles[0].center.x + bubbles[0].radius);
  EXPECT_TRUE(bubbles[0].style.isOnPaper) << "what lies below does not show through";
}

TEST(ToolMarkLabels, HaveRoomForLongMarks) {
  DrawOptions options;
  options.scale = 20;
  const Scene scene = sceneOf(barOf(level(0, 3000, 123456789)), options).scene;
  const Shape bubble = shapesOn(scene, Layer::kMarks, Shape::Kind::kCircle).at(0);
  const Shape mark = shapesOn(scene, Layer::kMarks, Shape::Kind::kText).at(0);
  EXPECT_EQ(mark.lettering.text, "123456789");
  EXPECT_LT(paintedBox(mark).width() / 2.0, bubble.radius);
}

TEST(ToolMarkLabels, AreAsHighAsTheDrawingsOwnLettering) {
  const auto heightOf = [](double lettering) {
    DrawOptions options;
    options.scale = 25;
    const Scene scene =
        sceneOf(barOf(level(0, 3000, 5)) +
                    test::textOf({.contents = "x", .at = {0, 900, 0}, .height = lettering}),
                options)
            .scene;
    return shapesOn(scene, Layer::kMarks, Shape::Kind::kText).at(0).lettering.height;
  };
  EXPECT_NEAR(heightOf(62.5), 2.5, 1e-9);
  EXPECT_NEAR(heightOf(75), 3.0, 1e-9);
  EXPECT_NEAR(heightOf(20), 1.8, 1e-9) << "but never too small to read";
  EXPECT_NEAR(heightOf(500), 3.5, 1e-9) << "nor larger than labels are";
}

TEST(ToolMarkLabels, OfHiddenBarsCanBeHiddenWithThem) {
  BarParts hidden = level(0, 3000, 5);
  hidden.isHidden = true;
  DrawOptions options;
  options.hidden = HiddenBars::kOff;
  EXPECT_TRUE(shapesOn(sceneOf(barOf(hidden), options).scene, Layer::kMarks).empty());
}

}  // namespace

}  // namespace quorvan::tool
