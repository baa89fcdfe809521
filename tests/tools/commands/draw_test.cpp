#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>

#include <tests/support/saved_file.h>
#include <tests/support/test_data.h>
#include <tests/tools/drawn_elements.h>
#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>

namespace {

using quorvan::test::documentOf;
using quorvan::test::fileBytes;
using quorvan::test::meshOf;
using quorvan::test::replaced;
using quorvan::test::runTool;
using quorvan::test::sampleBytes;
using quorvan::test::writeFile;

std::string draw(const std::string& bytes, const std::vector<std::string>& options = {}) {
  writeFile("drawn.xml", bytes);
  std::vector<std::string> arguments{"draw", "drawn.xml", "-o", "drawn.svg"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  const auto run = runTool(arguments);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "");
  return fileBytes("drawn.svg");
}

std::string drawElements(const std::string& elements,
                         const std::vector<std::string>& options = {}) {
  return draw("<Document>" + elements + "</Document>", options);
}

// The group of one layer.
std::string layer(const std::string& svg, const std::string& name) {
  const std::size_t begin = svg.find("<g data-layer=\"" + name + "\">");
  if (begin == std::string::npos) {
    return {};
  }
  return svg.substr(begin, svg.find("</g>", begin) - begin);
}

std::size_t count(const std::string& text, const std::string& part) {
  std::size_t found = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++found;
  }
  return found;
}

std::string line(double x1, double y1, double x2, double y2, long color = 7) {
  const auto point = [](const char* name, double x, double y) {
    return std::string("<") + name + " X=\"" + std::to_string(x) + "\" Y=\"" + std::to_string(y) +
           "\" Z=\"0\"/>";
  };
  return "<CKtZantoLine>" + point("Point1", x1, y1) + point("Point2", x2, y2) + "<Color long=\"" +
         std::to_string(color) + "\"/></CKtZantoLine>";
}

TEST(ToolDraw, DrawsTheSampleAsPinned) {
  quorvan::test::writeSample();
  ASSERT_EQ(runTool({"draw", "sample.xml", "-o", "sample.svg", "--marks", "all"}).err, "");
  quorvan::test::expectGolden("sample.svg", fileBytes("sample.svg"));
}

TEST(ToolDraw, GivesTheSameBytesForTheSameInput) {
  EXPECT_EQ(draw(sampleBytes()), draw(sampleBytes()));
}

TEST(ToolDraw, HasALayerForEachKind) {
  const std::string svg = draw(sampleBytes(), {"--marks", "all"});
  for (const char* const name : {"fills", "meshes", "formwork", "lines", "circles", "repartitions",
                                 "links", "bars", "end-on", "texts", "marks", "title"}) {
    EXPECT_FALSE(layer(svg, name).empty()) << name;
  }
}

// 1:1 on a sheet around it: a margin of 8 mm, the title block below.
TEST(ToolDraw, LaysTheDrawingOnTheSheetToScale) {
  const std::string svg = drawElements(line(1000, 2000, 1100, 2050), {"--scale", "1"});
  EXPECT_NE(svg.find("width=\"116mm\" height=\"86mm\""), std::string::npos) << svg.substr(0, 300);
  EXPECT_NE(layer(svg, "lines").find("d=\"M8 58L108 8\""), std::string::npos) << svg;
}

TEST(ToolDraw, TakesTheLargestUsualScaleThatFits) {
  const auto scaleOf = [](double length) {
    const std::string svg = drawElements(line(0, 0, length, 0));
    std::smatch found;
    std::regex_search(svg, found, std::regex("1:([0-9.]+), mm"));
    return found[1].str();
  };
  EXPECT_EQ(scaleOf(404), "1");
  EXPECT_EQ(scaleOf(405), "2");
  EXPECT_EQ(scaleOf(10000), "25");
  EXPECT_EQ(scaleOf(10200), "50");
  EXPECT_EQ(scaleOf(404e9), "1000000000");
}

TEST(ToolDraw, TakesSheetsByNameAndBySize) {
  EXPECT_NE(draw(sampleBytes(), {"--sheet", "A4u"}).find("viewBox=\"0 0 210 297\""),
            std::string::npos);
  EXPECT_NE(draw(sampleBytes(), {"--sheet", "630x297"}).find("viewBox=\"0 0 630 297\""),
            std::string::npos);
  quorvan::test::writeSample();
  for (const char* const sheet : {"A9", "630", "x", "-1x5", "1e9x5"}) {
    EXPECT_EQ(runTool({"draw", "sample.xml", "-o", "x.svg", "--sheet", sheet}).status, 2) << sheet;
  }
}

