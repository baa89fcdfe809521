// The sheet: what lies on it, at which scale, and what is left out.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <regex>

#include <tests/tools/picture.h>
#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>

namespace {

using quorvan::test::drawFile;
using quorvan::test::measure;
using quorvan::test::PaintedPicture;
using quorvan::test::PaintedShape;
using quorvan::test::runTool;

std::string svgNumber(double value) {
  return std::to_string(value);
}

std::string point(const std::string& name, double x, double y) {
  return "<" + name + " X=\"" + svgNumber(x) + "\" Y=\"" + svgNumber(y) + "\" Z=\"0\"/>";
}

std::string svgText(const std::string& contents, double x, double y, double height,
                    double angle = 0, int across = 0) {
  return "<CKtZantoText><Contents string=\"" + contents + "\"/>" + point("Location", x, y) +
         "<Angle double=\"" + svgNumber(angle) + "\"/><JustificationX long=\"" +
         std::to_string(across) + "\"/><Color long=\"7\"/><Height double=\"" + svgNumber(height) +
         "\"/></CKtZantoText>";
}

std::string svgLine(double x1, double y1, double x2, double y2) {
  return "<CKtZantoLine>" + point("Point1", x1, y1) + point("Point2", x2, y2) +
         "<Color long=\"7\"/></CKtZantoLine>";
}

std::string rectangle(double x1, double y1, double x2, double y2) {
  return svgLine(x1, y1, x2, y1) + svgLine(x2, y1, x2, y2) + svgLine(x2, y2, x1, y2) +
         svgLine(x1, y2, x1, y1);
}

std::string bar(double x1, double y1, double x2, double y2, double hook, double hookAngle,
                double diameter, int mark) {
  const std::string length = svgNumber(hook);
  const std::string angle = svgNumber(hookAngle);
  return "<CKtZantoStraightBar index=\"" + std::to_string(mark) + "\">" + point("Point1", x1, y1) +
         point("Point2", x2, y2) + "<HookLength1 double=\"" + length +
         "\"/><HookLength2 double=\"" + length +
         "\"/><Hook1Up string=\"True\"/><Hook2Up string=\"False\"/><HookAngle1 double=\"" + angle +
         "\"/><HookAngle2 double=\"" + angle + "\"/><Diameter double=\"" + svgNumber(diameter) +
         "\"/><Reference long=\"" + std::to_string(mark) + "\"/></CKtZantoStraightBar>";
}

// Upright bars from y1 to y2, `count` of them.
std::string series(double x, double y1, double y2, int count, double step, int index) {
  const double middle = (y1 + y2) / 2.0;
  const auto list = [](const std::string& name, const std::string& entry, int size, double value) {
    std::string items = "<" + name + " size=\"" + std::to_string(size) + "\">";
    for (int i = 1; i <= size; ++i) {
      items += "<" + entry + std::to_string(i) + " double=\"" + svgNumber(value) + "\"/>";
    }
    return items + "</" + name + ">";
  };
  return "<CKtZantoRepartition>" + point("Point1", x, middle) +
         point("Point2", x + step * (count - 1), middle) + "<Axis X=\"10\" Y=\"0\" Z=\"0\"/>" +
         list("AxisDistancesTop", "DistanceTop", count, y2 - middle) +
         list("AxisDistancesBottom", "DistanceBottom", count, y1 - middle) +
         list("Positions", "Positions", count - 1, step) +
         "<DefClassName string=\"CKtZantoStraightBar\"/><Index long=\"" + std::to_string(index) +
         "\"/></CKtZantoRepartition>";
}

std::string scaleOf(const std::string& svg) {
  std::smatch found;
  std::regex_search(svg, found, std::regex("1:([0-9.]+), mm"));
  return found[1].str();
}

std::string document(const std::string& elements) {
  return "<Document>" + elements + "</Document>";
}

void expectInside(const PaintedPicture& picture) {
  const double bottom = picture.height - 20.0;  // the strip
  for (const PaintedShape& shape : picture.shapes) {
    if (shape.xs.empty() || shape.layer == "title") {
      continue;
    }
    const double half = shape.width / 2.0;
    EXPECT_GE(shape.left() - half, 0.0) << shape.layer << ' ' << shape.content;
    EXPECT_LE(shape.right() + half, picture.width) << shape.layer << ' ' << shape.content;
    EXPECT_GE(shape.top() - half, 0.0) << shape.layer << ' ' << shape.content;
    EXPECT_LE(shape.bottom() + half, bottom) << shape.layer << ' ' << shape.content;
  }
}

// A beam of 6 m by 500 mm with its title, as a base for what else is there.
std::string beam() {
  std::string all = rectangle(0, 0, 6000, 500) + svgText("ELEVATION", 0, 800, 87.5);
  for (int i = 0; i < 6; ++i) {
    all += bar(50 + i, 40 + 70 * i, 5950, 40 + 70 * i, 0, 0, 16, i + 1) +
           svgText("B" + std::to_string(i), 900.0 * i, -150, 62.5);
  }
  return all;
}

TEST(ToolDrawSheet, HoldsHooksSeriesAndTexts) {
  expectInside(measure(drawFile(document(bar(0, 0, 1000, 0, 900, 90, 12, 1)))));
  expectInside(measure(
      drawFile(document(bar(0, 0, 1000, 0, 0, 0, 12, 1) + series(0, -3000, 4000, 5, 200, 1)))));
  const std::string note = "a note that is much longer than all that it says something about";
  expectInside(measure(drawFile(document(svgLine(0, 0, 500, 0) + svgText(note, 500, 0, 50)))));
  expectInside(measure(drawFile(document(svgLine(0, 0, 500, 0) + svgText(note, 0, 0, 50, 0, 2)))));
  expectInside(measure(drawFile(document(svgLine(0, 0, 500, 0) + svgText(note, 0, 0, 50, 60)))));
}

TEST(ToolDrawSheet, HoldsRandomDrawings) {
  std::mt19937 random(7);
  const auto between = [&](double least, double most) {
    return least + (most - least) * static_cast<double>(random() % 100000) / 1e5;
  };
  for (int run = 0; run < 40; ++run) {
    SCOPED_TRACE(run);
    const double size = std::pow(10.0, between(0.5, 5.5));
    std::string all;
    const int count = 3 + static_cast<int>(random() % 20);
    for (int i = 1; i <= count; ++i) {
      const double x = between(0, size);
      const double y = between(0, size);
      const double hooks[] = {45, 90, 135, 180};
      all += bar(x, y, between(0, size), between(0, size), between(0, size / 4),
                 hooks[random() % 4], between(6, 40), i);
      if (random() % 2 == 0) {
        all += series(x, y - between(1, size), y + between(1, size), 5, size / 20, i);
      }
      all += svgText("Text number " + std::to_string(i), x, y, between(size / 200, size / 30),
                     between(0, 360), static_cast<int>(random() % 3));
    }
    expectInside(measure(drawFile(document(all))));
  }
}

TEST(ToolDrawSheet, TakesItsScaleFromTheLettering) {
  EXPECT_EQ(scaleOf(drawFile(document(beam()))), "25");
  EXPECT_EQ(scaleOf(drawFile(document(rectangle(0, 0, 6000, 500) + svgText("x", 0, 600, 125)))),
            "50");
  EXPECT_EQ(scaleOf(drawFile(document(rectangle(0, 0, 600, 500) + svgText("x", 0, 600, 25)))),
            "10");
}

TEST(ToolDrawSheet, TakesTheScaleThatATextStatesWhereTheLetteringFits) {
  const std::string drawing = rectangle(0, 0, 3000, 500) + svgText("x", 0, 600, 75);
  EXPECT_EQ(scaleOf(drawFile(document(drawing + svgText("Scale 1:20", 0, -200, 75)))), "20");
  EXPECT_EQ(scaleOf(drawFile(document(drawing + svgText("Ech. 1/50", 0, -200, 75)))), "50");
  EXPECT_EQ(scaleOf(drawFile(document(drawing + svgText("slope 1:500", 0, -200, 75)))), "25");
}

TEST(ToolDrawSheet, TakesTheSmallestUsualSheet) {
  const auto sheet = [](const std::string& drawing) {
    const auto picture = measure(drawFile(document(drawing)));
    return std::pair(picture.width, picture.height);
  };
  EXPECT_EQ(sheet(rectangle(0, 0, 3000, 2000) + svgText("x", 0, 600, 62.5)),
            std::pair(297.0, 210.0));
  EXPECT_EQ(sheet(rectangle(0, 0, 3000, 8000) + svgText("x", 0, 600, 62.5)),
            std::pair(297.0, 420.0));
  EXPECT_EQ(sheet(rectangle(0, 0, 12000, 6000) + svgText("x", 0, 600, 62.5)),
            std::pair(594.0, 420.0));
}

// A frame with a title block of its own stays at its scale: the strip goes below it.
TEST(ToolDrawSheet, LeavesAFrameOfTheDrawingItsScale) {
  const std::string drawing = beam() + rectangle(-1000, -3000, 9500, 4425);
  const std::string svg = drawFile(document(drawing));
  EXPECT_EQ(scaleOf(svg), "25");
  const auto picture = measure(svg);
  EXPECT_NEAR(picture.width, 420 + 16, 0.01);
  EXPECT_NEAR(picture.height, 297 + 16 + 20, 0.01);
  const auto bare = measure(drawFile(document(drawing), {"--title", "none"}));
  EXPECT_NEAR(bare.height, 297 + 16, 0.01);
  EXPECT_TRUE(bare.layer("title").empty());
  const auto onA2 = measure(drawFile(document(drawing), {"--sheet", "436x313"}));
  EXPECT_NEAR(onA2.layer("lines").front().right() - onA2.layer("lines").front().left(), 240.0,
              0.01);
}

TEST(ToolDrawSheet, LeavesOutOneStrayText) {
  std::string messages;
  const auto whole = measure(drawFile(document(beam())));
  const auto picture =
      measure(drawFile(document(beam() + svgText("stray", 4e6, 1e6, 60)), {}, &messages));
  EXPECT_EQ(picture.width, whole.width);
  EXPECT_EQ(messages,
            "drawn.xml: warning: 1 element lies far from the others and is left out (--window all "
            "draws everything): Text, Contents \"stray\", at (4000000, 1000000, 0)\n");
  for (const PaintedShape& shape : picture.shapes) {
    EXPECT_NE(shape.content, "stray");
  }
  drawFile(document(beam() + svgText("stray", 4e6, 1e6, 60)), {"--window", "all"}, &messages);
  EXPECT_EQ(messages, "");
}

TEST(ToolDrawSheet, LeavesOutWhatRoundingNoiseMade) {
  std::string messages;
  const std::string noise =
      svgLine(100, 100, -3.5e15, 100) + svgText("a", -1e9, 0, 60) + svgText("b", 1e9, 5e8, 60);
  EXPECT_EQ(scaleOf(drawFile(document(beam() + noise), {}, &messages)), "25");
  EXPECT_NE(messages.find("warning: 3 elements lie far"), std::string::npos) << messages;
}

TEST(ToolDrawSheet, KeepsViewsThatLieApartAndWhatSurroundsThem) {
  std::string messages;
  std::string second;
  for (int i = 0; i < 4; ++i) {
    second += svgLine(200000 + 100 * i, 0, 200000 + 100 * i, 300);
  }
  drawFile(document(beam() + second), {}, &messages);
  EXPECT_EQ(messages, "");
  drawFile(document(beam() + rectangle(-30000, -30000, 40000, 30000)), {}, &messages);
  EXPECT_EQ(messages, "");
}

TEST(ToolDrawSheet, ShowsTheWindowThatIsAskedFor) {
  const std::string svg =
      drawFile(document(beam()), {"--window", "-100,-250,1900,600", "--scale", "10"});
  const auto picture = measure(svg);
  EXPECT_NEAR(picture.width, 200 + 16, 0.01);
  EXPECT_NE(svg.find("clip-path=\"url(#window)\""), std::string::npos);
  for (const PaintedShape& shape : picture.layer("texts")) {
    EXPECT_NE(shape.content, "B5") << "lies beyond the window";
  }
  for (const char* const wrong : {"1,2,3", "0,0,0,9", "a,b,c,d", "1,2,3,4,5", "0,0,9,1e999", ","}) {
    EXPECT_EQ(runTool({"draw", "drawn.xml", "-o", "x.svg", "--window", wrong}).status, 2) << wrong;
  }
}

TEST(ToolDrawSheet, TakesLayers) {
  const auto layersOf = [](const std::vector<std::string>& options) {
    std::string names;
    for (const PaintedShape& shape :
         measure(drawFile(quorvan::test::sampleBytes(), options)).shapes) {
      if (names.find(shape.layer) == std::string::npos) {
        names += (names.empty() ? "" : " ") + shape.layer;
      }
    }
    return names;
  };
  EXPECT_EQ(layersOf({"--layers", "bars,links"}), "links bars title");
  EXPECT_EQ(layersOf({"--layers", "bars", "--without", "title"}), "bars");
  EXPECT_EQ(layersOf({"--without", "texts,marks,title,meshes"}),
            "fills formwork lines circles links bars end-on repartitions");
  EXPECT_EQ(runTool({"draw", "drawn.xml", "-o", "x.svg", "--layers", "rebars"}).err,
            "quorvan: \"rebars\" is not a layer; there are fills, meshes, formwork, lines, "
            "circles, links, bars, end-on, repartitions, texts, marks, title\n");
}

TEST(ToolDrawSheet, DrawsTextsWithoutHeightAndPaleColoursLegibly) {
  std::string messages;
  const std::string pale = "<CKtZantoLine>" + point("Point1", 0, 0) + point("Point2", 100, 0) +
                           "<Color long=\"16777200\"/></CKtZantoLine>";
  const std::string svg =
      drawFile(document(beam() + svgText("flat", 0, 300, 0) + pale), {}, &messages);
  EXPECT_EQ(messages,
            "drawn.xml: note: texts without a height are drawn as high as labels: 1\n"
            "drawn.xml: note: colours too pale for paper are drawn darker: 1\n");
  EXPECT_NE(svg.find("font-size=\"3.492\">flat<"), std::string::npos) << svg;
}

// Twelve metres in metres are twelve millimetres at 1:1.
TEST(ToolDrawSheet, TellsOfAStatedScaleThatItDoesNotHave) {
  const std::string slab =
      document(svgLine(0, 0, 12, 0) + svgLine(0, 8, 12, 8) + svgText("SLAB, 1:50", 0, 9, 0.125));
  const std::string note =
      "drawn.xml: note: a text states 1:50, drawn at 1:1: --unit says what a unit of length is, "
      "--scale 50 sets the scale\n";
  std::string messages;
  drawFile(slab, {}, &messages);
  EXPECT_EQ(messages, note);
  drawFile(slab, {"--window", "all"}, &messages);
  EXPECT_EQ(messages, note);
  const std::vector<std::string> answers[] = {
      {"--unit", "m"}, {"--unit", "mm"}, {"--scale", "10"}, {"--sheet", "A4"}};
  for (const std::vector<std::string>& answer : answers) {
    drawFile(slab, answer, &messages);
    EXPECT_EQ(messages, "") << answer[0] << ' ' << answer[1];
  }
  drawFile(document(beam() + svgText("DETAIL 1:5", 0, 800, 62.5) + svgText("1:25", 900, 800, 62.5)),
           {}, &messages);
  EXPECT_EQ(messages, "") << "another text states it";
}

}  // namespace
