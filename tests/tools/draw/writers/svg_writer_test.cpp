// A scene as SVG, shape by shape.
#include <tools/draw/writers/svg_writer.h>

#include <gtest/gtest.h>

#include <numbers>
#include <regex>
#include <sstream>

#include <tests/tools/loaded_file.h>
#include <tests/tools/picture.h>

namespace quorvan::tool {

namespace {

Shape pathShape(Layer layer, const Style& style, const Path& path) {
  Shape shape{};
  shape.layer = layer;
  shape.kind = Shape::Kind::kPath;
  shape.style = style;
  shape.path = path;
  return shape;
}

Path segment(PlanePoint from, PlanePoint to) {
  Path path;
  path.moveTo(from);
  path.lineTo(to);
  return path;
}

Shape textShape(const Lettering& lettering, bool isOnPaper = false) {
  Shape shape{};
  shape.layer = Layer::kTexts;
  shape.kind = Shape::Kind::kText;
  shape.style.isFilled = true;
  shape.style.isOnPaper = isOnPaper;
  shape.lettering = lettering;
  return shape;
}

// On a sheet of 100 by 50.
std::string svgOf(std::vector<Shape> shapes, const SvgOptions& options = {},
                  const std::optional<SheetBox>& window = std::nullopt) {
  Scene scene;
  scene.width = 100;
  scene.height = 50;
  scene.title = "A & B";
  scene.window = window;
  scene.shapes = std::move(shapes);
  std::ostringstream out;
  writeSvg(scene, options, out);
  return out.str();
}

std::size_t countOf(const std::string& text, const std::string& part) {
  std::size_t found = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++found;
  }
  return found;
}

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(ToolSvg, HasTheSizeOfTheSheetInMillimetres) {
  const std::string svg = svgOf({});
  EXPECT_EQ(svg.substr(0, 38), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
  EXPECT_TRUE(has(svg, "width=\"100mm\" height=\"50mm\" viewBox=\"0 0 100 50\""));
  EXPECT_TRUE(has(svg, "<title>A &amp; B</title>"));
  EXPECT_TRUE(has(svg, "<rect class=\"paper\" width=\"100\" height=\"50\" fill=\"#ffffff\"/>"));
  EXPECT_EQ(svg.substr(svg.size() - 7), "</svg>\n");
}

TEST(ToolSvg, LeavesItsSizeToThePageThatItStandsIn) {
  const std::string svg = svgOf({}, {true});
  EXPECT_EQ(svg.substr(0, 5), "<svg ");
  EXPECT_FALSE(has(svg, "mm\""));
  EXPECT_TRUE(has(svg, "viewBox=\"0 0 100 50\""));
}

TEST(ToolSvg, TurnsTheSheetUpsideDown) {
  EXPECT_TRUE(has(svgOf({pathShape(Layer::kLines, {{}, 0.18}, segment({1, 2}, {30.5, 50}))}),
                  "d=\"M1 48L30.5 0\""));
  Shape circle{};
  circle.layer = Layer::kCircles;
  circle.kind = Shape::Kind::kCircle;
  circle.style.width = 0.18;
  circle.center = {10, 20};
  circle.radius = 4.25;
  EXPECT_TRUE(has(svgOf({circle}), "cx=\"10\" cy=\"30\" r=\"4.25\""));
}

TEST(ToolSvg, WritesThousandthsOfAMillimetre) {
  EXPECT_TRUE(has(svgOf({pathShape(Layer::kLines, {{}, 0.18},
                                   segment({1.0 / 3.0, 2.0 / 3.0}, {-1e-9, 50.0004}))}),
                  "d=\"M0.333 49.333L0 0\""));
}

TEST(ToolSvg, DrawsArcsOnTheirSide) {
  const auto arc = [](double sweep) {
    Path path;
    path.moveTo({60, 25});
    path.arcTo({50, 25}, sweep);
    return svgOf({pathShape(Layer::kLines, {{}, 0.18}, path)});
  };
  // To the left, which on the sheet is up from here: against the clock.
  EXPECT_TRUE(has(arc(std::numbers::pi / 2), "d=\"M60 25A10 10 0 0 0 50 15\""));
  EXPECT_TRUE(has(arc(-std::numbers::pi / 2), "d=\"M60 25A10 10 0 0 1 50 35\""));
  // More than half a turn goes over the middle.
  EXPECT_TRUE(has(arc(1.5 * std::numbers::pi), "A10 10 0 0 0 42.929 17.929A10 10 0 0 0 50 35\""))
      << arc(1.5 * std::numbers::pi);
  EXPECT_TRUE(has(arc(2 * std::numbers::pi), "A10 10 0 0 0 40 25A10 10 0 0 0 60 25\""))
      << "a whole turn is no nothing";
}

// Read again, every arc goes where it was to go.
TEST(ToolSvg, KeepsArcsOfAnySweep) {
  for (double sweep = -6.2; sweep < 6.3; sweep += 0.4) {
    Path path;
    path.moveTo({60, 25});
    path.arcTo({50, 25}, sweep);
    const auto picture = test::measure(svgOf({pathShape(Layer::kLines, {{}, 0.18}, path)}));
    ASSERT_EQ(picture.shapes.size(), 1U);
    double farthest = 0.0;
    for (std::size_t i = 0; i < picture.shapes[0].xs.size(); ++i) {
      farthest = std::max(
          farthest,
          std::abs(std::hypot(picture.shapes[0].xs[i] - 50, picture.shapes[0].ys[i] - 25) - 10.0));
    }
    EXPECT_LT(farthest, 0.02) << sweep;
    EXPECT_NEAR(picture.shapes[0].xs.back(), path.end().x, 0.001);
    EXPECT_NEAR(picture.shapes[0].ys.back(), 50 - path.end().y, 0.001);
    const double half = sweep / 2.0;
    bool isOnItsWay = false;
    for (std::size_t i = 0; i < picture.shapes[0].xs.size(); ++i) {
      isOnItsWay =
          isOnItsWay || std::hypot(picture.shapes[0].xs[i] - (50 + 10 * std::cos(half)),
                                   picture.shapes[0].ys[i] - (25 - 10 * std::sin(half))) < 1.5;
    }
    EXPECT_TRUE(isOnItsWay) << sweep;
  }
}

TEST(ToolSvg, ClosesPathsThatAreClosed) {
  Path path = segment({0, 0}, {10, 0});
  path.lineTo({10, 10});
  path.close();
  EXPECT_TRUE(
      has(svgOf({pathShape(Layer::kFills, {{}, 0.0, true}, path)}), "d=\"M0 50L10 50L10 40Z\""));
}

TEST(ToolSvg, HasAStyleOnceForAllThatHaveIt) {
  const Style bars{{1, 2, 3}, 0.5};
  const std::string svg =
      svgOf({pathShape(Layer::kLines, bars, segment({0, 0}, {1, 1})),
             pathShape(Layer::kBars, bars, segment({0, 0}, {1, 1})),
             pathShape(Layer::kBars, {{1, 2, 3}, 0.6}, segment({0, 0}, {1, 1}))});
  EXPECT_EQ(countOf(svg, "stroke-width:0.5}"), 1U);
  EXPECT_EQ(countOf(svg, "stroke-width:0.6}"), 1U);
  EXPECT_EQ(countOf(svg, "stroke:#010203"), 2U);
  EXPECT_EQ(countOf(svg, "class=\"s0\""), 2U);
  EXPECT_EQ(countOf(svg, "class=\"s1\""), 1U);
}

// The ends of dashes are cut square: round ones as wide as a bar would close the gaps.
TEST(ToolSvg, LeavesGapsBetweenDashes) {
  for (const double width : {0.18, 0.5, 2.0, 10.0}) {
    Style style{{}, width};
    style.isDashed = true;
    const std::string svg = svgOf({pathShape(Layer::kBars, style, segment({0, 0}, {1, 1}))});
    std::smatch found;
    ASSERT_TRUE(
        std::regex_search(svg, found, std::regex("stroke-dasharray:([0-9.]+) ([0-9.]+)([^}]*)")));
    EXPECT_GE(std::stod(found[1]), 1.5) << width;
    EXPECT_GE(std::stod(found[2]), 1.0) << width;
    EXPECT_GE(std::stod(found[2]), width) << "the gap is longer than the line is wide";
    EXPECT_EQ(found[3].str(), ";stroke-linecap:butt");
  }
  EXPECT_FALSE(has(svgOf({pathShape(Layer::kBars, {{}, 0.5}, segment({0, 0}, {1, 1}))}), "dash"));
}

TEST(ToolSvg, BlanksWhatLiesBelowBubblesAndLabels) {
  Shape bubble{};
  bubble.layer = Layer::kMarks;
  bubble.kind = Shape::Kind::kCircle;
  bubble.style = {{9, 9, 9}, 0.18};
  bubble.style.isOnPaper = true;
  EXPECT_TRUE(has(svgOf({bubble}), "{fill:#ffffff;stroke:#090909;stroke-width:0.18}"));
  const std::string label =
      svgOf({textShape({"x", {5, 5}, 2.0, 0, AlignX::kLeft, AlignY::kBase}, true)});
  EXPECT_TRUE(has(label, "{fill:#000000;paint-order:stroke;stroke:#ffffff}"));
  EXPECT_TRUE(has(label, "stroke-width=\"0.6\""));
  EXPECT_FALSE(
      has(svgOf({textShape({"x", {5, 5}, 2.0, 0, AlignX::kLeft, AlignY::kBase})}), "stroke-width"));
}

TEST(ToolSvg, HasAGroupForEachLayerInItsOrder) {
  const Style style{{}, 0.2};
  const Path path = segment({0, 0}, {1, 1});
  const std::string svg =
      svgOf({pathShape(Layer::kFormwork, style, path), pathShape(Layer::kFormwork, style, path),
             pathShape(Layer::kBars, style, path), pathShape(Layer::kTitle, style, path)});
  EXPECT_EQ(countOf(svg, "<g "), 3U);
  EXPECT_EQ(countOf(svg, "</g>"), 3U);
  EXPECT_LT(svg.find("data-layer=\"formwork\""), svg.find("data-layer=\"bars\""));
  EXPECT_LT(svg.find("data-layer=\"bars\""), svg.find("data-layer=\"title\""));
  EXPECT_FALSE(has(svgOf({}), "<g"));
}

TEST(ToolSvg, CutsTheDrawingAtItsWindowAndNotTheTitle) {
  const Style style{{}, 0.2};
  const Path path = segment({0, 0}, {1, 1});
  const std::string svg =
      svgOf({pathShape(Layer::kBars, style, path), pathShape(Layer::kTitle, style, path)}, {},
            SheetBox{{10, 5}, {60, 45}});
  EXPECT_TRUE(has(svg,
                  "<clipPath id=\"window\"><rect x=\"10\" y=\"5\" width=\"50\" height=\"40\"/>"
                  "</clipPath>"));
  EXPECT_TRUE(has(svg, "<g data-layer=\"bars\" clip-path=\"url(#window)\">"));
  EXPECT_TRUE(has(svg, "<g data-layer=\"title\">"));
}

TEST(ToolSvg, NamesTheElementOfAShapeAndWhetherItIsHidden) {
  Shape shape = pathShape(Layer::kBars, {{}, 0.2}, segment({0, 0}, {1, 1}));
  EXPECT_FALSE(has(svgOf({shape}), "data-e"));
  shape.element = 0;
  EXPECT_TRUE(has(svgOf({shape}), "<path class=\"s0\" data-e=\"0\" d="));
  shape.element = 123456;
  shape.isHidden = true;
  EXPECT_TRUE(has(svgOf({shape}), "<path class=\"s0 hidden-bar\" data-e=\"123456\" d="));
}

TEST(ToolSvg, PutsTextsOnTheirBaseLine) {
  const auto text = [](AlignX x, AlignY y, double angle) {
    return svgOf({textShape({"Ab", {20, 30}, 3.58, angle, x, y})});
  };
  EXPECT_TRUE(
      has(text(AlignX::kLeft, AlignY::kBase, 0), "x=\"20\" y=\"20\" font-size=\"5\">Ab</text>"));
  EXPECT_TRUE(has(text(AlignX::kCentre, AlignY::kMiddle, 0),
                  "x=\"20\" y=\"21.79\" font-size=\"5\" text-anchor=\"middle\">Ab</text>"));
  EXPECT_TRUE(has(text(AlignX::kRight, AlignY::kTop, 0),
                  "x=\"20\" y=\"23.58\" font-size=\"5\" text-anchor=\"end\">Ab</text>"));
  EXPECT_TRUE(has(text(AlignX::kLeft, AlignY::kBase, std::numbers::pi / 2),
                  "transform=\"rotate(-90 20 20)\">Ab</text>"));
  EXPECT_TRUE(has(text(AlignX::kLeft, AlignY::kBase, -0.1), "transform=\"rotate(5.73 20 20)\""));
  EXPECT_FALSE(has(text(AlignX::kLeft, AlignY::kBase, 1e-6), "transform")) << "nothing to see";
}

TEST(ToolSvg, WritesTextsThatXmlWouldTakeForMarkup) {
  EXPECT_EQ(xmlText("a<b>&\"c\"\n'd'"), "a&lt;b&gt;&amp;&quot;c&quot;\n'd'");
  EXPECT_EQ(xmlText("\r"), "&#" + std::to_string('\r') + ';') << "else it is read as a line feed";
  EXPECT_EQ(xmlText("\u00E9\u20AC"), "\u00E9\u20AC");
  const std::string svg =
      svgOf({textShape({"]]></text><script>&", {0, 0}, 2, 0, AlignX::kLeft, AlignY::kBase})});
  EXPECT_FALSE(has(svg, "<script>"));
}

// The picture can be read by whatever reads XML.
TEST(ToolSvg, IsWellFormed) {
  Shape shape = pathShape(Layer::kBars, {{}, 0.2}, segment({0, 0}, {1, 1}));
  const std::string svg =
      svgOf({shape, textShape({"<&>\"", {0, 0}, 2, 1, AlignX::kLeft, AlignY::kBase})}, {},
            SheetBox{{0, 0}, {9, 9}});
  const test::LoadedFile loaded(svg);
  EXPECT_GT(loaded.file().elements().size(), 3U);
}

}  // namespace

}  // namespace quorvan::tool