TEST(ToolDraw, DrawsBulgesAsArcs) {
  const auto formwork = [](const std::string& bulge) {
    return layer(
        drawElements("<CKtZantoFormwork><Vector size=\"2\"><Point1 X=\"0\" Y=\"0\" Z=\"0\"/>"
                     "<Point2 X=\"100\" Y=\"0\" Z=\"0\"/><Bulge1 " +
                         bulge + "/></Vector></CKtZantoFormwork>" + line(0, -50, 100, 50),
                     {"--scale", "1"}),
        "formwork");
  };
  EXPECT_NE(formwork("X=\"0\" Y=\"0\" Z=\"0\"").find("d=\"M8 58L108 58\""), std::string::npos);
  // Half a circle of radius 50, over the top: with the clock, as y points downwards here.
  EXPECT_NE(formwork("X=\"0\" Y=\"50\" Z=\"0\"").find("d=\"M8 58A50 50 0 0 1 "), std::string::npos)
      << formwork("X=\"0\" Y=\"50\" Z=\"0\"");
  EXPECT_NE(formwork("X=\"0\" Y=\"-50\" Z=\"0\"").find("d=\"M8 58A50 50 0 0 0 "),
            std::string::npos);
  // A rise of 20 over a chord of 100: radius (50^2 + 20^2) / 40.
  EXPECT_NE(formwork("X=\"0\" Y=\"20\" Z=\"0\"").find("d=\"M8 58A72.5 72.5 0 0 1 108 58\""),
            std::string::npos)
      << formwork("X=\"0\" Y=\"20\" Z=\"0\"");
}

std::string straightBar(const std::string& hooks, const std::string& hidden = "False") {
  return "<CKtZantoStraightBar><Point1 X=\"0\" Y=\"0\" Z=\"0\"/><Point2 X=\"100\" Y=\"0\" "
         "Z=\"0\"/>" +
         hooks + "<Diameter double=\"10\"/><Reference long=\"3\"/><Hidden string=\"" + hidden +
         "\"/></CKtZantoStraightBar>";
}

// Without labels the sheet is as large as the drawing and its margins.
std::vector<std::string> natural() {
  return {"--scale", "1", "--marks", "none"};
}

TEST(ToolDraw, DrawsBarsAsWideAsTheyAre) {
  const std::string svg =
      drawElements(straightBar("") + line(0, -50, 100, 50), {"--scale", "2", "--marks", "none"});
  EXPECT_NE(layer(svg, "bars").find("d=\"M8 33L58 33\""), std::string::npos) << svg;
  EXPECT_NE(svg.find("stroke-width:5}"), std::string::npos);
}

// A hook of 90 degrees, bent with a radius of 25 (2.5 diameters) into the corner at the end of the
// bar: its tip is 150 above that.
TEST(ToolDraw, DrawsHooksUpAndDown) {
  const std::string hook = "<HookLength2 double=\"150\"/><HookAngle2 double=\"90\"/>";
  const std::string frame = line(0, -200, 200, 200);
  const auto bars = [&](const std::string& up) {
    return layer(
        drawElements(straightBar(hook + "<Hook2Up string=\"" + up + "\"/>") + frame, natural()),
        "bars");
  };
  EXPECT_NE(bars("True").find("d=\"M8 208L83 208A25 25 0 0 0 108 183L108 58\""), std::string::npos)
      << bars("True");
  EXPECT_NE(bars("False").find("d=\"M8 208L83 208A25 25 0 0 1 108 233L108 358\""),
            std::string::npos)
      << bars("False");
}

// Half a turn about a centre 25 before the end, and back for what is left of the length.
TEST(ToolDraw, KeepsHooksOfMoreThanARightAngleBehindTheEndOfTheBar) {
  const std::string hook =
      "<HookLength2 double=\"60\"/><HookAngle2 double=\"180\"/><Hook2Up string=\"True\"/>";
  const std::string bars =
      layer(drawElements(straightBar(hook) + line(0, -200, 200, 200), natural()), "bars");
  EXPECT_NE(bars.find("d=\"M8 208L83 208A25 25 0 0 0 108 183A25 25 0 0 0 83 158L48 158\""),
            std::string::npos)
      << bars;
}

