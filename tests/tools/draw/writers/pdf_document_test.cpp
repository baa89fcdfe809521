// What a PDF paints, read from its packed bytes, and that it holds together.
#ifdef QUORVAN_HAS_FONT_SUBSETS

#include <tools/draw/writers/pdf_document.h>

#include <gtest/gtest.h>
#include <zlib.h>

#include <map>
#include <numbers>
#include <regex>
#include <string>
#include <vector>

#include <tools/draw/scene/text_width.h>

namespace quorvan::tool {

namespace {

// The text of each stream, in their order.
std::vector<std::string> streamsOf(const std::string& pdf) {
  static const std::regex kHead("/Length ([0-9]+)[^>]*>>\nstream\n");
  std::vector<std::string> streams;
  for (std::sregex_iterator at(pdf.begin(), pdf.end(), kHead); at != std::sregex_iterator(); ++at) {
    const auto begin = static_cast<std::size_t>(at->position() + at->length());
    const std::size_t size = std::stoul((*at)[1]);
    constexpr uLongf kRoom = 1 << 22;
    std::string text(kRoom, '\0');
    uLongf length = kRoom;
    EXPECT_EQ(
        uncompress(reinterpret_cast<Bytef*>(text.data()), &length,
                   reinterpret_cast<const Bytef*>(pdf.data() + begin), static_cast<uLong>(size)),
        Z_OK);
    EXPECT_EQ(pdf.substr(begin + size, 11), "\nendstream\n");
    text.resize(length);
    streams.push_back(std::move(text));
  }
  return streams;
}

Scene pageWith(std::vector<Shape> shapes) {
  Scene scene;
  scene.width = 200;
  scene.height = 100;
  scene.title = "P\u00FB12 (a)";
  scene.shapes = std::move(shapes);
  return scene;
}

std::string documentWith(std::vector<Shape> shapes) {
  const std::vector<Scene> pages{pageWith(std::move(shapes))};
  return pdfDocument(pages).value_or("");
}

// What is painted behind the sheet itself.
std::string paintedOf(std::vector<Shape> shapes) {
  constexpr std::string_view kSheet =
      "2.83465 0 0 2.83465 0 0 cm\n1 1 1 rg\n0 0 200 100 re\nf\n1 j\n";
  const std::string content = streamsOf(documentWith(std::move(shapes))).back();
  EXPECT_EQ(content.substr(0, kSheet.size()), kSheet);
  return content.substr(kSheet.size());
}

Shape lineOnPage(PlanePoint from, PlanePoint to, const Style& style) {
  Shape shape{};
  shape.layer = Layer::kLines;
  shape.kind = Shape::Kind::kPath;
  shape.style = style;
  shape.path.moveTo(from);
  shape.path.lineTo(to);
  return shape;
}

Shape circleOnPage(PlanePoint center, double radius, const Style& style) {
  Shape shape{};
  shape.layer = Layer::kCircles;
  shape.kind = Shape::Kind::kCircle;
  shape.style = style;
  shape.center = center;
  shape.radius = radius;
  return shape;
}

Shape textOnPage(const std::string& text, double angle = 0.0, AlignX align = AlignX::kLeft) {
  Shape shape{};
  shape.layer = Layer::kTexts;
  shape.kind = Shape::Kind::kText;
  shape.style = {{}, 0.0, true};
  shape.lettering = {text, {50, 40}, 7.16, angle, align, AlignY::kBase};
  return shape;
}

// The two numbers at the end of the place of the first text.
std::pair<double, double> placeOfText(const std::string& painted) {
  static const std::regex kPlace("(-?[0-9.]+) (-?[0-9.]+) Tm");
  std::smatch found;
  EXPECT_TRUE(std::regex_search(painted, found, kPlace)) << painted;
  return {std::stod(found[1]), std::stod(found[2])};
}

std::size_t timesIn(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

TEST(ToolPdfDocument, SaysOfEachObjectWhereItStands) {
  const std::vector<Scene> pages{pageWith({textOnPage("HA16")}), pageWith({}), pageWith({})};
  const std::string pdf = pdfDocument(pages).value_or("");
  ASSERT_EQ(pdf.substr(0, 9), "%PDF-1.5\n");
  const std::size_t table = std::stoul(pdf.substr(pdf.rfind("startxref\n") + 10));
  ASSERT_EQ(pdf.substr(table, 7), "xref\n0 ");
  const std::size_t count = std::stoul(pdf.substr(table + 7));
  const std::size_t first = pdf.find("f \n", table) + 3;
  for (std::size_t i = 1; i < count; ++i) {
    const std::string entry = pdf.substr(first + 20 * (i - 1), 20);
    EXPECT_EQ(entry.substr(10), " 00000 n \n");
    const std::string head = std::to_string(i) + " 0 obj\n";
    EXPECT_EQ(pdf.substr(std::stoul(entry), head.size()), head);
  }
  EXPECT_EQ(pdf.substr(first + 20 * (count - 1), 8), "trailer\n");
  EXPECT_EQ(timesIn(pdf, "/Type/Page/"), 3U);
  EXPECT_EQ(timesIn(pdf, "/MediaBox[0 0 566.92913 283.46457]"), 3U);
  EXPECT_NE(pdf.find("/Count 3/"), std::string::npos);
}

TEST(ToolPdfDocument, HasTheTitleInAnyLetters) {
  EXPECT_NE(documentWith({}).find("/Title<FEFF005000FB00310032002000280061"
                                  "0029>"),
            std::string::npos);
}

TEST(ToolPdfDocument, SaysWhatChangesFromStrokeToStroke) {
  Style thin{{255, 0, 0}, 0.25};
  Style dashed{{255, 0, 0}, 1.0};
  dashed.isDashed = true;
  EXPECT_EQ(paintedOf({lineOnPage({1, 2}, {3, 4}, thin), lineOnPage({5.0626, 6}, {7, 8.1254}, thin),
                       lineOnPage({0, 0}, {9, 0}, dashed), lineOnPage({0, 1}, {9, 1}, thin)}),
            "1 0 0 RG\n0.25 w\n[]0 d 1 J\n1 2 m\n3 4 l\nS\n"
            "5.063 6 m\n7 8.125 l\nS\n"
            "1 w\n[3 2.25]0 d 0 J\n0 0 m\n9 0 l\nS\n"
            "0.25 w\n[]0 d 1 J\n0 1 m\n9 1 l\nS\n");
}

TEST(ToolPdfDocument, LeavesOutStrokesWithoutAWidth) {
  EXPECT_EQ(paintedOf({lineOnPage({1, 2}, {3, 4}, {{}, 0.0})}), "");
}

TEST(ToolPdfDocument, FillsAndBlanksAreas) {
  const Style filled{{0, 0, 255}, 0.0, true};
  Style bubble{{0, 0, 0}, 0.5};
  bubble.isOnPaper = true;
  const std::string fill = paintedOf({circleOnPage({10, 10}, 2, filled)});
  EXPECT_EQ(fill.substr(0, 17), "0 0 1 rg\n12 10 m\n");
  EXPECT_EQ(fill.substr(fill.size() - 4), "h f\n");
  EXPECT_EQ(timesIn(fill, " c\n"), 4U);
  const std::string blank = paintedOf({circleOnPage({10, 10}, 2, bubble)});
  EXPECT_EQ(blank.substr(0, 36), "0 0 0 RG\n0.5 w\n[]0 d 1 J\n12 10 m\n12 ");
  EXPECT_EQ(blank.substr(blank.size() - 4), "h B\n");
}

TEST(ToolPdfDocument, BendsArcsThroughTheirPoints) {
  Shape shape = lineOnPage({0, 0}, {20, 10}, {{}, 0.5});
  shape.path = {};
  shape.path.moveTo({20, 10});
  shape.path.arcTo({10, 10}, std::numbers::pi);
  shape.path.arcTo({0, 500}, 1e-9);
  const std::string painted = paintedOf({shape});
  // A quarter of a circle leaves 0.5523 of its radius along the tangent.
  EXPECT_NE(painted.find("20 10 m\n20 15.523 15.523 20 10 20 c\n4.477 20 0 15.523 0 10 c\n"),
            std::string::npos)
      << painted;
  EXPECT_NE(painted.find("c\n0 10 l\nS\n"), std::string::npos) << "flat: " << painted;
}

TEST(ToolPdfDocument, CutsAtTheWindowAndKnowsWhatHoldsBehindIt) {
  const Style style{{255, 0, 0}, 0.25};
  Shape title = lineOnPage({0, 0}, {9, 9}, {{255, 0, 0}, 0.5});
  title.layer = Layer::kTitle;
  Shape inside = lineOnPage({1, 2}, {3, 4}, style);
  Scene scene = pageWith({title, inside, title});
  scene.window = SheetBox{{10, 20}, {110, 70}};
  const std::vector<Scene> pages{scene};
  const std::string content = streamsOf(pdfDocument(pages).value_or("")).back();
  EXPECT_NE(content.find("1 0 0 RG\n0.5 w\n[]0 d 1 J\n0 0 m\n9 9 l\nS\n"
                         "q\n10 20 100 50 re\nW n\n0.25 w\n1 2 m\n3 4 l\nS\nQ\n0 0 m\n9 9 l\nS\n"),
            std::string::npos)
      << content;
}

TEST(ToolPdfDocument, SaysTextsInLettersThatAreFound) {
  const std::string pdf = documentWith({textOnPage("AB A")});
  const std::vector<std::string> streams = streamsOf(pdf);
  ASSERT_EQ(streams.size(), 3U) << "a font, what its letters say, the page";
  EXPECT_EQ(streams[0].substr(0, 4), std::string("\0\1\0\0", 4)) << "outlines of TrueType";
  EXPECT_NE(streams[1].find("><0041>\n"), std::string::npos) << streams[1];
  EXPECT_NE(streams[1].find("><0042>\n"), std::string::npos);
  EXPECT_NE(streams[1].find("3 beginbfchar\n"), std::string::npos) << "A, B, blank";
  EXPECT_NE(streams[2].find("BT\n10 0 0 10 50 40 Tm\n/F0 1 Tf\n[<"), std::string::npos)
      << streams[2];
  EXPECT_NE(pdf.find("/FontFile2 "), std::string::npos);
}

TEST(ToolPdfDocument, TurnsAndAlignsTexts) {
  const std::string turned = paintedOf({textOnPage("HA16", std::numbers::pi / 2)});
  static const std::regex kUpright("0 (9\\.99[0-9]*|10) -10 0 50 40 Tm");
  EXPECT_TRUE(std::regex_search(turned, kUpright)) << turned;
  const double left = placeOfText(paintedOf({textOnPage("HA16")})).first;
  const double centre = placeOfText(paintedOf({textOnPage("HA16", 0, AlignX::kCentre)})).first;
  const double right = placeOfText(paintedOf({textOnPage("HA16", 0, AlignX::kRight)})).first;
  EXPECT_EQ(left, 50.0);
  EXPECT_GT(left - centre, 8.0);
  EXPECT_NEAR(left - right, 2.0 * (left - centre), 1e-4);
}

TEST(ToolPdfDocument, NarrowsTextsThatAreWiderThanTheSheetReckonsWith) {
  const auto width = [](const std::string& text) {
    return placeOfText(paintedOf({textOnPage(text)})).first -
           placeOfText(paintedOf({textOnPage(text, 0, AlignX::kRight)})).first;
  };
  for (const char* const text : {"WWWWMMMM", "iiiiiilllll", "\u0428\u0429\u0416\u042E"}) {
    EXPECT_LE(width(text), textWidth(text, 7.16) + 1e-3) << text;
    EXPECT_GT(width(text), 0.5 * textWidth(text, 7.16)) << text;
  }
}

// Letters in the paper around a label would be found a second time.
TEST(ToolPdfDocument, BlanksThePaperAroundALabelWithoutSayingItTwice) {
  Shape label = textOnPage("8 HA16");
  label.style.isOnPaper = true;
  const std::string painted = paintedOf({label});
  EXPECT_EQ(timesIn(painted, "BT\n"), 2U);
  EXPECT_NE(painted.find("1 1 1 RG\n2.148 w\n[]0 d 1 J\n/Span<</ActualText()>>BDC\nBT\n1 Tr\n"),
            std::string::npos)
      << painted;
  EXPECT_NE(painted.find("0 Tr\nET\nEMC\n0 0 0 rg\nBT\n"), std::string::npos) << painted;
}

// The same letter, said in two ways.
TEST(ToolPdfDocument, SaysBesideTheLettersWhatTheyDoNotSay) {
  const std::string painted = paintedOf({textOnPage("e\u0340 e\u0300")});
  EXPECT_EQ(timesIn(painted, "BDC\n"), 1U) << painted;
  EXPECT_EQ(timesIn(painted, "EMC\n"), 1U);
  EXPECT_NE(painted.find("/Span<</ActualText<FEFF00650300>>>BDC\n"), std::string::npos) << painted;
}

TEST(ToolPdfDocument, LiftsSignsOverTheirLettersAndGoesOnBelow) {
  const std::string painted = paintedOf({textOnPage("q\u0323x")});
  const std::size_t lifted = painted.find(" Ts\n");
  ASSERT_NE(lifted, std::string::npos) << painted;
  EXPECT_NE(painted.find(" 0 Ts\n", lifted + 1), std::string::npos) << painted;
}

TEST(ToolPdfDocument, HasWordsFromRightToLeftInTheirOrder) {
  const std::vector<std::string> streams =
      streamsOf(documentWith({textOnPage("\u05D0\u05D1\u05D2")}));
  static const std::regex kSaid("<([0-9A-F]{4})><(05D[0-2])>");
  std::map<std::string, std::string> letters;
  for (std::sregex_iterator at(streams[1].begin(), streams[1].end(), kSaid);
       at != std::sregex_iterator(); ++at) {
    letters[(*at)[2]] = (*at)[1];
  }
  ASSERT_EQ(letters.size(), 3U) << streams[1];
  const std::string& page = streams.back();
  EXPECT_LT(page.find(letters["05D2"]), page.find(letters["05D1"]));
  EXPECT_LT(page.find(letters["05D1"]), page.find(letters["05D0"]));
}

TEST(ToolPdfDocument, DoesWithoutTextsThatAreNone) {
  Shape flat = textOnPage("x");
  flat.lettering.height = 0.0;
  EXPECT_EQ(paintedOf({textOnPage(""), flat}), "");
}

TEST(ToolPdfDocument, IsNoneWhereALetterHasNoFont) {
  EXPECT_EQ(documentWith({textOnPage("A\U000F1234")}), "");
}

TEST(ToolPdfDocument, IsTheSameEachTime) {
  const auto make = [] { return documentWith({textOnPage("12 HA16"), textOnPage("\u05D0 b")}); };
  EXPECT_EQ(make(), make());
}

}  // namespace

}  // namespace quorvan::tool

#endif
