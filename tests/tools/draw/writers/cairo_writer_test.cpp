// PNG: its size, the texts on it, and what is refused.
#ifdef QUORVAN_HAS_CAIRO

#include <tools/draw/writers/cairo_writer.h>

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include <tests/support/saved_file.h>
#include <tests/tools/draw/writers/written_scenes.h>
#include <tests/tools/drawn_elements.h>
#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>
#include <tools/console/console.h>
#include <tools/draw/scene/text_width.h>
#include <tools/draw/writers/pdf_writer.h>

namespace quorvan::tool {

namespace {

using test::fileBytes;
using test::runTool;
using test::sceneOfSize;

std::uint32_t bigEndian(const std::string& bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    value = value << 8U | static_cast<unsigned char>(bytes.at(at + i));
  }
  return value;
}

TEST(ToolPng, HasAPointForEachFractionOfAnInch) {
  const std::tuple<double, double, double, std::uint32_t, std::uint32_t> cases[] = {
      {25.4, 25.4, 100, 100, 100},
      {420, 297, 150, 2481, 1754},
      {210, 297, 72, 596, 842},
      {10, 5, 25.4, 10, 5},
      {10.01, 5, 25.4, 11, 5}};
  for (const auto& [width, height, dpi, columns, rows] : cases) {
    writePng(sceneOfSize(width, height), dpi, "size.png");
    const std::string png = fileBytes("size.png");
    ASSERT_GT(png.size(), 24U);
    EXPECT_EQ(bigEndian(png, 16), columns) << width << ' ' << dpi;
    EXPECT_EQ(bigEndian(png, 20), rows) << height << ' ' << dpi;
  }
}

TEST(ToolPng, HasThirtyThousandPointsASideAtTheMost) {
  writePng(sceneOfSize(30000, 1), 25.4, "long.png");
  EXPECT_EQ(bigEndian(fileBytes("long.png"), 16), 30000U);
  for (const Scene& scene : {sceneOfSize(30001, 1), sceneOfSize(1, 30001)}) {
    EXPECT_THROW(writePng(scene, 25.4, "longer.png"), Failure);
  }
  EXPECT_FALSE(std::filesystem::exists("longer.png"));
}

TEST(ToolPng, TakesItsFinenessFromItsOption) {
  test::writeFile("line.xml", test::documentOf(test::lineOf({0, 0, 0}, {100, 50, 0})));
  for (const char* const dpi : {"10", "50", "200"}) {
    ASSERT_EQ(
        runTool({"draw", "line.xml", "-o", "line.png", "--sheet", "254x127", "--dpi", dpi}).err,
        "");
    EXPECT_EQ(bigEndian(fileBytes("line.png"), 16), std::stoul(dpi) * 10U);
    EXPECT_EQ(bigEndian(fileBytes("line.png"), 20), std::stoul(dpi) * 5U);
  }
  for (const char* const wrong : {"9", "1201", "0", "-5", "x"}) {
    EXPECT_EQ(runTool({"draw", "line.xml", "-o", "no.png", "--dpi", wrong}).status, 2) << wrong;
  }
  EXPECT_FALSE(std::filesystem::exists("no.png"));
}

TEST(ToolPictureFiles, ThatCannotBeWrittenAreNamed) {
  for (const char* const name : {"nowhere/x.png", "nowhere/x.pdf"}) {
    try {
      const Scene scene = sceneOfSize(10, 10);
      if (std::string(name).ends_with("png")) {
        writePng(scene, 72, name);
      } else {
        writePdf(scene, name);
      }
      FAIL() << name;
    } catch (const Failure& failure) {
      EXPECT_EQ(std::string(failure.what()).find(name), 0U) << failure.what();
    }
  }
}

// The picture of a text, and of whatever lies over it.
std::string pictureOf(const std::string& text, const std::vector<Shape>& over = {}) {
  Scene scene = sceneOfSize(200, 20);
  scene.shapes = {test::textAt({5, 8}, 6.0, text)};
  scene.shapes.insert(scene.shapes.end(), over.begin(), over.end());
  writePng(scene, 100, "text.png");
  return fileBytes("text.png");
}

// Paper over all that lies to the right of x.
Shape paperFrom(double x) {
  Shape paper{};
  paper.layer = Layer::kTexts;
  paper.kind = Shape::Kind::kPath;
  paper.style = {{255, 255, 255}, 0.0, true};
  paper.path.moveTo({x, 0});
  paper.path.lineTo({200, 0});
  paper.path.lineTo({200, 20});
  paper.path.lineTo({x, 20});
  paper.path.close();
  return paper;
}

// Strokes are painted together, the last of a picture as well.
TEST(ToolPng, HasTheStrokesThatComeLast) {
  Shape line = paperFrom(50);
  line.style = {{}, 0.35};
  const std::string bare = pictureOf("x");
  const std::string one = pictureOf("x", {line});
  EXPECT_NE(one, bare);
  Shape other = paperFrom(150);
  other.style = line.style;
  EXPECT_NE(pictureOf("x", {line, other}), one);
}

TEST(ToolPaintedTexts, AreNoWiderThanTheSheetIsLaidOutFor) {
  for (const char* const text :
       {"WWWWMMMM", "12 HA16 e=20 L=3.20", "iiiiiilllll", "\u0428\u0429\u0416\u042E\u0428\u0429",
        "\u0152\u00C6\u0132\u0152\u00C6", "\u6881\u914D\u7B4B\u56F3", "a\tb\tc", "one\ntwo"}) {
    const double end = 5.0 + textWidth(text, 6.0) + 0.5;
    EXPECT_EQ(pictureOf(text), pictureOf(text, {paperFrom(end)})) << text;
    EXPECT_NE(pictureOf(text), pictureOf(text, {paperFrom(5.5)})) << text;
  }
}

TEST(ToolPaintedTexts, AreOneLineWithoutSignsForWhatHasNone) {
  EXPECT_EQ(pictureOf("a\nb"), pictureOf("a b"));
  EXPECT_EQ(pictureOf("a\x01\x1F"
                      "b"),
            pictureOf("ab"));
  EXPECT_NE(pictureOf("a\tb"), pictureOf("a b")) << "a tab is wider";
  EXPECT_EQ(pictureOf("a\t"), pictureOf("a")) << "and blank";
}

#ifdef QUORVAN_HAS_PANGO

// The order and the joints that such letters have by themselves, against those that are forced.
TEST(ToolPaintedTexts, RunFromRightToLeftInHebrew) {
  EXPECT_EQ(pictureOf("\u05D0\u05D1\u05D2"), pictureOf("\u202D\u05D2\u05D1\u05D0\u202C"));
  EXPECT_NE(pictureOf("\u05D0\u05D1\u05D2"), pictureOf("\u202D\u05D0\u05D1\u05D2\u202C"));
}

TEST(ToolPaintedTexts, JoinTheLettersOfArabic) {
  EXPECT_NE(pictureOf("\u0628\u0628\u0628"), pictureOf("\u0628\u200C\u0628\u200C\u0628"));
}

#endif

}  // namespace

}  // namespace quorvan::tool

#endif