TEST(ToolDraw, BendsAHookThatIsShorterThanItsBendCloser) {
  const std::string hook =
      "<HookLength2 double=\"10\"/><HookAngle2 double=\"90\"/><Hook2Up string=\"True\"/>";
  const std::string bars =
      layer(drawElements(straightBar(hook) + line(0, -200, 200, 200), natural()), "bars");
  EXPECT_NE(bars.find("d=\"M8 208L98 208A10 10 0 0 0 108 198L108 198\""), std::string::npos)
      << bars;
}

// A frame of 100 by 200, its first corner at the lower left, whichever way it runs round: both
// hooks leave that corner at 45 degrees, upwards to the right.
TEST(ToolDraw, TurnsTheHooksOfAFrameToItsInside) {
  const auto links = [](const char* second, const char* third) {
    return layer(
        drawElements("<CKtZantoFrameRect><Point1 X=\"0\" Y=\"0\" Z=\"0\"/><Point2 " +
                         std::string(second) + " Z=\"0\"/><Point3 " + third +
                         " Z=\"0\"/><HookLength1 double=\"80\"/><HookAngle1 double=\"135\"/>"
                         "<Diameter double=\"8\"/></CKtZantoFrameRect>",
                     natural()),
        "links");
  };
  const std::regex tail("L([0-9.]+) ([0-9.]+)\"");
  for (const std::string& svg : {links("X=\"100\" Y=\"0\"", "X=\"100\" Y=\"200\""),
                                 links("X=\"0\" Y=\"200\"", "X=\"100\" Y=\"200\"")}) {
    std::size_t tips = 0;
    for (std::sregex_iterator at(svg.begin(), svg.end(), tail); at != std::sregex_iterator();
         ++at) {
      ++tips;
      EXPECT_GT(std::stod((*at)[1]), 8.0 + 40.0) << svg;
      EXPECT_LT(std::stod((*at)[2]), 8.0 + 200.0 - 40.0) << svg;
      EXPECT_LT(std::stod((*at)[1]), 8.0 + 100.0) << svg;
    }
    EXPECT_EQ(tips, 2U) << svg;
  }
}

TEST(ToolDraw, DrawsHiddenBarsDashedOrNot) {
  const std::string bar = straightBar("", "True");
  EXPECT_NE(drawElements(bar).find("stroke-dasharray"), std::string::npos);
  EXPECT_NE(layer(drawElements(bar), "bars").find("hidden-bar"), std::string::npos);
  EXPECT_EQ(layer(drawElements(bar, {"--hidden", "off"}), "bars"), "");
  EXPECT_EQ(drawElements(bar, {"--hidden", "solid"}).find("stroke-dasharray"), std::string::npos);
}

TEST(ToolDraw, DrawsBarsSeenEndOnAsFilledCircles) {
  const std::string svg = draw(sampleBytes(), {"--scale", "1"});
  EXPECT_NE(layer(svg, "end-on").find("r=\"8\"/>"), std::string::npos) << layer(svg, "end-on");
}

TEST(ToolDraw, DrawsARepartitionAsADimensionLineWithAMarkAtEachBar) {
  const std::string repartitions = layer(draw(sampleBytes()), "repartitions");
  EXPECT_NE(repartitions.find(">(6) 5 HA8 e=3 x 20, 25 L=1.6"), std::string::npos) << repartitions;
  // The bars, the line, a stroke at each bar, and the leader of the label.
  EXPECT_EQ(count(repartitions, "M"), 5U + 1U + 5U + 1U);
}

// A second series at the place of the first finds room for its label elsewhere.
TEST(ToolDraw, PutsNoLabelOverAnother) {
  const std::string sample = sampleBytes();
  const std::size_t begin = sample.find("<CKtZantoRepartition");
  const std::string end = "</CKtZantoRepartition>";
  const std::string series = sample.substr(begin, sample.find(end) + end.size() - begin);
  const std::string svg = layer(draw(replaced(sample, series, series + series)), "repartitions");
  const std::regex label("x=\"([0-9.]+)\" y=\"([0-9.]+)\"[^>]*>\\(6\\)");
  std::vector<std::string> places;
  for (std::sregex_iterator at(svg.begin(), svg.end(), label); at != std::sregex_iterator(); ++at) {
    places.push_back((*at)[1].str() + ' ' + (*at)[2].str());
  }
  ASSERT_EQ(places.size(), 2U) << svg;
  EXPECT_NE(places[0], places[1]);
}

