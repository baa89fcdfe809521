// The row of samples, the scale to measure by, and the title block.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include <tests/tools/drawn_elements.h>
#include <tools/draw/scene/painted_box.h>
#include <tools/draw/scene/sheet.h>

namespace quorvan::tool {

namespace {

using test::barOf;
using test::sceneOf;
using test::shapesOn;

std::vector<std::string> titleOf(const std::string& elements, DrawOptions options = {}) {
  return test::textsOn(sceneOf(elements, options).scene, Layer::kTitle);
}

bool contains(const std::vector<std::string>& texts, const std::string& text) {
  return std::ranges::find(texts, text) != texts.end();
}

std::string levelBar(bool isHidden = false) {
  return barOf({.points = {{0, 0, 0}, {3000, 0, 0}}, .diameter = 12, .isHidden = isHidden});
}

// Every kind of line that the legend can explain, with an element that has it alone.
struct LegendCase {
  std::string elements;
  const char* english;
  const char* french;
};

std::vector<LegendCase> legendCases() {
  return {{test::concreteOf(0, 0, 900, 900), "formwork", "coffrage"},
          {test::meshOf("T", "", {{0, 0, 0}, {900, 0, 0}, {900, 900, 0}}), "mesh", "treillis"},
          {levelBar(), "bar", "barre"},
          {barOf({.className = "Stirrup", .points = {{0, 0, 0}, {0, 900, 0}}}), "link", "cadre"},
          {barOf({.className = "PointBar", .points = {{0, 0, 0}}}), "bar seen end-on",
           "barre vue en bout"}};
}

TEST(ToolLegend, ExplainsTheKindsThatAreDrawnAndNoOthers) {
  const std::vector<LegendCase> cases = legendCases();
  for (std::size_t i = 0; i < cases.size(); ++i) {
    for (const Language language : {Language::kEnglish, Language::kFrench}) {
      DrawOptions options;
      options.language = language;
      options.marks = Marks::kNone;
      const auto texts = titleOf(cases[i].elements, options);
      for (std::size_t k = 0; k < cases.size(); ++k) {
        const char* const word =
            language == Language::kEnglish ? cases[k].english : cases[k].french;
        EXPECT_EQ(contains(texts, word), i == k) << word << " with " << cases[i].english;
      }
    }
  }
}

TEST(ToolLegend, ExplainsDashesWhereHiddenBarsAreDashed) {
  EXPECT_TRUE(contains(titleOf(levelBar(true)), "hidden"));
  EXPECT_FALSE(contains(titleOf(levelBar()), "hidden"));
  DrawOptions options;
  options.hidden = HiddenBars::kSolid;
  EXPECT_FALSE(contains(titleOf(levelBar(true), options), "hidden"));
}

// The ruler is as long on paper as it says, in the drawing's unit.
TEST(ToolLegend, HasARulerThatIsAsLongAsItSays) {
  for (const LengthUnit& unit : kLengthUnits) {
    for (const double scale : {1.0, 2.5, 20.0, 50.0, 75.0, 1000.0}) {
      DrawOptions options;
      options.unit = &unit;
      options.scale = scale;
      const double side = unit.ofMillimetres(200.0 * scale);
      const Scene scene = sceneOf(test::lineOf({0, 0, 0}, {side, 0, 0}), options).scene;
      double said = 0.0;
      for (const std::string& text : test::textsOn(scene, Layer::kTitle)) {
        const std::string ending = ' ' + std::string(unit.name);
        if (text.ends_with(ending) && text.find(':') == std::string::npos) {
          said = std::stod(text);
        }
      }
      double drawn = 0.0;
      for (const Shape& shape : shapesOn(scene, Layer::kTitle, Shape::Kind::kPath)) {
        const SheetBox box = boxOf(shape.path);
        // The ruler has two strokes at its ends, 1.8 high.
        if (std::abs(box.height() - 1.8) < 1e-6) {
          drawn = box.width();
        }
      }
      EXPECT_GT(said, 0.0) << unit.name << ' ' << scale;
      EXPECT_NEAR(unit.millimetres(said) / scale, drawn, 1e-6) << unit.name << ' ' << scale;
      EXPECT_LE(drawn, 30.0);
      EXPECT_GE(drawn, 10.0);
    }
  }
}

TEST(ToolTitleBlock, SaysWhatTheControlRecordSays) {
  DrawOptions options;
  options.sheet = SheetSize{420, 297};
  options.scale = 20;
  const auto texts = titleOf(levelBar() + test::controlOf("Beam B1", "2025.1", 3, -77), options);
  for (const char* const text : {"Beam B1", "2025.1 SP3", "-77", "1:20, mm", "scene.xml", "Drawing",
                                 "File", "Produced by", "Check sum", "Scale, unit"}) {
    EXPECT_TRUE(contains(texts, text)) << text;
  }
  options.language = Language::kFrench;
  EXPECT_TRUE(contains(titleOf(levelBar(), options), "sans fiche de contr\u00F4le"));
  EXPECT_TRUE(contains(titleOf(levelBar(), options), "\u00C9chelle, unit\u00E9"));
}

TEST(ToolTitleBlock, CountsTheLastOfSeveralControlRecords) {
  const auto texts = titleOf(test::controlOf("first") + test::controlOf("last"));
  EXPECT_TRUE(contains(texts, "last"));
  EXPECT_FALSE(contains(texts, "first"));
}

TEST(ToolTitleBlock, GivesThePictureItsName) {
  EXPECT_EQ(sceneOf(test::controlOf("Beam B1")).scene.title, "Beam B1");
  EXPECT_EQ(sceneOf(test::controlOf("")).scene.title, "scene.xml");
  EXPECT_EQ(sceneOf("").scene.title, "scene.xml");
}

// However long they are, its texts stay in their fields, and side by side.
TEST(ToolTitleBlock, KeepsLongTextsInTheirFields) {
  const std::string longName(180, 'W');
  for (const double width : {80.0, 120.0, 210.0, 420.0, 1189.0}) {
    DrawOptions options;
    options.sheet = SheetSize{width, 200};
    options.scale = 20;
    const Scene scene =
        sceneOf(levelBar() + test::controlOf(longName, longName, 9, 2147483647), options).scene;
    std::vector<SheetBox> lower;
    for (const Shape& shape : shapesOn(scene, Layer::kTitle, Shape::Kind::kText)) {
      const SheetBox box = paintedBox(shape);
      EXPECT_GE(box.least.x, kMargin) << width << ": " << shape.lettering.text;
      EXPECT_LE(box.most.x, width - kMargin + 1e-6) << width << ": " << shape.lettering.text;
      if (box.most.y < kMargin + 7.0) {
        lower.push_back(box);
      }
    }
    std::ranges::sort(lower, {}, [](const SheetBox& box) { return box.least.x; });
    for (std::size_t i = 1; i < lower.size(); ++i) {
      EXPECT_LE(lower[i - 1].most.x, lower[i].least.x) << width;
    }
    EXPECT_GE(lower.size(), 2U);
  }
}

TEST(ToolTitleBlock, IsLeftOutWithItsLegendWhereItIsNotWanted) {
  DrawOptions options;
  options.title = Title::kNone;
  EXPECT_TRUE(shapesOn(sceneOf(levelBar(), options).scene, Layer::kTitle).empty());
}

// No sample of the legend reaches into the next, or into the ruler, on sheets of any width.
TEST(ToolLegend, KeepsItsEntriesApart) {
  std::string everything;
  for (const LegendCase& one : legendCases()) {
    everything += one.elements;
  }
  everything += levelBar(true) + test::seriesOf(test::uprightBars(0, 0, 900, 4, 200));
  for (const double width : {70.0, 100.0, 150.0, 200.0, 297.0, 420.0}) {
    for (const Language language : {Language::kEnglish, Language::kFrench}) {
      DrawOptions options;
      options.sheet = SheetSize{width, 200};
      options.scale = 20;
      options.language = language;
      const Scene scene = sceneOf(everything, options).scene;
      std::vector<SheetBox> row;
      for (const Shape& shape : shapesOn(scene, Layer::kTitle)) {
        const SheetBox box = paintedBox(shape);
        if (box.least.y > kMargin + kTitleHeight + 0.2) {
          row.push_back(box);
        }
      }
      std::ranges::sort(row, {}, [](const SheetBox& box) { return box.least.x; });
      for (std::size_t i = 1; i < row.size(); ++i) {
        EXPECT_LE(row[i - 1].most.x, row[i].least.x + 1e-6) << width;
      }
      EXPECT_TRUE(row.empty() || row.back().most.x <= width - kMargin + 1e-6) << width;
      EXPECT_TRUE(row.empty() || row.front().least.x >= kMargin - 1.0) << width;
    }
  }
}

}  // namespace

}  // namespace quorvan::tool