TEST(ToolDraw, ExplainsTheLinesThatItDrew) {
  const std::string plain = layer(drawElements(straightBar("")), "title");
  EXPECT_NE(plain.find(">bar</text>"), std::string::npos);
  EXPECT_EQ(plain.find(">hidden</text>"), std::string::npos);
  EXPECT_EQ(plain.find(">link</text>"), std::string::npos);
  const std::string all = layer(draw(sampleBytes(), {"--language", "en"}), "title");
  for (const char* const kind : {"formwork", "mesh", "bar", "link", "bar seen end-on", "hidden"}) {
    EXPECT_NE(all.find('>' + std::string(kind) + "</text>"), std::string::npos) << kind;
  }
  EXPECT_EQ(layer(draw(sampleBytes(), {"--hidden", "solid"}), "title").find(">hidden<"),
            std::string::npos);
}

// 500 units at 1:20 are 25 mm on the sheet.
TEST(ToolDraw, HasAScaleToMeasureBy) {
  const std::string title = layer(draw(sampleBytes()), "title");
  EXPECT_NE(title.find(">500 mm</text>"), std::string::npos) << title;
  EXPECT_NE(title.find("d=\"M357 274L382 274"), std::string::npos) << title;
}

TEST(ToolDraw, DrawsThePictureThatTheProjectShows) {
  const std::string drawing = quorvan::test::dataPath("../examples/drawings/beam-b12.json");
  ASSERT_EQ(runTool({"write", drawing, "-o", "beam-b12.xml"}).err, "");
  ASSERT_EQ(runTool({"draw", "beam-b12.xml", "-o", "beam.svg", "--scale", "25"}).err, "");
  quorvan::test::expectGolden("../../../docs/images/beam-b12.svg", fileBytes("beam.svg"));
}

TEST(ToolDraw, TurnsAndAlignsTexts) {
  const std::string texts = layer(draw(sampleBytes()), "texts");
  EXPECT_NE(texts.find(" text-anchor=\"middle\" transform=\"rotate(-90 "), std::string::npos);
  EXPECT_NE(
      texts.find(
          ">Poutre &quot;B1&quot; \u2013 \u00E9l\u00E9vation &lt;\u00F8&gt;, 15 \u20AC</text>"),
      std::string::npos)
      << texts;
}

TEST(ToolDraw, GuessesColorsAndAngles) {
  const auto hasColor = [](long color, const std::string& web,
                           const std::vector<std::string>& options = {}) {
    return drawElements(line(0, 0, 1, 1, color), options).find("stroke:" + web) !=
           std::string::npos;
  };
  EXPECT_TRUE(hasColor(1, "#ff0000"));
  EXPECT_TRUE(hasColor(7, "#000000"));
  EXPECT_TRUE(hasColor(0x0000FF, "#ff0000", {"--colors", "bgr"}));
  EXPECT_TRUE(hasColor(0x0000FF, "#0000ff", {"--colors", "rgb"}));
  EXPECT_TRUE(hasColor(0x00C08040, "#4080c0"));
  EXPECT_TRUE(hasColor(0xFFFFFF, "#000000"));
  const std::string text =
      R"(<CKtZantoText><Contents string="x"/><Location X="0" Y="0" Z="0"/><Angle double="1.5707963"/>)"
      R"(<Height double="3"/></CKtZantoText>)";
  EXPECT_NE(drawElements(text).find("rotate(-90 "), std::string::npos);
  EXPECT_NE(drawElements(text, {"--angles", "deg"}).find("rotate(-1.571 "), std::string::npos);
}

TEST(ToolDraw, MarksEachMarkOnceUnlessATextNamesIt) {
  const std::string sample = draw(sampleBytes());
  EXPECT_EQ(count(layer(sample, "marks"), "<circle"), 8U);
  const std::string named = draw(
      replaced(sampleBytes(), R"(<Contents string="300"/>)", R"--(<Contents string="(3)"/>)--"));
  EXPECT_EQ(count(layer(named, "marks"), "<circle"), 7U);
  EXPECT_EQ(count(layer(draw(sampleBytes(), {"--marks", "all"}), "marks"), "<circle"), 10U);
  EXPECT_EQ(layer(draw(sampleBytes(), {"--marks", "none"}), "marks"), "");
}

TEST(ToolDraw, FillsTheTitleBlockFromTheControlRecord) {
  const std::string title = layer(draw(sampleBytes()), "title");
  for (const char* const text :
       {">B1 \u2013 \u00E9tage<", ">drawn.xml<", ">2025.1 SP2<", ">4711<"}) {
    EXPECT_NE(title.find(text), std::string::npos) << text;
  }
}

TEST(ToolDraw, LooksFromOtherSides) {
  const std::string upright =
      R"(<CKtZantoLine><Point1 X="0" Y="7" Z="0"/><Point2 X="100" Y="7" Z="50"/><Color long="1"/>)"
      R"(</CKtZantoLine>)";
  EXPECT_NE(layer(drawElements(upright, {"--scale", "1", "--plane", "xz"}), "lines")
                .find("d=\"M8 58L108 8\""),
            std::string::npos);
}

TEST(ToolDraw, LeavesOutWhatHasNoPlace) {
  const std::string huge(400, '9');
  writeFile("far.xml", "<Document>" + line(0, 0, 100, 100) + "<CKtZantoLine><Point1 X=\"" + huge +
                           "\" Y=\"0\" Z=\"0\"/><Point2 X=\"0\" Y=\"0\" Z=\"0\"/></CKtZantoLine>"
                           "</Document>");
  const auto run = runTool({"draw", "far.xml", "-o", "far.svg"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "far.xml: warning: 1 element is left out: it lies beyond what can be drawn\n");
  EXPECT_EQ(count(layer(fileBytes("far.svg"), "lines"), "<path"), 1U);
}

TEST(ToolDraw, DrawsAnEmptySheetForAnEmptyFile) {
  const std::string svg = drawElements("");
  EXPECT_NE(layer(svg, "title").find("no drawing control record"), std::string::npos);
}

TEST(ToolDraw, RefusesOtherForms) {
  quorvan::test::writeSample();
  const auto run = runTool({"draw", "sample.xml", "-o", "sample.bmp"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "quorvan: sample.bmp: the name must end in .svg, .html, .png, .pdf or .dxf\n");
  EXPECT_FALSE(std::filesystem::exists("sample.bmp"));
}

TEST(ToolDrawPage, CarriesTheElementsAndTheBarListAndLoadsNothing) {
  quorvan::test::writeSample();
  ASSERT_EQ(runTool({"draw", "sample.xml", "-o", "sample.html"}).err, "");
  const std::string page = fileBytes("sample.html");
  EXPECT_NE(page.find("default-src 'none'"), std::string::npos);
  for (const char* const loading : {"src=\"", "href=", "@import", "url(", "fetch(", "https:"}) {
    EXPECT_EQ(page.find(loading), std::string::npos) << loading;
  }
  EXPECT_EQ(count(page, "http:"), count(page, "http://www.w3.org/"));
  EXPECT_NE(page.find(R"(["CKtZantoPin", "Pin", ["Point1", )"), std::string::npos);
  EXPECT_NE(
      page.find("\t\tpin, mark 4, diameter 8 B500B, length 340, at (500, 250, 0)\t500, 250, 0\t"),
      std::string::npos);
  EXPECT_NE(page.find(R"("mark": 4, "shape": "pin")"), std::string::npos);
}

// Texts cannot break out of the page.
TEST(ToolDrawPage, HoldsHostileTexts) {
  writeFile("hostile.xml",
            replaced(sampleBytes(), R"(<Contents string="300"/>)",
                     R"(<Contents string="&lt;/script>&lt;script>alert(1)]]&gt;"/>)"));
  ASSERT_EQ(runTool({"draw", "hostile.xml", "-o", "hostile.html"}).err, "");
  const std::string page = fileBytes("hostile.html");
  EXPECT_EQ(count(page, "<script"), 4U);
  EXPECT_EQ(page.find("<script>alert"), std::string::npos);
}

// The lines and texts of a drawing with so many elements, all of one kind by turns.
std::string manyElements(int number, const std::string& text) {
  std::string file = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><Document>";
  for (int i = 1; i <= number; ++i) {
    const std::string at =
        "X=\"" + std::to_string(i) + "\" Y=\"" + std::to_string(i % 100) + "\" Z=\"0\"";
    file += i % 2 == 0 ? "<CKtZantoText version=\"1\" index=\"" + std::to_string(i / 2) +
                             "\"><Contents string=\"" + text + "\"/><Location " + at +
                             "/><Height double=\"2.5\"/></CKtZantoText>"
                       : "<CKtZantoLine version=\"1\" index=\"" + std::to_string(i / 2 + 1) +
                             "\"><Point1 X=\"0\" Y=\"0\" Z=\"0\"/><Point2 " + at +
                             "/><Color long=\"1\"/></CKtZantoLine>";
  }
  return file + "</Document>";
}

// A drawing of a few thousand shapes is painted on a canvas.
TEST(ToolDrawPage, PaintsLargeDrawingsOnACanvas) {
  for (const int elements : {4000, 6000}) {
    writeFile("many.xml", manyElements(elements, "&lt;/script>&lt;b>"));
    ASSERT_EQ(runTool({"draw", "many.xml", "-o", "many.html"}).status, 0);
    const std::string page = fileBytes("many.html");
    EXPECT_EQ(page.find("<canvas>") != std::string::npos, elements == 6000) << elements;
    EXPECT_EQ(page.find("<path") == std::string::npos, elements == 6000) << elements;
    EXPECT_EQ(count(page, "<script"), 4U) << elements;
    EXPECT_EQ(count(page, "<b>"), 0U) << elements;
  }
}

// Whether there are as many shapes or as many elements of which few are shown.
TEST(ToolDrawPage, PaintsManyShapesOfFewElementsAndFewOfManyOnACanvasToo) {
  std::string meshes;
  for (int i = 0; i < 3000; ++i) {
    const double x = i % 50 * 7000.0;
    const double y = (i - i % 50) * 60.0;
    meshes += meshOf("", "", {{x, y, 0}, {x + 6000, y, 0}, {x + 6000, y + 2000, 0}});
  }
  writeFile("meshes.xml", documentOf(meshes));
  writeFile("many.xml", manyElements(6000, "x"));
  ASSERT_EQ(runTool({"draw", "meshes.xml", "-o", "meshes.html"}).status, 0);
  ASSERT_EQ(
      runTool({"draw", "many.xml", "-o", "few.html", "--layers", "texts", "--window", "0,0,90,9"})
          .status,
      0);
  for (const std::string name : {"meshes.html", "few.html"}) {
    EXPECT_NE(fileBytes(name).find("<canvas>"), std::string::npos) << name;
  }
}

#ifdef QUORVAN_HAS_CAIRO
TEST(ToolDrawCairo, WritesPngAndPdf) {
  quorvan::test::writeSample();
  ASSERT_EQ(runTool({"draw", "sample.xml", "-o", "sample.png", "--dpi", "50"}).err, "");
  ASSERT_EQ(runTool({"draw", "sample.xml", "-o", "sample.pdf"}).err, "");
  const std::string png = fileBytes("sample.png");
  EXPECT_EQ(png.substr(0, 8), "\x89PNG\r\n\x1A\n");
  // 420 by 297 mm at 50 points an inch.
  EXPECT_EQ(png.substr(16, 8), std::string("\0\0\x03\x3B\0\0\x02\x49", 8));
  EXPECT_EQ(fileBytes("sample.pdf").substr(0, 5), "%PDF-");
}

TEST(ToolDrawCairo, GivesTheSameBytesForTheSameInput) {
  quorvan::test::writeSample();
  for (const std::string form : {".png", ".pdf"}) {
    ASSERT_EQ(runTool({"draw", "sample.xml", "-o", "first" + form}).err, "");
    ASSERT_EQ(runTool({"draw", "sample.xml", "-o", "second" + form}).err, "");
    EXPECT_EQ(fileBytes("first" + form), fileBytes("second" + form)) << form;
  }
}

TEST(ToolDrawCairo, RefusesPicturesTooLargeForIt) {
  quorvan::test::writeSample();
  const auto run = runTool({"draw", "sample.xml", "-o", "x.png", "--dpi", "1200", "--sheet", "A0"});
  EXPECT_EQ(run.status, 2);
  EXPECT_FALSE(std::filesystem::exists("x.png"));
}
#else
TEST(ToolDrawCairo, IsMissedWithAMessage) {
  quorvan::test::writeSample();
  const auto run = runTool({"draw", "sample.xml", "-o", "sample.png"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err,
            "quorvan: sample.png: this build writes .svg, .html and .dxf only; it has no cairo\n");
}
#endif

}  // namespace
